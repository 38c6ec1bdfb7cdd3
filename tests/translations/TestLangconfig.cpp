#include "support/Scripteduser.h"
#include "translations/Langconfig.h"

namespace tml {
namespace {

TEST(Langconfig, RaisingTheNumberAddsDefaultThenGeneratedNames) {
    const struct {
        std::vector<std::string> Names;
        const char* Count;
        std::vector<std::string> Result;
    } rows[] = {{{}, "4", {"English", "German", "Language N3", "Language N4"}},
                {{"German", "English"}, "3", {"German", "English", "Language N3"}},
                {{"German"}, "2", {"German", "Language N2"}},
                {{"a", "b", "c"}, "2", {"a", "b", "c"}},
                {{"a"}, "x", {"a"}}};
    for (const auto& row : rows) {
        TScriptedUser user;
        TfrmLangConfig window(user, "English,German", TStringList(row.Names));
        window.edLangCountChange(row.Count);
        EXPECT_EQ(window.lbLangNames.Items(), row.Result);
        EXPECT_TRUE(window.btOKEnabled);
        window.edLangCountChange("0");
        EXPECT_FALSE(window.btOKEnabled);
        window.sbDown2Click();
        EXPECT_EQ(window.edLangCount, "0") << "nothing goes below 1";
    }
}

TEST(Langconfig, NamesAreMovedRenamedAddedAndDeleted) {
    TScriptedUser user;
    TfrmLangConfig window(user, "", TStringList({"a", "b", "c", "d"}));
    window.btnRenameClick();  // nothing is selected: nobody asks
    window.Selected = {true, false, true, true};
    window.btnMoveUpClick();
    EXPECT_EQ(window.lbLangNames, TStringList({"a", "c", "d", "b"}));
    window.btnMoveDownClick();
    window.btnMoveDownClick();
    EXPECT_EQ(window.lbLangNames, TStringList({"b", "a", "c", "d"}));
    user.OnInput("Enter new language name:", "A");
    window.btnRenameClick();
    EXPECT_EQ(user.Proposed, "a");
    EXPECT_EQ(window.FormerPlaces(), (std::vector<int>{2, 1, 3, 4})) << "a renamed language keeps its texts";
    user.OnMessage("Delete selected language name(s)?", mrYes);
    window.btnDeleteClick();
    EXPECT_EQ(window.lbLangNames, TStringList({"b"}));
    user.OnInput("Enter new language name:", "b");
    window.btnAddClick();
    EXPECT_EQ(window.lbLangNames, TStringList({"b", "b"}));
    EXPECT_EQ(window.FormerPlaces(), (std::vector<int>{2, 0}));
    EXPECT_EQ(window.edLangCount, "2");
}

}  // namespace
}  // namespace tml
