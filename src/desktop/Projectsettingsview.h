#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "translations/Projectsettingsform.h"

namespace Ui {
class Projectsettingsview;
}

namespace tml {

/// "Project Translation Settings".
class TProjectSettingsView : public TView {
  public:
    TProjectSettingsView(TfrmProjectTranslationSettings& form, const TViewServices& services);
    ~TProjectSettingsView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    void BindPages();
    void BindDictionary();
    void BindProject();

    TfrmProjectTranslationSettings& form_;
    std::unique_ptr<Ui::Projectsettingsview> ui_;
    TBinder binder_;
};

}  // namespace tml
