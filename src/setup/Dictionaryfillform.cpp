#include "setup/Dictionaryfillform.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <set>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "platform/Dictionarytool.h"
#include "tables/States.h"

namespace tml {
namespace {

using TFillAction = TActionRow<TfrmFillDictionary>;

constexpr std::array kFillActions{
    TFillAction{"acTake", "&Take", "Ins", &TfrmFillDictionary::acTake, &TfrmFillDictionary::HasRow,
                "The selected texts are written"},
    TFillAction{"acLeaveOut", "&Leave out", "Del", &TfrmFillDictionary::acLeaveOut,
                &TfrmFillDictionary::HasRow, "The selected texts stay as they are"},
    TFillAction{"acTakeAll", "Take &all", "", &TfrmFillDictionary::acTakeAll, &TfrmFillDictionary::HasRow},
    TFillAction{"acHelp", "&Help", "F1", nullptr, nullptr, "", "", true},
};

std::string_view StateNameOf(const TTableValue& value) {
    return NameOf(IsInDoubt(value) ? TTextState::Touched : TTextState::Done);
}

/// Of the forms' languages those that can be filled.
TStringList LanguagesToFill(const std::vector<TFormTables>& forms) {
    TStringList languages;
    for (const TFormTables& form : forms)
        for (int i = 1; i < form.Languages.Count(); ++i)
            if (languages.IndexOf(form.Languages[i]) < 0) languages.Add(form.Languages[i]);
    return languages;
}

/// What the dictionary calls the forms' base language.
int BaseOf(const std::vector<TFormTables>& forms, const TDictionary& dictionary,
           ImlLangProjectSettings* settings) {
    const std::string named = settings == nullptr ? std::string() : DictionaryBaseOf(*settings);
    if (!named.empty()) return dictionary.LanguageOf(named);
    const auto form = std::find_if(forms.begin(), forms.end(),
                                   [](const TFormTables& one) { return !one.Languages.Empty(); });
    return form == forms.end() ? -1 : dictionary.LanguageOf(form->Languages[0]);
}

}  // namespace

TfrmFillDictionary::TfrmFillDictionary(std::vector<TFormTables> forms, const TDictionary& dictionary,
                                       std::string fileName, ImlLangProjectSettings* settings)
    : forms_(std::move(forms)), dictionary_(dictionary), fileName_(std::move(fileName)) {
    Name = "frmFillDictionary";
    Caption = "Fill from Dictionary";
    ActiveControl = "grFills";
    ClientWidth = 820;
    ClientHeight = 480;
    SetUpGrid();
    if (settings != nullptr) Options = DictionaryOptionsOf(*settings);
    cbBase = {dictionary_.Languages, BaseOf(forms_, dictionary_, settings)};
    cbTranslation.Items = dictionary_.Languages;
    cbLanguage = LanguageBox();
    cbLanguageChange();
}

void TfrmFillDictionary::SetUpGrid() {
    grFills.Columns = {{.Caption = "Form", .Width = 75},
                       {.Caption = "Key", .Width = 115},
                       {.Caption = "Base text", .Width = 140, .MarksBlanks = true},
                       {.Caption = "Present text", .Width = 130, .MarksBlanks = true},
                       {.Caption = "New text", .Width = 140, .MarksBlanks = true},
                       {.Caption = "State", .Width = 55}};
    grFills.Cell = [this](int row, int column) { return Cell(row, column); };
    grFills.Look = [this](int row) {
        TGridLook look;
        look.Grey = !rows_[static_cast<std::size_t>(row)].IsTaken;
        if (look.Grey) look.StruckColumn = dfNew;
        return look;
    };
    grFills.OnChange = [this] { Changed(); };
    Actions.All = BindActions<TfrmFillDictionary>(*this, kFillActions);
    Actions.ToolBar = {"acTake", "acLeaveOut", "acTakeAll", "", "acHelp"};
    Actions.Popup = {"acTake", "acLeaveOut", "acTakeAll"};
}

TChoiceBox TfrmFillDictionary::LanguageBox() const {
    TChoiceBox box{LanguagesToFill(forms_), -1};
    const auto isKnown = [&](const std::string& name) { return dictionary_.LanguageOf(name) >= 0; };
    const auto known = std::find_if(box.Items.begin(), box.Items.end(), isKnown);
    if (known != box.Items.end())
        box.ItemIndex = static_cast<int>(known - box.Items.begin());
    else if (!box.Items.Empty())
        box.ItemIndex = 0;
    return box;
}

void TfrmFillDictionary::cbLanguageChange() {
    cbTranslation.ItemIndex = dictionary_.LanguageOf(cbLanguage.Text());
    OptionsChange();
}

void TfrmFillDictionary::OptionsChange() {
    fills_.clear();
    rows_.clear();
    Problems.clear();
    for (const auto* box : {&cbLanguage, &cbBase, &cbTranslation})
        if (box->ItemIndex < 0) Problems = "Choose the languages of the dictionary.";
    if (Problems.empty()) PlanForms();
    std::vector<int> ids(rows_.size());
    std::iota(ids.begin(), ids.end(), 0);
    grFills.Assign(std::move(ids));
    ShowStatus();
}

void TfrmFillDictionary::PlanForms() {
    TDictionaryFiller filler(dictionary_, fileName_, {cbLanguage.Text(), cbBase.Text(), cbTranslation.Text()},
                             Options);
    for (const TFormTables& form : forms_) {
        std::string problem = form.Problem + form.Hindrance;
        try {
            if (form.Problem.empty()) fills_.push_back(filler.Plan(form));
        } catch (const EBadInput& error) {
            problem = error.what();
        }
        if (!problem.empty()) Problems += (Problems.empty() ? "" : "\n") + problem;
    }
    for (std::size_t form = 0; form < fills_.size(); ++form)
        for (std::size_t fill = 0; fill < fills_[form].Fills.size(); ++fill)
            rows_.push_back({form, fill});
}

void TfrmFillDictionary::ShowStatus() {
    TDictionaryCounts counts;
    for (const TFormFills& form : fills_)
        counts += form.Counts;
    const auto taken = std::count_if(rows_.begin(), rows_.end(), [](const TRow& row) { return row.IsTaken; });
    Status = Format("To be written: %d of %d. %s", taken, rows_.size(), TextOfOthers(counts));
    Changed();
}

void TfrmFillDictionary::SetTaken(bool taken) {
    for (const int row : grFills.Affected())
        rows_[static_cast<std::size_t>(row)].IsTaken = taken;
    ShowStatus();
}

void TfrmFillDictionary::acTakeAll() {
    for (TRow& row : rows_)
        row.IsTaken = true;
    ShowStatus();
}

bool TfrmFillDictionary::HasTaken() const {
    return std::any_of(rows_.begin(), rows_.end(), [](const TRow& row) { return row.IsTaken; });
}

std::vector<TFormFills> TfrmFillDictionary::Taken() const {
    std::vector<TFormFills> taken = fills_;
    for (TFormFills& form : taken)
        form.Fills.clear();
    for (const TRow& row : rows_)
        if (row.IsTaken) taken[row.Form].Fills.push_back(FillOf(row));
    std::erase_if(taken, [](const TFormFills& form) { return form.Fills.empty(); });
    return taken;
}

void TfrmFillDictionary::btFillClick() {
    const std::vector<TFormFills> taken = Taken();
    const TFailedFills failed = OnFill(taken);
    for (const TFormFills& form : taken)
        if (failed.count(form.FileName) == 0) filled_ += static_cast<int>(form.Fills.size());
    if (failed.empty()) return Close(mrOk);
    DropWritten(taken, failed);
}

/// The same options give the rows of the other forms again.
void TfrmFillDictionary::DropWritten(const std::vector<TFormFills>& taken, const TFailedFills& failed) {
    std::set<std::string> written;
    for (const TFormFills& form : taken)
        if (failed.count(form.FileName) == 0) written.insert(form.FileName);
    std::erase_if(rows_, [&](const TRow& row) { return written.count(fills_[row.Form].FileName) > 0; });
    std::erase_if(forms_, [&](const TFormTables& form) { return written.count(form.FileName) > 0; });
    const std::vector<TRow> chosen = rows_;
    OptionsChange();
    for (std::size_t i = 0; i < chosen.size(); ++i)
        rows_[i].IsTaken = chosen[i].IsTaken;
    ShowStatus();
}

std::string TfrmFillDictionary::Cell(int index, int column) const {
    const TRow& row = rows_[static_cast<std::size_t>(index)];
    const TDictionaryFill& fill = FillOf(row);
    switch (column) {
        case dfForm:
            return fills_[row.Form].FormName;
        case dfKey:
            return fill.Key;
        case dfBase:
            return fill.Base;
        case dfOld:
            return fill.Old.Text;
        case dfNew:
            return fill.New.Text;
        case dfState:
            return std::string(StateNameOf(fill.New));
        default:
            return {};
    }
}

}  // namespace tml
