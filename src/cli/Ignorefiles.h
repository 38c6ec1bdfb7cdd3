#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"

namespace tml {

/// True when the path fits the pattern of a shell: "*" and "?" stop at "/", "**" does not, "[a-z]" is one
/// of some characters.
bool MatchesGlob(std::string_view pattern, std::string_view path);

/// What the .gitignore files of a folder and of those around it leave out. The rules of one folder:
class TIgnoreRules {
  public:
    /// Adds the rules of a file's text; folder is where it stands.
    void Add(const std::string& folder, std::string_view text);
    /// Whether the path, below one of the folders, is left out: the last rule that fits it decides.
    bool Ignores(const std::string& path, bool isFolder) const;
    /// Drops what was added behind so many rules.
    void CutTo(std::size_t count) { rules_.resize(count); }
    std::size_t Count() const { return rules_.size(); }

  private:
    struct TRule {
        std::string Folder;
        std::string Pattern;
        bool FoldersOnly = false;
        bool TakesBack = false;  ///< "!": what an earlier rule leaves out is taken all the same
        bool ByName = false;     ///< without "/": fits in every folder below
    };
    std::vector<TRule> rules_;
};

/// The rules that hold in a folder because of the folders around it, up to the one with the repository;
/// none outside a repository.
TIgnoreRules RulesAround(IFileSystem& files, const std::string& folder);
/// Adds the rules of the folder's own .gitignore, where it has one that can be read.
void AddRulesOf(IFileSystem& files, const std::string& folder, TIgnoreRules& rules);

}  // namespace tml
