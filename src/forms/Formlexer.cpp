#include "forms/Formlexer.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/Errors.h"
#include "forms/Formchars.h"

namespace tml {

namespace {

constexpr char32_t kMaxCode = 0x10FFFF;

constexpr std::array<std::int8_t, 256> kHexValues = [] {
    std::array<std::int8_t, 256> values{};
    for (int c = 0; c < 256; ++c) {
        const int lower = c | 0x20;
        int value = -1;
        if (c >= '0' && c <= '9') value = c - '0';
        if (lower >= 'a' && lower <= 'f') value = lower - 'a' + 10;
        values[static_cast<std::size_t>(c)] = static_cast<std::int8_t>(value);
    }
    return values;
}();

int HexValue(char c) {
    return kHexValues[static_cast<unsigned char>(c)];
}

}  // namespace

TFormLexer::TFormLexer(const std::string& text, std::size_t begin, std::size_t end, int line,
                       const std::string& fileName)
    : text_(text), fileName_(fileName), limit_(end), begin_(begin), end_(begin), line_(line) {}

void TFormLexer::Next() {
    if (end_ < limit_) SkipBlanks();
    begin_ = end_;
    if (begin_ >= limit_) {
        kind_ = TFormToken::End;
        return;
    }
    const char c = text_[begin_];
    if (IsFormChar(c, kNameStart)) return ReadName();
    if (IsFormChar(c, kDigit) || c == '-' || c == '$' || IsInfinity()) return ReadNumber();
    if (c == '\'' || c == '#') return ReadString();
    kind_ = TFormToken::Symbol;
    ++end_;
}

bool TFormLexer::IsWord(std::string_view lowerCase) const {
    return kind_ == TFormToken::Name && IsKeyword(Text(), lowerCase);
}

// The text is a std::string, so the byte behind its last one can be read: it is no blank and no digit.
void TFormLexer::SkipBlanks() {
    const int line = line_;
    const char* p = text_.data() + end_;
    for (;; ++p) {
        while (*p == ' ')
            ++p;
        if (!IsFormChar(*p, kBlank)) break;
        if (*p == '\n' || (*p == '\r' && p[1] != '\n')) ++line_;
    }
    end_ = static_cast<std::size_t>(p - text_.data());
    afterLineBreak_ = line_ != line;
}

void TFormLexer::SkipWhile(int classes) {
    const char* p = text_.data() + end_;
    while (IsFormChar(*p, classes))
        ++p;
    end_ = static_cast<std::size_t>(p - text_.data());
}

void TFormLexer::ReadName() {
    kind_ = TFormToken::Name;
    SkipWhile(kNameStart | kDigit);
    while (text_[end_] == '.' && IsFormChar(text_[end_ + 1], kNameStart)) {
        ++end_;
        SkipWhile(kNameStart | kDigit);
    }
}

// What has no decimal digits at all is written as "+Inf" or "-Inf".
bool TFormLexer::IsInfinity() const {
    return (text_[begin_] == '+' || text_[begin_] == '-') &&
           IsKeyword(std::string_view(text_).substr(begin_ + 1, 3), "inf");
}

void TFormLexer::ReadNumber() {
    kind_ = TFormToken::Integer;
    const bool isHex = text_[begin_] == '$';
    if (IsInfinity()) {
        kind_ = TFormToken::Float;
        end_ += 4;
    } else {
        if (isHex || text_[begin_] == '-') ++end_;
        const std::size_t digits = end_;
        SkipWhile(isHex ? kHexDigit : kDigit);
        if (end_ == digits) Fail("expected digits behind '" + text_.substr(begin_, 1) + "'");
        if (!isHex) ReadDecimal();
    }
    if (IsFormChar(text_[end_], kNameStart | kDigit)) Fail("expected the end of a number");
}

// Decimals, exponent and suffix, each of which makes the number a floating point one.
void TFormLexer::ReadDecimal() {
    const std::size_t integerEnd = end_;
    if (text_[end_] == '.') {
        ++end_;
        SkipWhile(kDigit);
    }
    if ((text_[end_] | 0x20) == 'e') {
        ++end_;
        if (text_[end_] == '+' || text_[end_] == '-') ++end_;
        if (!IsFormChar(text_[end_], kDigit)) Fail("expected the digits of an exponent");
        SkipWhile(kDigit);
    }
    const char suffix = static_cast<char>(text_[end_] | 0x20);
    if (suffix == 's' || suffix == 'c' || suffix == 'd') ++end_;
    if (end_ != integerEnd) kind_ = TFormToken::Float;
}

void TFormLexer::ReadString() {
    kind_ = TFormToken::String;
    for (;;) {
        if (text_[end_] == '\'') {
            ReadQuoted();
        } else if (text_[end_] == '#') {
            ReadCode();
        } else {
            return;
        }
    }
}

// A doubled apostrophe is read as two pieces, which is the same run.
void TFormLexer::ReadQuoted() {
    const char* p = text_.data() + end_ + 1;
    const char* const end = text_.data() + text_.size();
    while (p < end && *p != '\'' && *p != '\n' && *p != '\r')
        ++p;
    if (p == end || *p != '\'') Fail("expected a closing apostrophe before the end of the line");
    end_ = static_cast<std::size_t>(p - text_.data()) + 1;
}

void TFormLexer::ReadCode() {
    char32_t code = 0;
    const std::size_t digits = ++end_;
    for (; IsFormChar(text_[end_], kDigit); ++end_) {
        code = code * 10 + static_cast<char32_t>(text_[end_] - '0');
        if (code > kMaxCode) Fail("a character code above 1114111");
    }
    if (end_ == digits) Fail("expected a character code behind '#'");
}

void TFormLexer::ReadBlock(std::string* bytes) {
    const int line = line_;
    if (bytes != nullptr) bytes->reserve((std::min(text_.find('}', end_), limit_) - end_) / 2);
    for (;;) {
        SkipBlanks();
        ReadHexDigits(bytes);
        if (text_[end_] == '}') break;
        if (end_ >= text_.size()) FailAt(line, "the block that begins here has no '}'");
        if (!IsFormChar(text_[end_], kBlank)) Fail("expected two hexadecimal digits or '}'");
    }
    ++end_;
}

void TFormLexer::ReadHexDigits(std::string* bytes) {
    const char* p = text_.data() + end_;
    for (;; p += 2) {
        const int high = HexValue(p[0]);
        const int low = high < 0 ? -1 : HexValue(p[1]);
        if (low < 0) break;
        if (bytes != nullptr) bytes->push_back(static_cast<char>(high * 16 + low));
    }
    end_ = static_cast<std::size_t>(p - text_.data());
}

void TFormLexer::FailAt(int line, const std::string& problem) const {
    throw EBadInput(fileName_, line, problem, "Correct the line or take the file from a copy");
}

}  // namespace tml
