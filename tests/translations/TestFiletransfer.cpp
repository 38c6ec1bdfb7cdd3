#include <gtest/gtest.h>

#include "base/Errors.h"
#include "core/Modules.h"
#include "platform/Projectoptions.h"
#include "support/Expertfixture.h"
#include "tables/Translationfile.h"
#include "translations/Formtrans.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

constexpr const char* kNotTranslated = "Project or file is not translated!";
constexpr const char* kDelimiter = "Input delimeter:";
constexpr const char* kOtherDelimiter =
    "The existing delimiter in file differs from new one. This may cause errors in future reading "
    "translation information Continue?";

struct TFiletransfer : TExpertFixture, testing::Test {
    TFiletransfer() { Open(); }

    void OnSave(const std::string& file, int filterIndex = 1) {
        User.OnWindow<TSaveDialog>("SaveDialog", [=, this](TSaveDialog& dialog) {
            EXPECT_TRUE(dialog.OverwritePrompt);
            Choose(dialog, file, filterIndex);
        });
    }
    void OnOpen(const std::string& file, int filterIndex = 1) {
        User.OnWindow<TOpenDialog>("OpenDialog", [=, this](TOpenDialog& dialog) {
            EXPECT_TRUE(dialog.FileMustExist && !dialog.AllowMultiSelect);
            Choose(dialog, file, filterIndex);
        });
    }
    void Choose(TFileDialog& dialog, const std::string& file, int filterIndex) {
        Proposed = dialog.Files.empty() ? "" : dialog.Files.front();
        FilterIndex = dialog.FilterIndex;
        Filter = dialog.Filter;
        dialog.Files = {file};
        dialog.FilterIndex = filterIndex;
        dialog.Close(file.empty() ? mrCancel : mrOk);
    }
    void Run(const std::string& command) { Expert->Window()->Run(command); }
    void SaveAs(const std::string& command, const std::string& file, const std::string& delimiter = "|") {
        OnSave(file);
        User.OnInput(kDelimiter, delimiter);
        Run(command);
    }
    bool Has(const std::string& file, const std::string& text) {
        return Files.Files["/p/" + file].find(text) != std::string::npos;
    }
    /// Gives Form2, which is closed, another German text for IDS_0.
    void Reword(const std::string& german) {
        std::string& form = Files.Files["/p/Unit2.dfm"];
        const std::size_t begin = form.find("Bekannt");
        form.replace(begin, 7, german);
    }

    std::string Proposed, Filter;
    int FilterIndex = 0;
};

TEST_F(TFiletransfer, ASingleFormHasToBeTranslatedOfSeveralEachGetsAComponent) {
    Select("Form1");
    for (const char* command : {"SaveForms", "LoadForms"}) {
        User.OnMessage(kNotTranslated);
        Run(command);
    }
    Expert->Window()->SelectAll1Click();
    SaveAs("SaveForms", "/p/all.mll");
    const auto file = OpenTranslationFile(Files.Files["/p/all.mll"], "all.mll");
    ASSERT_EQ(file->Forms().size(), 2U) << "one question, one file";
    EXPECT_EQ(file->Forms()[0].Project, "Demo");
    EXPECT_EQ(file->Languages().CommaText(), "English,German,French,\"Language N1\",\"Language N2\"");
    EXPECT_TRUE(Row("Form1").HasComponent());
    EXPECT_TRUE(Has("all.mll", "[Demo/Form2/Strings]\nIDS_0=Known|Bekannt|Connu\n"));
    EXPECT_TRUE(Has("all.mll", "[Demo/Form1/Captions]\nButton1.Caption=Go|Go\n"))
        << "a copy is brought up to the form";
    EXPECT_FALSE(Has("Unit2.dfm", "Captions")) << "which does not change";
    EXPECT_FALSE(IsFileOpen(Context(), "/p/Unit2.pas"));
    Ide.Undo();
    EXPECT_EQ(Files.Files.count("/p/all.mll"), 0U) << "one step of undo";
    EXPECT_FALSE(Row("Form1").HasComponent());
}

TEST_F(TFiletransfer, TheKindFollowsTheExtensionAndTheFilterCarriesOver) {
    Select("Form2");
    OnSave("/p/x.Mlb", 2);
    Run("SaveForms");
    EXPECT_TRUE(Has("x.Mlb", "TMLB"));
    SaveAs("SaveForms", "/p/x.txt");
    EXPECT_EQ(FilterIndex, 2);
    EXPECT_EQ(Proposed, "/p/x.Mlb");
    EXPECT_TRUE(Has("x.txt", "[Options]"));
    Context().Host.Runtime->mlLangProjectSettings->SetOptionValue("DefaultTranslationFileName",
                                                                  std::string("/p/own.mll"));
    OnOpen("");
    Run("MergeForms");
    EXPECT_EQ(Proposed, "/p/own.mll");
    Reword("Neu");
    OnOpen("/p/x.Mlb");
    User.OnMessage("Form2: overwritten: Strings IDS_0 (German): 'Bekannt' instead of 'Neu'\r\n");
    Run("MergeForms");
    EXPECT_TRUE(Has("Unit2.dfm", "Bekannt"));
    Reword("Neu");
    OpenFile(Context(), "/p/Unit2.pas", false);
    OnOpen("/p/x.Mlb");
    User.OnMessage(
        "Form2: overwritten: Strings IDS_0 (German): 'Bekannt' instead of 'Neu'\r\n"
        "Open, and with changes that are not saved yet: Form2\r\n");
    Run("MergeForms");
}

TEST_F(TFiletransfer, AnEmptyDelimiterIsRefusedAnotherOneConfirmed) {
    Select("Form2");
    OnSave("/p/a.mll");
    User.OnInput(kDelimiter, "");
    User.OnMessage("You cannot use empty delimiter!");
    Run("SaveForms");
    EXPECT_EQ(Files.Files.count("/p/a.mll"), 0U);
    SaveAs("SaveProject", "/p/a.mll", " ");
    EXPECT_EQ(User.Proposed, "~!@#$");
    EXPECT_TRUE(Has("a.mll", "IDS_0=Known Bekannt Connu"));
    const std::string before = Files.Files["/p/a.mll"];
    for (const TModalResult answer : {mrNo, mrYes}) {
        OnSave("/p/a.mll");
        User.OnInput(kDelimiter, "|");
        User.OnMessage(kOtherDelimiter, answer);
        Run("SaveProject");
        EXPECT_EQ(User.Proposed, " ");
        EXPECT_EQ(Files.Files["/p/a.mll"] == before, answer == mrNo);
    }
}

TEST_F(TFiletransfer, ALoadOfTheProjectReplacesAndTellsWhatWentAClosedFormIsSavedAndClosed) {
    SaveAs("SaveProject", "/p/a.mll");
    std::string& file = Files.Files["/p/a.mll"];
    file =
        "[Options]\nDelimiter=|\n[Language names - for internal use only!]\n1=English\n2=Italian\n"
        "3=German\n[Demo/Form2]\nLanguages=1,2,3\n[Demo/Form2/Strings]\nIDS_0=Old|Noto|Alt\n"
        "IDS_9=New|Nuovo|Neu\n[Demo/Form2/Captions]\nGone.Caption=a|b|c\n"
        "[Demo/Form1]\nLanguages=1\n[Demo/Renamed]\nLanguages=1\n";
    OnOpen("/p/a.mll");
    User.OnMessage(
        "Form2: added: Italian\r\nForm2: added: Strings IDS_9\r\n"
        "Form2: dropped: French with its translations: 1\r\n"
        "Form2: overwritten: Strings IDS_0 (German): 'Alt' instead of 'Bekannt'\r\n"
        "Form2: not in the form: Captions Gone.Caption\r\n"
        "Form2: in doubt, for the base text is another: 2\r\n"
        "a.mll: the file also holds Form1, Renamed, which the project has not (or which has no "
        "component)\r\n");
    Run("LoadProject");
    EXPECT_EQ(Row("Form2").Cell(fcLanguages), "3");
    EXPECT_TRUE(Has("Unit2.dfm", "'English'\r\n      'Italian'\r\n      'German')"));
    EXPECT_TRUE(Has("Unit2.dfm", "'IDS_0'#1'Known'#1'Noto'#1'Alt'\r\n      'IDS_9'#1'New'#1'Nuovo'#1'Neu')"));
    EXPECT_TRUE(Has("Unit2.dfm", "'Strings'#1'IDS_0'#1'3'#1'stale'#1'Old'"));
    EXPECT_FALSE(IsFileOpen(Context(), "/p/Unit2.pas"));
    Ide.Undo();
    EXPECT_EQ(Row("Form2").Cell(fcLanguages), "3");
    EXPECT_TRUE(Has("Unit2.dfm", "'French'"));
}

TEST_F(TFiletransfer, ALanguageIsChosenByItsName) {
    const std::string prompt =
        "The following languages are available in the selected file:\r\nEnglish\r\nGerman\r\nFrench\r\n"
        "Please type the language name to load:";
    SaveAs("SaveProject", "/p/a.mll");
    Reword("Neu");
    const std::string before = Files.Files["/p/Unit2.dfm"];
    for (const std::string answer : {"  ", " german"}) {
        OnOpen("/p/a.mll");
        User.OnInput(prompt, answer);
        if (answer != "  ") User.OnMessage("The specified language doesn't exist in file!");
        Run("LoadProjectLanguage");
        EXPECT_EQ(User.Proposed, "French");
        EXPECT_EQ(Filter, "TmlLang text files (*.mll)|*.mll");
        EXPECT_EQ(Files.Files["/p/Unit2.dfm"], before);
    }
    Select("Form2");
    OnOpen("/p/a.mll");
    User.OnInput(prompt, "german");
    User.OnMessage("Form2: overwritten: Strings IDS_0 (German): 'Bekannt' instead of 'Neu'\r\n");
    Run("LoadFormsLanguage");
    EXPECT_TRUE(Has("Unit2.dfm", "Bekannt"));
}

TEST_F(TFiletransfer, WhatCannotBeUsedLeavesFormAndFileAsTheyWere) {
    const std::string head = "[Options]\nDelimiter=|\n[Language names - for internal use only!]\n1=English\n";
    const struct {
        const char* File;
        std::string Bytes;
        const char* Problem;
    } rows[] = {
        {"/p/a.mll", "object Form1: TForm1\n", "/p/a.mll:1: expected a section"},
        {"/p/a.mlb", "TMLB", "/p/a.mlb: "},
        {"/p/b.mll", head + "2=German\n[Demo/Form2]\nLanguages=2,1\n",
         "/p/b.mll: the base language of Form2 is German there and English in the form"},
        {"/p/c.mll", head + "[Demo/Form2]\nLanguages=1\n[Demo/Form2/Strings]\nIDS_0=a~b\nX=|\n",
         "/p/c.mll:9: X has 2 texts where 1 is expected"},
        {"/p/none.mll", "", "/p/none.mll: there is no such file"},
    };
    const auto before = Files.Files["/p/Unit2.dfm"];
    for (const auto& row : rows) {
        if (!row.Bytes.empty()) Files.Files[row.File] = row.Bytes;
        OnOpen(row.File);
        try {
            Run("LoadProject");
            ADD_FAILURE() << row.File;
        } catch (const EBadInput& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(row.Problem)) << error.what();
        }
        EXPECT_EQ(Files.Files["/p/Unit2.dfm"], before);
    }
    Files.Files["/p/other.mll"] = head + "[Other/FormX]\nLanguages=1\n";
    for (const char* command : {"LoadProject", "MergeProject"}) {
        OnOpen("/p/other.mll");
        User.OnMessage("/p/other.mll: the file holds nothing of these forms; it is of Other/FormX");
        Run(command);
        EXPECT_EQ(Files.Files["/p/Unit2.dfm"], before);
    }
    Files.Files["/p/new.mll"] = "[Options]\nVersion=2\nDelimiter=|\n";
    OnSave("/p/new.mll");
    User.OnInput(kDelimiter, "|");
    EXPECT_THROW(Run("SaveProject"), EBadInput);
    EXPECT_EQ(Files.Files["/p/new.mll"], "[Options]\nVersion=2\nDelimiter=|\n");
}

TEST_F(TFiletransfer, AFileThatChangesMeanwhileIsNotOverwritten) {
    SaveAs("SaveProject", "/p/a.mll");
    const auto files = Runtime->OpenTranslationFiles("Demo");
    SaveFormToFile(Context(), "Form2", "/p/a.mll", "|");
    Files.Files["/p/a.mll"] += "; somebody else\n";
    EXPECT_THROW(files->Commit(), EFileError);
    EXPECT_TRUE(Has("a.mll", "; somebody else\n"));
    Files.Files["/p/a.mll"].resize(40);
    EXPECT_THROW(files->Commit(), EFileError) << "what is left is as it was read, but not all";
    Files.Files.erase("/p/a.mll");
    EXPECT_THROW(files->Commit(), EFileError);
    EXPECT_EQ(Files.Files.count("/p/a.mll"), 0U) << "one that is gone is not made anew";
}

TEST_F(TFiletransfer, AProtectedFileKeepsEverythingAsItWas) {
    SaveAs("SaveProject", "/p/a.mll");
    Reword("Neu");
    for (const auto& [file, command] :
         {std::pair("/p/a.mll", "SaveProject"), std::pair("/p/Unit2.dfm", "LoadProject")}) {
        Files.ReadOnlyFiles = {file};
        const auto before = Files.Files;
        if (std::string_view(command) == "LoadProject") {
            OnOpen("/p/a.mll");
            EXPECT_THROW(Run(command), EFileError);
        } else {
            EXPECT_THROW(SaveAs(command, "/p/a.mll"), EFileError);
        }
        EXPECT_EQ(Files.Files, before) << command;
    }
}

TEST_F(TFiletransfer, AFormWithoutWhatItsRowSaysIsPassedOverAndLeftOpen) {
    Row("Form1").Component = {"mlLang1", "TmlLang", 1};
    Rows().Rename(Row("Form2"), "Gone");
    OnSave("/p/a.mll");
    User.OnInput(kDelimiter, "|");
    User.OnMessage("Unable to obtain the interface of form module! Please check your project source.");
    Run("SaveProject");
    EXPECT_EQ(Files.Files.count("/p/a.mll"), 0U);
    EXPECT_TRUE(IsFileOpen(Context(), "/p/Unit1.pas"));
    EXPECT_TRUE(IsFileOpen(Context(), "/p/Unit2.pas"));
}

TEST_F(TFiletransfer, TwoFormsOfANameAreRefusedAUnitInBothListsIsOneForm) {
    Put("/p/Demo.mlproj", "[External Files]\nFiles=Unit2.pas,Unit2.pas\n");
    Ide.CloseProject();
    Ide.OpenProject("/p/Demo.dpr");
    Expert->RunItemClick();
    ASSERT_EQ(Context().Rows.ExternalFiles.Count(), 1);
    for (const TFormsPage page : {TFormsPage::ProjectForms, TFormsPage::ExternalFiles}) {
        Expert->Window()->pcFormsListChange(page);
        Files.Files.erase("/p/a.mll");
        SaveAs("SaveProject", "/p/a.mll");
        EXPECT_TRUE(Has("a.mll", "IDS_0=Known|Bekannt|Connu"));
        Reword("Neu");
        OnOpen("/p/a.mll");
        User.OnMessage("Form2: overwritten: Strings IDS_0 (German): 'Bekannt' instead of 'Neu'\r\n");
        Run("LoadProject");
        EXPECT_TRUE(Has("Unit2.dfm", "'Bekannt'"));
    }
    Rows().Add("form2", "Other", "/p/Other.pas");
    for (const TFormsPage page : {TFormsPage::ProjectForms, TFormsPage::ExternalFiles}) {
        Expert->Window()->pcFormsListChange(page);
        EXPECT_THROW(SaveFormToFile(Context(), "Form2", "/p/a.mll", "|"), EBadInput);
    }
}

TEST_F(TFiletransfer, AComponentUnderADispatcherTakesNoNewLanguage) {
    PutForm(1,
            "  object Disp: TmlLangDispatcher\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
            "      'English'\n      'German')\n  end\n  object mlLang1: TmlLang\n    Dispatcher = Disp\n"
            "    Strings.Strings = (\n      'A'#1'1'#1'eins')\n  end\n");
    Expert->RunItemClick();
    Files.Files["/p/a.mll"] =
        "[Options]\nDelimiter=|\n[Language names - for internal use only!]\n1=English\n2=German\n3=Polish\n"
        "[Demo/Form1]\nLanguages=1,2\n[Demo/Form1/Strings]\nA=1|uno\n";
    const TTransferReport report = LoadFormFromFile(Context(), "Form1", "/p/a.mll");
    EXPECT_EQ(report.Taken, 1);
    EXPECT_TRUE(Has("Unit1.dfm", "'A'#1'1'#1'uno'"));
    std::string& file = Files.Files["/p/a.mll"];
    file.replace(file.find("1,2\n"), 4, "1,3\n");
    try {
        MergeFormFromFile(Context(), "Form1", "/p/a.mll");
        ADD_FAILURE();
    } catch (const EBadInput& error) {
        EXPECT_EQ(error.Problem(),
                  "Form1 is linked to the dispatcher Disp of Form1, which has no language Polish. Add the "
                  "language to the dispatcher first");
    }
}

}  // namespace
}  // namespace tml
