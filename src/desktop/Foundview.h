#pragma once

#include <array>
#include <memory>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Gridmodel.h"
#include "desktop/View.h"
#include "scan/Found.h"

class QLabel;

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
    void BindTable();
    /// Runs a command on what has been typed.
    void Execute(const TAction& action);
    void LayOut();
    void RefreshPreview();
    void RefreshChange();
    void RefreshRemark();

    TfrmFound& form_;
    const TViewServices& services_;
    std::unique_ptr<Ui::Foundview> ui_;
    TBinder binder_;
    TGridModel model_;
    std::unique_ptr<TActionBinding> actions_;
    std::array<QLabel*, 4> panels_{};
    std::string change_;  ///< as it is shown
    bool laidOut_ = false;
};

}  // namespace tml
