#include "runtime/Transtexts.h"

#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "runtime/Buildlist.h"
#include "runtime/Extended.h"
#include "runtime/Textdirection.h"

namespace tml {
namespace {

TTable ExtendedTable(const std::vector<TExtendedItem>& items) {
    TTable table(TStringsType::stOtherStrings);
    for (const TExtendedItem& item : items) {
        TTableEntry entry{item.Component + "." + item.Property, {}};
        for (const std::string& text : item.Values)
            entry.Values.push_back({text});
        table.Append(std::move(entry));
    }
    return table;
}

void Take(std::vector<TExtendedItem>& items, const TTable& table) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].Values.clear();
        for (const TTableValue& value : table.Entries()[i].Values)
            items[i].Values.push_back(value.Text);
    }
}

/// The first language (1-based) whose text or mark is another, 0 where there is none to hold it against.
int ChangedPlace(const std::optional<TTableEntry>& former, const TTableEntry* entry) {
    if (!former || entry == nullptr) return 0;
    const auto& values = entry->Values;
    const auto [other, now] =
        std::mismatch(former->Values.begin(), former->Values.end(), values.begin(), values.end());
    return now == values.end() ? 0 : static_cast<int>(now - values.begin()) + 1;
}

}  // namespace

TTransTexts::TTransTexts(const std::vector<TmlCustomLang*>& langs,
                         const std::function<bool(int forms)>& onForm) {
    const auto tell = [&] {
        if (!onForm(static_cast<int>(forms_.size()))) throw EmlLangSilent();
    };
    tell();
    for (TmlCustomLang* const lang : langs) {
        ReadForm(*lang);
        tell();
    }
    for (TTransForm& form : forms_)
        form.Places.resize(languages_.size() + 1);
}

void TTransTexts::ReadForm(TmlCustomLang& lang) {
    TLangTexts texts = ReadTexts(lang);
    TTransForm form{&lang, lang.GetComponent()->GetOwner()->GetName(), texts.Languages, {}};
    for (int place = 1; place <= form.Languages.Count(); ++place) {
        const auto column = ColumnOf(form.Languages[place - 1], form.Places);
        if (column > languages_.size())
            languages_.push_back({form.Languages[place - 1], IsRightToLeft(texts, place)});
        form.Places.resize(std::max(form.Places.size(), column + 1));
        form.Places[column] = place;
    }
    const int number = static_cast<int>(forms_.size());
    form.FirstTable = static_cast<int>(tables_.size());
    for (TTable& table : texts.Tables)
        tables_.emplace_back(number, std::move(table), form.Languages.Count());
    if (!texts.Extended.empty())
        tables_.emplace_back(number, ExtendedTable(texts.Extended), form.Languages.Count(), true);
    form.TablesEnd = static_cast<int>(tables_.size());
    forms_.push_back(std::move(form));
}

/// A form whose languages have one name has a column for each.
std::size_t TTransTexts::ColumnOf(const std::string& language, const std::vector<int>& taken) const {
    std::size_t column = 1;
    while (column <= languages_.size() && (!SameText(languages_[column - 1].Name, language) ||
                                           (column < taken.size() && taken[column] != 0)))
        ++column;
    return column;
}

const TTransForm& TTransTexts::FormOf(TTransRow row) const {
    return forms_[static_cast<std::size_t>(TableOf(row).Form())];
}

const TTableEntry* TTransTexts::Find(TTransRow row) const {
    const bool isKnown = row.Table >= 0 && row.Table < static_cast<int>(tables_.size());
    return isKnown ? TableOf(row).Find(row.Entry) : nullptr;
}

int TTransTexts::PlaceOf(TTransRow row, int column) const {
    return column < 1 ? 0 : FormOf(row).Places[static_cast<std::size_t>(column)];
}

int TTransTexts::ColumnAt(TTransRow row, int place) const {
    const std::vector<int>& places = FormOf(row).Places;
    return static_cast<int>(std::find(places.begin(), places.end(), place) - places.begin());
}

const std::string& TTransTexts::Text(TTransRow row, int column) const {
    static const std::string kNone;
    const TTableEntry* const entry = Find(row);
    if (entry == nullptr) return kNone;
    if (column == 0) return entry->Key;
    const auto place = static_cast<std::size_t>(PlaceOf(row, column));
    return place == 0 || place > entry->Values.size() ? kNone : entry->Values[place - 1].Text;
}

std::optional<TTextState> TTransTexts::State(TTransRow row, int column) const {
    const TTableEntry* const entry = Find(row);
    if (entry == nullptr || !TableOf(row).HasStates()) return std::nullopt;
    const int place = PlaceOf(row, column);
    return place < 2 ? std::nullopt : std::optional(StateOf(*entry, place));
}

TTransProgress TTransTexts::ProgressOfTable(int column, int table) const {
    const int place = PlaceOf({table, 0}, column);
    return place < 2 ? TTransProgress() : tables_[static_cast<std::size_t>(table)].Progress(place);
}

TTransProgress TTransTexts::Progress(int column, int form) const {
    TTransProgress progress;
    const int end =
        form < 0 ? static_cast<int>(tables_.size()) : forms_[static_cast<std::size_t>(form)].TablesEnd;
    for (int i = form < 0 ? 0 : forms_[static_cast<std::size_t>(form)].FirstTable; i < end; ++i)
        progress += ProgressOfTable(column, i);
    return progress;
}

// --- edits

void TTransTexts::Put(TTransRow row, std::optional<TTableEntry> entry) {
    step_.push_back({row, At(row).Put(row.Entry, std::move(entry))});
}

TTransRow TTransTexts::Add(int table, TTableEntry entry) {
    const TTransRow row{table, tables_[static_cast<std::size_t>(table)].Count()};
    Put(row, std::move(entry));
    return row;
}

void TTransTexts::EndStep() {
    if (step_.empty()) return;
    done_.push_back(std::exchange(step_, {}));
    undone_.clear();
}

TTransSwapped TTransTexts::Swap(TSteps& from, TSteps& to) {
    TTransSwapped swapped;
    if (from.empty()) return swapped;
    TStep step = std::move(from.back());
    from.pop_back();
    // Backwards, for a row may stand in a step twice.
    std::reverse(step.begin(), step.end());
    for (TEdit& edit : step) {
        swapped.Rows.push_back(edit.Row);
        if (!edit.Entry) swapped.Gone.push_back(edit.Row);
        if (Find(edit.Row) == nullptr) swapped.Come.push_back(edit.Row);
        edit.Entry = At(edit.Row).Put(edit.Row.Entry, std::move(edit.Entry));
    }
    if (!step.empty()) swapped.Place = ChangedPlace(step.back().Entry, Find(step.back().Row));
    to.push_back(std::move(step));
    return swapped;
}

void TTransTexts::RenameHere(TTransRow row, const std::string& id) {
    At(row).Rename(row.Entry, id);
    for (TStep& step : done_)
        for (TEdit& edit : step)
            if (edit.Row == row && edit.Entry) edit.Entry->Key = id;
}

void TTransTexts::Rename(TTransRow row, const std::string& id) {
    RenameHere(row, id);
    undone_.clear();
    if (!At(row).IsStored(row.Entry)) return;
    TTransForm& form = forms_[static_cast<std::size_t>(At(row).Form())];
    form.Lang->SetTable(At(row).Stored());
    form.IsChanged = true;
}

// --- writing

bool TTransTexts::HasEdits() const {
    return std::any_of(tables_.begin(), tables_.end(), [](const auto& table) { return table.HasEdits(); });
}

bool TTransTexts::HasEdits(const TTransForm& form) const {
    return std::any_of(tables_.begin() + form.FirstTable, tables_.begin() + form.TablesEnd,
                       [](const auto& table) { return table.HasEdits(); });
}

void TTransTexts::Write(const std::function<bool(int done, int all)>& goesOn) {
    const auto forms = std::count_if(forms_.begin(), forms_.end(),
                                     [this](const TTransForm& form) { return HasEdits(form); });
    const auto all = static_cast<int>(2 * forms);
    std::vector<TPlan> plans;
    const auto tell = [&] {
        if (!goesOn(static_cast<int>(plans.size()), all)) throw EmlLangSilent();
    };
    tell();
    for (const TTransForm& form : forms_) {
        if (!HasEdits(form)) continue;
        plans.push_back(PlanOf(form));
        tell();
    }
    int done = static_cast<int>(plans.size());
    for (const TPlan& plan : plans) {
        EditTexts(*plan.Lang, plan.Before, plan.After);
        goesOn(++done, all);
    }
    for (TTransForm& form : forms_)
        form.IsChanged = form.IsChanged || HasEdits(form);
}

TLangTexts TTransTexts::ShownTexts(const TTransForm& form) const {
    TLangTexts texts{form.Languages, {}, ReadExtended(*form.Lang->GetComponent())};
    for (int index = form.FirstTable; index < form.TablesEnd; ++index) {
        const TTransTable& table = tables_[static_cast<std::size_t>(index)];
        if (table.IsExtended())
            Take(texts.Extended, table.Edited());
        else
            texts.Tables.push_back(table.IsStrings() ? TTable(TStringsType::stStrings) : table.Edited());
    }
    return texts;
}

TTransTexts::TPlan TTransTexts::PlanOf(const TTransForm& form) const {
    TLangTexts before{{}, {}, ReadExtended(*form.Lang->GetComponent())};
    TLangTexts after = before;
    for (auto table = tables_.begin() + form.FirstTable; table != tables_.begin() + form.TablesEnd; ++table) {
        if (table->HasEdits() && table->IsExtended()) Take(after.Extended, table->Edited());
        if (!table->HasEdits() || table->IsExtended()) continue;
        // What the form shows follows from both; of IDs it shows nothing.
        before.Tables.push_back(table->IsStrings() ? TTable(TStringsType::stStrings) : table->Stored());
        after.Tables.push_back(table->Edited());
    }
    return {form.Lang, std::move(before), std::move(after)};
}

std::vector<TmlCustomLang*> TTransTexts::Changed() const {
    std::vector<TmlCustomLang*> changed;
    for (const TTransForm& form : forms_)
        if (form.IsChanged) changed.push_back(form.Lang);
    return changed;
}

}  // namespace tml
