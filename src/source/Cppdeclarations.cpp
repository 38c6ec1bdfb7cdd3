// A name declares something where another name, or the star behind one, stands in front of it.
#include "source/Cppdeclarations.h"

#include <algorithm>
#include <array>

#include "source/Cppwords.h"

namespace tml {
namespace {

using Kind = TRegionKind;

/// Words that may stand between a type and the name, or in front of the type.
constexpr std::array<std::string_view, 9> kQualifiers = {
    "const", "volatile", "__fastcall", "__stdcall", "__cdecl", "WINAPI", "CALLBACK", "struct", "class"};

bool IsQualifier(std::string_view word) {
    return std::find(kQualifiers.begin(), kQualifiers.end(), word) != kQualifiers.end();
}

class TCppDeclarationReader {
  public:
    explicit TCppDeclarationReader(const TSourceText& source)
        : source_(source), tokens_(source.CodeTokens()), regions_(source.Outline()) {}

    TDeclarationLists Run() {
        TRegionFinder finder(regions_);
        for (at_ = 0; at_ + 1 < tokens_.size(); ++at_) {
            region_ = finder.At(tokens_[at_].Begin);
            if (tokens_[at_].OnDirectiveLine || !IsName(at_)) continue;
            if (OpensParameters(at_ + 1))
                ReadRoutine();
            else if (TextAt(at_) == "using" && TextAt(at_ + 2) == "=")
                lists_.Aliases.push_back({TextAt(at_ + 1), TypeAt(at_ + 3)});
            else if (EndsName(TextAt(at_ + 1)))
                ReadName();
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

    static bool EndsName(std::string_view sign) {
        return sign.size() == 1 && std::string_view("=;,)([{").find(sign) != std::string_view::npos;
    }

    /// The type whose last word stands in front of a place; its Name is "" where there is none.
    TDeclaredType TypeBefore(std::size_t index) const {
        const auto pass = [&] {
            while (index > 0 && IsQualifier(TextAt(index - 1)))
                --index;
        };
        TDeclaredType type;
        pass();
        if (index > 0 && TextAt(index - 1) == "*") {
            type.IsIndirect = true;
            --index;
            pass();
        } else if (index > 0 && TextAt(index - 1) == "&") {
            --index;
            pass();
        }
        if (index > 0 && IsName(index - 1) && !IsWordBeforeValue(TextAt(index - 1)))
            type.Name = TextAt(index - 1);
        return type;
    }

    /// The type that begins at a place.
    TDeclaredType TypeAt(std::size_t index) const {
        while (IsQualifier(TextAt(index)))
            ++index;
        while (TextAt(index + 1) == "::")
            index += 2;
        TDeclaredType type;
        if (IsName(index)) type.Name = TextAt(index++);
        while (IsQualifier(TextAt(index)))
            ++index;
        type.IsIndirect = TextAt(index) == "*";
        if (type.IsIndirect && TextAt(index + 1) == "*") type.Name = {};
        return type;
    }

    void ReadName() {
        TDeclaredType type = TypeBefore(at_);
        if (type.Name.empty() || type.Name == "typedef") return;
        type.IsArray = TextAt(at_ + 1) == "[";
        if (IsTypedef())
            lists_.Aliases.push_back({TextAt(at_), type});
        else
            Add(TextAt(at_), type, region_);
    }

    bool IsTypedef() const {
        for (std::size_t index = at_; index > 0; --index) {
            const std::string_view text = TextAt(index - 1);
            if (text == "typedef") return true;
            if (text == ";" || text == "{" || text == "}" || text == "(") return false;
        }
        return false;
    }

    /// What is declared in a region is known in the routine around it, or with the class around it.
    void Add(std::string_view name, const TDeclaredType& type, std::size_t region) {
        TDeclaredName known{name, type, {}};
        for (std::size_t index = region; index != kNoRegion; index = regions_[index].Parent) {
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
        lists_.Names.push_back(known);
    }

    // ---- Routines ----------------------------------------------------------------------------------

    bool OpensParameters(std::size_t index) const {
        if (TextAt(index) != "(") return false;
        const std::size_t parameters = RegionAt(tokens_[index].Begin);
        return parameters != kNoRegion && regions_[parameters].Kind == Kind::Parameters;
    }

    /// The region that begins at an offset.
    std::size_t RegionAt(std::size_t begin) const {
        const auto found =
            std::lower_bound(regions_.begin(), regions_.end(), begin,
                             [](const TRegion& region, std::size_t at) { return region.Begin < at; });
        const bool isThere = found != regions_.end() && found->Begin == begin;
        return isThere ? static_cast<std::size_t>(found - regions_.begin()) : kNoRegion;
    }

    /// With the routine's name at the current token, its parameters behind it.
    void ReadRoutine() {
        TDeclaredRoutine routine{TextAt(at_), {}, {}};
        std::size_t first = at_;
        if (at_ >= 2 && TextAt(at_ - 1) == "::") {
            routine.Owner = TextAt(at_ - 2);
            first = at_ - 2;
        } else if (region_ != kNoRegion && regions_[region_].Kind == Kind::Class) {
            routine.Owner = regions_[region_].Name;
        }
        const std::size_t parameters = RegionAt(tokens_[at_ + 1].Begin);
        const std::size_t body = BodyBehind(parameters);
        if (const TDeclaredType result = TypeBefore(first); body != kNoRegion && !result.Name.empty())
            Add(kResultName, result, body);
        at_ += 2;
        while (at_ < tokens_.size() && tokens_[at_].End < regions_[parameters].End)
            ReadParameter(routine, regions_[parameters].End, body);
        lists_.Routines.push_back(std::move(routine));
    }

    /// The routine that follows its parameters; kNoRegion for a declaration.
    std::size_t BodyBehind(std::size_t parameters) const {
        std::size_t next = parameters + 1;
        while (next < regions_.size() && regions_[next].Begin < regions_[parameters].End)
            ++next;
        const bool isBody = next < regions_.size() && regions_[next].Kind == Kind::Routine &&
                            regions_[next].Parent == regions_[parameters].Parent;
        return isBody ? next : kNoRegion;
    }

    /// Up to the comma behind it. The name is the last one in front of the default.
    void ReadParameter(TDeclaredRoutine& routine, std::size_t end, std::size_t body) {
        const TDeclaredType type = TypeAt(at_);
        std::string_view name;
        bool inDefault = false;
        int depth = 0;
        for (; at_ < tokens_.size() && tokens_[at_].End < end; ++at_) {
            const std::string_view text = TextAt(at_);
            if (text == "," && depth == 0) break;
            if (text == "(" || text == "<" || text == "{") ++depth;
            if (text == ")" || text == ">" || text == "}") --depth;
            inDefault = inDefault || text == "=";
            if (IsName(at_) && depth == 0 && !inDefault) name = text;
        }
        routine.Parameters.push_back(type);
        if (name.data() != type.Name.data() && body != kNoRegion) Add(name, type, body);
        ++at_;
    }

    const TSourceText& source_;
    const std::vector<TToken>& tokens_;
    const std::vector<TRegion>& regions_;
    std::size_t at_ = 0;
    std::size_t region_ = kNoRegion;
    TDeclarationLists lists_;
};

}  // namespace

TDeclarationLists ReadCppDeclarations(const TSourceText& source) {
    return TCppDeclarationReader(source).Run();
}

}  // namespace tml
