#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "scan/Dntcedit.h"

namespace Ui {
class Chooserview;
}

namespace tml {

/// Names that move between two lists: "Exclude Components" and what else is chosen so.
class TChooserView : public TView {
  public:
    TChooserView(TfrmNotTranslate& form, const TViewServices& services);
    ~TChooserView() override;

    void Refresh() override { binder_.Refresh(); }
    TPlacement* Place() override { return &form_.Placement; }
    void BeforeClose() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void BindLists();
    void BindButtons();

    TfrmNotTranslate& form_;
    std::unique_ptr<Ui::Chooserview> ui_;
    TBinder binder_;
};

}  // namespace tml
