#pragma once

#include <memory>
#include <string>
#include <utility>

namespace tml {

class TJournal;

/// A file that is open in the IDE: what it holds now, what the disk holds, and whether that is the same.
class TDocument : public std::enable_shared_from_this<TDocument> {
  public:
    /// onDisk: the file's bytes as they are known to stand on the disk.
    TDocument(TJournal& journal, std::string fileName, std::string onDisk)
        : journal_(journal), fileName_(std::move(fileName)), onDisk_(std::move(onDisk)) {}
    virtual ~TDocument() = default;
    TDocument(const TDocument&) = delete;
    TDocument& operator=(const TDocument&) = delete;

    const std::string& FileName() const { return fileName_; }
    /// The file as it would be saved. EBadInput where the file's encoding cannot hold it.
    virtual std::string Bytes() const = 0;
    const std::string& OnDisk() const { return onDisk_; }
    bool IsModified() const { return state_.Marked || state_.Version != state_.Saved; }
    bool IsClosed() const { return closed_; }
    /// From now on the document only serves the rolling back of a command that is still running.
    virtual void Close() { closed_ = true; }

    /// Counts as modified until it is saved, changed or not.
    void MarkModified();
    /// Has the bytes written when the running command ends, at once when none is running.
    void Save();

    /// What tells modified from saved; taken and put back by the journal.
    struct TState {
        unsigned Version = 0;
        unsigned Saved = 0;
        bool Marked = false;
    };
    const TState& State() const { return state_; }
    void SetState(const TState& state) { state_ = state; }
    void Written(std::string bytes) { onDisk_ = std::move(bytes); }
    /// Called when a whole step has been taken back or made again.
    virtual void Restored() {}

  protected:
    TJournal& Journal() const { return journal_; }
    /// Gives the document a state that it never had.
    void NewVersion() { state_.Version = ++lastVersion_; }

  private:
    TJournal& journal_;
    std::string fileName_;
    std::string onDisk_;
    TState state_;
    unsigned lastVersion_ = 0;
    bool closed_ = false;
};

}  // namespace tml
