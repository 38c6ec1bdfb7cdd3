#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/Edits.h"
#include "source/Sourcetext.h"

namespace tml {

/// A Pascal unit's routines, and where new ones go. Byte offsets, 0-based.
class TUnitRoutines {
  public:
    /// EBadInput for a text without an implementation part.
    explicit TUnitRoutines(const TSourceText& source);

    /// A routine with a body written in Pascal.
    struct TRoutine {
        std::string_view Owner;  ///< the class of a method, else ""
        std::string_view Name;
        std::size_t Begin = 0;
        std::size_t BodyBegin = 0;  ///< behind its first word
        std::size_t BodyEnd = 0;    ///< in front of its last word
        bool IsPlain = false;       ///< a procedure, of an object if any, whose head shows no parameters
    };
    /// In the order of the text.
    const std::vector<TRoutine>& Routines() const { return routines_; }
    /// The bodies of a name (owner "" for one without a class), those of other conditions and, unless only
    /// plain ones are wanted, those of other parameters.
    std::vector<TRoutine> Bodies(std::string_view owner, std::string_view name, bool plainOnly = false) const;

    /// Where statements of the routine call name without arguments: bare or behind Self for an empty
    /// qualifier, else behind the qualifier and a dot.
    std::vector<std::size_t> Calls(const TRoutine& routine, std::string_view qualifier,
                                   std::string_view name) const;

    /// Behind the last routine: in front of the initialization, or of the final end, and outside
    /// conditions.
    std::size_t EndOfImplementation() const { return end_; }
    /// Where the interface part ends.
    std::size_t EndOfInterface() const;
    /// True when the class (the interface outside classes for "") declares a procedure of this name without
    /// parameters.
    bool DeclaresPlain(std::string_view owner, std::string_view name) const;
    /// True when the class declares a method of this name.
    bool DeclaresMethod(std::string_view className, std::string_view name) const;
    /// True when the class declares the method, and each time as a handler of a plain event: a procedure of
    /// an object whose parameters are one "Name: TObject".
    bool DeclaresEventHandler(std::string_view className, std::string_view name) const;
    /// True when nothing in the class and no body of it bears the name; for "", nothing in the unit.
    bool IsFreeName(std::string_view className, std::string_view name) const;
    /// The first ancestor in the class's heading, "" when it names none.
    std::string_view AncestorOf(std::string_view className) const;
    /// The edit that declares methods, a line each, at the end of the class's first section.
    TEdit DeclareMethods(const std::string& className, const std::vector<std::string>& lines) const;

  private:
    bool IsEventHead(std::size_t index) const;
    bool IsPlainHead(std::size_t index, std::size_t name) const;
    bool IsHead(const TRegion& region, std::size_t parent, std::string_view name) const;
    bool DeclaresIn(const TRegion& around, std::string_view name) const;
    const TRegion* Part(TRegionKind kind) const;
    const TRegion* ClassOf(std::string_view name) const;
    std::size_t TokenAt(std::size_t offset) const;
    std::string_view TextAt(std::size_t index) const;
    void ReadRoutines();
    std::size_t FindEnd() const;

    const TSourceText& source_;
    std::vector<TToken> tokens_;  ///< comments aside
    const std::vector<TRegion>& regions_;
    std::vector<TRoutine> routines_;
    std::size_t end_ = 0;
};

}  // namespace tml
