#pragma once

#include "forms/Formfile.h"
#include "forms/Formtextwriter.h"

namespace tml {

/// The style in which a text form is written. What the file does not show is as its layout usually has it;
/// a file that does not even show its layout has that of its extension.
TFormTextStyle FindStyle(const TFormFile& file, const TFormNode& root);

/// The blanks in front of what stands at an offset (0-based), from the start of its line; none when
/// something else stands on the line before it.
std::string_view IndentAt(std::string_view text, std::size_t offset);

}  // namespace tml
