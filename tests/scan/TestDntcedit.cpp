#include "base/Utf8.h"
#include "expert/Expopt.h"
#include "scan/Dntcedit.h"
#include "scan/Skippedstrings.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\";

TEST(NotTranslate, NamesMoveBetweenTheLists) {
    TMemoryRegistry registry;
    TfrmNotTranslate window(registry, TStringList({"a", "b", "c", "d"}), TStringList({"x"}));
    const auto enabled = [&] {
        return std::vector<bool>{window.btAddEnabled, window.btAddAllEnabled, window.btRemoveEnabled,
                                 window.btRemoveAllEnabled};
    };
    EXPECT_EQ(enabled(), (std::vector<bool>{false, true, false, true}));
    window.lbComps.Selected = {false, true, true, true};
    window.SelectionChange();
    EXPECT_TRUE(window.btAddEnabled);
    window.btAddClick();
    EXPECT_EQ(window.lbComps.Items, TStringList({"a"}));
    EXPECT_EQ(window.lbSelected.Items, TStringList({"x", "b", "c", "d"}));
    window.lbSelectedDblClick(0);
    EXPECT_EQ(window.lbComps.Items, TStringList({"a", "x"}));
    window.btRemoveAllClick();
    EXPECT_EQ(window.lbComps.Items, TStringList({"a", "b", "c", "d", "x"}));
    window.btRemoveAllClick();
    EXPECT_EQ(enabled(), (std::vector<bool>{false, true, false, false}));
    window.lbComps.Items = TStringList({"b", "a"});
    window.btRemoveAllClick();
    EXPECT_EQ(window.lbComps.Items, TStringList({"b", "a"})) << "there is nothing to move";
    window.btOKClick();
    EXPECT_TRUE(window.lbSelected.Items.Empty());
}

TEST(NotTranslate, RemembersItsPlace) {
    TMemoryRegistry registry;
    registry.Values[kKey + "ExcludeComponents\\Width"] = 300;
    registry.Values[kKey + "ExcludeComponents\\LeftWidth"] = 120;
    TfrmNotTranslate window(registry, {}, {});
    window.FormShow();
    window.Placement.Top = 5;
    window.FormClose();
    EXPECT_EQ(registry.Writes, (std::vector<std::string>{"ExcludeComponents\\Width=integer 300",
                                                         "ExcludeComponents\\Top=integer 5",
                                                         "ExcludeComponents\\LeftWidth=integer 120"}));
}

struct TSkipped : TExpertFixture, testing::Test {};

TEST_F(TSkipped, ShowsLineReasonAndSurroundings) {
    PutForm(1, "", "  F('One'); { 'Two' }\n  G('Three');\n");
    Open();
    const auto module = Ide.GetModuleServices()->OpenModule("/p/Unit1.pas", true);
    const std::string source = *module->GetSourceEditor(0)->GetText();
    ScanMemory().Skipped = {
        {"Two", static_cast<int>(source.find("'Two'")) + 1, 0, ssrComments},
        {"Go", 0, 3, ssrByPhrase},
    };
    TfrmSkippedStrings window(Context(), ScanMemory());
    window.FormShow();
    ASSERT_EQ(window.lvStrings.Count(), 2);
    EXPECT_EQ(window.StatusPanel, "2");
    EXPECT_EQ(window.lvStrings.Items()[0]->SubItems,
              (std::vector<std::string>{"Two", std::to_string(source.find("'Two'") + 1)}));
    EXPECT_EQ(window.lvStrings.Items()[1]->Caption, "3");
    window.lvStringsSelectItem(0);
    EXPECT_EQ(window.lblReason, "The string is found in source comments.");
    EXPECT_EQ(window.memPreview.substr(window.SelBegin, window.SelEnd - window.SelBegin),
              "  F('One'); { 'Two' }\r\n");
    window.lvStringsSelectItem(1);
    EXPECT_EQ(window.memPreview.substr(window.SelBegin, window.SelEnd - window.SelBegin), "interface\r\n");
    EXPECT_EQ(ScanMemory().Skipped.size(), 2U);

    // The second row's phrase is a skip word, the first one stands in a comment.
    Context().Settings.SetSkipWords(TStringList({"Go"}));
    EXPECT_EQ(window.WayOutCaption(), "&Open the option...");
    const auto opened = [](TfrmOptions& options) {
        EXPECT_EQ(options.ActivePage, TfrmOptions::ExcludeAndSkip);
        EXPECT_EQ(options.ActiveControl, "memSkipWords");
    };
    User.OnWindow<TfrmOptions>("frmOptions", [&](TfrmOptions& options) {
        opened(options);
        options.btOKClick();
    });
    window.btWayOutClick();
    EXPECT_EQ(window.lblNote, "") << "nothing has changed";
    User.OnWindow<TfrmOptions>("frmOptions", [&](TfrmOptions& options) {
        opened(options);
        options.memSkipWords = {};
        options.btOKClick();
    });
    window.btWayOutClick();
    EXPECT_TRUE(window.lblNote.find("no longer skip 1 of its 2 strings.") != std::string::npos)
        << window.lblNote;
    EXPECT_EQ(window.lvStrings.Count(), 2) << "the list stays that of the last scan";
    window.lvStringsSelectItem(0);
    window.btWayOutClick();
    EXPECT_EQ(module->GetSourceEditor(0)->GetEditView(0)->GetCursorPos(),
              (TOTACharPos{ToInteger(window.lvStrings.Items()[0]->Caption), 0}));

    module->Close();
    window.FormShow();
    EXPECT_EQ(window.lvStrings.Count(), 0) << "without an editor there are no lines";
}

}  // namespace
}  // namespace tml
