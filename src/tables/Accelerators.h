#pragma once

#include <string>
#include <string_view>

namespace tml {

// An accelerator is a letter behind an "&"; "&&" and an "&" in front of a blank are characters of the text.

bool HasAccelerator(std::string_view text);

/// The text without the marks; the "(&F)" that scripts without such letters append goes as a whole.
std::string WithoutAccelerator(std::string_view text);

/// A translation with an accelerator where the text that it translates has one, and without where it has
/// none. It keeps its own; a new one is the text's letter where the translation has it, else the first letter
/// of a word, or stands behind in parentheses where nobody could type a letter of the script.
std::string WithAcceleratorOf(std::string_view text, const std::string& translation);

}  // namespace tml
