#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tml {

class TSourceText;

enum class TRegionKind : std::uint8_t {
    Interface,
    Implementation,
    Initialization,  ///< finalization and a program's main block too
    Uses,            ///< a clause with its semicolon; requires and contains too
    Exports,
    Const,  ///< a section; in C++ the value of a constant outside functions
    ResourceString,
    Type,
    Var,
    Class,      ///< from the word that says what it is to its end; Name is the type's, "" for a plain record
    Attribute,  ///< [...] in front of a declaration, a GUID too; in C++ [[...]]
    Property,
    Routine,     ///< from first word to last with all that is declared in it (C++: from brace to brace)
    Head,        ///< of a routine, its directives included; a routine's type too
    Parameters,  ///< within the parentheses of a head
    Body,
    CaseLabel,
    Assembler,
    Initialiser,  ///< C++: the value of a variable outside functions
    Braces,       ///< C++: a list of values in braces
};

constexpr std::size_t kNoRegion = static_cast<std::size_t>(-1);

/// A stretch of source with a meaning. Byte offsets, 0-based; regions nest and never cross.
struct TRegion {
    TRegionKind Kind = TRegionKind::Body;
    std::size_t Begin = 0;
    std::size_t End = 0;
    std::size_t Parent = kNoRegion;  ///< index of the region around it
    std::string_view Name;           ///< of a class or routine, without its owner
    std::string_view Owner;          ///< the class of a method
    bool OfClass = false;            ///< a Pascal class method, which has no object
};

/// The regions in the order of their beginnings. A text that does not follow the language gives the
/// regions that could be told; what is in doubt ends where the next routine or section begins. Of
/// conditional branches each is read as if it went on from where the first one began. The source keeps
/// them: see its Outline().
std::vector<TRegion> ReadOutline(const TSourceText& source);

/// Index of the innermost region around an offset, kNoRegion outside all. For ascending offsets.
class TRegionFinder {
  public:
    explicit TRegionFinder(const std::vector<TRegion>& regions) : regions_(regions) {}
    std::size_t At(std::size_t offset);

  private:
    const std::vector<TRegion>& regions_;
    std::size_t next_ = 0;
    std::size_t innermost_ = kNoRegion;
};

/// Collects regions while a reader walks the text.
class TRegionStack {
  public:
    std::size_t Open(TRegionKind kind, std::size_t begin);
    /// Closes the innermost region.
    void Close(std::size_t end);
    void CloseTo(std::size_t depth, std::size_t end);

    std::size_t Depth() const { return open_.size(); }
    /// The innermost region, or the one by so many levels further out; nullptr where there is none.
    TRegion* Top(std::size_t level = 0);
    /// The depth just above the innermost open region of a kind, 0 when none is open.
    std::size_t DepthOf(TRegionKind kind) const;
    bool IsOpen(TRegionKind kind) const { return DepthOf(kind) != 0; }
    bool TopIs(TRegionKind kind) const { return !open_.empty() && regions_[open_.back()].Kind == kind; }
    TRegion& At(std::size_t index) { return regions_[index]; }
    std::vector<TRegion> Take(std::size_t end);

  private:
    std::vector<TRegion> regions_;
    std::vector<std::size_t> open_;
};

}  // namespace tml
