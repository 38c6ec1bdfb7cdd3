#pragma once

#include "platform/Host.h"
#include "platform/Projectmanager.h"

namespace tml {

class TmlLangExpert;

/// The sub-menu "TmlLang translations" of a project in the IDE's project manager: saves and loads the
/// translations of several projects of the group in one go.
class TmlLangProjMngrContextMenu : public IProjectMenuCreator {
  public:
    /// expert must be there whenever an entry is clicked.
    TmlLangProjMngrContextMenu(IOTAProjectManager& manager, TmlLangExpert& expert)
        : manager_(manager), expert_(expert) {}

    /// Projects alone.
    bool CanHandle(const std::string& ident) override;
    std::shared_ptr<TMenuItem> AddMenu(const std::string& ident) override;

  private:
    IOTAProjectManager& manager_;
    TmlLangExpert& expert_;
};

/// Registers the menu with the IDE's project manager, where there is one, and takes it away again.
void RegisterProjectMenu(const THost& host, TmlLangExpert& expert);
void UnregisterProjectMenu(const THost& host);

}  // namespace tml
