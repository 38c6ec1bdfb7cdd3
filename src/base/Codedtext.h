#pragma once

#include <cstdint>
#include <memory>
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
/// out. A line that does not decode cleanly, or would not come back as the same bytes, cannot be edited.
class TCodedText {
  public:
    TCodedText() = default;
    /// fileName serves messages only; for codePage see DetectEncoding.
    explicit TCodedText(std::string bytes, std::string fileName = {}, std::string_view codePage = {});

    /// Other bytes of the same file, which keeps the encoding that it was found to have.
    void Reread(std::string bytes);

    /// What Text() would give, for those who write nothing back: quicker, as no line's origin is kept.
    /// byteEncodings is given ByteEncodingsOf the file.
    static std::string TextOf(std::string_view bytes, std::string_view codePage = {},
                              TByteEncodings* byteEncodings = nullptr);

    const std::string& Text() const { return *text_; }
    std::shared_ptr<const std::string> SharedText() const { return text_; }
    const TEncoding& Encoding() const { return encoding_; }
    /// A text that ends with a line break has no line behind it.
    std::size_t LineCount() const { return lines_.size(); }
    /// 0-based line that holds the byte offset (0-based) of Text(); LineCount() behind a last line break.
    std::size_t LineAt(std::size_t offset) const;
    /// Byte offset of the start of a 0-based line; the text's size for LineCount().
    std::size_t LineBegin(std::size_t line) const;

    /// Checks that the edits touch only lines that were read cleanly and that their text fits the
    /// encoding; throws EBadInput that names the line where not.
    void Check(const TEdits& edits) const;

    /// What takes a change back, the lines' origins included.
    class TUndo;
    /// Makes the edits (see Check for those that saving would refuse).
    TUndo Apply(const TEdits& edits);
    /// Takes the last change not yet taken back back; gives what makes it again.
    TUndo Apply(const TUndo& undo);

    /// The file's bytes: untouched lines as they were, touched ones encoded.
    std::string Bytes() const;

  private:
    enum class TLineEnd : std::uint8_t { None, Lf, CrLf };

    struct TLine {
        std::size_t Begin = 0;  ///< offset in the text
        std::size_t Size = 0;   ///< in the text, its end included
        std::size_t Origin = kTouched;
        std::size_t OriginSize = 0;
        TLineEnd End = TLineEnd::None;
        bool Clean = true;
    };
    /// Lines [First, First + Count) that take the place of other ones.
    struct TGroup {
        std::size_t First = 0;
        std::size_t Count = 0;
        std::vector<TLine> Lines;
    };

    static constexpr std::size_t kTouched = static_cast<std::size_t>(-1);

    void ReadLines();
    void AddLine(std::string& text, std::size_t begin, std::size_t end, bool asItIs);
    /// First line that an edit touches and the line behind the last one.
    std::pair<std::size_t, std::size_t> TouchedLines(const TEdit& edit) const;
    std::vector<TGroup> GroupEdits(const TEdits& edits) const;
    std::vector<TLine> SplitGroup(const TGroup& group, std::string_view newText) const;
    TLineEnd LineEndFor(const TGroup& group, std::size_t index) const;
    void CheckLine(std::size_t line) const;
    TUndo Replace(const TEdits& edits, const std::vector<TGroup>& groups);

    std::string fileName_;
    std::string original_;
    TEncoding encoding_;
    std::shared_ptr<const std::string> text_ = std::make_shared<const std::string>();
    std::vector<TLine> lines_;
};

class TCodedText::TUndo {
  public:
    const TEdits& Edits() const { return edits_; }

  private:
    friend class TCodedText;
    TEdits edits_;
    std::vector<TGroup> groups_;
};

}  // namespace tml
