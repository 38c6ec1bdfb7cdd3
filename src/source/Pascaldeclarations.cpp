// Each colon between a name and a type declares something; the region around it tells what.
#include "source/Pascaldeclarations.h"

#include "base/Utf8.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

using Kind = TRegionKind;

class TPascalDeclarationReader {
  public:
    explicit TPascalDeclarationReader(const TSourceText& source)
        : source_(source), tokens_(source.CodeTokens()), regions_(source.Outline()) {}

    TDeclarationLists Run() {
        TRegionFinder finder(regions_);
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            region_ = finder.At(tokens_[at_].Begin);
            if (region_ == kNoRegion) continue;
            const bool isFirst = tokens_[at_].Begin == regions_[region_].Begin;
            const std::string_view text = TextAt(at_);
            const Kind kind = regions_[region_].Kind;
            if (kind == Kind::Head && isFirst)
                BeginRoutine();
            else if (kind == Kind::Parameters && isFirst)
                ReadParameters();
            else if (kind == Kind::Property && isFirst)
                ReadProperty();
            else if (text == ":" && kind == Kind::Head)
                ReadResult();
            else if (text == ":" && (kind == Kind::Var || kind == Kind::Class))
                ReadNames(TypeAt(at_ + 1));
            else if (text == "=" && kind == Kind::Type)
                ReadAlias();
        }
        return std::move(lists_);
    }

  private:
    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }
    bool IsName(std::size_t index) const {
        return index < tokens_.size() && tokens_[index].Kind == TTokenKind::Name;
    }

    TDeclaredType TypeAt(std::size_t index) const {
        TDeclaredType type;
        while (SameText(TextAt(index), "array") || SameText(TextAt(index), "packed")) {
            type.IsArray = true;
            while (index < tokens_.size() && !SameText(TextAt(index), "of") && TextAt(index) != ";")
                ++index;
            ++index;
        }
        if (SameText(TextAt(index), "type")) ++index;
        type.IsIndirect = TextAt(index) == "^";
        if (type.IsIndirect) ++index;
        while (TextAt(index + 1) == "." && IsName(index + 2))
            index += 2;
        if (IsName(index)) type.Name = TextAt(index);
        return type;
    }

    /// Where what is declared in the region is known: in the routine around it, or with the class around it.
    TDeclaredName Known(std::string_view name, const TDeclaredType& type) const {
        TDeclaredName known{name, type, {}};
        for (std::size_t index = region_; index != kNoRegion; index = regions_[index].Parent) {
            const TRegion& around = regions_[index];
            if (around.Kind == Kind::Class) {
                known.Owner = around.Name;
                break;
            }
            if (around.Kind != Kind::Routine) continue;
            known.Begin = around.Begin;
            known.End = around.End;
            break;
        }
        return known;
    }

    /// "A, B: Type" with the colon at the current token.
    void ReadNames(const TDeclaredType& type) {
        // The fields of a record without a name belong to a variable.
        if (regions_[region_].Kind == Kind::Class && regions_[region_].Name.empty()) return;
        for (std::size_t index = at_; index > 0 && IsName(index - 1); index -= 2) {
            lists_.Names.push_back(Known(TextAt(index - 1), type));
            if (index < 2 || TextAt(index - 2) != ",") break;
        }
    }

    void ReadProperty() {
        std::size_t index = at_ + 2;
        if (TextAt(index) == "[")
            while (index < tokens_.size() && TextAt(index) != "]")
                ++index;
        const bool isArray = TextAt(index) == "]";
        if (isArray) ++index;
        if (TextAt(index) != ":") return;  // the type is an ancestor's
        TDeclaredType type = TypeAt(index + 1);
        type.IsArray = type.IsArray || isArray;
        lists_.Names.push_back(Known(TextAt(at_ + 1), type));
    }

    void ReadAlias() {
        const TDeclaredType type = TypeAt(at_ + 1);
        const bool isAlias = !type.Name.empty() && PascalWordOf(type.Name) == TPascalWord::None;
        if (isAlias && at_ > 0) lists_.Aliases.push_back({TextAt(at_ - 1), type});
    }

    // ---- Routines ----------------------------------------------------------------------------------

    void BeginRoutine() {
        TDeclaredRoutine& routine = lists_.Routines.emplace_back();
        const std::size_t parent = regions_[region_].Parent;
        const Kind around = parent == kNoRegion ? Kind::Implementation : regions_[parent].Kind;
        if (around == Kind::Routine) {
            routine.Name = regions_[parent].Name;
            routine.Owner = regions_[parent].Owner;
        } else if (IsName(at_ + 1)) {
            routine.Name = TextAt(at_ + 1);
            if (around == Kind::Class) routine.Owner = regions_[parent].Name;
        }
    }

    bool IsOfRoutine() const {
        const std::size_t parent = regions_[region_].Parent;
        const std::size_t routine =
            parent == kNoRegion || regions_[region_].Kind == Kind::Head ? parent : regions_[parent].Parent;
        return routine != kNoRegion && regions_[routine].Kind == Kind::Routine;
    }

    void ReadParameters() {
        const std::size_t end = regions_[region_].End;
        for (++at_; at_ < tokens_.size() && tokens_[at_].End < end; ++at_)
            ReadParameterGroup(end);
    }

    /// "const A, B: Type = Value" up to the semicolon; parameters without a type count too.
    void ReadParameterGroup(std::size_t end) {
        std::vector<std::string_view> names;
        for (; IsName(at_) || TextAt(at_) == ","; ++at_)
            if (TextAt(at_ + 1) == ":" || TextAt(at_ + 1) == "," || TextAt(at_ + 1) == ";" ||
                TextAt(at_ + 1) == ")")
                if (TextAt(at_) != ",") names.push_back(TextAt(at_));
        const TDeclaredType type = TextAt(at_) == ":" ? TypeAt(at_ + 1) : TDeclaredType();
        for (const std::string_view name : names) {
            if (!lists_.Routines.empty()) lists_.Routines.back().Parameters.push_back(type);
            if (IsOfRoutine()) lists_.Names.push_back(Known(name, type));
        }
        while (at_ < tokens_.size() && tokens_[at_].End < end && TextAt(at_) != ";")
            ++at_;
    }

    void ReadResult() {
        if (!IsOfRoutine()) return;
        const TDeclaredType type = TypeAt(at_ + 1);
        lists_.Names.push_back(Known(kResultName, type));
        lists_.Names.push_back(Known(regions_[regions_[region_].Parent].Name, type));
    }

    const TSourceText& source_;
    const std::vector<TToken>& tokens_;
    const std::vector<TRegion>& regions_;
    std::size_t at_ = 0;
    std::size_t region_ = kNoRegion;
    TDeclarationLists lists_;
};

}  // namespace

TDeclarationLists ReadPascalDeclarations(const TSourceText& source) {
    return TPascalDeclarationReader(source).Run();
}

}  // namespace tml
