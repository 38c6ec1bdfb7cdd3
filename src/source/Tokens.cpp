#include "source/Tokens.h"

#include <algorithm>
#include <array>

#include "source/Charclass.h"
#include "source/Cppskim.h"
#include "source/Pascalskim.h"
#include "source/Sourcetext.h"

namespace tml {
namespace {

using TPair = std::array<char, 2>;
constexpr std::array kPascalPairs = {TPair{':', '='}, TPair{'.', '.'}};
constexpr std::array kCppPairs = {TPair{':', ':'}, TPair{'-', '>'}};

/// Of usual sources, blanks and comments included.
constexpr std::size_t kBytesOfToken = 5;

class TTokenizer {
  public:
    explicit TTokenizer(const TSourceText& source)
        : source_(source), text_(source.Text()), isCpp_(source.Language().IsCPPSource) {}

    std::vector<TToken> Run() {
        tokens_.reserve(text_.size() / kBytesOfToken);
        while ((pos_ = SkipBlanks(text_, pos_)) < text_.size()) {
            PassBy();
            if (IsContinuation())
                ++pos_;
            else
                Next();
        }
        return std::move(tokens_);
    }

  private:
    /// Moves the places in the lists of literals and comments up to pos_.
    void PassBy() {
        const auto& literals = source_.Literals();
        while (literal_ < literals.size() &&
               (literals[literal_].Begin < pos_ || InComment(literals[literal_])))
            ++literal_;
        while (comment_ < source_.Comments().size() && source_.Comments()[comment_].Begin < pos_)
            ++comment_;
    }

    bool InComment(const TLiteral& literal) const {
        return literal.InComment || (literal.InDirective && !isCpp_);
    }

    bool IsContinuation() const {
        return isCpp_ && text_[pos_] == '\\' && pos_ + 1 < text_.size() && IsLineEnd(text_[pos_ + 1]);
    }

    void Next() {
        const auto& literals = source_.Literals();
        const auto& comments = source_.Comments();
        if (literal_ < literals.size() && literals[literal_].Begin == pos_)
            return Add(TTokenKind::Literal, literals[literal_].End, literal_);
        if (comment_ < comments.size() && comments[comment_].Begin == pos_) {
            const TComment& comment = comments[comment_];
            return Add(comment.IsDirective ? TTokenKind::Directive : TTokenKind::Comment, comment.End,
                       comment_);
        }
        const char c = text_[pos_];
        if (IsNameStart(c)) return Add(TTokenKind::Name, NameEnd(pos_));
        if (IsDigit(c) || (isCpp_ && c == '.' && IsDigit(At(pos_ + 1))))
            return Add(TTokenKind::Number, NumberEnd());
        if (c == '\'' || c == '"') return AddQuotes();
        if (isCpp_) return AddCppSymbol();
        if (c == '$' || c == '%' || c == '&') return AddPascalPrefixed();
        if (c == '#' || IsControlCode()) return Add(TTokenKind::Character, CodeEnd());
        AddSymbol(kPascalPairs);
    }

    char At(std::size_t pos) const { return pos < text_.size() ? text_[pos] : '\0'; }

    std::size_t NameEnd(std::size_t pos) const {
        while (IsNameChar(At(pos)) && pos < text_.size())
            ++pos;
        return pos;
    }

    std::size_t NumberEnd() const { return isCpp_ ? CppNumberEnd() : PascalNumberEnd(); }

    std::size_t CppNumberEnd() const {
        std::size_t pos = pos_;
        for (;; ++pos) {
            const char c = At(pos);
            const bool isSign = (c == '+' || c == '-') && pos > pos_ && IsExponent(text_[pos - 1]);
            const bool separates = c == '\'' && IsNameChar(At(pos + 1));
            if (pos >= text_.size() || (!IsNameChar(c) && c != '.' && !isSign && !separates)) return pos;
        }
    }

    bool IsExponent(char c) const {
        const bool isHex = text_.substr(pos_, 2) == "0x" || text_.substr(pos_, 2) == "0X";
        return c == 'p' || c == 'P' || (!isHex && (c == 'e' || c == 'E'));
    }

    std::size_t PascalNumberEnd() const {
        std::size_t pos = NameEnd(pos_);
        if (At(pos) == '.' && IsDigit(At(pos + 1))) pos = NameEnd(pos + 1);
        const bool isSign = At(pos) == '+' || At(pos) == '-';
        if (isSign && (text_[pos - 1] == 'e' || text_[pos - 1] == 'E') && IsDigit(At(pos + 1)))
            pos = NameEnd(pos + 1);
        return pos;
    }

    void AddQuotes() {
        const bool isLiteral = text_[pos_] == source_.Language().Delimiter();
        if (!isCpp_ && !isLiteral) return AddAssemblerText();
        const TQuoted quoted = isCpp_ ? ReadCppQuotes(text_, pos_) : ReadPascalQuotes(text_, pos_);
        const bool isCharacter = quoted.Closed && !isLiteral;
        const std::size_t end = quoted.End - (!quoted.Closed && text_[quoted.End - 1] == '\r' ? 1 : 0);
        Add(isCharacter ? TTokenKind::Character : TTokenKind::Stray, end);
    }

    void AddAssemblerText() {
        const std::size_t close = text_.find_first_of("\"\r\n", pos_ + 1);
        const bool closed = close != std::string_view::npos && text_[close] == '"';
        Add(closed ? TTokenKind::Character : TTokenKind::Symbol, closed ? close + 1 : pos_ + 1);
    }

    /// $FF, %101, &17 are numbers, &begin is a name.
    void AddPascalPrefixed() {
        const std::size_t end = NameEnd(pos_ + 1);
        if (end == pos_ + 1) return Add(TTokenKind::Symbol, end);
        const bool isName = text_[pos_] == '&' && IsNameStart(text_[pos_ + 1]);
        Add(isName ? TTokenKind::Name : TTokenKind::Number, end);
    }

    /// ^M, but not the sign in P^ or ^TType.
    bool IsControlCode() const {
        if (text_[pos_] != '^' || IsBlank(At(pos_ + 1)) || IsNameChar(At(pos_ + 2))) return false;
        if (tokens_.empty()) return false;
        const TToken& last = tokens_.back();
        const char end = text_[last.End - 1];
        const bool touches = last.End == pos_;
        if (last.Kind == TTokenKind::Literal || last.Kind == TTokenKind::Character) return touches;
        return end == '=' || end == '(' || end == ',' || end == '+' || end == '[';
    }

    std::size_t CodeEnd() const {
        if (text_[pos_] == '^') return pos_ + 2;
        const char base = At(pos_ + 1);
        return NameEnd(pos_ + (base == '$' || base == '%' || base == '&' ? 2 : 1));
    }

    void AddCppSymbol() {
        if (text_[pos_] == '#' && pos_ >= directiveEnd_ && OnlyCommentsInFront())
            directiveEnd_ = LogicalLineEnd(text_, pos_);
        AddSymbol(kCppPairs);
    }

    bool OnlyCommentsInFront() const {
        return codeEnd_ == 0 || text_.substr(codeEnd_, pos_ - codeEnd_).find('\n') != std::string_view::npos;
    }

    void AddSymbol(const std::array<TPair, 2>& pairs) {
        const TPair two = {text_[pos_], At(pos_ + 1)};
        const bool isPair = std::find(pairs.begin(), pairs.end(), two) != pairs.end();
        Add(TTokenKind::Symbol, pos_ + (isPair ? 2 : 1));
    }

    void Add(TTokenKind kind, std::size_t end, std::size_t index = 0) {
        const bool onDirectiveLine = pos_ < directiveEnd_;
        if (onDirectiveLine && end > directiveEnd_) directiveEnd_ = LogicalLineEnd(text_, end);
        tokens_.push_back({kind, onDirectiveLine, pos_, end, index});
        pos_ = end;
        if (kind != TTokenKind::Comment) codeEnd_ = end;
    }

    const TSourceText& source_;
    std::string_view text_;
    bool isCpp_;
    std::size_t pos_ = 0;
    std::size_t literal_ = 0;
    std::size_t comment_ = 0;
    std::size_t directiveEnd_ = 0;
    std::size_t codeEnd_ = 0;  ///< of the last token that is no comment
    std::vector<TToken> tokens_;
};

}  // namespace

std::vector<TToken> Tokenize(const TSourceText& source) {
    return TTokenizer(source).Run();
}

}  // namespace tml
