#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Listmodel.h"
#include "desktop/View.h"
#include "ids/Badidsform.h"
#include "translations/Findphrase.h"

namespace Ui {
class Resultsview;
}

namespace tml {

/// What a window of results hands to its view.
struct TResults {
    TListRows& List;
    TPlacement& Placement;
    std::function<void()> Change;  ///< after a change of the selection
    std::function<void()> DblClick;
    std::function<void(TShortCut)> KeyDown;
    std::function<bool()> HasDesignWidths;  ///< the columns, until the person chooses their widths
    TActions* Actions = nullptr;            ///< the popup menu, nullptr for none
    std::string Top = {};                   ///< stands above the list, "" for nothing
};

/// A list of results, which stays open beside the others.
class TResultsView : public TView {
  public:
    TResultsView(const TForm& form, TResults results, const TViewServices& services);
    ~TResultsView() override;

    void Refresh() override;
    TPlacement* Place() override { return &results_.Placement; }
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BindList();
    /// Makes the columns as wide as what they show, the widest less so where the window has no room for all;
    /// in the widths that the person has chosen.
    void LayOutColumns();
    void NoteWidth(int column, int width);
    int WidthFor(const TForm& form) const;

    TResults results_;
    TRunner& runner_;
    std::unique_ptr<Ui::Resultsview> ui_;
    TListModel model_;
    std::vector<int> contentWidths_;
    bool layingOut_ = false;
    std::unique_ptr<TActionBinding> actions_;
};

/// "Bad string IDs".
class TBadIDsView : public TResultsView {
  public:
    TBadIDsView(TfrmBadIDs& form, const TViewServices& services);
};

/// "TmlLang Find Phrase".
class TFoundPhrasesView : public TResultsView {
  public:
    TFoundPhrasesView(TfrmFoundPhrases& form, const TViewServices& services);
};

}  // namespace tml
