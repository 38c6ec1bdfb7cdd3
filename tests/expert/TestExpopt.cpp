#include "base/Errors.h"
#include "expert/Expopt.h"
#include "host/Commonlibrary.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

struct TOptions : TExpertFixture, testing::Test {
    TOptions() { Open(); }
    void Use(std::function<void(TfrmOptions&)> use) {
        User.OnWindow<TfrmOptions>("frmOptions", std::move(use));
        Expert->Window()->Run("Options");
    }
    const TSettingValues& Settings() { return Expert->Settings().Get(); }
};

TEST_F(TOptions, ShowTheSettings) {
    TExpertSettings& settings = Expert->Settings();
    settings.SetDefaultComp("");
    settings.SetReplaceMethod("Fetch(");
    settings.SetCnstPermanent(7);
    settings.SetNoCommentsInSources(true);
    settings.SetUseRegExpForSkip(true);
    settings.SetDefaultLangNames("English,Modern Greek");
    TfrmOptions window(Context());
    EXPECT_EQ(window.cbMenuSection.Text(), "ToolsMenu");
    EXPECT_EQ(window.cbMenuSection.Items.Count(), 9);
    EXPECT_EQ(Settings().DefaultComp, "TmlLang");
    EXPECT_EQ(window.cbDefaultComp.Text(), "TmlLang");
    EXPECT_EQ(window.cbGetTextMethod.ItemIndex, 0) << "a method that is not offered shows the first";
    EXPECT_EQ(window.rgPermanentPart, 1);
    EXPECT_FALSE(window.CommentsLengthEnabled);
    EXPECT_FALSE(window.ckbUseRegExp || window.RegExpEnabled) << "there are no phrases";
    EXPECT_EQ(window.lbLanguages.Items, TStringList({"English", "Modern Greek"}));
}

TEST_F(TOptions, StepsStayInTheirRanges) {
    using TStep = void (TfrmOptions::*)(int);
    struct TRow {
        std::string TfrmOptions::*Edit;
        TStep Step;
        std::string From, Down, Up;
    };
    const TRow rows[] = {
        {&TfrmOptions::edNumLang, &TfrmOptions::StepNumLang, "1", "1", "2"},
        {&TfrmOptions::edNumLang, &TfrmOptions::StepNumLang, "255", "254", "255"},
        {&TfrmOptions::edNumLang, &TfrmOptions::StepNumLang, "9999", "255", "255"},
        {&TfrmOptions::edIgnoredLength, &TfrmOptions::StepIgnoredLength, "0", "0", "1"},
        {&TfrmOptions::edCommentsLength, &TfrmOptions::StepCommentsLength, "255", "254", "255"},
        {&TfrmOptions::edPreviewLines, &TfrmOptions::StepPreviewLines, "3", "5", "4"},
        {&TfrmOptions::edPreviewLines, &TfrmOptions::StepPreviewLines, "x", "5", "6"},
        {&TfrmOptions::edPreviewLines, &TfrmOptions::StepPreviewLines, "7", "6", "8"},
        {&TfrmOptions::edPreviewLines, &TfrmOptions::StepPreviewLines, "999", "998", "1000"},
    };
    TfrmOptions window(Context());
    for (const TRow& row : rows) {
        window.*row.Edit = row.From;
        (window.*row.Step)(-1);
        EXPECT_EQ(window.*row.Edit, row.Down) << row.From;
        window.*row.Edit = row.From;
        (window.*row.Step)(1);
        EXPECT_EQ(window.*row.Edit, row.Up) << row.From;
    }
    window.edIgnoredLengthChange("12");
    window.edIgnoredLengthChange("12a");
    EXPECT_EQ(window.edIgnoredLength, "12");
}

TEST_F(TOptions, EditTheLanguageNames) {
    TfrmOptions window(Context());
    User.OnInput("Enter new language name:", "English");
    window.btAddClick();
    User.OnInput("Enter new language name:", "Greek");
    window.btAddClick();
    window.btDeleteClick();
    window.lbLanguages.Selected = {false, true};
    window.btMoveUpClick();
    window.btMoveUpClick();
    EXPECT_EQ(window.lbLanguages.Items, TStringList({"Greek", "English"}));
    User.OnInput("Enter new language name:", "Russian");
    window.btRenameClick();
    window.btMoveDownClick();
    EXPECT_EQ(window.lbLanguages.Items, TStringList({"English", "Russian"}));
    User.OnMessage("Delete selected language name(s)?", mrYes);
    window.btDeleteClick();
    EXPECT_EQ(window.lbLanguages.Items, TStringList({"English"}));
}

TEST_F(TOptions, OKStoresInOrderAndRebuildsTheMenuItem) {
    Registry.Writes.clear();
    Use([](TfrmOptions& window) {
        window.cbMenuSection.ItemIndex = window.cbMenuSection.Items.IndexOf("HelpMenu");
        window.hkShortCut = 0x4000 | 'M';
        window.edPreviewLines = "3";
        window.memSkipWords = TStringList({"one"});
        window.memSkipWordsChange();
        window.ckbUseRegExp = true;
        window.memSkipWords.Clear();
        window.memSkipWordsChange();
        EXPECT_FALSE(window.ckbUseRegExp);
        window.edHCPrefix = "S";
        window.ckbIDsFromTexts = true;
        window.ckbOpenAllForms = true;
        window.lbLanguages = TNamesBox(TStringList({"One Two"}));
        window.btOKClick();
    });
    std::string names;
    for (const std::string& write : Registry.Writes)
        names += write.substr(12, write.find('=') - 12) + " ";
    // Equal values are written where their setters always write.
    EXPECT_EQ(names,
              "ShortCut MenuSection OpenAllForms HCPrefix AddFormName ReplaceMethod DefaultLangNames "
              "CommentsLength EmptyConstsValues ExcludeChars SkipLines SkipWords UseRegExpForSkip "
              "PreviewLines NoCommentsInSources IDsFromTexts ");
    EXPECT_EQ(Settings().PreviewLines, 3);
    EXPECT_EQ(Settings().DefaultLangNames, "One Two\r\n");
    for (const auto& section : Ide.GetNTAServices()->GetMainMenu().Items)
        EXPECT_EQ(std::any_of(section->Items.begin(), section->Items.end(),
                              [](const auto& item) { return item->Name == "mlLangExpertMenuItem"; }),
                  section->Name == "HelpMenu");
    for (const auto& item : Ide.GetNTAServices()->GetEditorLocalMenu().Items)
        EXPECT_NE(item->Name, "TranslateSourceMenu") << "it is gone until the IDE tells of a file";
}

TEST_F(TOptions, ANumberThatIsNoneStopsTheStoring) {
    TfrmOptions window(Context());
    window.hkShortCut = 0;
    window.edIgnoredLength = "";
    window.edHCPrefix = "S";
    window.edNumLang = "3";
    EXPECT_THROW(window.btOKClick(), EConvertError);
    EXPECT_EQ(window.ModalResult, mrNone);
    EXPECT_EQ(Settings().NumLang, 3);
    EXPECT_EQ(Settings().HCPrefix, "IDS_");
}

TEST_F(TOptions, PatternsThatDoNotCompileAreReported) {
    const auto loader = MakeCommonLibraryLoader(TML_BIN "/TmlLang_Common.so");
    Context().Host.CommonLibrary = loader.get();
    TfrmOptions window(Context());
    window.memSkipWords = TStringList({"a+", "a(b", "*", "x|y"});
    window.memSkipWordsChange();
    window.btOKClick();
    EXPECT_FALSE(Settings().UseRegExpForSkip);
    window.ckbUseRegExp = true;
    User.OnMessage(
        "These phrases are no regular expressions and match as plain phrases only:\r\na(b\r\n*\r\n");
    window.btOKClick();
    EXPECT_TRUE(Settings().UseRegExpForSkip);
    window.NextPage();
    window.NextPage();
    EXPECT_EQ(window.ActivePage, TfrmOptions::ExcludeAndSkip);
    window.FormShow();
    EXPECT_EQ(window.ActivePage, TfrmOptions::General);
}

}  // namespace
}  // namespace tml
