#pragma once

#include <string>
#include <variant>

namespace tml {

/// A text or a switch.
using TOptionValue = std::variant<std::string, bool>;

/// The translation settings of a project, shared by the expert and the run-time translation editor.
class ImlLangProjectSettings {
  public:
    virtual ~ImlLangProjectSettings() = default;
    virtual std::string GetFileName() = 0;
    virtual void SetFileName(const std::string& name) = 0;
    virtual void LoadFile() = 0;
    virtual void SaveFile() = 0;
    virtual TOptionValue GetOptionValue(const std::string& name) = 0;
    virtual void SetOptionValue(const std::string& name, const TOptionValue& value) = 0;
    virtual void DisplayEditDialog() = 0;
    virtual bool GetIsChanged() = 0;
};

}  // namespace tml
