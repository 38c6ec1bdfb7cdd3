#include "ide/Sourceeditor.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Files.h"

namespace tml {
namespace {

std::size_t ToOffset(int position, std::size_t size) {
    return std::min(static_cast<std::size_t>(std::max(position, 0)), size);
}

class TEditReader : public IOTAEditReader {
  public:
    explicit TEditReader(std::shared_ptr<const std::string> text) : text_(std::move(text)) {}

    std::string GetText(int position, int count) override {
        return text_->substr(ToOffset(position, text_->size()), ToOffset(count, text_->size()));
    }

  private:
    std::shared_ptr<const std::string> text_;
};

/// Refuses what cannot be written at once, so that the change itself, made on destruction, cannot fail.
class TEditWriter : public IOTAEditWriter {
  public:
    explicit TEditWriter(std::shared_ptr<TSourceBuffer> buffer)
        : buffer_(std::move(buffer)), text_(buffer_->Text()) {
        if (buffer_->HasWriter || buffer_->IsClosed())
            throw EBadInput(
                buffer_->FileName(), 0,
                buffer_->IsClosed() ? "the file is closed" : "the text is being written to already");
        buffer_->HasWriter = true;
    }
    ~TEditWriter() override {
        buffer_->HasWriter = false;
        // An undo in between has the last word.
        if (!edits_.empty() && buffer_->Text() == text_)
            buffer_->Apply(edits_, "Edit " + FileNameOf(buffer_->FileName()));
    }
    TEditWriter(const TEditWriter&) = delete;
    TEditWriter& operator=(const TEditWriter&) = delete;

    void CopyTo(int position) override { position_ = Behind(position); }
    void DeleteTo(int position) override {
        Add({position_, Behind(position), {}});
        position_ = Behind(position);
    }
    void Insert(const std::string& text) override { Add({position_, position_, text}); }

  private:
    /// A writer never goes back.
    std::size_t Behind(int position) const {
        return std::max(position_, ToOffset(position, buffer_->Text()->size()));
    }
    void Add(TEdit edit) {
        if (edit.Begin == edit.End && edit.Text.empty()) return;
        buffer_->Check({edit});
        // A deletion followed by an insertion at its end is one replacement.
        if (!edits_.empty() && edits_.back().End == edit.Begin) {
            edits_.back().End = edit.End;
            edits_.back().Text += edit.Text;
        } else {
            edits_.push_back(std::move(edit));
        }
    }

    std::shared_ptr<TSourceBuffer> buffer_;
    std::shared_ptr<const std::string> text_;
    std::size_t position_ = 0;
    TEdits edits_;
};

class TEditView : public IOTAEditView {
  public:
    explicit TEditView(std::shared_ptr<TSourceBuffer> buffer) : buffer_(std::move(buffer)) {}

    TOTACharPos PosToCharPos(int linear) override { return buffer_->CharPosOf(linear); }
    int CharPosToPos(const TOTACharPos& pos) override { return buffer_->OffsetOf(pos); }
    TOTACharPos GetCursorPos() override { return buffer_->Cursor; }
    void SetCursorPos(const TOTACharPos& pos) override { buffer_->Cursor = pos; }

  private:
    std::shared_ptr<TSourceBuffer> buffer_;
};

class TSourceEditor : public IOTASourceEditor {
  public:
    TSourceEditor(std::shared_ptr<TSourceBuffer> buffer, std::function<void()> show)
        : buffer_(std::move(buffer)), show_(std::move(show)) {}

    std::string GetFileName() override { return buffer_->FileName(); }
    bool GetModified() override { return buffer_->IsModified(); }
    void Show() override { show_(); }
    std::shared_ptr<const std::string> GetText() override { return buffer_->Text(); }
    TSharedSource GetSource() override { return buffer_->Source(); }
    std::unique_ptr<IOTAEditReader> CreateReader() override {
        return std::make_unique<TEditReader>(buffer_->Text());
    }
    std::unique_ptr<IOTAEditWriter> CreateUndoableWriter() override {
        return std::make_unique<TEditWriter>(buffer_);
    }
    int GetEditViewCount() override { return 1; }
    std::shared_ptr<IOTAEditView> GetEditView(int index) override {
        return index == 0 ? std::make_shared<TEditView>(buffer_) : nullptr;
    }
    TOTACharPos GetBlockStart() override { return buffer_->BlockStart; }
    TOTACharPos GetBlockAfter() override { return buffer_->BlockAfter; }
    TOTABlockType GetBlockType() override { return buffer_->BlockType; }
    void SetBlock(const TOTACharPos& start, const TOTACharPos& after, TOTABlockType type) override {
        buffer_->BlockStart = start;
        buffer_->BlockAfter = after;
        buffer_->BlockType = type;
    }

  private:
    std::shared_ptr<TSourceBuffer> buffer_;
    std::function<void()> show_;
};

}  // namespace

std::shared_ptr<IOTASourceEditor> MakeSourceEditor(std::shared_ptr<TSourceBuffer> buffer,
                                                   std::function<void()> show) {
    return std::make_shared<TSourceEditor>(std::move(buffer), std::move(show));
}

}  // namespace tml
