#include "scan/Characterpointers.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "base/Utf8.h"
#include "scan/Pointernames.h"
#include "source/Declarations.h"

namespace tml {
namespace {

/// How far a target is looked for: farther than people write, and not far enough to cost.
constexpr std::size_t kFarTarget = 32;

class TPointerFinder {
  public:
    TPointerFinder(const TSourceText& source, const TSourceText* header)
        : source_(source),
          isCpp_(source.Language().IsCPPSource),
          tokens_(source.CodeTokens()),
          regions_(source.Outline()),
          declarations_(source, header),
          wanted_(source.Literals().size(), false) {}

    std::vector<bool> Run() {
        Walk([this] { TakeProof(); });
        Walk([this] {
            if (tokens_[at_].Kind == TTokenKind::Literal) wanted_[tokens_[at_].Index] = IsWanted();
        });
        return std::move(wanted_);
    }

  private:
    using TTypes = std::vector<TDeclaredType>;

    struct TParen {
        std::size_t Open;
        std::size_t Argument = 0;  ///< of the current token, 0-based
    };

    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }
    bool IsName(std::size_t index) const {
        return index < tokens_.size() && tokens_[index].Kind == TTokenKind::Name;
    }

    template <typename OnToken>
    void Walk(OnToken onToken) {
        TRegionFinder finder(regions_);
        parens_.clear();
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            region_ = finder.At(tokens_[at_].Begin);
            if (!tokens_[at_].OnDirectiveLine) FollowParens();
            onToken();
        }
    }

    void FollowParens() {
        const std::string_view text = TextAt(at_);
        if (tokens_[at_].Kind != TTokenKind::Symbol || text.size() != 1) return;
        if (text == "(" || text == "[" || text == "{") parens_.push_back({at_});
        if ((text == ")" || text == "]" || text == "}") && !parens_.empty()) parens_.pop_back();
        if (text == "," && !parens_.empty()) ++parens_.back().Argument;
        if (text == ";")
            while (!parens_.empty() && TextAt(parens_.back().Open) != "{")
                parens_.pop_back();
    }

    /// A literal beside another operand than a character code is a part of a string.
    bool IsWanted() const {
        std::size_t first = at_;
        while (first > 0 && IsPart(first - 1))
            --first;
        std::size_t behind = at_ + 1;
        while (IsPart(behind))
            ++behind;
        if (isCpp_) first = FirstOfChoice(first);
        if (first == 0) return false;
        const std::string_view before = TextAt(first - 1);
        if (IsAssignment(first - 1)) return IsPointer(TypesOfTarget(first - 1));
        if (isCpp_ && before == "return") return IsPointer(TypesOf(kResultName));
        if (isCpp_ && before == ")") return TextAt(first - 2) == "*";
        const bool isArgument = !parens_.empty() && TextAt(parens_.back().Open) == "(" &&
                                (before == "(" || before == ",") &&
                                (TextAt(behind) == ")" || TextAt(behind) == ",");
        return isArgument && IsPointerArgument();
    }

    bool IsAssignment(std::size_t index) const {
        if (!isCpp_) return TextAt(index) == ":=";
        return TextAt(index) == "=" && TextAt(index + 1) != "=" && index > 0 &&
               std::string_view("=!<>+-*/%&|^").find(TextAt(index - 1)) == std::string_view::npos;
    }

    bool IsPart(std::size_t index) const {
        if (index >= tokens_.size()) return false;
        const TTokenKind kind = tokens_[index].Kind;
        return kind == TTokenKind::Literal || kind == TTokenKind::Character ||
               (!isCpp_ && TextAt(index) == "+");
    }

    /// Of "c ? "a" : "b"" the first token.
    std::size_t FirstOfChoice(std::size_t first) const {
        if (first == 0 || (TextAt(first - 1) != "?" && TextAt(first - 1) != ":")) return first;
        int depth = 0;
        for (std::size_t index = first; index > 0 && index + kFarTarget > first; --index) {
            const std::string_view text = TextAt(index - 1);
            if (text == ")" || text == "]") ++depth;
            const bool ends = IsAssignment(index - 1) || text == "," || text == "return";
            if (depth == 0 && (ends || text == "(")) return index;
            if (text == "(" || text == "[") --depth;
            if (text == ";" || text == "{" || text == "}") break;
        }
        return first;
    }

    // ---- Types -------------------------------------------------------------------------------------

    /// The class whose method the place is in.
    std::string_view ClassAround() const {
        for (std::size_t index = region_; index != kNoRegion; index = regions_[index].Parent)
            if (regions_[index].Kind == TRegionKind::Routine && !regions_[index].Owner.empty())
                return regions_[index].Owner;
        return {};
    }

    TTypes TypesOf(std::string_view name) const {
        return declarations_.TypesOf(name, tokens_[at_].Begin, ClassAround());
    }

    std::string KeyOf(std::string_view name) const { return isCpp_ ? std::string(name) : UpperCase(name); }

    bool IsSelf(std::string_view name) const { return isCpp_ ? name == "this" : SameText(name, "Self"); }

    /// The class of what a qualifier names; "" where it is not known.
    std::string_view ClassOf(std::string_view qualifier) const {
        if (IsSelf(qualifier)) return ClassAround();
        const TTypes types = TypesOf(qualifier);
        if (types.empty()) return {};
        const TDeclaredType type = declarations_.Resolve(types.front());
        return type.IsArray ? std::string_view() : type.Name;
    }

    bool IsPointer(const TTypes& types) const {
        return !types.empty() && std::all_of(types.begin(), types.end(), [&](const TDeclaredType& type) {
            const TDeclaredType known = declarations_.Resolve(type);
            if (known.IsArray) return false;
            return known.IsIndirect ? IsCharacterType(known.Name, isCpp_) : IsPointerType(known.Name, isCpp_);
        });
    }

    // ---- Targets -----------------------------------------------------------------------------------

    /// Where a qualifier in front of a name ends, its point behind it; 0 where there is none.
    std::size_t PointBefore(std::size_t name) const {
        const std::string_view sign = name > 0 ? TextAt(name - 1) : std::string_view();
        return sign == "." || sign == "->" ? name - 1 : 0;
    }

    /// The name in front of a point; "" for an expression.
    std::string_view QualifierBefore(std::size_t point) const {
        const std::size_t name = point > 0 && TextAt(point - 1) == "^" ? point - 1 : point;
        const bool isPlain = name > 0 && IsName(name - 1) && PointBefore(name - 1) == 0;
        return isPlain ? TextAt(name - 1) : std::string_view();
    }

    /// What stands in front of an assignment's sign.
    TTypes TypesOfTarget(std::size_t sign) const {
        const bool isElement = sign > 0 && TextAt(sign - 1) == "]";
        const std::size_t end = isElement ? OpenOf(sign - 1) : sign;
        if (end == 0 || !IsName(end - 1)) return {};
        const std::string_view name = TextAt(end - 1);
        TTypes types = TypesOfPlace(end - 1);
        if (types.empty() && !isElement && IsPointerField(name)) return {{.Name = "PChar"}};
        if (isElement)
            for (TDeclaredType& type : types)
                type = ElementOf(declarations_.Resolve(type));
        return types;
    }

    /// The bracket that a closing one belongs to; 0 where it is too far away.
    std::size_t OpenOf(std::size_t close) const {
        for (std::size_t index = close; index > 0 && index + kFarTarget > close; --index)
            if (TextAt(index) == "[") return index;
        return 0;
    }

    static TDeclaredType ElementOf(TDeclaredType type) {
        if (!type.IsArray) return {};
        type.IsArray = false;
        return type;
    }

    TTypes TypesOfPlace(std::size_t name) const {
        const std::size_t point = PointBefore(name);
        if (point == 0) return TypesOf(TextAt(name));
        const std::string_view owner = ClassOf(QualifierBefore(point));
        return owner.empty() ? TTypes() : declarations_.TypesOfMember(owner, TextAt(name));
    }

    // ---- Arguments ---------------------------------------------------------------------------------

    bool IsPointerArgument() const {
        const TParen& paren = parens_.back();
        if (paren.Open == 0 || !IsName(paren.Open - 1)) return false;
        const std::size_t name = paren.Open - 1;
        const std::string_view routine = TextAt(name);
        const std::size_t point = PointBefore(name);
        const std::string_view qualifier = point == 0 ? ScopeBefore(name) : QualifierBefore(point);
        if (point != 0 && qualifier.empty()) return false;
        if (!isCpp_ && point == 0 && SameText(routine, "Exit")) return IsPointer(TypesOf(kResultName));
        if (isCpp_ && point == 0 && (IsPointerType(routine, true) || IsPointer(TypesOf(routine))))
            return true;
        std::string_view owner = point == 0 ? qualifier : ClassOf(qualifier);
        if (qualifier.empty()) owner = ClassAround();
        if (!owner.empty() && declarations_.HasRoutine(owner, routine))
            return IsPointer(declarations_.TypesOfParameter(owner, routine, paren.Argument));
        if (qualifier.empty() && declarations_.HasRoutine({}, routine))
            return IsPointer(declarations_.TypesOfParameter({}, routine, paren.Argument));
        if (point == 0 && proven_.contains(KeyOf(routine))) return true;
        const TPointerRoutine* known = FindPointerRoutine(qualifier, routine, isCpp_);
        return known != nullptr && !UsesUnit(known->NotWith);
    }

    /// A string is made a character pointer, "PChar(Text)" or "Text.c_str()", where a routine wants one:
    /// such a routine has no parameters that are strings.
    void TakeProof() {
        const std::size_t end = isCpp_ ? EndOfCStr() : EndOfCast();
        if (end == at_ || (TextAt(end) != ")" && TextAt(end) != ",")) return;
        const bool isWhole = at_ > 0 && (TextAt(at_ - 1) == "(" || TextAt(at_ - 1) == ",");
        if (!isWhole || parens_.empty()) return;
        const TParen& paren = parens_.back();
        const bool isCall = paren.Open > 0 && IsName(paren.Open - 1) && PointBefore(paren.Open - 1) == 0;
        if (isCall) proven_.insert(KeyOf(TextAt(paren.Open - 1)));
    }

    /// Behind "PChar(Text)" at the current token; the token itself where there is none. What is known to be
    /// no string may be made a character pointer to become one.
    std::size_t EndOfCast() const {
        const bool isCast = IsPointerType(TextAt(at_), false) && TextAt(at_ + 1) == "(" && IsName(at_ + 2) &&
                            TextAt(at_ + 3) == ")";
        if (!isCast || SameText(TextAt(at_), "Pointer")) return at_;
        const TTypes types = TypesOf(TextAt(at_ + 2));
        const bool isString = std::all_of(types.begin(), types.end(), [&](const TDeclaredType& type) {
            return IsStringType(declarations_.Resolve(type).Name);
        });
        return isString ? at_ + 4 : at_;
    }

    std::size_t EndOfCStr() const {
        const bool isCStr =
            IsName(at_) && TextAt(at_ + 1) == "." && TextAt(at_ + 2) == "c_str" && TextAt(at_ + 4) == ")";
        return isCStr ? at_ + 5 : at_;
    }

    bool UsesUnit(std::string_view unit) const {
        if (unit.empty()) return false;
        TRegionFinder finder(regions_);
        return std::any_of(tokens_.begin(), tokens_.end(), [&](const TToken& token) {
            const std::size_t region = finder.At(token.Begin);
            return region != kNoRegion && regions_[region].Kind == TRegionKind::Uses &&
                   SameText(TextOf(source_, token), unit);
        });
    }

    /// The name space in front of a routine of C++.
    std::string_view ScopeBefore(std::size_t name) const {
        const bool isScoped = name > 1 && TextAt(name - 1) == "::" && IsName(name - 2);
        return isScoped ? TextAt(name - 2) : std::string_view();
    }

    const TSourceText& source_;
    bool isCpp_;
    const std::vector<TToken>& tokens_;
    const std::vector<TRegion>& regions_;
    TDeclarations declarations_;
    std::vector<bool> wanted_;
    std::set<std::string> proven_;  ///< routines whose texts are character pointers
    std::vector<TParen> parens_;
    std::size_t at_ = 0;
    std::size_t region_ = kNoRegion;
};

}  // namespace

std::vector<bool> FindCharacterPointers(const TSourceText& source, const TSourceText* header) {
    return TPointerFinder(source, header).Run();
}

}  // namespace tml
