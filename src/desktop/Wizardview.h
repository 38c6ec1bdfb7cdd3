#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/Gridmodel.h"
#include "desktop/View.h"
#include "setup/Wizard.h"

class QLineEdit;

namespace Ui {
class Wizardview;
}

namespace tml {

class TRowTable;

/// The translation wizard.
class TWizardView : public TView {
  public:
    TWizardView(TfrmWizard& form, const TViewServices& services);
    ~TWizardView() override;

    void Refresh() override;

  private:
    void BindPages();
    void BindButtons(const TViewServices& services);
    void BindTable(TRowTable& table, TGridModel& model);
    /// Space works on the rows of the table, the box filters them.
    void BindChoice(QWidget& page, TRowTable& table, QLineEdit& filter, TGrid& grid,
                    const std::function<void()>& take);
    void LayOut();
    void ShowPage();

    TfrmWizard& form_;
    TRunner& runner_;
    std::unique_ptr<Ui::Wizardview> ui_;
    TBinder binder_;
    TGridModel forms_;
    TGridModel strings_;
    TGridModel plan_;
    int shownPage_ = -1;
};

}  // namespace tml
