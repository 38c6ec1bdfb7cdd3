#include "projects/Makefile.h"

#include <algorithm>

#include "base/Stringlist.h"
#include "base/Utf8.h"
#include "source/Charclass.h"

namespace tml {
namespace {

/// The shortest thing in front of a rule's colon; one that comes earlier belongs to a drive.
constexpr std::size_t kShortestTarget = 3;

void ReadRule(TMakefile& make, std::string_view line) {
    const std::size_t colon = line.find(':', kShortestTarget);
    if (colon == std::string_view::npos) return;
    const std::vector<std::string> targets = MakeWords(line.substr(0, colon));
    const std::vector<std::string> sources = MakeWords(line.substr(colon + 1));
    for (const std::string& target : targets)
        make.Sources.try_emplace(UpperCase(target), sources.empty() ? std::string() : sources.front());
}

void ReadLine(TMakefile& make, std::string_view line, int number) {
    // A line that begins with a blank is a command of the rule above it.
    if (line.empty() || IsBlank(line.front()) || line.front() == '#' || line.front() == '!') return;
    const std::size_t equals = line.find('=');
    const std::string_view name = Trim(line.substr(0, equals));
    if (equals != std::string_view::npos && std::all_of(name.begin(), name.end(), IsNameChar))
        make.Macros[std::string(name)] = {std::string(Trim(line.substr(equals + 1))), number};
    else
        ReadRule(make, line);
}

}  // namespace

TMakefile ParseMakefile(std::string_view text) {
    TMakefile make;
    std::string whole;
    int number = 0;
    int begin = 0;
    for (const std::string& line : TStringList::FromText(text)) {
        ++number;
        if (whole.empty()) begin = number;
        std::size_t size = line.size();
        while (size > 0 && IsBlank(line[size - 1]))
            --size;
        const bool goesOn = size > 0 && line[size - 1] == '\\';
        whole += goesOn ? line.substr(0, size - 1) + ' ' : line;
        if (goesOn) continue;
        ReadLine(make, whole, begin);
        whole.clear();
    }
    ReadLine(make, whole, begin);
    return make;
}

std::vector<std::string> MakeWords(std::string_view value) {
    std::vector<std::string> words;
    std::size_t pos = 0;
    while ((pos = SkipBlanks(value, pos)) < value.size()) {
        const bool quoted = value[pos] == '"';
        if (quoted) ++pos;
        std::size_t end = pos;
        while (end < value.size() && (quoted ? value[end] != '"' : !IsBlank(value[end])))
            ++end;
        words.emplace_back(value.substr(pos, end - pos));
        pos = end + (quoted ? 1 : 0);
    }
    return words;
}

}  // namespace tml
