#include <QComboBox>
#include <QTreeWidget>
#include <fstream>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

using TProjectSettingsWindow = TDesktop;

TEST_F(TProjectSettingsWindow, TheSettingsOfAProject) {
    OpenOrchard();
    std::ofstream(Path("orchard/d.dix")) << "<HEAD>\n<LANGUAGE>English</LANGUAGE>\n</HEAD>\n";
    User.On([this](QWidget& dialog) {
        EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
        User.ChooseFile("d.dix");
        Press(dialog, "btDictionary");
        EXPECT_EQ(EditOf(dialog, "edDefaultDictionary").text(), ToQt(Path("orchard/d.dix")));
        auto& language = *dialog.findChild<QComboBox*>("cbDefaultLanguage");
        EXPECT_EQ(language.itemText(0), "English</LANGUAGE>");
        const auto& warning = *dialog.findChild<QLabel*>("languageWarning");
        Type(dialog, "cbDefaultLanguage", "English");
        EXPECT_EQ(language.currentText(), "English");
        EXPECT_TRUE(warning.isVisible());
        language.setFocus();
        QTest::keyClick(&language, Qt::Key_Down);
        EXPECT_FALSE(warning.isVisible());
        Press(dialog, "ckbAskForDictionary");
        Activate(dialog);
        QTest::keyClick(&dialog, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_TRUE(dialog.findChild<QAbstractButton*>("sbProject")->isChecked());
        User.ChooseFile("texts");
        Press(dialog, "btTranslationFile");
        QTest::keyClicks(dialog.findChild<QComboBox*>("cbDefFormForUnits"), "Main");
        Press(dialog, "btOK");
    });
    Click("ProjectSettings1");
    const std::string written = OnDisk("orchard/Orchard.mlproj");
    for (const std::string& line :
         {"DefaultDictionary=" + Path("orchard/d.dix"),
          std::string("DictionaryBaseLanguage=English</LANGUAGE>"), std::string("DontAskForDictionary=1"),
          "DefaultTranslationFileName=" + Path("orchard/texts.mlb"),
          std::string("DefaultFormForUnits=MainForm"), std::string("DispatcherForm=")})
        EXPECT_NE(written.find(line + "\r\n"), std::string::npos) << line << " in " << written;
}

TEST_F(TProjectSettingsWindow, TheProjectManagerOpensTheSettingsAndCancelWritesNothing) {
    OpenOrchard();
    auto& tree = Find<QTreeWidget>("projectTree");
    const QPoint at = tree.visualItemRect(tree.topLevelItem(0)).center();
    User.On([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Project Translation Settings");
        Press(dialog, "ckbForceEmpties");
        Press(dialog, "btCancel");
    });
    ChooseFromMenu(*tree.viewport(), at, "Project Settings...");
    EXPECT_FALSE(std::filesystem::exists(Path("orchard/Orchard.mlproj")));
}

}  // namespace
}  // namespace tml
