#include "translations/Findphrase.h"

#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "ids/Idrename.h"
#include "ids/Stridrepl.h"
#include "ids/Transeditor.h"
#include "translations/Formseries.h"

namespace tml {
namespace {

const std::string kFindFormKey = "\\Software\\Velmora\\TmlLang\\FindForm";
const std::vector<TListColumn> kPhraseColumns{{"File Name:", 270}, {"Property:", 100}, {"Line:", 70},
                                              {"Location:", 100},  {"Key:", 130},      {"Text:", 230}};
constexpr TShortCut kEnterKey = 0x0D;
/// What would replace all the rest without asking; no button gives it.
constexpr int kReplaceAll = 12;

/// Line breaks and the like are blanks in a row of the list.
std::string WithoutBreaks(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

struct TPhraseID {
    std::string FormName, OldID, NewID;
};

/// Goes through the hits as the person answers; what is to be replaced stays.
class TPrompts {
  public:
    TPrompts(TContext& context, const TPhrase& phrase)
        : context_(context), phrase_(phrase), asks_(phrase.Options().Prompt) {}

    std::vector<TFormPhrases> Taken(std::vector<TFormPhrases> forms) {
        std::vector<TFormPhrases> taken;
        for (std::size_t i = 0; i < forms.size() && !ended_; ++i) {
            std::erase_if(forms[i].Hits, [&](const TPhraseHit& hit) { return !Takes(forms[i], hit); });
            if (!forms[i].Hits.empty()) taken.push_back(std::move(forms[i]));
        }
        return taken;
    }

  private:
    bool Takes(const TFormPhrases& form, const TPhraseHit& hit) {
        if (ended_ || !asks_) return !ended_;
        TfrmReplConfirm confirm(form, hit, phrase_.Replaced(hit.Text));
        const int answer = context_.Dialogs().ShowModal(confirm);
        ended_ = answer == mrCancel;
        asks_ = answer != kReplaceAll;
        return answer != mrCancel && answer != mrNo;
    }

    TContext& context_;
    const TPhrase& phrase_;
    bool asks_;
    bool ended_ = false;
};

void Tell(TContext& context, const std::string& text) {
    context.Dialogs().MessageDlg(text, TMsgDlgType::mtInformation, {mrOk});
}

std::size_t CountHits(const std::vector<TFormPhrases>& forms) {
    std::size_t count = 0;
    for (const TFormPhrases& form : forms)
        count += form.Hits.size();
    return count;
}

void TellReplaced(TContext& context, std::size_t count, const std::vector<TFormPhrases>& left) {
    std::string list;
    for (const TFormPhrases& form : left)
        for (const TPhraseHit& hit : form.Hits)
            list += Format("\r\n%s %s %s", form.FormName, hit.Property(), hit.Key);
    if (!list.empty())
        list = "\r\nThese identifiers are names of components or would be empty; they stay:" + list;
    Tell(context, Format(count == 1 ? "%d occurrence was replaced.%s" : "%d occurrences were replaced.%s",
                         count, list));
}

/// Another ID in the component, then in the units that the person chooses.
void ChangeID(TContext& context, const TPhraseID& id) {
    TIDRename rename{id.FormName, id.OldID, id.NewID, {}, true};
    RenameIDInForms(context, rename);
    OnChangeStrID(context, id.FormName, id.OldID, id.NewID);
}

}  // namespace

// --- the windows

TfrmFind::TfrmFind(bool replaces) : ReplaceVisible(replaces) {
    Name = "frmFind";
    Caption = "Find Phrase";
    ActiveControl = "edFindText";
}

TPhraseOptions TfrmFind::Options() const {
    return {edFindText, edReplace, ckbSensit, ckbWhole, ckbIdent, ckbDoPrompt};
}

TfrmReplConfirm::TfrmReplConfirm(const TFormPhrases& form, const TPhraseHit& hit, std::string result)
    : lblFileName(form.FileName),
      lblProperty(hit.Property()),
      lblLocation(hit.Location(form.Languages)),
      memCurrent(hit.Text),
      memResult(std::move(result)) {
    Name = "frmReplConfirm";
    Caption = "Replace Confirmation";
}

std::string TFoundPhraseRow::Cell(std::size_t column) const {
    switch (column) {
        case fpFileName:
            return FileName;
        case fpProperty:
            return std::string(Hit.Property());
        case fpLine:
            return std::to_string(Hit.Entry);
        case fpLocation:
            return Location;
        case fpKey:
            return Hit.Key;
        case fpText:
            return WithoutBreaks(Hit.Text);
        default:
            return {};
    }
}

TfrmFoundPhrases::TfrmFoundPhrases(TContext& context) : context_(context) {
    Name = "frmFoundPhrases";
    Caption = "TmlLang Find Phrase";
    ActiveControl = "lvIDs";
    ClientWidth = 550;
    ClientHeight = 200;
    Placement.Left = 100;
    Placement.Top = 350;
    lvIDs.Columns = kPhraseColumns;
}

bool TfrmFoundPhrases::HasDesignWidths() const {
    return std::ranges::equal(lvIDs.Columns, kPhraseColumns, {}, &TListColumn::Width, &TListColumn::Width);
}

void TfrmFoundPhrases::FormShow() {
    ReadPlacement(*context_.Host.Registry, kFindFormKey, Placement);
}

void TfrmFoundPhrases::FormClose() {
    WritePlacement(*context_.Host.Registry, kFindFormKey, Placement);
}

void TfrmFoundPhrases::Fill(const std::vector<TFormPhrases>& found) {
    lvIDs.Clear();
    for (const TFormPhrases& form : found)
        for (const TPhraseHit& hit : form.Hits)
            lvIDs.Add(form.FileName, hit, hit.Location(form.Languages));
    Changed();
}

void TfrmFoundPhrases::LVIDsDblClick() {
    const TFoundPhraseRow* row = lvIDs.FirstSelected();
    if (row == nullptr) return;
    const TPhraseHit hit = row->Hit;
    OpenTransEditor(context_, row->FileName, [&hit](TmlCustomLang&) {
        return TTransEditorPlace{hit.Table, hit.Entry, hit.Field - 1};
    });
}

void TfrmFoundPhrases::LVIDsKeyDown(TShortCut key) {
    if (key == kEnterKey) LVIDsDblClick();
}

// --- the commands

void Findword1Click(TContext& context, TPhrasesMemory& memory) {
    const std::vector<TFormRow*> rows = SelectedRows(context);
    if (rows.empty()) return;
    TfrmFind find(false);
    if (context.Dialogs().ShowModal(find) != mrOk) return;
    if (memory.Found == nullptr) memory.Found = std::make_unique<TfrmFoundPhrases>(context);
    memory.Found->ModalResult = mrNone;
    memory.Found->Fill(FindPhrase(context, rows, TPhrase(find.Options())));
    if (memory.Found->lvIDs.Count() > 0) context.Dialogs().Show(*memory.Found);
}

void Replacephrase1Click(TContext& context) {
    const std::vector<TFormRow*> rows = SelectedRows(context);
    if (rows.empty()) return;
    TfrmFind find(true);
    const TModalResult answer = context.Dialogs().ShowModal(find);
    if (answer != mrOk && answer != mrYes) return;
    const TPhrase phrase(find.Options());
    std::vector<TFormPhrases> found = FindPhrase(context, rows, phrase);
    const bool hasTables =
        std::any_of(rows.begin(), rows.end(), [](const TFormRow* row) { return row->HasComponent(); });
    if (found.empty() && hasTables) Tell(context, Format("'%s' was not found.", find.edFindText));
    const std::vector<TFormPhrases> taken = TPrompts(context, phrase).Taken(std::move(found));
    if (taken.empty()) return;
    std::vector<TPhraseID> ids;
    const auto left =
        ReplacePhrase(context, taken, phrase,
                      [&ids](const std::string& form, const std::string& old, const std::string& id) {
                          ids.push_back({form, old, id});
                      });
    // An ID that is taken does not keep the others from it.
    TAllSteps steps;
    std::size_t changed = CountHits(taken) - CountHits(left) - ids.size();
    for (const TPhraseID& id : ids)
        steps.Try([&] {
            ChangeID(context, id);
            ++changed;
        });
    TellReplaced(context, changed, left);
    steps.Finish();
}

}  // namespace tml
