// Pascal text: literals with doubled apostrophes, texts over several lines (an odd number of three or
// more apostrophes ends the first line and, behind blanks only, closes the last), comments of three
// kinds, directives. Double quotes mean something in assembler code only, where they may hold an
// apostrophe.
#include "source/Pascalskim.h"

#include <algorithm>

#include "base/Utf8.h"
#include "source/Charclass.h"

namespace tml {
namespace {

/// A comment's "(*" is looked for by its star, which is much rarer in code than the parenthesis.
using TStops = TByteSet<'\'', '{', '*', '/', '"'>;
using TQuotesOrLineEnd = TByteSet<'\'', '\r', '\n'>;
using TBraces = TByteSet<'{', '}'>;
using TStars = TByteSet<'(', '*'>;
constexpr auto kNone = std::string_view::npos;

/// The closing run of at least quotes apostrophes with only blanks in front of it on its line.
std::size_t FindClosingRun(std::string_view text, std::size_t pos, std::size_t quotes) {
    while ((pos = text.find('\n', pos)) != kNone) {
        ++pos;
        const std::size_t run = text.find_first_not_of(" \t", pos);
        if (run == kNone) return kNone;
        const std::size_t end = std::min(text.find_first_not_of('\'', run), text.size());
        if (end - run >= quotes) return run;
    }
    return kNone;
}

/// True when a character code (#13, #$0D, ^M) ends at end.
bool EndsWithCode(std::string_view text, std::size_t end) {
    while (end >= 2 && text[end - 2] == '^' && !IsBlank(text[end - 1])) {
        end -= 2;
        while (end > 0 && text[end - 1] == '^')
            --end;
        if (end == 0) return true;
        const char before = text[end - 1];
        if (!IsNameChar(before) && before != ')' && before != ']') return true;
        // Either of a pointer ("p^", "pp^^"), or behind another code: "#10^M", "^M^J".
    }
    std::size_t pos = end;
    while (pos > 0 && IsHexDigit(text[pos - 1]))
        --pos;
    if (pos == end || pos == 0) return false;
    if (text[pos - 1] == '#') return true;
    const bool hasBase = text[pos - 1] == '$' || text[pos - 1] == '%' || text[pos - 1] == '&';
    return hasBase && pos >= 2 && text[pos - 2] == '#';
}

class TPascalSkimmer {
  public:
    explicit TPascalSkimmer(std::string_view text) : text_(text) {}

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
            case '\'':
                return AddLiteral(pos);
            case '{':
                return AddComment(pos, BraceEnd(pos + 1), next == '$');
            case '*':
                if (pos == 0 || text_[pos - 1] != '(') return pos + 1;
                return AddComment(pos - 1, StarEnd(pos + 1), next == '$');
            case '/':
                return next == '/' ? AddComment(pos, LineEnd(text_, pos), false) : pos + 1;
            default:
                return SkipAssemblerText(pos);
        }
    }

    std::size_t AddLiteral(std::size_t open) {
        const TQuoted longText = ReadLongText(open);
        const TQuoted quoted = longText.Closed ? longText : ReadPascalQuotes(text_, open);
        if (quoted.Closed) Add(open, quoted);
        return quoted.End;
    }

    /// A text over several lines that opens at open; not Closed when there is none.
    TQuoted ReadLongText(std::size_t open) {
        if (text_.substr(open, 3) != "'''") return {};
        const std::size_t behind = std::min(text_.find_first_not_of('\'', open), text_.size());
        const std::size_t quotes = behind - open;
        if (quotes % 2 == 0 || behind == text_.size() || !IsLineEnd(text_[behind])) return {};
        // Where one search has come to nothing, those behind it do as well.
        if (quotes >= missingRun_) return {};
        const std::size_t close = FindClosingRun(text_, behind, quotes);
        if (close == kNone) {
            missingRun_ = quotes;
            return {};
        }
        return {behind, close, close + quotes, true};
    }

    TLiteral& Add(std::size_t open, const TQuoted& quoted) {
        TLiteral& literal = skim_.Literals.emplace_back();
        literal.Begin = literal.Open = open;
        literal.End = quoted.End;
        literal.BodyBegin = quoted.BodyBegin;
        literal.BodyEnd = quoted.BodyEnd;
        literal.CodeBefore = EndsWithCode(text_, open);
        literal.CodeAfter =
            quoted.End < text_.size() && (text_[quoted.End] == '#' || text_[quoted.End] == '^');
        return literal;
    }

    std::size_t AddComment(std::size_t begin, std::size_t end, bool isDirective) {
        skim_.Comments.push_back({begin, end, isDirective});
        if (isDirective) Obey(text_.substr(begin, end - begin));
        const std::string_view upToEnd = text_.substr(0, end);
        for (std::size_t pos = begin; (pos = upToEnd.find('\'', pos)) != kNone;) {
            const TQuoted quoted = ReadPascalQuotes(upToEnd, pos);
            if (quoted.Closed) {
                TLiteral& literal = Add(pos, quoted);
                literal.InComment = !isDirective;
                literal.InDirective = isDirective;
            }
            pos = quoted.End;
        }
        return end;
    }

    std::size_t SkipAssemblerText(std::size_t open) {
        const std::size_t close = text_.find_first_of("\"\r\n", open + 1);
        return close != kNone && text_[close] == '"' ? close + 1 : open + 1;
    }

    std::size_t BraceEnd(std::size_t pos) const {
        if (!nest_) return std::min(text_.find('}', pos), text_.size() - 1) + 1;
        for (int depth = 1; (pos = FindByte<TBraces>(text_, pos)) < text_.size();) {
            depth += text_[pos++] == '{' ? 1 : -1;
            if (depth == 0) return pos;
        }
        return pos;
    }

    std::size_t StarEnd(std::size_t pos) const {
        if (!nest_) return std::min(text_.find("*)", pos), text_.size() - 2) + 2;
        for (int depth = 1; (pos = FindByte<TStars>(text_, pos)) < text_.size();) {
            const std::string_view pair = text_.substr(pos, 2);
            const bool counts = pair == "(*" || pair == "*)";
            if (counts) depth += pair == "(*" ? 1 : -1;
            pos += counts ? 2 : 1;
            if (depth == 0) return pos;
        }
        return text_.size();
    }

    /// {$MODE FPC}, {$MODESWITCH NESTEDCOMMENTS-}, {$NESTEDCOMMENTS ON}: whether comments nest from here.
    void Obey(std::string_view directive) {
        const std::size_t name = directive.find('$') + 1;
        std::size_t end = name;
        while (end < directive.size() && IsNameChar(directive[end]))
            ++end;
        const std::string_view word = directive.substr(name, end - name);
        const std::size_t valueEnd = FindByte<TByteSet<'*', '}'>>(directive, end);
        Obey(word, Trim(directive.substr(end, valueEnd - end)));
    }

    void Obey(std::string_view word, std::string_view value) {
        static constexpr std::string_view kSwitch = "NESTEDCOMMENTS";
        if (SameText(word, "MODE"))
            nest_ = SameText(value, "FPC") || SameText(value, "OBJFPC");
        else if (SameText(word, "MODESWITCH") && SameText(value.substr(0, kSwitch.size()), kSwitch))
            nest_ = IsOn(Trim(value.substr(kSwitch.size())));
        else if (SameText(word, kSwitch))
            nest_ = IsOn(value);
        skim_.CommentsNest = skim_.CommentsNest || nest_;
    }

    static bool IsOn(std::string_view value) { return value != "-" && !SameText(value, "OFF"); }

    std::string_view text_;
    TSkim skim_;
    bool nest_ = false;
    std::size_t missingRun_ = kNone;  ///< no run of as many apostrophes closes a text any more
};

}  // namespace

TQuoted ReadPascalQuotes(std::string_view text, std::size_t open) {
    std::size_t pos = open + 1;
    for (;;) {
        pos = FindByte<TQuotesOrLineEnd>(text, pos);
        if (pos == text.size() || text[pos] != '\'') return {open + 1, pos, pos, false};
        if (pos + 1 == text.size() || text[pos + 1] != '\'') return {open + 1, pos, pos + 1, true};
        pos += 2;
    }
}

TSkim SkimPascal(std::string_view text) {
    return TPascalSkimmer(text).Run();
}

}  // namespace tml
