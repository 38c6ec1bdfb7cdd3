#include "tables/Componentclasses.h"

#include <string>
#include <unordered_map>

#include "base/Utf8.h"
#include "tables/Classdata.h"

namespace tml {
namespace {

using TAncestors = std::unordered_map<std::string, std::string_view>;

TAncestors ReadRows() {
    TAncestors ancestors;
    for (const TClassRow& row : kClassRows) {
        std::string_view rest = row.Classes;
        while (!rest.empty()) {
            const std::size_t end = rest.find(' ');
            ancestors.emplace(UpperCase(rest.substr(0, end)), row.Ancestor);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
    }
    return ancestors;
}

}  // namespace

std::string_view ComponentAncestor(std::string_view className) {
    static const TAncestors ancestors = ReadRows();
    const auto found = ancestors.find(UpperCase(className));
    return found == ancestors.end() ? std::string_view() : found->second;
}

bool ComponentInheritsFrom(std::string_view className, std::string_view ancestor) {
    for (; !className.empty(); className = ComponentAncestor(className))
        if (SameText(className, ancestor)) return true;
    return false;
}

}  // namespace tml
