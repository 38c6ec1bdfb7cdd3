#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// A type as its first words name it.
struct TDeclaredType {
    std::string_view Name;    ///< without its unit; "" for one that has no name
    bool IsIndirect = false;  ///< "^Name", "Name *"
    bool IsArray = false;     ///< of the named type
};

/// A variable, field, property, parameter or result with its type.
struct TDeclaredName {
    std::string_view Name;
    TDeclaredType Type;
    std::string_view Owner;  ///< the class or record around it, else ""
    /// The routine in which it is known, byte offsets; the whole text for all others.
    std::size_t Begin = 0;
    std::size_t End = std::string_view::npos;
};

/// A routine's head.
struct TDeclaredRoutine {
    std::string_view Name;
    std::string_view Owner;  ///< the class of a method, else ""
    std::vector<TDeclaredType> Parameters;
};

/// "type Name = Type" and "typedef Type Name".
struct TDeclaredAlias {
    std::string_view Name;
    TDeclaredType Type;
};

struct TDeclarationLists {
    std::vector<TDeclaredName> Names;
    std::vector<TDeclaredRoutine> Routines;
    std::vector<TDeclaredAlias> Aliases;
};

/// The name by which a routine's result is found among the names.
inline constexpr std::string_view kResultName = "Result";

/// What texts say themselves of the types of their names, no other unit being read: what they do not tell is
/// not known. The texts must outlive the object.
class TDeclarations {
  public:
    /// header: of a C++ unit, may be null; of its routines only the heads count.
    TDeclarations(const TSourceText& source, const TSourceText* header);

    /// The types that a name without a qualifier may have at a place: of the routine around it, else of the
    /// routine's class, else of the unit.
    std::vector<TDeclaredType> TypesOf(std::string_view name, std::size_t offset,
                                       std::string_view className) const;
    std::vector<TDeclaredType> TypesOfMember(std::string_view className, std::string_view member) const;
    /// The types of a parameter (0-based) in the routines of that name that have so many.
    std::vector<TDeclaredType> TypesOfParameter(std::string_view owner, std::string_view routine,
                                                std::size_t parameter) const;
    bool HasRoutine(std::string_view owner, std::string_view routine) const;
    /// The type that an alias stands for, else the type itself.
    TDeclaredType Resolve(TDeclaredType type) const;

  private:
    template <typename T>
    using TByName = std::map<std::string, std::vector<T>, std::less<>>;

    std::string KeyOf(std::string_view name) const;
    void Take(const TDeclarationLists& lists, bool withRoutines);
    template <typename T>
    const std::vector<T>& At(const TByName<T>& lists, std::string_view name) const;

    bool isCpp_;
    TByName<TDeclaredName> names_;
    TByName<TDeclaredRoutine> routines_;
    TByName<TDeclaredAlias> aliases_;
};

}  // namespace tml
