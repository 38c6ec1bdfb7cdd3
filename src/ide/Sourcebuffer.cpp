#include "ide/Sourcebuffer.h"

#include <algorithm>
#include <optional>

#include "base/Errors.h"
#include "base/Files.h"
#include "ide/Journal.h"

namespace tml {
namespace {

/// Every line end as CR LF.
std::string WithLineEnds(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') {
            result += text[i];
            continue;
        }
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        result += "\r\n";
    }
    return result;
}

TEdits Normalised(const TEdits& edits) {
    TEdits result = edits;
    for (TEdit& edit : result)
        if (edit.Text.find_first_of("\r\n") != std::string::npos) edit.Text = WithLineEnds(edit.Text);
    return result;
}

/// Where a place of the old text lies in the new one; a place inside a change goes behind it.
int MovedBy(const TEdits& edits, int place) {
    std::ptrdiff_t shift = 0;
    for (const TEdit& edit : edits) {
        const auto begin = static_cast<std::ptrdiff_t>(edit.Begin);
        const auto end = static_cast<std::ptrdiff_t>(edit.End);
        const auto size = static_cast<std::ptrdiff_t>(edit.Text.size());
        if (end <= place)
            shift += size - (end - begin);
        else if (begin < place)
            return static_cast<int>(begin + shift + size);
    }
    return static_cast<int>(place + shift);
}

}  // namespace

/// A change that is taken back leaves the selection where it was.
struct TSourceBuffer::TBlock : TView {
    TBlock(TOTACharPos start, TOTACharPos after) : Start(start), After(after) {}
    TOTACharPos Start, After;
};

TSharedSource TSourceBuffer::Source() const {
    if (!source_)
        source_ = std::make_shared<const TSourceText>(Text(), FileName(),
                                                      ByteEncodingsOf(coded_.Encoding(), codePage_));
    return source_;
}

std::shared_ptr<const TDocument::TView> TSourceBuffer::View() const {
    return std::make_shared<TBlock>(BlockStart, BlockAfter);
}

void TSourceBuffer::Take(std::string bytes, const std::shared_ptr<const TView>& view) {
    SetBytes(bytes);
    coded_.Reread(std::move(bytes));
    source_.reset();
    steps_.clear();
    const auto block = std::dynamic_pointer_cast<const TBlock>(view);
    if (!block) return;
    BlockStart = block->Start;
    BlockAfter = block->After;
}

TEdits TSourceBuffer::EditsNow(const TEdits& edits,
                               const std::shared_ptr<const std::string>& expected) const {
    if (expected == nullptr || *expected == *Text()) return edits;
    std::optional<TEdits> moved;
    if (command_ == Journal().Running())
        for (const TStep& step : steps_) {
            if (step.Before.lock() == expected) moved = edits;
            if (moved) moved = MovedOver(std::move(*moved), step.Edits);
        }
    if (!moved)
        throw EBadInput(FileName(), 0, "the text has changed since the change was worked out",
                        "Repeat the command");
    return *moved;
}

void TSourceBuffer::Check(const TEdits& edits) const {
    if (!AreValid(edits, Text()->size()))
        throw EBadInput(FileName(), 0, "the change does not fit the text", "Repeat the command");
    coded_.Check(edits);
}

void TSourceBuffer::Apply(const TEdits& edits, const std::string& title) {
    if (HasWriter) throw EBadInput(FileName(), 0, "the text is being written to", "Try again later");
    const TEdits normalised = Normalised(edits);
    Check(normalised);
    const bool changes = std::any_of(normalised.begin(), normalised.end(), [&](const TEdit& edit) {
        return std::string_view(*Text()).substr(edit.Begin, edit.End - edit.Begin) != edit.Text;
    });
    if (!changes) return;
    const auto command = Journal().BeginUnlessRunning(title);
    Changing();
    const int start = OffsetOf(BlockStart), after = OffsetOf(BlockAfter);
    if (command_ != Journal().Running()) steps_.clear();
    command_ = Journal().Running();
    steps_.push_back({coded_.SharedText(), normalised});
    coded_.Apply(normalised);
    source_.reset();
    if (BlockType != TOTABlockType::btColumn) {
        BlockStart = CharPosOf(MovedBy(normalised, start));
        BlockAfter = CharPosOf(MovedBy(normalised, after));
    }
    if (command) command->Commit();
}

TOTACharPos TSourceBuffer::CharPosOf(int offset) const {
    const std::size_t place = std::min(static_cast<std::size_t>(std::max(offset, 0)), Text()->size());
    const std::size_t line = coded_.LineAt(place);
    return {static_cast<int>(line) + 1, static_cast<int>(place - coded_.LineBegin(line))};
}

int TSourceBuffer::OffsetOf(const TOTACharPos& pos) const {
    if (pos.Line < 1) return 0;
    const std::size_t line = std::min(static_cast<std::size_t>(pos.Line) - 1, coded_.LineCount());
    const std::size_t begin = coded_.LineBegin(line);
    std::size_t end = coded_.LineBegin(std::min(line + 1, coded_.LineCount()));
    if (end > begin && (*Text())[end - 1] == '\n') end -= 2;
    const auto column = static_cast<std::size_t>(std::max(pos.CharIndex, 0));
    return static_cast<int>(std::min(begin + column, std::max(begin, end)));
}

}  // namespace tml
