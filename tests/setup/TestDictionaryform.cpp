#include <gtest/gtest.h>

#include "setup/Dictionaryconflicts.h"
#include "setup/Dictionaryfillform.h"
#include "setup/Dictionaryform.h"
#include "support/Expertfixture.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

constexpr const char* kDictionary =
    "<DICTIONARY VERSION=\"1\">\n<HEAD>\n<LANGUAGE>English</LANGUAGE>\n<LANGUAGE>German</LANGUAGE>\n</HEAD>\n"
    "<ENTRY>\n<TEXT LANGUAGE=\"English\">Go</TEXT>\n<TEXT LANGUAGE=\"German\">Los</TEXT>\n</ENTRY>\n"
    "<ENTRY>\n<TEXT LANGUAGE=\"English\">Known</TEXT>\n<TEXT "
    "LANGUAGE=\"German\">Bewu\xC3\x9Ft</TEXT>\n</ENTRY>\n"
    "</DICTIONARY>\n";

/// Form2 is translated in part, Form1 has no component.
struct TDictionaryWindow : TExpertFixture, testing::Test {
    TDictionaryWindow() {
        PutForm(2,
                "  object mlLang1: TmlLang\n    NumOfLanguages = 3\n    LangNames.Strings = (\n"
                "      'English'\n      'German'\n      'French')\n    Captions.Strings = (\n"
                "      'Button1.Caption\x01GO\x01GO\x01GO')\n    Strings.Strings = (\n"
                "      'IDS_0\x01Known\x01"
                "Bekannt\x01"
                "Connu'\n      'IDS_1\x01Go\x01Go\x01')\n  end\n");
        Put("/p/d.dix", kDictionary);
        Put("/p/Demo.mlproj", "[Settings]\nDefaultDictionary=d.dix\nDictionaryIgnoreCase=1\n");
        Open();
    }
    void Dictionary(std::function<void(TfrmDictionary&)> use) {
        User.OnWindow<TfrmDictionary>("frmDictionary", std::move(use));
        Expert->Window()->Run("Dictionary");
    }
    std::string Saved(const std::string& file) {
        std::string text = Files.Files[file];
        std::erase(text, '\r');
        return text;
    }
    bool FormHas(const std::string& text) {
        return Files.Files["/p/Unit2.dfm"].find(text) != std::string::npos;
    }
};

TEST_F(TDictionaryWindow, EntriesAreEditedAndSaved) {
    Dictionary([this](TfrmDictionary& window) {
        EXPECT_EQ(window.FileName, "/p/d.dix");
        EXPECT_EQ(window.cbTranslation.Text(), "German");
        window.SetFilter("wu\xC3\x9F");
        EXPECT_EQ(window.grEntries.Shown(), std::vector<int>{1});
        window.SetFilter("");
        window.grEntries.OnEdit(0, "Auf");
        User.OnInput("English:", "Help\t");
        window.acAddEntry();
        EXPECT_EQ(window.memText, "Help\t");
        window.memTranslationChange("Hil\nfe");
        User.OnInput("Language:", "Dutch");
        window.acAddLanguage();
        EXPECT_EQ(window.memTranslation, "");
        window.memTranslationChange("Hulp");
        window.grEntries.SetCurrent(2);
        window.acDeleteEntries();
        window.acSave();
        EXPECT_FALSE(window.IsModified());
        window.btCloseClick();
    });
    EXPECT_EQ(
        Saved("/p/d.dix"),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DICTIONARY VERSION=\"1\">\n<HEAD>\n"
        "<LANGUAGE>English</LANGUAGE>\n<LANGUAGE>German</LANGUAGE>\n<LANGUAGE>Dutch</LANGUAGE>\n</HEAD>\n"
        "<ENTRY>\n<TEXT LANGUAGE=\"English\">Go</TEXT>\n<TEXT LANGUAGE=\"German\">Auf</TEXT>\n</ENTRY>\n"
        "<ENTRY>\n<TEXT LANGUAGE=\"English\">Help&#9;</TEXT>\n<TEXT LANGUAGE=\"German\">Hil&#10;fe</TEXT>\n"
        "<TEXT LANGUAGE=\"Dutch\">Hulp</TEXT>\n</ENTRY>\n</DICTIONARY>\n");
}

TEST_F(TDictionaryWindow, EveryEditIsAStepThatIsTakenBackAndAgain) {
    Dictionary([this](TfrmDictionary& window) {
        const TDictionary before = window.Dictionary();
        window.grEntries.Select({0, 1});
        window.acDeleteEntries();
        EXPECT_EQ(window.Status, "0 entries. 2 entries are deleted");
        window.acUndo();
        EXPECT_EQ(window.grEntries.SelectedCount(), 2);
        EXPECT_FALSE(window.IsModified());
        window.grEntries.Select({}, {0, 1});
        window.grEntries.SetCurrent(1);
        for (const char* typed : {"W", "Wi", "Wissen"})
            window.memTranslationChange(typed);
        window.grEntries.SetCurrent(0);
        window.acDeleteEntries();
        EXPECT_EQ(window.grEntries.SelectedCount(), 0) << "the next one is not selected with it";
        User.OnInput("English:", "Help");
        window.acAddEntry();
        User.OnInput("Language:", "Dutch");
        window.acAddLanguage();
        window.grEntries.OnEdit(0, "Hulp");
        User.OnWindow<TfrmDictionaryConflicts>(
            "frmDictionaryConflicts", [](TfrmDictionaryConflicts& conflicts) { conflicts.btCloseClick(); });
        window.acLearn();
        const TDictionary after = window.Dictionary();
        int steps = 0;
        for (; window.CanUndo(); ++steps)
            window.acUndo();
        EXPECT_EQ(steps, 6);
        EXPECT_EQ(window.Dictionary(), before);
        EXPECT_FALSE(window.IsModified());
        for (; window.CanRedo(); --steps)
            window.acRedo();
        EXPECT_EQ(window.Dictionary(), after);
        EXPECT_EQ(steps, 0);
        window.acSave();
        window.acUndo();
        EXPECT_TRUE(window.IsModified()) << "what is saved is ahead";
        User.OnInput("English:", "Other");
        window.acAddEntry();
        window.acUndo();
        EXPECT_TRUE(window.IsModified()) << "what is saved cannot be reached any more";
        User.OnMessage("Save the changes of the dictionary?", mrNo);
        window.btCloseClick();
    });
}

TEST_F(TDictionaryWindow, ATextThatIsThereIsLedToAndNotAddedAgain) {
    Dictionary([this](TfrmDictionary& window) {
        window.SetFilter("Go");
        User.OnInput("English:", "Known");
        window.acAddEntry();
        EXPECT_EQ(window.Status, "2 entries. \"Known\" is there already");
        EXPECT_EQ(window.memText, "Known");
        EXPECT_FALSE(window.IsModified());
        window.memTextChange("Go");
        EXPECT_EQ(window.Status, "2 entries. An entry above has this text, too: that one counts");
        User.OnMessage("Save the changes of the dictionary?", mrNo);
        window.btCloseClick();
    });
}

TEST_F(TDictionaryWindow, OneThatIsNotThereYetIsMadeUnderTheNameThatTheProjectHas) {
    Files.Files.erase("/p/d.dix");
    Runtime->mlLangProjectSettings->SetOptionValue("DictionaryBaseLanguage", std::string("UK</LANGUAGE>"));
    Dictionary([](TfrmDictionary& window) {
        EXPECT_EQ(window.Caption, "Dictionary - d.dix");
        EXPECT_EQ(window.Status, "0 entries. /p/d.dix is not there yet: \"Save\" makes it");
        EXPECT_EQ(window.Dictionary().Languages, TStringList({"UK", "German", "French"}));
        EXPECT_EQ(window.cbLanguage.Text() + window.cbTranslation.Text(), "UKGerman");
        window.acLearn();
        EXPECT_EQ(window.Status,
                  "1 entry. Learned from 1 form: 2 translations, 1 new entry. Known before: 0 translations");
        window.acSave();
        window.btCloseClick();
    });
    EXPECT_NE(Saved("/p/d.dix").find("<TEXT LANGUAGE=\"UK\">Known</TEXT>"), std::string::npos);
}

TEST_F(TDictionaryWindow, OneOfANewerVersionIsShownWithAWarning) {
    Put("/p/d.dix", std::string(kDictionary).replace(std::string(kDictionary).find('1'), 1, "9"));
    User.OnMessage(
        "/p/d.dix: the dictionary is of version 9, this program knows version 1. It is read, what is newer "
        "in it is "
        "passed over; it cannot be saved");
    Dictionary([](TfrmDictionary& window) {
        EXPECT_EQ(window.grEntries.Rows().size(), 2U);
        window.btCloseClick();
    });
}

TEST_F(TDictionaryWindow, AFormThatCannotBeWrittenKeepsItsChoicesWhileOthersAreFilled) {
    PutForm(1,
            "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
            "      'English'\n      'German')\n    Strings.Strings = (\n"
            "      'IDS_0\x01Go\x01Go')\n  end\n");
    Expert->RunItemClick();
    const std::string readOnly =
        "/p/Unit2.dfm: the file is read-only. Make it writable, or leave the form out";
    Files.ReadOnlyFiles = {"/p/Unit2.dfm"};
    Dictionary([&](TfrmDictionary& window) {
        User.OnWindow<TfrmFillDictionary>("frmFillDictionary", [&](TfrmFillDictionary& fill) {
            EXPECT_EQ(fill.Problems, readOnly);
            fill.Options.ForceEmpties = true;
            fill.OptionsChange();
            ASSERT_EQ(fill.grFills.Rows().size(), 3U);
            EXPECT_EQ(fill.grFills.Text(0, dfForm) + fill.grFills.Text(0, dfKey), "Form2Button1.Caption");
            fill.grFills.SetCurrent(0);
            fill.acLeaveOut();
            User.OnMessage("These forms are as they were and still listed:\r\n\r\n" + readOnly);
            fill.btFillClick();
            ASSERT_EQ(fill.ModalResult, mrNone);
            ASSERT_EQ(fill.grFills.Rows().size(), 2U);
            EXPECT_EQ(fill.Taken()[0].Fills[0].Key, "IDS_1") << "what was left out is still";
            EXPECT_NE(Files.Files["/p/Unit1.dfm"].find("'IDS_0'#1'Go'#1'Los'"), std::string::npos);
            Files.ReadOnlyFiles = {};
            fill.btFillClick();
            EXPECT_EQ(fill.ModalResult, mrOk);
        });
        window.acFill();
        EXPECT_EQ(window.Status, "2 entries. Filled: 2 translations");
        window.btCloseClick();
    });
    EXPECT_TRUE(FormHas("Button1.Caption\x01GO\x01GO"));
    EXPECT_TRUE(FormHas("'IDS_1'#1'Go'#1'Los'"));
}

TEST_F(TDictionaryWindow, FillsFormsWithWhatIsTakenAsOneStep) {
    const std::string before = Files.Files["/p/Unit2.dfm"];
    Dictionary([this](TfrmDictionary& window) {
        User.OnWindow<TfrmFillDictionary>("frmFillDictionary", [](TfrmFillDictionary& fill) {
            EXPECT_EQ(fill.cbLanguage.Text(), "German");
            ASSERT_EQ(fill.grFills.Rows().size(), 2U);
            EXPECT_EQ(fill.grFills.Text(0, dfForm) + fill.grFills.Text(0, dfKey), "Form2Button1.Caption");
            EXPECT_EQ(fill.grFills.Text(0, dfNew) + fill.grFills.Text(0, dfState), "Lostouched");
            fill.Options.OverwriteExisting = true;
            fill.OptionsChange();
            ASSERT_EQ(fill.grFills.Rows().size(), 3U);
            EXPECT_EQ(fill.grFills.Text(1, dfKey), "IDS_0");
            fill.grFills.SetCurrent(1);
            fill.acLeaveOut();
            EXPECT_NE(fill.Status.find("To be written: 2 of 3"), std::string::npos) << fill.Status;
            fill.btFillClick();
        });
        window.acFill();
        EXPECT_NE(window.Status.find("Filled: 2"), std::string::npos) << window.Status;
        window.btCloseClick();
    });
    EXPECT_TRUE(
        FormHas("IDS_0\x01Known\x01"
                "Bekannt"))
        << "left out";
    EXPECT_TRUE(FormHas("GO'#1'Los'#1'GO"));
    EXPECT_TRUE(FormHas("'Captions'#1'Button1.Caption'#1'2'#1'touched'#1'Go'"));
    EXPECT_EQ(Ide.Undo(), "Fill from Dictionary");
    EXPECT_EQ(Files.Files["/p/Unit2.dfm"], before);
}

TEST_F(TDictionaryWindow, SaysThatNoFormCanBeFilled) {
    Select("Form1");
    Dictionary([this](TfrmDictionary& window) {
        User.OnMessage("None of the forms is translated.");
        window.acFill();
        window.btCloseClick();
    });
}

TEST_F(TDictionaryWindow, LearnsFromFormsAndListsConflicts) {
    Dictionary([this](TfrmDictionary& window) {
        User.OnWindow<TfrmDictionaryConflicts>(
            "frmDictionaryConflicts", [](TfrmDictionaryConflicts& conflicts) {
                const TGrid& grid = conflicts.grConflicts;
                ASSERT_EQ(grid.Rows().size(), 1U);
                EXPECT_EQ(
                    grid.Text(0, 0) + "|" + grid.Text(0, 1) + "|" + grid.Text(0, 2) + "|" + grid.Text(0, 3),
                    "German|Known|Bewu\xC3\x9Ft|Bekannt (1)");
                conflicts.btCloseClick();
            });
        window.acLearn();
        EXPECT_EQ(window.Dictionary().Languages, TStringList({"English", "German", "French"}));
        EXPECT_EQ(window.Dictionary().Entries[1].Text(2), "Connu");
        User.OnMessage("Save the changes of the dictionary?", mrCancel);
        EXPECT_FALSE(window.FormCloseQuery());
        User.OnMessage("Save the changes of the dictionary?", mrNo);
        window.btCloseClick();
    });
    EXPECT_EQ(Files.Files["/p/d.dix"].find("Connu"), std::string::npos);
}

TEST_F(TDictionaryWindow, SaysWhatIsWrongWithAFileAndWritesNothing) {
    Dictionary([this](TfrmDictionary& window) {
        window.memTextChange("Los geht's");
        Put("/p/d.dix", "changed");
        User.OnMessage(
            "/p/d.dix: somebody else has changed the dictionary since it was read. Save it under "
            "another name, or open it again");
        window.acSave();
        EXPECT_TRUE(window.IsModified());
        User.OnWindow<TSaveDialog>("", [](TSaveDialog& dialog) {
            dialog.Files = {"/p/other.dix"};
            dialog.Close(mrOk);
        });
        window.acSaveAs();
        window.memTextChange("Ab");
        User.OnWindow<TOpenDialog>("", [](TOpenDialog& dialog) {
            dialog.Files = {"/p/d.dix"};
            dialog.Close(mrOk);
        });
        User.OnMessage(
            "/p/d.dix:1: no valid XML: No document element found. Choose a dictionary, or repair "
            "the file");
        window.acOpen();
        EXPECT_EQ(window.FileName, "/p/other.dix");
        EXPECT_EQ(window.memText, "Ab");
        EXPECT_TRUE(window.IsModified()) << "what is open stays";
        window.acUndo();
        window.btCloseClick();
    });
    EXPECT_EQ(Files.Files["/p/d.dix"], "changed");
    EXPECT_NE(Files.Files["/p/other.dix"].find("Los geht's"), std::string::npos);
}

/// Stands in for the automation object of the external tool.
class TExternalTool : public IDictionaryTool {
  public:
    explicit TExternalTool(std::vector<std::string>& calls) : calls_(calls) { calls_.push_back("create"); }
    ~TExternalTool() override { calls_.push_back("release"); }
    TDictionary Load(const std::string&) override { return {}; }
    void Save(const std::string&, const TDictionary&) override {}
    void Show(const std::string& fileName) override { calls_.push_back("show " + fileName); }

  private:
    std::vector<std::string>& calls_;
};

TEST_F(TDictionaryWindow, AnExternalToolIsCreatedOnDemandAndReleasedWithTheMainWindow) {
    std::vector<std::string> calls;
    Expert->Subjects().Dictionary.CreateExternalTool = [&] { return std::make_shared<TExternalTool>(calls); };
    Expert->Window()->Run("Dictionary");
    Expert->Window()->Run("Dictionary");
    Expert->Window()->FormClose();
    EXPECT_EQ(calls, (std::vector<std::string>{"create", "show /p/d.dix", "show /p/d.dix", "release"}));
    Expert->RunItemClick();
    Expert->Window()->Run("Dictionary");
    EXPECT_EQ(calls.size(), 6U);
    Expert->Subjects().Dictionary.Tool.reset();
}

}  // namespace
}  // namespace tml
