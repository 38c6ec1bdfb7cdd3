// Projects and groups in XML: a root "Project" with "ItemGroup" and "PropertyGroup" elements. Elements and
// attributes that are not known are passed over; text that is no XML or has another root is an error.
#include <algorithm>
#include <charconv>
#include <pugixml.hpp>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "ide/Projectfiles.h"

namespace tml {
namespace {

/// A project file as XML; the text must outlive it.
class TXmlProject {
  public:
    TXmlProject(const std::string& bytes, const std::string& fileName) : bytes_(bytes) {
        const pugi::xml_parse_result result = document_.load_buffer(bytes.data(), bytes.size());
        if (!result)
            throw EBadInput(fileName, LineOf(result.offset),
                            std::string("no valid XML: ") + result.description(), "Repair the project file");
        if (!Root())
            throw EBadInput(fileName, 1, "the root element is not \"Project\"", "Choose a project file");
    }

    pugi::xml_node Root() const { return document_.child("Project"); }

    /// 1-based; 0 where the place is not known (the parser had to convert the text).
    int LineOf(std::ptrdiff_t offset) const {
        if (offset < 0 || static_cast<std::size_t>(offset) > bytes_.size()) return 0;
        return 1 + static_cast<int>(std::count(bytes_.begin(), bytes_.begin() + offset, '\n'));
    }

    /// Calls visit with every element of the name in any item group.
    template <typename Visit>
    void ForEachItem(const char* name, Visit visit) const {
        for (const pugi::xml_node group : Root().children("ItemGroup"))
            for (const pugi::xml_node item : group.children(name))
                visit(item);
    }

  private:
    const std::string& bytes_;
    pugi::xml_document document_;
};

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

/// What is no unit keeps its extension, and so is told apart by the dot in its name.
std::string UnitNameOf(const std::string& path) {
    const std::string file = FileNameOf(path);
    const std::string extension = ExtensionOf(file);
    const bool isUnit = SameText(extension, ".pas") || SameText(extension, ".pp") ||
                        SameText(extension, ".cpp") || SameText(extension, ".c");
    return isUnit ? LastNamePart(WithExtension(file, "")) : file;
}

TNamedUnit ReadItem(const TXmlProject& xml, const pugi::xml_node& item) {
    TNamedUnit unit;
    unit.Path = ItemPath(item);
    unit.Name = UnitNameOf(unit.Path);
    unit.FormName = std::string(Trim(item.child_value("Form")));
    unit.DesignClass = std::string(Trim(item.child_value("DesignClass")));
    unit.Line = xml.LineOf(item.offset_debug());
    return unit;
}

}  // namespace

TParsedProject ParseDproj(const std::string& bytes, const std::string& fileName, const std::string&) {
    const TXmlProject xml(bytes, fileName);
    TParsedProject project;
    for (const pugi::xml_node group : xml.Root().children("PropertyGroup"))
        if (project.MainSource.empty())
            project.MainSource = std::string(Trim(group.child_value("MainSource")));
    for (const char* kind : {"DCCReference", "RcCompile"})
        xml.ForEachItem(kind,
                        [&](const pugi::xml_node& item) { project.Units.push_back(ReadItem(xml, item)); });
    return project;
}

TParsedProject ParseGroupproj(const std::string& bytes, const std::string& fileName, const std::string&) {
    const TXmlProject xml(bytes, fileName);
    TParsedProject group;
    group.IsGroup = true;
    xml.ForEachItem("Projects",
                    [&](const pugi::xml_node& item) { group.Projects.push_back(ItemPath(item)); });
    return group;
}

}  // namespace tml
