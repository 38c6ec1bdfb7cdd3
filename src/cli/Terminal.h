#pragma once

#include <string>
#include <string_view>

namespace tml {

enum class TStream { Output, Error };

/// Whether a person reads the stream.
bool IsTerminal(TStream stream);

enum class TStyle { Error, Place, Name, Added, Removed, Heading };

/// The text in the colour of its style where the stream is a terminal that wants colours (NO_COLOR is unset
/// or empty), the bare text elsewhere.
std::string Styled(TStream stream, TStyle style, std::string_view text);

/// The text with its control characters as a source would write them ("\n", "\x1B"), so that it stays on its
/// line and changes nothing on a terminal.
std::string OnOneLine(std::string_view text);
/// The same with every backslash doubled: no two texts look alike.
std::string ExactOnOneLine(std::string_view text);

/// Prints a message of the program to standard error.
void PrintMessage(const std::string& text);

}  // namespace tml
