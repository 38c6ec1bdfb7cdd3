#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// How the bytes of a file stand for text.
struct TEncoding {
    std::string Name = "UTF-8";  ///< a name that the converter library knows: "windows-1251", "UTF-16LE"
    std::string Bom;             ///< the byte order mark in front of the text, empty when there is none

    bool operator==(const TEncoding&) const = default;
};

/// The encoding by the mark, else UTF-8 where the bytes are valid, else the project's code page
/// ("1251", "932"; "" when none is known), else the detector where it is sure, else Windows-1252.
TEncoding DetectEncoding(std::string_view bytes, std::string_view codePage);

/// The name under which the converter library knows a Windows code page ("1251" gives "windows-1251");
/// empty when it knows none.
std::string EncodingOfCodePage(std::string_view codePage);

/// The encodings, in the order to try them, of characters that a source gives by the numbers of their bytes
/// (#207, "\xCF"): the file's own; in a file of Unicode, UTF-8, then the project's code page, else
/// Windows-1252.
using TByteEncodings = std::vector<std::string>;
TByteEncodings ByteEncodingsOf(const TEncoding& file, std::string_view codePage);

/// Decodes bytes (without mark) and appends UTF-8. False when some bytes could not be read; each of
/// those gives U+FFFD.
bool Decode(const TEncoding& encoding, std::string_view bytes, std::string& text);

/// Encodes UTF-8 and appends the bytes (without mark). False when a character has no place in the
/// encoding; bytes are then not to be used.
bool Encode(const TEncoding& encoding, std::string_view text, std::string& bytes);

}  // namespace tml
