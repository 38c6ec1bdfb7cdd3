#pragma once

#include <string_view>

namespace tml {

/// What a text looks like; each takes the text without blanks around it, UTF-8.

/// Letters of any script.
bool HasLetter(std::string_view text);
/// Digits with signs, separators, percent or an exponent: "-1,250.5", "10 %", "1e9".
bool IsNumber(std::string_view text);
/// Neither a letter nor a digit; "" is none.
bool IsPunctuation(std::string_view text);
/// A file or folder, or a pattern of files: "C:\Data", "/etc/hosts", "*.txt", "readme.txt".
bool IsPath(std::string_view text);
/// An address of the net or of a person: "https://a.example", "a@b.example", "127.0.0.1".
bool IsAddress(std::string_view text);
/// One word as programs write it, no word of a language: "lblName", "MAX_SIZE", "Edit1", "a.b.c". A single
/// capitalised or small word is none.
bool LooksLikeIdentifier(std::string_view text);
/// An identifier that begins with a few small letters for its type, as no word of a language does:
/// "btnClose".
bool HasTypePrefix(std::string_view text);

}  // namespace tml
