#include <QRadioButton>
#include <QTreeWidget>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

using TProjectMenuWindow = TDesktop;

TEST_F(TProjectMenuWindow, TheTranslationsOfAProjectAreSavedFromTheProjectManager) {
    OpenOrchard();
    auto& tree = Find<QTreeWidget>("projectTree");
    const auto open = [&](QTreeWidgetItem* item, const std::function<void()>& use) {
        QTimer::singleShot(0, Window.get(), use);
        const QPoint at = tree.visualItemRect(item).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree.viewport()->mapToGlobal(at));
        QApplication::sendEvent(tree.viewport(), &event);
    };
    User.On([this](QWidget& dialog) {
        EXPECT_FALSE(EditOf(dialog, "edTemplateText").isEnabled());
        Type(dialog, "edFileName", ToQt(Path("orchard/texts.mll")));
        Press(dialog, "btOK");
    });
    User.Answer("This will save selected project to texts.mll! Continue?", "Yes");
    User.AnswerInput("|");
    open(tree.topLevelItem(0),
         [] { EXPECT_TRUE(ClickEntry("TmlLang translations", "Save selected project")); });
    QApplication::processEvents();
    const std::string written = OnDisk("orchard/texts.mll");
    EXPECT_NE(written.find("[Orchard/AboutBox]"), std::string::npos) << written;
    Window->Host().Expert()->Settings().SetMultiProjTemplate("($PROJECT_NAME).txt");
    User.On([](QWidget& dialog) {
        Press(dialog, "rbFileNameTemplate");
        EXPECT_FALSE(EditOf(dialog, "edFileName").isEnabled());
        for (const bool isText : {false, true, false}) {
            const char* const kind = isText ? "rbMLL" : "rbMLB";
            EXPECT_FALSE(dialog.findChild<QRadioButton*>(kind)->isChecked())
                << "of neither kind, or the other";
            Press(dialog, kind);
            EXPECT_EQ(EditOf(dialog, "edTemplateText").text(),
                      isText ? "($PROJECT_NAME).mll" : "($PROJECT_NAME).mlb");
        }
        Press(dialog, "btOK");
    });
    User.Answer("This will save all projects in project group to ($PROJECT_NAME).mlb! Continue?", "Yes");
    open(tree.topLevelItem(0), [] { EXPECT_TRUE(ClickEntry("TmlLang translations", "Save all projects")); });
    QApplication::processEvents();
    EXPECT_TRUE(std::filesystem::exists(Path("orchard/Orchard.mlb"))) << "in the project's folder";
    open(tree.topLevelItem(0)->child(1), [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (const QAction* action : menu->actions())
            EXPECT_NE(action->text(), "TmlLang translations");
        menu->close();
    });
}

}  // namespace
}  // namespace tml
