// One walk over the tokens of a C++ text. What an opening brace opens is told from the tokens of its
// statement, those since the last semicolon or brace: a namespace, a class, a function or a block. The
// branches of conditional compilation are read one after the other.
#include "source/Cppoutline.h"

#include <algorithm>
#include <array>

#include "source/Cppwords.h"

namespace tml {
namespace {

using Kind = TRegionKind;

constexpr std::array<std::string_view, 3> kClassWords = {"class", "struct", "union"};
constexpr std::array<std::string_view, 3> kConstWords = {"const", "constexpr", "static"};

template <typename List>
bool IsIn(const List& list, std::string_view word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

class TCppReader {
  public:
    explicit TCppReader(const TSourceText& source) : source_(source), tokens_(source.CodeTokens()) {
        std::erase_if(tokens_, [](const TToken& token) { return token.OnDirectiveLine; });
    }

    std::vector<TRegion> Run() {
        for (; at_ < tokens_.size(); ++at_)
            Take(TextAt(at_));
        return stack_.Take(source_.Text().size());
    }

  private:
    enum class TScope : std::uint8_t { Namespace, Class, Function, Block, Values };

    struct TBrace {
        TScope Scope;
        std::size_t Depth;  ///< of the open regions in front of it
    };

    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }
    bool IsName(std::size_t index) const {
        return index < tokens_.size() && tokens_[index].Kind == TTokenKind::Name;
    }

    TScope Scope() const { return braces_.empty() ? TScope::Namespace : braces_.back().Scope; }
    bool IsDeclarative() const { return Scope() == TScope::Namespace || Scope() == TScope::Class; }

    void Take(std::string_view text) {
        if (text == "{") return OpenBrace();
        if (text == "}") return CloseBrace();
        if (text == "[" && TextAt(at_ + 1) == "[") return OpenAttribute();
        if (text == "]" && stack_.TopIs(Kind::Attribute) && TextAt(at_ + 1) == "]") return CloseAttribute();
        if (!IsDeclarative() || stack_.TopIs(Kind::Attribute)) return;
        if (text == ";") return StartStatement();
        if (text == ":" && IsVisibility(at_ - 1)) return StartStatement();
        if (text == ":" && IsMemberList()) return OpenMemberList();
        if (text == "(") return OpenParen();
        if (text == ")") return CloseParen();
        if (text == "=" && parens_ == 0 && !stack_.TopIs(Kind::Initialiser) && !stack_.TopIs(Kind::Const))
            stack_.Open(IsConst() ? Kind::Const : Kind::Initialiser, tokens_[at_].Begin);
    }

    bool IsVisibility(std::size_t index) const {
        static constexpr std::array<std::string_view, 4> kWords = {"public", "protected", "private",
                                                                   "__published"};
        return index == first_ && IsIn(kWords, TextAt(index));
    }

    /// The initialisers of a constructor's members are code of the constructor.
    bool IsMemberList() const {
        const bool isValue = stack_.TopIs(Kind::Initialiser) || stack_.TopIs(Kind::Const);
        return parens_ == 0 && !isValue && !inMemberList_ && HasCall();
    }
    void OpenMemberList() {
        OpenFunction();
        inMemberList_ = true;
    }

    void StartStatement() {
        first_ = at_ + 1;
        parens_ = 0;
        inMemberList_ = false;
        stack_.CloseTo(braces_.empty() ? 0 : regionsInside_, tokens_[at_].Begin);
    }

    bool IsConst() const {
        for (std::size_t index = first_; index < at_; ++index)
            if (IsIn(kConstWords, TextAt(index))) return true;
        return false;
    }

    void OpenParen() {
        if (parens_++ == 0 && !inMemberList_ && !stack_.TopIs(Kind::Initialiser) &&
            !stack_.TopIs(Kind::Const))
            stack_.Open(Kind::Parameters, tokens_[at_].Begin);
    }

    void CloseParen() {
        if (parens_ == 0) return;
        if (--parens_ == 0 && stack_.TopIs(Kind::Parameters)) stack_.Close(tokens_[at_].End);
    }

    void OpenAttribute() {
        stack_.Open(Kind::Attribute, tokens_[at_].Begin);
        ++at_;
    }
    void CloseAttribute() { stack_.Close(tokens_[++at_].End); }

    // ---- Braces ------------------------------------------------------------------------------------

    void OpenBrace() {
        const TScope scope = ScopeOfBrace();
        const bool isOpen = inMemberList_ && scope == TScope::Function;
        braces_.push_back({scope, stack_.Depth() - (isOpen ? 1 : 0)});
        if (scope == TScope::Class && LocalClass() < at_) first_ = LocalClass();
        if (scope == TScope::Values) stack_.Open(Kind::Braces, tokens_[at_].Begin);
        if (scope == TScope::Function && !isOpen) OpenFunction();
        if (scope == TScope::Class) OpenClass();
        regionsInside_ = stack_.Depth();
        first_ = at_ + 1;
        parens_ = 0;
        if (scope != TScope::Values) inMemberList_ = false;
    }

    void CloseBrace() {
        if (braces_.empty()) return;
        const TBrace brace = braces_.back();
        braces_.pop_back();
        stack_.CloseTo(brace.Depth, tokens_[at_].End);
        regionsInside_ = braces_.empty() ? 0 : braces_.back().Depth + RegionsOf(braces_.back().Scope);
        parens_ = 0;
        // Behind a class or a list of values its statement goes on up to the semicolon.
        if (brace.Scope != TScope::Values) first_ = at_ + 1;
    }

    static std::size_t RegionsOf(TScope scope) {
        return scope == TScope::Values || scope == TScope::Function || scope == TScope::Class ? 1 : 0;
    }

    TScope ScopeOfBrace() const {
        const std::string_view before = at_ > first_ ? TextAt(at_ - 1) : std::string_view();
        if (before == "=" || before == "," || before == "(" || before == "return") return TScope::Values;
        if (Scope() == TScope::Values) return TScope::Values;
        if (inMemberList_) return IsName(at_ - 1) || before == ">" ? TScope::Values : TScope::Function;
        if (!IsDeclarative() && LocalClass() < at_) return TScope::Class;
        if (!IsDeclarative()) return before == "]" && !EndsCaptures() ? TScope::Values : TScope::Block;
        const bool isLinkage = at_ > first_ && tokens_[at_ - 1].Kind == TTokenKind::Literal;
        if (isLinkage || HasWord("namespace")) return TScope::Namespace;
        if (HasWord("enum")) return TScope::Values;
        if (HasCall()) return TScope::Function;
        const bool isClass = std::any_of(kClassWords.begin(), kClassWords.end(),
                                         [&](std::string_view word) { return HasWord(word); });
        if (isClass) return TScope::Class;
        return at_ == first_ ? TScope::Block : TScope::Values;
    }

    /// True when the bracket in front of the brace closes the captures of a lambda.
    bool EndsCaptures() const {
        std::size_t open = at_ - 1;
        while (open > first_ && TextAt(open) != "[")
            --open;
        return OpensCaptures(source_, tokens_, open);
    }

    /// Where the statement that declares a class with this brace begins; at_ when it declares none.
    std::size_t LocalClass() const {
        bool isClass = false;
        std::size_t index = at_;
        for (; index > 0; --index) {
            const std::string_view text = TextAt(index - 1);
            if (text == ";" || text == "{" || text == "}") break;
            if (text == "(" || text == ")" || text == "=") return at_;
            isClass = isClass || IsIn(kClassWords, text);
        }
        return isClass ? index : at_;
    }

    bool HasWord(std::string_view word) const {
        for (std::size_t index = first_; index < at_; ++index)
            if (TextAt(index) == word) return true;
        return false;
    }

    /// A name with parentheses behind it: the statement declares a function. __declspec( ) does not count.
    bool HasCall() const { return NameBeforeParen() != at_; }

    std::size_t NameBeforeParen() const {
        int angles = 0;
        for (std::size_t index = first_; index + 1 < at_; ++index) {
            const std::string_view text = TextAt(index);
            if (text == "<") ++angles;
            if (text == ">" && angles > 0) --angles;
            const bool isCall = IsName(index) && TextAt(index + 1) == "(";
            if (!isCall || angles > 0) continue;
            if (!text.starts_with("__") && text != "alignas" && text != "decltype") return index;
        }
        return at_;
    }

    void OpenFunction() {
        const std::size_t name = NameBeforeParen();
        TRegion* around = stack_.Top();
        const bool inClass = around != nullptr && around->Kind == Kind::Class;
        std::string_view owner = inClass ? around->Name : std::string_view();
        std::size_t before = name > first_ && TextAt(name - 1) == "~" ? name - 1 : name;
        if (before >= first_ + 2 && TextAt(before - 1) == "::") owner = OwnerBefore(before - 1);
        const std::size_t index = stack_.Open(Kind::Routine, tokens_[at_].Begin);
        stack_.At(index).Name = TextAt(name);
        stack_.At(index).Owner = owner;
    }

    /// The class in front of "::", template arguments aside.
    std::string_view OwnerBefore(std::size_t point) const {
        std::size_t index = point - 1;
        if (TextAt(index) == ">")
            while (index > first_ && TextAt(index) != "<")
                --index;
        if (TextAt(index) == "<" && index > first_) --index;
        return IsName(index) ? TextAt(index) : std::string_view();
    }

    void OpenClass() {
        const std::size_t index = stack_.Open(Kind::Class, tokens_[at_].Begin);
        stack_.At(index).Name = ClassName();
    }

    /// The last name in front of the bases or the brace.
    std::string_view ClassName() const {
        std::string_view name;
        for (std::size_t index = first_; index < at_; ++index) {
            const std::string_view text = TextAt(index);
            if (text == ":") break;
            if (IsName(index) && text != "final") name = text;
        }
        return name;
    }

    const TSourceText& source_;
    std::vector<TToken> tokens_;
    std::size_t at_ = 0;
    std::size_t first_ = 0;          ///< first token of the statement
    int parens_ = 0;                 ///< open ones of the statement
    bool inMemberList_ = false;      ///< between a constructor's head and its body
    std::size_t regionsInside_ = 0;  ///< depth of the regions just inside the innermost brace
    std::vector<TBrace> braces_;
    TRegionStack stack_;
};

}  // namespace

std::vector<TRegion> ReadCppOutline(const TSourceText& source) {
    return TCppReader(source).Run();
}

std::vector<std::string_view> ReadStaticMethods(const TSourceText& source, std::string_view className) {
    const std::vector<TToken>& tokens = source.CodeTokens();
    const std::vector<TRegion>& regions = source.Outline();
    TRegionFinder finder(regions);
    std::vector<std::string_view> names;
    bool isStatic = false;
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const std::size_t region = finder.At(tokens[i].Begin);
        const bool inClass =
            region != kNoRegion && regions[region].Kind == Kind::Class && regions[region].Name == className;
        const std::string_view text = TextOf(source, tokens[i]);
        if (!inClass || text == ";" || text == "}") isStatic = false;
        if (inClass && text == "static") isStatic = true;
        if (!isStatic || tokens[i].Kind != TTokenKind::Name || TextOf(source, tokens[i + 1]) != "(") continue;
        names.push_back(text);
        isStatic = false;
    }
    return names;
}

}  // namespace tml
