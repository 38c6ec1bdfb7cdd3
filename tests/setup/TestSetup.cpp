#include <gtest/gtest.h>
#include <map>

#include "base/Errors.h"
#include "core/Modules.h"
#include "host/Experthost.h"
#include "setup/Wizard.h"
#include "support/Expertfixture.h"
#include "support/Manyforms.h"
#include "support/Wrappedfiles.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

/// The expert on a generated project, over files that something is in front of.
struct TMany {
    explicit TMany(IFileSystem& files) : Parts(files, Registry, User, nullptr, true) {
        Parts.LoadExpert();
        Parts.Ide().OpenProject("/p/Many.dpr");
        Parts.Expert()->RunItemClick();
    }

    TContext& Context() { return Parts.Expert()->Context(); }
    TScanMemory& Memory() { return Parts.Expert()->Subjects().Scan; }
    std::vector<TFormRow*> Rows() {
        std::vector<TFormRow*> rows;
        for (const auto& row : Context().Rows.FormNames.Items())
            rows.push_back(row.get());
        return rows;
    }
    TSetupWishes Wishes() {
        TSetupWishes wishes = DefaultWishes(Context());
        wishes.Languages = TStringList({"English", "German"});
        wishes.MovesStrings = true;
        return wishes;
    }
    TSetupOutcome SetUp() { return RunSetup(Context(), Memory(), PlanSetup(Context(), Rows(), Wishes())); }

    TMemoryRegistry Registry;
    TScriptedUser User;
    TExpertHost Parts;
};

struct TSetup : testing::Test {
    explicit TSetup(int forms = 3) {
        MakeManyForms(forms, [this](const std::string& name, const std::string& text) {
            std::string bytes;
            for (const char c : text)
                bytes += c == '\n' ? "\r\n" : std::string(1, c);
            Files.Files["/p/" + name] = bytes;
        });
        Before = Files.Files;
    }

    bool Holds(const std::string& file, const std::string& text) const {
        return Files.Files.at("/p/" + file).find(text) != std::string::npos;
    }
    /// Gives the caption of a form that is set up its second text.
    void TranslateU1() {
        std::string& form = Files.Files["/p/U1.dfm"];
        const std::string base = "'.Caption'#1'Form number 1'#1'";
        form.insert(form.find(base) + base.size(), "Fenster ");
    }
    /// 'b': as before, 'd': set up, '?': neither.
    char StateOf(int form) const {
        const std::string n = std::to_string(form), pas = "/p/U" + n + ".pas", dfm = "/p/U" + n + ".dfm";
        if (Files.Files.at(pas) == Before.at(pas) && Files.Files.at(dfm) == Before.at(dfm)) return 'b';
        const bool done = Holds("U" + n + ".pas", "mlLang_F" + n + ": TmlLang;") &&
                          Holds("U" + n + ".pas", "GetTextOrDefault('IDS_") &&
                          Holds("U" + n + ".pas", "Kept = 'kept here'") &&
                          Holds("U" + n + ".dfm", "'Going " + n + "'#1'Going " + n + "'") &&
                          Holds("U" + n + ".dfm", ".Caption'#1'Form number " + n);
        return done ? 'd' : '?';
    }
    std::string States() const { return {StateOf(1), StateOf(2), StateOf(3)}; }

    TMemoryFileSystem Files;
    std::map<std::string, std::string> Before;
};

TEST_F(TSetup, APlanChangesNothingAndReadsEachFileOnce) {
    TLoggingFileSystem log(Files);
    TMany many(log);
    log.Log.clear();
    const TSetupPlan plan = PlanSetup(many.Context(), many.Rows(), many.Wishes());
    EXPECT_EQ(plan.CountReady(), 3);
    EXPECT_TRUE(log.Changes().empty());
    std::map<std::string, int> reads;
    for (const std::string& line : log.Log)
        if (line.starts_with("Read ")) ++reads[line];
    EXPECT_EQ(reads.size(), 6U);
    for (const auto& [line, count] : reads)
        EXPECT_EQ(count, 1) << line;
    EXPECT_FALSE(IsFileOpen(many.Context(), "/p/U1.pas"));
}

TEST_F(TSetup, TheWholeRunIsOneStepOfUndo) {
    TMany many(Files);
    EXPECT_EQ(many.SetUp().CountDone(), 3);
    EXPECT_EQ(States(), "ddd");
    EXPECT_EQ(many.Rows()[0]->Component.NumLang, 2);
    many.Parts.Ide().Undo();
    EXPECT_EQ(Files.Files, Before);
    EXPECT_FALSE(many.Rows()[0]->HasComponent());
    many.Parts.Ide().Redo();
    EXPECT_EQ(States(), "ddd");
}

TEST_F(TSetup, TheDiffOfAFormIsThatOfTheRunAndLeavesNothingBehind) {
    TMany many(Files);
    const TSetupPlan plan = PlanSetup(many.Context(), many.Rows(), many.Wishes());
    const std::string one = DiffOfSetup(many.Context(), many.Memory(), plan, 1);
    const std::string all = DiffOfSetup(many.Context(), many.Memory(), plan);
    EXPECT_NE(one.find("+    mlLang_" + plan.Forms[1].FormName + ": TmlLang;"), std::string::npos) << one;
    EXPECT_NE(all.find(one), std::string::npos) << all;
    EXPECT_EQ(Files.Files, Before);
    EXPECT_FALSE(many.Rows()[0]->HasComponent());
    EXPECT_EQ(many.Parts.Ide().Undo(), "");
    EXPECT_EQ(many.SetUp().CountDone(), 3);
}

TEST_F(TSetup, WhatIsNotReadyOrFailsStaysAsItWasAndTheRestStands) {
    Files.ReadOnlyFiles.insert("/p/U1.pas");
    TMany many(Files);
    TSetupPlan plan = PlanSetup(many.Context(), many.Rows(), many.Wishes());
    FindStrings(many.Context(), many.Memory(), plan);
    for (TFormSetup& form : plan.Forms) {
        EXPECT_EQ(form.IsReady(), form.FormName != "F1") << form.Problem;
        if (form.FormName != "F2") continue;
        EXPECT_EQ(form.Strings->size(), 3U);
        EXPECT_EQ(form.CountTaken(), 2) << "the constant carries an advice";
    }
    // The source changes behind the plan.
    Files.Files["/p/U2.pas"].replace(Files.Files["/p/U2.pas"].find("'Gone'"), 6, "'Done'");
    Before = Files.Files;
    const TSetupOutcome outcome = RunSetup(many.Context(), many.Memory(), plan);
    EXPECT_EQ(States(), "bbd");
    EXPECT_EQ(outcome.CountDone(), 1);
    const std::string report = outcome.Report();
    EXPECT_NE(report.find("is as it was: /p/U1.pas: the file is read-only"), std::string::npos) << report;
    EXPECT_NE(report.find("the source is not what it was when its strings were reviewed"), std::string::npos);
}

TEST_F(TSetup, WhateverCallFailsNoFormIsHalfDone) {
    TFaultyFileSystem opening(Files, 0, TFaultyFileSystem::TFault::Once);
    { const TMany many(opening); }
    for (int call = 1; call < 1000; ++call) {
        Files.Files = Before;
        TFaultyFileSystem faulty(Files, opening.Calls() + call, TFaultyFileSystem::TFault::Once);
        bool written = true;
        try {
            TMany many(faulty);
            many.SetUp();
        } catch (const EBadInput&) {
            written = false;
        }
        EXPECT_EQ(States().find('?'), std::string::npos) << States() << ", the call " << call;
        EXPECT_TRUE(written || States() == "bbb" || States() == "ddd") << States() << ", the call " << call;
        if (faulty.HasFailed()) continue;
        EXPECT_EQ(States(), "ddd");
        return;
    }
    FAIL() << "the calls do not end";
}

TEST_F(TSetup, APersonWhoStopsLeavesNoHalfDoneForm) {
    TMany many(Files);
    TSetupPlan plan = PlanSetup(many.Context(), many.Rows(), many.Wishes());
    const std::string second = plan.Forms[1].FormName;
    many.User.StopAt = "Reading " + second + "...";
    EXPECT_THROW(many.SetUp(), EmlLangSilent);
    many.User.StopAt = "Scanning " + second + "...";
    EXPECT_THROW(FindStrings(many.Context(), many.Memory(), plan), EmlLangSilent);
    EXPECT_EQ(Files.Files, Before);
    many.User.StopAt = "Setting up " + second + "...";
    EXPECT_THROW(DiffOfSetup(many.Context(), many.Memory(), plan), EmlLangSilent);
    EXPECT_EQ(Files.Files, Before);
    const TSetupOutcome outcome = many.SetUp();
    EXPECT_TRUE(outcome.Stopped);
    EXPECT_EQ(outcome.CountDone(), 1);
    EXPECT_EQ(outcome.Untouched, 2);
    std::string states = States();
    std::sort(states.begin(), states.end());
    EXPECT_EQ(states, "bbd");
    EXPECT_FALSE(many.User.ProgressShown);
}

TEST_F(TSetup, TheWindowGoesThroughItsPagesAndSavesTheReport) {
    TMany many(Files);
    many.Rows()[0]->Selected = true;
    many.Parts.Expert()->Window()->lvFormNamesChange();
    const std::string form = many.Rows()[0]->FormName;
    many.User.OnWindow<TfrmWizard>("frmWizard", [&](TfrmWizard& wizard) {
        EXPECT_EQ(wizard.lblForms, "Forms to be set up: 1 of 3");
        wizard.btNextClick();
        for (const char* name : {"my texts", "end", "1%s"}) {
            wizard.edName = name;
            EXPECT_THROW(wizard.btNextClick(), EBadInput) << name;
            EXPECT_EQ(wizard.Page, TWizardPage::Component);
        }
        wizard.edName = "Texts";
        for (int page = 0; page < 3; ++page)
            wizard.btNextClick();
        wizard.memProperties = TStringList({"Nothing=1"});
        EXPECT_THROW(wizard.btNextClick(), EBadInput);
        EXPECT_EQ(wizard.Page, TWizardPage::Exclusions);
        wizard.memProperties.Clear();
        wizard.btNextClick();
        wizard.ckbStrings = true;
        wizard.btScanClick();
        EXPECT_EQ(wizard.lblStrings, "Strings to be moved: 2 of 3");
        wizard.sgStrings.SelectOnly([&](int row) { return wizard.sgStrings.Cell(row, 3) == "Gone"; });
        wizard.acTakeStrings();
        EXPECT_EQ(wizard.lblStrings, "Strings to be moved: 1 of 3");
        wizard.btNextClick();
        EXPECT_EQ(wizard.Page, TWizardPage::Summary);
        EXPECT_NE(wizard.memPlan.find("moves 1 of the source's strings"), std::string::npos);
        wizard.acShowChange();
        EXPECT_NE(wizard.memPlan.find("+    Texts: TmlLang;"), std::string::npos) << wizard.memPlan;
        EXPECT_EQ(Files.Files, Before);
        wizard.btFinishClick();
        EXPECT_TRUE(wizard.IsDone());
        wizard.btSaveReportClick();
        wizard.btFinishClick();
    });
    many.User.OnWindow<TSaveDialog>("SaveDialog", [](TSaveDialog& dialog) {
        dialog.Files = {"/p/report.txt"};
        dialog.ModalResult = mrOk;
    });
    many.Parts.Expert()->Window()->Run("Wizard");
    EXPECT_TRUE(Holds("report.txt", "inserts Texts (TmlLang)"));
    const std::string unit = "U" + form.substr(1) + ".pas";
    EXPECT_TRUE(Holds(unit, "Caption := Texts.GetTextOrDefault('IDS_"));
    EXPECT_TRUE(Holds(unit, "Edit1.Text := 'Gone'"));
}

TEST_F(TSetup, WhatIsNotReadyIsNotCountedAndSaysWhatIsWrongFirst) {
    Files.ReadOnlyFiles.insert("/p/U1.pas");
    Files.Files["/p/U2.dfm"] = "object F2: TF2\r\n  Caption = \r\nend\r\n";
    TMany many(Files);
    many.User.OnWindow<TfrmWizard>("frmWizard", [&](TfrmWizard& wizard) {
        EXPECT_EQ(wizard.lblForms, "Forms to be set up: 1 of 3; not ready: 2");
        std::map<std::string, std::string> states;
        for (int row = 0; row < 3; ++row)
            states[wizard.sgForms.Cell(row, 1)] =
                wizard.sgForms.Cell(row, 0) + ": " + wizard.sgForms.Cell(row, 4);
        EXPECT_EQ(states["F1"],
                  "No: Not ready: the file is read-only. Make it writable, or leave the form out");
        EXPECT_TRUE(states["F2"].starts_with("No: Not ready: expected a value")) << states["F2"];
        EXPECT_TRUE(states["F2"].ends_with(" (U2.dfm:2)")) << states["F2"];
        EXPECT_EQ(states["F3"], "Yes: Ready");
        wizard.acTakeForms();
        wizard.btCancelClick();
    });
    many.Parts.Expert()->Window()->Run("Wizards");
}

TEST_F(TSetup, TranslationsThatExclusionsDropAreAskedFor) {
    TMany many(Files);
    many.SetUp();
    TranslateU1();
    Before = Files.Files;
    many.User.OnWindow<TfrmWizard>("frmWizard", [&](TfrmWizard& wizard) {
        wizard.lbLanguages.Items = many.Wishes().Languages;
        wizard.memExcludedProperties = TStringList({".Caption"});
        while (wizard.Page != TWizardPage::Summary)
            wizard.btNextClick();
        many.User.OnMessage("1 translation is dropped with what is excluded. Continue?", mrNo);
        wizard.btFinishClick();
        EXPECT_EQ(wizard.Page, TWizardPage::Summary);
        EXPECT_EQ(Files.Files, Before);
        many.User.OnMessage("1 translation is dropped with what is excluded. Continue?", mrYes);
        wizard.btFinishClick();
        wizard.btFinishClick();
    });
    many.Parts.Expert()->Window()->Run("Wizards");
    EXPECT_FALSE(Holds("U1.dfm", "Fenster"));
}

TEST_F(TSetup, LanguagesThatAreGivenUpAreCountedAndAskedFor) {
    TMany many(Files);
    many.SetUp();
    TranslateU1();
    Before = Files.Files;
    many.User.OnWindow<TfrmWizard>("frmWizard", [&](TfrmWizard& wizard) {
        wizard.lbLanguages.Items = TStringList({"English"});
        wizard.ckbGiveUp = true;
        while (wizard.Page != TWizardPage::Summary)
            wizard.btNextClick();
        for (const int row : wizard.sgPlan.Shown())
            if (wizard.sgPlan.Cell(row, 0) == "F1") wizard.sgPlan.SetCurrent(row);
        EXPECT_NE(wizard.memPlan.find("gives up German with 1 text\r\n"), std::string::npos)
            << wizard.memPlan;
        many.User.OnMessage("1 text goes with the languages that are given up. Continue?", mrNo);
        wizard.btFinishClick();
        EXPECT_EQ(Files.Files, Before);
        many.User.OnMessage("1 text goes with the languages that are given up. Continue?", mrYes);
        wizard.btFinishClick();
        EXPECT_NE(wizard.memReport.find("gives up German with 1 text\r\n"), std::string::npos);
        wizard.btFinishClick();
    });
    many.Parts.Expert()->Window()->Run("Wizards");
    EXPECT_FALSE(Holds("U1.dfm", "Fenster"));
}

TEST_F(TSetup, TheIDsOfAnHeirAreThoseThatItsAncestorLeaves) {
    const auto change = [this](const char* file, const std::string& from, const std::string& to) {
        std::string& text = Files.Files.at(file);
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    };
    change("/p/U2.dfm", "object ", "inherited ");
    change("/p/U2.pas", "class(TForm)", "class(TF1)");
    change("/p/U2.pas", "StdCtrls;", "StdCtrls, U1;");
    Before = Files.Files;
    TMany many(Files);
    TSetupPlan plan = PlanSetup(many.Context(), many.Rows(), many.Wishes());
    FindStrings(many.Context(), many.Memory(), plan);
    EXPECT_EQ(Files.Files, Before);
    EXPECT_FALSE(many.Rows()[1]->HasComponent());
    ASSERT_EQ(many.SetUp().CountDone(), 3);
    for (const TFormSetup& form : plan.Forms)
        for (const TSetupString& string : *form.Strings) {
            if (!string.Taken) continue;
            const std::string target = string.Text.starts_with("Going") ? "Caption" : "Edit1.Text";
            const std::string call =
                target + " := " + form.Component + ".GetTextOrDefault('" + string.ID + "'";
            EXPECT_TRUE(Holds(FileNameOf(form.FileName), call)) << call;
        }
}

TEST_F(TSetup, ASecondRunHasNothingToDo) {
    Files.ReadOnlyFiles.insert("/p/U3.pas");
    TMany many(Files);
    EXPECT_EQ(many.SetUp().CountDone(), 2);
    Files.ReadOnlyFiles = {};
    many.User.OnWindow<TfrmWizard>("frmWizard", [&](TfrmWizard& wizard) {
        wizard.lbLanguages.Items = many.Wishes().Languages;
        wizard.sgForms.SelectOnly([&](int row) { return wizard.sgForms.Cell(row, 1) == "F3"; });
        wizard.acTakeForms();
        EXPECT_EQ(wizard.lblForms, "Forms to be set up: 2 of 3");
        while (wizard.Page != TWizardPage::Summary)
            wizard.btNextClick();
        EXPECT_EQ(wizard.PageHint, "There is nothing to do: no form would change.");
        EXPECT_EQ(wizard.sgPlan.Cell(0, 1), "Nothing to do");
        EXPECT_FALSE(wizard.FinishEnabled());
        wizard.btCancelClick();
    });
    many.Parts.Expert()->Window()->Run("Wizards");
    Before = Files.Files;
    const TSetupOutcome outcome = many.SetUp();
    EXPECT_EQ(outcome.CountDone(), 3) << outcome.Report();
    EXPECT_NE(outcome.Report().find("\r\nForms with nothing to do: 2\r\n\r\nF3 ("), std::string::npos)
        << outcome.Report();
    EXPECT_EQ(States(), "bbd");
}

}  // namespace
}  // namespace tml
