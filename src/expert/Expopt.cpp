#include "expert/Expopt.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "tables/Textmethods.h"

namespace tml {
namespace {

constexpr const char* kInputCaption = "TmlLang Expert default languages";
constexpr const char* kInputPrompt = "Enter new language name:";
constexpr int kPages = 3;

/// The controls that others send the person to.
struct TControlPage {
    std::string_view Control;
    TfrmOptions::TPage Page;
};
constexpr std::array kControlPages{TControlPage{"edExcludeChars", TfrmOptions::ExcludeAndSkip},
                                   TControlPage{"memSkipLines", TfrmOptions::ExcludeAndSkip},
                                   TControlPage{"memSkipWords", TfrmOptions::ExcludeAndSkip}};

constexpr int kMost = 255;
constexpr int kFewestPreviewLines = 5;

template <typename Names>
TChoiceBox ChoiceOf(const Names& names, const std::string& chosen) {
    TChoiceBox box;
    for (const std::string_view name : names)
        box.Items.Add(std::string(name));
    const auto found = std::find(box.Items.begin(), box.Items.end(), chosen);
    if (found != box.Items.end()) box.ItemIndex = static_cast<int>(found - box.Items.begin());
    return box;
}

int NumberOr(const std::string& text, int otherwise) {
    try {
        return ToInteger(text);
    } catch (const EConvertError&) {
        return otherwise;
    }
}

std::string Stepped(const std::string& text, int step, int low, int high) {
    const long long number = static_cast<long long>(NumberOr(text, low)) + step;
    return std::to_string(std::clamp<long long>(number, low, high));
}

ICommonLibrary* CommonLibraryOf(TContext& context) {
    ICommonLibraryLoader* loader = context.Host.CommonLibrary;
    return loader == nullptr ? nullptr : loader->Load();
}

}  // namespace

TfrmOptions::TfrmOptions(TContext& context) : context_(context) {
    Name = "frmOptions";
    Caption = "Options";
    FillGeneral();
    FillSourceStrings();
    FillExcludeAndSkip();
}

// --- filling

void TfrmOptions::FillGeneral() {
    const TSettingValues& settings = context_.Settings.Get();
    if (settings.DefaultComp.empty()) context_.Settings.SetDefaultComp("TmlLang");
    cbMenuSection = ChoiceOf(kMenuSections, settings.MenuSection);
    hkShortCut = settings.ShortCut;
    edNumLang = std::to_string(settings.NumLang);
    ckbOpenAllForms = settings.OpenAllForms;
    cbDefaultComp = ChoiceOf(context_.Host.Runtime->NamesArray(), settings.DefaultComp);
    lbLanguages = TNamesBox(SplitLangNames(settings.DefaultLangNames));
}

void TfrmOptions::FillSourceStrings() {
    const TSettingValues& settings = context_.Settings.Get();
    edPreviewLines = std::to_string(settings.PreviewLines);
    edIgnoredLength = std::to_string(settings.IgnorableLength);
    cbGetTextMethod = ChoiceOf(mlLangGetTextMethods, settings.ReplaceMethod);
    cbGetTextMethod.ItemIndex = std::max(cbGetTextMethod.ItemIndex, 0);
    edCommentsLength = std::to_string(settings.CommentsLength);
    ckbAddFormName = settings.AddFormName;
    ckbNoComments = settings.NoCommentsInSources;
    CommentsLengthEnabled = !ckbNoComments;
    edHCPrefix = settings.HCPrefix;
    ckbIDsFromTexts = settings.IDsFromTexts;
    edCnstPrefix = settings.CnstPrefix;
    rgPermanentPart = settings.CnstPermanent != 0 ? 1 : 0;
    ckbEmptyConsts = settings.EmptyConstsValues;
}

void TfrmOptions::FillExcludeAndSkip() {
    const TSettingValues& settings = context_.Settings.Get();
    edExcludeChars = settings.ExcludeChars;
    memSkipLines = settings.SkipLines;
    memSkipWords = settings.SkipWords;
    ckbUseRegExp = settings.UseRegExpForSkip;
    CheckRegExp();
}

// --- while it is open

void TfrmOptions::ShowPage(TPage page) {
    ActivePage = page;
    Changed();
}

void TfrmOptions::NextPage() {
    ShowPage(static_cast<TPage>((ActivePage + 1) % kPages));
}

void TfrmOptions::StepNumLang(int step) {
    edNumLang = Stepped(edNumLang, step, 1, kMost);
    Changed();
}

void TfrmOptions::StepPreviewLines(int step) {
    // Only the way down has an end: a small number that was typed grows by one.
    const int number = NumberOr(edPreviewLines, kFewestPreviewLines);
    const int fewer = std::max(number, kFewestPreviewLines + 1) - 1;
    const int more = std::min(number, std::numeric_limits<int>::max() - 1) + 1;
    edPreviewLines = std::to_string(step < 0 ? fewer : more);
    Changed();
}

void TfrmOptions::StepIgnoredLength(int step) {
    edIgnoredLength = Stepped(edIgnoredLength, step, 0, kMost);
    Changed();
}

void TfrmOptions::StepCommentsLength(int step) {
    edCommentsLength = Stepped(edCommentsLength, step, 0, kMost);
    Changed();
}

void TfrmOptions::edIgnoredLengthChange(const std::string& text) {
    if (text.find_first_not_of("0123456789") == std::string::npos) edIgnoredLength = text;
    Changed();
}

void TfrmOptions::ckbNoCommentsClick() {
    CommentsLengthEnabled = !ckbNoComments;
    Changed();
}

void TfrmOptions::memSkipWordsChange() {
    CheckRegExp();
    Changed();
}

void TfrmOptions::CheckRegExp() {
    RegExpEnabled = !Trim(memSkipWords.Text()).empty();
    ckbUseRegExp = ckbUseRegExp && RegExpEnabled;
}

// --- the language names

void TfrmOptions::btAddClick() {
    std::string name;
    if (!context_.Dialogs().InputQuery(kInputCaption, kInputPrompt, name)) return;
    lbLanguages.Items.Add(name);
    lbLanguages.Selected.push_back(false);
    Changed();
}

void TfrmOptions::btRenameClick() {
    const auto selected = std::find(lbLanguages.Selected.begin(), lbLanguages.Selected.end(), true);
    if (selected == lbLanguages.Selected.end()) return;
    const auto index = static_cast<int>(selected - lbLanguages.Selected.begin());
    std::string name = lbLanguages.Items[index];
    if (!context_.Dialogs().InputQuery(kInputCaption, kInputPrompt, name)) return;
    lbLanguages.Items.Set(index, name);
    Changed();
}

void TfrmOptions::btDeleteClick() {
    if (!lbLanguages.HasSelection()) return;
    if (context_.Dialogs().MessageDlg("Delete selected language name(s)?", TMsgDlgType::mtConfirmation,
                                      {mrYes, mrNo}) != mrYes)
        return;
    EraseSelected(lbLanguages.Items, lbLanguages.Selected);
    Changed();
}

void TfrmOptions::btMoveUpClick() {
    MoveSelectedUp(lbLanguages.Items, lbLanguages.Selected);
    Changed();
}

void TfrmOptions::btMoveDownClick() {
    MoveSelectedDown(lbLanguages.Items, lbLanguages.Selected);
    Changed();
}

// --- closing

void TfrmOptions::Store() {
    TExpertSettings& settings = context_.Settings;
    settings.SetShortCut(hkShortCut);
    settings.SetNumLang(ToInteger(edNumLang));
    settings.SetMenuSection(cbMenuSection.Text());
    settings.SetIgnorableLength(ToInteger(edIgnoredLength));
    settings.SetDefaultComp(cbDefaultComp.Text());
    settings.SetOpenAllForms(ckbOpenAllForms);
    settings.SetHCPrefix(edHCPrefix);
    settings.SetCnstPrefix(edCnstPrefix);
    settings.SetCnstPermanent(rgPermanentPart);
    settings.SetAddFormName(ckbAddFormName);
    settings.SetReplaceMethod(cbGetTextMethod.Text());
    settings.SetDefaultLangNames(lbLanguages.Items.Text());
    settings.SetCommentsLength(ToInteger(edCommentsLength));
    settings.SetEmptyConstsValues(ckbEmptyConsts);
    settings.SetExcludeChars(edExcludeChars);
    settings.SetSkipLines(memSkipLines);
    settings.SetSkipWords(memSkipWords);
    settings.SetUseRegExpForSkip(RegExpEnabled && ckbUseRegExp);
    settings.SetPreviewLines(NumberOr(edPreviewLines, kFewestPreviewLines));
    settings.SetNoCommentsInSources(ckbNoComments);
    settings.SetIDsFromTexts(ckbIDsFromTexts);
}

bool TfrmOptions::CheckPrefixes() {
    try {
        CheckSettingText(*FindSetting("HCPrefix"), edHCPrefix, {});
        CheckSettingText(*FindSetting("CnstPrefix"), edCnstPrefix, {});
    } catch (const EBadInput& error) {
        context_.Dialogs().MessageDlg(error.what(), TMsgDlgType::mtError, {mrOk});
        return false;
    }
    return true;
}

void TfrmOptions::btOKClick() {
    if (!CheckPrefixes()) return;
    Store();
    const TStringList broken =
        ckbUseRegExp ? BrokenPatterns(CommonLibraryOf(context_), memSkipWords) : TStringList();
    if (!broken.Empty())
        context_.Dialogs().MessageDlg(
            Format("These phrases are no regular expressions and match as plain phrases only:\r\n%s",
                   broken.Text()),
            TMsgDlgType::mtInformation, {mrOk});
    Close(mrOk);
}

void TfrmOptions::btCancelClick() {
    Close(mrCancel);
}

void sbOptionsClick(TContext& context) {
    OpenOptionsAt(context, {});
}

void OpenOptionsAt(TContext& context, const std::string& control) {
    TfrmOptions window(context);
    const auto* place = std::find_if(kControlPages.begin(), kControlPages.end(),
                                     [&](const TControlPage& each) { return each.Control == control; });
    window.FirstPage = place == kControlPages.end() ? TfrmOptions::General : place->Page;
    window.ActiveControl = control;
    if (context.Dialogs().ShowModal(window) == mrOk && context.RebuildMenuItem) context.RebuildMenuItem();
}

}  // namespace tml
