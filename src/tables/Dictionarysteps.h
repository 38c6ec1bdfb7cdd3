#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "tables/Dictionary.h"

namespace tml {

/// A change of a dictionary: entries that go, and others that come.
struct TDictionaryStep {
    TStringList Languages;          ///< all that there are afterwards
    std::vector<std::size_t> Gone;  ///< places (0-based) before the step, ascending
    std::vector<std::pair<std::size_t, TDictionaryEntry>> Come;  ///< with their places behind it, ascending
};

/// Takes a step; gives the one that leads back.
TDictionaryStep TakeStep(TDictionary& dictionary, TDictionaryStep step);

/// The step that leads back to what a dictionary was before it got more entries, and entries more texts.
TDictionaryStep StepBack(const TDictionary& dictionary, const TDictionary& before);

/// The steps that a person took, with those that were taken back.
class TDictionaryHistory {
  public:
    void Take(TDictionary& dictionary, TDictionaryStep step) { Note(TakeStep(dictionary, std::move(step))); }
    /// A step is taken already; back leads back.
    void Note(TDictionaryStep back);
    /// To be called before a text of an entry changes: what is typed for one text is one step.
    void NoteTyping(const TDictionary& dictionary, int entry, int language);
    void EndTyping() { typed_ = {-1, -1}; }
    void EndTypingUnless(int entry) {
        if (typed_.first != entry) EndTyping();
    }

    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }
    /// Take a step back, or take it again; give the places of the entries that came by it.
    std::vector<int> Undo(TDictionary& dictionary) { return Swap(dictionary, done_, undone_); }
    std::vector<int> Redo(TDictionary& dictionary) { return Swap(dictionary, undone_, done_); }

    /// What is there now is saved.
    void NoteSaved();
    bool IsSaved() const { return isSavedThere_ && saved_ == done_.size(); }

  private:
    using TSteps = std::vector<TDictionaryStep>;

    std::vector<int> Swap(TDictionary& dictionary, TSteps& from, TSteps& to);

    TSteps done_, undone_;
    std::pair<int, int> typed_{-1, -1};  ///< entry and language
    std::size_t saved_ = 0;              ///< how many steps were done then
    bool isSavedThere_ = true;           ///< the steps lead to what is saved
};

}  // namespace tml
