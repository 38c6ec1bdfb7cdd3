// Projects (.lpi) and groups (.lpg) in XML with a root "CONFIG", where values stand in attributes:
// <Unit1><Filename Value="main.pas"/><ComponentName Value="MainForm"/></Unit1>. Elements of a list are
// numbered in older files and all have one name in newer ones; both count by their place. Units that are
// only open in the editor (IsPartOfProject is not True) are left out. Text that is no XML, another root
// and a file without its list are errors.
#include "projects/Lpifile.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "projects/Xmlfile.h"

namespace tml {
namespace {

constexpr const char* kLpiRoot = "CONFIG";

std::string ValueOf(const pugi::xml_node& node, const char* name) {
    return std::string(Trim(node.child(name).attribute("Value").value()));
}

/// The unit's form is plain unless its base is another one: "Frame" stands for TFrame.
std::string DesignClassOf(const std::string& resourceBase) {
    return resourceBase.empty() || SameText(resourceBase, "Form") ? std::string() : "T" + resourceBase;
}

TNamedUnit ReadUnit(const TXmlFile& xml, const pugi::xml_node& node) {
    TNamedUnit unit;
    unit.Path = ValueOf(node, "Filename");
    const std::string name = ValueOf(node, "UnitName");
    unit.Name = name.empty() ? UnitNameOf(unit.Path) : LastNamePart(name);
    unit.FormName = ValueOf(node, "ComponentName");
    if (!unit.FormName.empty()) unit.DesignClass = DesignClassOf(ValueOf(node, "ResourceBaseClass"));
    unit.Line = xml.LineOf(node);
    return unit;
}

pugi::xml_node ListIn(const TXmlFile& xml, const std::string& fileName, const char* parent,
                      const char* list) {
    const pugi::xml_node found = xml.Root().child(parent).child(list);
    if (!found)
        throw EBadInput(fileName, 0, std::string("the element \"") + list + "\" is missing",
                        "Choose a project file");
    return found;
}

}  // namespace

TParsedProject ParseLpi(const std::string& bytes, const std::string& fileName, const std::string& codePage) {
    const TXmlFile xml(bytes, fileName, codePage, kLpiRoot);
    const pugi::xml_node list = ListIn(xml, fileName, "ProjectOptions", "Units");
    const int mainUnit =
        xml.Root().child("ProjectOptions").child("General").child("MainUnit").attribute("Value").as_int();
    TParsedProject project;
    int place = 0;
    for (const pugi::xml_node node : list.children()) {
        const bool isMain = place++ == mainUnit;
        if (!SameText(ValueOf(node, "IsPartOfProject"), "True")) continue;
        TNamedUnit unit = ReadUnit(xml, node);
        if (isMain)
            project.MainSource = unit.Path;
        else
            project.Units.push_back(std::move(unit));
    }
    return project;
}

TParsedProject ParseLpg(const std::string& bytes, const std::string& fileName, const std::string& codePage) {
    const TXmlFile xml(bytes, fileName, codePage, kLpiRoot);
    TParsedProject group;
    group.IsGroup = true;
    for (const pugi::xml_node target : ListIn(xml, fileName, "ProjectGroup", "Targets").children())
        group.Projects.emplace_back(target.attribute("FileName").value());
    return group;
}

}  // namespace tml
