#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "scan/Advice.h"
#include "source/Sourcetext.h"

namespace tml {

/// A string constant's declaration as it stands in a const section. Byte offsets, 0-based.
struct TConstDeclaration {
    std::string_view Name;
    std::size_t Begin = 0;      ///< of the name
    std::size_t End = 0;        ///< behind the semicolon
    std::size_t Open = 0;       ///< the first literal's delimiter
    std::size_t RawLength = 0;  ///< of all literals, without their outer delimiters
    std::string Text;           ///< decoded
    std::string Value;          ///< from the first to the last piece; comments left out, on one line
    std::vector<std::string_view> Comments;
    std::string_view Type;  ///< "" for an untyped constant
    bool IsJoined = false;  ///< with other constants, whose text Text has not
    std::size_t Section = kNoRegion;
    TAdvice Advice = TAdvice::None;
};

/// Reads the declarations of string constants in the const sections of a Pascal text.
class TConstReader {
  public:
    /// EBadInput where a section ends in a comment, or a literal in it has no end.
    explicit TConstReader(const TSourceText& source);

    const std::vector<TConstDeclaration>& Declarations() const { return declarations_; }
    const std::vector<TRegion>& Regions() const { return regions_; }
    /// True when the offset lies in a const section. For ascending offsets.
    bool IsInSection(std::size_t offset) { return SectionAt(finder_, offset) != kNoRegion; }
    /// Index of the innermost region of a kind around a region, kNoRegion when there is none.
    std::size_t Around(std::size_t region, TRegionKind kind) const;

  private:
    std::size_t SectionAt(TRegionFinder& finder, std::size_t offset) const;
    void CheckEnds() const;
    void FollowConditions();
    void ReadSection(std::size_t section, std::size_t first);
    std::size_t ReadDeclaration(std::size_t section, std::size_t index, std::size_t end);
    bool ReadType(TConstDeclaration& declaration, std::size_t first, std::size_t last) const;
    bool ReadValue(TConstDeclaration& declaration, std::size_t first, std::size_t last) const;
    bool IsNamePart(std::size_t index, std::size_t first) const;
    std::string Written(const TToken& token) const;
    TAdvice AdviceFor(const TConstDeclaration& declaration, std::size_t index) const;
    void AdviseUses();
    bool NeedsValue(std::size_t region) const;
    bool HasBody(std::size_t routine) const;

    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }

    const TSourceText& source_;
    const std::vector<TToken>& tokens_;
    const std::vector<TRegion>& regions_;
    TRegionFinder finder_;
    std::vector<bool> conditional_;  ///< for each token: compiled under a condition only
    std::vector<TConstDeclaration> declarations_;
};

}  // namespace tml
