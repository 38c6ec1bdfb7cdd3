#include <gtest/gtest.h>

#include "base/Errors.h"
#include "core/Modules.h"
#include "setup/Exclude.h"
#include "support/Expertfixture.h"
#include "support/Growth.h"

namespace tml {
namespace {

constexpr const char* kWindow = "frmExclude";
constexpr auto kProperties = TExclusionList::ExcludedProperties;

struct TExcludeTest : TExpertFixture, testing::Test {
    TExcludeTest() {
        for (const int form : {1, 2})
            PutForm(form, std::string("  object mlLang1: TmlLang\n    NumOfLanguages = 2\n"
                                      "    LangNames.Strings = (\n      'English'\n      'German')\n"
                                      "    Captions.Strings = (\n      'Button1.Caption'#1'Go'#1'Los')\n") +
                              (form == 1 ? "" : "    ExcludedProperties.Strings = (\n      '!Gone')\n") +
                              "  end\n  object Label1: TLabel\n    Caption = 'Name:'\n    Hint = 'Whose'\n"
                              "  end\n");
    }
    /// Form1 comes first.
    void OpenSorted() {
        Open();
        Expert->Window()->lvFormNamesColumnClick(fcFormName);
    }
    void Run(const std::function<void(TfrmExclude&)>& use) {
        if (Expert == nullptr) OpenSorted();
        Expert->Window()->SelectAll1Click();
        User.OnWindow<TfrmExclude>(kWindow, use);
        Expert->Window()->Run("Exclude");
    }
    static int NodeOf(const TfrmExclude& window, const std::string& caption, int parent) {
        const auto& children = parent < 0 ? window.Tree().Roots() : window.Tree().Node(parent).Children;
        for (const int child : children)
            if (window.Tree().Caption(child) == caption) return child;
        ADD_FAILURE() << "no node " << caption;
        return 0;
    }
    static int NodeOf(const TfrmExclude& window, const std::vector<std::string>& path) {
        int node = -1;
        for (const std::string& caption : path)
            node = NodeOf(window, caption, node);
        return node;
    }
    /// "Form1(TButton(Button1(Caption)))" with "-" before what is excluded, "~" in part.
    static std::string Shown(const TfrmExclude& window, const std::vector<int>& nodes) {
        std::string text;
        for (const int node : nodes) {
            const TExclusionNode& shown = window.Tree().Node(node);
            const std::string marks[] = {"", "~", "-"};
            text += (text.empty() ? "" : " ") + marks[static_cast<int>(shown.Check())] +
                    window.Tree().Caption(node);
            if (!shown.Children.empty()) text += "(" + Shown(window, shown.Children) + ")";
        }
        return text;
    }
    static std::string Shown(const TfrmExclude& window) { return Shown(window, window.Tree().Roots()); }
    bool Holds(const std::string& file, const std::string& text) {
        return Files.Files["/p/" + file].find(text) != std::string::npos;
    }
};

TEST_F(TExcludeTest, TheTreeShowsWhatIsExcludedAndTheListsAreWrittenAsOneStep) {
    const std::string before = Files.Files["/p/Unit1.dfm"];
    const std::string question =
        "2 forms change: 3 texts leave the tables with the next update; 1 translation is dropped. Continue?";
    Run([&](TfrmExclude& window) {
        EXPECT_EQ(Shown(window),
                  "Form1(TButton(Button1(Caption)) TLabel(Label1(Caption Hint))) "
                  "Form2(TButton(Button1(Caption)) TLabel(Label1(Caption Hint)))");
        window.BoxClick(NodeOf(window, {"Form1", "TLabel"}), true);
        EXPECT_EQ(window.lblEffect, "1 form changes: 2 texts leave the tables with the next update");
        EXPECT_FALSE(window.EffectWarns);
        const int caption = NodeOf(window, {"Form1", "TButton", "Button1", "Caption"});
        window.BoxClick(caption, true);
        EXPECT_EQ(window.Cell(caption, 1) + "|" + window.Cell(caption, 2),
                  "Go|Button1.Caption in ExcludedProperties");
        EXPECT_EQ(window.Cell(window.Tree().NodeOfForm(0), 1), "3 of 3 excluded");
        EXPECT_EQ(Shown(window).substr(0, 69),
                  "-Form1(-TButton(-Button1(-Caption)) -TLabel(-Label1(-Caption -Hint)))");
        window.NodeClick(window.Tree().NodeOfForm(1));
        ASSERT_EQ(window.lvEntries.Count(), 1);
        EXPECT_EQ(window.lvEntries.Row(0).Cell(1) + ": " + window.lvEntries.Row(0).Cell(2),
                  "!Gone: matches nothing");
        window.lvEntries.Row(0).Selected = true;
        window.btnRemoveEntryClick();
        EXPECT_EQ(window.lvEntries.Count(), 0);
        User.OnMessage(question, mrNo);
        window.btOKClick();
        EXPECT_EQ(window.ModalResult, mrNone);
        User.OnMessage(question, mrYes);
        window.btOKClick();
    });
    EXPECT_TRUE(Holds("Unit1.dfm",
                      "ExcludedProperties.Strings = (\r\n      'TLabel'\r\n      "
                      "'Button1.Caption')\r\n"));
    EXPECT_TRUE(Holds("Unit1.dfm", "'Button1.Caption'#1'Go'#1'Los'")) << "nothing but the lists";
    EXPECT_FALSE(Holds("Unit2.dfm", "Gone"));
    EXPECT_FALSE(IsFileOpen(Context(), "/p/Unit1.pas"));
    EXPECT_EQ(Ide.Undo(), "Exclude from Translation");
    EXPECT_EQ(Files.Files["/p/Unit1.dfm"], before);
    EXPECT_TRUE(Holds("Unit2.dfm", "'!Gone'")) << "one step for all forms";
}

TEST_F(TExcludeTest, AllFormsAtOnceAndEachBack) {
    constexpr int kPath = 3;
    Run([&](TfrmExclude& window) {
        window.NodeClick(NodeOf(window, {"Form1", "TLabel", "Label1", "Hint"}));
        EXPECT_EQ(window.Actions.All[4].Caption, "Exclude &Property Hint Everywhere");
        window.SmartBoxClick(kPath, true);
        window.ckbAllFormsClick(true);
        EXPECT_EQ(window.SmartBoxes[kPath].Rule, "Path");
        EXPECT_EQ(window.SmartBoxes[kPath].State, TExclusionCheck::Partly);
        window.SmartBoxClick(kPath, true);
        EXPECT_EQ(window.SmartBoxes[kPath].State, TExclusionCheck::Excluded);
        window.acExcludeProperty();
        EXPECT_EQ(window.Lists(0)[kProperties].CommaText(), ".Hint");
        EXPECT_EQ(window.Lists(1)[kProperties].CommaText(), "!Gone,.Hint");
        window.BoxClick(NodeOf(window, {"Form2", "TLabel"}), false);
        EXPECT_EQ(window.Lists(1)[kProperties].CommaText(), "!Gone");
        window.acExcludeClassProperty();
        EXPECT_EQ(window.Lists(1)[kProperties].CommaText(), "!Gone,TLabel.Hint");
        window.acExcludeWithAll();
        EXPECT_EQ(window.Lists(0)[TExclusionList::DoNotTranslate].CommaText(), "Label1");
        window.acTranslate();
        EXPECT_EQ(window.Lists(0)[kProperties].CommaText(), "Label1.Caption") << "what else was meant";
        User.OnInput("Entry (!Component, TClass, .Property, TClass.Property, Path):", "!Nobody");
        User.OnMessage("\"!Nobody\" matches nothing in any form; only Form1 has it now.");
        window.btnAddEntryClick();
        EXPECT_EQ(window.Lists(0)[kProperties].CommaText(), "Label1.Caption,!Nobody");
        EXPECT_EQ(window.Lists(1)[kProperties].IndexOf("!Nobody"), -1);
        window.ckbAllFormsClick(false);
        window.acExcludeClass();
        EXPECT_EQ(window.Lists(1)[kProperties].IndexOf("TLabel"), -1);
        User.OnInput("Entry (!Component, TClass, .Property, TClass.Property, Path):", "number:TEdit");
        window.btnAddEntryClick();
        EXPECT_EQ(window.Lists(0)[TExclusionList::SmartExcludeProps].CommaText(), "Path,number:TEdit");
        window.btCancelClick();
    });
    EXPECT_FALSE(Holds("Unit1.dfm", "Excluded"));
}

TEST_F(TExcludeTest, SearchAndViewStateAreKept) {
    Run([&](TfrmExclude& window) {
        window.edSearchChange("whos");
        EXPECT_EQ(Shown(window), "Form1(TLabel(Label1(Hint))) Form2(TLabel(Label1(Hint)))");
        window.BoxClick(NodeOf(window, {"Form2", "TLabel", "Label1", "Hint"}), true);
        window.edSearchChange("");
        window.ckbOnlyExcludedClick(true);
        EXPECT_EQ(Shown(window), "~Form2(~TLabel(~Label1(-Hint)))");
        window.ckbFormViewClick(false);
        window.ColumnWidths = {200, 100, 50};
        window.btOKClick();
    });
    EXPECT_TRUE(Holds("Unit2.dfm", "'!Gone'\r\n      'Label1.Hint')"));
    Run([&](TfrmExclude& window) {
        EXPECT_EQ(Shown(window), "~Form2(~TLabel(~Label1(-Hint)))");
        EXPECT_FALSE(window.ckbFormView);
        EXPECT_EQ(window.ColumnWidths, (std::vector{200, 100, 50}));
        window.btCancelClick();
    });
}

TEST_F(TExcludeTest, WhatTheTreeDoesNotShowIsSaid) {
    PutForm(2, "");
    const std::string left = "1 chosen form has no localization component and is left out.";
    const std::string none = left + " Nothing is excluded; all is shown without \"Show only excluded\".";
    Run([&](TfrmExclude& window) {
        EXPECT_EQ(window.lblShown, left);
        window.ckbOnlyExcludedClick(true);
        window.btCancelClick();
    });
    Run([&](TfrmExclude& window) {
        EXPECT_EQ(window.lblShown, none) << "the switch is remembered";
        window.edSearchChange("Label1");
        EXPECT_EQ(window.lblShown, left + " Nothing excluded has this in its name or text.");
        window.btCancelClick();
    });
}

TEST_F(TExcludeTest, FormsThatCannotBeReadAreSaid) {
    OpenSorted();
    Files.Files["/p/Unit1.dfm"].resize(40);
    User.OnMessage("These forms cannot be opened and are left out:\r\nForm1");
    Run([&](TfrmExclude& window) {
        EXPECT_EQ(window.Forms().size(), 1U);
        window.btCancelClick();
    });
    User.StopAt = "Reading forms...";
    Expert->Window()->SelectAll1Click();
    Expert->Window()->Run("Exclude");
    EXPECT_FALSE(User.ProgressShown);
}

TEST_F(TExcludeTest, AnAncestorThatItsHeirOpensIsSavedAndClosed) {
    const auto replace = [this](const std::string& file, const std::string& from, const std::string& to) {
        std::string& text = Files.Files["/p/" + file];
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    };
    replace("Unit2.dfm", "object ", "inherited ");
    replace("Unit2.pas", "class(TForm)", "class(TForm1)");
    replace("Unit2.pas", "StdCtrls;", "StdCtrls, Unit1;");
    Open();
    Run([](TfrmExclude& window) {
        EXPECT_EQ(window.Forms().front().FormName, "Form2") << "the heir comes first";
        for (const int root : window.Tree().Roots())
            window.BoxClick(NodeOf(window, "TLabel", root), true);
        window.btOKClick();
    });
    for (const char* unit : {"Unit1", "Unit2"}) {
        EXPECT_TRUE(Holds(unit + std::string(".dfm"), "      'TLabel')")) << unit;
        EXPECT_FALSE(IsFileOpen(Context(), std::string("/p/") + unit + ".pas")) << unit;
    }
}

TEST_F(TExcludeTest, AFormThatCannotBeSavedStaysOpenWithItsLists) {
    OpenSorted();
    Files.ReadOnlyFiles = {"/p/Unit1.dfm"};
    const std::string before = Files.Files["/p/Unit1.dfm"];
    const auto choose = [&](TfrmExclude& window) {
        for (const char* form : {"Form1", "Form2"})
            window.BoxClick(NodeOf(window, {form, "TLabel"}), true);
        window.btOKClick();
    };
    EXPECT_THROW(Run(choose), EBadInput);
    EXPECT_EQ(Files.Files["/p/Unit1.dfm"], before);
    EXPECT_TRUE(Holds("Unit2.dfm", "'!Gone'\r\n      'TLabel')"));
    ASSERT_TRUE(IsFileOpen(Context(), "/p/Unit1.pas"));
    Files.ReadOnlyFiles.clear();
    SaveFile(Context(), "/p/Unit1.pas");
    EXPECT_TRUE(Holds("Unit1.dfm", "ExcludedProperties.Strings = (\r\n      'TLabel')\r\n"));
}

TEST_F(TExcludeTest, FormsWithoutAComponentHaveNothingToExclude) {
    PutForm(2, "");
    Open();
    Select("Form2");
    User.OnMessage(
        "None of the selected forms has a localization component. \"Languages\" puts one on a form.");
    Expert->Window()->Run("Exclude");
}

TEST(ExclusionTree, GrowsWithItsForms) {
    TExpertFixture host;
    ExpectLinearGrowth(20, [&](int count) {
        std::vector<TExclusionForm> forms;
        for (int i = 0; i < count; ++i) {
            TExclusionForm form{"Form" + std::to_string(i), "", {{"", "", "TForm1", -1}}, {}, {}, false};
            for (int text = 1; text <= 40; ++text) {
                const std::string name = "Label" + std::to_string(text);
                form.Owners.push_back({name, name, "TLabel", 0});
                form.Texts.push_back({{text, "Caption", "Some text"}});
            }
            AddExclusion(form.Lists, kProperties, "!Label7");
            forms.push_back(std::move(form));
        }
        TfrmExclude window(host.Host(), std::move(forms), {});
        window.ckbAllFormsClick(true);
        window.NodeClick(window.Tree().Node(window.Tree().NodeOfForm(0)).Children.front());
        window.acExcludeClass();
        window.edSearchChange("label4");
        return static_cast<int>(window.Tree().Roots().size()) == count &&
               window.lblEffect.find(std::to_string(39 * count) + " texts leave") != std::string::npos;
    });
}

}  // namespace
}  // namespace tml
