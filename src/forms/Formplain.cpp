#include "forms/Formplain.h"

#include <algorithm>
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
    // No string is longer than it is written.
    explicit TPlainList(std::string_view text)
        : at_(text.data()), end_(at_ + text.size()), text_(text.size(), '\0'), out_(text_.data()) {}

    bool Read(std::vector<TFormValue>& items) {
        // Most strings have a line for themselves.
        items.reserve(CountLines());
        ++at_;
        for (SkipBlanks(); At() != ')'; SkipBlanks()) {
            if (!ReadString()) return false;
            TFormValue& item = items.emplace_back();
            item.Kind = TFormValueKind::String;
            item.Text.assign(text_.data(), static_cast<std::size_t>(out_ - text_.data()));
        }
        return true;
    }

  private:
    std::size_t CountLines() const {
        const std::string_view text(at_, static_cast<std::size_t>(end_ - at_));
        std::size_t lines = 1;
        for (std::size_t pos = text.find('\n'); pos != std::string_view::npos; pos = text.find('\n', pos + 1))
            ++lines;
        return lines;
    }

    char At() const { return at_ == end_ ? '\0' : *at_; }
    void SkipBlanks() {
        while (IsFormChar(At(), kBlank))
            ++at_;
    }

    bool ReadString() {
        out_ = text_.data();
        while (At() == '\'' || At() == '#') {
            if (At() == '#')
                ReadCode();
            else
                ReadQuoted();
            const bool isOver = At() != '\'' && At() != '#';
            if (!isOver) continue;
            SkipBlanks();
            if (At() != '+') return EndPair();
            ++at_;
            SkipBlanks();
        }
        return false;
    }

    /// A doubled apostrophe is two pieces with nothing between them.
    void ReadQuoted() {
        ++at_;
        if (At() != '\'') EndPair();
        const char* at = at_;
        char* out = out_;
        for (; at != end_ && *at != '\''; ++at)
            *out++ = *at;
        at_ = at == end_ ? at : at + 1;
        out_ = out;
        if (At() != '\'') return;
        EndPair();
        *out_++ = '\'';
    }

    /// Codes above 127 are units of UTF-16.
    void ReadCode() {
        char32_t code = 0;
        const char* at = at_ + 1;
        for (; at != end_ && IsFormChar(*at, kDigit); ++at)
            code = code * 10 + static_cast<char32_t>(*at - '0');
        at_ = at;
        const bool isLow = code >= 0xDC00 && code < 0xE000;
        if (high_ != 0 && isLow) {
            Append(0x10000 + ((high_ - 0xD800) << 10) + (code - 0xDC00));
            high_ = 0;
            return;
        }
        EndPair();
        if (code >= 0xD800 && code < 0xDC00)
            high_ = code;
        else
            Append(isLow ? kUnpaired : code);
    }

    bool EndPair() {
        if (high_ != 0) Append(kUnpaired);
        high_ = 0;
        return true;
    }

    void Append(char32_t code) {
        char* out = out_;
        if (code < 0x80) {
            *out++ = static_cast<char>(code);
        } else if (code < 0x800) {
            *out++ = static_cast<char>(0xC0 | code >> 6);
            *out++ = static_cast<char>(0x80 | (code & 0x3F));
        } else {
            std::string bytes;
            AppendCodePoint(bytes, code);
            out = std::copy(bytes.begin(), bytes.end(), out);
        }
        out_ = out;
    }

    static constexpr char32_t kUnpaired = 0xFFFD;

    const char* at_;
    const char* end_;
    std::string text_;  ///< of the string that is being read, up to out_
    char* out_;
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
