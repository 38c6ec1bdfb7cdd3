#pragma once

#include "editors/Editorhost.h"
#include "platform/Registration.h"

namespace tml {

/// Tries a dialog component.
class TmlDialogEditor : public IComponentEditor {
  public:
    TmlDialogEditor(TEditorHostPtr host, std::shared_ptr<IOTAComponent> component)
        : host_(std::move(host)), component_(std::move(component)) {}

    int GetVerbCount() override { return 1; }
    std::string GetVerb(int index) override;
    void ExecuteVerb(int index) override;
    void PrepareItem(int, TMenuItem&) override {}
    void Edit() override { ExecuteVerb(0); }

  private:
    void Execute();

    TEditorHostPtr host_;
    std::shared_ptr<IOTAComponent> component_;
};

/// Registers the dialog components and their editor.
void RegisterMldialogs(IRegistration& registration, const TEditorHostPtr& host);

}  // namespace tml
