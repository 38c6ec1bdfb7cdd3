#include <gtest/gtest.h>

#include "base/Errors.h"
#include "runtime/Classes.h"
#include "runtime/Componentprops.h"
#include "support/Sampleproject.h"
#include "tables/Fieldcodec.h"

namespace tml {
namespace {

TEST(Fields, EveryTextSurvivesEveryDelimiterAndTheRawLineSplits) {
    const std::string texts[] = {"",
                                 "plain",
                                 "it's \"x\"",
                                 "a\r\nb\nc",
                                 "\x01\x02\x03",
                                 "drnDRN;,",
                                 "\xD0\x96\xE6\x97\xA5",
                                 "\x02"
                                 "d"};
    for (const std::string delimiter : {"\x01", "\x02", ";", "d", "\xC2\xA7"}) {
        const std::vector<std::string> fields(std::begin(texts), std::end(texts));
        const std::string line = JoinFields(fields, delimiter);
        EXPECT_EQ(SplitFields(line, delimiter), fields) << delimiter;
        EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
        EXPECT_EQ(DecodeField(ExtractWord(4, line, delimiter), delimiter), texts[3]);
        EXPECT_EQ(ExtractWord(1, line, delimiter) + ExtractWord(9, line, delimiter), "");
    }
    EXPECT_EQ(JoinFields({"IDS_0", "C:\\new", ""}, "\x01"),
              "IDS_0\x01"
              "C:\\new\x01");
}

TEST(Classes, Family) {
    for (const std::string& name : LangClassNames())
        EXPECT_TRUE(ClassInheritsFrom(name, "TmlCustomLang")) << name;
    EXPECT_TRUE(ClassInheritsFrom("TmlLangDispatcher", "TComponent"));
    EXPECT_FALSE(ClassInheritsFrom("TmlLangDispatcher", "TmlCustomLang"));
    EXPECT_FALSE(ClassInheritsFrom("TButton", "TComponent"));
    EXPECT_FALSE(MakeMlRuntime()->IsRegistered("TmlCustomLang"));
    EXPECT_TRUE(MakeMlRuntime()->IsRegistered("TmlTaskDialog"));
}

struct TLangTest : testing::Test, TSampleIde {
    std::shared_ptr<TmlCustomLang> Lang = Runtime->AsCustomLang(Component("mlLang1"));
    std::string Table(TStringsType type) { return Lang->GetTable(type).CommaText(); }
    bool Modified() { return Open("/p/Unit1.pas")->GetModified(); }
};

TEST_F(TLangTest, ReadsWhatTheFormHolds) {
    EXPECT_EQ(Lang->GetNumLang(), 2);
    EXPECT_EQ(Lang->GetLangNames().CommaText(), "English,German");
    EXPECT_EQ(Lang->GetLanguage(), "English");
    EXPECT_EQ(Lang->GetDelimiter(), "\x01");
    EXPECT_EQ(Lang->GetDispatcher()->GetNumOfLanguages(), 1);
    EXPECT_EQ(Lang->GetDispatcher()->GetComponent()->GetOwner()->GetName(), "Form2");
    EXPECT_EQ(Runtime->AsCustomLang(Component("Button1")), nullptr);
}

TEST_F(TLangTest, WritesOnlyWhatDiffers) {
    Lang->SetTable(TStringsType::stCaptions, Lang->GetTable(TStringsType::stCaptions));
    Lang->SetTable(TStringsType::stListView_TreeView_Items, TStringList({"x"}));
    Lang->SetNumLang(2);
    Lang->SetLanguage("English");
    Lang->SetLanguage("Klingon");
    Lang->SetLangNames(TStringList({"English", "German"}));
    Lang->ComponentRenamed("Nobody", "Somebody");
    EXPECT_FALSE(Modified());
    Lang->SetLanguage("german");
    EXPECT_EQ(Lang->GetActiveLanguage(), 2);
    EXPECT_EQ(ReadStringProp(*Lang->GetComponent(), "Language"), "German");
}

TEST_F(TLangTest, NumberOfLanguagesKeepsValuesTogether) {
    Lang->SetLanguage("German");
    Lang->SetNumLang(3);
    EXPECT_EQ(Lang->GetTable(TStringsType::stCaptions)[0], "Button1.Caption\x01&OK\x01&Gut\x01&OK");
    Lang->SetNumLang(1);
    EXPECT_EQ(Lang->GetTable(TStringsType::stCaptions)[1], "Button11.Caption\x01No");
    EXPECT_EQ(Lang->GetActiveLanguage(), 1);
    EXPECT_EQ(Lang->GetComponent()->GetPropValue("NumOfLanguages"), std::nullopt);
    EXPECT_THROW(Lang->SetNumLang(0), EBadInput);
    EXPECT_THROW(Lang->SetNumLang(2000000000), EBadInput);
}

TEST_F(TLangTest, AddsStringsAsAChangeSet) {
    const std::vector<TmlString> entries = {
        {"IDS_0", "two\r\nlines"}, {"IDS_1", "it's \xC3\xA4\x01"}, {"ids_0", "again"}};
    TChangeSet set;
    set.Title = "Add strings";
    set.Properties = Lang->PlanAddStrings(entries);
    ASSERT_EQ(set.Properties.size(), 1U);
    EXPECT_EQ(set.Properties[0].FormName + "." + set.Properties[0].ComponentName, "Form1.mlLang1");
    EXPECT_FALSE(Modified());
    Ide.GetModuleServices()->ApplyChangeSet(set);
    EXPECT_EQ(Lang->GetStrings(), std::vector<TmlString>(entries.begin(), entries.begin() + 2));
    EXPECT_TRUE(Lang->PlanAddStrings(entries).empty());
    Ide.SaveAll();
    const std::string once = Files.Files["/p/Unit1.dfm"];
    Ide.CloseProject();
    Ide.OpenProject("/p/Project1.dpr");
    EXPECT_EQ(Runtime->AsCustomLang(Component("mlLang1"))->GetStrings()[1].Text, entries[1].Text);
    EXPECT_NE(once.find("'IDS_1'"), std::string::npos);
}

TEST_F(TLangTest, TranslationsFollowARenamedComponent) {
    Lang->ComponentRenamed("button1", "OkButton");
    const TStringList captions = Lang->GetTable(TStringsType::stCaptions);
    EXPECT_EQ(captions[0], "OkButton.Caption\x01&OK\x01&Gut");
    EXPECT_EQ(captions[1], "Button11.Caption\x01No\x01Nein");
    EXPECT_EQ(ReadListProp(*Lang->GetComponent(), "ExcludedProperties").CommaText(), "!OkButton,TButton");
}

}  // namespace
}  // namespace tml
