// C++ text: strings with escapes and prefixes, raw strings, character constants, digit separators,
// comments, preprocessor lines. Adjacent strings, which the compiler joins, become one literal, and so
// does a string with the _T( ) or TEXT( ) around it.
#include "source/Cppskim.h"

#include <algorithm>
#include <array>

#include "source/Charclass.h"

namespace tml {
namespace {

using TStops = TByteSet<'"', '\'', '/', '#'>;
constexpr auto kNone = std::string_view::npos;
constexpr std::size_t kMaxPrefix = 3;
constexpr std::size_t kMaxRawDelimiter = 16;
constexpr std::array<std::string_view, 9> kPrefixes = {"L", "u", "U", "u8", "R", "LR", "uR", "UR", "u8R"};
constexpr std::array<std::string_view, 3> kTextMacros = {"_T", "TEXT", "_TEXT"};

template <typename List>
bool IsIn(const List& list, std::string_view word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

class TCppSkimmer {
  public:
    explicit TCppSkimmer(std::string_view text) : text_(text), rawStrings_(text) {}

    TSkim Run() {
        std::size_t pos = 0;
        while ((pos = FindByte<TStops>(text_, pos)) < text_.size())
            pos = Step(pos);
        return std::move(skim_);
    }

  private:
    std::size_t Step(std::size_t pos) {
        const char next = pos + 1 < text_.size() ? text_[pos + 1] : '\0';
        switch (text_[pos]) {
            case '"':
                return AddString(pos);
            case '\'':
                return IsDigitSeparator(pos) ? pos + 1 : ReadCppQuotes(text_, pos).End;
            case '/':
                return next == '/' || next == '*' ? AddComment(pos) : pos + 1;
            default:
                if (!InDirective(pos) && StartsLine(pos)) directive_ = {pos, LogicalLineEnd(text_, pos)};
                return pos + 1;
        }
    }

    /// True when only blanks and comments stand in front on the line.
    bool StartsLine(std::size_t pos) const {
        auto comment = skim_.Comments.rbegin();
        for (;;) {
            while (pos > 0 && IsBlank(text_[pos - 1]) && text_[pos - 1] != '\n')
                --pos;
            if (pos == 0 || text_[pos - 1] == '\n') return true;
            if (comment == skim_.Comments.rend() || comment->End != pos) return false;
            pos = comment->Begin;
            ++comment;
        }
    }

    bool InDirective(std::size_t pos) const { return pos >= directive_.first && pos < directive_.second; }

    std::size_t AddString(std::size_t open) {
        const std::string_view prefix = PrefixBefore(text_, open);
        const TQuoted raw = IsRawPrefix(prefix) ? rawStrings_.Read(open) : TQuoted{};
        const TQuoted quoted = raw.Closed ? raw : ReadCppQuotes(text_, open);
        if (!quoted.Closed) return quoted.End;
        TLiteral& literal = Add(open, quoted);
        literal.Begin = open - prefix.size();
        literal.InDirective = InDirective(open);
        Settle(skim_.Literals.size() - 1);
        return quoted.End;
    }

    /// Joins the new code literal to those in front of it and takes a macro around it into its span.
    void Settle(std::size_t index) {
        if (!Merge(last_, index)) {
            beforeLast_ = last_;
            last_ = index;
        }
        if (Wrap(skim_.Literals[last_]) && Merge(beforeLast_, last_)) {
            last_ = beforeLast_;
            beforeLast_ = kNone;
        }
    }

    TLiteral& Add(std::size_t open, const TQuoted& quoted) {
        TLiteral& literal = skim_.Literals.emplace_back();
        literal.Begin = literal.Open = open;
        literal.End = quoted.End;
        literal.BodyBegin = quoted.BodyBegin;
        literal.BodyEnd = quoted.BodyEnd;
        return literal;
    }

    std::size_t AddComment(std::size_t begin) {
        const std::size_t end = CppCommentEnd(text_, begin);
        skim_.Comments.push_back({begin, end, false});
        const std::string_view upToEnd = text_.substr(0, end);
        for (std::size_t pos = begin; (pos = upToEnd.find('"', pos)) != kNone;) {
            const TQuoted quoted = ReadCppQuotes(upToEnd, pos);
            if (quoted.Closed) Add(pos, quoted).InComment = true;
            pos = quoted.End;
        }
        // A comment over several lines does not end the preprocessor line that it stands on.
        if (InDirective(begin) && end > directive_.second) directive_.second = LogicalLineEnd(text_, end);
        return end;
    }

    /// In a number (1'000) the apostrophe separates digits and opens nothing.
    bool IsDigitSeparator(std::size_t pos) {
        if (pos + 1 == text_.size() || !IsNameChar(text_[pos + 1])) return false;
        std::size_t begin = pos;
        while (begin > 0 && (IsNameChar(text_[begin - 1]) || text_[begin - 1] == '.'))
            --begin;
        if (begin == pos) return false;
        const bool goesOn = begin > 0 && text_[begin - 1] == '\'' && begin == lastSeparator_ + 1;
        const bool startsNumber = IsDigit(text_[begin]) || (text_[begin] == '.' && IsDigit(text_[begin + 1]));
        if (!goesOn && !startsNumber) return false;
        lastSeparator_ = pos;
        return true;
    }

    /// True when the compiler sees nothing between the places: blanks, comments, continued lines.
    bool IsGap(std::size_t from, std::size_t to) const {
        while (from < to) {
            const char c = text_[from];
            const char next = from + 1 < to ? text_[from + 1] : '\0';
            if (c == '/' && (next == '/' || next == '*'))
                from = CppCommentEnd(text_, from);
            else if (IsBlank(c) || (c == '\\' && IsLineEnd(next)))
                ++from;
            else
                return false;
        }
        return from == to;
    }

    /// Joins two literals (by index) where nothing lies between; pairs in comments between them are
    /// dropped, as they lie inside the joined one.
    bool Merge(std::size_t into, std::size_t index) {
        if (into == kNone) return false;
        TLiteral& first = skim_.Literals[into];
        const TLiteral& second = skim_.Literals[index];
        const bool sameLine = first.InDirective == second.InDirective &&
                              (!second.InDirective || first.Begin >= directive_.first);
        if (!sameLine || !IsGap(first.End, second.Begin)) return false;
        first.End = second.End;
        first.BodyEnd = second.BodyEnd;
        skim_.Literals.resize(into + 1);
        return true;
    }

    /// Takes the _T( ) or TEXT( ) around a literal into its span.
    bool Wrap(TLiteral& literal) const {
        const std::size_t close = SkipBlanks(text_, literal.End);
        const std::size_t open = SkipBlanksBack(text_, literal.Begin);
        if (close >= text_.size() || text_[close] != ')' || open == 0 || text_[open - 1] != '(') return false;
        const std::size_t nameEnd = SkipBlanksBack(text_, open - 1);
        const std::size_t name = WordBegin(text_, nameEnd);
        if (!IsIn(kTextMacros, text_.substr(name, nameEnd - name))) return false;
        literal.Begin = name;
        literal.End = close + 1;
        return true;
    }

    std::string_view text_;
    TRawStrings rawStrings_;
    TSkim skim_;
    std::pair<std::size_t, std::size_t> directive_{0, 0};
    std::size_t last_ = kNone;        ///< index of the last literal in code
    std::size_t beforeLast_ = kNone;  ///< and of the one in front of it
    std::size_t lastSeparator_ = kNone - 1;
};

}  // namespace

TQuoted ReadCppQuotes(std::string_view text, std::size_t open) {
    const char quote = text[open];
    for (std::size_t pos = open + 1; pos < text.size(); ++pos) {
        const char c = text[pos];
        if (c == quote) return {open + 1, pos, pos + 1, true};
        if (c == '\n') return {open + 1, pos, pos, false};
        if (c != '\\') continue;
        const bool pair = text.substr(pos + 1, 2) == "\r\n";
        pos += pair ? 2 : 1;
    }
    return {open + 1, text.size(), text.size(), false};
}

TQuoted TRawStrings::Read(std::size_t open) {
    const std::size_t paren =
        text_.substr(0, std::min(text_.size(), open + kMaxRawDelimiter + 2)).find('(', open);
    if (paren == kNone) return {};
    const std::string_view delimiter = text_.substr(open + 1, paren - open - 1);
    if (delimiter.find_first_of(" \t\r\n\\)\"") != kNone) return {};
    const std::string closer = ")" + std::string(delimiter) + "\"";
    if (missing_.contains(closer)) return {};
    const std::size_t close = text_.find(closer, paren + 1);
    if (close == kNone) {
        missing_.insert(closer);
        return {};
    }
    return {paren + 1, close, close + closer.size(), true};
}

bool IsRawPrefix(std::string_view prefix) {
    return !prefix.empty() && prefix.back() == 'R';
}

std::string_view PrefixBefore(std::string_view text, std::size_t open) {
    std::size_t begin = open;
    while (begin > 0 && open - begin <= kMaxPrefix && IsNameChar(text[begin - 1]))
        --begin;
    const std::string_view word = text.substr(begin, open - begin);
    return IsIn(kPrefixes, word) ? word : std::string_view();
}

std::size_t CppCommentEnd(std::string_view text, std::size_t begin) {
    if (text[begin + 1] == '/') return LogicalLineEnd(text, begin);
    const std::size_t close = text.find("*/", begin + 2);
    return close == kNone ? text.size() : close + 2;
}

std::size_t LogicalLineEnd(std::string_view text, std::size_t pos) {
    for (;;) {
        const std::size_t end = LineEnd(text, pos);
        if (end == text.size() || end == 0 || text[end - 1] != '\\') return end;
        pos = text.find('\n', end) + 1;
    }
}

TSkim SkimCpp(std::string_view text) {
    return TCppSkimmer(text).Run();
}

}  // namespace tml
