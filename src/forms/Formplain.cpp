#include "forms/Formplain.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Utf8.h"
#include "forms/Formchars.h"

namespace tml {
namespace {

bool AreAll(std::string_view text, int classes) {
    return std::all_of(text.begin(), text.end(), [&](char c) { return IsFormChar(c, classes); });
}

/// The strings of a list: pieces in quotes and character codes, long ones joined by "+".
class TPlainList {
  public:
    explicit TPlainList(std::string_view text) : rest_(text) {}

    bool Read(std::vector<TFormValue>& items) {
        // Most strings have a line for themselves.
        items.reserve(static_cast<std::size_t>(std::count(rest_.begin(), rest_.end(), '\n')) + 1);
        rest_.remove_prefix(1);
        for (SkipBlanks(); At() != ')'; SkipBlanks()) {
            if (!ReadString()) return false;
            TFormValue& item = items.emplace_back();
            item.Kind = TFormValueKind::String;
            item.Text = text_;
        }
        return true;
    }

  private:
    char At() const { return rest_.empty() ? '\0' : rest_.front(); }
    void SkipBlanks() {
        while (IsFormChar(At(), kBlank))
            rest_.remove_prefix(1);
    }

    bool ReadString() {
        text_.clear();
        while (At() == '\'' || At() == '#') {
            if (At() == '#')
                ReadCode();
            else
                ReadQuoted();
            const bool isOver = At() != '\'' && At() != '#';
            if (!isOver) continue;
            SkipBlanks();
            if (At() != '+') return EndPair();
            rest_.remove_prefix(1);
            SkipBlanks();
        }
        return false;
    }

    /// A doubled apostrophe is two pieces with nothing between them.
    void ReadQuoted() {
        const std::size_t close = std::min(rest_.find('\'', 1), rest_.size());
        Append(rest_.substr(1, close - 1));
        rest_.remove_prefix(std::min(close + 1, rest_.size()));
        if (At() == '\'') Append("'");
    }

    void Append(std::string_view text) {
        if (!text.empty()) EndPair();
        text_ += text;
    }

    /// Codes above 127 are units of UTF-16.
    void ReadCode() {
        std::uint32_t code = 0;
        const char* const end = rest_.data() + rest_.size();
        rest_.remove_prefix(
            static_cast<std::size_t>(std::from_chars(rest_.data() + 1, end, code).ptr - rest_.data()));
        const bool isLow = code >= 0xDC00 && code < 0xE000;
        if (high_ != 0 && isLow) {
            AppendCodePoint(text_, 0x10000 + ((high_ - 0xD800) << 10) + (code - 0xDC00));
            high_ = 0;
            return;
        }
        EndPair();
        if (code >= 0xD800 && code < 0xDC00)
            high_ = code;
        else if (code < 0x80)
            text_.push_back(static_cast<char>(code));
        else
            AppendCodePoint(text_, isLow ? kUnpaired : code);
    }

    bool EndPair() {
        if (high_ != 0) AppendCodePoint(text_, kUnpaired);
        high_ = 0;
        return true;
    }

    static constexpr char32_t kUnpaired = 0xFFFD;

    std::string_view rest_;
    std::string text_;   ///< of the string that is being read
    char32_t high_ = 0;  ///< the first unit of a pair whose second may follow
};

bool ReadQuoted(std::string_view text, TFormValue& value) {
    value.Kind = TFormValueKind::String;
    value.Text = text.substr(1, text.size() - 2);
    return value.Text.find('\'') == std::string::npos;
}

bool ReadNumber(std::string_view text, TFormValue& value) {
    constexpr std::size_t kSmall = 18;  // digits that are surely less than 64 bits
    value.Kind = TFormValueKind::Integer;
    value.Text = text;
    return text.size() <= kSmall && (text.size() == 1 || text.front() != '0') && AreAll(text, kDigit);
}

bool ReadWord(std::string_view text, TFormValue& value) {
    value.Kind = TFormValueKind::Identifier;
    value.Text = text;
    return AreAll(text, kNameStart | kDigit);
}

}  // namespace

bool ReadPlain(std::string_view text, TFormValue& value) {
    const char first = text.front();
    if (!IsAscii(text)) return false;
    if (IsFormChar(first, kDigit)) return ReadNumber(text, value);
    if (first == '\'') return ReadQuoted(text, value);
    if (IsFormChar(first, kNameStart)) return ReadWord(text, value);
    value.Kind = TFormValueKind::List;
    return first == '(' && TPlainList(text).Read(value.Items);
}

}  // namespace tml
