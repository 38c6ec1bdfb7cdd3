#include "scan/Lines.h"

#include <algorithm>

#include "source/Charclass.h"

namespace tml {

int GetLineByPos(std::string_view text, std::size_t pos) {
    const std::string_view before = text.substr(0, pos == 0 ? 0 : pos - 1);
    int line = 1;
    for (std::size_t at = 0; (at = before.find("\r\n", at)) != std::string_view::npos; at += 2)
        ++line;
    return line;
}

TSourcePreview GetCurrentSourcePreview(std::string_view text, int line, std::size_t offset,
                                       int previewLines) {
    const int middle = (line >= 1 ? line : GetLineByPos(text, offset)) - 1;
    const int first = std::max(0, middle - previewLines);
    const int last = middle + previewLines;
    TSourcePreview preview{{}, middle - first};
    std::size_t begin = 0;
    for (int index = 0; index <= last && begin < text.size(); ++index) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        if (index >= first) preview.Text += text.substr(begin, end - begin);
        begin = end;
    }
    return preview;
}

bool IsStringTerminated(std::string_view line, const TLanguage& language) {
    if (line.substr(0, 1) == language.STRDELIM) line.remove_prefix(1);
    if (const std::size_t close = line.find(language.STRDELIM); close != std::string_view::npos)
        line.remove_prefix(close + 1);
    const std::size_t end = line.find(';');
    return end != std::string_view::npos && end < line.find(language.COMMENTSTART);
}

}  // namespace tml
