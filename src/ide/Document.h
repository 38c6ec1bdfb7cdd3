#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tml {

class TJournal;

/// A file that is open in the IDE: what it holds now, what the disk holds, and whether that is the same. For
/// the journal it gives its bytes and takes others.
class TDocument : public std::enable_shared_from_this<TDocument> {
  public:
    /// onDisk: the file's bytes as they are known to stand on the disk.
    TDocument(TJournal& journal, std::string fileName, std::shared_ptr<const std::string> onDisk)
        : journal_(journal), fileName_(std::move(fileName)), onDisk_(std::move(onDisk)) {}
    virtual ~TDocument() = default;
    TDocument(const TDocument&) = delete;
    TDocument& operator=(const TDocument&) = delete;

    const std::string& FileName() const { return fileName_; }
    /// The file as it would be saved, written anew only after a change.
    const std::string& Bytes() const;
    const std::string& OnDisk() const { return *onDisk_; }
    bool IsModified() const { return state_.Changed || state_.Marked; }
    bool IsClosed() const { return closed_; }
    virtual void Close() { closed_ = true; }

    /// Counts as modified until it is saved, changed or not.
    void MarkModified();
    /// Has the bytes written when the running command ends, at once when none is running.
    void Save();

    /// What belongs to the document besides its bytes and comes back with them: the components of a form on
    /// their nodes, the block of a source.
    class TView {
      public:
        virtual ~TView() = default;
    };
    virtual std::shared_ptr<const TView> View() const = 0;
    /// Takes bytes that it, or the same file opened before, had once; cannot fail. view may be nullptr, or
    /// that of another document.
    virtual void Take(std::string bytes, const std::shared_ptr<const TView>& view) = 0;
    /// Called when all documents of a step have taken their bytes.
    virtual void Restored() {}

    struct TState {
        bool Changed = false;  ///< holds other bytes than were saved
        bool Marked = false;
    };
    const TState& State() const { return state_; }
    void SetState(const TState& state) { state_ = state; }
    void Written(std::string bytes) { onDisk_ = std::make_shared<const std::string>(std::move(bytes)); }

  protected:
    TJournal& Journal() const { return journal_; }
    /// Called before every change, within a command; nobody asks for the bytes until it is made.
    void Changing();
    virtual std::string WriteBytes() const = 0;
    /// The document becomes that of other bytes.
    void SetBytes(std::string bytes) { bytes_ = std::move(bytes); }

  private:
    TJournal& journal_;
    std::string fileName_;
    std::shared_ptr<const std::string> onDisk_;
    mutable std::optional<std::string> bytes_;
    TState state_;
    bool closed_ = false;
};

}  // namespace tml
