#pragma once

#include <QSet>
#include <memory>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Exclusionmodel.h"
#include "desktop/Listmodel.h"
#include "desktop/View.h"

class QCheckBox;

namespace Ui {
class Excludeview;
}

namespace tml {

class TExclusionPicture;

/// "Exclude from Translation".
class TExcludeView : public TView {
  public:
    TExcludeView(TfrmExclude& form, const TViewServices& services);
    ~TExcludeView() override;

    void Refresh() override;
    TPlacement* Place() override { return &form_.Placement; }
    void BeforeClose() override;

  private:
    void BindTree();
    void BindLists();
    void LayOut();
    void ShowTree();
    void ShowCurrent();
    void ShowSmartBoxes();
    void ShowPicture();
    /// As few nodes as fit into a look are all open; else those that the person has opened.
    void Open();

    TfrmExclude& form_;
    const TViewServices& services_;
    std::unique_ptr<Ui::Excludeview> ui_;
    TBinder binder_;
    TExclusionModel model_;
    TListModel entries_;
    TExclusionPicture* picture_;
    std::vector<QCheckBox*> smartBoxes_;
    std::unique_ptr<TActionBinding> actions_;
    QSet<int> open_;  ///< nodes
    bool laidOut_ = false;
    bool isShowing_ = false;  ///< what the tree tells is its own doing
    int drawnForm_ = -1;
    unsigned drawnRevision_ = 0;
    int drawnNode_ = -1;
};

}  // namespace tml
