#include "ide/Journal.h"

#include <algorithm>
#include <stdexcept>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Gitpatch.h"

namespace tml {
namespace {

/// The folder, or the nearest one above it that the file is in.
std::string CommonFolder(std::string folder, const std::string& file) {
    while (!file.starts_with(JoinPath(folder, "")) && folder != FolderOf(folder))
        folder = FolderOf(folder);
    return folder;
}

}  // namespace

const TJournal::TDirection TJournal::kBack = {TFileStep::TSide::After, TFileStep::TSide::Before,
                                              "taken back"};
const TJournal::TDirection TJournal::kForth = {TFileStep::TSide::Before, TFileStep::TSide::After,
                                               "made again"};

class TJournal::TScope : public ICommandScope {
  public:
    explicit TScope(TJournal& journal) : journal_(journal) { journal_.scopes_.emplace_back(); }
    ~TScope() override {
        if (!committed_) journal_.RollBack();
    }
    TScope(const TScope&) = delete;
    TScope& operator=(const TScope&) = delete;

    void Commit() override {
        if (committed_) throw std::logic_error("the command has ended already");
        journal_.Commit();
        committed_ = true;
    }
    std::string Patch() override { return journal_.Patch(); }

  private:
    TJournal& journal_;
    bool committed_ = false;
};

std::unique_ptr<ICommandScope> TJournal::Begin(const std::string& title) {
    if (scopes_.empty()) {
        ++begun_;
        title_ = title;
    }
    return std::make_unique<TScope>(*this);
}

std::unique_ptr<ICommandScope> TJournal::BeginUnlessRunning(const std::string& title) {
    return scopes_.empty() ? Begin(title) : nullptr;
}

// --- what a command does

TDocument* TJournal::Document(const std::string& fileName) const {
    const auto found = open_.find(fileName);
    return found == open_.end() ? nullptr : found->second;
}

const TJournal::TPending* TJournal::Pending(const std::string& fileName) const {
    const auto found = pending_.find(fileName);
    return found == pending_.end() ? nullptr : &found->second;
}

std::optional<std::string> TJournal::Bytes(const std::string& fileName) const {
    if (const TDocument* document = Document(fileName)) return document->Bytes();
    const TPending* pending = Pending(fileName);
    return pending != nullptr ? pending->Bytes : host_.Read(fileName);
}

// One picture of a file a scope is enough, whatever the number of its changes.
TJournal::TFound& TJournal::NoteFile(const std::string& fileName, TNoted noted) {
    if (scopes_.empty()) throw std::logic_error("a change outside of every command");
    const auto [place, isNew] = scopes_.back().try_emplace(fileName);
    TFound& found = place->second;
    if (isNew) {
        found.Bytes = Bytes(fileName);
        if (const TPending* pending = Pending(fileName)) found.Pending = *pending;
    }
    found.HasNewContent = found.HasNewContent || noted == TNoted::Content;
    return found;
}

void TJournal::Note(const TDocument& document, TNoted noted) {
    const std::size_t known = scopes_.empty() ? 0 : scopes_.back().size();
    TFound& found = NoteFile(document.FileName(), noted);
    if (scopes_.back().size() == known) return;
    found.View = document.View();
    found.Marked = document.State().Marked;
}

void TJournal::SetPending(const std::string& fileName, std::optional<std::string> bytes) {
    const auto [place, isNew] = pending_.try_emplace(fileName);
    if (isNew) {
        const TDocument* document = Document(fileName);
        place->second.OnDisk = document != nullptr ? document->OnDisk() : host_.Read(fileName);
    }
    place->second.Bytes = std::move(bytes);
}

void TJournal::Save(const TDocument& document) {
    Note(document, TNoted::State);
    SetPending(document.FileName(), document.Bytes());
}

void TJournal::Write(const std::string& fileName, std::optional<std::string> bytes) {
    if (Document(fileName) != nullptr)
        throw EBadInput(fileName, 0, "the file is open", "Close it and repeat the command");
    const auto command = BeginUnlessRunning("Write " + FileNameOf(fileName));
    NoteFile(fileName, TNoted::Content);
    SetPending(fileName, std::move(bytes));
    if (command) command->Commit();
}

// --- how it ends

void TJournal::SetState(TDocument& document, const std::optional<std::string>& bytes, bool marked) {
    const TPending* pending = Pending(document.FileName());
    document.SetState({bytes != (pending == nullptr ? document.OnDisk() : pending->Bytes), marked});
}

void TJournal::TellRestored(const TFileNames& files) {
    for (const std::string& fileName : files)
        if (TDocument* document = Document(fileName)) document->Restored();
    if (!files.empty()) host_.Restored(files);
}

void TJournal::RollBack() {
    const TFiles files = std::move(scopes_.back());
    scopes_.pop_back();
    TFileNames restored;
    for (const auto& [fileName, found] : files) {
        pending_.erase(fileName);
        if (found.Pending) pending_.emplace(fileName, *found.Pending);
        TDocument* document = Document(fileName);
        if (document != nullptr && found.Bytes && found.HasNewContent)
            document->Take(*found.Bytes, found.View);
        if (document != nullptr) SetState(*document, found.Bytes, found.Marked);
        if (found.HasNewContent) restored.push_back(fileName);
    }
    TellRestored(restored);
}

void TJournal::Commit() {
    if (scopes_.size() > 1) {
        TFiles inner = std::move(scopes_.back());
        scopes_.pop_back();
        // What the outer scope knows already stays in the inner one.
        scopes_.back().merge(inner);
        for (const auto& [fileName, found] : inner)
            scopes_.back().at(fileName).HasNewContent |= found.HasNewContent;
        return;
    }
    TEntry entry = keepsHistory_ ? MakeEntry() : TEntry();
    WritePending(title_);
    SettleStates(scopes_.back());
    scopes_.pop_back();
    if (entry.Steps.empty()) return;
    DropRedoOf(entry);
    done_.push_back(std::move(entry));
}

TJournal::TEntry TJournal::MakeEntry() const {
    TEntry entry{title_, {}};
    for (const auto& [fileName, found] : scopes_.back()) {
        const TDocument* document = Document(fileName);
        // What was closed without being saved has come to nothing.
        if (!found.HasNewContent || (document == nullptr && Pending(fileName) == nullptr)) continue;
        const auto ofDocument = document != nullptr ? std::optional(document->Bytes()) : std::nullopt;
        const auto& bytes = document != nullptr ? ofDocument : Pending(fileName)->Bytes;
        if (bytes != found.Bytes)
            entry.Steps.emplace_back(fileName, found.Bytes, found.View, bytes,
                                     document != nullptr ? document->View() : nullptr);
    }
    return entry;
}

void TJournal::WritePending(const std::string& title) {
    std::vector<TStagedFile> files;
    for (auto& [fileName, pending] : pending_)
        if (pending.Bytes != pending.OnDisk)
            files.push_back({fileName, std::move(pending.Bytes), std::move(pending.OnDisk)});
    pending_.clear();
    if (files.empty()) return;
    host_.Write(files);
    TFileNames written;
    for (TStagedFile& file : files) {
        written.push_back(file.Path);
        if (TDocument* document = Document(file.Path)) document->Written(std::move(*file.Bytes));
    }
    host_.Written(title, written);
}

void TJournal::SettleStates(const TFiles& files) {
    for (const auto& [fileName, found] : files)
        if (TDocument* document = Document(fileName); document != nullptr && document->Bytes() == found.Bytes)
            SetState(*document, found.Bytes, document->State().Marked && found.Marked);
}

void TJournal::Closed(const TDocument& document) {
    const std::string& fileName = document.FileName();
    if (Document(fileName) != &document) return;
    open_.erase(fileName);
    if (!document.State().Changed) return;
    const TPending* pending = Pending(fileName);
    const TContentMark left = pending != nullptr ? MarkOfFile(pending->Bytes) : MarkOf(document.OnDisk());
    Lose(done_, document, left, kBack);
    Lose(undone_, document, left, kForth);
}

void TJournal::Lose(TEntries& entries, const TDocument& document, const TContentMark& left,
                    const TDirection& direction) {
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
        for (TFileStep& step : entry->Steps) {
            if (step.FileName() != document.FileName()) continue;
            if (step.Mark(direction.From) == left) return;
            step.IsLost = true;
        }
    std::erase_if(entries, [](const TEntry& entry) {
        return std::all_of(entry.Steps.begin(), entry.Steps.end(),
                           [](const TFileStep& step) { return step.IsLost; });
    });
}

void TJournal::Forget() {
    done_.clear();
    undone_.clear();
}

// --- back and forth

const TFileStep* TJournal::TEntry::Find(const std::string& fileName) const {
    const auto found = std::find_if(Steps.begin(), Steps.end(),
                                    [&](const TFileStep& step) { return step.FileName() == fileName; });
    return found == Steps.end() ? nullptr : &*found;
}

/// What was taken back can be made again only on the bytes that it left; entries that stand on a dropped
/// one go too.
void TJournal::DropRedoOf(const TEntry& entry) {
    TEntry dropped;
    const auto depends = [&](const TEntry& undone) {
        return std::any_of(undone.Steps.begin(), undone.Steps.end(), [&](const TFileStep& step) {
            return entry.Find(step.FileName()) != nullptr || dropped.Find(step.FileName()) != nullptr;
        });
    };
    for (std::size_t i = undone_.size(); i-- > 0;) {
        if (!depends(undone_[i])) continue;
        std::move(undone_[i].Steps.begin(), undone_[i].Steps.end(), std::back_inserter(dropped.Steps));
        undone_.erase(undone_.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

std::string TJournal::Undo(const TFileNames& files) {
    return Move(done_, undone_, files, kBack);
}

std::string TJournal::Redo(const TFileNames& files) {
    return Move(undone_, done_, files, kForth);
}

std::string TJournal::Move(TEntries& from, TEntries& to, const TFileNames& files,
                           const TDirection& direction) {
    if (!scopes_.empty()) throw EBadInput("", 0, "a command is still running", "Try again when it has ended");
    const auto top = std::find_if(from.rbegin(), from.rend(), [&](const TEntry& entry) {
        return files.empty() || std::any_of(files.begin(), files.end(), [&](const std::string& fileName) {
                   return entry.Find(fileName) != nullptr;
               });
    });
    if (top == from.rend()) return {};
    ExpectTopmost(from, *top, direction);
    std::vector<std::optional<std::string>> bytes = Lead(*top, direction);

    for (std::size_t i = 0; i < top->Steps.size(); ++i)
        if (Document(top->Steps[i].FileName()) == nullptr) SetPending(top->Steps[i].FileName(), bytes[i]);
    WritePending(top->Title + ", " + direction.Verb);
    TFileNames restored;
    for (std::size_t i = 0; i < top->Steps.size(); ++i) {
        restored.push_back(top->Steps[i].FileName());
        TDocument* document = Document(restored.back());
        if (document == nullptr) continue;
        SetState(*document, bytes[i], document->State().Marked);
        document->Take(std::move(*bytes[i]), top->Steps[i].View(direction.To));
    }
    to.push_back(std::move(*top));
    from.erase(std::next(top).base());
    std::string title = to.back().Title;
    TellRestored(restored);
    return title;
}

void TJournal::ExpectTopmost(const TEntries& entries, const TEntry& entry, const TDirection& direction) {
    for (auto later = entries.rbegin(); &*later != &entry; ++later)
        for (const TFileStep& step : entry.Steps)
            if (later->Find(step.FileName()) != nullptr)
                throw EBadInput(
                    step.FileName(), 0,
                    Format("\"%s\" cannot be %s before \"%s\"", entry.Title, direction.Verb, later->Title));
}

std::vector<std::optional<std::string>> TJournal::Lead(const TEntry& entry,
                                                       const TDirection& direction) const {
    std::vector<std::optional<std::string>> led;
    for (const TFileStep& step : entry.Steps) {
        const std::optional<std::string> bytes = Bytes(step.FileName());
        if (step.IsLost || MarkOfFile(bytes) != step.Mark(direction.From))
            throw EBadInput(
                step.FileName(), 0,
                Format("\"%s\" cannot be %s: the file has changed since", entry.Title, direction.Verb),
                "Change the file by hand");
        led.push_back(step.Lead(bytes, direction.From, direction.To));
        if (!led.back() && Document(step.FileName()) != nullptr)
            throw EBadInput(step.FileName(), 0, "the file is open", "Close it and try again");
    }
    return led;
}

// --- patch

std::string TJournal::Patch() const {
    std::map<std::string, std::optional<std::string>> changed;
    std::string folder = patchFolder_;
    for (const auto& [fileName, found] : scopes_.back()) {
        std::optional<std::string> bytes = Bytes(fileName);
        if (bytes == found.Bytes) continue;
        folder = CommonFolder(folder, fileName);
        changed.emplace(fileName, std::move(bytes));
    }
    std::string patch;
    for (const auto& [fileName, bytes] : changed)
        patch +=
            FilePatch(fileName.substr(JoinPath(folder, "").size()), scopes_.back().at(fileName).Bytes, bytes);
    return patch;
}

}  // namespace tml
