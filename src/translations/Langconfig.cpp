#include "translations/Langconfig.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "tables/Languages.h"
#include "windows/Boxes.h"

namespace tml {
namespace {

constexpr const char* kInputCaption = "TmlLang Expert configure languages";
constexpr const char* kInputPrompt = "Enter new language name:";

int NumberOf(const std::string& text) {
    try {
        return std::min(ToInteger(text), kMostLanguages);
    } catch (const EConvertError&) {
        return 0;
    }
}

}  // namespace

TfrmLangConfig::TfrmLangConfig(IDialogs& dialogs, const std::string& defaultNames, const TStringList& names)
    : lbLangNames(names), dialogs_(dialogs), defaultNames_(SplitLangNames(defaultNames)) {
    Name = "frmLangConfig";
    Caption = "Configure Languages";
    for (int place = 1; place <= names.Count(); ++place)
        formerPlaces_.Add(std::to_string(place));
    edLangCountChange(std::to_string(names.Count()));
}

std::vector<int> TfrmLangConfig::FormerPlaces() const {
    std::vector<int> places;
    for (const std::string& place : formerPlaces_)
        places.push_back(place.empty() ? 0 : ToInteger(place));
    return places;
}

void TfrmLangConfig::edLangCountChange(const std::string& text) {
    if (text.find_first_not_of("0123456789") != std::string::npos) return;
    edLangCount = text;
    CountChanged();
}

void TfrmLangConfig::Step(int tag) {
    const int count = NumberOf(edLangCount) + tag;
    if (count >= 1) edLangCountChange(std::to_string(count));
}

void TfrmLangConfig::CountChanged() {
    const int count = NumberOf(edLangCount);
    btOKEnabled = count >= 1;
    while (lbLangNames.Count() < count) {
        const int i = lbLangNames.Count();
        const bool hasDefault = defaultNames_.Count() > i && lbLangNames.IndexOf(defaultNames_[i]) < 0;
        lbLangNames.Add(hasDefault ? defaultNames_[i] : GeneratedLangName(i + 1));
    }
    while (formerPlaces_.Count() < lbLangNames.Count())
        formerPlaces_.Add("");
    Selected.resize(lbLangNames.Items().size());
    Changed();
}

void TfrmLangConfig::Move(void (*move)(TStringList&, std::vector<bool>&)) {
    std::vector<bool> selected = Selected;
    move(formerPlaces_, selected);
    move(lbLangNames, Selected);
}

void TfrmLangConfig::btnMoveUpClick() {
    Move(MoveSelectedUp);
    Changed();
}

void TfrmLangConfig::btnMoveDownClick() {
    Move(MoveSelectedDown);
    Changed();
}

void TfrmLangConfig::btnRenameClick() {
    const auto selected = std::find(Selected.begin(), Selected.end(), true);
    if (selected == Selected.end()) return;
    const int index = static_cast<int>(selected - Selected.begin());
    std::string name = lbLangNames[index];
    if (!dialogs_.InputQuery(kInputCaption, kInputPrompt, name)) return;
    lbLangNames.Set(index, name);
    Changed();
}

void TfrmLangConfig::btnAddClick() {
    std::string name;
    if (!dialogs_.InputQuery(kInputCaption, kInputPrompt, name)) return;
    lbLangNames.Add(name);
    edLangCountChange(std::to_string(lbLangNames.Count()));
}

void TfrmLangConfig::btnDeleteClick() {
    if (std::find(Selected.begin(), Selected.end(), true) == Selected.end()) return;
    if (dialogs_.MessageDlg("Delete selected language name(s)?", TMsgDlgType::mtConfirmation,
                            {mrYes, mrNo}) != mrYes)
        return;
    Move(EraseSelected);
    edLangCountChange(std::to_string(lbLangNames.Count()));
}

TModalResult ConfigureLanguages(TContext& context, TStringList& names, const TConfirmLanguages& confirm) {
    TfrmLangConfig window(context.Dialogs(), context.Settings.Get().DefaultLangNames, names);
    window.OnConfirm = [&](const TfrmLangConfig& form) {
        return confirm(form.lbLangNames, form.FormerPlaces());
    };
    const TModalResult result = context.Dialogs().ShowModal(window);
    if (result == mrOk) names = window.lbLangNames;
    return result;
}

}  // namespace tml
