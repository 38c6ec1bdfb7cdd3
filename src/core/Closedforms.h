#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Folderindex.h"
#include "core/Formrow.h"
#include "platform/Host.h"

namespace tml {

/// What the text of a form tells of its localization component.
struct TFormSearch {
    TFormAnalysis Found;
    bool IsInherited = false;     ///< the component is one that an ancestor or a frame declares
    bool HasNumber = false;       ///< the text gives the number of languages
    std::string DescendantClass;  ///< of the form itself where it inherits from another one, else ""
};

/// Searches a form in text form, line by line, for a localization component of one of the classes. The last
/// header that names one counts, up to the first number of languages behind a header; without a number it
/// has one language. NumLang is 0 when there is no component. EBadInput, with the file and the line, for a
/// number that is none.
TFormSearch SearchFormText(std::string_view text, const std::vector<std::string>& classNames,
                           const std::string& fileName = {});

/// Reads the files of closed forms, each once. What a form inherits from another form of the active project
/// is its own: the component, and its number of languages unless it has one itself.
class TClosedForms {
  public:
    explicit TClosedForms(const THost& host);
    TClosedForms(const TClosedForms&) = delete;
    TClosedForms& operator=(const TClosedForms&) = delete;

    /// The component of a unit's form (text or binary); none when a file cannot be read. EBadInput as
    /// SearchFormText.
    TFormAnalysis Read(const std::string& unitFile);

  private:
    /// A form's class from the source of its unit, and that class's form.
    TFormAnalysis ReadAncestor(const std::string& unitFile, const std::string& className);
    std::string AncestorClass(const std::string& unitFile, const std::string& className);
    /// The unit of a form of the project, "" when there is none.
    std::string UnitOfForm(const std::string& formName);

    THost host_;
    TFolderIndex folders_;
    std::unordered_map<std::string, TFormAnalysis> read_;  ///< by unit file
    std::unordered_map<std::string, std::string> units_;  ///< by upper-cased form name; empty until asked for
};

}  // namespace tml
