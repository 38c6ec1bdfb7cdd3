#include "source/Includeedits.h"

#include <algorithm>
#include <vector>

#include "base/Utf8.h"
#include "source/Conditions.h"
#include "source/Newlines.h"
#include "source/Preprocessor.h"

namespace tml {
namespace {

std::string_view IncludedBy(const TSourceText& source, const TPreprocessorLine& line) {
    const std::string_view text = source.Text().substr(line.Begin, line.End - line.Begin);
    const std::size_t name = text.find_first_of("\"<") + 1;
    const std::size_t end = text.find_first_of("\">", name);
    return name == 0 || end == std::string_view::npos ? std::string_view() : text.substr(name, end - name);
}

/// Behind it an include would come too late for somebody.
std::size_t FirstDefinition(const TSourceText& source) {
    for (const TRegion& region : source.Outline())
        if (region.Kind == TRegionKind::Class || region.Kind == TRegionKind::Routine) return region.Begin;
    return source.Text().size();
}

}  // namespace

TEdits AddInclude(const TSourceText& source, const std::string& header) {
    const TConditions conditions(source);
    const std::size_t limit = FirstDefinition(source);
    std::vector<std::size_t> there;
    std::size_t behind = 0;  // the last include that every build sees, else the guard or "#pragma once"
    bool isInclude = false;
    for (const TPreprocessorLine& line : PreprocessorLines(source)) {
        const bool includes = line.Word == "include";
        if (includes && SameText(IncludedBy(source, line), header)) there.push_back(line.Begin);
        const std::string_view text = source.Text().substr(line.Begin, line.End - line.Begin);
        const bool isGuard = conditions.Guard() != 0 ? line.Word == "define" && behind == 0
                                                     : line.Word == "pragma" && text.ends_with("once");
        const bool isSeen = line.Begin < limit && conditions.IsSeen(line.Begin, conditions.Guard());
        if (!isSeen || !(includes || (isGuard && !isInclude))) continue;
        behind = line.End;
        isInclude = includes;
    }
    if (conditions.Reach(there, conditions.Guard())) return {};
    const std::string line = "#include \"" + header + "\"";
    if (behind == 0) return {{0, 0, line + "\r\n"}};
    if (const auto place = LineBehind(source, behind)) return {{*place, *place, line + "\r\n"}};
    return {{behind, behind, "\r\n" + line}};
}

TEdits ExchangeInclude(const TSourceText& source, const std::string& oldHeader, const std::string& newHeader,
                       bool keepsOld) {
    const std::string_view text = source.Text();
    const std::vector<TPreprocessorLine> lines = PreprocessorLines(source);
    const auto includes = [&](const TPreprocessorLine& line, const std::string& header) {
        return line.Word == "include" && SameText(IncludedBy(source, line), header);
    };
    const bool hasNew = std::any_of(lines.begin(), lines.end(),
                                    [&](const TPreprocessorLine& line) { return includes(line, newHeader); });
    if (hasNew && keepsOld) return {};
    TEdits edits;
    for (const TPreprocessorLine& line : lines) {
        if (!includes(line, oldHeader)) continue;
        const std::string_view name = IncludedBy(source, line);
        const auto begin = static_cast<std::size_t>(name.data() - text.data());
        const std::size_t end = begin + name.size();
        if (keepsOld)
            edits.push_back({line.End, line.End,
                             "\r\n" + std::string(text.substr(line.Begin, begin - line.Begin)) + newHeader +
                                 std::string(text.substr(end, line.End - end))});
        else if (!hasNew)
            edits.push_back({begin, end, newHeader});
        else
            edits.push_back({line.Begin, std::min(text.find('\n', line.End), text.size() - 1) + 1, ""});
    }
    if (!hasNew && edits.empty()) return AddInclude(source, newHeader);
    return edits;
}

}  // namespace tml
