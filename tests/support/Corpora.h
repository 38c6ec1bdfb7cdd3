#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tml {

/// Real sources on the test machine, and readings of them that share no code with the system.

/// The bytes of a file on disk.
std::string ReadFileOf(const std::filesystem::path& path);
/// The files with these extensions (in lower case) below a folder, sorted.
std::vector<std::filesystem::path> FilesBelow(const char* folder, const std::set<std::string>& extensions);
/// Every n-th of them in a debug build, so that the tests stay quick there; all of them in an optimised
/// build or where TML_WHOLE_CORPUS is set in the environment.
std::vector<std::filesystem::path> PartOf(const std::vector<std::filesystem::path>& files, std::size_t n);

/// Byte offsets, End exclusive.
using TSpan = std::pair<std::size_t, std::size_t>;

/// What a plain walk, character by character, sees in a Pascal text.
struct TSimpleReading {
    std::vector<TSpan> Literals;    ///< in code, delimiters included
    std::vector<TSpan> Directives;  ///< comments that begin with "$"
};
TSimpleReading SimpleReading(const std::string& text, bool nests);

/// The string literals that the compiler's raw lexer sees in a C++ file, prefixes included: text and
/// 1-based line and column of each.
struct TCompilerToken {
    std::string Text;
    std::size_t Line = 0;
    std::size_t Column = 0;
};
std::vector<TCompilerToken> CompilerTokens(const std::filesystem::path& path);
/// A fixed choice of some 60 C++ headers of the machine.
std::vector<std::filesystem::path> CppHeaders();

}  // namespace tml
