#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Toolsapi.h"

namespace tml {

/// The IDE's menus and windows, as far as an add-in sees them.
class TNativeServices : public INTAServices {
  public:
    explicit TNativeServices(bool dockableForms);

    TMenuItem& GetMainMenu() override { return mainMenu_; }
    TMenuItem& GetEditorLocalMenu() override { return editorMenu_; }
    std::vector<std::string> GetFormClasses(const std::string& formName) override;
    std::unique_ptr<TForm> CreateDockHost(const std::string& className) override;

  private:
    bool dockableForms_;
    TMenuItem mainMenu_;
    TMenuItem editorMenu_;
};

}  // namespace tml
