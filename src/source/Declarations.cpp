#include "source/Declarations.h"

#include "base/Utf8.h"
#include "source/Cppdeclarations.h"
#include "source/Pascaldeclarations.h"

namespace tml {
namespace {

/// Longer chains of aliases than people write are circles.
constexpr int kMostAliases = 8;

}  // namespace

TDeclarations::TDeclarations(const TSourceText& source, const TSourceText* header)
    : isCpp_(source.Language().IsCPPSource) {
    Take(isCpp_ ? ReadCppDeclarations(source) : ReadPascalDeclarations(source), true);
    if (header != nullptr) Take(ReadCppDeclarations(*header), false);
}

std::string TDeclarations::KeyOf(std::string_view name) const {
    return isCpp_ ? std::string(name) : UpperCase(name);
}

void TDeclarations::Take(const TDeclarationLists& lists, bool withRoutines) {
    for (const TDeclaredName& name : lists.Names)
        if (withRoutines || name.End == std::string_view::npos) names_[KeyOf(name.Name)].push_back(name);
    for (const TDeclaredRoutine& routine : lists.Routines)
        routines_[KeyOf(routine.Name)].push_back(routine);
    for (const TDeclaredAlias& alias : lists.Aliases)
        aliases_[KeyOf(alias.Name)].push_back(alias);
}

template <typename T>
const std::vector<T>& TDeclarations::At(const TByName<T>& lists, std::string_view name) const {
    static const std::vector<T> kEmpty;
    const auto found = lists.find(KeyOf(name));
    return found == lists.end() ? kEmpty : found->second;
}

std::vector<TDeclaredType> TDeclarations::TypesOf(std::string_view name, std::size_t offset,
                                                  std::string_view className) const {
    std::vector<TDeclaredType> types;
    std::size_t innermost = 0;
    for (const TDeclaredName& known : At(names_, name)) {
        const bool isLocal = known.End != std::string_view::npos;
        if (!isLocal || offset < known.Begin || offset >= known.End || known.Begin < innermost) continue;
        if (known.Begin > innermost) types.clear();
        innermost = known.Begin;
        types.push_back(known.Type);
    }
    if (types.empty() && !className.empty()) types = TypesOfMember(className, name);
    if (types.empty()) types = TypesOfMember({}, name);
    return types;
}

std::vector<TDeclaredType> TDeclarations::TypesOfMember(std::string_view className,
                                                        std::string_view member) const {
    std::vector<TDeclaredType> types;
    for (const TDeclaredName& known : At(names_, member))
        if (known.End == std::string_view::npos && KeyOf(known.Owner) == KeyOf(className))
            types.push_back(known.Type);
    return types;
}

std::vector<TDeclaredType> TDeclarations::TypesOfParameter(std::string_view owner, std::string_view routine,
                                                           std::size_t parameter) const {
    std::vector<TDeclaredType> types;
    for (const TDeclaredRoutine& known : At(routines_, routine))
        if (KeyOf(known.Owner) == KeyOf(owner) && parameter < known.Parameters.size())
            types.push_back(known.Parameters[parameter]);
    return types;
}

bool TDeclarations::HasRoutine(std::string_view owner, std::string_view routine) const {
    for (const TDeclaredRoutine& known : At(routines_, routine))
        if (KeyOf(known.Owner) == KeyOf(owner)) return true;
    return false;
}

TDeclaredType TDeclarations::Resolve(TDeclaredType type) const {
    for (int i = 0; i < kMostAliases; ++i) {
        const auto& aliases = At(aliases_, type.Name);
        if (aliases.empty()) break;
        type = {aliases.back().Type.Name, type.IsIndirect || aliases.back().Type.IsIndirect,
                type.IsArray || aliases.back().Type.IsArray};
    }
    return type;
}

}  // namespace tml
