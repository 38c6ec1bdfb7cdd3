#include <fstream>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

using TOpening = TDesktop;

TEST_F(TOpening, AProjectThatCannotBeOpenedLeavesTheOneThatIsOpen) {
    EXPECT_TRUE(Find<QLabel>("noProject").isVisible()) << "what to do first is said";
    OpenOrchard();
    EXPECT_FALSE(Find<QLabel>("noProject").isVisible());
    User.Answer(ToQt(Path("none.dproj")), "OK");
    Window->OpenProject(ToQt(Path("none.dproj")));
    EXPECT_EQ(Window->Messages().topLevelItemCount(), 1);
    EXPECT_GT(Find<QTableView>("lvFormNames").model()->rowCount(), 2);
    EXPECT_TRUE(Window->windowTitle().startsWith("Orchard.dproj"));
}

TEST_F(TOpening, SettingsThatCannotBeReadOrWrittenBarNothing) {
    for (const char* blocked : {"settings", "settings/settings/x"}) {
        Window.reset();
        std::filesystem::remove_all(Path("settings"));
        const bool isRead = std::string_view(blocked) != "settings";
        if (isRead)
            std::filesystem::create_directories(Path(blocked));
        else
            std::ofstream(Path(blocked)) << "a file where the folder should be";
        // What cannot be read is told at the start, by the expert and the window; then the recent projects.
        for (int box = isRead ? 0 : 2; box < 3; ++box)
            User.Answer(ToQt(Path("settings")), "OK");
        Window = std::make_unique<TMainWindow>(TDeskFolders{Path("settings"), TML_BIN});
        Window->show();
        OpenOrchard();
        EXPECT_TRUE(Window->windowTitle().startsWith("Orchard.dproj"));
        if (!isRead) {
            EXPECT_GT(Find<QTableView>("lvFormNames").model()->rowCount(), 2);
        }
        User.Answer(ToQt(Path("settings")), "OK");
        Window->close();
        EXPECT_FALSE(Window->isVisible());
    }
}

}  // namespace
}  // namespace tml
