#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"
#include "support/Manyforms.h"
#include "support/Workfolder.h"

namespace tml {
namespace {

constexpr int kManyForms = 200;

struct TWizardWindow : TDesktop {
    void Generate(const std::string& folder) {
        std::filesystem::create_directory(Path(folder));
        MakeManyForms(kManyForms, [&](const std::string& name, const std::string& text) {
            WriteBytes(Path(folder + "/" + name), text);
        });
    }
    void RunWizards(const std::function<void(QWidget&)>& wizard) {
        User.On(wizard);
        ChooseFromBar(*Dock().findChild<QMenuBar*>(), "Tools", "Wizards");
    }
    static void SetUp(const std::string& arguments) {
        const TWorkFolder work;
        const auto run = work.Run(work.Program() + " setup " + arguments + " 2>&1");
        EXPECT_EQ(run.Exit, 0) << run.Output;
    }
    static void Next(QWidget& wizard) {
        EXPECT_EQ(DoubleAccelerators(wizard), "") << FromQt(Page(wizard));
        Press(wizard, "btNext");
    }
    static QString Page(QWidget& wizard) { return TextOf(wizard, "pageTitle"); }
};

TEST_F(TWizardWindow, SetsUpAProjectInOnePassAsTheCommandLineDoes) {
    Generate("window");
    Generate("line");
    Window->OpenProject(ToQt(Path("window/Many.dpr")));
    RunWizards([this](QWidget& wizard) {
        EXPECT_EQ(TextOf(wizard, "lblForms"), "Forms to be set up: 200 of 200");
        auto& forms = *wizard.findChild<TRowTable*>("sgForms");
        EXPECT_EQ(Cell(forms, 0, 4), "Ready");
        // One is left out by key, and taken again by mouse.
        ClickCell(forms, 3, 1);
        QTest::keyClick(&forms, Qt::Key_Space);
        EXPECT_EQ(Cell(forms, 3, 0), "No");
        Press(wizard, "btTakeForms");
        EXPECT_EQ(Cell(forms, 3, 0), "Yes");
        QTest::keyClick(&forms, Qt::Key_Return);
        EXPECT_EQ(Page(wizard), "Component");
        Press(wizard, "btBack");
        EXPECT_EQ(Page(wizard), "Forms");
        Next(wizard);
        Type(wizard, "edName", "Lang%s");
        Next(wizard);
        User.On([](QWidget& languages) {
            Press(languages, "btnAdd");
            Press(languages, "btOK");
        });
        User.AnswerInput("Polish");
        Press(wizard, "btConfigure");
        EXPECT_EQ(wizard.findChild<QListWidget*>("lbLanguages")->count(), 3);
        Next(wizard);
        QTest::keyClicks(wizard.findChild<QComboBox*>("cbDispatcher"), "F7");
        Next(wizard);
        QTest::keyClicks(wizard.findChild<QPlainTextEdit*>("memExcludedProperties"), "TEdit");
        Activate(wizard);  // the box for the language was in front
        QTest::keyClick(&wizard, Qt::Key_Right, Qt::AltModifier);
        EXPECT_EQ(Page(wizard), "Strings in source");
        Press(wizard, "ckbStrings");
        Press(wizard, "btScan");
        EXPECT_EQ(TextOf(wizard, "lblStrings"), "Strings to be moved: 400 of 600");
        Next(wizard);
        EXPECT_EQ(Page(wizard), "Summary");
        auto& plan = *wizard.findChild<TRowTable*>("sgPlan");
        EXPECT_EQ(plan.model()->rowCount(), kManyForms);
        ClickCell(plan, 5, 0);
        EXPECT_TRUE(wizard.findChild<QPlainTextEdit*>("memPlan")->toPlainText().contains(
            "\n" + Cell(plan, 5, 0) + " ("));
        Press(wizard, "btShowChange");
        EXPECT_TRUE(wizard.findChild<QPlainTextEdit*>("memPlan")->toPlainText().contains("+    Lang" +
                                                                                         Cell(plan, 5, 0)));
        EXPECT_EQ(DoubleAccelerators(wizard), "");
        Press(wizard, "btFinish");
        EXPECT_EQ(Page(wizard), "Outcome");
        EXPECT_EQ(DoubleAccelerators(wizard), "");
        EXPECT_TRUE(wizard.findChild<QPlainTextEdit*>("memReport")
                        ->toPlainText()
                        .startsWith("Forms that are set up: 200 of 200"));
        Press(wizard, "btFinish");
    });
    SetUp(Path("line/Many.dpr") +
          " --languages \"Language N1,Language N2,Polish\" --name Lang%s --dispatcher F7 --exclude TEdit "
          "--scan");
    const auto window = ContentOf(Path("window")), line = ContentOf(Path("line"));
    EXPECT_NE(window.at("U9.pas").find("LangF9.GetTextOrDefault('IDS_"), std::string::npos);
    EXPECT_NE(window.at("U9.dfm").find("Dispatcher = F7.mlLangDispatcher1"), std::string::npos);
    EXPECT_NE(window.at("Many.mlproj").find("DispatcherForm=F7"), std::string::npos);
    EXPECT_TRUE(window == line);
}

// That the program builds then, tests/tools/setup proves.
TEST_F(TWizardWindow, SetsUpAnExampleOfTheLclAsTheCommandLineDoes) {
    const std::filesystem::path example = "/usr/lib/lazarus/default/examples/canvas_test";
    ASSERT_TRUE(std::filesystem::exists(example)) << "install the package lazarus-src";
    for (const char* copy : {"window", "line"})
        std::filesystem::copy(example, Path(copy));
    Window->OpenProject(ToQt(Path("window/canvastest.lpi")));
    RunWizards([](QWidget& wizard) {
        EXPECT_EQ(TextOf(wizard, "lblForms"), "Forms to be set up: 11 of 11");
        for (int page = 0; page < 5; ++page)
            Next(wizard);
        Press(wizard, "ckbStrings");
        Next(wizard);
        Press(wizard, "btFinish");
        EXPECT_EQ(Page(wizard), "Outcome");
        EXPECT_TRUE(wizard.findChild<QPlainTextEdit*>("memReport")
                        ->toPlainText()
                        .contains("\ncanvastest.lpi requires the package tmllang now\n"));
        Press(wizard, "btFinish");
    });
    SetUp(Path("line/canvastest.lpi") + " --languages \"Language N1,Language N2\" --scan --add-package");
    const auto window = ContentOf(Path("window")), line = ContentOf(Path("line"));
    EXPECT_NE(window.at("canvastest.lpi").find("Value=\"tmllang\""), std::string::npos);
    EXPECT_NE(window.at("pentest.pas").find("mlLang_frmPen.GetTextOrDefault("), std::string::npos);
    EXPECT_TRUE(window == line);
}

}  // namespace
}  // namespace tml
