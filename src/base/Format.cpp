#include "base/Format.h"

#include <stdexcept>

namespace tml {

std::string FormatList(std::string_view format, const std::vector<std::string>& arguments) {
    std::string result;
    std::size_t next = 0;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char directive = format[i] == '%' && i + 1 < format.size() ? format[i + 1] : '\0';
        if (directive == '%') {
            result += '%';
            ++i;
        } else if (directive == 's' || directive == 'd') {
            if (next == arguments.size()) throw std::logic_error("too few arguments for a message");
            result += arguments[next++];
            ++i;
        } else {
            result += format[i];
        }
    }
    if (next != arguments.size()) throw std::logic_error("too many arguments for a message");
    return result;
}

}  // namespace tml
