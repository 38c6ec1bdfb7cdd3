#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "scan/Selunit.h"

namespace Ui {
class Unitsview;
}

namespace tml {

/// The chooser of units and of the form that receives their strings.
class TUnitsView : public TView {
  public:
    TUnitsView(TfrmTranslUnits& form, const TViewServices& services);
    ~TUnitsView() override;

    void Refresh() override;

  private:
    void FitHeight();

    TfrmTranslUnits& form_;
    std::unique_ptr<Ui::Unitsview> ui_;
    TBinder binder_;
    bool laidOut_ = false;
};

}  // namespace tml
