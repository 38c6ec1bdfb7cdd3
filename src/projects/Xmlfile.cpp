#include "projects/Xmlfile.h"

#include <algorithm>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {

TXmlFile::TXmlFile(const std::string& bytes, const std::string& fileName, const std::string& codePage,
                   const std::string& rootName) {
    const TCodedText coded(bytes, fileName, codePage);
    const std::string& text = coded.Text();
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n') lineEnds_.push_back(static_cast<std::ptrdiff_t>(i) + 1);
    // The text is decoded already, whatever encoding its head declares.
    const auto result =
        document_.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result)
        throw EBadInput(fileName, LineAt(result.offset), std::string("no valid XML: ") + result.description(),
                        "Repair the project file");
    if (!rootName.empty() && Root().name() != rootName)
        throw EBadInput(fileName, LineOf(Root()), "the root element is not \"" + rootName + "\"",
                        "Choose a project file");
}

int TXmlFile::LineAt(std::ptrdiff_t offset) const {
    return 1 +
           static_cast<int>(std::upper_bound(lineEnds_.begin(), lineEnds_.end(), offset) - lineEnds_.begin());
}

std::string TXmlFile::NamedText(const std::string& element, const std::string& name) const {
    const pugi::xml_node found = document_.find_node([&](const pugi::xml_node& node) {
        return node.name() == element && node.attribute("Name").value() == name;
    });
    return std::string(Trim(found.child_value()));
}

std::vector<TNamedUnit> ReadFileList(const TXmlFile& xml) {
    std::vector<TNamedUnit> units;
    for (const pugi::xpath_node& found : xml.Root().select_nodes("//FILE[@FILENAME]")) {
        const pugi::xml_node file = found.node();
        TNamedUnit unit;
        unit.Path = file.attribute("FILENAME").value();
        unit.Name = UnitNameOf(unit.Path);
        SetForm(unit, file.attribute("FORMNAME").value(), file.attribute("DESIGNCLASS").value());
        unit.Line = xml.LineOf(file);
        units.push_back(std::move(unit));
    }
    return units;
}

}  // namespace tml
