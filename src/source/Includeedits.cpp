#include "source/Includeedits.h"

#include <algorithm>

#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Cppskim.h"

namespace tml {
namespace {

/// The preprocessor lines that say where an include belongs.
struct TPlace {
    std::size_t LastInclude = 0;  ///< of those in the fewest conditions; offset within its line
    int Conditions = -1;          ///< around it, -1 when there is no include
    std::size_t Guard = 0;        ///< within the line of the first #define or #pragma once
    bool HasGuard = false;
    bool IsThere = false;
};

class TIncludeReader {
  public:
    TIncludeReader(const TSourceText& source, const std::string& header)
        : source_(source), header_(header), tokens_(source.CodeTokens()) {}

    TPlace Read() {
        for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
            const bool opens = tokens_[i].OnDirectiveLine && TextOf(source_, tokens_[i]) == "#" &&
                               (i == 0 || LineStart(source_.Text(), tokens_[i].Begin) >= tokens_[i - 1].End);
            if (opens) Take(tokens_[i].Begin, TextOf(source_, tokens_[i + 1]));
        }
        return place_;
    }

  private:
    void Take(std::size_t place, std::string_view word) {
        if (word.starts_with("if")) ++conditions_;
        if (word == "endif") --conditions_;
        if (!place_.HasGuard && (word == "define" || word == "pragma")) {
            place_.HasGuard = true;
            place_.Guard = place;
        }
        if (word != "include") return;
        const std::string_view line = source_.Text().substr(place, LineEnd(source_.Text(), place) - place);
        const std::size_t name = line.find_first_of("\"<") + 1;
        const std::size_t end = line.find_first_of("\">", name);
        if (name != 0 && end != std::string_view::npos && SameText(line.substr(name, end - name), header_))
            place_.IsThere = true;
        if (place_.Conditions != -1 && conditions_ > place_.Conditions) return;
        place_.Conditions = conditions_;
        place_.LastInclude = place;
    }

    const TSourceText& source_;
    const std::string& header_;
    const std::vector<TToken>& tokens_;
    int conditions_ = 0;
    TPlace place_;
};

}  // namespace

TEdits AddInclude(const TSourceText& source, const std::string& header) {
    const TPlace place = TIncludeReader(source, header).Read();
    if (place.IsThere) return {};
    const std::string line = "#include \"" + header + "\"";
    if (place.Conditions == -1 && !place.HasGuard) return {{0, 0, line + "\r\n"}};
    const std::size_t end =
        LogicalLineEnd(source.Text(), place.Conditions == -1 ? place.Guard : place.LastInclude);
    return {{end, end, "\r\n" + line}};
}

}  // namespace tml
