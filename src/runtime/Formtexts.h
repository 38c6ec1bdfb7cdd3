#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/Toolsapi.h"

namespace tml {

/// The string properties of a form, by the keys that translation tables have for them: "Button1.Caption",
/// "Frame1.Label1.Caption", ".Caption" for the form's own.
class TFormTexts {
  public:
    /// Finds the components of the form, frame or data module.
    explicit TFormTexts(const std::shared_ptr<IOTAComponent>& owner);

    /// Sets a property that holds the one text to the other. A key that leads to no such property, and a
    /// property that holds something else, is left alone.
    void Replace(const std::string& key, const std::string& from, const std::string& to) const;

  private:
    void AddOwnedBy(IOTAComponent& owner, const std::string& path);

    std::unordered_map<std::string, std::shared_ptr<IOTAComponent>> components_;  ///< by path, upper-cased
};

}  // namespace tml
