#include "ide/Propertytypes.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "base/Utf8.h"
#include "tables/Componentclasses.h"

namespace tml {
namespace {

/// The enumerations and the members of sets that forms hold most; a property has the first row that knows
/// what the form holds. ClassName "" for any class.
struct TEnumeration {
    std::string_view ClassName;
    std::string_view Names;
};
constexpr std::array kEnumerations{
    TEnumeration{"", "alNone alTop alBottom alLeft alRight alClient alCustom"},
    TEnumeration{"", "akLeft akTop akRight akBottom"},
    TEnumeration{"", "taLeftJustify taRightJustify taCenter"},
    TEnumeration{"", "taAlignTop taAlignBottom taVerticalCenter"},
    TEnumeration{"", "tlTop tlCenter tlBottom"},
    TEnumeration{"TControl", "bsNone bsSingle"},
    TEnumeration{"", "bsNone bsSingle bsSizeable bsDialog bsToolWindow bsSizeToolWin"},
    TEnumeration{"", "biSystemMenu biMinimize biMaximize biHelp"},
    TEnumeration{"", "bvNone bvLowered bvRaised bvSpace"},
    TEnumeration{"", "bdLeftToRight bdRightToLeft bdRightToLeftNoAlign bdRightToLeftReadingOnly"},
    TEnumeration{"", "csDropDown csSimple csDropDownList csOwnerDrawFixed csOwnerDrawVariable"},
    TEnumeration{"", "ecNormal ecUpperCase ecLowerCase"},
    TEnumeration{"", "fsBold fsItalic fsUnderline fsStrikeOut"},
    TEnumeration{"", "fsNormal fsMDIChild fsMDIForm fsStayOnTop fsSplash fsSystemStayOnTop"},
    TEnumeration{"", "fpDefault fpVariable fpFixed"},
    TEnumeration{"",
                 "bkCustom bkOK bkCancel bkHelp bkYes bkNo bkClose bkAbort bkRetry bkIgnore bkAll "
                 "bkNoToAll bkYesToAll"},
    TEnumeration{"",
                 "poDesigned poDefault poDefaultPosOnly poDefaultSizeOnly poScreenCenter "
                 "poDesktopCenter poMainFormCenter poOwnerFormCenter poWorkAreaCenter"},
    TEnumeration{"", "ssNone ssHorizontal ssVertical ssBoth ssAutoHorizontal ssAutoVertical ssAutoBoth"},
    TEnumeration{"", "wsNormal wsMinimized wsMaximized wsFullScreen"},
    TEnumeration{"", "dmManual dmAutomatic"},
    TEnumeration{"", "dkDrag dkDock"},
    TEnumeration{"", "cbUnchecked cbChecked cbGrayed"},
    TEnumeration{"", "asrTop asrBottom asrCenter"},
    TEnumeration{"", "vsIcon vsSmallIcon vsList vsReport"},
    TEnumeration{"", "tpTop tpBottom tpLeft tpRight"},
};

/// Whole numbers for which forms hold names too: the end of the property's name, the names' beginning.
constexpr std::pair<std::string_view, std::string_view> kConstants[] = {{"COLOR", "cl"}, {"CURSOR", "cr"}};

bool Holds(std::string_view names, const std::string& name) {
    const std::vector<std::string> all = WordsOf(names);
    return std::any_of(all.begin(), all.end(), [&](const std::string& one) { return SameText(one, name); });
}

std::string_view EnumerationOf(std::string_view className, const std::vector<std::string>& held) {
    for (const TEnumeration& row : kEnumerations)
        if (!held.empty() && (row.ClassName.empty() || ComponentInheritsFrom(className, row.ClassName)) &&
            std::all_of(held.begin(), held.end(),
                        [&](const std::string& name) { return Holds(row.Names, name); }))
            return row.Names;
    return {};
}

std::string_view ConstantsOf(std::string_view property) {
    const std::string upper = UpperCase(property);
    for (const auto& [end, names] : kConstants)
        if (upper.ends_with(end)) return names;
    return {};
}

bool IsEvent(std::string_view property) {
    return property.size() > 2 && property.starts_with("On") && property[2] >= 'A' && property[2] <= 'Z';
}

TPropertyType TypeByName(std::string_view className, std::string_view property, const std::string& held) {
    if (SameText(held, "True") || SameText(held, "False")) return {TTakes::Boolean};
    if (IsEvent(property)) return {TTakes::Method};
    const std::string_view constants = ConstantsOf(property);
    if (!constants.empty() && held.starts_with(constants)) return {TTakes::Integer, std::string(constants)};
    const std::string_view names = EnumerationOf(className, {held});
    return names.empty() ? TPropertyType{TTakes::Name} : TPropertyType{TTakes::OneOf, std::string(names)};
}

std::vector<std::string> TextsOf(const std::vector<TFormValue>& items) {
    std::vector<std::string> texts;
    std::transform(items.begin(), items.end(), std::back_inserter(texts),
                   [](const TFormValue& item) { return item.Text; });
    return texts;
}

}  // namespace

std::vector<std::string> WordsOf(std::string_view words) {
    std::istringstream stream{std::string(words)};
    std::vector<std::string> result;
    for (std::string word; stream >> word;)
        result.push_back(word);
    return result;
}

const std::vector<TOfferedProperty>& OfferedProperties() {
    static const std::vector<TOfferedProperty> kOffered = {
        {"TControl", "Enabled ShowHint Visible", {TTakes::Boolean}},
        {"TControl", "Hint", {TTakes::String}},
        {"TmlCustomLang", "NumOfLanguages", {TTakes::Integer}},
        {"TmlCustomLang", "LangNames", {TTakes::Strings}},
        {"TmlCustomLang", "Language", {TTakes::String}},
        {"TmlCustomLang", "Dispatcher", {TTakes::Component, "TmlLangDispatcher"}},
        {"TmlCustomLang", "IgnoreRemovals MirrorLayout", {TTakes::Boolean}},
        {"TmlCustomLang", "OnChangeLanguage OnMissing OnKept", {TTakes::Method}},
        // The lines of the tables are written with it, and the states belong to them.
        {"TmlCustomLang", "Delimiter States", {TTakes::Nothing}},
        {"TmlLangRT", "FileName", {TTakes::String}},
        {"TmlLangLinked", "CommonContainer", {TTakes::Component, "TmlCustomLang"}},
        {"TmlLangDispatcher", "NumOfLanguages", {TTakes::Integer}},
        {"TmlLangDispatcher", "LangNames", {TTakes::Strings}},
        {"TmlLangDispatcher", "Language", {TTakes::String}},
        {"TmlLangDispatcher", "OnChangeLanguage", {TTakes::Method}},
        {"TmlLabel", "Caption TextID", {TTakes::String}},
        {"TmlLabel", "Lang", {TTakes::Component, "TmlCustomLang"}},
        {"TmlFormStorage", "Active StorePlace", {TTakes::Boolean}},
        {"TmlFormStorage", "FileName", {TTakes::String}},
        {"TmlFormStorage", "StoredProperties", {TTakes::Strings}},
        {"TmlLangCombo", "Languages", {TTakes::Component, "TmlCustomLang TmlLangDispatcher"}},
        {"TmlLangCombo", "Images", {TTakes::Component, "TCustomImageList TImageList"}},
        {"TOpenDialog", "DefaultExt FileName Filter InitialDir Title", {TTakes::String}},
        {"TmlBrowseForFolder", "Folder Title", {TTakes::String}},
        {"TmlTaskDialog", "Caption Text Title", {TTakes::String}},
    };
    return kOffered;
}

TPropertyType TypeByValue(std::string_view className, std::string_view property, const TFormValue& held) {
    switch (held.Kind) {
        case TFormValueKind::Integer:
            return SameText(property, "Tag")
                       ? TPropertyType{TTakes::Long}
                       : TPropertyType{TTakes::Integer, std::string(ConstantsOf(property))};
        case TFormValueKind::Float:
            return {TTakes::Float};
        case TFormValueKind::String:
            return {TTakes::String};
        case TFormValueKind::Identifier:
            return TypeByName(className, property, held.Text);
        case TFormValueKind::Set:
            return {TTakes::SetOf, std::string(EnumerationOf(className, TextsOf(held.Items)))};
        default:
            return {};
    }
}

}  // namespace tml
