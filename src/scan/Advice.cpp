#include "scan/Advice.h"

#include <algorithm>
#include <array>

#include "base/Utf8.h"
#include "scan/Characterpointers.h"
#include "scan/Cppsurroundings.h"
#include "scan/Pointernames.h"
#include "source/Cppoutline.h"
#include "source/Literals.h"

namespace tml {
namespace {

struct TRegionAdvice {
    TRegionKind Kind;
    TAdvice Advice;
};

/// What a region says of the literals in it; the innermost region that says anything holds. A body says
/// that a call can stand, so nothing further out matters.
constexpr std::array<TRegionAdvice, 13> kRegionAdvices = {{
    {TRegionKind::Uses, TAdvice::UsesClause},
    {TRegionKind::Exports, TAdvice::External},
    {TRegionKind::Const, TAdvice::Const},
    {TRegionKind::ResourceString, TAdvice::ResourceString},
    {TRegionKind::Type, TAdvice::Declaration},
    {TRegionKind::Var, TAdvice::Initialiser},
    {TRegionKind::Attribute, TAdvice::Attribute},
    {TRegionKind::Property, TAdvice::Declaration},
    {TRegionKind::Head, TAdvice::External},
    {TRegionKind::Parameters, TAdvice::DefaultParameter},
    {TRegionKind::CaseLabel, TAdvice::CaseLabel},
    {TRegionKind::Assembler, TAdvice::Assembler},
    {TRegionKind::Initialiser, TAdvice::Initialiser},
}};

struct TCppCall {
    std::string_view Name;
    TAdvice Advice;
};

/// Names in front of parentheses that hold no code of the program.
constexpr std::array kCppCalls{
    TCppCall{"asm", TAdvice::Assembler},
    TCppCall{"__asm", TAdvice::Assembler},
    TCppCall{"__asm__", TAdvice::Assembler},
    TCppCall{"__attribute__", TAdvice::Attribute},
    TCppCall{"__declspec", TAdvice::Attribute},
    TCppCall{"_Pragma", TAdvice::Directive},
    TCppCall{"_D", TAdvice::Macro},
    TCppCall{"sizeof", TAdvice::Unevaluated},
    TCppCall{"decltype", TAdvice::Unevaluated},
    TCppCall{"noexcept", TAdvice::Unevaluated},
    TCppCall{"typeid", TAdvice::Unevaluated},
    TCppCall{"static_assert", TAdvice::Declaration},
    TCppCall{"_Static_assert", TAdvice::Declaration},
    TCppCall{"USEFORM", TAdvice::UsesClause},
    TCppCall{"USEFORMNS", TAdvice::UsesClause},
    TCppCall{"USEUNIT", TAdvice::UsesClause},
    TCppCall{"USEOBJ", TAdvice::UsesClause},
    TCppCall{"USELIB", TAdvice::UsesClause},
    TCppCall{"USERES", TAdvice::UsesClause},
    TCppCall{"USERC", TAdvice::UsesClause},
    TCppCall{"USEPACKAGE", TAdvice::UsesClause},
};

/// How far brackets and words are looked at: farther than people write, and not far enough to cost.
constexpr std::size_t kFarBrackets = 8;
constexpr std::size_t kFarTokens = 32;

/// Where advice comes from that a literal's neighbours give.
class TAdviser {
  public:
    TAdviser(const TSourceText& source, const TReach& reach)
        : source_(source),
          reach_(reach),
          tokens_(source.CodeTokens()),
          regions_(source.Outline()),
          finder_(regions_),
          isUnit_(std::any_of(regions_.begin(), regions_.end(),
                              [](const TRegion& part) { return part.Kind == TRegionKind::Interface; })),
          advice_(source.Literals().size(), TAdvice::None) {
        if (IsCpp()) surroundings_ = AdviseSurroundings(source);
        if (reach.Header != nullptr && !reach.Everywhere)
            staticMethods_ = ReadStaticMethods(*reach.Header, reach.FormClass);
    }

    std::vector<TAdvice> Run() {
        AdviseOutsideCode();
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            FollowBrackets();
            if (tokens_[at_].Kind == TTokenKind::Literal) advice_[tokens_[at_].Index] = Advise();
        }
        if (!reach_.GivesPointers) AdviseCharacterPointers();
        return std::move(advice_);
    }

  private:
    bool IsCpp() const { return source_.Language().IsCPPSource; }
    const TLiteral& Literal() const { return source_.Literals()[tokens_[at_].Index]; }
    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }
    std::string_view Before(std::size_t steps = 1) const {
        return at_ >= steps ? TextAt(at_ - steps) : std::string_view();
    }

    void AdviseOutsideCode() {
        for (std::size_t i = 0; i < advice_.size(); ++i) {
            const TLiteral& literal = source_.Literals()[i];
            if (literal.InComment) advice_[i] = TAdvice::Comment;
            if (literal.InDirective) advice_[i] = TAdvice::Directive;
        }
    }

    void AdviseCharacterPointers() {
        const std::vector<bool> wanted = FindCharacterPointers(source_, reach_.Header);
        for (std::size_t i = 0; i < advice_.size(); ++i)
            if (wanted[i] && advice_[i] == TAdvice::None) advice_[i] = TAdvice::CharacterPointer;
    }

    /// Keeps the opening brackets around the current token.
    void FollowBrackets() {
        const std::string_view text = TextAt(at_);
        if (tokens_[at_].Kind != TTokenKind::Symbol || text.size() != 1) return;
        const char sign = text.front();
        if (sign == '[' || sign == '(') brackets_.push_back(at_);
        if ((sign == ']' || sign == ')') && !brackets_.empty()) brackets_.pop_back();
        if (sign == ';' && !InParens()) brackets_.clear();
    }

    bool InParens() const { return !brackets_.empty() && TextAt(brackets_.back()) == "("; }

    TAdvice Advise() {
        const std::size_t region = finder_.At(tokens_[at_].Begin);
        if (Literal().InDirective) return DirectiveAdvice();
        const TAdvice near = IsCpp() ? CppNeighbours() : PascalNeighbours(region);
        if (near != TAdvice::None) return near;
        return RegionAdvice(region);
    }

    TAdvice DirectiveAdvice() const {
        const bool isInclude = tokens_[at_].OnDirectiveLine && at_ >= 2 && Before(2) == "#" &&
                               (Before() == "include" || Before() == "include_next" || Before() == "import");
        return isInclude ? TAdvice::Include : TAdvice::Directive;
    }

    // ---- Neighbours --------------------------------------------------------------------------------

    TAdvice PascalNeighbours(std::size_t region) const {
        if (Before() == ".." || TextAt(at_ + 1) == "..") return TAdvice::Range;
        const bool isAttribute = region != kNoRegion && regions_[region].Kind == TRegionKind::Attribute;
        if (isAttribute) return IsGuid() ? TAdvice::Guid : TAdvice::Attribute;
        return InSet() ? TAdvice::Set : TAdvice::None;
    }

    bool IsGuid() const {
        const std::string_view body = TextAt(at_);
        return Before() == "[" && body.starts_with("'{") && body.ends_with("}'");
    }

    /// In the brackets of a set: behind "in", or a single character where no index is meant.
    bool InSet() const {
        if (brackets_.empty() || TextAt(brackets_.back()) != "[") return false;
        const std::size_t open = brackets_.back();
        if (open == 0) return false;
        const bool isSingle = CountCodePoints(DecodeLiteral(source_, Literal())) == 1;
        // "for S in [...]" goes through an array unless the elements are characters.
        if (SameText(TextAt(open - 1), "in"))
            return isSingle || open < 3 || !SameText(TextAt(open - 3), "for");
        const TTokenKind before = tokens_[open - 1].Kind;
        const std::string_view text = TextAt(open - 1);
        const bool isIndex = before == TTokenKind::Name || text == ")" || text == "]" || text == "^";
        return !isIndex && isSingle;
    }

    TAdvice CppNeighbours() const {
        if (Before() == "extern") return TAdvice::LinkageName;
        const TAdvice around = surroundings_[tokens_[at_].Index];
        if (around == TAdvice::Macro) return around;
        if (const TAdvice brackets = CppBrackets(); brackets != TAdvice::None) return brackets;
        if (TextAt(at_ + 1) == "[") return TAdvice::Unevaluated;
        if (IsCharArray()) return TAdvice::ArrayInitialiser;
        if (IsCompileTime()) return TAdvice::Const;
        if (around == TAdvice::DefaultParameter) return around;
        if (around != TAdvice::None && !reach_.Everywhere) return around;
        return HoldsComment() ? TAdvice::InnerComment : TAdvice::None;
    }

    /// What the brackets around belong to: an assembler statement, an attribute and the like.
    TAdvice CppBrackets() const {
        for (std::size_t i = brackets_.size(); i > 0 && i + kFarBrackets > brackets_.size(); --i) {
            std::size_t name = brackets_[i - 1];
            while (name > 0 && IsAssemblerQualifier(TextAt(name - 1)))
                --name;
            const auto* known = std::find_if(kCppCalls.begin(), kCppCalls.end(), [&](const TCppCall& call) {
                return name > 0 && call.Name == TextAt(name - 1);
            });
            if (known != kCppCalls.end()) return known->Advice;
        }
        return TAdvice::None;
    }

    static bool IsAssemblerQualifier(std::string_view word) {
        return word == "volatile" || word == "__volatile__" || word == "goto" || word == "inline";
    }

    /// "char Name[20] =" in front: an array of characters, not an element of one.
    bool IsCharArray() const {
        if (Before() != "=" || Before(2) != "]") return false;
        std::size_t open = 3;
        while (open < kFarTokens && Before(open) != "[" && !Before(open).empty())
            ++open;
        return IsCharacterType(Before(open + 2), true);
    }

    /// The statement in front calls the value a constant of the compiler.
    bool IsCompileTime() const {
        for (std::size_t steps = 1; steps < kFarTokens; ++steps) {
            const std::string_view word = Before(steps);
            if (word == "constexpr" || word == "constinit") return true;
            if (word.empty() || word == ";" || word == "{" || word == "}" || word == ")") return false;
        }
        return false;
    }

    /// A comment within the span lies between the pieces.
    bool HoldsComment() const {
        const auto& comments = source_.Comments();
        const auto next = std::lower_bound(comments.begin(), comments.end(), Literal().Begin,
                                           [](const TComment& c, std::size_t at) { return c.Begin < at; });
        return next != comments.end() && next->Begin < Literal().End;
    }

    // ---- Regions -----------------------------------------------------------------------------------

    TAdvice RegionAdvice(std::size_t region) const {
        for (std::size_t index = region; index != kNoRegion; index = regions_[index].Parent) {
            const TRegion& around = regions_[index];
            if (around.Kind == TRegionKind::Braces) return TAdvice::ArrayInitialiser;
            if (around.Kind == TRegionKind::Body || around.Kind == TRegionKind::Initialization) break;
            if (around.Kind == TRegionKind::Routine && IsCpp()) break;
            const auto* known =
                std::find_if(kRegionAdvices.begin(), kRegionAdvices.end(),
                             [&](const TRegionAdvice& entry) { return entry.Kind == around.Kind; });
            if (known == kRegionAdvices.end()) continue;
            const bool isList =
                InParens() && (known->Advice == TAdvice::Initialiser || known->Advice == TAdvice::Const);
            return isList && !IsCpp() ? TAdvice::ArrayInitialiser : known->Advice;
        }
        return ReachAdvice(region);
    }

    /// The component is a member of the form's class; only the class's own methods (and routines nested
    /// in them) see it.
    TAdvice ReachAdvice(std::size_t region) const {
        if (reach_.Everywhere && BeginsOrEndsUnit(region)) return TAdvice::NoForm;
        if (reach_.Everywhere) return InCode(region) ? TAdvice::None : TAdvice::OutsideMethod;
        for (std::size_t index = region; index != kNoRegion; index = regions_[index].Parent) {
            const TRegion& around = regions_[index];
            // The members of a class inside a method have an object of their own.
            if (around.Kind == TRegionKind::Class) break;
            const bool isOwn =
                around.Kind == TRegionKind::Routine && HasObject(around) && IsFormClass(around.Owner);
            if (isOwn) return TAdvice::None;
        }
        return TAdvice::OutsideMethod;
    }

    bool HasObject(const TRegion& method) const {
        return !method.OfClass &&
               std::find(staticMethods_.begin(), staticMethods_.end(), method.Name) == staticMethods_.end();
    }

    bool IsFormClass(std::string_view name) const {
        return IsCpp() ? name == reach_.FormClass : SameText(name, reach_.FormClass);
    }

    /// A program's main block is another matter: it creates the forms.
    bool BeginsOrEndsUnit(std::size_t region) const {
        return isUnit_ && region != kNoRegion && regions_[region].Kind == TRegionKind::Initialization;
    }

    bool InCode(std::size_t region) const {
        for (std::size_t index = region; index != kNoRegion; index = regions_[index].Parent) {
            const TRegionKind kind = regions_[index].Kind;
            if (kind == TRegionKind::Body || kind == TRegionKind::Initialization) return true;
            if (kind == TRegionKind::Routine && IsCpp()) return true;
        }
        // A Pascal text without any structure is an include file or a fragment.
        return !IsCpp() && regions_.empty();
    }

    const TSourceText& source_;
    const TReach& reach_;
    const std::vector<TToken>& tokens_;
    const std::vector<TRegion>& regions_;
    TRegionFinder finder_;
    bool isUnit_;
    std::vector<TAdvice> surroundings_;  ///< of a C++ text
    std::vector<std::string_view> staticMethods_;
    std::vector<TAdvice> advice_;
    std::size_t at_ = 0;
    std::vector<std::size_t> brackets_;
};

}  // namespace

std::string_view AdviceWord(TAdvice advice) {
#define TML_ADVICE(name, word, text) word,
    static constexpr std::string_view kWords[] = {TML_ADVICES(TML_ADVICE)};
#undef TML_ADVICE
    return kWords[static_cast<std::size_t>(advice)];
}

std::string_view AdviceText(TAdvice advice) {
#define TML_ADVICE(name, word, text) text,
    static constexpr std::string_view kTexts[] = {TML_ADVICES(TML_ADVICE)};
#undef TML_ADVICE
    return kTexts[static_cast<std::size_t>(advice)];
}

std::vector<TAdvice> Advise(const TSourceText& source, const TReach& reach) {
    return TAdviser(source, reach).Run();
}

}  // namespace tml
