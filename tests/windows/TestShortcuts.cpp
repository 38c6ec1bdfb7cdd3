#include "windows/Shortcuts.h"

namespace tml {
namespace {

TEST(Shortcuts, GoToTextAndBack) {
    const struct {
        TShortCut ShortCut;
        const char* Text;
    } rows[] = {{0x404C, "Ctrl+L"}, {0x402E, "Ctrl+Del"}, {0x604D, "Shift+Ctrl+M"},
                {0x8073, "Alt+F4"}, {0x0087, "F24"},      {0xE020, "Shift+Ctrl+Alt+Space"},
                {0x40BD, "Ctrl+-"}, {0x0035, "5"}};
    for (const auto& row : rows) {
        EXPECT_EQ(ShortCutToText(row.ShortCut), row.Text);
        EXPECT_EQ(TextToShortCut(row.Text), row.ShortCut) << row.Text;
    }
}

TEST(Shortcuts, AreReadInAnyCaseAndOrder) {
    EXPECT_EQ(TextToShortCut("CTRL+L"), 0x404C);
    EXPECT_EQ(TextToShortCut("ctrl+shift+m"), 0x604D);
    EXPECT_EQ(TextToShortCut("^Q"), 0x4051);
    for (const char* none : {"", "Ctrl+", "Ctrl+Foo", "Ctrl +L", "F25", "LL"})
        EXPECT_EQ(TextToShortCut(none), 0) << none;
    EXPECT_EQ(ShortCutToText(0), "");
}

}  // namespace
}  // namespace tml
