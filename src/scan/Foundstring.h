#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "scan/Advice.h"

namespace tml {

/// One accepted literal.
struct TmlFoundSourceString {
    std::string StrID;             ///< the string ID given to it
    std::string StrContent;        ///< its text, decoded, UTF-8
    std::int32_t Position = 0;     ///< of the opening delimiter, 1-based byte offset in the unit
    std::int32_t Line = 0;         ///< 0-based
    std::string Replacement;       ///< the call, without the signs that CodeBefore and CodeAfter ask for
    std::int32_t SpanBegin = 0;    ///< of the text that the call replaces, 1-based
    std::int32_t SpanEnd = 0;      ///< behind that text, 1-based
    std::int32_t SpanLength = 0;   ///< in bytes
    bool MarkedToIgnore = false;   ///< the literal stays, and tags that later scans respect enclose its lines
    bool EscapeDelimiter = false;  ///< a C++ text that holds the delimiter
    std::int32_t ScanPosition = 0;  ///< where the walk stood when the literal was accepted: its line's end
    bool CodeBefore = false;        ///< " + " goes in front of the replacement
    bool CodeAfter = false;         ///< " + " goes behind the replacement
    TAdvice Advice = TAdvice::None;

    bool operator==(const TmlFoundSourceString&) const = default;
};

/// What is written in the source in the literal's place: the replacement with its signs.
std::string WrittenText(const TmlFoundSourceString& found);

/// The accepted literals, owned.
class TmlFoundSourceStrings {
  public:
    /// Appends an empty record.
    TmlFoundSourceString& AddItem() { return items_.emplace_back(); }
    int Count() const { return static_cast<int>(items_.size()); }
    bool Empty() const { return items_.empty(); }
    TmlFoundSourceString& operator[](int index) { return items_.at(static_cast<std::size_t>(index)); }
    const TmlFoundSourceString& operator[](int index) const {
        return items_.at(static_cast<std::size_t>(index));
    }
    void Clear() { items_.clear(); }
    /// Orders by Position, ascending; equal ones keep their order.
    void Sort();

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

  private:
    std::vector<TmlFoundSourceString> items_;
};

}  // namespace tml
