#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// An entry of a text translation file.
struct TFileEntry {
    std::string Key;
    std::vector<std::string> Fields;

    bool operator==(const TFileEntry&) const = default;
};

/// The lines of such entries, "key=field D field". D may be any text that is not empty (UTF-8), and every
/// text survives it, in one line.
class TFileFields {
  public:
    explicit TFileFields(std::string delimiter);

    /// What an escape begins with.
    char Mark() const { return mark_; }

    /// Appends the line of an entry, LF behind it.
    void AppendLine(std::string& lines, std::string_view key,
                    const std::vector<std::string_view>& fields) const;
    /// A line without "=" is a key without fields. Blanks around "=" say nothing, unless D begins with one.
    TFileEntry Read(std::string_view line) const;

  private:
    /// The letter that each byte is escaped by, '\0' for one that stands for itself.
    using TLetters = std::array<char, 256>;
    /// What is escaped of a key or a field: the first and the last character of a piece may have letters of
    /// their own. That of the delimiter's first byte holds for the whole character.
    struct TPiece {
        const TLetters& Inside;
        const TLetters* First;
        const TLetters* Last;
    };

    void Append(std::string& line, std::string_view text, const TPiece& piece) const;
    void AppendInside(std::string& line, std::string_view text, const TLetters& letters) const;
    /// The end of the bytes from pos on that are read as they stand.
    std::size_t EndOfPlain(std::string_view text, std::size_t pos) const;
    /// Appends the plain characters at pos to the text, or the one other or escape; the position behind.
    std::size_t ReadCharacter(std::string_view line, std::size_t pos, std::string& text) const;

    std::string delimiter_;
    std::string first_;  ///< the delimiter's first character
    char mark_;
    TLetters inKeys_{};
    TLetters inFields_{};
    TLetters atKeyStarts_{};
    TLetters atEnds_{};               ///< of keys and of all fields together
    std::array<bool, 256> isRead_{};  ///< what is no plain character to a reader
};

}  // namespace tml
