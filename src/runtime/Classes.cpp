#include "runtime/Classes.h"

#include <algorithm>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr TRuntimeClass kClasses[] = {
    {"TmlCustomLang", "TComponent", "Mllang", false,
     "NumOfLanguages LangNames Language Delimiter Dispatcher IgnoreRemovals MirrorLayout Captions Hints "
     "DisplayLabels Fonts MultiLines DlgsCaptions Strings OtherStrings Locales Collections CharSets States "
     "DoNotTranslate ExcludedProperties SmartExcludeProps ExtendedTranslations OnChangeLanguage OnMissing "
     "OnKept"},
    {"TmlLang", "TmlCustomLang", "Mllang", true, ""},
    {"TmlLangRTSE", "TmlLangRT", "Mllangrtse", true, ""},
    {"TmlLangRT", "TmlCustomLang", "Mllangrt", true, "FileName"},
    {"TmlLangLinked", "TmlCustomLang", "Mllanglinked", true, "CommonContainer"},
    {"TmlLangTLV", "TmlCustomLang", "Mllangtlv", true, "ListView_TreeView_Items"},
    {"TmlLangDispatcher", "TComponent", "Mllangdispatcher", true,
     "NumOfLanguages LangNames Language OnChangeLanguage"},
    {"TmlLabel", "TLabel", "Mllabel", true, "Lang TextID"},
    {"TmlFormStorage", "TComponent", "Mlformstorage", true, "Active FileName StorePlace StoredProperties"},
    {"TmlLangChangeLanguage", "TAction", "Mllangactions", false, "Language Languages Remember"},
    {"TmlLangCombo", "TComboBox", "Mllangcombo", true, "Images LanguageInfos Languages"},
    {"TmlOpenDialog", "TOpenDialog", "Mldialogs", true, ""},
    {"TmlSaveDialog", "TSaveDialog", "Mldialogs", true, ""},
    {"TmlOpenPictureDialog", "TOpenPictureDialog", "Mldialogs", true, ""},
    {"TmlSavePictureDialog", "TSavePictureDialog", "Mldialogs", true, ""},
    {"TmlFontDialog", "TFontDialog", "Mldialogs", true, ""},
    {"TmlColorDialog", "TColorDialog", "Mldialogs", true, ""},
    {"TmlPrintDialog", "TPrintDialog", "Mldialogs", true, ""},
    {"TmlPrinterSetupDialog", "TPrinterSetupDialog", "Mldialogs", true, ""},
    {"TmlFindDialog", "TFindDialog", "Mldialogs", true, ""},
    {"TmlReplaceDialog", "TReplaceDialog", "Mldialogs", true, ""},
    {"TmlBrowseForFolder", "TComponent", "Mldialogs", true, "Folder"},
    {"TmlTaskDialog", "TComponent", "Mldialogs", true, ""},
};

/// Every class of the suite begins with "Tml", in any case.
bool HasPrefix(std::string_view name) {
    return name.size() > 2 && (name[1] == 'm' || name[1] == 'M') && (name[2] == 'l' || name[2] == 'L');
}

}  // namespace

const TRuntimeClass* FindRuntimeClass(std::string_view name) {
    // Asked of every component of a form; most are none of the suite's.
    if (!HasPrefix(name)) return nullptr;
    const auto* found = std::find_if(std::begin(kClasses), std::end(kClasses), [&](const TRuntimeClass& row) {
        return row.Name.size() == name.size() && SameText(row.Name, name);
    });
    return found == std::end(kClasses) ? nullptr : found;
}

bool ClassInheritsFrom(std::string_view name, std::string_view ancestor) {
    for (const TRuntimeClass* row = FindRuntimeClass(name); row != nullptr;
         row = FindRuntimeClass(row->Ancestor))
        if (SameText(row->Name, ancestor) || SameText(row->Ancestor, ancestor)) return true;
    return false;
}

const std::vector<std::string>& LangClassNames() {
    static const std::vector<std::string> names = {"TmlLang", "TmlLangRTSE", "TmlLangRT", "TmlLangLinked",
                                                   "TmlLangTLV"};
    return names;
}

}  // namespace tml
