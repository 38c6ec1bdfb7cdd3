// Projects and groups in XML: a root "Project" with "ItemGroup" and "PropertyGroup" elements. Elements and
// attributes that are not known are passed over; text that is no XML or has another root is an error.
#include "projects/Xmlprojects.h"

#include <charconv>

#include "base/Files.h"
#include "base/Utf8.h"
#include "projects/Xmlfile.h"

namespace tml {
namespace {

constexpr const char* kRoot = "Project";

/// Calls visit with every element of the name in any item group.
template <typename Visit>
void ForEachItem(const TXmlFile& xml, const char* name, Visit visit) {
    for (const pugi::xml_node group : xml.Root().children("ItemGroup"))
        for (const pugi::xml_node item : group.children(name))
            visit(item);
}

/// A path attribute: "%" and two hex digits stand for a special character.
std::string ItemPath(const pugi::xml_node& item) {
    const std::string_view text = item.attribute("Include").value();
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const bool escaped = text[i] == '%' && i + 2 < text.size();
        if (escaped && std::from_chars(&text[i + 1], &text[i + 1] + 2, byte, 16).ptr == &text[i + 1] + 2) {
            path += static_cast<char>(byte);
            i += 2;
        } else {
            path += text[i];
        }
    }
    return path;
}

TNamedUnit ReadItem(const TXmlFile& xml, const pugi::xml_node& item) {
    TNamedUnit unit;
    unit.Path = ItemPath(item);
    unit.Name = UnitNameOf(unit.Path);
    SetForm(unit, Trim(item.child_value("Form")), Trim(item.child_value("DesignClass")));
    unit.Line = xml.LineOf(item);
    return unit;
}

/// Main source and the items of these kinds.
TParsedProject ReadProject(const TXmlFile& xml, std::initializer_list<const char*> kinds) {
    TParsedProject project;
    for (const pugi::xml_node group : xml.Root().children("PropertyGroup"))
        if (project.MainSource.empty())
            project.MainSource = std::string(Trim(group.child_value("MainSource")));
    for (const char* kind : kinds)
        ForEachItem(xml, kind,
                    [&](const pugi::xml_node& item) { project.Units.push_back(ReadItem(xml, item)); });
    return project;
}

}  // namespace

TParsedProject ParseDproj(const std::string& bytes, const std::string& fileName,
                          const std::string& codePage) {
    return ReadProject(TXmlFile(bytes, fileName, codePage, kRoot), {"DCCReference", "RcCompile"});
}

/// The project's main source stands among its units. Headers and form files are found beside a unit, so
/// that what the file says of them (DependentOn, FormResources) is not read.
TParsedProject ParseCbproj(const std::string& bytes, const std::string& fileName,
                           const std::string& codePage) {
    const TXmlFile xml(bytes, fileName, codePage, kRoot);
    TParsedProject project = ReadProject(xml, {"CppCompile", "DelphiCompile", "PascalCompile", "RcCompile"});
    project.IsCpp = true;
    // Older versions keep it among the extensions.
    if (project.MainSource.empty()) project.MainSource = xml.NamedText("Source", "MainSource");
    return project;
}

TParsedProject ParseGroupproj(const std::string& bytes, const std::string& fileName,
                              const std::string& codePage) {
    const TXmlFile xml(bytes, fileName, codePage, kRoot);
    TParsedProject group;
    group.IsGroup = true;
    ForEachItem(xml, "Projects",
                [&](const pugi::xml_node& item) { group.Projects.push_back(ItemPath(item)); });
    return group;
}

}  // namespace tml
