#include "core/Settings.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Formrow.h"
#include "tables/Languages.h"
#include "tables/Textmethods.h"
#include "windows/Shortcuts.h"

namespace tml {
namespace {

using V = TSettingValues;
using enum TStoredAs;
using enum TReadDefault;
using enum TWriteWhen;

// The one table of settings, in the order in which they are read. "UseCustom" and "UserFile" are written
// and on purpose never read back; no setter writes "Delimiter".
constexpr std::array kSettings{
    TSetting{"MenuSection", "MenuSection", &V::MenuSection, String, Current, Differs},
    TSetting{"ShortCut", "ShortCut", &V::ShortCut, ShortCutText, Current, Differs},
    TSetting{"NumLang", "DefNumLang", &V::NumLang, DecimalText, Current, Differs},
    TSetting{"OpenAllForms", "OpenAllForms", &V::OpenAllForms, Bool, Current, Differs},
    TSetting{"DefaultComp", "DefaultComponent", &V::DefaultComp, String, Current, Differs},
    TSetting{"CnstPermanent", "CnstPermanent", &V::CnstPermanent, DecimalText, Current, Differs},
    TSetting{"CnstPrefix", "CnstPrefix", &V::CnstPrefix, String, Current, Differs},
    TSetting{"HCPrefix", "HCPrefix", &V::HCPrefix, String, Current, Differs},
    TSetting{"AddFormName", "AddFormName", &V::AddFormName, Bool, Current, Always},
    TSetting{"ReplaceMethod", "ReplaceMethod", &V::ReplaceMethod, String, Current, Always},
    TSetting{"IgnorableLength", "IgnorableLength", &V::IgnorableLength, LooseDecimalText, Fixed, Differs},
    TSetting{"SortOrder", "SortOrder", &V::SortOrder, Integer, Fixed, Always},
    TSetting{"SortedColumn", "SortedColumn", &V::SortedColumn, Integer, Fixed, Always},
    TSetting{"DefaultLangNames", "DefaultLangNames", &V::DefaultLangNames, Lines, Current, Always},
    TSetting{"CommentsLength", "CommentsLength", &V::CommentsLength, Integer, Current, Always},
    TSetting{"EmptyConstsValues", "EmptyConstsValues", &V::EmptyConstsValues, Bool, Fixed, Always},
    TSetting{"ExcludeChars", "ExcludeChars", &V::ExcludeChars, String, Current, Always},
    TSetting{"SkipLines", "SkipLines", &V::SkipLines, Lines, Fixed, Always},
    TSetting{"SkipWords", "SkipWords", &V::SkipWords, Lines, Fixed, Always},
    TSetting{"ColumnWidths", "ColumnWidths", &V::ColumnWidths, TrimmedString, Fixed, Always},
    TSetting{"LastFilterIndex", "LastFilterIndex", &V::LastFilterIndex, Integer, Fixed, Always},
    TSetting{"UseRegExpForSkip", "UseRegExpForSkip", &V::UseRegExpForSkip, Bool, Fixed, Always},
    TSetting{"PreviewLines", "PreviewLines", &V::PreviewLines, Integer, Fixed, Always},
    TSetting{"NoCommentsInSources", "NoCommentsInSources", &V::NoCommentsInSources, Bool, Fixed, Always},
    TSetting{"MultiProjFolder", "MultiProjFolder", &V::MultiProjFolder, String, Fixed, Differs},
    TSetting{"MultiProjFileName", "MultiProjFileName", &V::MultiProjFileName, String, Fixed, Differs},
    TSetting{"MultiProjTemplate", "MultiProjTemplate", &V::MultiProjTemplate, String, Fixed, Differs},
    TSetting{"MultiProjUseTemplate", "MultiProjUseTemplate", &V::MultiProjUseTemplate, Bool, Fixed, Differs},
    TSetting{"Delimiter", "Delimiter", &V::Delimiter, String, Fixed, Always, kSettingsKey},
    TSetting{"UseCustom", "UseCustom", &V::UseCustom, Bool, NeverRead, Differs},
    TSetting{"UserFile", "UserFile", &V::UserFile, String, NeverRead, Always},
    TSetting{"IDsFromTexts", "IDsFromTexts", &V::IDsFromTexts, Bool, Fixed, Differs},
};

/// Between what a number has to lie; the others take any.
struct TRange {
    std::string_view Property;
    int Least;
    int Most;
};

constexpr TRange kRanges[] = {
    {"NumLang", 1, kMostLanguages},
    {"IgnorableLength", 0, std::numeric_limits<int>::max()},
    {"CommentsLength", 0, std::numeric_limits<int>::max()},
    {"PreviewLines", 1, std::numeric_limits<int>::max()},
    {"SortOrder", -1, 1},
    {"SortedColumn", 0, fcCount - 1},
    {"LastFilterIndex", 1, std::numeric_limits<int>::max()},
};

/// These begin names that are written into sources as literals.
constexpr std::string_view kPrefixes[] = {"HCPrefix", "CnstPrefix"};

const TSettingValues kDefaults;

EBadInput Unfit(const TSetting& setting, std::string_view text, const std::string& wanted) {
    return EBadInput(
        "", 0, "'" + std::string(text) + "' is no value for the setting " + std::string(setting.Property),
        "Give " + wanted + ".");
}

// --- one setting out of the store

void ReadField(IRegistryReader& registry, const TSetting& setting, std::string& value) {
    const auto stored = registry.ReadString(std::string(setting.Key), std::string(setting.ValueName));
    if (stored) value = setting.Stored == TrimmedString ? std::string(Trim(*stored)) : *stored;
}

void ReadField(IRegistryReader& registry, const TSetting& setting, TStringList& value) {
    const auto stored = registry.ReadString(std::string(setting.Key), std::string(setting.ValueName));
    if (stored) value.SetText(*stored);
}

void ReadField(IRegistryReader& registry, const TSetting& setting, TShortCut& value) {
    const auto stored = registry.ReadString(std::string(setting.Key), std::string(setting.ValueName));
    if (stored) value = TextToShortCut(*stored);
}

void ReadField(IRegistryReader& registry, const TSetting& setting, bool& value) {
    value = registry.ReadBool(std::string(setting.Key), std::string(setting.ValueName)).value_or(value);
}

void ReadField(IRegistryReader& registry, const TSetting& setting, int& value) {
    const std::string key(setting.Key), name(setting.ValueName);
    if (setting.Stored == Integer) {
        value = registry.ReadInteger(key, name).value_or(value);
        return;
    }
    const auto stored = registry.ReadString(key, name);
    if (!stored) return;
    try {
        value = ToInteger(*stored);
    } catch (const EConvertError& error) {
        if (setting.Stored == LooseDecimalText) return;
        throw EConvertError("The setting \"" + name + "\" cannot be read: " + error.what() + ".");
    }
}

void ReadSetting(IRegistryReader& registry, const TSetting& setting, TSettingValues& values) {
    if (setting.ReadDefault == NeverRead) return;
    std::visit(
        [&](auto field) {
            if (setting.ReadDefault == Fixed) values.*field = kDefaults.*field;
            ReadField(registry, setting, values.*field);
        },
        setting.Field);
}

// --- one setting into the store

std::string StoredText(const std::string& value) {
    return value;
}
std::string StoredText(const TStringList& value) {
    return value.Text();
}
std::string StoredText(int value) {
    return std::to_string(value);
}
std::string StoredText(TShortCut value) {
    return ShortCutToText(value);
}

void WriteSetting(IRegistry& registry, const TSetting& setting, const TSettingValues& values) {
    const std::string key(setting.Key), name(setting.ValueName);
    std::visit(
        [&](auto field) {
            const auto& value = values.*field;
            if constexpr (std::is_same_v<decltype(field), bool V::*>) {
                registry.WriteBool(key, name, value);
            } else if constexpr (std::is_same_v<decltype(field), int V::*>) {
                if (setting.Stored == Integer) return registry.WriteInteger(key, name, value);
                registry.WriteString(key, name, StoredText(value));
            } else {
                registry.WriteString(key, name, StoredText(value));
            }
        },
        setting.Field);
}

// --- texts for a person

/// Line breaks as "\n"; a back slash and "n" that stand in the text get one more back slash in front.
std::string LinesToPerson(const TStringList& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (&line != &*lines.begin()) text += "\\n";
        for (std::size_t pos = 0; pos < line.size(); ++pos) {
            if (line.compare(pos, 2, "\\n") == 0) text += '\\';
            text += line[pos];
        }
    }
    return text;
}

TStringList LinesFromPerson(std::string_view text) {
    std::string lines;
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
        const bool escaped = text.substr(pos, 3) == "\\\\n";
        const bool lineBreak = text.substr(pos, 2) == "\\n";
        if (lineBreak)
            lines += "\r\n";
        else
            lines += escaped ? "\\n" : std::string(1, text[pos]);
        pos += escaped ? 2 : lineBreak ? 1 : 0;
    }
    return TStringList::FromText(lines);
}

std::string ToPerson(const TSetting& setting, const std::string& value) {
    return setting.Stored == Lines ? LinesToPerson(TStringList::FromText(value)) : value;
}
std::string ToPerson(const TSetting&, const TStringList& value) {
    return LinesToPerson(value);
}
std::string ToPerson(const TSetting&, bool value) {
    return value ? "true" : "false";
}
std::string ToPerson(const TSetting&, int value) {
    return std::to_string(value);
}
std::string ToPerson(const TSetting&, TShortCut value) {
    return ShortCutToText(value);
}

void FromPerson(const TSetting& setting, std::string_view text, std::string& value) {
    // Names without a line break between them are separated by commas.
    const bool isCommaText = text.find("\\n") == std::string_view::npos;
    value = setting.Stored != Lines ? std::string(text)
            : isCommaText           ? TStringList::FromCommaText(text).Text()
                                    : LinesFromPerson(text).Text();
}
void FromPerson(const TSetting&, std::string_view text, TStringList& value) {
    value = LinesFromPerson(text);
}
void FromPerson(const TSetting& setting, std::string_view text, bool& value) {
    value = SameText(text, "true") || text == "1";
    if (!value && !SameText(text, "false") && text != "0") throw Unfit(setting, text, "true, false, 1 or 0");
}
/// "a whole number from 1 to 10000"
std::string NumberWanted(int least, int most) {
    constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
    return "a whole number" + (least > kLeast ? " from " + std::to_string(least) : "") +
           (most < kMost ? " to " + std::to_string(most) : "");
}

void FromPerson(const TSetting& setting, std::string_view text, int& value) {
    const auto* range = std::find_if(std::begin(kRanges), std::end(kRanges),
                                     [&](const TRange& row) { return row.Property == setting.Property; });
    const bool isBound = range != std::end(kRanges);
    const int least = isBound ? range->Least : std::numeric_limits<int>::min();
    const int most = isBound ? range->Most : std::numeric_limits<int>::max();
    try {
        value = ToInteger(text);
    } catch (const EConvertError&) {
        throw Unfit(setting, text, NumberWanted(least, most));
    }
    if (value < least || value > most) throw Unfit(setting, text, NumberWanted(least, most));
}
void FromPerson(const TSetting& setting, std::string_view text, TShortCut& value) {
    value = TextToShortCut(text);
    if (value == 0 && !text.empty()) throw Unfit(setting, text, "keys like Ctrl+L, or nothing");
}

template <typename Names>
void ExpectOneOf(const Names& names, const TSetting& setting, std::string_view text) {
    if (std::find(std::begin(names), std::end(names), text) != std::end(names)) return;
    std::string all;
    for (const std::string_view name : names)
        all.append(all.empty() ? "one of " : ", ").append(name);
    throw Unfit(setting, text, all);
}

bool IsForSource(char c) {
    return c != '\'' && c != '"' && c != '\\' && static_cast<unsigned char>(c) >= ' ';
}

/// The phrases count as patterns only while the switch is on, so that either setting can spoil the other.
void ExpectPatterns(IRegistryReader& registry, const TSetting& setting, std::string_view text,
                    TSettingValues values, ICommonLibrary* common) {
    const bool isWords = setting.Property == "SkipWords";
    if (!isWords && setting.Property != "UseRegExpForSkip") return;
    ReadSetting(registry, *FindSetting(isWords ? "UseRegExpForSkip" : "SkipWords"), values);
    if (!values.UseRegExpForSkip) return;
    const TStringList broken = BrokenPatterns(common, values.SkipWords);
    if (broken.Empty()) return;
    const std::string phrases = LinesToPerson(broken);
    if (isWords) throw Unfit(setting, phrases, "regular expressions, or set UseRegExpForSkip to false first");
    throw EBadInput("", 0, "SkipWords holds '" + phrases + "', which is no regular expression",
                    "Set UseRegExpForSkip to '" + std::string(text) + "' when it is mended");
}

}  // namespace

std::span<const TSetting> AllSettings() {
    return kSettings;
}

const TSetting* FindSetting(std::string_view property) {
    const auto found = std::find_if(kSettings.begin(), kSettings.end(),
                                    [&](const TSetting& row) { return SameText(row.Property, property); });
    return found == kSettings.end() ? nullptr : &*found;
}

std::string StoredSettingText(IRegistryReader& registry, const TSetting& setting) {
    TSettingValues values;
    try {
        ReadSetting(registry, setting, values);
    } catch (const EConvertError&) {
        return registry.ReadString(std::string(setting.Key), std::string(setting.ValueName)).value_or("");
    }
    return std::visit([&](auto field) { return ToPerson(setting, values.*field); }, setting.Field);
}

void CheckSettingText(const TSetting& setting, std::string_view text, const TSettingChecks& checks) {
    if (setting.Property == "ReplaceMethod") ExpectOneOf(mlLangGetTextMethods, setting, text);
    if (setting.Property == "MenuSection") ExpectOneOf(kMenuSections, setting, text);
    if (setting.Property == "DefaultComp") ExpectOneOf(checks.ClassNames, setting, text);
    if (setting.Property == "Delimiter" && text.empty()) throw Unfit(setting, text, "at least one character");
    const bool isPrefix =
        std::find(std::begin(kPrefixes), std::end(kPrefixes), setting.Property) != std::end(kPrefixes);
    if (isPrefix && !std::all_of(text.begin(), text.end(), IsForSource))
        throw Unfit(setting, text, "a text without quotes, back slashes and control characters");
}

/// One that does compile matches nothing behind an empty alternative.
TStringList BrokenPatterns(ICommonLibrary* common, const TStringList& phrases) {
    TStringList broken;
    if (common == nullptr || !common->HasMatcher()) return broken;
    for (const std::string& phrase : phrases)
        if (!common->mlREStringMatches("", "|" + phrase)) broken.Add(phrase);
    return broken;
}

void StoreSettingText(IRegistry& registry, const TSetting& setting, std::string_view text,
                      const TSettingChecks& checks) {
    TSettingValues values;
    std::visit([&](auto field) { FromPerson(setting, text, values.*field); }, setting.Field);
    CheckSettingText(setting, text, checks);
    ExpectPatterns(registry, setting, text, values, checks.Common);
    WriteSetting(registry, setting, values);
}

TStringList SplitLangNames(std::string_view text) {
    const bool isLines = text.find_first_of("\r\n") != std::string_view::npos;
    return isLines ? TStringList::FromText(text) : TStringList::FromCommaText(text);
}

TExpertSettings::TExpertSettings(IRegistry& registry, std::vector<std::string> classNames)
    : registry_(&registry), classNames_(std::move(classNames)) {}

void TExpertSettings::ReadSettings() {
    const auto stored = registry_->OpenForReading();
    for (const TSetting& setting : kSettings) {
        ReadSetting(*stored, setting, values_);
        if (setting.Property == "DefaultComp") CheckDefaultComponent();
    }
}

void TExpertSettings::CheckDefaultComponent() {
    const bool known =
        std::find(classNames_.begin(), classNames_.end(), values_.DefaultComp) != classNames_.end();
    if (!known && !classNames_.empty()) values_.DefaultComp = classNames_.front();
}

template <typename T>
void TExpertSettings::Assign(T V::*field, const T& value) {
    const auto row = std::find_if(kSettings.begin(), kSettings.end(), [&](const TSetting& setting) {
        return setting.Field == TSettingField(field);
    });
    if (row->Write == Differs && values_.*field == value) return;
    values_.*field = value;
    WriteSetting(*registry_, *row, values_);
}

template void TExpertSettings::Assign(std::string V::*, const std::string&);
template void TExpertSettings::Assign(int V::*, const int&);
template void TExpertSettings::Assign(bool V::*, const bool&);
template void TExpertSettings::Assign(TShortCut V::*, const TShortCut&);
template void TExpertSettings::Assign(TStringList V::*, const TStringList&);

void TExpertSettings::SetUseCustom(bool value) {
    if (values_.UseCustom == value) return;
    Assign(&V::UseCustom, value);
    Assign(&V::UserFile, std::string(values_.UserFile));
}

}  // namespace tml
