#include <gtest/gtest.h>

#include "support/Expertfixture.h"
#include "translations/Groupfiles.h"
#include "translations/Projmngsaskfilename.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

struct TFixedClock : IClock {
    TDateTime Now() override { return {2025, 3, 5, 7, 8, 9}; }
};

TEST(Projmngsaskfilename, TagsOfATemplateAreReplacedInAnyCaseAndEverywhere) {
    const struct {
        const char *Template, *Project, *Name;
    } rows[] = {
        {"($project_name)_($Year).mll", "Demo.dproj", "Demo_2025.mll"},
        {"/t/($DAY)-($MONTH) ($HOUR)($MINUTE)($SECOND) ($DAY)", "A.b.dpr", "/t/5-3 789 5"},
        {"($PROJECT_NAME)", "A.b.dpr", "A.b"},
        {"all.mll", "Demo.dproj", "all.mll"},
    };
    TFixedClock clock;
    for (const auto& row : rows)
        EXPECT_EQ(GetParsedFileName(clock, row.Template, row.Project), row.Name);
}

struct TAskfilename : TExpertFixture, testing::Test {
    TAskfilename() { Open(); }

    /// What the person does in the window; further answers are asked for behind it.
    void OnWindow(const std::function<void(TfrmAsk4FileName&)>& use) {
        User.OnWindow<TfrmAsk4FileName>("frmAsk4FileName", use);
    }
    bool Ask(bool saving) { return AskForFileName(Context(), saving, "To %s?", "Demo.dpr", Name, Delimiter); }
    const TSettingValues& Stored() { return Context().Settings.Get(); }

    std::string Name, Delimiter;
};

TEST_F(TAskfilename, ATemplateKeepsItsTagsAndTheDelimiterIsThatOfTheParsedFile) {
    Files.Files["/t/Demo.mll"] = "[Options]\nDelimiter=|\n";
    OnWindow([](TfrmAsk4FileName& window) {
        EXPECT_TRUE(window.IsEnabled(fmOneFile));
        EXPECT_FALSE(window.btOKEnabled);
        window.edFileName = "not this";
        window.rbFileNameTemplateClick();
        EXPECT_TRUE(window.btOKEnabled && window.rbMLL && !window.IsEnabled(fmOneFile));
        window.btBrowseFolderClick();
        window.rbMLBClick();
        EXPECT_EQ(window.edTemplateText, "($PROJECT_NAME).mlb");
        window.rbMLLClick();
        window.btOKClick();
    });
    User.OnWindow<TSelectDirectory>("SelectDirectory", [](TSelectDirectory& dialog) {
        dialog.Folder = "/t";
        dialog.Close(mrOk);
    });
    User.OnMessage("To ($PROJECT_NAME).mll?", mrYes);
    User.OnInput("Input delimeter:", "|");
    EXPECT_TRUE(Ask(true));
    EXPECT_EQ(User.Proposed, "|");
    EXPECT_EQ(Name + " " + Delimiter, "/t/($PROJECT_NAME).mll |");
    EXPECT_TRUE(Stored().MultiProjUseTemplate);
    EXPECT_EQ(Stored().MultiProjFolder + Stored().MultiProjFileName, "/t");
}

TEST_F(TAskfilename, OneFileIsStoredEvenWhereItIsNotConfirmed) {
    Context().Settings.SetMultiProjTemplate("x.mlb");
    const auto use = [](TfrmAsk4FileName& window) {
        EXPECT_TRUE(window.rbMLB && !window.rbMLL);
        EXPECT_FALSE(window.btOKEnabled) << "a file to load has to be there";
        window.edFileNameChange("/p");
        EXPECT_FALSE(window.btOKEnabled) << "a folder is no file";
        window.edFileNameChange("/p/none.mll");
        window.btBrowseForFileClick();
        EXPECT_TRUE(window.btOKEnabled);
        window.btOKClick();
    };
    for (const TModalResult answer : {mrNo, mrYes}) {
        Context().Settings.SetMultiProjFileName("/p/none.mll");
        OnWindow(use);
        User.OnWindow<TOpenDialog>("OpenDialog", [](TOpenDialog& dialog) {
            EXPECT_EQ(dialog.Caption + dialog.Files.front(), "Select file name.../p/none.mll");
            dialog.Files = {"/p/Demo.dpr"};
            dialog.FilterIndex = 2;
            dialog.Close(mrOk);
        });
        User.OnMessage("To Demo.dpr?", answer);
        EXPECT_EQ(Ask(false), answer == mrYes);
        EXPECT_EQ(Stored().MultiProjFileName + Stored().MultiProjTemplate, "/p/Demo.dprx.mlb");
        EXPECT_EQ(Stored().LastFilterIndex, 2);
    }
    OnWindow([](TfrmAsk4FileName& window) { window.btCancelClick(); });
    EXPECT_FALSE(Ask(true));
}

}  // namespace
}  // namespace tml
