#include <algorithm>
#include <cstring>
#include <gmock/gmock.h>

#include "base/Errors.h"
#include "core/Modules.h"
#include "support/Expertfixture.h"
#include "translations/Projmngsaskfilename.h"

namespace tml {
namespace {

/// A group of two projects; each has a form with a component.
struct TProjectMenu : TExpertFixture, testing::Test {
    TProjectMenu() {
        Put("/p/All.bpg",
            "PROJECTS = Demo.exe Other.exe\n\nDemo.exe: Demo.dpr\n\t$(DCC)\nOther.exe: "
            "Other.dpr\n\t$(DCC)\n");
        Put("/p/Other.dpr",
            "program Other;\n\nuses\n  Forms,\n  Unit3 in 'Unit3.pas' {Form3};\n\nbegin\nend.\n");
        PutForm(3,
                "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
                "      'English'\n      'German')\n    Captions.Strings = (\n      'Button1.Caption'#1'Go'#1"
                "'Los')\n  end\n");
        Parts.LoadExpert();
        Expert = Parts.Expert();
        Ide.OpenProject("/p/All.bpg");
    }
    std::shared_ptr<IOTAProject> Project(int index) {
        return Ide.GetModuleServices()->GetMainProjectGroup()->GetProject(index);
    }
    /// Clicks an entry of the menu of a project of the group.
    void Click(int project, const std::string& caption) {
        const auto menu = Ide.ProjectMenu("ProjectContainer", Project(project));
        for (const auto& item : menu.at(0)->Items)
            if (item->Caption == caption) item->Click();
    }
    /// The prompt is answered with a template, or with the name of one file.
    void AnswerPrompt(const std::string& fileName, bool isTemplate, const std::string& confirmation,
                      TModalResult answer = mrYes) {
        User.OnWindow<TfrmAsk4FileName>("frmAsk4FileName", [=](TfrmAsk4FileName& window) {
            if (isTemplate) {
                window.rbFileNameTemplateClick();
                window.edTemplateTextChange(fileName);
                window.edFolderNameChange("/p");
            } else {
                window.rbOneFile4AllClick();
                window.edFileNameChange(fileName);
            }
            EXPECT_TRUE(window.btOKEnabled);
            window.btOKClick();
        });
        User.OnMessage(confirmation, answer);
    }
    bool IsThere(const std::string& file) { return Files.Stat(file).has_value(); }
    std::string Text(const std::string& file) { return Files.Files[file]; }
    std::string ActiveProject() { return GetActiveProject(Context())->GetFileName(); }
};

TEST_F(TProjectMenu, StandsOnProjectsAlone) {
    EXPECT_TRUE(Ide.ProjectMenu("GroupContainer", nullptr).empty());
    EXPECT_TRUE(Ide.ProjectMenu("FileContainer", nullptr).empty());
    const auto menu = Ide.ProjectMenu("ProjectContainer", Project(0));
    ASSERT_EQ(menu.size(), 1U);
    std::string captions = menu[0]->Caption;
    for (const auto& item : menu[0]->Items)
        captions += "|" + item->Caption;
    EXPECT_EQ(captions,
              "TmlLang translations|Load all projects|Save all projects|-|Load all from here|Save all from "
              "here|-|Load selected project|Save selected project");
    Ide.UnloadPackage("TmlLang");
    EXPECT_TRUE(Ide.ProjectMenu("ProjectContainer", Project(0)).empty());
}

TEST_F(TProjectMenu, SavesEachProjectUnderTheNameThatTheTemplateYields) {
    AnswerPrompt("($PROJECT_NAME).mll", true,
                 "This will save all projects in project group to ($PROJECT_NAME).mll! Continue?", mrNo);
    Click(1, "Save all projects");
    EXPECT_FALSE(IsThere("/p/Demo.mll"));
    EXPECT_EQ(Context().Settings.Get().MultiProjTemplate, "($PROJECT_NAME).mll") << "stored all the same";

    AnswerPrompt("($PROJECT_NAME).mll", true,
                 "This will save the selected and next projects in project group to ($PROJECT_NAME).mll! "
                 "Continue?");
    User.OnInput("Input delimeter:", "|");
    Click(1, "Save all from here");
    EXPECT_FALSE(IsThere("/p/Demo.mll"));
    EXPECT_THAT(Text("/p/Other.mll"), testing::HasSubstr("Button1.Caption=Go|Los\n"));

    AnswerPrompt("($PROJECT_NAME).mll", true,
                 "This will save all projects in project group to ($PROJECT_NAME).mll! Continue?");
    User.OnInput("Input delimeter:", "~");
    User.Bars.clear();
    Click(1, "Save all projects");
    EXPECT_EQ(std::count(User.Bars.begin(), User.Bars.end(), "Reading forms... 0/3"), 1) << "Demo, once";
    EXPECT_EQ(std::count(User.Bars.begin(), User.Bars.end(), "Reading forms... 0/1"), 1) << "Other, once";
    EXPECT_THAT(Text("/p/Demo.mll"), testing::HasSubstr("IDS_0=Known~Bekannt~Connu\n"));
    EXPECT_THAT(Text("/p/Other.mll"), testing::HasSubstr("Delimiter=|\n")) << "a file keeps its own";
    EXPECT_EQ(ActiveProject(), "/p/Other.dpr");
    ASSERT_NE(Expert->Window(), nullptr);
    EXPECT_NE(Rows().FindForm("Form3"), nullptr);
}

TEST_F(TProjectMenu, OneFileHoldsAllProjectsAndLoadsThem) {
    AnswerPrompt("/p/all.mll", false, "This will save all projects in project group to all.mll! Continue?");
    User.OnInput("Input delimeter:", "~");
    Click(0, "Save all projects");
    std::string& text = Files.Files["/p/all.mll"];
    for (const auto& [from, to] : {std::pair("Go~Los", "Go~Weiter"), std::pair("~Bekannt~", "~Vertraut~")}) {
        ASSERT_NE(text.find(from), std::string::npos) << from;
        text.replace(text.find(from), std::strlen(from), to);
    }
    AnswerPrompt("/p/all.mll", false, "This will load selected project from all.mll! Continue?");
    User.OnMessage("Demo/Form2: overwritten: Strings IDS_0 (German): 'Vertraut' instead of 'Bekannt'\r\n");
    Click(0, "Load selected project");
    EXPECT_EQ(ActiveProject(), "/p/Demo.dpr");
    EXPECT_THAT(Text("/p/Unit2.dfm"), testing::HasSubstr("Vertraut"));
    EXPECT_THAT(Text("/p/Unit3.dfm"), testing::HasSubstr("Los"));
    const auto open = Ide.GetModuleServices()->OpenModule("/p/Unit3.pas", false);
    AnswerPrompt("/p/all.mll", false, "This will load all projects in project group from all.mll! Continue?");
    User.OnMessage(
        "Other/Form3: overwritten: Captions Button1.Caption (German): 'Weiter' instead of 'Los'\r\n"
        "Open, and with changes that are not saved yet: Other/Form3\r\n");
    Click(0, "Load all projects");
    open->Save();
    EXPECT_THAT(Text("/p/Unit3.dfm"), testing::HasSubstr("Weiter"));
}

TEST_F(TProjectMenu, ProjectsOfOneNameAreRefused) {
    Put("/p/Twins.bpg",
        "PROJECTS = Demo.exe Twin.exe\n\nDemo.exe: Demo.dpr\n\t$(DCC)\nTwin.exe: sub\\Demo.dpr\n\t$(DCC)\n");
    Put("/p/sub/Demo.dpr", "program Demo;\n\nbegin\nend.\n");
    Ide.OpenProject("/p/Twins.bpg");
    const auto expectRefusal = [&](const char* caption) {
        try {
            Click(0, caption);
            ADD_FAILURE() << caption;
        } catch (const EBadInput& error) {
            EXPECT_STREQ(error.what(),
                         "/p/Demo.dpr: /p/sub/Demo.dpr is named Demo, too: their forms would be one in a "
                         "translation file. Give one of them another name, or take each by itself, with a "
                         "file of its own");
        }
    };
    AnswerPrompt("/p/all.mll", false, "This will save all projects in project group to all.mll! Continue?");
    User.OnInput("Input delimeter:", "~");
    expectRefusal("Save all projects");
    EXPECT_FALSE(IsThere("/p/all.mll"));
    Put("/p/all.mll", "[Options]\nDelimiter=~\n");
    AnswerPrompt("/p/all.mll", false, "This will load all projects in project group from all.mll! Continue?");
    expectRefusal("Load all projects");
}

}  // namespace
}  // namespace tml
