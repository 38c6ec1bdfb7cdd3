// "Fill from dictionary" of the translation editor, with the settings of a project.
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "platform/Projectoptions.h"
#include "runtime/Mltranseditor.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

struct TTransDictionary : TExpertFixture, testing::Test {
    TTransDictionary() {
        PutForm(
            2,
            "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
            "      'English'\n      'German')\n    Captions.Strings = (\n"
            "      '.Caption\x01&Open\x01&Open'\n      'Button1.Caption\x01Go\x01Go')\n"
            "    Strings.Strings = (\n      'IDS_0\x01Open\x01'\n      'IDS_1\x01Lost\x01Lost')\n  end\n");
        Put("/p/d.dix",
            "<DICTIONARY "
            "VERSION=\"1\">\n<HEAD>\n<LANGUAGE>UK</LANGUAGE>\n<LANGUAGE>German</LANGUAGE>\n</HEAD>\n"
            "<ENTRY>\n<TEXT LANGUAGE=\"UK\">Open</TEXT>\n<TEXT LANGUAGE=\"German\">Auf</TEXT>\n</ENTRY>\n"
            "<ENTRY>\n<TEXT LANGUAGE=\"UK\">Go</TEXT>\n<TEXT LANGUAGE=\"German\">Los</TEXT>\n</ENTRY>\n"
            "</DICTIONARY>\n");
    }
    void Settings(const std::string& options) {
        Put("/p/Demo.mlproj", "[Settings]\nDictionaryBaseLanguage=UK</LANGUAGE>\n" + options);
        Open();
        Select("Form2");
    }
    void Edit(const std::function<void(TfrmTransEditor&)>& use) {
        User.OnWindow<TfrmTransEditor>("frmTransEditor", [use](TfrmTransEditor& editor) {
            use(editor);
            editor.btnCancelClick();
        });
        Expert->Window()->Run("Translate");
    }
    /// Of the shown rows in German, with their states.
    static std::string German(const TfrmTransEditor& editor) {
        std::string texts;
        for (int place = 0; place < editor.Grid().Count(); ++place)
            texts += editor.Text(place, 2) + " " + std::string(NameOf(*editor.State(place, 2))) + "; ";
        return texts;
    }
};

TEST_F(TTransDictionary, AsksAndFillsWhatIsShownAsOneStep) {
    Settings("DefaultDictionary=d.dix\nDictionarySkipAmpersands=1\nDictionaryForceEmpties=1\n");
    const std::string question =
        "Fill 3 translations from the dictionary d.dix?\r\n\r\n&Open -> &Auf\r\nGo -> Los\r\nOpen -> "
        "Auf\r\n\r\n"
        "Letter case: counts\r\nAccelerators: ignored\r\n"
        "Texts of several lines: as a whole\r\nExisting translations: stay\r\nEmpty translations: "
        "filled\r\n\r\n"
        "\"Project Settings...\" changes this.";
    Edit([&](TfrmTransEditor& editor) {
        const std::string before = German(editor);
        editor.SetCurrent(0, 2);
        User.OnMessage(question, mrNo);
        editor.acFillFromDictionary();
        EXPECT_FALSE(editor.CanUndo());
        User.OnMessage(question, mrYes);
        editor.acFillFromDictionary();
        EXPECT_EQ(German(editor), "&Auf touched; Los done; Auf done; Lost missing; ");
        EXPECT_EQ(editor.FormerBase(0, 2), "Open");
        EXPECT_EQ(editor.Notice, "Filled: 3. Not in the dictionary: 1. Translated already: 0. Left empty: 0");
        editor.acUndo();
        EXPECT_EQ(German(editor), before);
        EXPECT_FALSE(editor.CanUndo());
    });
}

TEST_F(TTransDictionary, FillsTheSelectedTextsWithoutAQuestionWhereTheProjectWantsNone) {
    Settings("DefaultDictionary=d.dix\nDontAskForDictionary=1\n");
    Edit([](TfrmTransEditor& editor) {
        editor.Select({1, 2, 2, 2});
        editor.acFillFromDictionary();
        EXPECT_EQ(German(editor), "&Open missing; Los done;  missing; Lost missing; ");
        editor.acUndo();
    });
}

TEST_F(TTransDictionary, SaysWhyItCannot) {
    Settings("DontAskForDictionary=1\n");
    Edit([this](TfrmTransEditor& editor) {
        editor.SetCurrent(0, 2);
        editor.acFillFromDictionary();
        EXPECT_EQ(editor.Notice, "The project has no dictionary yet: \"Project Settings...\" sets one");
        for (const char* file : {"none.dix", "Demo.dpr", "old.dic"}) {
            Runtime->mlLangProjectSettings->SetOptionValue("DefaultDictionary", std::string(file));
            EXPECT_THROW(editor.acFillFromDictionary(), EBadInput) << file;
        }
        Runtime->mlLangProjectSettings->SetOptionValue("DefaultDictionary", std::string("d.dix"));
        Runtime->mlLangProjectSettings->SetOptionValue("DictionaryBaseLanguage", std::string("Dutch"));
        EXPECT_THROW(editor.acFillFromDictionary(), EBadInput);
        EXPECT_FALSE(editor.CanUndo());
    });
}

}  // namespace
}  // namespace tml
