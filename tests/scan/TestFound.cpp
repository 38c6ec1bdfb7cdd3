#include "host/Commonlibrary.h"
#include "runtime/Runtime.h"
#include "scan/Found.h"
#include "scan/Scan.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";

/// A review of the strings of a unit, outside of any run.
struct TFound : testing::Test {
    TMemoryRegistry Registry;
    TScriptedUser User;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime();
    std::unique_ptr<ICommonLibraryLoader> Common = MakeCommonLibraryLoader(TML_BIN "/TmlLang_Common.so");
    TExpertSettings Settings{Registry, Runtime->NamesArray()};
    TContext Context{
        THost{
            .Runtime = Runtime.get(), .Registry = &Registry, .Dialogs = &User, .CommonLibrary = Common.get()},
        Settings};
    TScanMemory Memory;

    TfrmFound Make(const std::string& code, const std::string& fileName = "/p/Unit1.pas",
                   bool withAdvice = false) {
        TScanInput input;
        input.WithAdvice = withAdvice;
        input.Source = ReadSource(code, fileName);
        input.Component.FormName = "Form1";
        input.Component.ComponentName = "L";
        TFoundInput found{fileName, std::make_shared<std::string>(code), CallStyleOf(input), input.Existing,
                          Scan(input).Found};
        found.DiffOf = [](const TmlFoundSourceStrings&) { return std::string(); };
        return {Context, Memory, std::move(found)};
    }
    static std::string Column(const TGrid& grid, int column) {
        std::string text;
        for (const int row : grid.Rows())
            text += grid.Cell(row, column) + "|";
        return text;
    }
};

/// Runs the commands, one after another.
template <auto... Commands>
void Call(TfrmFound& window) {
    ((window.*Commands)(), ...);
}

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
        window.sgStrings.SetCurrent(window.sgStrings.Current() + 1);
    }
}

TEST_F(TFound, MarksAndSelectionsCanBeTakenBackAndSkippedStringsBeSeen) {
    TfrmFound window = Make("f('One');\r\ng('Two');\r\n");
    const auto marks = [&] {
        return std::pair(window.Rows[0].Record.MarkedToIgnore, window.Rows[1].Record.MarkedToIgnore);
    };
    window.sgStrings.SetCurrent(1);
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
    window.Rows.Change(0).Record.Replacement = "F;";
    window.acTypecastPChar();
    EXPECT_EQ(Column(window.sgStrings, 3), "PChar(F);|");
    TfrmFound cpp = Make("f(\"One\");\r\n", "/p/Unit1.cpp");
    cpp.SetEditText(0, "a\"b");
    EXPECT_EQ(Column(cpp.sgStrings, 3), "L->GetTextOrDefault(\"a\\\"b\" /* \"One\" */ )|");
}

TEST_F(TFound, StartIDNumbersTheRowsFromTheCurrentOne) {
    TfrmFound window = Make("f('a1', 'b1', 'c1');\r\n");
    window.sgStrings.SetCurrent(1);
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
    EXPECT_TRUE(window.sgDeleted.Rows().empty());
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
    EXPECT_TRUE(cpp.sgStrings.Rows().empty());
}

TEST_F(TFound, OnlyWhatDoesSomethingIsEnabled) {
    TfrmFound window = Make("f('a1', 'b1');\r\n");
    const auto disabled = [&] {
        std::string names;
        for (const TAction& action : window.Actions.All)
            if (action.IsEnabled && !action.IsEnabled()) names += action.Name + " ";
        return names;
    };
    const std::string advice = "acTakeAll acLeaveAdvised ";
    EXPECT_EQ(disabled(), advice +
                              "acRemoveIgnoreMark acRestoreDeletedRow acRemoveSelection acSelectAdvised "
                              "acUndo acRedo ");
    window.acMarktoIgnore();
    EXPECT_EQ(disabled(),
              advice + "acMarktoIgnore acRestoreDeletedRow acRemoveSelection acSelectAdvised acRedo ");
    window.acInvertSelection();
    EXPECT_EQ(disabled(), advice + "acRestoreDeletedRow acSelectAdvised acRedo ")
        << "one is marked, the other is not";
    const std::string ofFound =
        "acTakeRow " + advice + "acDeleteRow acStartID acExclude acMarktoIgnore acRemoveIgnoreMark ";
    const std::string ofAll = "acSelectAdvised acDeleteRowsContains acTypecastPChar acRedo UseMethod ";
    window.acSwitchDeleted();
    EXPECT_EQ(disabled(),
              ofFound + "acRestoreDeletedRow acSelectRow acInvertSelection acRemoveSelection " + ofAll);
    window.acSwitchDeleted();
    User.OnMessage("Delete selected rows?", mrYes);
    window.acDeleteRow();
    window.acSwitchDeleted();
    EXPECT_EQ(disabled(), ofFound + "acRemoveSelection " + ofAll);
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
    window.sgStrings.SetCurrent(4);
    User.OnMessage("Delete selected row (IDS_4)?", mrYes);
    window.acDeleteRow();
    window.acInvertSelection();
    window.acSwitchDeleted();
    window.acSelectRow();
    window.acSwitchDeleted();
    window.sgStrings.SetCurrent(1);
    window.SetFilter("One ä");
    EXPECT_EQ(window.sgStrings.Current(), 2) << "the next that is shown";
    EXPECT_EQ(window.StatusPanels[2], "Selected rows: 2");
    EXPECT_EQ(window.sgDeleted.SelectedCount(), 0);
    window.acMarktoIgnore();
    window.acInvertSelection();
    EXPECT_EQ(window.sgStrings.SelectedCount(), 0);
    window.sgStrings.Select({1, 2});
    EXPECT_EQ(window.sgStrings.SelectedCount(), 1);
    window.sgStrings.SetCurrent(0);
    User.OnInput("Input start ID (IDS_):", "70");
    window.acStartID();
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_70|IDS_1|IDS_71|IDS_3|");
    User.OnInput("Type string which is included in rows which should be deleted:", "w");
    window.acDeleteRowsContains();
    EXPECT_EQ(Column(window.sgStrings, 2), "one Ä|ONE ä|") << "the text decides, not the filter";
    window.acRemoveSelection();
    window.sgStrings.SetCurrent(2);
    window.SetFilter("\xC5\xBFix");
    EXPECT_EQ(window.Current(), nullptr);
    window.acDeleteRow();
    window.acExclude();
    window.acStartID();
    window.acSwitchDeleted();
    ASSERT_NE(window.Current(), nullptr) << "a long s is an s";
    EXPECT_EQ(window.Current()->Record.StrContent, "six");
    window.SetFilter("");
    window.acSwitchDeleted();
    EXPECT_EQ(window.sgStrings.Current(), 2) << "what was hidden comes back as it was";
}

TEST_F(TFound, TheCurrentRowKeepsItsPlace) {
    TfrmFound window = Make("f('a1', 'b1', 'c1', 'D1', 'e1', 'd1', 'f1');\r\n");
    const auto current = [&] { return window.Current()->Record.StrContent; };
    window.sgStrings.SetCurrent(4);
    window.sgStrings.Select({0, 2});
    User.OnMessage("Delete selected rows?", mrYes);
    window.acDeleteRow();
    EXPECT_EQ(current(), "e1");
    window.acSwitchDeleted();
    window.acRestoreDeletedRow();
    window.acSwitchDeleted();
    EXPECT_EQ(Column(window.sgStrings, 2), "a1|b1|D1|e1|d1|f1|");
    EXPECT_EQ(current(), "e1");
    window.sgStrings.SetCurrent(5);
    User.OnMessage("Exclude all \"d1\" and add it to Skip Words for future skipping?", mrYes);
    window.acExclude();
    EXPECT_EQ(current(), "f1");
    User.OnMessage("Delete selected row (IDS_6)?", mrYes);
    window.acDeleteRow();
    EXPECT_EQ(current(), "e1") << "the last one that is left";
}

TEST_F(TFound, RowsWithAnAdviceAreLeftOutUntilTheyAreTaken) {
    const char* code =
        "unit U;\r\ninterface\r\nconst\r\n  C = 'One';\r\nimplementation\r\n"
        "procedure TForm1.P;\r\nbegin\r\n  F('Two', 'Three');\r\nend;\r\nend.\r\n";
    const std::string question = "This will apply changes and modify source code. Continue?";
    struct TCase {
        void (*Do)(TfrmFound&);
        std::string Taken, Added;  ///< texts of the rows written; lines added to the question
    };
    const TCase cases[] = {
        {[](TfrmFound&) {}, "Two Three ", "\r\n2 strings will be replaced, 1 are left out."},
        {&Call<&TfrmFound::acTakeAll>, "One Two Three ", ""},
        {&Call<&TfrmFound::acTakeRow>, "One Two Three ", ""},
        {&Call<&TfrmFound::acMarktoIgnore>, "One Two Three ", "\r\n1 will be marked to be ignored."},
        {[](TfrmFound& window) {
             window.sgStrings.SetCurrent(1);
             window.acMarktoIgnore();
             EXPECT_EQ(window.TakenPanel, "To be replaced: 1, left out: 1, marked to ignore: 1");
         },
         "Two Three ", "\r\n1 strings will be replaced, 1 are left out.\r\n1 will be marked to be ignored."},
        {&Call<&TfrmFound::acTakeRow, &TfrmFound::acTakeRow>, "Two Three ",
         "\r\n2 strings will be replaced, 1 are left out."},
        {&Call<&TfrmFound::acTakeAll, &TfrmFound::acLeaveAdvised>, "Two Three ",
         "\r\n2 strings will be replaced, 1 are left out."},
        {&Call<&TfrmFound::acInvertSelection, &TfrmFound::acTakeRow, &TfrmFound::acTakeRow,
               &TfrmFound::acRemoveSelection>,
         "", "\r\n0 strings will be replaced, 3 are left out."},
        {&Call<&TfrmFound::acTakeAll, &TfrmFound::acUndo>, "Two Three ",
         "\r\n2 strings will be replaced, 1 are left out."},
        {[](TfrmFound& window) {
             window.acTakeAll();
             window.SetFilter("three");
         },
         "One Two Three ", "\r\nThe filter hides 2 of those that will be replaced."},
    };
    for (const TCase& each : cases) {
        TfrmFound window = Make(code, "/p/Unit1.pas", true);
        EXPECT_EQ(window.TakenPanel, "To be replaced: 2, left out: 1");
        EXPECT_TRUE(window.sgStrings.Look(0).Grey);
        EXPECT_EQ(window.sgStrings.Look(0).Hint, AdviceText(TAdvice::Const));
        each.Do(window);
        std::string taken;
        for (const TmlFoundSourceString& kept : window.Kept())
            taken += kept.StrContent + " ";
        EXPECT_EQ(taken, each.Taken) << "case " << &each - cases;
        User.OnMessage(question + each.Added, mrNo);
        window.tbModifyClick();
    }
    TfrmFound window = Make(code, "/p/Unit1.pas", true);
    window.acSelectAdvised();
    EXPECT_EQ(window.sgStrings.SelectedCount(), 1);
    EXPECT_EQ(window.Advice(), AdviceText(TAdvice::Const));
    window.sgStrings.SetCurrent(1);
    EXPECT_EQ(window.Advice(), "");
}

TEST_F(TFound, WhatGivesACharacterPointerTakesARowThatWantsOne) {
    const char* code =
        "unit U;\r\nimplementation\r\nprocedure TForm1.P(T: PChar);\r\nbegin\r\n  T := "
        "'One';\r\nend;\r\nend.\r\n";
    const std::pair<void (*)(TfrmFound&), bool> rows[] = {
        {&Call<&TfrmFound::acTypecastPChar>, true},
        {[](TfrmFound& window) { window.UseMethod("GetTextC("); }, true},
        {[](TfrmFound& window) { window.UseMethod("GetText("); }, false},
    };
    for (const auto& [act, isTaken] : rows) {
        TfrmFound window = Make(code, "/p/Unit1.pas", true);
        EXPECT_EQ(window.Advice(), AdviceText(TAdvice::CharacterPointer));
        act(window);
        EXPECT_EQ(window.Rows[0].IsTaken(), isTaken) << window.Rows[0].Record.Replacement;
    }
}

TEST_F(TFound, WhatNoCallMayReplaceIsTakenByAMarkOnly) {
    TFoundInput input{"U.pas",
                      std::make_shared<std::string>("A = 'One' + B;\r\n"),
                      {},
                      TTable{TStringsType::stStrings},
                      {}};
    input.Found.AddItem().Advice = TAdvice::Joined;
    TfrmFound window(Context, Memory, std::move(input));
    const struct {
        void (*Do)(TfrmFound&);
        int Taken;
    } steps[] = {
        {&Call<&TfrmFound::acTakeAll>, 0},          {&Call<&TfrmFound::acTakeRow>, 0},
        {&Call<&TfrmFound::acMarktoIgnore>, 1},     {&Call<&TfrmFound::acTakeAll>, 1},
        {&Call<&TfrmFound::acRemoveIgnoreMark>, 0},
    };
    for (const auto& [run, taken] : steps) {
        run(window);
        EXPECT_EQ(window.Kept().Count(), taken);
    }
}

TEST_F(TFound, EveryCommandCanBeTakenBackAndTakenAgain) {
    TfrmFound window = Make("f('a.b', 'two', 'A.B', 'six');\r\n");
    User.OnMessage("Delete selected row (IDS_0)?", mrYes);
    window.acDeleteRow();
    Settings.SetUseRegExpForSkip(true);
    window.sgStrings.SetCurrent(2);
    User.OnMessage("Exclude all \"A.B\" and add it to Skip Words for future skipping?", mrYes);
    window.acExclude();
    EXPECT_EQ(Settings.Get().SkipWords, TStringList({"(?i)A\\.B"})) << "a literal, not a pattern";
    EXPECT_TRUE(window.sgDeleted.Rows().empty()) << "what is excluded cannot be restored";
    window.SetEditText(1, "");
    window.acUndo();
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_1|IDS_3|");
    window.acUndo();
    EXPECT_TRUE(Settings.Get().SkipWords.Empty());
    EXPECT_EQ(Column(window.sgDeleted, 2) + Column(window.sgStrings, 2), "a.b|two|A.B|six|");
    window.acRedo();
    EXPECT_EQ(Settings.Get().SkipWords.Count(), 1);
    window.acUndo();
    window.acUndo();
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_0|IDS_1|IDS_2|IDS_3|");
    EXPECT_FALSE(window.CanUndo());
    window.SetEditText(0, "x");
    EXPECT_FALSE(window.CanRedo()) << "another way has been taken";
    Context.Host.CommonLibrary = nullptr;
    window.sgStrings.SetCurrent(2);
    User.OnMessage("Exclude all \"A.B\" and add it to Skip Words for future skipping?", mrYes);
    window.acExclude();
    EXPECT_EQ(Settings.Get().SkipWords, TStringList({"A.B"})) << "without a matcher nothing is a pattern";
}

TEST_F(TFound, StartIDFollowsTheRowsAsShown) {
    TfrmFound window = Make("f('c1', 'b1', 'a1');\r\n");
    window.SetEditText(1, "ids_9");
    window.sgStrings.SortBy(2);
    window.sgStrings.SetCurrent(1);
    User.OnInput("Input start ID (IDS_):", "20");
    window.acStartID();
    EXPECT_EQ(User.Proposed, "9") << "IDs are compared without case";
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_21|IDS_20|IDS_2|");
}

TEST_F(TFound, AnIDIsCheckedWhileItIsTyped) {
    TfrmFound window = Make("f('one', 'two', 'one');\r\n");
    for (const auto& [id, notice] : std::initializer_list<std::pair<const char*, const char*>>{
             {"ids_1", "The string ID \"ids_1\" is used for different texts!"},
             {"", "The string \"one\" has no ID!"},
             {"IDS_2", ""}}) {
        window.CheckEditText(0, id);
        EXPECT_EQ(window.IDNotice, notice);
    }
    EXPECT_EQ(Column(window.sgStrings, 1), "IDS_0|IDS_1|IDS_2|");
}

TEST_F(TFound, TheFilterLeavesTheCallsOutAndTheTableSaysWhatItShows) {
    TfrmFound window = Make("f('one', 'for');\r\n");
    window.SetFilter("or");
    EXPECT_EQ(window.sgStrings.Shown(), (std::vector<int>{1}));
    EXPECT_EQ(window.TableCaption, "Found strings:");
    window.acSwitchDeleted();
    EXPECT_EQ(window.TableCaption, "Deleted strings, which stay as they are:");
    EXPECT_EQ(window.sgDeleted.EditColumn, -1);
}

}  // namespace
}  // namespace tml
