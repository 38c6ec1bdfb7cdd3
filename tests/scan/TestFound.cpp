#include "runtime/Runtime.h"
#include "scan/Found.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";

/// A review of the strings of a unit, outside of any run.
struct TFound : testing::Test {
    TMemoryRegistry Registry;
    TScriptedUser User;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime();
    TExpertSettings Settings{Registry, Runtime->NamesArray()};
    TContext Context{THost{.Runtime = Runtime.get(), .Registry = &Registry, .Dialogs = &User}, Settings};
    TScanMemory Memory;

    TfrmFound Make(const std::string& code, const std::string& fileName = "/p/Unit1.pas") {
        TScanInput input;
        input.Source = ReadSource(code, fileName);
        input.Component.FormName = "Form1";
        input.Component.ComponentName = "L";
        TFoundInput found{fileName, std::make_shared<std::string>(code), CallStyleOf(input), input.Existing,
                          Scan(input).Found};
        return {Context, Memory, std::move(found)};
    }
    static std::string Column(const TFoundGrid& grid, int column) {
        std::string text;
        for (const TFoundRow& row : grid.Rows)
            text += TFoundGrid::Cell(row, column) + "|";
        return text;
    }
};

TEST_F(TFound, ShowsEveryStringWithItsCall) {
    TfrmFound window = Make("f('One');\r\ng('Two'#13);\r\n");
    EXPECT_EQ(window.Caption, "Found String Constants (Unit1.pas)");
    EXPECT_EQ(Column(window.sgStrings, 0), "1|2|");
    EXPECT_EQ(Column(window.sgStrings, 2), "One|Two|");
    EXPECT_EQ(Column(window.sgStrings, 3),
              "L.GetTextOrDefault('IDS_0' (* 'One' *) )|L.GetTextOrDefault('IDS_1' (* 'Two' *) ) + |");
    EXPECT_EQ(window.StatusPanels,
              (std::array<std::string, 3>{"Found strings: 2", "Deleted strings: 0", "Selected rows: 0"}));
    EXPECT_NE(window.Preview().Text.find("g('Two'#13);"), std::string::npos);
}

TEST_F(TFound, ThePreviewMarksWhatTheCallReplaces) {
    TfrmFound window =
        Make("f(L\"One\",\r\n _T(\"Two\"));\r\ng(\"Three\"\r\n  \"Four\");\r\n", "/p/Unit1.cpp");
    Settings.SetPreviewLines(0);
    for (const std::string expected : {"L\"One\"", "_T(\"Two\")", "\"Three\"\r\n"}) {
        const TFoundPreview preview = window.Preview();
        EXPECT_EQ(preview.Text.substr(preview.Begin, preview.End - preview.Begin), expected);
        window.SelectCell(window.sgStrings.Row + 1);
    }
}

TEST_F(TFound, MarksAndSelectionsCanBeTakenBackAndSkippedStringsBeSeen) {
    TfrmFound window = Make("f('One');\r\ng('Two');\r\n");
    const auto marks = [&] {
        return std::pair(window.sgStrings.Rows[0].Record.MarkedToIgnore,
                         window.sgStrings.Rows[1].Record.MarkedToIgnore);
    };
    window.SelectCell(1);
    window.acSelectRow();
    window.acMarktoIgnore();
    EXPECT_EQ(marks(), std::pair(false, true));
    EXPECT_EQ(window.StatusPanels[2], "Selected rows: 1");
    window.acRemoveIgnoreMark();
    EXPECT_EQ(marks(), std::pair(false, false));
    window.acRemoveSelection();
    EXPECT_EQ(window.StatusPanels[2], "Selected rows: 0");
    User.OnWindow<TForm>("frmSkippedStrings", [](TForm& form) { form.ModalResult = mrCancel; });
    window.acViewSkipped();
}

TEST_F(TFound, ATypedIDReplacesNothingButTheID) {
    TfrmFound window = Make("f('IDS_0');\r\n");
    window.acTypecastPChar();
    window.acTypecastPChar();
    window.SetEditText(0, "My'ID");
    EXPECT_EQ(Column(window.sgStrings, 3), "PChar(L.GetTextOrDefault('My''ID' (* 'IDS_0' *) ))|");
    window.SetEditText(0, "X");
    EXPECT_EQ(Column(window.sgStrings, 3), "PChar(L.GetTextOrDefault('X' (* 'IDS_0' *) ))|");
    window.UseMethod("GetTextC(");
    EXPECT_EQ(Column(window.sgStrings, 3), "L.GetTextC('X' (* 'IDS_0' *) )|");
    window.sgStrings.Rows[0].Record.Replacement = "F;";
    window.acTypecastPChar();
    EXPECT_EQ(Column(window.sgStrings, 3), "PChar(F);|");
    TfrmFound cpp = Make("f(\"One\");\r\n", "/p/Unit1.cpp");
    cpp.SetEditText(0, "a\"b");
    EXPECT_EQ(Column(cpp.sgStrings, 3), "L->GetTextOrDefault(\"a\\\"b\" /* \"One\" */ )|");
}

TEST_F(TFound, StartIDNumbersTheRowsFromTheCurrentOne) {
    TfrmFound window = Make("f('a1', 'b1', 'c1');\r\n");
    window.SelectCell(1);
    User.OnInput("Input start ID (IDS_):", "12a");
    User.OnMessage("For automatic generation start ID shall be integer!");
    window.acStartID();
    EXPECT_EQ(User.Proposed, "1");
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_0|IDS_1|IDS_2|");
    User.OnInput("Input start ID (IDS_):", "70");
    window.acStartID();
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_0|IDS_70|IDS_71|");
}

TEST_F(TFound, DeletedRowsComeBackInTheirOrder) {
    TfrmFound window = Make("f('a1', 'b1', 'c1', 'd1');\r\n");
    User.OnMessage("Delete selected row (IDS_0)?", mrNo);
    window.acDeleteRow();
    User.OnMessage("Delete selected row (IDS_0)?", mrYes);
    window.acDeleteRow();
    User.OnInput("Type string which is included in rows which should be deleted:", "");
    window.acDeleteRowsContains();
    User.OnInput("Type string which is included in rows which should be deleted:", "c");
    window.acDeleteRowsContains();
    window.acInvertSelection();
    EXPECT_EQ(window.StatusPanels,
              (std::array<std::string, 3>{"Found strings: 2", "Deleted strings: 2", "Selected rows: 2"}));
    window.acSwitchDeleted();
    EXPECT_EQ(Column(window.Shown(), 2), "a1|c1|");
    window.acExclude();
    window.UseMethod("GetTextC(");
    EXPECT_EQ(Column(window.sgStrings, 2), "b1|d1|") << "the grid behind stays as it is";
    window.acSelectRow();
    window.acRestoreDeletedRow();
    EXPECT_EQ(Column(window.sgStrings, 2), "a1|b1|d1|");
    EXPECT_EQ(Memory.ExcludeRowsTypedStr, "c");
}

TEST_F(TFound, ExcludedPhrasesGoForGood) {
    TfrmFound window = Make("f('Yes', 'no', 'YES', 'ok', 'yes', 'ok');\r\n");
    User.OnMessage("Exclude all \"Yes\" and add it to Skip Words for future skipping?", mrYes);
    window.acExclude();
    EXPECT_EQ(Column(window.sgStrings, 2), "no|ok|ok|");
    window.acInvertSelection();
    User.OnMessage(
        "This will exclude phrases:\r\nno\r\nok\r\nand add them to \"Skip Words\" option for future "
        "skipping! Continue?",
        mrYes);
    window.acExclude();
    EXPECT_EQ(Settings.Get().SkipWords, TStringList({"Yes", "no", "ok"}));
    EXPECT_TRUE(window.sgDeleted.Rows.empty());
    TfrmFound cpp = Make("f(\"a\\nb\", \"c\\r\", \"dd\");\r\n", "/p/Unit1.cpp");
    cpp.acInvertSelection();
    User.OnMessage(
        "This will exclude phrases:\r\na\nb\r\nc\r\r\ndd\r\nand add them to \"Skip Words\" option for "
        "future skipping! Continue?",
        mrYes);
    User.OnMessage(
        "A phrase of more than one line cannot be kept in the \"Skip Words\" option. Its rows are removed, "
        "but the next scan will find it again.");
    cpp.acExclude();
    EXPECT_EQ(Settings.Get().SkipWords, TStringList({"Yes", "no", "ok", "dd"}));
    EXPECT_TRUE(cpp.sgStrings.Rows.empty());
}

TEST_F(TFound, OnlyWhatDoesSomethingIsEnabled) {
    TfrmFound window = Make("f('a1', 'b1');\r\n");
    const auto disabled = [&] {
        std::string names;
        for (const TFoundAction& action : TfrmFound::Actions())
            if (!window.EnabledOf(action)) names += std::string(action.Name) + " ";
        return names + (window.EnabledOf(TfrmFound::MethodMenu()) ? "" : "UseMethod ");
    };
    const std::string always = "acRestoreDeletedRow acRemoveSelection ";
    EXPECT_EQ(disabled(), "acRemoveIgnoreMark " + always);
    window.acMarktoIgnore();
    EXPECT_EQ(disabled(), "acMarktoIgnore " + always);
    window.acInvertSelection();
    EXPECT_EQ(disabled(), "acRestoreDeletedRow ") << "one is marked, the other is not";
    const std::string ofFound = "acDeleteRow acStartID acExclude acMarktoIgnore acRemoveIgnoreMark ";
    window.acSwitchDeleted();
    EXPECT_EQ(disabled(), ofFound +
                              "acRestoreDeletedRow acSelectRow acInvertSelection acRemoveSelection "
                              "acSelectAdvised acDeleteRowsContains acTypecastPChar UseMethod ");
    window.acSwitchDeleted();
    User.OnMessage("Delete selected rows?", mrYes);
    window.acDeleteRow();
    window.acSwitchDeleted();
    EXPECT_EQ(disabled(), ofFound + "acRemoveSelection acDeleteRowsContains acTypecastPChar UseMethod ");
}

TEST_F(TFound, WhatChangesNothingIsNoChange) {
    TfrmFound window = Make("x\r\n");
    window.acMarktoIgnore();
    window.acTypecastPChar();
    window.UseMethod("GetTextC(");
    window.acSwitchDeleted();
    window.acRestoreDeletedRow();
    EXPECT_TRUE(window.FormCloseQuery());
}

TEST_F(TFound, AsksBeforeItCloses) {
    TfrmFound window = Make("f('a1');\r\n");
    User.OnMessage("This will close the Found Strings form! Continue?", mrNo);
    window.tbCancelClick();
    EXPECT_FALSE(window.FormCloseQuery());
    window.ModalResult = mrNone;
    window.acSelectRow();
    User.OnMessage("There are some row(s) selected. Continue?", mrYes);
    User.OnMessage("This will apply changes and modify source code. Continue?", mrNo);
    window.tbModifyClick();
    EXPECT_EQ(window.ModalResult, mrNone);
    window.SetEditText(0, "");
    User.OnMessage("The string \"a1\" has no ID!");
    window.tbModifyClick();
    EXPECT_TRUE(Make("x\r\n").FormCloseQuery()) << "with nothing in it nobody is asked";
}

TEST_F(TFound, RemembersItsLayout) {
    Registry.Values[kKey + "\\GridCols"] = std::string("1,x,3");
    Registry.Values[kKey + "\\PreviewHeight"] = 33;
    TfrmFound window = Make("f('a1');\r\n");
    window.FormShow();
    window.HideNotice();
    window.FormClose();
    window.FormClose();
    EXPECT_EQ(Registry.Writes, (std::vector<std::string>{"FoundStrings\\GridCols=string 1,100,3,290",
                                                         "FoundStrings\\NoticeVisible=bool 0"}));
}

TEST_F(TFound, CommandsLeaveHiddenRowsAloneButThoseThatGoByAText) {
    TfrmFound window = Make("f('one Ä', 'two', 'ONE ä', 'two', 'six');\r\n");
    window.SelectCell(4);
    User.OnMessage("Delete selected row (IDS_4)?", mrYes);
    window.acDeleteRow();
    window.acInvertSelection();
    window.acSwitchDeleted();
    window.acSelectRow();
    window.acSwitchDeleted();
    window.SelectCell(1);
    window.SetFilter("One ä");
    EXPECT_EQ(window.sgStrings.Row, 2) << "the next that is shown";
    EXPECT_EQ(window.StatusPanels[2], "Selected rows: 2");
    EXPECT_EQ(window.sgDeleted.SelectedCount(), 0);
    window.acMarktoIgnore();
    window.acInvertSelection();
    EXPECT_EQ(window.sgStrings.SelectedCount(), 0);
    window.SelectRows({1, 2}, true);
    EXPECT_EQ(window.sgStrings.SelectedCount(), 1);
    window.SelectCell(0);
    User.OnInput("Input start ID (IDS_):", "70");
    window.acStartID();
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_70|IDS_1|IDS_71|IDS_3|");
    User.OnInput("Type string which is included in rows which should be deleted:", "w");
    window.acDeleteRowsContains();
    EXPECT_EQ(Column(window.sgStrings, 2), "one Ä|ONE ä|") << "the text decides, not the filter";
    window.acRemoveSelection();
    window.SelectCell(1);
    window.SetFilter("'\xC5\xBFix'");
    EXPECT_EQ(window.sgStrings.Current(), nullptr);
    window.acDeleteRow();
    window.acExclude();
    window.acStartID();
    window.acSwitchDeleted();
    ASSERT_NE(window.sgDeleted.Current(), nullptr) << "a long s is an s";
    EXPECT_EQ(window.sgDeleted.Current()->Record.StrContent, "six");
    window.SetFilter("");
    window.acSwitchDeleted();
    EXPECT_EQ(window.sgStrings.Row, 1) << "what was hidden comes back as it was";
}

TEST_F(TFound, TheCurrentRowKeepsItsPlace) {
    TfrmFound window = Make("f('a1', 'b1', 'c1', 'D1', 'e1', 'd1', 'f1');\r\n");
    const auto current = [&] { return window.sgStrings.Current()->Record.StrContent; };
    window.SelectCell(4);
    window.SelectRows({0, 2}, true);
    User.OnMessage("Delete selected rows?", mrYes);
    window.acDeleteRow();
    EXPECT_EQ(current(), "e1");
    window.acSwitchDeleted();
    window.acRestoreDeletedRow();
    window.acSwitchDeleted();
    EXPECT_EQ(Column(window.sgStrings, 2), "a1|b1|D1|e1|d1|f1|");
    EXPECT_EQ(current(), "e1");
    window.SelectCell(4);
    User.OnMessage("Exclude all \"d1\" and add it to Skip Words for future skipping?", mrYes);
    window.acExclude();
    EXPECT_EQ(current(), "f1");
    User.OnMessage("Delete selected row (IDS_6)?", mrYes);
    window.acDeleteRow();
    EXPECT_EQ(current(), "e1") << "the last one that is left";
}

TEST_F(TFound, RowsWithAnAdviceCanBeSelected) {
    TfrmFound window = Make(
        "unit U;\r\ninterface\r\nconst\r\n  C = 'One';\r\nimplementation\r\n"
        "procedure TForm1.P;\r\nbegin\r\n  F('Two');\r\nend;\r\nend.\r\n");
    window.acSelectAdvised();
    EXPECT_EQ(window.sgStrings.SelectedCount(), 1);
    EXPECT_EQ(window.Advice(), AdviceText(TAdvice::Const));
    window.SelectCell(1);
    EXPECT_EQ(window.Advice(), "");
}

}  // namespace
}  // namespace tml
