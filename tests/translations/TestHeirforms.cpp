// Commands over a form and the one that it inherits from: what was closed is written and closed again.
#include <gtest/gtest.h>
#include <optional>

#include "core/Modules.h"
#include "runtime/Mltranseditor.h"
#include "support/Expertfixture.h"
#include "translations/Langconfig.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

/// Form1 inherits from Form2.
struct THeirForms : TExpertFixture {
    THeirForms() {
        const std::string tables =
            "    Captions.Strings = (\n      'Button1.Caption'#1'Go'#1'Los')\n"
            "    Hints.Strings = (\n      'Button1.Hint'#1'Go'#1)\n  end\n";
        PutForm(2,
                "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
                "      'English'\n      'German')\n" +
                    tables);
        std::string& base = Files.Files["/p/Unit2.dfm"];
        base.insert(base.rfind("  end"), "    Hint = 'Go'\r\n");
        Put("/p/Unit1.dfm", "inherited Form1: TForm1\n  inherited mlLang1: TmlLang\n" + tables + "end\n");
        Put("/p/Unit1.pas",
            "unit Unit1;\n\ninterface\n\nuses\n  Unit2;\n\ntype\n  TForm1 = class(TForm2)\n  end;\n\nvar\n  "
            "Form1: TForm1;\n\nimplementation\n\n{$R *.dfm}\n\nend.\n");
    }
    void Run(const char* command) { Expert->Window()->Run(command); }
    /// Loads what was saved of the forms, with a text more.
    void LoadOther(const char* command) {
        User.OnWindow<TSaveDialog>("SaveDialog", Choose);
        User.OnInput("Input delimeter:", "|");
        Run("SaveForms");
        std::string& file = Files.Files["/p/a.mll"];
        const std::string line = "Button1.Hint=Go|";
        for (auto at = file.find(line); at != std::string::npos; at = file.find(line, at + 1))
            file.insert(at + line.size(), "Neu");
        User.OnWindow<TOpenDialog>("OpenDialog", Choose);
        Run(command);
    }
    static void Choose(TFileDialog& dialog) {
        dialog.Files = {"/p/a.mll"};
        dialog.Close(mrOk);
    }
};

struct THeirCase {
    const char* Command;
    std::function<void(THeirForms&)> Run;
    const char* Text;  ///< in the ancestor then
    bool IsOrdered;    ///< the ancestor comes first, so that the heir takes from it what it can
};

constexpr const char* kNewHint = "'Button1.Hint'#1'Go'#1'Neu'";

const THeirCase kHeirCases[] = {
    {"Translate",
     [](THeirForms& test) {
         test.User.OnWindow<TfrmTransEditor>("frmTransEditor", [](TfrmTransEditor& editor) {
             for (int place = 0; place < editor.Grid().Count(); ++place)
                 editor.SetText(place, 2, "Neu");
             editor.btnOKClick();
         });
         test.Run("Translate");
     },
     kNewHint, false},
    {"Update", [](THeirForms& test) { test.Run("Update"); }, "'.Locale'#1'en'#1'de'", true},
    {"Clear",
     [](THeirForms& test) {
         test.User.OnMessage("This will clear all translation information in selected form(s)! Continue?",
                             mrYes);
         test.Run("Clear");
     },
     "'Button1.Caption'#1'Go'#1)", true},
    {"Languages",
     [](THeirForms& test) {
         test.User.OnWindow<TfrmLangConfig>("frmLangConfig", [&](TfrmLangConfig& window) {
             test.User.OnInput("Enter new language name:", "French");
             window.btnAddClick();
             window.Close(mrOk);
         });
         test.Run("Languages");
     },
     "'Button1.Caption'#1'Go'#1'Los'#1", false},
    {"LoadForms", [](THeirForms& test) { test.LoadOther("LoadForms"); }, kNewHint, true},
    {"MergeForms", [](THeirForms& test) { test.LoadOther("MergeForms"); }, kNewHint, true},
};

TEST(Heirforms, WhatWasClosedIsWrittenAndClosedInAnyOrder) {
    for (const THeirCase& one : kHeirCases) {
        std::optional<std::string> heir;
        for (const char* first : {"Form1", "Form2"}) {
            SCOPED_TRACE(std::string(one.Command) + " " + first);
            THeirForms test;
            test.Open();
            if (test.Rows().Items().front()->FormName != first)
                test.Expert->Window()->lvFormNamesColumnClick(fcFormName);
            ASSERT_EQ(test.Rows().Items().front()->FormName, first);
            test.Expert->Window()->SelectAll1Click();
            one.Run(test);
            const std::string& ancestor = test.Files.Files["/p/Unit2.dfm"];
            EXPECT_NE(ancestor.find(one.Text), std::string::npos) << ancestor;
            for (const char* unit : {"/p/Unit1.pas", "/p/Unit2.pas"})
                EXPECT_FALSE(IsFileOpen(test.Context(), unit)) << unit;
            const std::string& bytes = test.Files.Files["/p/Unit1.dfm"];
            EXPECT_EQ(bytes, heir.value_or(bytes));
            if (one.IsOrdered) heir = bytes;
        }
    }
}

/// Loads the ancestor alone, so that German goes from the second place to the third.
TEST(Heirforms, TextsFollowTheLanguagesThatTheAncestorLoads) {
    const std::string states =
        "    States.Strings = (\n      'Captions'#1'Button1.Caption'#1'2'#1'stale'#1'Run')\n  end\n";
    for (const char* const holder : {"/p/Unit1.dfm", "/p/Unit2.dfm"}) {
        SCOPED_TRACE(holder);
        THeirForms test;
        std::string& holding = test.Files.Files[holder];
        const std::size_t end = holding.find("#1)\r\n  end\r\n");
        test.Put(holder, holding.substr(0, end) + "#1)\n" + states + holding.substr(end + 12));
        const bool isHeirs = holding.starts_with("inherited");
        test.Files.Files["/p/a.mll"] =
            "[Options]\nVersion=1\nDelimiter=|\n[Language names - for internal use "
            "only!]\n1=English\n2=French\n"
            "3=German\n[/Form2]\nLanguages=1,2,3\n[/Form2/Captions]\nButton1.Caption=Go|Aller|Los\n" +
            std::string(isHeirs ? "" : "[/Form2/States]\nCaptions:3:Button1.Caption=stale|Run\n");
        test.Open();
        test.Select("Form2");
        test.User.OnWindow<TOpenDialog>("OpenDialog", THeirForms::Choose);
        test.User.OnMessage("Form2: added: French\r\n", mrOk);
        test.Run("LoadForms");
        const std::string& heir = test.Files.Files["/p/Unit1.dfm"];
        EXPECT_NE(heir.find("'Button1.Caption'#1'Go'#1'Go'#1'Los')"), std::string::npos) << heir;
        const std::string& marked = test.Files.Files[holder];
        EXPECT_NE(marked.find("'Captions'#1'Button1.Caption'#1'3'#1'stale'#1'Run'"), std::string::npos)
            << marked;
        EXPECT_EQ(heir.find("States") != std::string::npos, isHeirs) << heir;
    }
}

TEST(Heirforms, WhatHeirsLoseWithALanguageIsToldWithTheAncestor) {
    THeirForms test;
    test.Files.Files["/p/a.mll"] =
        "[Options]\nVersion=1\nDelimiter=|\n[Language names - for internal use only!]\n1=English\n[/Form2]\n"
        "Languages=1\n";
    test.Open();
    test.Select("Form2");
    test.User.OnWindow<TOpenDialog>("OpenDialog", THeirForms::Choose);
    test.User.OnMessage(
        "Form2: dropped: German with its translations: 1\r\nForm2: dropped: translations of Form1: 1\r\n",
        mrOk);
    test.Run("LoadForms");
    const std::string& heir = test.Files.Files["/p/Unit1.dfm"];
    EXPECT_EQ(heir.find("Los"), std::string::npos) << heir;
}

}  // namespace
}  // namespace tml
