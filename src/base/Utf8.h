#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tml {

/// The code point at byte offset pos (0-based); pos moves behind it. A byte that starts no valid sequence
/// gives U+FFFD and is passed over alone.
char32_t DecodeCodePoint(std::string_view text, std::size_t& pos);

/// Appends the code point to a UTF-8 text.
void AppendCodePoint(std::string& text, char32_t codePoint);

/// The first place at or behind pos with a byte above 127, the text's size when there is none.
std::size_t FindNonAscii(std::string_view text, std::size_t pos);

/// True when every byte belongs to a well-formed sequence (no surrogates, no overlong forms).
bool IsValidUtf8(std::string_view text);

/// The number of code points.
std::size_t CountCodePoints(std::string_view text);

/// The first count code points; the whole text when it has no more.
std::string_view LeftCodePoints(std::string_view text, std::size_t count);

/// Case mapping, code point to code point. A code point whose counterpart takes another number of bytes
/// stays as it is, so a byte offset in the mapped copy is the same place in the text.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// The text in the form by which texts are searched without regard to case, code point to code point; other
/// than a mapped copy it may have another length.
std::string FoldCase(std::string_view text);

/// Comparison without regard to case: below 0, 0 or above 0, by upper-cased code points.
int CompareText(std::string_view left, std::string_view right);
bool SameText(std::string_view left, std::string_view right);

/// The text without the blanks and control characters (up to U+0020) at its ends.
std::string_view Trim(std::string_view text);

/// True when part occurs in text; an empty part occurs nowhere.
bool Contains(std::string_view text, std::string_view part);

/// A strict decimal integer (blanks around it are an error); throws EConvertError naming the text.
int ToInteger(std::string_view text);

}  // namespace tml
