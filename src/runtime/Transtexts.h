#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Mlruntime.h"
#include "runtime/Transtable.h"

namespace tml {

/// An entry of the forms that are being translated: its table (0-based, of all forms) and its index there.
struct TTransRow {
    int Table = -1;
    int Entry = -1;

    // NOLINTNEXTLINE(modernize-use-nullptr): of the comparison with 0 that the compiler writes here
    auto operator<=>(const TTransRow&) const = default;
};

/// A form that is being translated.
struct TTransForm {
    TmlCustomLang* Lang = nullptr;
    std::string Name;
    TStringList Languages;    ///< base first
    std::vector<int> Places;  ///< by column: of its language (1-based), 0 where the form has not got it
    bool IsChanged = false;   ///< in the form itself
    int FirstTable = 0;       ///< its tables, of all
    int TablesEnd = 0;
};

/// What taking a step back, or again, has done.
struct TTransSwapped {
    std::vector<TTransRow> Rows;  ///< all that it has changed
    std::vector<TTransRow> Come;  ///< of these, those that are there again
    std::vector<TTransRow> Gone;
    /// The first language (1-based) that has changed of the last row; 0 for the row as a whole.
    int Place = 0;
};

/// A language of the forms; those of the same name are one.
struct TTransLanguage {
    std::string Name;
    bool IsRightToLeft = false;
};

/// The tables of one or more forms side by side, their languages in columns (1-based, column 0 is the key),
/// with what a person edits, step by step. Nothing is written before Write, but for IDs that are renamed.
class TTransTexts {
  public:
    /// The components must outlive it. onForm is told now and then how many forms have been read; where it
    /// says false, EmlLangSilent is thrown.
    TTransTexts(const std::vector<TmlCustomLang*>& langs, const std::function<bool(int forms)>& onForm);

    const std::vector<TTransForm>& Forms() const { return forms_; }
    const std::vector<TTransLanguage>& Languages() const { return languages_; }
    /// Of every form all kinds, with its extended translations behind them, one form's behind the other's.
    const std::vector<TTransTable>& Tables() const { return tables_; }

    const TTransForm& FormOf(TTransRow row) const;
    const TTransTable& TableOf(TTransRow row) const { return tables_[static_cast<std::size_t>(row.Table)]; }
    /// nullptr for one that has gone.
    const TTableEntry* Find(TTransRow row) const;
    /// The place (1-based) that a column's language has in the row's form, 0 where it has none.
    int PlaceOf(TTransRow row, int column) const;
    /// The column of the language at a place of the row's form.
    int ColumnAt(TTransRow row, int place) const;
    /// What stands in a column, "" where there is nothing.
    const std::string& Text(TTransRow row, int column) const;
    /// None for keys, base texts and settings.
    std::optional<TTextState> State(TTransRow row, int column) const;
    /// Of the translations in all tables of a form (-1: of all forms).
    TTransProgress Progress(int column, int form) const;
    TTransProgress ProgressOfTable(int column, int table) const;

    /// Gives an entry another content, none for one that goes, as a part of the step that EndStep ends.
    void Put(TTransRow row, std::optional<TTableEntry> entry);
    TTransRow Add(int table, TTableEntry entry);
    /// What was put since the last call is one step of undo.
    void EndStep();
    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }
    /// Take a step back, or take it again.
    TTransSwapped Undo() { return Swap(done_, undone_); }
    TTransSwapped Redo() { return Swap(undone_, done_); }

    /// Gives an ID another name, here and in the form, where that has it. No step of undo; what was taken
    /// back cannot be taken again afterwards.
    void Rename(TTransRow row, const std::string& id);
    /// The same here only.
    void RenameHere(TTransRow row, const std::string& id);

    /// What a form shows of its component's tables, with the edits: of the IDs of "Strings" nothing.
    TLangTexts ShownTexts(const TTransForm& form) const;

    /// True where Write has something to write.
    bool HasEdits() const;
    /// goesOn is told how far it is; where it says false before anything is written, EmlLangSilent is thrown.
    void Write(const std::function<bool(int done, int all)>& goesOn);
    /// The components whose forms are others now.
    std::vector<TmlCustomLang*> Changed() const;

  private:
    struct TEdit {
        TTransRow Row;
        std::optional<TTableEntry> Entry;  ///< on its other side
    };
    using TStep = std::vector<TEdit>;
    using TSteps = std::vector<TStep>;

    void ReadForm(TmlCustomLang& lang);
    /// Behind the last one for a new language.
    std::size_t ColumnOf(const std::string& language, const std::vector<int>& taken) const;
    TTransTable& At(TTransRow row) { return tables_[static_cast<std::size_t>(row.Table)]; }
    TTransSwapped Swap(TSteps& from, TSteps& to);
    bool HasEdits(const TTransForm& form) const;
    /// What of a form Write changes.
    struct TPlan {
        TmlCustomLang* Lang;
        TLangTexts Before, After;
    };
    TPlan PlanOf(const TTransForm& form) const;

    std::vector<TTransForm> forms_;
    std::vector<TTransLanguage> languages_;
    std::vector<TTransTable> tables_;
    TStep step_;
    TSteps done_, undone_;
};

}  // namespace tml
