#include <gtest/gtest.h>

#include "base/Stringlist.h"
#include "ids/Idrename.h"
#include "ids/Stridrepl.h"
#include "source/Language.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

TEST(Stridrepl, LinesWithAnID) {
    const struct {
        const TLanguage& Language;
        const char *Text, *Rows;
    } cases[] = {
        {kPascal, "x;\r\nA.GetText('Str1') + 'Str1'; // 'Str1'\r\n",
         "1|A.GetText('Str1') + 'Str1'; // 'Str1'|A.GetText('N''1') + 'N''1'; // 'N''1'\n"},
        {kPascal, "Foo('Str1'); A.GetText('B')\nGetTextW('Str1')\nGetText('STR1')", ""},
        {kPascal, "A.GetTextC('Str1')", "0|A.GetTextC('Str1')|A.GetTextC('N''1')\n"},
        {kPascal, "GetTextOrDefaultC(x, 'Str1')",
         "0|GetTextOrDefaultC(x, 'Str1')|GetTextOrDefaultC(x, 'N''1')\n"},
        {kCpp, "A->GetText(\"Str1\");\nA->GetText('Str1');",
         "0|A->GetText(\"Str1\");|A->GetText(\"N'1\");\n"},
    };
    for (const auto& [language, text, rows] : cases) {
        std::string got;
        for (const TSourceLineRow& row : LinesWithID(text, language, "Str1", "N'1"))
            got += row.Cell(0) + "|" + row.Cell(1) + "|" + row.Cell(2) + "\n";
        EXPECT_EQ(got, rows) << text;
    }
}

struct TReplaceFixture : TExpertFixture {
    TReplaceFixture() {
        PutForm(1,
                "  object mlLang1: TmlLang\n    Strings.Strings = (\n      'A\x01"
                "a'\n      'B\x01"
                "b')\n  end\n",
                "  mlLang1.GetText('A');\n  mlLang1.GetTextW('A');\n  mlLang1.GetText('B');\n");
        Put("/p/Helper.pas",
            "unit Helper;\n\ninterface\n\nimplementation\n\ninitialization\n  "
            "Form1.mlLang1.GetText('A');\nend.\n");
        Before = Files.Files;
        Open();
    }
    void OnReplace(const std::function<void(TfrmStrReplace&)>& use) {
        User.OnWindow<TfrmStrReplace>("frmStrReplace", use);
    }
    std::string TextOf(const std::string& file) {
        const auto module = Ide.GetModuleServices()->FindModule(file);
        return module == nullptr ? Files.Files[file] : *module->GetSourceEditor(0)->GetText();
    }
    std::map<std::string, std::string> Before;
};

TEST(Stridrepl, TheChangeFollowsInChosenUnits) {
    TReplaceFixture f;
    f.OnReplace([](TfrmStrReplace& window) {
        EXPECT_EQ(window.lbUnits.Items.CommaText(), "/p/Unit2.pas,/p/Helper.pas");
        EXPECT_EQ(window.lbSelectedUnits.Items.CommaText(), "/p/Unit1.pas");
        EXPECT_EQ(window.ShownName("/p/Unit2.pas"), "Unit2.pas");
        window.btRemoveAllClick();
        EXPECT_EQ(window.lbUnits.Items.CommaText(), "/p/Unit2.pas,/p/Helper.pas,/p/Unit1.pas");
        window.btAddAllClick();
        window.lbSelectedUnits.Selected[0] = true;
        window.btRemoveClick();
        window.lbUnits.Selected[0] = true;
        window.btAddClick();
        window.btReplaceClick();
    });
    f.OnReplace([](TfrmStrReplace& window) {
        EXPECT_EQ(
            window.lbUnitName,
            "Unit file: /p/Helper.pas\rSource line(s) with old string identifier that will be modified:");
        EXPECT_EQ(window.btReplaceCaption, "&Replace");
        EXPECT_EQ(window.lvSourceLines.Row(0).Cell(0), "7");
        window.btReplaceClick();
    });
    f.OnReplace([&](TfrmStrReplace& window) {
        EXPECT_EQ(window.lvSourceLines.Count(), 1);
        window.lvSourceLines.Row(0).Selected = true;
        window.Editresultline1Click();
        EXPECT_EQ(f.User.Proposed, "  mlLang1.GetText('N');");
        window.btReplaceClick();
    });
    f.User.OnInput("Type new value for result line:", "  mlLang1.GetText('N'); // changed");
    f.User.OnMessage("There is no lines to modify in unit source.");
    f.User.OnMessage("These uses of A were left:\r\nused in Unit1.pas:25");
    OnChangeStrID(f.Context(), "Form1", "A", "N");
    EXPECT_NE(f.TextOf("/p/Unit1.pas").find("GetText('N'); // changed\r\n  mlLang1.GetTextW('A')"),
              std::string::npos);
    EXPECT_NE(f.TextOf("/p/Helper.pas").find("Form1.mlLang1.GetText('N');"), std::string::npos);
    EXPECT_EQ(f.Files.Files, f.Before) << "nothing is saved";
    f.Ide.Undo();
    EXPECT_EQ(f.TextOf("/p/Unit1.pas"), f.Before["/p/Unit1.pas"]);
    EXPECT_EQ(f.TextOf("/p/Helper.pas"), f.Before["/p/Helper.pas"]);
}

TEST(Stridrepl, CancelAndRowsThatAreDropped) {
    TReplaceFixture f;
    f.OnReplace([](TfrmStrReplace& window) { window.btCancelClick(); });
    f.User.OnMessage(
        "These uses of A were left:\r\nused in Unit1.pas:24\r\nused in Unit1.pas:25\r\nused in "
        "Helper.pas:8");
    OnChangeStrID(f.Context(), "Form1", "A", "N");
    f.Files.Files.erase("/p/Unit2.pas");
    f.OnReplace([](TfrmStrReplace& window) {
        window.btAddAllClick();
        window.btReplaceClick();
    });
    f.OnReplace([&](TfrmStrReplace& window) {
        window.Invertselection1Click();
        window.Delete1Click();
        EXPECT_TRUE(window.HasLines());
        window.Delete1Click();
        EXPECT_FALSE(window.HasLines());
        window.btReplaceClick();
    });
    f.User.OnMessage("Delete selected row(s)?", mrNo);
    f.User.OnMessage("Delete selected row(s)?", mrYes);
    f.User.OnMessage("Couldn't retrieve unit source.\rUnit skipped!");
    f.OnReplace([](TfrmStrReplace& window) { window.btCancelClick(); });
    f.User.OnMessage(
        "These uses of A were left:\r\nused in Unit1.pas:24\r\nused in Unit1.pas:25\r\nused in "
        "Helper.pas:8\r\n"
        "undecidable: a unit cannot be read (Unit2.pas)");
    OnChangeStrID(f.Context(), "Form1", "A", "N");
    EXPECT_EQ(f.TextOf("/p/Unit1.pas"), f.Before["/p/Unit1.pas"]);
}

TEST(Idrename, AllOfItOrNothing) {
    TReplaceFixture f;
    const TIDRenamed renamed = RenameID(f.Context(), {"Form1", "a", "It's"});
    EXPECT_EQ(renamed.Calls, 3);
    EXPECT_EQ(renamed.Units, (std::vector<std::string>{"/p/Unit1.pas", "/p/Helper.pas"}));
    EXPECT_NE(f.Files.Files["/p/Unit1.pas"].find("GetText('It''s');\r\n  mlLang1.GetTextW('It''s');"),
              std::string::npos);
    EXPECT_NE(f.Files.Files["/p/Unit1.dfm"].find("'It'#39's'#1'a'"), std::string::npos)
        << f.Files.Files["/p/Unit1.dfm"];
    f.Ide.Undo();
    EXPECT_EQ(f.Files.Files, f.Before);
    const struct {
        const char *Form, *Old, *New, *Problem;
    } cases[] = {
        {"Form1", "none", "N", "Form1.mlLang1 has no string 'none'"},
        {"Form1", "A", "b", "Form1.mlLang1 has a string 'b' already"},
        {"Form1", "A", "", "'' is no string ID"},
        {"Form1", "A", " x", "' x' is no string ID"},
        {"Form1", "A", "x\x01y", "is no string ID"},
        {"Form3", "A", "N", "Form3 has no localization component"},
    };
    for (const auto& [form, old, fresh, problem] : cases) {
        try {
            RenameID(f.Context(), {form, old, fresh});
            ADD_FAILURE() << problem;
        } catch (const EBadInput& error) {
            EXPECT_NE(std::string(error.what()).find(problem), std::string::npos) << error.what();
        }
        EXPECT_EQ(f.Files.Files, f.Before);
    }
    f.Files.Files["/p/Helper.pas"] = "// \xE4\r\n" + f.Before["/p/Helper.pas"];
    const auto ansi = f.Files.Files;
    EXPECT_THROW(RenameID(f.Context(), {"Form1", "A", "\xD0\x98"}), EBadInput) << "the file cannot hold it";
    EXPECT_EQ(f.Files.Files, ansi);
    f.Put("/p/Helper.pas", f.Before["/p/Helper.pas"] + "Form1.mlLang1.GetText(S);");
    EXPECT_THROW(RenameID(f.Context(), {"Form1", "A", "N"}), EBadInput);
    TIDRename left{"Form1", "A", "N"};
    left.DespiteDoubts = true;
    EXPECT_EQ(RenameID(f.Context(), left).Left.size(), 1U);
}

}  // namespace
}  // namespace tml
