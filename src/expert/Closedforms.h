#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"
#include "expert/Modules.h"

namespace tml {

/// Finds form files beside their units, without regard to case: ".dfm" first, then ".xfm", ".lfm", ".fmx".
/// Each folder is listed once in the finder's life.
class TFormFileFinder {
  public:
    explicit TFormFileFinder(IFileSystem& files) : files_(files) {}

    std::optional<std::string> Find(const std::string& unitFile);

  private:
    using TFolder = std::multimap<std::string, std::string>;  ///< lower-cased name to name

    const TFolder& FolderAt(const std::string& path);

    IFileSystem& files_;
    std::map<std::string, TFolder> folders_;
};

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
