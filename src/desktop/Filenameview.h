#pragma once

#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "translations/Projmngsaskfilename.h"

namespace Ui {
class Filenameview;
}

namespace tml {

/// Asks for the translation file of several projects.
class TFileNameView : public TView {
  public:
    TFileNameView(TfrmAsk4FileName& form, const TViewServices& services);
    ~TFileNameView() override;

    void Refresh() override { binder_.Refresh(); }

  private:
    void BindModes();
    void BindTemplate();

    TfrmAsk4FileName& form_;
    std::unique_ptr<Ui::Filenameview> ui_;
    TBinder binder_;
};

}  // namespace tml
