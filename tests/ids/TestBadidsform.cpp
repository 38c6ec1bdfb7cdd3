#include <gtest/gtest.h>

#include "base/Errors.h"
#include "ids/Badidsform.h"
#include "ids/Transeditor.h"
#include "scan/Selunit.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

constexpr const char* kUsed =
    "The project uses this ID, or may use it:\rB: used in Helper.pas:10\rDelete it all the same?";

/// Form1 and Form2 with strings of their own; Form1's unit asks for some of them.
struct TBadIDsFixture : TExpertFixture {
    TBadIDsFixture() {
        PutForm(1,
                Lang("'A\x01"
                     "a'\n      'B\x01"
                     "b'\n      'C\x01"
                     "c'"),
                "  X := mlLang1.GetText('A');\n  X := mlLang1.GetText('Z');\n  X := "
                "Form2.mlLang1.GetText('C');\n");
        Put("/p/Helper.pas",
            "unit Helper;\n\ninterface\n\nimplementation\n\nuses Unit1;\n\ninitialization\n"
            "  Form1.mlLang1.GetText('B');\n  Form1.mlLang1.GetText('Y');\nend.\n");
        Open();
    }
    static std::string Lang(const std::string& strings) {
        return "  object mlLang1: TmlLang\n    Strings.Strings = (\n      " + strings + ")\n  end\n";
    }
    std::string Rows() {
        std::string text;
        for (const auto& row : Window().lvIDs.Items())
            text += row->Cell(bcStringID) + "|" + row->Cell(bcType) + "|" + row->Cell(bcInfo) + "|" +
                    row->Cell(bcUse) + "|" + row->Cell(bcFileName) + "\n";
        return text;
    }
    TIDsMemory& IDs() { return Expert->Subjects().IDs; }
    TfrmBadIDs& Window() { return *IDs().BadIDs; }
    void Check(const std::string& form) {
        Select(form);
        CheckunusedIDs1Click(Context(), IDs());
    }
};

TEST(Badidsform, AFormIsCheckedBothWays) {
    TBadIDsFixture f;
    f.Check("Form1");
    const std::string rows =
        "B|Not used in source of current module.|Index: 1|used in Helper.pas:10|/p/Unit1.pas\n"
        "Z|Not found in Form1.mlLang1|Line: 25||/p/Unit1.pas\n"
        "C|Not found in Form2.mlLang1|Line: 26||/p/Unit1.pas\n";
    EXPECT_EQ(f.Rows(), rows);
    EXPECT_EQ(f.User.Shown.back(), &f.Window());
    EXPECT_EQ(f.Window().StatusPanels[1], "3");
    EXPECT_TRUE(f.Ide.Modules().empty());
    f.Window().lvIDs.Columns[0].Width = 99;
    f.Check("Form1");
    EXPECT_EQ(f.Rows(), rows);
    EXPECT_EQ(f.Window().lvIDs.Columns[0].Width, 99);
    // The source at a line, and which commands a row has.
    f.Window().lvIDs.Row(1).Selected = true;
    EXPECT_FALSE(f.Window().CanDelete());
    f.Window().LVIDsKeyDown(0x0D);
    const auto editor = f.Ide.GetModuleServices()->GetCurrentSourceEditor();
    EXPECT_EQ(editor->GetFileName(), "/p/Unit1.pas");
    EXPECT_EQ(editor->GetEditView(0)->GetCursorPos(), (TOTACharPos{25, 0}));
    f.Window().lvIDs.Row(0).Selected = true;
    EXPECT_TRUE(f.Window().CanDelete());
}

TEST(Badidsform, WhatIsSaidWhereNothingIsWrong) {
    TBadIDsFixture f;
    f.PutForm(2,
              TBadIDsFixture::Lang("'C\x01"
                                   "c'"),
              "  mlLang1.GetText('C');\n");
    f.User.OnMessage("All IDs on form Form2 are used.\rAll internal and external IDs resolved.");
    f.Check("Form2");
    f.Rows();
    f.Select("none");
    CheckunusedIDs1Click(f.Context(), f.IDs());
    f.PutForm(1, "");
    f.Expert->RunItemClick();
    f.User.OnMessage("Form Form1 is not translated!");
    f.Check("Form1");
    for (const auto& row : f.TExpertFixture::Rows().Items())
        row->Selected = true;
    f.User.OnMessage("All IDs on selected forms are used.\rAll internal and external IDs resolved.");
    CheckunusedIDs1Click(f.Context(), f.IDs());
    EXPECT_NE(f.User.Shown.back(), &f.Window());
}

TEST(Badidsform, UnitsAreCheckedForOtherFormsIDs) {
    TBadIDsFixture f;
    const auto check = [&](bool choose, const std::vector<std::string>& messages = {}) {
        f.User.OnWindow<TfrmTranslUnits>("frmTranslUnits", [choose](TfrmTranslUnits& units) {
            EXPECT_EQ(units.Caption, "Check bad string IDs in unit(s)");
            EXPECT_FALSE(units.OptionsVisible);
            units.SelectAll();
            units.Close(choose ? mrOk : mrCancel);
        });
        for (const std::string& message : messages)
            f.User.OnMessage(message);
        CheckbadstringIDsinunit1Click(f.Context(), f.IDs());
    };
    check(false);
    EXPECT_EQ(f.IDs().BadIDs, nullptr);
    check(true);
    EXPECT_EQ(f.Rows(), "Y|Not found in Form1.mlLang1|Line: 11||/p/Helper.pas\n");
    f.Put("/p/Helper.pas", "unit Helper;\ninterface\nimplementation\nend.\n");
    const std::string fine = "All external IDs in unit(s) resolved.";
    check(true, {fine});
    f.Files.Files.erase("/p/Helper.pas");
    check(true, {"Couldnot open file:\r/p/Helper.pas\r\nUnit skipped!", fine});
}

TEST(Badidsform, DeletedIDsGoInOneStep) {
    TBadIDsFixture f;
    f.PutForm(1, TBadIDsFixture::Lang("'A\x01"
                                      "a'\n      'B\x01"
                                      "b'\n      'C\x01"
                                      "c'"));
    const std::string before = f.Files.Files["/p/Unit1.dfm"];
    f.Check("Form1");
    for (const auto& row : f.Window().lvIDs.Items())
        row->Selected = true;
    f.User.OnMessage("This will delete A from Form1.mlLang1! Continue?", mrNo);
    f.User.OnMessage("This will delete B from Form1.mlLang1! Continue?", mrYes);
    f.User.OnMessage("This will delete C from Form1.mlLang1! Continue?", mrCancel);
    f.User.OnMessage(kUsed, mrYes);
    f.Window().Delete1Click();
    EXPECT_EQ(f.Window().lvIDs.Count(), 2);
    EXPECT_EQ(f.Window().StatusPanels[1], "2");
    EXPECT_TRUE(f.Window().lvIDs.Row(1).Selected) << "the one behind the deleted one";
    EXPECT_EQ(f.Files.Files["/p/Unit1.dfm"].find("B\x01"), std::string::npos);
    EXPECT_NE(f.Files.Files["/p/Unit1.dfm"].find("A\x01"), std::string::npos);
    for (const auto& row : f.Window().lvIDs.Items())
        row->Selected = true;
    f.User.OnMessage("This will delete A from Form1.mlLang1! Continue?", mrYesToAll);
    f.Window().Delete1Click();
    EXPECT_EQ(f.Window().lvIDs.Count(), 0);
    EXPECT_EQ(f.Window().ModalResult, mrClose);
    f.Ide.Undo();
    EXPECT_NE(f.Files.Files["/p/Unit1.dfm"], before);
    f.Ide.Undo();
    EXPECT_EQ(f.Files.Files["/p/Unit1.dfm"], before);
}

TEST(Badidsform, UsedIDsStayUnlessTheyAreWantedGone) {
    TBadIDsFixture f;
    f.Check("Form1");
    ASSERT_EQ(f.Window().lvIDs.Row(0).Bad.Use.Kind, TIDUseKind::Used);
    const auto before = f.Files.Files;
    const auto remove = [&f](TModalResult first, TModalResult further) {
        f.Window().lvIDs.Row(0).Selected = true;
        f.User.OnMessage("This will delete B from Form1.mlLang1! Continue?", first);
        f.User.OnMessage(kUsed, further);
        f.Window().Delete1Click();
    };
    for (const TModalResult first : {mrYes, mrYesToAll}) {
        remove(first, mrNo);
        EXPECT_EQ(f.Window().lvIDs.Count(), 3);
        EXPECT_EQ(f.Files.Files, before);
    }
    remove(mrYes, mrYes);
    EXPECT_EQ(f.Window().lvIDs.Count(), 2);
    EXPECT_NE(f.Files.Files, before);
}

TEST(Badidsform, AnIDThatStandsTwiceGoesTwice) {
    TBadIDsFixture f;
    f.PutForm(1, TBadIDsFixture::Lang("'A\x01"
                                      "a'\n      'a\x01"
                                      "other'\n      'C\x01"
                                      "c'"));
    f.Check("Form1");
    f.Window().lvIDs.Row(0).Selected = f.Window().lvIDs.Row(1).Selected = true;
    f.User.OnMessage("This will delete A from Form1.mlLang1! Continue?", mrYes);
    f.User.OnMessage("This will delete a from Form1.mlLang1! Continue?", mrYes);
    f.Window().Delete1Click();
    EXPECT_EQ(f.Window().lvIDs.Count(), 1);
    const std::string& form = f.Files.Files["/p/Unit1.dfm"];
    EXPECT_EQ(form.find("other"), std::string::npos) << form;
    EXPECT_NE(form.find("C\x01"), std::string::npos);
}

TEST(Badidsform, AnUnusedIDOpensTheTranslationEditor) {
    TBadIDsFixture f;
    f.Check("Form1");
    f.Window().lvIDs.Row(0).Selected = true;
    int entry = -1;
    f.Runtime->TransEditorDlg = [&](TmlCustomLang& lang, const TTransEditorPlace& place,
                                    const TChangeStrID&) {
        entry = place.Entry;
        TTable strings = lang.GetTable(TStringsType::stStrings);
        strings.SetText(place.Entry, 1, "other");
        lang.SetTable(strings);
        return true;
    };
    f.Window().LVIDsDblClick();
    EXPECT_EQ(entry, 1);
    EXPECT_NE(f.Files.Files["/p/Unit1.dfm"].find("other"), std::string::npos);
    // A unit in which it has shown a string stays open.
    const auto modules = f.Ide.GetModuleServices();
    const auto edit = f.Runtime->TransEditorDlg;
    EXPECT_EQ(modules->FindModule("/p/Unit1.pas"), nullptr);
    f.Runtime->TransEditorDlg = [&](TmlCustomLang& lang, const TTransEditorPlace&, const TChangeStrID&) {
        f.Runtime->NavigateToSource("Form1", lang.GetTable(TStringsType::stStrings).Entries()[0].Key);
        return false;
    };
    f.Window().LVIDsDblClick();
    EXPECT_NE(modules->FindModule("/p/Unit1.pas"), nullptr);
    f.Runtime->TransEditorDlg = edit;
    // And from the call in the source.
    modules->OpenModule("/p/Unit1.pas", true);
    const auto view = f.Ide.GetModuleServices()->GetCurrentSourceEditor()->GetEditView(0);
    view->SetCursorPos({24, 4});
    ViewTranslationByIDMenuClick(f.Context(), f.ScanMemory());
    EXPECT_EQ(entry, 0);
    view->SetCursorPos({25, 4});
    f.User.OnMessage("Form1.mlLang1 has no string 'Z'!");
    EXPECT_THROW(ViewTranslationByIDMenuClick(f.Context(), f.ScanMemory()), EmlLangSilent);
    view->SetCursorPos({1, 0});
    f.User.OnMessage("There is no call with a string ID at the cursor!");
    ViewTranslationByIDMenuClick(f.Context(), f.ScanMemory());
}

}  // namespace
}  // namespace tml
