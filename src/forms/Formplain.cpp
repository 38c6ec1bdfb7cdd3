#include "forms/Formplain.h"

#include <algorithm>
#include <memory>
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
        : at_(text.data()),
          end_(at_ + text.size()),
          text_(std::make_unique_for_overwrite<char[]>(text.size())),
          out_(text_.get()) {}

    bool Read(std::vector<TFormValue>& items) {
        ++at_;
        for (SkipBlanks(); At() != ')'; SkipBlanks()) {
            if (!ReadString()) return false;
            TFormValue& item = items.emplace_back();
            item.Kind = TFormValueKind::String;
            item.Text = std::string(text_.get(), out_);
        }
        return true;
    }

  private:
    char At() const { return at_ == end_ ? '\0' : *at_; }
    void SkipBlanks() {
        at_ = std::find_if_not(at_, end_, [](char c) { return IsFormChar(c, kBlank); });
    }

    bool ReadString() {
        out_ = text_.get();
        do {
            if (!ReadPieces()) return false;
        } while (SkipJoint());
        EndPair();
        return true;
    }

    /// False where there is none.
    bool ReadPieces() {
        const char* const begin = at_;
        for (;;) {
            if (At() == '\'')
                ReadQuoted();
            else if (At() == '#')
                ReadCode();
            else
                return at_ != begin;
        }
    }

    bool SkipJoint() {
        SkipBlanks();
        if (At() != '+') return false;
        ++at_;
        SkipBlanks();
        return true;
    }

    /// A doubled apostrophe is two pieces with nothing between them.
    void ReadQuoted() {
        ++at_;
        if (At() != '\'') EndPair();
        const std::string_view rest(at_, end_);
        const std::string_view piece = rest.substr(0, rest.find('\''));
        out_ = std::copy(piece.begin(), piece.end(), out_);
        at_ += std::min(piece.size() + 1, rest.size());
        if (At() != '\'') return;
        EndPair();
        *out_++ = '\'';
    }

    /// Codes above 127 are units of UTF-16.
    void ReadCode() {
        char32_t code = 0;
        const char* at = at_ + 1;
        for (; at != end_ && *at >= '0' && *at <= '9'; ++at)
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

    void EndPair() {
        if (high_ == 0) return;
        Append(kUnpaired);
        high_ = 0;
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
    std::unique_ptr<char[]> text_;  ///< of the string that is being read, up to out_
    char* out_;
    char32_t high_ = 0;  ///< the first unit of a pair whose second may follow
};

bool ReadQuoted(std::string_view text, TFormValue& value) {
    value.Kind = TFormValueKind::String;
    const std::string_view content = text.substr(1, text.size() - 2);
    value.Text = std::string(content);
    return content.find('\'') == std::string_view::npos;
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
