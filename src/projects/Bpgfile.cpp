// A group of projects as makefile: "PROJECTS = App.exe Tool.exe" and for each a rule that names its
// project, "App.exe: src\App.dpr". A target without a rule stands for itself, so that whoever looks the
// projects up reports it; a text without PROJECTS is an error.
#include "projects/Bpgfile.h"

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Utf8.h"
#include "projects/Makefile.h"

namespace tml {

TParsedProject ParseBpg(const std::string& bytes, const std::string& fileName, const std::string& codePage) {
    const TMakefile make = ParseMakefile(TCodedText::TextOf(bytes, codePage));
    const auto projects = make.Macros.find("PROJECTS");
    if (projects == make.Macros.end())
        throw EBadInput(fileName, 0, "the list PROJECTS is missing", "Choose a project group");
    TParsedProject group;
    group.IsGroup = true;
    for (const std::string& target : MakeWords(projects->second.Value)) {
        const auto rule = make.Sources.find(UpperCase(target));
        const bool known = rule != make.Sources.end() && !rule->second.empty();
        group.Projects.push_back(known ? rule->second : target);
    }
    return group;
}

}  // namespace tml
