// "&Translate": the translation editor on the selected forms.
#include <gtest/gtest.h>

#include "ids/Stridrepl.h"
#include "runtime/Mltranseditor.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

struct TFormTranslateTest : testing::Test, TExpertFixture {
    void OnEditor(const std::function<void(TfrmTransEditor&)>& use) {
        User.OnWindow<TfrmTransEditor>("frmTransEditor", use);
    }
    std::string Form(int number) { return Files.Files["/p/Unit" + std::to_string(number) + ".dfm"]; }
    bool IsOpen(int number) {
        return Ide.GetModuleServices()->FindModule("/p/Unit" + std::to_string(number) + ".pas") != nullptr;
    }
};

TEST_F(TFormTranslateTest, EnterAndDoubleClickTranslateAndAClosedFormIsSaved) {
    Open();
    Select("Form2");
    const std::string before = Form(2);
    OnEditor([](TfrmTransEditor& editor) {
        EXPECT_EQ(editor.Caption, "Translation Editor - Form2");
        editor.btnCancelClick();
    });
    Expert->Window()->lvFormNamesDblClick();
    EXPECT_EQ(Form(2), before);
    EXPECT_FALSE(IsOpen(2));
    OnEditor([](TfrmTransEditor& editor) {
        editor.SetText(0, 2, "Vertraut");
        editor.btnOKClick();
    });
    Expert->Window()->lvFormNamesKeyDown(0x0D);
    EXPECT_NE(Form(2).find("Vertraut"), std::string::npos);
    EXPECT_FALSE(IsOpen(2));
}

TEST_F(TFormTranslateTest, AFormThatCannotBeSavedStaysOpenWithItsTexts) {
    Open();
    Expert->Window()->SelectAll1Click();
    const std::string before = Form(2);
    Files.ReadOnlyFiles = {"/p/Unit2.dfm"};
    OnEditor([](TfrmTransEditor& editor) {
        editor.SetText(0, 2, "Vertraut");
        editor.btnOKClick();
    });
    EXPECT_THROW(Expert->Window()->Run("Translate"), EFileError);
    EXPECT_EQ(Form(2), before);
    EXPECT_NE(Form(1).find("'Button1.Caption'#1'Go'"), std::string::npos) << "the other one is written";
    ASSERT_TRUE(IsOpen(2));
    Files.ReadOnlyFiles = {};
    Ide.GetModuleServices()->FindModule("/p/Unit2.pas")->Save();
    EXPECT_NE(Form(2).find("Vertraut"), std::string::npos);
}

TEST_F(TFormTranslateTest, OpeningCanBeStopped) {
    Open();
    Expert->Window()->SelectAll1Click();
    User.StopAt = "Opening forms...";
    const auto before = Files.Files;
    Expert->Window()->Run("Translate");
    EXPECT_EQ(Files.Files, before);
    EXPECT_FALSE(IsOpen(1) || IsOpen(2));
    EXPECT_FALSE(User.ProgressShown);
}

TEST_F(TFormTranslateTest, AnOpenFormIsMarkedAsModified) {
    Open();
    const auto module = Parts.Modules().OpenModule("/p/Unit2.pas", true);
    Select("Form2");
    const std::string before = Form(2);
    OnEditor([](TfrmTransEditor& editor) {
        editor.SetText(0, 2, "Vertraut");
        editor.btnOKClick();
    });
    Expert->Window()->Run("Translate");
    EXPECT_TRUE(module->GetModified());
    EXPECT_EQ(Form(2), before);
}

TEST_F(TFormTranslateTest, AFormWithoutAComponentGetsOneWithItsTexts) {
    Open();
    Expert->Window()->SelectAll1Click();
    OnEditor([](TfrmTransEditor& editor) {
        ASSERT_EQ(editor.Texts().Forms().size(), 2U);
        EXPECT_EQ(editor.Text(0, 0), "IDS_0");
        EXPECT_EQ(editor.Text(1, 0), "Button1.Caption");
        EXPECT_EQ(editor.Texts().Find(editor.Grid().RowAt(1))->Base(), "Go");
        editor.btnCancelClick();
    });
    Expert->Window()->Run("Translate");
    EXPECT_NE(Form(1).find("'Button1.Caption'#1'Go'"), std::string::npos) << Form(1);
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|2|TmlLang|1;");
    EXPECT_EQ(Form(2).find("Captions"), std::string::npos) << "what has a component stays as it is";
}

TEST_F(TFormTranslateTest, ARenamedIDIsFollowedByItsUnitInOneStep) {
    PutForm(2, "  object mlLang1: TmlLang\n    Strings.Strings = (\n      'IDS_0'#1'Known')\n  end\n",
            "  mlLang1.GetText('IDS_0');\n");
    const std::string form = Form(2), unit = Files.Files["/p/Unit2.pas"];
    Open();
    Select("Form2");
    OnEditor([this](TfrmTransEditor& editor) {
        for (int panel = 0; panel < 2; ++panel)
            User.OnWindow<TfrmStrReplace>("frmStrReplace",
                                          [](TfrmStrReplace& window) { window.btReplaceClick(); });
        editor.SetText(0, 0, "IDS_NEW");
        User.OnMessage("String IDs that were renamed stay renamed.");
        editor.btnCancelClick();
    });
    Expert->Window()->Run("Translate");
    EXPECT_NE(Form(2).find("'IDS_NEW'#1'Known'"), std::string::npos) << Form(2);
    EXPECT_NE(Files.Files["/p/Unit2.pas"].find("GetText('IDS_NEW')"), std::string::npos);
    EXPECT_EQ(Ide.Undo(), "Rename IDS_0");
    EXPECT_EQ(Form(2), form);
    EXPECT_EQ(Files.Files["/p/Unit2.pas"], unit);
}

TEST_F(TFormTranslateTest, AnAncestorIsOpenOnlyMeanwhile) {
    Put("/p/Unit1.dfm", "inherited Form1: TForm1\n  inherited mlLang1: TmlLang\n  end\nend\n");
    Put("/p/Unit1.pas",
        "unit Unit1;\n\ninterface\n\nuses\n  Unit2;\n\ntype\n  TForm1 = class(TForm2)\n  end;\n\nvar\n  "
        "Form1: TForm1;\n\nimplementation\n\n{$R *.dfm}\n\nend.\n");
    Open();
    Select("Form1");
    OnEditor([this](TfrmTransEditor& editor) {
        EXPECT_EQ(editor.Text(0, 2), "Bekannt");
        EXPECT_TRUE(IsOpen(2));
        editor.btnCancelClick();
    });
    Expert->Window()->Run("Translate");
    EXPECT_FALSE(IsOpen(1));
    EXPECT_FALSE(IsOpen(2));
}

}  // namespace
}  // namespace tml
