#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "expert/Expopt.h"

namespace Ui {
class Optionsview;
}

namespace tml {

/// "Options".
class TOptionsView : public TView {
  public:
    TOptionsView(TfrmOptions& form, const TViewServices& services);
    ~TOptionsView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    void BindPages();
    void BindGeneral();
    void BindLanguages();
    void BindSourceStrings();
    void BindConstants();
    void BindExcludeAndSkip();

    TfrmOptions& form_;
    std::unique_ptr<Ui::Optionsview> ui_;
    TBinder binder_;
};

}  // namespace tml
