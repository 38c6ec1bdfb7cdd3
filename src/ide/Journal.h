#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "ide/Document.h"
#include "ide/Staging.h"
#include "platform/Changes.h"

namespace tml {

/// One change of one document. Toggle leads back and, called again, forth.
class TUndoStep {
  public:
    /// What of the document's state goes with the step.
    enum class TAspect { Content, Saving };

    explicit TUndoStep(std::shared_ptr<TDocument> document, TAspect aspect = TAspect::Content)
        : document_(std::move(document)), aspect_(aspect), state_(document_->State()) {}
    virtual ~TUndoStep() = default;
    TUndoStep(const TUndoStep&) = delete;
    TUndoStep& operator=(const TUndoStep&) = delete;

    const std::shared_ptr<TDocument>& Document() const { return document_; }
    TAspect Aspect() const { return aspect_; }
    void Toggle();
    /// What is to be written when the command ends; nullptr for a step that changes the document.
    virtual const std::string* BytesToWrite() const { return nullptr; }

  protected:
    virtual void ToggleContent() = 0;

  private:
    std::shared_ptr<TDocument> document_;
    TAspect aspect_;
    TDocument::TState state_;  ///< the other state
};

/// The undo of all documents together. An entry is a whole command with all its documents; files that the
/// command saves are written in one go when it ends.
class TJournal {
  public:
    using TWriter = std::function<void(const std::vector<TStagedFile>&)>;

    /// write is called with all files of a command; what it throws ends the commit.
    explicit TJournal(TWriter write) : write_(std::move(write)) {}

    /// Everything up to Commit is one entry; scopes nest, the outermost one counts. The diffs of Patch
    /// name files relative to folder.
    std::unique_ptr<ICommandScope> Begin(const std::string& title);
    /// Begin, but nothing (nullptr) when a command is running already. A change that is one step by itself
    /// uses it: it joins the running command or is one.
    std::unique_ptr<ICommandScope> BeginUnlessRunning(const std::string& title);
    bool IsRunning() const { return !scopes_.empty(); }
    /// Notes a change; a command must be running.
    void Add(std::unique_ptr<TUndoStep> step);
    /// True when the innermost scope holds a change of the document.
    bool ChangedInScope(const TDocument& document) const;
    /// The step by which the running command has saved the file, not written yet; nullptr without one.
    const TUndoStep* PendingSave(const std::string& fileName) const;

    /// Documents whose topmost entry is moved; none for that of all.
    using TDocuments = std::vector<const TDocument*>;
    /// See THeadlessIde.
    std::string Undo(const TDocuments& documents);
    std::string Redo(const TDocuments& documents);
    /// Drops the entries of which all documents are closed; one with some open stays and says why it cannot
    /// be taken back.
    void ForgetClosed();
    void SetPatchFolder(std::string folder) { patchFolder_ = std::move(folder); }

  private:
    class TScope;
    using TSteps = std::vector<std::unique_ptr<TUndoStep>>;
    struct TEntry {
        std::string Title;
        TSteps Steps;
        bool Touches(const TDocument& document) const;
        bool IsClosed() const;
        bool SharesDocument(const TEntry& other) const;
        std::vector<TDocument*> Documents() const;
    };

    static void ToggleBack(TSteps& steps, std::size_t downTo);
    static void ToggleForth(TSteps& steps, std::size_t from);
    static void TellRestored(const TSteps& steps, std::size_t from);
    void RollBack(std::size_t downTo);
    void Commit();
    void WriteSaved();
    void DropRedoOf(const TEntry& entry);
    std::string Patch(std::size_t from);
    std::string PatchName(const std::string& fileName) const;
    struct TDirection {
        void (*Toggle)(TSteps&, std::size_t);
        const char* Verb;  ///< "cannot be " + Verb
    };
    /// Moves the topmost entry from one stack to the other after the checks.
    std::string Move(std::vector<TEntry>& from, std::vector<TEntry>& to, const TDocuments& documents,
                     const TDirection& direction);

    TWriter write_;
    std::string patchFolder_;
    std::vector<TEntry> done_;
    std::vector<TEntry> undone_;
    TEntry running_;
    std::vector<std::size_t> scopes_;  ///< per open scope: count of steps when it began
    /// The saves of the running command by file, in order.
    std::unordered_map<std::string, std::vector<const TUndoStep*>> saves_;
    std::unordered_set<const TDocument*> changed_;  ///< in the innermost scope
};

}  // namespace tml
