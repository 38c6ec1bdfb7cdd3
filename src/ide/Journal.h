#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ide/Document.h"
#include "ide/Filestep.h"
#include "ide/Staging.h"
#include "platform/Changes.h"

namespace tml {

/// The undo of all files together, open or not. An entry is a whole command with all its files; what the
/// command saves is written in one go when it ends. Of a document it needs two things: that it gives its
/// bytes, and that it takes others.
class TJournal {
  public:
    /// What the journal asks of the IDE.
    struct THost {
        /// The bytes of a file on the disk; none when it is not there.
        std::function<std::optional<std::string>(const std::string& fileName)> Read;
        /// Writes all files of a command; what it throws ends the commit.
        std::function<void(const std::vector<TStagedFile>&)> Write;
        /// The command, or the one that was taken back or made again, has had these files written.
        std::function<void(const std::string& title, const std::vector<std::string>& fileNames)> Written;
        /// An undo, a redo or a rollback has given the files other bytes.
        std::function<void(const std::vector<std::string>& fileNames)> Restored;
    };
    explicit TJournal(THost host) : host_(std::move(host)) {}

    /// Documents take part from Opened to Closed. What was not saved by then cannot be undone any more.
    void Opened(TDocument& document) { open_[document.FileName()] = &document; }
    void Closed(const TDocument& document);

    /// Everything up to Commit is one entry; scopes nest, the outermost one counts. Patch names
    /// files from the patch folder on, or from the folder that it has in common with them.
    std::unique_ptr<ICommandScope> Begin(const std::string& title);
    /// Begin, but nothing (nullptr) when a command is running already. A change that is one step by itself
    /// uses it: it joins the running command or is one.
    std::unique_ptr<ICommandScope> BeginUnlessRunning(const std::string& title);
    /// The number of the running command, counted from 1; 0 when none is running.
    std::size_t Running() const { return scopes_.empty() ? 0 : begun_; }

    /// What is about to change of a document: its bytes, or only whether it counts as modified.
    enum class TNoted { State, Content };
    /// Called before the change; a command must be running.
    void Note(const TDocument& document, TNoted noted);
    /// Has the document's bytes written when the command ends.
    void Save(const TDocument& document);
    /// The same for a file that is not open; none removes it. EBadInput for an open one.
    void Write(const std::string& fileName, std::optional<std::string> bytes);
    /// The file as the running command has left it, saved or not; none when there is no such file.
    std::optional<std::string> Bytes(const std::string& fileName) const;

    /// A file that the running command is to write when it ends.
    struct TPending {
        std::optional<std::string> Bytes;   ///< none: it is removed
        std::optional<std::string> OnDisk;  ///< what it replaces; none: the file is not there
    };
    /// nullptr for a file that is not to be written.
    const TPending* Pending(const std::string& fileName) const;

    /// True for a file that is open, or to be written: its bytes are not those on the disk.
    bool Holds(const std::string& fileName) const {
        return Document(fileName) != nullptr || Pending(fileName) != nullptr;
    }

    using TFileNames = std::vector<std::string>;
    /// Move the topmost entry that changed one of the files; that of all for no files. See THeadlessIde.
    std::string Undo(const TFileNames& files);
    std::string Redo(const TFileNames& files);
    void Forget();
    /// See THeadlessIde::KeepNoHistory.
    void KeepNoHistory() { keepsHistory_ = false; }
    void SetPatchFolder(std::string folder) { patchFolder_ = std::move(folder); }

  private:
    class TScope;
    /// A file as a scope found it.
    struct TFound {
        std::optional<std::string> Bytes;
        std::shared_ptr<const TDocument::TView> View;
        bool Marked = false;
        std::optional<TPending> Pending;
        bool HasNewContent = false;
    };
    using TFiles = std::map<std::string, TFound>;
    struct TEntry {
        std::string Title;
        std::vector<TFileStep> Steps;
        const TFileStep* Find(const std::string& fileName) const;
    };

    TDocument* Document(const std::string& fileName) const;
    TFound& NoteFile(const std::string& fileName, TNoted noted);
    void SetPending(const std::string& fileName, std::optional<std::string> bytes);
    /// The state of a document that holds these bytes.
    void SetState(TDocument& document, const std::optional<std::string>& bytes, bool marked);
    void TellRestored(const TFileNames& files);
    void RollBack();
    void Commit();
    void WritePending(const std::string& title);
    /// A command that has changed nothing in a document has not modified it either, though it has marked it.
    void SettleStates(const TFiles& files);
    TEntry MakeEntry() const;
    void DropRedoOf(const TEntry& entry);
    std::string Patch() const;

    struct TDirection {
        TFileStep::TSide From;
        TFileStep::TSide To;
        const char* Verb;  ///< "cannot be " + Verb
    };
    static const TDirection kBack;
    static const TDirection kForth;
    using TEntries = std::vector<TEntry>;
    /// Moves the topmost entry from one stack to the other after the checks.
    std::string Move(TEntries& from, TEntries& to, const TFileNames& files, const TDirection& direction);
    static void ExpectTopmost(const TEntries& entries, const TEntry& entry, const TDirection& direction);
    /// The bytes to which the entry leads, in the order of its steps.
    std::vector<std::optional<std::string>> Lead(const TEntry& entry, const TDirection& direction) const;
    /// What is not at the end where undo (redo) would find it is lost; an entry that has lost all goes.
    static void Lose(TEntries& entries, const TDocument& document, const TContentMark& left,
                     const TDirection& direction);

    THost host_;
    bool keepsHistory_ = true;
    std::string patchFolder_;
    std::unordered_map<std::string, TDocument*> open_;
    TEntries done_;
    TEntries undone_;
    std::size_t begun_ = 0;       ///< commands so far
    std::string title_;           ///< of the running command
    std::vector<TFiles> scopes_;  ///< per open scope what it has touched
    std::map<std::string, TPending> pending_;
};

}  // namespace tml
