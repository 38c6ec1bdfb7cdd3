#include "source/Preprocessor.h"

#include "source/Charclass.h"

namespace tml {

std::vector<TPreprocessorLine> PreprocessorLines(const TSourceText& source) {
    std::vector<TPreprocessorLine> lines;
    const std::vector<TToken>& tokens = source.CodeTokens();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const TToken& token = tokens[i];
        if (!token.OnDirectiveLine) continue;
        const bool opens = TextOf(source, token) == "#" &&
                           (i == 0 || LineStart(source.Text(), token.Begin) >= tokens[i - 1].End);
        if (opens) lines.push_back({token.Begin, token.End, {}});
        if (lines.empty()) continue;
        const bool isWord = !opens && lines.back().End == lines.back().Begin + 1;
        if (isWord) lines.back().Word = TextOf(source, token);
        lines.back().End = token.End;
    }
    return lines;
}

}  // namespace tml
