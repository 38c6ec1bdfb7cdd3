#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ide/Commitrecord.h"
#include "ide/Document.h"

namespace tml {

/// What a command has made of one file. It knows the bytes before and after, and keeps only the part in which
/// they differ.
class TFileStep {
  public:
    using TBytes = std::optional<std::string>;  ///< none: the file is not there
    using TView = std::shared_ptr<const TDocument::TView>;

    TFileStep(std::string fileName, const TBytes& before, TView viewBefore, const TBytes& after,
              TView viewAfter);

    const std::string& FileName() const { return fileName_; }
    enum class TSide { Before, After };
    const TContentMark& Mark(TSide side) const { return At(side).Mark; }
    const TView& View(TSide side) const { return At(side).View; }
    /// The bytes at the other side of those that stand at from; these must have from's mark.
    TBytes Lead(const TBytes& bytes, TSide from, TSide to) const;

    /// The side that the file cannot be brought to any more: what was there has been closed unsaved.
    bool IsLost = false;

  private:
    struct TEnd {
        TContentMark Mark;
        std::string Part;
        TView View;
    };
    const TEnd& At(TSide side) const { return side == TSide::Before ? before_ : after_; }

    std::string fileName_;
    std::size_t begin_ = 0;  ///< of the part, in bytes
    TEnd before_;
    TEnd after_;
};

}  // namespace tml
