#include "ide/Document.h"

#include "ide/Journal.h"

namespace tml {

const std::string& TDocument::Bytes() const {
    if (!bytes_) bytes_ = WriteBytes();
    return *bytes_;
}

void TDocument::Changing() {
    journal_.Note(*this, TJournal::TNoted::Content);
    bytes_.reset();
    state_.Changed = true;
}

void TDocument::MarkModified() {
    if (IsModified()) return;
    // Nothing to undo by itself; but a command that is given up takes the mark with it.
    if (journal_.Running() != 0) journal_.Note(*this, TJournal::TNoted::State);
    state_.Marked = true;
}

void TDocument::Save() {
    const auto command = journal_.BeginUnlessRunning("Save");
    journal_.Save(*this);
    state_ = {};
    if (command) command->Commit();
}

}  // namespace tml
