#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "translations/Langconfig.h"

namespace Ui {
class Langconfigview;
}

namespace tml {

/// "Configure Languages".
class TLangConfigView : public TView {
  public:
    TLangConfigView(TfrmLangConfig& form, const TViewServices& services);
    ~TLangConfigView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    std::unique_ptr<Ui::Langconfigview> ui_;
    TBinder binder_;
};

}  // namespace tml
