#include "ide/Document.h"

#include "ide/Journal.h"

namespace tml {
namespace {

/// Saving as a step of a command: taking it back makes the document modified again.
class TSaveStep : public TUndoStep {
  public:
    TSaveStep(std::shared_ptr<TDocument> document, std::string bytes)
        : TUndoStep(std::move(document), TAspect::Saving), bytes_(std::move(bytes)) {}
    const std::string* BytesToWrite() const override { return &bytes_; }

  protected:
    void ToggleContent() override {}

  private:
    std::string bytes_;
};

/// A document that is marked as modified and has not changed.
class TMarkStep : public TUndoStep {
  public:
    explicit TMarkStep(std::shared_ptr<TDocument> document)
        : TUndoStep(std::move(document), TAspect::Saving) {}

  protected:
    void ToggleContent() override {}
};

}  // namespace

void TDocument::MarkModified() {
    if (IsModified()) return;
    // Nothing to undo by itself; but a command that is given up takes the mark with it.
    if (journal_.IsRunning()) journal_.Add(std::make_unique<TMarkStep>(shared_from_this()));
    state_.Marked = true;
}

void TDocument::Save() {
    std::string bytes = Bytes();
    const auto command = journal_.BeginUnlessRunning("Save");
    journal_.Add(std::make_unique<TSaveStep>(shared_from_this(), std::move(bytes)));
    state_.Saved = state_.Version;
    state_.Marked = false;
    if (command) command->Commit();
}

}  // namespace tml
