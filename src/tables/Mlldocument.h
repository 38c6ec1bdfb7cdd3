#pragma once

#include <deque>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tml {

inline constexpr std::string_view kMllMark = "\xEF\xBB\xBF";  ///< UTF-8, in front of a file

/// The lines of a text translation file, by sections. A line stays byte for byte until it gets another
/// content; comments and blank lines stay in front of the entry that they stand before, and comments right
/// above a heading with that.
class TMllDocument {
  public:
    struct TSection {
        std::string Name;
        int Number;                ///< of its heading in the file that was read, 1-based
        std::string_view Heading;  ///< with its end, the comments above it, and a blank line above a new one
        std::string_view Lines;    ///< behind the heading; all with their ends
    };
    struct TEntryLine {
        std::string_view Content;  ///< without blanks in front, its end, and blanks there that do not count
        int Number;                ///< 1-based
    };

    /// EBadInput, with the line, for bytes that are no UTF-8, a broken heading, a section that stands twice,
    /// text before the first section and a last line without its end.
    TMllDocument(std::string bytes, std::string fileName);
    TMllDocument(const TMllDocument&) = delete;
    TMllDocument& operator=(const TMllDocument&) = delete;

    const std::list<TSection>& Sections() const { return sections_; }
    /// Without regard to case; nullptr without it.
    const TSection* Find(std::string_view name) const;
    std::vector<TEntryLine> Entries(const TSection& section) const;
    /// Whether blanks at a line's end count; if not (as it is at first), an editor may have left them.
    void SetBlanksCount(bool count) { doBlanksCount_ = count; }

    /// Gives a section these entries ("key=value", keys as they are written, LF behind each) in this order,
    /// and makes it, with a blank line before it, behind the section named (at the end for ""). One without
    /// entries goes.
    void Put(std::string_view name, std::string_view entries, std::string_view behind);

    const std::string& BytesRead() const { return read_; }
    /// False as long as the bytes are those that were read.
    bool IsChanged() const { return isChanged_; }
    std::string Bytes() const;

  private:
    using TPlace = std::list<TSection>::iterator;

    [[noreturn]] void Refuse(int line, const char* problem, const char* remedy) const;
    void ExpectLine(std::string_view line, char first, int number) const;
    void Finish(std::string_view lines);
    void Begin(std::string_view heading, int number);
    TPlace Insert(std::string_view name, std::string_view behind);
    void Remove(TPlace section);
    void Replace(TSection& section, std::string_view entries);
    std::string_view ContentOf(std::string_view line) const;
    bool HoldEntries(std::string_view lines, std::string_view entries) const;
    std::string_view Keep(std::string text) { return written_.emplace_back(std::move(text)); }

    std::string fileName_;
    std::string read_;
    std::deque<std::string> written_;  ///< what sections have become
    std::string_view mark_;            ///< a byte order mark in front
    std::string lineEnd_ = "\n";
    std::string_view preamble_;  ///< comments before the first section
    std::list<TSection> sections_;
    std::unordered_map<std::string, TPlace> index_;
    bool isChanged_ = false;
    bool doBlanksCount_ = false;
};

}  // namespace tml
