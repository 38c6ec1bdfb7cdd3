#pragma once

#include <memory>
#include <string>

namespace tml {

/// The suite's common library as the scan uses it. A test whose entry point is missing is off.
class ICommonLibrary {
  public:
    virtual ~ICommonLibrary() = default;

    /// Whether the entry points behind the comment test and the pattern test were found.
    virtual bool ClassifiesComments() const = 0;
    virtual bool MatchesPatterns() const = 0;

    /// Hands over the text (UTF-8) whose positions are asked for from now on; nothing happens when the
    /// entry point is missing.
    virtual void InitInternalPasSource(const std::string& text) = 0;
    /// True when the 1-based byte offset of the text lies in a comment; false without the entry point.
    virtual bool IsCommentAt(int line, int offset, bool isCpp) = 0;
    /// True when the pattern matches the whole text (UTF-8 both); false without the entry point.
    virtual bool StringMatches(const std::string& text, const std::string& pattern) = 0;
};

/// Loads the common library from a path (or by name from where the system looks for libraries) and
/// holds it until the object is destroyed. A library that cannot be loaded gives an object without
/// entry points, and no message.
std::unique_ptr<ICommonLibrary> LoadCommonLibrary(const std::string& path);

}  // namespace tml
