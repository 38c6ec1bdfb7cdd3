#pragma once

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

    std::string Write(std::string_view key, const std::vector<std::string_view>& fields) const;
    /// A line without "=" is a key without fields.
    TFileEntry Read(std::string_view line) const;

  private:
    /// What of a line is written: where it begins and ends the key or the whole value, blanks are escaped.
    struct TPiece {
        bool IsKey;
        bool IsFirst;
        bool IsLast;
    };
    void Append(std::string& line, std::string_view text, TPiece piece) const;
    /// Appends the plain characters at pos to the text, or the one other or escape; the position behind.
    std::size_t ReadCharacter(std::string_view line, std::size_t pos, std::string& text) const;

    std::string delimiter_;
    std::string first_;  ///< the delimiter's first character
    char mark_;
};

}  // namespace tml
