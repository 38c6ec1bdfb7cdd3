#include "ide/Journal.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "base/Diff.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"

namespace tml {
namespace {

/// Text, as far as a unified diff goes; forms in binary and wide encodings are not.
bool IsDiffable(const std::string& bytes) {
    return bytes.find('\0') == std::string::npos;
}

}  // namespace

void TUndoStep::Toggle() {
    // Taking a change back that has been saved since makes the document modified.
    const TDocument::TState current = document_->State();
    ToggleContent();
    document_->SetState(aspect_ == TAspect::Content
                            ? TDocument::TState{state_.Version, current.Saved, current.Marked}
                            : TDocument::TState{current.Version, state_.Saved, state_.Marked});
    state_ = current;
}

class TJournal::TScope : public ICommandScope {
  public:
    explicit TScope(TJournal& journal) : journal_(journal), begin_(journal.running_.Steps.size()) {
        journal_.scopes_.push_back(begin_);
        journal_.changed_.clear();
    }
    ~TScope() override {
        if (committed_) return;
        journal_.RollBack(begin_);
        Leave();
    }
    TScope(const TScope&) = delete;
    TScope& operator=(const TScope&) = delete;

    void Commit() override {
        if (committed_) throw std::logic_error("the command has ended already");
        if (journal_.scopes_.size() == 1) journal_.Commit();
        committed_ = true;
        Leave();
    }
    std::string Patch() override { return journal_.Patch(begin_); }

  private:
    void Leave() {
        journal_.scopes_.pop_back();
        // The outer scope may take a second step for a document; one too many does no harm.
        journal_.changed_.clear();
    }

    TJournal& journal_;
    std::size_t begin_;
    bool committed_ = false;
};

bool TJournal::TEntry::Touches(const TDocument& document) const {
    return std::any_of(Steps.begin(), Steps.end(),
                       [&](const auto& step) { return step->Document().get() == &document; });
}

bool TJournal::TEntry::SharesDocument(const TEntry& other) const {
    const std::vector<TDocument*> documents = Documents();
    return std::any_of(documents.begin(), documents.end(),
                       [&](const TDocument* document) { return other.Touches(*document); });
}

bool TJournal::TEntry::IsClosed() const {
    return std::all_of(Steps.begin(), Steps.end(),
                       [](const auto& step) { return step->Document()->IsClosed(); });
}

std::vector<TDocument*> TJournal::TEntry::Documents() const {
    std::vector<TDocument*> documents;
    std::unordered_set<const TDocument*> seen;
    for (const auto& step : Steps)
        if (seen.insert(step->Document().get()).second) documents.push_back(step->Document().get());
    return documents;
}

std::unique_ptr<ICommandScope> TJournal::Begin(const std::string& title) {
    if (scopes_.empty()) running_.Title = title;
    return std::make_unique<TScope>(*this);
}

std::unique_ptr<ICommandScope> TJournal::BeginUnlessRunning(const std::string& title) {
    return scopes_.empty() ? Begin(title) : nullptr;
}

void TJournal::Add(std::unique_ptr<TUndoStep> step) {
    if (scopes_.empty()) throw std::logic_error("a change outside of every command");
    if (step->Aspect() == TUndoStep::TAspect::Content) changed_.insert(step->Document().get());
    if (step->BytesToWrite() != nullptr) saves_[step->Document()->FileName()].push_back(step.get());
    running_.Steps.push_back(std::move(step));
}

bool TJournal::ChangedInScope(const TDocument& document) const {
    return changed_.contains(&document);
}

const TUndoStep* TJournal::PendingSave(const std::string& fileName) const {
    const auto found = saves_.find(fileName);
    return found == saves_.end() || found->second.empty() ? nullptr : found->second.back();
}

void TJournal::ToggleBack(TSteps& steps, std::size_t downTo) {
    for (std::size_t i = steps.size(); i-- > downTo;)
        steps[i]->Toggle();
}

void TJournal::ToggleForth(TSteps& steps, std::size_t from) {
    for (std::size_t i = from; i < steps.size(); ++i)
        steps[i]->Toggle();
}

void TJournal::TellRestored(const TSteps& steps, std::size_t from) {
    for (std::size_t i = from; i < steps.size(); ++i)
        steps[i]->Document()->Restored();
}

void TJournal::RollBack(std::size_t downTo) {
    ToggleBack(running_.Steps, downTo);
    TSteps dropped(std::make_move_iterator(running_.Steps.begin() + static_cast<std::ptrdiff_t>(downTo)),
                   std::make_move_iterator(running_.Steps.end()));
    running_.Steps.resize(downTo);
    for (const auto& step : dropped)
        if (step->BytesToWrite() != nullptr) saves_[step->Document()->FileName()].pop_back();
    TellRestored(dropped, 0);
}

void TJournal::Commit() {
    WriteSaved();
    TEntry entry = std::move(running_);
    running_ = TEntry();
    saves_.clear();
    std::erase_if(entry.Steps, [](const auto& step) { return step->Aspect() == TUndoStep::TAspect::Saving; });
    if (entry.Steps.empty()) return;
    DropRedoOf(entry);
    if (!entry.IsClosed()) done_.push_back(std::move(entry));
}

void TJournal::WriteSaved() {
    std::map<std::string, std::pair<TDocument*, std::string>> last;
    for (const auto& step : running_.Steps)
        if (const std::string* bytes = step->BytesToWrite())
            last[step->Document()->FileName()] = {step->Document().get(), *bytes};
    std::vector<TStagedFile> files;
    for (const auto& [fileName, save] : last)
        if (save.second != save.first->OnDisk())
            files.push_back({fileName, save.second, save.first->OnDisk()});
    if (!files.empty()) write_(files);
    for (auto& [fileName, save] : last)
        save.first->Written(std::move(save.second));
}

/// What was taken back can be made again only on the text that it left; entries that stand on a dropped
/// one go too.
void TJournal::DropRedoOf(const TEntry& entry) {
    TEntry dropped;
    const auto depends = [&](const TEntry& undone) {
        return undone.SharesDocument(entry) || undone.SharesDocument(dropped);
    };
    for (std::size_t i = undone_.size(); i-- > 0;) {
        if (!depends(undone_[i])) continue;
        std::move(undone_[i].Steps.begin(), undone_[i].Steps.end(), std::back_inserter(dropped.Steps));
        undone_.erase(undone_.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

std::string TJournal::Undo(const TDocuments& documents) {
    return Move(done_, undone_, documents, {ToggleBack, "taken back"});
}

std::string TJournal::Redo(const TDocuments& documents) {
    return Move(undone_, done_, documents, {ToggleForth, "made again"});
}

std::string TJournal::Move(std::vector<TEntry>& from, std::vector<TEntry>& to, const TDocuments& documents,
                           const TDirection& direction) {
    if (!scopes_.empty()) throw EBadInput("", 0, "a command is still running", "Try again when it has ended");
    const auto top = std::find_if(from.rbegin(), from.rend(), [&](const TEntry& entry) {
        return documents.empty() ||
               std::any_of(documents.begin(), documents.end(),
                           [&](const TDocument* document) { return entry.Touches(*document); });
    });
    if (top == from.rend()) return {};
    const std::string step = "\"" + top->Title + "\"";
    for (const TDocument* touched : top->Documents()) {
        if (touched->IsClosed())
            throw EBadInput(touched->FileName(), 0, "the file was closed since " + step,
                            "Change the file by hand");
        for (auto later = from.rbegin(); later != top; ++later)
            if (later->Touches(*touched))
                throw EBadInput(touched->FileName(), 0,
                                step + " cannot be " + direction.Verb + " before \"" + later->Title + "\"");
    }
    TEntry entry = std::move(*top);
    from.erase(std::next(top).base());
    direction.Toggle(entry.Steps, 0);
    to.push_back(std::move(entry));
    TellRestored(to.back().Steps, 0);
    return to.back().Title;
}

void TJournal::ForgetClosed() {
    const auto isClosed = [](const TEntry& entry) { return entry.IsClosed(); };
    std::erase_if(done_, isClosed);
    std::erase_if(undone_, isClosed);
}

std::string TJournal::PatchName(const std::string& fileName) const {
    const std::string prefix = patchFolder_.empty() ? std::string() : JoinPath(patchFolder_, "");
    std::string name = fileName.starts_with(prefix) ? fileName.substr(prefix.size()) : fileName;
    name.erase(0, name.find_first_not_of("/\\"));
    return name;
}

// Both texts are had by going back and forth once: the undo is exact, so no second way to earlier texts
// is needed.
std::string TJournal::Patch(std::size_t from) {
    std::map<std::string, std::pair<std::string, std::string>> texts;
    ToggleBack(running_.Steps, from);
    for (auto step = running_.Steps.begin() + static_cast<std::ptrdiff_t>(from); step != running_.Steps.end();
         ++step)
        texts.try_emplace((*step)->Document()->FileName(), (*step)->Document()->Bytes(), std::string());
    ToggleForth(running_.Steps, from);
    for (auto step = running_.Steps.begin() + static_cast<std::ptrdiff_t>(from); step != running_.Steps.end();
         ++step)
        texts[(*step)->Document()->FileName()].second = (*step)->Document()->Bytes();
    std::string patch;
    for (const auto& [fileName, text] : texts) {
        const std::string oldName = "a/" + PatchName(fileName);
        const std::string newName = "b/" + PatchName(fileName);
        if (text.first == text.second) continue;
        if (IsDiffable(text.first) && IsDiffable(text.second))
            patch += UnifiedDiff(oldName, newName, text.first, text.second);
        else
            patch += Format("Binary files %s and %s differ\n", oldName, newName);
    }
    return patch;
}

}  // namespace tml
