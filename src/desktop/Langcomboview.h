#pragma once

#include <functional>
#include <memory>

#include "desktop/Binder.h"
#include "desktop/View.h"
#include "editors/Mllangcomboeditor.h"

namespace Ui {
class Langcomboview;
}

namespace tml {

/// Edits how a combo shows its languages: those on the left, the settings of the chosen one beside them.
class TLangComboView : public TView {
  public:
    TLangComboView(TfrmMlLangComboEditor& form, const TViewServices& services);
    ~TLangComboView() override;

    void Refresh() override;

  private:
    void BindSettings();
    void FillLists();
    /// Changes the settings of the chosen language.
    void Change(const std::function<void(TLanguageInfo&)>& change);

    TfrmMlLangComboEditor& form_;
    TRunner& runner_;
    std::unique_ptr<Ui::Langcomboview> ui_;
    TBinder binder_;
};

}  // namespace tml
