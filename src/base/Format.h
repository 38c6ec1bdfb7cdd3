#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tml {

/// Puts the arguments, in order, in place of "%s" and "%d"; "%%" is a percent sign. Throws
/// std::logic_error when the numbers of places and arguments differ.
std::string FormatList(std::string_view format, const std::vector<std::string>& arguments);

inline std::string FormatArgument(std::string_view text) {
    return std::string(text);
}
template <typename Number, typename = std::enable_if_t<std::is_integral_v<Number>>>
std::string FormatArgument(Number number) {
    return std::to_string(number);
}

template <typename... Arguments>
std::string Format(std::string_view format, const Arguments&... arguments) {
    return FormatList(format, {FormatArgument(arguments)...});
}

}  // namespace tml
