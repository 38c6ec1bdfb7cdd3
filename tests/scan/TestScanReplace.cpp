#include <deque>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "forms/Formtree.h"
#include "scan/Constreplace.h"
#include "scan/Found.h"
#include "scan/Scanreplace.h"
#include "scan/Selunit.h"
#include "scan/Skippedstrings.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

constexpr const char* kDone = "Source file translated. All string constants added to \"Strings\" property.";
constexpr const char* kApply = "This will apply changes and modify source code. Continue?";
constexpr const char* kMarkedOne = "\r\n1 will be marked to be ignored.";
constexpr const char* kCode = "  ShowMessage('Hello');\n  Caption := 'It''s' + #13#10'Hello';\n";

struct TScanReplace : TExpertFixture, testing::Test {
    void Prepare(int number) {
        if (number == 1) PutForm(1, "", kCode);
        Open();
        Select("Form" + std::to_string(number));
    }
    void Review(std::function<void(TfrmFound&)> use) { User.OnWindow<TfrmFound>("frmFound", std::move(use)); }
    void ReviewAll() {
        Review([this](TfrmFound& window) {
            window.acTakeAll();
            User.OnMessage(kApply, mrYes);
            User.OnMessage(kDone);
            window.tbModifyClick();
        });
    }
    void Modify(TfrmFound& window) {
        window.acTakeAll();
        User.OnMessage(kApply, mrYes);
        window.tbModifyClick();
    }
    /// What the person does in one review behind another, and the message at their end.
    void InSeries(std::deque<std::function<void(TfrmFound&)>> uses, const std::string& summary) {
        if (uses.empty()) return User.OnMessage(summary);
        Review([this, uses, summary](TfrmFound& window) mutable {
            uses.front()(window);
            uses.pop_front();
            InSeries(std::move(uses), summary);
        });
    }
    void Run() { Expert->Window()->Run("SourceWithForm"); }
    std::string Source(int number) {
        const auto module = Ide.GetModuleServices()->FindModule("/p/Unit" + std::to_string(number) + ".pas");
        return *module->GetSourceEditor(0)->GetText();
    }
    /// "ID=text " for each string of the form's component.
    std::string StringsOf(const std::string& form) {
        std::string dump;
        const TTable table = GetmlLang(Context(), form)->GetTable(TStringsType::stStrings);
        for (const TTableEntry& entry : table.Entries())
            dump += entry.Key + "=" + entry.Base() + " ";
        return dump;
    }
};

TEST_F(TScanReplace, InsertsAddsAndRewritesAsOneStep) {
    Prepare(1);
    const auto files = Files.Files;
    User.Progress.clear();
    User.Bars.clear();
    ReviewAll();
    Run();
    EXPECT_EQ(User.Bars, (std::vector<std::string>{"Checking duplicates... 0/3", "Checking duplicates... 1/3",
                                                   "Checking duplicates... 2/3", "Modifying source... 0/3",
                                                   "Modifying source... 1/3", "Modifying source... 2/3"}));
    const std::string source = Source(1);
    EXPECT_NE(source.find("    mlLang_Form1: TmlLang;\r\n"), std::string::npos) << source;
    EXPECT_NE(source.find("  ShowMessage(mlLang_Form1.GetTextOrDefault('IDS_0' (* 'Hello' *) ));\r\n"),
              std::string::npos)
        << source;
    EXPECT_NE(source.find("'IDS_1' (* 'It''s' *) ) + #13#10 + mlLang_Form1.GetTextOrDefault('IDS_0'"),
              std::string::npos)
        << source;
    EXPECT_EQ(StringsOf("Form1"), "IDS_0=Hello IDS_1=It's ");
    EXPECT_EQ(User.Progress,
              (std::vector<std::string>{"Scanning...", "Found strings so far: 1", "Found strings so far: 2",
                                        "Found strings so far: 3", "Verifying found strings...",
                                        "Checking duplicates...", "Modifying source..."}));
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|2|TmlLang|1;");
    EXPECT_EQ(Files.Files, files) << "nothing is saved before the person saves";

    Ide.SaveAll();
    EXPECT_NE(Files.Files, files);
    EXPECT_EQ(Ide.Undo("/p/Unit1.pas"), "Replace hard-coded strings");
    EXPECT_EQ(Source(1), files.at("/p/Unit1.pas"));
    Ide.SaveAll();
    EXPECT_EQ(Files.Files, files) << "the form file too is as it was";
}

TEST_F(TScanReplace, AnotherDefaultClassChangesNoReviewThatWaits) {
    Prepare(1);
    Review([this](TfrmFound& window) {
        Expert->Settings().SetDefaultComp("TmlLangRT");
        User.OnMessage(kApply, mrYes);
        User.OnMessage(kDone);
        window.tbModifyClick();
    });
    Run();
    EXPECT_EQ(Row("Form1").Component.ClassName, "TmlLang");
    EXPECT_NE(Source(1).find("    mlLang_Form1: TmlLang;\r\n"), std::string::npos) << Source(1);
}

TEST_F(TScanReplace, ReadsItsFormOnceThePatchIncludedAndOnceMoreForItsRow) {
    Prepare(1);
    const int before = TFormTree::ParseCount();
    {
        const auto scope = Ide.GetModuleServices()->BeginCommand("given up");
        ReviewAll();
        Run();
        EXPECT_NE(scope->Patch().find("+  object mlLang_Form1: TmlLang"), std::string::npos);
    }
    EXPECT_EQ(TFormTree::ParseCount() - before, 2);
    EXPECT_EQ(GetmlLang(Context(), "Form1"), nullptr);
}

TEST_F(TScanReplace, ASecondRunFindsNothing) {
    Prepare(1);
    ReviewAll();
    Run();
    Ide.SaveAll();
    const auto files = Files.Files;
    EXPECT_NE(files.at("/p/Unit1.dfm").find("object mlLang_Form1: TmlLang"), std::string::npos);
    User.OnMessage("No strings found in the \"Unit1.pas\" source!");
    Run();
    Ide.SaveAll();
    EXPECT_EQ(Files.Files, files);
}

TEST_F(TScanReplace, WhatTheComponentHoldsKeepsItsID) {
    PutForm(1, "");
    const std::string form = Files.Files["/p/Unit2.dfm"];
    PutForm(2, "  object mlLang1: TmlLang\n  end\n", "  F('New'); F('Known'); F('Other');\n");
    Files.Files["/p/Unit2.dfm"] = form;
    Prepare(2);
    Review([this](TfrmFound& window) {
        window.sgStrings.SetCurrent(0);
        window.acMarktoIgnore();
        window.SetEditText(2, "ids_0");
        User.OnMessage("The string ID \"ids_0\" is used for different texts!");
        window.tbModifyClick();
        window.SetEditText(2, "IDS_O");
        User.OnMessage(std::string(kApply) + kMarkedOne, mrYes);
        User.OnMessage(kDone);
        window.tbModifyClick();
    });
    Run();
    EXPECT_EQ(StringsOf("Form2"), "IDS_0=Known IDS_O=Other ");
    EXPECT_NE(
        Source(2).find("{TML:IGNORE ON}\r\n  F('New'); F(mlLang1.GetTextOrDefault('IDS_0' (* 'Known' *) "
                       ")); F(mlLang1.GetTextOrDefault('IDS_O' (* 'Other' *) ));\r\n{TML:IGNORE OFF}"),
        std::string::npos)
        << Source(2);
}

/// How a run ends without a change.
enum class TEnd { Cancelled, NoStrings, AllDeleted, Stopped };

class TScanReplaceEnds : public TScanReplace, public testing::WithParamInterface<TEnd> {};

TEST_P(TScanReplaceEnds, LeavesNothingBehind) {
    const TEnd end = GetParam();
    Prepare(1);
    const auto files = Files.Files;
    if (end == TEnd::NoStrings) {
        Expert->Settings().SetIgnorableLength(100);
        User.OnMessage("No strings found in the \"Unit1.pas\" source!");
    } else if (end == TEnd::Stopped) {
        User.StopAt = "Found strings so far: 2";
    } else {
        Review([this, end](TfrmFound& window) {
            if (end == TEnd::AllDeleted) {
                window.acInvertSelection();
                User.OnMessage("Delete selected rows?", mrYes);
                window.acDeleteRow();
                User.OnMessage(kApply, mrYes);
                window.tbModifyClick();
            } else {
                User.OnMessage("This will close the Found Strings form! Continue?", mrYes);
                window.tbCancelClick();
            }
        });
    }
    const std::string list = List();
    Run();
    EXPECT_FALSE(User.ProgressShown);
    EXPECT_EQ(List(), list);
    EXPECT_NE(Source(1).find("ShowMessage('Hello')"), std::string::npos) << "the unit stays open";
    Ide.SaveAll();
    EXPECT_EQ(Files.Files, files);
}

INSTANTIATE_TEST_SUITE_P(Ends, TScanReplaceEnds,
                         testing::Values(TEnd::Cancelled, TEnd::NoStrings, TEnd::AllDeleted, TEnd::Stopped));

TEST_F(TScanReplace, ARewriteThatCannotBeProvenIsNotMade) {
    Prepare(1);
    const auto files = Files.Files;
    Review([this](TfrmFound& window) {
        window.Rows.Change(0).Record.Replacement = "Hello";
        User.OnMessage(kApply, mrYes);
        window.tbModifyClick();
    });
    EXPECT_THROW(Run(), EBadInput);
    EXPECT_FALSE(User.ProgressShown);
    Ide.SaveAll();
    EXPECT_EQ(Files.Files, files);
}

/// The uses clause or include that the form's unit is seen by, and the calls.
struct TUnitCase {
    std::string Title, Form, Unit, Source, Expected;
};

class TUnitsWithoutForm : public TScanReplace, public testing::WithParamInterface<TUnitCase> {};

TEST_P(TUnitsWithoutForm, CallTheComponentOfTheForm) {
    const TUnitCase& row = GetParam();
    Files.Files["/p/Demo.dpr"].insert(Files.Files["/p/Demo.dpr"].find(';', 20),
                                      ", Second in 'Second.pas', Cunit in 'Cunit.cpp'");
    Put("/p/" + row.Unit, row.Source);
    Open();
    const auto before = Files.Files;
    User.OnWindow<TfrmTranslUnits>("frmTranslUnits", [&](TfrmTranslUnits& window) {
        EXPECT_FALSE(window.OKEnabled());
        window.lbUnits.Selected.at(static_cast<std::size_t>(window.lbUnits.Items.IndexOf("/p/" + row.Unit))) =
            true;
        window.btOKClick();
        EXPECT_EQ(window.ModalResult, mrNone) << "no form is chosen";
        window.cbForm.ItemIndex = window.cbForm.Items.IndexOf(row.Form);
        window.btOKClick();
    });
    ReviewAll();
    Expert->Window()->Run("SourceWithoutForm");
    const auto module = Ide.GetModuleServices()->FindModule("/p/" + row.Unit);
    ASSERT_NE(module, nullptr) << "the unit stays open";
    std::string expected;
    for (const char c : row.Expected)
        expected += c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_EQ(*module->GetSourceEditor(0)->GetText(), expected);
    EXPECT_EQ(Ide.Undo("/p/" + row.Unit), "Replace hard-coded strings");
    Ide.SaveAll();
    EXPECT_EQ(Files.Files, before) << "one step takes all of it back";
}

const TUnitCase kUnitCases[] = {
    {"UsesClauseIsMade", "Form2", "Helper.pas",
     "unit Helper;\ninterface\nimplementation\nprocedure P;\nbegin\n  W('Text');\nend;\nend.\n",
     "unit Helper;\ninterface\nimplementation\n\nuses\n  Unit2;\nprocedure P;\nbegin\n"
     "  W(Form2.mlLang1.GetTextOrDefault('IDS_1' (* 'Text' *) ));\nend;\nend.\n"},
    {"FormWithoutComponent", "Form1", "Second.pas",
     "unit Second;\ninterface\nimplementation\nuses\n  Windows;\nbegin\n  W('Text');\nend.\n",
     "unit Second;\ninterface\nimplementation\nuses\n  Windows, Unit1;\nbegin\n"
     "  W(Form1.mlLang_Form1.GetTextOrDefault('IDS_0' (* 'Text' *) ));\nend.\n"},
    {"PascalFormInCpp", "Form2", "Cunit.cpp", "#include <vcl.h>\nvoid P()\n{\n  W(\"Text\");\n}\n",
     "#include <vcl.h>\n#include \"Unit2.hpp\"\nvoid P()\n{\n"
     "  W(Form2->mlLang1->GetTextOrDefault(\"IDS_1\" /* \"Text\" */ ));\n}\n"},
};

INSTANTIATE_TEST_SUITE_P(Units, TUnitsWithoutForm, testing::ValuesIn(kUnitCases),
                         [](const auto& tested) { return tested.param.Title; });

TEST_F(TScanReplace, SeveralUnitsAreSeveralSteps) {
    Files.Files["/p/Demo.dpr"].insert(Files.Files["/p/Demo.dpr"].find(';', 20), ", Second in 'Second.pas'");
    Files.Files["/p/Demo.mlproj"] = "[Settings]\r\nDefaultFormForUnits=Form2\r\n";
    for (const char* name : {"Helper", "Second"})
        Put("/p/" + std::string(name) + ".pas",
            "unit " + std::string(name) + ";\ninterface\nimplementation\nbegin\n  W('Text');\n  W('" + name +
                "');\nend.\n");
    Open();
    User.OnWindow<TfrmTranslUnits>("frmTranslUnits", [](TfrmTranslUnits& window) {
        EXPECT_EQ(window.cbForm.Text(), "Form2");
        window.SelectAll();
        window.btOKClick();
    });
    const auto modify = [this](TfrmFound& window) { Modify(window); };
    InSeries({modify, modify}, std::string(kDone) + "\r\nChanged units: 2 of 2");
    Expert->Window()->Run("SourceWithoutForm");
    EXPECT_EQ(StringsOf("Form2"), "IDS_0=Known IDS_1=Text IDS_2=Helper IDS_4=Second ");
    EXPECT_THROW(Ide.Undo("/p/Helper.pas"), EBadInput) << "the form has been changed again since";
    Ide.Undo("/p/Second.pas");
    Ide.Undo("/p/Helper.pas");
    EXPECT_EQ(StringsOf("Form2"), "IDS_0=Known ");
}

TEST_F(TScanReplace, SeveralFormsFollowTheListAndOneThatFailsKeepsNoneBack) {
    Prepare(1);
    for (const bool isThere : {true, false}) {
        if (!isThere) {
            Ide.GetModuleServices()->FindModule("/p/Unit2.pas")->Close();
            Files.Files.erase("/p/Unit2.pas");
        }
        Expert->Window()->SelectAll1Click();
        const auto use = [this](TfrmFound& window) {
            EXPECT_EQ(window.Caption, "Found String Constants (Unit1.pas) - 2 of 2") << "Form2 stands first";
            Modify(window);
        };
        InSeries({use}, std::string(kDone) + "\r\nChanged units: 1 of 2\r\n" +
                            (isThere ? "No strings found in the \"Unit2.pas\" source!"
                                     : "Unit2.pas could not be used"));
        Run();
        EXPECT_EQ(StringsOf("Form1"), "IDS_0=Hello IDS_1=It's ");
        Ide.Undo("/p/Unit1.pas");
    }
}

TEST_F(TScanReplace, ASeriesCanPassOverAUnitAndBeStopped) {
    Files.Files["/p/Demo.mlproj"] = "[Settings]\r\nDefaultFormForUnits=Form2\r\n";
    const std::vector<std::string> names{"First", "Second", "Third", "Fourth"};
    for (const std::string& name : names) {
        Files.Files["/p/Demo.dpr"].insert(Files.Files["/p/Demo.dpr"].find(';', 20),
                                          ", " + name + " in '" + name + ".pas'");
        Put("/p/" + name + ".pas",
            "unit " + name + ";\ninterface\nimplementation\nbegin\n  W('" + name + "');\nend.\n");
    }
    Open();
    User.OnWindow<TfrmTranslUnits>("frmTranslUnits", [](TfrmTranslUnits& window) {
        window.SelectAll();
        window.btOKClick();
    });
    const std::string close = "This will close the Found Strings form! Continue?";
    const auto skip = [&](TfrmFound& window) {
        User.OnMessage("This will leave \"First.pas\" as it is and go on! Continue?", mrYes);
        window.acSkipUnit();
    };
    const auto stop = [&](TfrmFound& window) {
        User.OnMessage(close + "\r\nUnits of the series that stay as they are, too: 1", mrYes);
        window.tbCancelClick();
    };
    InSeries({skip, [this](TfrmFound& window) { Modify(window); }, stop},
             std::string(kDone) +
                 "\r\nChanged units: 1 of 5\r\nNo strings found in the \"Helper.pas\" "
                 "source!\r\nUnits left as they were: 4");
    Expert->Window()->Run("SourceWithoutForm");
    EXPECT_EQ(StringsOf("Form2"), "IDS_0=Known IDS_1=Second ");
}

TEST_F(TScanReplace, SkippedStringsAreSeenWhereNothingWasFound) {
    Prepare(1);
    Expert->Settings().SetSkipWords(TStringList({"Hello", "It's"}));
    EXPECT_THROW(Expert->Window()->Run("SkippedStrings"), EBadInput) << "nothing has been scanned";
    User.OnMessage("No strings found in the \"Unit1.pas\" source!");
    Run();
    OpenFile(Context(), "/p/Unit2.pas", true);
    User.OnWindow<TfrmSkippedStrings>("frmSkippedStrings", [](TfrmSkippedStrings& window) {
        EXPECT_EQ(window.lvStrings.Count(), 3);
        EXPECT_TRUE(Contains(window.memPreview, "ShowMessage('Hello')")) << "the unit of the scan is shown";
        window.btCloseClick();
    });
    Expert->Window()->Run("SkippedStrings");
}

TEST_F(TScanReplace, TheWholeChangeCanBeSeen) {
    Prepare(1);
    Review([this](TfrmFound& window) {
        window.acShowChange();
        EXPECT_TRUE(Contains(window.Change, "\n-  ShowMessage('Hello');\r\n")) << window.Change;
        EXPECT_TRUE(Contains(window.Change, "\n+  ShowMessage(mlLang_Form1.GetTextOrDefault('IDS_0'"));
        window.acTakeRow();
        EXPECT_FALSE(Contains(window.Change, "-  ShowMessage")) << "it is left out";
        User.OnMessage("This will close the Found Strings form! Continue?", mrYes);
        window.tbCancelClick();
    });
    Run();
}

TEST_F(TScanReplace, ConstantsKeepTheirOwnReferenceAndMethod) {
    Put("/p/Unit2.pas",
        "unit Unit2;\n\ninterface\n\ntype\n  TForm2 = class(TForm)\n    mlLang1: TmlLang;\n  end;\n\nvar\n  "
        "Form2: TForm2;\n\nimplementation\n\nconst\n  A: PChar = 'One';\n\nprocedure P;\nconst\n"
        "  B = 'Two';\nbegin\nend;\n\nend.\n");
    Prepare(2);
    Review([this](TfrmFound& window) {
        const TFoundPreview preview = window.Preview();
        EXPECT_EQ(preview.Text.substr(preview.Begin, preview.End - preview.Begin), "A: PChar = 'One';");
        window.acInvertSelection();
        window.UseMethod("GetText(");
        EXPECT_EQ(window.Rows[0].Record.Replacement, "mlLang1.GetTextC('strA' (* 'One' *) )");
        EXPECT_EQ(window.Rows[1].Record.Replacement, "Form2.mlLang1.GetText('strB' (* 'Two' *) )");
        User.OnInput("Input start ID (str):", "7");
        window.acStartID();
        EXPECT_EQ(User.Proposed, "A");
        EXPECT_EQ(window.Rows[1].Record.StrID, "str8");
        User.OnMessage("This will close the Found Strings form! Continue?", mrYes);
        window.tbCancelClick();
    });
    Expert->Window()->Run("ConstWithForm");
}

TEST_F(TScanReplace, WithoutACallNothingIsInsertedAndNoUnitUsed) {
    Put("/p/Helper.pas", "unit Helper;\ninterface\nconst\n  A = 'One';\nimplementation\nend.\n");
    Prepare(1);
    const std::string list = List();
    const auto files = Files.Files;
    for (const bool constSection : {false, true}) {
        Review([this](TfrmFound& window) {
            window.sgStrings.SetCurrent(0);
            window.acMarktoIgnore();
            User.OnMessage(std::string(kApply) + kMarkedOne, mrYes);
            window.tbModifyClick();
        });
        EXPECT_TRUE(DoScanReplace(Context(), ScanMemory(), Row("Form1"), "/p/Helper.pas", constSection));
        Ide.SaveAll();
        EXPECT_EQ(Contains(Files.Files["/p/Helper.pas"], "{TML:IGNORE ON}\r\n  A = 'One';"), !constSection);
        Ide.Undo("/p/Helper.pas");
        Ide.SaveAll();
        EXPECT_EQ(Files.Files, files);
        EXPECT_EQ(List(), list);
    }
}

TEST_F(TScanReplace, APascalUnitCannotCallACppForm) {
    Open();
    TFormRow& row = Rows().Add("CForm", "Cform", "/p/Cform.cpp");
    EXPECT_THROW(DoScanReplace(Context(), ScanMemory(), row, "/p/Helper.pas"), EBadInput);
}

}  // namespace
}  // namespace tml
