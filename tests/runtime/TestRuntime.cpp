#include <gtest/gtest.h>

#include "base/Errors.h"
#include "runtime/Classes.h"
#include "runtime/Classproperties.h"
#include "runtime/Componentprops.h"
#include "support/Sampleproject.h"

namespace tml {
namespace {

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
    std::string Caption(int index) { return Lang->GetTable(TStringsType::stCaptions).Lines("|")[index]; }
    bool Modified() { return Open("/p/Unit1.pas")->GetModified(); }
};

TEST_F(TLangTest, ReadsWhatTheFormHolds) {
    EXPECT_EQ(Lang->GetNumLang(), 2);
    EXPECT_EQ(Lang->GetLangNames().CommaText(), "English,German");
    EXPECT_EQ(Lang->GetLanguage(), "English");
    EXPECT_EQ(Lang->GetDispatcher()->GetNumOfLanguages(), 1);
    EXPECT_EQ(Lang->GetDispatcher()->GetComponent()->GetOwner()->GetName(), "Form2");
    EXPECT_EQ(Runtime->AsCustomLang(Component("Button1")), nullptr);
}

TEST_F(TLangTest, WritesOnlyWhatDiffers) {
    for (const TTableKind& kind : kTableKinds)
        Lang->SetTable(Lang->GetTable(kind.Type));
    Lang->SetTable(TTable(TStringsType::stListView_TreeView_Items, TStringList({"x"}), "|"));
    Lang->SetExclusions(TExclusionList::ExcludedProperties,
                        Lang->GetExclusions(TExclusionList::ExcludedProperties));
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

TEST_F(TLangTest, StatesAndExtendedTranslationsMoveWithTheirLanguages) {
    struct TMoveCase {
        const char* Entry;  ///< in English, German and French, the base language first
        const char* States;
        std::vector<int> Places;
        const char* Moved;
        const char* MovedStates;
    };
    const TMoveCase cases[] = {
        {"k.C|OK|Gut|Bon",
         "Captions|k.C|2|stale|No;",
         {1, 3, 2},
         "k.C|OK|Bon|Gut",
         "Captions|k.C|3|stale|No;"},
        {"k.C|OK|Gut|Bon",
         "Captions|k.C|2|stale|No;Captions|k.C|3|touched|ok;",
         {1, 3},
         "k.C|OK|Bon",
         "Captions|k.C|2|touched|ok;"},
        {"k.C|OK|Gut|Bon",
         "Captions|k.C|2|stale|No;Captions|k.C|3|stale|Non;",
         {2, 1, 3, 0},
         "k.C|Gut|OK|Bon|Gut",
         "Captions|k.C|3|stale|Non;"},
        {"k.C|OK|OK|OK", "Captions|k.C|2|same|;", {2, 1, 3}, "k.C|OK|OK|OK", "Captions|k.C|2|same|;"},
        {"k.C|OK|Gut|OK", "Captions|k.C|3|same|;", {2, 1, 3}, "k.C|Gut|OK|OK", ""},
    };
    Lang->SetNumLang(3);
    for (const TMoveCase& row : cases) {
        WriteStringProp(*Lang->GetComponent(), "Delimiter", "|");
        WriteListProp(*Lang->GetComponent(), "Captions", TStringList({row.Entry}));
        TStringList states;
        for (std::string rest = row.States; !rest.empty(); rest.erase(0, rest.find(';') + 1))
            states.Add(rest.substr(0, rest.find(';')));
        WriteListProp(*Lang->GetComponent(), "States", states);
        TFormValue extended{TFormValueKind::Collection, {}, {}, {}};
        extended.Collection = {{{"Values.Strings", TFormValue::Strings(TStringList({"a", "b", "c"}))}}};
        Lang->GetComponent()->SetPropValue("ExtendedTranslations", extended);
        Lang->MoveLanguages(row.Places);
        EXPECT_EQ(ReadListProp(*Lang->GetComponent(), "Captions")[0], row.Moved);
        std::string moved;
        for (const std::string& line : ReadListProp(*Lang->GetComponent(), "States"))
            moved += line + ";";
        EXPECT_EQ(moved, row.MovedStates) << row.Entry << row.States;
        const auto value = Lang->GetComponent()->GetPropValue("ExtendedTranslations");
        EXPECT_EQ(value->Collection[0][0].Value.Items[0].Text, row.Places[0] == 2 ? "b" : "a");
        EXPECT_EQ(value->Collection[0][0].Value.Items.size(), row.Places.size());
    }
}

TEST_F(TLangTest, ANewPropertyStandsWhereStreamingWritesIt) {
    struct TPlaceCase {
        const char* ClassName;
        std::vector<std::string> Held;
        const char* Name;
        std::size_t Place;
    };
    const TPlaceCase cases[] = {
        {"TmlLang", {"NumOfLanguages", "Hints.Strings", "Left", "Top"}, "Captions.Strings", 1},
        {"TmlLang", {"NumOfLanguages", "Captions.Strings", "OnKept", "Left"}, "States.Strings", 2},
        {"TmlLang", {"Left", "Top"}, "NumOfLanguages", 0},
        {"TmlLang", {"Left", "Top", "NumOfLanguages"}, "LangNames.Strings", 3},
        {"TmlLang", {"Other", "States.Strings"}, "Strings.Strings", 1},
        {"TmlLang", {"Locales.Strings", "OnKept", "Captions.Strings"}, "States.Strings", 1},
        {"TmlLangTLV", {"OnKept", "Left"}, "ListView_TreeView_Items.Strings", 1},
        {"TmlLangDispatcher", {"OnChangeLanguage"}, "Language", 0},
        {"TmlLang", {"NumOfLanguages"}, "Unknown", 1},
        {"TLabel", {"Font.Height", "ParentFont"}, "Font.Name", 1},
        {"TLabel", {"Caption", "ParentFont"}, "Hint", 2},
    };
    for (const TPlaceCase& row : cases)
        EXPECT_EQ(PlaceOfNewProperty(row.ClassName, row.Held, row.Name), row.Place) << row.Name;
}

TEST_F(TLangTest, NumberOfLanguagesKeepsValuesTogether) {
    Lang->SetLanguage("German");
    Lang->SetNumLang(3);
    EXPECT_EQ(Caption(0), "Button1.Caption|&OK|&Gut|&OK");
    EXPECT_EQ(Lang->GetLangNames().CommaText(), "English,German,\"Language N3\"");
    EXPECT_EQ(ReadListProp(*Lang->GetComponent(), "LangNames").Count(), 2) << "reading changes nothing";
    Lang->SetNumLang(1);
    EXPECT_EQ(Caption(1), "Button11.Caption|No");
    EXPECT_EQ(ReadListProp(*Lang->GetComponent(), "LangNames").CommaText(), "English");
    EXPECT_EQ(Lang->GetActiveLanguage(), 1);
    EXPECT_EQ(Lang->GetComponent()->GetPropValue("NumOfLanguages"), std::nullopt);
    EXPECT_THROW(Lang->SetNumLang(0), EBadInput);
    EXPECT_THROW(Lang->SetNumLang(2000000000), EBadInput);
}

TEST_F(TLangTest, StringsSurviveTheFile) {
    TTable table = Lang->GetTable(TStringsType::stStrings);
    EXPECT_TRUE(table.Add("IDS_0", "two\r\nlines", 2));
    EXPECT_TRUE(table.Add("IDS_1", "it's \xC3\xA4\x01", 2));
    EXPECT_FALSE(table.Add("ids_0", "again", 2));
    Lang->SetTable(table);
    Ide.SaveAll();
    Ide.CloseProject();
    Ide.OpenProject("/p/Project1.dpr");
    const TTable read = Runtime->AsCustomLang(Component("mlLang1"))->GetTable(TStringsType::stStrings);
    EXPECT_EQ(read.Lines(";"), table.Lines(";"));
    EXPECT_EQ(read.Entries()[1].Values, (std::vector<TTableValue>(2, {"it's \xC3\xA4\x01"})));
    Component("mlLang1")->SetPropValue("NumOfLanguages", TFormValue::Integer(2000000000));
    EXPECT_THROW(Runtime->AsCustomLang(Component("mlLang1"))->SetTable(read), EBadInput);
}

TEST_F(TLangTest, TranslationsFollowARenamedComponent) {
    Lang->ComponentRenamed("button1", "OkButton");
    EXPECT_EQ(Caption(0), "OkButton.Caption|&OK|&Gut");
    EXPECT_EQ(Caption(1), "Button11.Caption|No|Nein");
    EXPECT_EQ(Lang->GetExclusions(TExclusionList::ExcludedProperties).CommaText(), "!OkButton,TButton");
}

TEST(Inherited, IsReadThroughTheAncestorAndWrittenWhole) {
    TSampleIde sample;
    std::string& unit = sample.Files.Files["/p/Unit1.pas"];
    unit.replace(unit.find("class(TForm)"), 12, "class(TForm2)");
    const std::string form = "inherited Form1: TForm1\r\n  object Button1: TButton\r\n  end\r\n";
    std::string& file = sample.Files.Files["/p/Unit1.dfm"];
    file = form + "end\r\n";
    sample.Files.Files["/p/sub/App.Unit2.DFM"] =
        "object Form2: TForm2\r\n  object mlLang1: TmlLang\r\n    NumOfLanguages = 2\r\n"
        "    LangNames.Strings = (\r\n      'English'\r\n      'German')\r\n    Language = 'German'\r\n"
        "    Delimiter = '|'\r\n    Strings.Strings = (\r\n      'IDS_0|Known|Bekannt')\r\n  end\r\nend\r\n";
    const auto lang = sample.Runtime->AsCustomLang(sample.Component("MLLANG1"));
    EXPECT_EQ(lang->GetName() + " " + lang->GetClassName() + " " + lang->GetLangNames().CommaText() + " " +
                  lang->GetLanguage(),
              "mlLang1 TmlLang English,German German");
    const TTable inherited = lang->GetTable(TStringsType::stStrings);
    EXPECT_EQ(inherited.Lines("|").CommaText(), "IDS_0|Known|Bekannt");
    EXPECT_FALSE(sample.Open("/p/Unit1.pas")->GetModified()) << "reading changes nothing";
    // What is done to it, and what the form's file then has of it.
    TTable more = inherited;
    more.Add("IDS_1", "New", 2);
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[&] { lang->SetTable(inherited); }, ""},
        {[&] { lang->SetTable(more); },
         "    Strings.Strings = (\r\n      'IDS_0|Known|Bekannt'\r\n      'IDS_1|New|New')\r\n"},
        {[&] { lang->SetTable(inherited); }, ""},
        {[&] { lang->SetTable(TTable(TStringsType::stStrings)); }, "    Strings.Strings = ()\r\n"},
        {[&] { lang->SetTable(inherited); }, ""},
        {[&] { lang->SetLanguage("English"); }, "    Language = ''\r\n"},
        {[&] { lang->SetLanguage("German"); }, ""},
    };
    for (const auto& [step, stored] : steps) {
        step();
        sample.Ide.SaveAll();
        const bool isFirst = &step == &steps[0].first;
        EXPECT_EQ(
            file,
            form + (isFirst ? "" : "  inherited mlLang1: TmlLang\r\n" + std::string(stored) + "  end\r\n") +
                "end\r\n");
    }
    lang->SetNumLang(1);
    EXPECT_EQ(lang->GetNumLang(), 1) << "the default is not the ancestor's number";
    EXPECT_EQ(lang->GetTable(TStringsType::stStrings).Lines("|").CommaText(), "IDS_0|Known");
    while (!sample.Ide.Undo().empty()) {
    }
    EXPECT_EQ(lang->GetNumLang(), 2);
    EXPECT_EQ(sample.Ide.Redo().empty(), false);
    EXPECT_EQ(lang->GetTable(TStringsType::stStrings).Entries().size(), 2U);
    EXPECT_THROW(sample.Component("mlLang1")->SetName("Other"), EBadInput);
}

}  // namespace
}  // namespace tml
