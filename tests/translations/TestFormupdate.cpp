#include <gtest/gtest.h>

#include "core/Insertion.h"
#include "core/Modules.h"
#include "forms/Formtree.h"
#include "support/Expertfixture.h"
#include "translations/Formtrans.h"

namespace tml {
namespace {

constexpr const char* kClear = "This will clear all translation information in selected form(s)! Continue?";

struct TFormupdate : TExpertFixture, testing::Test {
    TFormupdate() {
        PutForm(
            1,
            "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n      'English'\n"
            "      'German')\n    Captions.Strings = (\n      'Button1.Caption'#1'Start'#1'Los')\n  end\n");
    }
    bool IsOpen(const std::string& form) { return IsFileOpen(Context(), Row(form).FileName); }
    bool Holds(const std::string& file, const std::string& text) {
        return Files.Files["/p/" + file].find(text) != std::string::npos;
    }
};

TEST_F(TFormupdate, ClosedFormsAreSavedAndClosedOpenOnesMarkedModified) {
    Open();
    OpenFile(Context(), "/p/Unit2.pas", false);
    Expert->Window()->SelectAll1Click();
    Expert->Window()->Run("Update");
    EXPECT_FALSE(IsOpen("Form1"));
    EXPECT_TRUE(Holds("Unit1.dfm", "'Button1.Caption'#1'Go'#1'Los'"));
    EXPECT_TRUE(Holds("Unit1.dfm", "'Captions'#1'Button1.Caption'#1'2'#1'stale'#1'Start'"));
    EXPECT_TRUE(GetModuleFromFileName(Context(), "/p/Unit2.pas")->GetModified());
    EXPECT_FALSE(Holds("Unit2.dfm", "Button1.Caption"));
    EXPECT_EQ(GetmlLang(Context(), "Form2")->GetTable(TStringsType::stCaptions).Lines("|").CommaText(),
              "Button1.Caption|Go|Go|Go");
    Ide.Undo();
    EXPECT_TRUE(Holds("Unit1.dfm", "'Button1.Caption'#1'Start'#1'Los'")) << "one step of undo";
}

TEST_F(TFormupdate, OnlySelectedFormsWithAComponentAndWhatCannotBeReadIsSaid) {
    PutForm(2, "");
    Files.Files["/p/Unit1.dfm"].replace(0, 6, "inherited");
    Open();
    Select("Form2");
    Expert->Window()->Run("Update");
    EXPECT_FALSE(Holds("Unit1.dfm", "stale"));
    Expert->Window()->SelectAll1Click();
    User.OnMessage(
        "Form1: Form1: the form that it repeats is not in the project; its texts stay as they are\r\n");
    Expert->Window()->Run("Update");
    EXPECT_TRUE(Holds("Unit1.dfm", "stale"));
    EXPECT_FALSE(Holds("Unit2.dfm", "mlLang"));
}

TEST_F(TFormupdate, ATextOfABinaryFormCountsInEveryWayThatItIsStored) {
    using namespace std::string_literals;
    Open();
    Select("Form1");
    std::string& form = Files.Files["/p/Unit1.dfm"];
    const std::string binary = TFormTree::Parse(form, "Unit1.dfm")->Binary();
    const std::string caption = "\x06\x02Go"s;
    for (const std::string& stored :
         {caption, "\x0C\x02\0\0\0Go"s, "\x12\x02\0\0\0G\0o\0"s, "\x14\x02\0\0\0Go"s}) {
        form = binary.substr(binary.find("TPF0"));  // without the size
        form.replace(form.find(caption), caption.size(), stored);
        Files.Files.erase("/p/a.mll");
        SaveFormToFile(Context(), "Form1", "/p/a.mll", "|");
        EXPECT_TRUE(Holds("a.mll", "\nButton1.Caption=Go|Los\n")) << stored.size();
        Expert->Window()->Run("Update");
        EXPECT_NE(TFormTree::Parse(form, "Unit1.dfm")->Text().find("'Button1.Caption'#1'Go'#1'Los'"),
                  std::string::npos)
            << stored.size();
    }
}

TEST_F(TFormupdate, ClearAsksFirst) {
    Open();
    Select("Form1");
    User.OnMessage(kClear, mrNo);
    Expert->Window()->Run("Clear");
    EXPECT_TRUE(Holds("Unit1.dfm", "#1'Los'"));
    User.OnMessage(kClear, mrYes);
    Expert->Window()->Run("Clear");
    EXPECT_TRUE(Holds("Unit1.dfm", "'Button1.Caption'#1'Start'#1)"));
    EXPECT_FALSE(IsOpen("Form1"));
}

TEST_F(TFormupdate, AFormThatShowsAnotherLanguageIsClearedInItsBaseLanguage) {
    std::string& form = Files.Files["/p/Unit1.dfm"];
    // "Los" has become "Go" since the last update.
    form.insert(form.find("    Captions"), "    Language = 'German'\n");
    Open();
    Select("Form1");
    User.OnMessage(kClear, mrYes);
    Expert->Window()->Run("Clear");
    EXPECT_TRUE(Holds("Unit1.dfm", "Caption = 'Start'"));
    EXPECT_FALSE(Holds("Unit1.dfm", "Language = 'German'"));
    Expert->Window()->Run("Update");
    EXPECT_TRUE(Holds("Unit1.dfm", "'Button1.Caption'#1'Start'#1)"));
}

}  // namespace
}  // namespace tml
