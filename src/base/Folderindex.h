#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Files.h"

namespace tml {

/// Finds files as projects name them (separators of either kind, any letter case) and lists each folder
/// once only. It does not see what changes on the disk while it lives.
class TFolderIndex {
  public:
    explicit TFolderIndex(IFileSystem& files) : files_(files) {}

    /// The path on disk: the letter case as written preferred, else the only entry that differs in case. A
    /// drive alone or the way to a folder above is none.
    std::optional<std::string> Find(const std::string& folder, std::string_view name);
    /// The form file beside a unit: ".dfm" before ".xfm", ".lfm" and ".fmx"; "" when there is none.
    std::string FormFileOf(const std::string& unitFile);
    /// The header beside a C++ unit; "" for other units and where there is none.
    std::string HeaderFileOf(const std::string& unitFile);
    /// The unit beside a form or header file; the path itself for other files.
    std::string UnitFileOf(const std::string& path);

  private:
    using TEntries = std::unordered_map<std::string, std::vector<std::string>>;

    const TEntries& EntriesOf(const std::string& folder);
    std::optional<std::string> FindEntry(const std::string& folder, const std::string& name);
    std::string FindBeside(const std::string& path, std::initializer_list<std::string_view> extensions);

    IFileSystem& files_;
    std::unordered_map<std::string, TEntries> folders_;
};

/// The full path, without "." and ".." parts; symbolic links stay.
std::string AbsolutePath(IFileSystem& files, const std::string& path);

/// True for ".dfm", ".xfm", ".lfm" and ".fmx", in any letter case.
bool IsFormFile(std::string_view path);
/// True for ".cpp" and ".c".
bool IsCppUnit(std::string_view path);

}  // namespace tml
