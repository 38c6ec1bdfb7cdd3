#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"
#include "core/Formrow.h"

namespace tml {

/// Searches a form in text form, line by line, for a localization component of one of the classes. The last
/// header that names one counts, up to the first number of languages behind a header; without a number it
/// has one language. NumLang is 0 when there is no component. EBadInput, with the file and the line, for a
/// number that is none.
TFormAnalysis SearchFormText(std::string_view text, const std::vector<std::string>& classNames,
                             const std::string& fileName = {});

/// Reads a closed form's file (text or binary); no component when the file cannot be read.
TFormAnalysis AnalyzeClosedForm(IFileSystem& files, const std::string& formFile,
                                const std::vector<std::string>& classNames);

}  // namespace tml
