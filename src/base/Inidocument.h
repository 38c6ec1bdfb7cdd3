#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tml {

/// What one line of an ini text is; the views lie in the line.
struct TIniLine {
    enum class TKind { Other, Section, Value, Broken };
    TKind Kind = TKind::Other;
    std::string Name;        ///< of the section or value
    std::string_view Value;  ///< as it stands behind the name
};

/// How a kind of ini text is written. Lines are handed over and given back without their line end.
struct TIniSyntax {
    TIniLine (*Read)(std::string_view line);  ///< the line has no blanks at its ends
    std::string (*SectionLine)(std::string_view section);
    std::string (*ValueLine)(std::string_view name, std::string_view value);
    std::string_view LineEnd;  ///< of a text that has none yet
    bool BlankLineBeforeSection;
};

/// A text of sections with named values, found in constant time and without regard to case. A section or a
/// name that stands twice counts where it stands first. Every line that is not set stays byte for byte,
/// comments, foreign and broken lines among them.
class TIniDocument {
  public:
    TIniDocument(std::string_view text, const TIniSyntax& syntax);
    TIniDocument(TIniDocument&&) = default;
    TIniDocument& operator=(TIniDocument&&) = default;

    /// The value as it stands in its line, none without it; valid until the next change.
    std::optional<std::string_view> Find(std::string_view section, std::string_view name) const;
    /// Writes the line of a value anew, in its place or behind the last line of its section that holds
    /// something.
    void Set(std::string_view section, std::string_view name, std::string_view value);
    std::string Text() const;

    /// The first line (1-based) that begins like a section or value and is none, 0 without one.
    int BrokenLine() const { return brokenLine_; }

  private:
    using TLines = std::list<std::string>;  // an entry stays where it is when another one is inserted
    struct TSection {
        TLines::iterator Last;  ///< the last line that holds something
        std::unordered_map<std::string, TLines::iterator> Values;
    };

    void ReadLine(TLines::iterator line, TSection*& current);
    TSection& AddSection(std::string_view section);
    /// Behind the line, which gets a line end if it has none.
    TLines::iterator InsertBehind(TLines::iterator line, const std::string& text);

    const TIniSyntax* syntax_;
    std::string mark_;  ///< a byte order mark in front
    std::string lineEnd_;
    TLines lines_;  ///< with their ends
    std::unordered_map<std::string, TSection> sections_;
    int brokenLine_ = 0;
};

}  // namespace tml
