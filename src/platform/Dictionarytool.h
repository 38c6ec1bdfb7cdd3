#pragma once

#include <string>
#include <variant>

#include "base/Files.h"
#include "platform/Projectoptions.h"
#include "tables/Dictionary.h"

namespace tml {

/// The dictionary tool, which keeps dictionaries and shows them. The external one is an automation object,
/// created on demand and released with the main window; where there is none the system has its own.
class IDictionaryTool {
  public:
    virtual ~IDictionaryTool() = default;
    /// EFileError for a file that cannot be read, EBadInput for one that is no dictionary of the tool's.
    virtual TDictionary Load(const std::string& fileName) = 0;
    /// A new file, or one that is as it was when it was loaded; EFileError where somebody else has changed
    /// it.
    virtual void Save(const std::string& fileName, const TDictionary& dictionary) = 0;
    /// The tool's window, with a dictionary unless the name is "".
    virtual void Show(const std::string& fileName) = 0;
};

/// How the project looks texts up and fills them in.
inline TDictionaryOptions DictionaryOptionsOf(ImlLangProjectSettings& settings) {
    const auto flag = [&](const char* name) { return std::get<bool>(settings.GetOptionValue(name)); };
    return {.IgnoreCase = flag("DictionaryIgnoreCase"),
            .SkipAmpersands = flag("DictionarySkipAmpersands"),
            .OverwriteExisting = flag("DictionaryOverwriteExisting"),
            .ForceEmpties = flag("DictionaryForceEmpties"),
            .ParseMultilines = flag("DictionaryParseMultilines")};
}

/// Full name of a dictionary of the project, which is named from its settings' folder on; "" for none.
inline std::string DictionaryFileOf(ImlLangProjectSettings& settings, const std::string& name) {
    return name.empty() ? name : JoinPath(FolderOf(settings.GetFileName()), name);
}

/// Full name of the project's dictionary, "" for none.
inline std::string DefaultDictionaryOf(ImlLangProjectSettings& settings) {
    return DictionaryFileOf(settings, std::get<std::string>(settings.GetOptionValue("DefaultDictionary")));
}

/// What the dictionary calls the base language of the project's forms, "" for what they call it.
inline std::string DictionaryBaseOf(ImlLangProjectSettings& settings) {
    const std::string name = std::get<std::string>(settings.GetOptionValue("DictionaryBaseLanguage"));
    return std::string(LanguageWithoutTag(name));
}

}  // namespace tml
