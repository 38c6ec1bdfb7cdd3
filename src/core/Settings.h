#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Stringlist.h"
#include "platform/Mlcommon.h"
#include "platform/Registry.h"
#include "windows/Controls.h"

namespace tml {

inline constexpr std::string_view kSettingsKey = "\\Software\\Velmora\\TmlLang";
inline constexpr std::string_view kExpSettingsKey = "\\Software\\Velmora\\TmlLang\\ExpSettings";

/// The menus of the IDE that can take the expert's item.
inline constexpr std::string_view kMenuSections[] = {"FileMenu",      "EditMenu",    "SearchMenu",
                                                     "ViewsMenu",     "ProjectMenu", "RunMenu",
                                                     "ComponentMenu", "ToolsMenu",   "HelpMenu"};

/// The expert's settings with their defaults.
struct TSettingValues {
    std::string MenuSection = "ToolsMenu";
    TShortCut ShortCut = 0x4000 | 'L';
    int NumLang = 2;
    bool OpenAllForms = false;
    std::string DefaultComp = "TmlLang";
    int CnstPermanent = 0;
    std::string CnstPrefix = "str";
    std::string HCPrefix = "IDS_";
    bool AddFormName = false;
    std::string ReplaceMethod = "GetTextOrDefault(";
    int IgnorableLength = 1;
    int SortOrder = -1;
    int SortedColumn = 0;
    std::string DefaultLangNames;  ///< one name a line, see SplitLangNames
    int CommentsLength = 0;
    bool EmptyConstsValues = true;
    std::string ExcludeChars = "\\|/?><.,\":;]}[{=+-_)(!@#$%^&*`~' ";
    TStringList SkipLines;
    TStringList SkipWords;
    std::string ColumnWidths;
    int LastFilterIndex = 1;
    bool UseRegExpForSkip = false;
    int PreviewLines = 5;
    bool NoCommentsInSources = false;
    std::string MultiProjFolder;
    std::string MultiProjFileName;
    std::string MultiProjTemplate;
    bool MultiProjUseTemplate = false;
    bool IDsFromTexts = false;  ///< proposed IDs are made from the texts, not counted
    std::string Delimiter = "~!@#$";
    bool UseCustom = false;
    std::string UserFile;
};

/// How a setting is stored. Lines is the text of a list, DecimalText a number as text that must be one,
/// LooseDecimalText one that counts as missing where it is none.
enum class TStoredAs {
    String,
    TrimmedString,
    Lines,
    DecimalText,
    LooseDecimalText,
    ShortCutText,
    Integer,
    Bool
};
/// What a read gives where nothing is stored: the value at hand, or always the default.
enum class TReadDefault { Current, Fixed, NeverRead };
/// What a setter does with an equal value.
enum class TWriteWhen { Differs, Always };

/// The member that holds a setting.
using TSettingField =
    std::variant<std::string TSettingValues::*, int TSettingValues::*, bool TSettingValues::*,
                 TShortCut TSettingValues::*, TStringList TSettingValues::*>;

/// One row of the table of settings.
struct TSetting {
    std::string_view Property;
    std::string_view ValueName;
    TSettingField Field;
    TStoredAs Stored;
    TReadDefault ReadDefault;
    TWriteWhen Write;
    std::string_view Key = kExpSettingsKey;
};

/// Every setting, in the order in which they are read.
std::span<const TSetting> AllSettings();
/// The row of a property (without regard to case), nullptr for a name that is none.
const TSetting* FindSetting(std::string_view property);

/// A setting as it is stored now, as text for a person: switches as true and false, "\n" between the
/// lines of a list. It needs no expert and shows a value that the expert cannot read as it stands.
std::string StoredSettingText(IRegistryReader& registry, const TSetting& setting);
/// What some settings are checked by.
struct TSettingChecks {
    std::vector<std::string> ClassNames;  ///< of the localization components
    ICommonLibrary* Common = nullptr;     ///< nullptr where no pattern can be tried
};
/// EBadInput, with what would do, for a text that cannot work as the setting's value.
void CheckSettingText(const TSetting& setting, std::string_view text, const TSettingChecks& checks);
/// Those of the phrases that are no regular expressions.
TStringList BrokenPatterns(ICommonLibrary* common, const TStringList& phrases);
/// Stores a setting from such a text. EBadInput for a text that does not fit; nothing is stored then.
void StoreSettingText(IRegistry& registry, const TSetting& setting, std::string_view text,
                      const TSettingChecks& checks);

/// The language names of a text: one a line, or separated by commas where it has no line break.
TStringList SplitLangNames(std::string_view text);

/// The settings at hand and their store: read once, each written back the moment it is set.
class TExpertSettings {
  public:
    /// Starts with the defaults. classNames are those of the localization components.
    TExpertSettings(IRegistry& registry, std::vector<std::string> classNames);

    const TSettingValues& Get() const { return values_; }

    /// Reads all settings. EConvertError for a "DefNumLang" or "CnstPermanent" that is no number.
    void ReadSettings();
    /// An unknown default component becomes the first class name, in memory only.
    void CheckDefaultComponent();

    // A setter for each property: SetNumLang(3).
#define TML_SETTER(Property)                                              \
    void Set##Property(const decltype(TSettingValues::Property)& value) { \
        Assign(&TSettingValues::Property, value);                         \
    }
    TML_SETTER(NumLang)
    TML_SETTER(ShortCut)
    TML_SETTER(OpenAllForms)
    TML_SETTER(MenuSection)
    TML_SETTER(MultiProjFileName)
    TML_SETTER(MultiProjFolder)
    TML_SETTER(MultiProjTemplate)
    TML_SETTER(MultiProjUseTemplate)
    TML_SETTER(DefaultComp)
    TML_SETTER(IgnorableLength)
    TML_SETTER(CnstPermanent)
    TML_SETTER(CnstPrefix)
    TML_SETTER(HCPrefix)
    TML_SETTER(AddFormName)
    TML_SETTER(ReplaceMethod)
    TML_SETTER(SortedColumn)
    TML_SETTER(SortOrder)
    TML_SETTER(DefaultLangNames)
    TML_SETTER(CommentsLength)
    TML_SETTER(EmptyConstsValues)
    TML_SETTER(ExcludeChars)
    TML_SETTER(SkipLines)
    TML_SETTER(SkipWords)
    TML_SETTER(ColumnWidths)
    TML_SETTER(LastFilterIndex)
    TML_SETTER(UseRegExpForSkip)
    TML_SETTER(PreviewLines)
    TML_SETTER(NoCommentsInSources)
    TML_SETTER(IDsFromTexts)
#undef TML_SETTER
    /// Writes "UserFile", too.
    void SetUseCustom(bool value);

  private:
    /// Sets the member and writes it as its row says.
    template <typename T>
    void Assign(T TSettingValues::*field, const T& value);

    IRegistry* registry_;
    std::vector<std::string> classNames_;
    TSettingValues values_;
};

}  // namespace tml
