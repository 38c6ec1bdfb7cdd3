#include "translations/Phrases.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "tables/States.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

constexpr const char* kPhraseTitle = "Replace Phrase";

/// The text of a field, "" where the entry has not so many.
const std::string& FieldOf(const TTableEntry& entry, int field) {
    static const std::string kNone;
    if (field == 1) return entry.Key;
    const auto index = static_cast<std::size_t>(field) - 2;
    return index < entry.Values.size() ? entry.Values[index].Text : kNone;
}

/// A new base text puts the translations in doubt.
void SetBase(TTable& table, int entry, const std::string& text) {
    const TTableEntry before = table.Entries()[static_cast<std::size_t>(entry)];
    table.SetText(entry, 1, text);
    for (std::size_t i = 1; i < before.Values.size(); ++i) {
        const TTableValue value = WithNewBase(before.Values[i], before.Base(), text, HasStates(table.Type()));
        const int place = static_cast<int>(i) + 1;
        table.SetText(entry, place, value.Text);
        table.SetMark(entry, place, value.Mark, value.Former);
    }
}

void ReplaceTexts(TmlCustomLang& lang, const std::vector<TPhraseHit>& hits, const TPhrase& phrase) {
    std::vector<TTable> tables = lang.GetTables();
    // The base language comes first: other hits of the entry are changed as they are told.
    for (const bool isBase : {true, false})
        for (const TPhraseHit& hit : hits) {
            if (hit.Field == 1 || (hit.Field == 2) != isBase) continue;
            TTable& table = tables[static_cast<std::size_t>(hit.Table)];
            if (isBase)
                SetBase(table, hit.Entry, phrase.Replaced(hit.Text));
            else
                table.SetText(hit.Entry, hit.Field - 1, phrase.Replaced(hit.Text));
        }
    lang.EditTables(tables);
}

bool HasTexts(const TFormPhrases& form) {
    return std::any_of(form.Hits.begin(), form.Hits.end(),
                       [](const TPhraseHit& hit) { return hit.Field > 1; });
}

/// Opens the form's unit, which stays open: nothing of this is saved.
void ReplaceInForm(TContext& context, const TFormPhrases& form, const TPhrase& phrase) {
    const TFormRow* row = context.Rows.FormNames.FindFile(form.FileName);
    if (row == nullptr) row = context.Rows.ExternalFiles.FindFile(form.FileName);
    if (row == nullptr || !OpenFile(context, form.FileName, false)) throw EmlLangSilent();
    const auto lang = GetmlLang(context, *row);
    if (lang == nullptr) return;
    const auto scope = BeginCommand(context, kPhraseTitle);
    ReplaceTexts(*lang, form.Hits, phrase);
    MarkModifiedForm(context, row->FormName);
    scope->Commit();
}

/// The keys among the hits; those that cannot be changed are given back.
TFormPhrases ReplaceIDs(const TFormPhrases& form, const TPhrase& phrase, const TChangePhraseID& changeID) {
    TFormPhrases left = form;
    left.Hits.clear();
    for (const TPhraseHit& hit : form.Hits) {
        if (hit.Field != 1) continue;
        const std::string id = phrase.Replaced(hit.Key);
        if (hit.Table == TStringsType::stStrings && !id.empty())
            changeID(form.FormName, hit.Key, id);
        else
            left.Hits.push_back(hit);
    }
    return left;
}

}  // namespace

TPhrase::TPhrase(TPhraseOptions options)
    : options_(std::move(options)),
      compared_(options_.CaseSensitive ? options_.Text : UpperCase(options_.Text)) {}

std::optional<std::size_t> TPhrase::Find(std::string_view field) const {
    const std::string text = options_.CaseSensitive ? std::string(field) : UpperCase(field);
    if (options_.Whole) return text == compared_ ? std::optional<std::size_t>(0) : std::nullopt;
    if (!Contains(text, compared_)) return std::nullopt;
    return text.find(compared_);
}

std::string TPhrase::Replaced(const std::string& field) const {
    const std::optional<std::size_t> place = Find(field);
    if (!place) return field;
    std::string text = field;
    // A letter and its capital are equally long.
    return text.replace(*place, compared_.size(), options_.Replacement);
}

std::string TPhraseHit::Location(const TStringList& languages) const {
    if (Field == 1) return "Identifier";
    return Field - 2 < languages.Count() ? languages[Field - 2] : std::string();
}

std::vector<TPhraseHit> FindPhrase(const std::vector<TTable>& tables, int languages, const TPhrase& phrase) {
    std::vector<TPhraseHit> hits;
    for (const TTable& table : tables)
        for (std::size_t i = 0; i < table.Entries().size(); ++i) {
            const TTableEntry& entry = table.Entries()[i];
            for (int field = phrase.Options().Identifiers ? 1 : 2; field <= languages + 1; ++field)
                if (const std::string& text = FieldOf(entry, field); phrase.Find(text))
                    hits.push_back({table.Type(), static_cast<int>(i), field, entry.Key, text});
        }
    return hits;
}

std::vector<TFormPhrases> FindPhrase(TContext& context, const std::vector<TFormRow*>& rows,
                                     const TPhrase& phrase) {
    std::vector<TFormPhrases> found;
    for (const TFormRow* row : rows) {
        const bool wasOpen = IsFileOpen(context, row->FileName);
        if (!row->HasComponent() || !OpenFile(context, row->FileName, false)) continue;
        const TModuleLease lease(context, row->FileName, wasOpen);
        const auto lang = GetmlLang(context, *row);
        if (lang == nullptr) continue;
        TFormPhrases form{row->FormName, row->FileName, lang->GetLangNames(), {}};
        form.Hits = FindPhrase(lang->GetTables(), form.Languages.Count(), phrase);
        if (!form.Hits.empty()) found.push_back(std::move(form));
    }
    return found;
}

std::vector<TFormPhrases> ReplacePhrase(TContext& context, const std::vector<TFormPhrases>& forms,
                                        const TPhrase& phrase, const TChangePhraseID& changeID) {
    std::vector<TFormPhrases> left;
    const auto scope = BeginCommand(context, kPhraseTitle);
    TAllSteps steps;
    for (const TFormPhrases& form : forms) {
        steps.Try([&] {
            if (HasTexts(form)) ReplaceInForm(context, form, phrase);
        });
        TFormPhrases ids = ReplaceIDs(form, phrase, changeID);
        if (!ids.Hits.empty()) left.push_back(std::move(ids));
    }
    scope->Commit();
    steps.Finish();
    return left;
}

}  // namespace tml
