#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// The conditional compilation of a text: which builds see what stands at a place. A branch is known by its
/// index; 0 is the text outside all conditions, which every build sees. Places are byte offsets, 0-based.
class TConditions {
  public:
    explicit TConditions(const TSourceText& source);

    /// The innermost branch around a place; what is inserted there is compiled with that branch.
    std::size_t BranchAt(std::size_t place) const;
    /// True when every build that compiles the branch compiles the place.
    bool IsSeen(std::size_t place, std::size_t branch) const;
    /// True when every build that compiles the branch compiles at least one of the places.
    bool Reach(const std::vector<std::size_t>& places, std::size_t branch) const;
    /// The branch of the include guard around a C++ text, 0 where there is none.
    std::size_t Guard() const { return guard_; }

  private:
    struct TBranch {
        std::size_t Begin = 0;
        std::size_t End = 0;
        std::size_t Parent = 0;
        std::size_t Condition = 0;  ///< index of the condition whose branch this is
    };
    struct TCondition {
        std::size_t Branches = 0;
        bool HasElse = false;
    };

    void Take(std::string_view word, std::size_t begin, std::size_t end);
    void Open(std::size_t condition, std::size_t parent, std::size_t begin);

    std::vector<TBranch> branches_;  ///< in the order of their beginnings
    std::vector<TCondition> conditions_;
    std::size_t current_ = 0;
    std::size_t guard_ = 0;
    std::size_t directives_ = 0;
};

}  // namespace tml
