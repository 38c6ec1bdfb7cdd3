#include "forms/Formlexer.h"

#include "base/Errors.h"
#include "forms/Formchars.h"

namespace tml {

namespace {

constexpr char32_t kMaxCode = 0x10FFFF;

int HexValue(char c) {
    if (c <= '9') return c - '0';
    return (c | 0x20) - 'a' + 10;
}

}  // namespace

TFormLexer::TFormLexer(const std::string& text, std::size_t offset, int line, const std::string& fileName)
    : text_(text), fileName_(fileName), begin_(offset), end_(offset), line_(line) {}

void TFormLexer::Next() {
    SkipBlanks();
    begin_ = end_;
    if (begin_ >= text_.size()) {
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
    for (; IsFormChar(*p, kBlank); ++p) {
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
    for (;;) {
        SkipBlanks();
        if (text_[end_] == '}') break;
        if (!IsFormChar(text_[end_], kHexDigit) || !IsFormChar(text_[end_ + 1], kHexDigit)) {
            if (end_ >= text_.size()) {
                line_ = line;
                Fail("the block that begins here has no '}'");
            }
            Fail("expected two hexadecimal digits or '}'");
        }
        if (bytes != nullptr) {
            bytes->push_back(static_cast<char>(HexValue(text_[end_]) * 16 + HexValue(text_[end_ + 1])));
        }
        end_ += 2;
    }
    ++end_;
}

void TFormLexer::FailAt(int line, const std::string& problem) const {
    throw EBadInput(fileName_, line, problem, "Correct the line or take the file from a copy");
}

}  // namespace tml
