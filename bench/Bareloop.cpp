#include "Bareloop.h"

namespace tml::bench {

std::size_t CountQuotedTexts(std::string_view text) {
    std::size_t count = 0;
    const char* pos = text.data();
    const char* const end = pos + text.size();
    while (pos != end) {
        switch (*pos++) {
            case '\'':
                while (pos != end && *pos != '\'' && *pos != '\n')
                    ++pos;
                if (pos != end) ++pos;
                ++count;
                break;
            case '{':
                while (pos != end && *pos++ != '}') {
                }
                break;
            case '(':
                if (pos == end || *pos != '*') break;
                ++pos;
                while (end - pos > 1 && !(pos[0] == '*' && pos[1] == ')'))
                    ++pos;
                pos = end - pos > 1 ? pos + 2 : end;
                break;
            case '/':
                if (pos == end || *pos != '/') break;
                while (pos != end && *pos != '\n')
                    ++pos;
                break;
            default:
                break;
        }
    }
    return count;
}

}  // namespace tml::bench
