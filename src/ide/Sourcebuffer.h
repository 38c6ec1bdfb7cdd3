#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Codedtext.h"
#include "ide/Document.h"
#include "platform/Toolsapi.h"
#include "source/Sourcetext.h"

namespace tml {

/// A source file in the IDE: its text, and the cursor and block of its one view.
class TSourceBuffer : public TDocument {
  public:
    TSourceBuffer(TJournal& journal, const std::string& fileName, const std::string& bytes,
                  std::shared_ptr<const std::string> onDisk, std::string_view codePage)
        : TDocument(journal, fileName, std::move(onDisk)),
          codePage_(codePage),
          coded_(bytes, fileName, codePage) {}

    std::shared_ptr<const TView> View() const override;
    void Take(std::string bytes, const std::shared_ptr<const TView>& view) override;
    std::shared_ptr<const std::string> Text() const { return coded_.SharedText(); }
    /// The text as it was read, kept until there is another one.
    TSharedSource Source() const;

    /// Edits that were worked out for a text as edits of the present one: the text may have changed since by
    /// what the running command has done elsewhere in it. EBadInput where it has changed otherwise.
    TEdits EditsNow(const TEdits& edits, const std::shared_ptr<const std::string>& expected) const;
    /// EBadInput when the edits do not fit the text, or touch a line that cannot be written back.
    void Check(const TEdits& edits) const;
    /// Checks and makes the edits as one step; new lines get CR LF. The block stays on its text.
    void Apply(const TEdits& edits, const std::string& title);

    /// 1-based line, 0-based byte column; both ways clamped to the text.
    TOTACharPos CharPosOf(int offset) const;
    int OffsetOf(const TOTACharPos& pos) const;

    TOTACharPos Cursor{1, 0};
    TOTACharPos BlockStart{1, 0};
    TOTACharPos BlockAfter{1, 0};
    TOTABlockType BlockType = TOTABlockType::btNonInclusive;
    /// A writer is at work; other changes are refused until it is done.
    bool HasWriter = false;

  protected:
    std::string WriteBytes() const override { return coded_.Bytes(); }

  private:
    struct TBlock;
    /// A change and the text that it was made on, as long as somebody holds that.
    struct TStep {
        std::weak_ptr<const std::string> Before;
        TEdits Edits;
    };

    std::string codePage_;  ///< the project's
    TCodedText coded_;
    mutable TSharedSource source_;  ///< nullptr until it is asked for
    std::size_t command_ = 0;       ///< that has changed the text last
    std::vector<TStep> steps_;      ///< of that command
};

}  // namespace tml
