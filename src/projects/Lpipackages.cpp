// The packages of a project stand in <RequiredPackages> in front of <Units>, each in an element of its own:
// in older files these are counted (Count="1") and numbered (<Item1>), in newer ones all are called <Item>.
#include "projects/Lpipackages.h"

#include <algorithm>
#include <iterator>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "projects/Xmlfile.h"

namespace tml {
namespace {

constexpr const char* kList = "RequiredPackages";

bool Requires(const pugi::xml_node& list, const std::string& package) {
    const auto items = list.children();
    return std::any_of(items.begin(), items.end(), [&](const pugi::xml_node& item) {
        return SameText(item.child("PackageName").attribute("Value").value(), package);
    });
}

/// Works the edits out on the text of the file, whose lines end with CR LF.
class TPackageEdits {
  public:
    TPackageEdits(const std::string& text, const std::string& package) : text_(text), package_(package) {}

    /// Behind the other packages.
    TEdits Into(const pugi::xml_node& list) const {
        const std::size_t begin = OffsetOf(list);
        const std::size_t headEnd = text_.find('>', begin);
        const bool isEmpty = text_[headEnd - 1] == '/';
        const auto items = list.children();
        const auto count = std::distance(items.begin(), items.end());
        const bool isNumbered = !list.attribute("Count").empty() ||
                                (count > 0 && std::string_view(list.first_child().name()) != "Item");
        if (count == 0 || isEmpty) {
            const std::size_t end = isEmpty ? headEnd + 1 : text_.find('>', headEnd + 1) + 1;
            return {{begin, end, WholeList(IndentAt(begin), isNumbered)}};
        }
        const std::size_t end = LineBegin(text_.find(Format("</%s", kList), headEnd));
        TEdits edits = {{end, end, Item(IndentAt(begin) + "  ", isNumbered ? count + 1 : 0)}};
        if (const TEdit number = Count(begin, headEnd, count + 1); number.End > 0)
            edits.insert(edits.begin(), number);
        return edits;
    }

    /// A list of its own in front of the units, in the style of these.
    TEdits InFrontOf(const pugi::xml_node& units) const {
        const std::size_t begin = OffsetOf(units);
        const std::string indent = IndentAt(begin);
        return {{begin, begin, WholeList(indent, !units.attribute("Count").empty()) + "\r\n" + indent}};
    }

  private:
    /// Of the element's "<".
    static std::size_t OffsetOf(const pugi::xml_node& node) {
        return static_cast<std::size_t>(node.offset_debug()) - 1;
    }
    std::size_t LineBegin(std::size_t offset) const { return text_.rfind('\n', offset) + 1; }
    std::string IndentAt(std::size_t offset) const {
        const std::size_t begin = LineBegin(offset);
        return text_.substr(begin, std::min(text_.find_first_not_of(" \t", begin), offset) - begin);
    }

    /// With its line break; number 0 for an element that has none.
    std::string Item(const std::string& indent, std::ptrdiff_t number) const {
        const std::string name = "Item" + (number == 0 ? std::string() : std::to_string(number));
        return indent + "<" + name + ">\r\n" + indent + "  <PackageName Value=\"" + package_ + "\"/>\r\n" +
               indent + "</" + name + ">\r\n";
    }
    std::string WholeList(const std::string& indent, bool isNumbered) const {
        return Format("<%s%s>\r\n%s%s</%s>", kList, isNumbered ? " Count=\"1\"" : "",
                      Item(indent + "  ", isNumbered ? 1 : 0), indent, kList);
    }
    /// The number of packages; one that ends at 0 where the file gives none.
    TEdit Count(std::size_t begin, std::size_t headEnd, std::ptrdiff_t count) const {
        const std::size_t name = text_.find("Count", begin);
        if (name > headEnd) return {0, 0, {}};
        const std::size_t value = text_.find_first_of("\"'", name) + 1;
        return {value, text_.find(text_[value - 1], value), std::to_string(count)};
    }

    const std::string& text_;
    const std::string& package_;
};

}  // namespace

std::optional<std::string> WithRequiredPackage(const std::string& bytes, const std::string& fileName,
                                               const std::string& package) {
    const TXmlFile xml(bytes, fileName, {}, "CONFIG");
    const pugi::xml_node options = xml.Root().child("ProjectOptions");
    const pugi::xml_node list = options.child(kList);
    if (Requires(list, package)) return std::nullopt;
    const pugi::xml_node units = options.child("Units");
    if (!list && !units)
        throw EBadInput(fileName, 0, "the element \"Units\" is missing", "Choose a project file");
    TCodedText text(bytes, fileName);
    const TPackageEdits edits(text.Text(), package);
    text.Apply(list ? edits.Into(list) : edits.InFrontOf(units));
    return text.Bytes();
}

}  // namespace tml
