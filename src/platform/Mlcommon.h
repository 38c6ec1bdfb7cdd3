#pragma once

#include <string>

namespace tml {

/// The entry points of the common library. Each works only when the library has it; Has... tells.
class ICommonLibrary {
  public:
    virtual ~ICommonLibrary() = default;
    virtual bool HasClassifier() const = 0;
    virtual bool HasMatcher() const = 0;
    /// Hands over the text (UTF-8) whose positions are asked for next; kept per thread.
    virtual void InitInternalPasSource(const std::string& text) = 0;
    /// True when the 1-based offset lies in a comment of the language. line is the caller's, 1-based; 0
    /// when it has none.
    virtual bool IsCommentAt(int line, int offset, bool isCpp) = 0;
    /// True when the whole text matches the pattern.
    virtual bool mlREStringMatches(const std::string& text, const std::string& pattern) = 0;
};

/// Loads the common library by its name on first use.
class ICommonLibraryLoader {
  public:
    virtual ~ICommonLibraryLoader() = default;
    /// nullptr when the library is missing; no message.
    virtual ICommonLibrary* Load() = 0;
    virtual void Unload() = 0;
};

}  // namespace tml
