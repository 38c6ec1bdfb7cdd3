#include <map>

#include "base/Errors.h"
#include "core/Settings.h"
#include "support/Memoryregistry.h"

namespace tml {
namespace {

const std::vector<std::string> kClasses{"TmlLang", "TmlLangRT"};
const std::string kExp(kExpSettingsKey);

struct TStore {
    TMemoryRegistry Registry;
    TExpertSettings Settings{Registry, kClasses};
};

TEST(Settings, AnEmptyStoreGivesTheDefaults) {
    const char* expected[] = {"MenuSection|ToolsMenu",
                              "ShortCut|Ctrl+L",
                              "NumLang|2",
                              "OpenAllForms|false",
                              "DefaultComp|TmlLang",
                              "CnstPermanent|0",
                              "CnstPrefix|str",
                              "HCPrefix|IDS_",
                              "AddFormName|false",
                              "ReplaceMethod|GetTextOrDefault(",
                              "IgnorableLength|1",
                              "SortOrder|-1",
                              "SortedColumn|0",
                              "DefaultLangNames|",
                              "CommentsLength|0",
                              "EmptyConstsValues|true",
                              "ExcludeChars|\\|/?><.,\":;]}[{=+-_)(!@#$%^&*`~' ",
                              "SkipLines|",
                              "SkipWords|",
                              "ColumnWidths|",
                              "LastFilterIndex|1",
                              "UseRegExpForSkip|false",
                              "PreviewLines|5",
                              "NoCommentsInSources|false",
                              "MultiProjFolder|",
                              "MultiProjFileName|",
                              "MultiProjTemplate|",
                              "MultiProjUseTemplate|false",
                              "Delimiter|~!@#$",
                              "UseCustom|false",
                              "UserFile|",
                              "IDsFromTexts|false"};
    TStore store;
    store.Settings.ReadSettings();
    EXPECT_EQ(store.Settings.Get().ExcludeChars.size(), 33U);
    std::vector<std::string> found;
    for (const TSetting& setting : AllSettings())
        found.push_back(std::string(setting.Property) + "|" + StoredSettingText(store.Registry, setting));
    EXPECT_EQ(found, std::vector<std::string>(std::begin(expected), std::end(expected)));
    EXPECT_TRUE(store.Registry.Writes.empty());
}

TEST(Settings, EverySettingOutlivesTheExpertButTheCustomOnes) {
    TMemoryRegistry registry;
    const std::map<std::string_view, std::string> chosen = {
        {"ShortCut", "F7"}, {"MenuSection", "HelpMenu"}, {"DefaultComp", "TmlLang"},
        {"HCPrefix", "X "}, {"CnstPrefix", "c-"},        {"ReplaceMethod", "GetTextW("},
        {"SortOrder", "1"}, {"SortedColumn", "4"}};
    for (const TSetting& setting : AllSettings()) {
        const bool isNumber = std::holds_alternative<int TSettingValues::*>(setting.Field);
        const bool isBool = std::holds_alternative<bool TSettingValues::*>(setting.Field);
        const std::string text = chosen.contains(setting.Property) ? chosen.at(setting.Property)
                                 : isBool                          ? "true"
                                 : isNumber                        ? "7"
                                                                   : "a\\nb ~";
        StoreSettingText(registry, setting, text, {kClasses});
        const bool isRead = setting.ReadDefault != TReadDefault::NeverRead;
        const std::string missing = isBool ? "false" : "";
        EXPECT_EQ(StoredSettingText(registry, setting), isRead ? text : missing) << setting.Property;
    }
    registry.Values[kExp + "\\DefaultComponent"] = std::string("TNone");
    TExpertSettings settings(registry, kClasses);
    settings.ReadSettings();
    EXPECT_EQ(settings.Get().SkipWords, TStringList({"a", "b ~"}));
    EXPECT_EQ(settings.Get().DefaultComp, "TmlLang") << "an unknown class becomes the first one";
    EXPECT_FALSE(settings.Get().UseCustom);
}

TEST(Settings, SettersWriteOneValueAndSomeOnlyADifferentOne) {
    TStore store;
    TExpertSettings& s = store.Settings;
    s.SetCnstPrefix("str");
    s.SetNumLang(2);
    s.SetIgnorableLength(1);
    s.SetShortCut(s.Get().ShortCut);
    EXPECT_TRUE(store.Registry.Writes.empty());
    s.SetPreviewLines(5);
    s.SetNumLang(3);
    s.SetShortCut(0x2070);
    s.SetAddFormName(false);
    s.SetSkipWords(TStringList({"x", "y"}));
    s.SetUseCustom(true);
    EXPECT_EQ(
        store.Registry.Writes,
        (std::vector<std::string>{"ExpSettings\\PreviewLines=integer 5", "ExpSettings\\DefNumLang=string 3",
                                  "ExpSettings\\ShortCut=string Shift+F1", "ExpSettings\\AddFormName=bool 0",
                                  "ExpSettings\\SkipWords=string x\r\ny\r\n", "ExpSettings\\UseCustom=bool 1",
                                  "ExpSettings\\UserFile=string "}));
}

TEST(Settings, ANumberThatIsNoneStopsTheReadButNotTheCommand) {
    TStore store;
    store.Registry.Values[kExp + "\\IgnorableLength"] = std::string("none");
    store.Registry.Values[kExp + "\\ShortCut"] = std::string("Ctrl+Nothing");
    store.Registry.Values[kExp + "\\ColumnWidths"] = std::string(" 1,2 ");
    store.Settings.ReadSettings();
    EXPECT_EQ(store.Settings.Get().IgnorableLength, 1);
    EXPECT_EQ(store.Settings.Get().ShortCut, 0);
    EXPECT_EQ(store.Settings.Get().ColumnWidths, "1,2");

    for (const char* name : {"NumLang", "CnstPermanent"}) {
        const TSetting& setting = *FindSetting(name);
        store.Registry.Values[kExp + "\\" + std::string(setting.ValueName)] = std::string("two");
        EXPECT_THROW(store.Settings.ReadSettings(), EConvertError);
        EXPECT_EQ(StoredSettingText(store.Registry, setting), "two");
        StoreSettingText(store.Registry, setting, "2", {});
        store.Settings.ReadSettings();
    }
}

TEST(Settings, TextsThatDoNotFitAreRefusedAndNothingIsStored) {
    TMemoryRegistry registry;
    const std::pair<const char*, const char*> rows[] = {
        {"NumLang", "many"},       {"NumLang", "0"},         {"NumLang", "10001"},
        {"IgnorableLength", "-1"}, {"AddFormName", "maybe"}, {"ShortCut", "Ctrl+Nothing"},
        {"SortOrder", ""},         {"CommentsLength", "-2"}, {"PreviewLines", "0"},
        {"SortedColumn", "5"},     {"LastFilterIndex", "0"}, {"DefaultComp", "TFoo"},
        {"HCPrefix", "I'DS"},      {"CnstPrefix", "a\tb"},   {"ReplaceMethod", "GetText"},
        {"MenuSection", "File"},   {"Delimiter", ""}};
    for (const auto& [name, text] : rows)
        EXPECT_THROW(StoreSettingText(registry, *FindSetting(name), text, {kClasses}), EBadInput) << name;
    EXPECT_TRUE(registry.Writes.empty());
    EXPECT_EQ(FindSetting("Nothing"), nullptr);
}

TEST(Settings, ABackSlashInAListSurvives) {
    TMemoryRegistry registry;
    const TSetting& words = *FindSetting("skipwords");
    StoreSettingText(registry, words, "\\d+\\n\\\\name", {});
    EXPECT_EQ(registry.Writes.back(), "ExpSettings\\SkipWords=string \\d+\r\n\\name\r\n");
    EXPECT_EQ(StoredSettingText(registry, words), "\\d+\\n\\\\name");
}

TEST(Settings, LanguageNamesAreLinesOrCommaText) {
    EXPECT_EQ(SplitLangNames("English,Simple Chinese"), TStringList({"English", "Simple Chinese"}));
    EXPECT_EQ(SplitLangNames("English, UK\r\nGerman"), TStringList({"English, UK", "German"}));
    EXPECT_TRUE(SplitLangNames("").Empty());
}

}  // namespace
}  // namespace tml
