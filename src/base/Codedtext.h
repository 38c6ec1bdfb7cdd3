#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Edits.h"
#include "base/Encodings.h"

namespace tml {

/// The text of a file together with the bytes it came from, line by line, so that a changed text can be
/// written back with every untouched line as it was.
///
/// Text() is UTF-8 with CR LF at the end of every line but perhaps the last; a byte order mark is left
/// out. A line that does not decode cleanly carries U+FFFD and cannot be edited.
class TCodedText {
  public:
    TCodedText() = default;
    /// fileName serves messages only; for codePage see DetectEncoding.
    TCodedText(std::string bytes, std::string fileName, std::string_view codePage = {});

    const std::string& Text() const { return text_; }
    const TEncoding& Encoding() const { return encoding_; }
    int LineCount() const { return static_cast<int>(lines_.size()); }
    /// 0-based line that holds the byte offset (0-based) of Text().
    int LineAt(std::size_t offset) const;
    /// Byte offset of the start of a 0-based line.
    std::size_t LineBegin(int line) const;

    /// Checks that the edits touch only lines that were read cleanly and that their text fits the
    /// encoding; throws EBadInput that names the line where not.
    void Check(const TEdits& edits) const;
    /// Makes the edits and gives those that undo them, lines' origins included.
    class TUndo;
    TUndo Apply(const TEdits& edits);
    /// Takes an Apply back; it must be the last one not yet taken back. Gives the undo of the undo.
    TUndo Apply(const TUndo& undo);

    /// The file's bytes: untouched lines as they were, touched ones encoded.
    std::string Bytes() const;

  private:
    struct TLine {
        std::size_t Begin = 0;     ///< offset in text_
        std::int64_t Origin = -1;  ///< offset in original_ of the line's bytes, -1 for a touched line
        std::uint32_t OriginSize = 0;
        std::uint8_t EndKind = 0;  ///< how the line ends in the file: 0 not at all, 1 LF, 2 CR LF
        bool Decoded = true;
    };

    std::string fileName_;
    std::string original_;
    TEncoding encoding_;
    std::string text_;
    std::vector<TLine> lines_;

    friend class TUndo;
};

}  // namespace tml
