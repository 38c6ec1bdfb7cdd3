#pragma once

#include <memory>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Gridmodel.h"
#include "desktop/View.h"
#include "setup/Dictionaryfillform.h"

namespace Ui {
class Filldictionaryview;
}

namespace tml {

/// "Fill from Dictionary".
class TFillDictionaryView : public TView {
  public:
    TFillDictionaryView(TfrmFillDictionary& form, const TViewServices& services);
    ~TFillDictionaryView() override;

    void Refresh() override;

  private:
    void BindOptions();

    TfrmFillDictionary& form_;
    const TViewServices& services_;
    std::unique_ptr<Ui::Filldictionaryview> ui_;
    TBinder binder_;
    TGridModel model_;
    std::unique_ptr<TActionBinding> actions_;
};

}  // namespace tml
