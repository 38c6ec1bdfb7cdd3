#pragma once

#include <QPointer>
#include <array>
#include <map>
#include <memory>

#include "desktop/Binder.h"
#include "desktop/Foundmodel.h"
#include "desktop/Rowfilter.h"
#include "desktop/View.h"

class QAction;
class QLabel;
class QMenu;

namespace Ui {
class Foundview;
}

namespace tml {

/// The review of found strings.
class TFoundView : public TView {
  public:
    TFoundView(TfrmFound& form, const TViewServices& services);
    ~TFoundView() override;

    void Refresh() override;
    void BeforeClose() override;

  private:
    void BindActions();
    void FillToolBar();
    void FillPopup();
    void BindTable();
    void RefreshFilter();
    void RefreshActions();
    void RefreshSelection();
    void RefreshPreview();
    void TakeSelection(const QItemSelection& rows, bool selected);
    /// Runs a command on what has been typed.
    void Execute(const std::function<void()>& command);
    void AddAction(const TFoundAction& action);
    void RefreshAction(const TFoundAction& action);

    TfrmFound& form_;
    const TViewServices& services_;
    std::unique_ptr<Ui::Foundview> ui_;
    TBinder binder_;
    TFoundModel model_;
    TRowFilter sorted_;
    std::string filter_;  ///< the one that is shown
    std::map<QString, QAction*> actions_;
    std::array<QLabel*, 3> panels_{};
    bool refreshing_ = false;
    bool laidOut_ = false;
};

}  // namespace tml
