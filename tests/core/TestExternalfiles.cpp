#include "core/Externalfiles.h"

namespace tml {
namespace {

struct TCounted : TmlExternalFiles {
    int Saves = 0;
    void Save() override { ++Saves; }
};

TEST(Externalfiles, AreSavedWhenAChangeLeavesEntriesAndEveryChangeIsTold) {
    TCounted list;
    int told = 0;
    list.OnChange = [&told] { ++told; };
    list.SetProjectName("a");
    EXPECT_EQ(list.Saves, 0) << "nothing to save yet";
    list.Add("x.pas");
    list.Add("x.pas");
    EXPECT_EQ(list.Files(), TStringList({"x.pas", "x.pas"}));
    EXPECT_EQ(list.Saves, 2);
    list.SetFiles(list.Files());
    list.SetProjectName("a");
    EXPECT_EQ(list.Saves, 2);
    list.SetProjectName("A");
    list.SetFiles(TStringList({"y.pas"}));
    EXPECT_EQ(list.Saves, 4);
    EXPECT_EQ(told, 3) << "the name is no part of the list";
    list.SetFiles({});
    EXPECT_EQ(list.Saves, 4);
    EXPECT_EQ(told, 4) << "the emptied list is stored, too";
    list.Open("B", TStringList({"z.pas"}));
    list.Clear();
    EXPECT_TRUE(list.Files().Empty());
    EXPECT_EQ(list.Saves, 4);
    EXPECT_EQ(told, 4);
}

}  // namespace
}  // namespace tml
