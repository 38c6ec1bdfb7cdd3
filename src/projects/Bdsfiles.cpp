// Projects (.bdsproj) and groups (.bdsgroup) in XML whose elements carry their meaning in an attribute:
// <Source Name="MainSource">App.dpr</Source>, <VersionInfo Name="CodePage">932</VersionInfo>,
// <Projects Name="App.exe">App.bdsproj</Projects>. A C++ project holds a list of <FILE> elements too; the
// units of a Pascal project stand in its main source alone. Text that is no XML, a project without a main
// source and a group without projects are errors.
#include "projects/Bdsfiles.h"

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "projects/Xmlfile.h"

namespace tml {

TParsedProject ParseBdsproj(const std::string& bytes, const std::string& fileName,
                            const std::string& codePage) {
    const TXmlFile xml(bytes, fileName, codePage);
    TParsedProject project;
    project.MainSource = xml.NamedText("Source", "MainSource");
    if (project.MainSource.empty())
        throw EBadInput(fileName, 0, "the file names no main source", "Choose a project file");
    project.CodePage = xml.NamedText("VersionInfo", "CodePage");
    project.IsCpp = SameText(ExtensionOf(project.MainSource), ".cpp");
    project.Units = ReadFileList(xml);
    return project;
}

TParsedProject ParseBdsgroup(const std::string& bytes, const std::string& fileName,
                             const std::string& codePage) {
    const TXmlFile xml(bytes, fileName, codePage);
    const pugi::xpath_node_set entries = xml.Root().select_nodes("//Projects[@Name]");
    if (entries.empty()) throw EBadInput(fileName, 0, "the file names no projects", "Choose a project group");
    TParsedProject group;
    group.IsGroup = true;
    for (const pugi::xpath_node& entry : entries) {
        // "Targets" lists what the projects make.
        if (SameText(entry.node().attribute("Name").value(), "Targets")) continue;
        group.Projects.emplace_back(Trim(entry.node().child_value()));
    }
    return group;
}

}  // namespace tml
