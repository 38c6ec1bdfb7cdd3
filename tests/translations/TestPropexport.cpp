#include "scan/Dntcedit.h"
#include "support/Expertfixture.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

constexpr const char* kDelimiterDiffers =
    "The existing delimiter in file differs from new one.\rThis may cause errors in future reading "
    "translation information\rContinue?";

struct TPropexport : TExpertFixture, testing::Test {
    TPropexport() { Open(); }
    /// The person selects kinds in this order and gives the file.
    void Choose(const std::vector<std::string>& kinds, const std::string& file) {
        User.OnWindow<TfrmNotTranslate>("frmNotTranslate", [=](TfrmNotTranslate& window) {
            EXPECT_EQ(window.Caption + "|" + window.lblInstruction + "|" + window.lblComps + "|" +
                          window.lblSelected,
                      "Selecting Properties|Please select properties that will be saved to file.|&Available "
                      "properties:|&Selected properties:");
            EXPECT_EQ(window.lbComps.Items.Count(), 13);
            for (const std::string& kind : kinds)
                window.lbCompsDblClick(window.lbComps.Items.IndexOf(kind));
            window.btOKClick();
        });
        User.OnWindow<TSaveDialog>("SaveDialog", [=](TSaveDialog& dialog) {
            EXPECT_EQ(dialog.Filter, "TmlLang text files (*.mll)|*.mll");
            dialog.Files = {file};
            dialog.Close(file.empty() ? mrCancel : mrOk);
        });
    }
    void Run(const std::string& command) { Expert->Window()->Run(command); }
    /// Names of the sections that a file holds.
    std::string Sections(const std::string& file) {
        std::string names;
        for (const std::string& line : TStringList::FromText(Files.Files[file]))
            if (line.starts_with("[") && line.find('/') != std::string::npos) names += line;
        return names;
    }
};

TEST_F(TPropexport, ChosenKindsGoIntoATextFileInTheirOwnOrderAndNoFormChanges) {
    const std::string form = Files.Files["/p/Unit2.dfm"];
    Select("Form2");
    Choose({"Strings", "Captions"}, "/p/a.mll");
    User.OnInput("Input delimeter:", "|");
    Run("SaveFormsProperties");
    EXPECT_EQ(User.Proposed, "~!@#$");
    EXPECT_EQ(Sections("/p/a.mll"), "[Demo/Form2][Demo/Form2/Captions][Demo/Form2/Strings]");
    EXPECT_THAT(Files.Files["/p/a.mll"], testing::HasSubstr("IDS_0=Known|Bekannt|Connu\n"));
    EXPECT_THAT(Files.Files["/p/a.mll"], testing::HasSubstr("Button1.Caption=Go|Go|Go\n"));
    EXPECT_EQ(Files.Files["/p/Unit2.dfm"], form);
    EXPECT_FALSE(Ide.GetModuleServices()->FindModule("/p/Unit2.pas"));

    // What else the file holds stays; the delimiter is the file's.
    std::string& text = Files.Files["/p/a.mll"];
    text.replace(text.find("Bekannt"), 7, "Vertraut");
    Choose({"Captions"}, "/p/a.mll");
    User.OnInput("Input delimeter:", "|");
    Run("SaveProjectProperties");
    EXPECT_EQ(User.Proposed, "|");
    EXPECT_THAT(text, testing::HasSubstr("Vertraut"));
}

TEST_F(TPropexport, WhatIsNotGoneOnWithWritesNothing) {
    Select("Form1");
    User.OnMessage("Project or file is not translated!");
    Run("SaveFormsProperties");
    Select("Form2");
    User.OnWindow<TfrmNotTranslate>("frmNotTranslate",
                                    [](TfrmNotTranslate& window) { window.btCancelClick(); });
    Run("SaveFormsProperties");
    Choose({"Captions"}, "");
    Run("SaveFormsProperties");
    for (const char* answer : {"", "|"}) {
        Choose({"Captions"}, "/p/a.mll");
        User.OnInput("Input delimeter:", answer);
        if (*answer == '\0') User.OnMessage("You cannot use empty delimiter!");
        Run("SaveFormsProperties");
    }
    const std::string saved = Files.Files["/p/a.mll"];
    Choose({"Hints"}, "/p/a.mll");
    User.OnInput("Input delimeter:", "~");
    User.OnMessage(kDelimiterDiffers, mrNo);
    Run("SaveFormsProperties");
    Choose({}, "/p/b.mll");
    User.OnInput("Input delimeter:", "~");
    Run("SaveProjectProperties");
    Choose({"ExtendedTranslations"}, "/p/b.mll");
    User.OnInput("Input delimeter:", "~");
    Run("SaveProjectProperties");
    EXPECT_FALSE(Files.Stat("/p/b.mll")) << "there is nothing to write";
    Choose({"Hints"}, "/p/b.mlb");
    EXPECT_THROW(Run("SaveFormsProperties"), EBadInput);
    EXPECT_EQ(Files.Files["/p/a.mll"], saved);
}

}  // namespace
}  // namespace tml
