#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QToolBar>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

/// The dictionary beside a program in English, German and Hebrew.
class TDictionaryDesk : public TDesktop {
  public:
    TDictionaryDesk() {
        std::filesystem::copy(std::filesystem::path(TML_TESTS) / "../examples/harbour", Path("harbour"),
                              std::filesystem::copy_options::recursive);
        Window->OpenProject(ToQt(Path("harbour/Harbour.lpi")));
        SelectForm("MainForm");
    }
    static void ClickTool(QWidget& window, const char* action) {
        auto& bar = *window.findChild<QToolBar*>("toolBar");
        QTest::mouseClick(bar.widgetForAction(window.findChild<QAction*>(action)), Qt::LeftButton);
    }
    static QTableView& Table(QWidget& window, const char* name) {
        return *window.findChild<QTableView*>(name);
    }
};

TEST_F(TDictionaryDesk, LearnsFromAFormAndFillsItAgain) {
    User.On([this](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Dictionary - new");
        for (const QAction* action : window.findChild<QToolBar*>("toolBar")->actions())
            EXPECT_TRUE(action->isSeparator() || !action->icon().isNull()) << FromQt(action->objectName());
        ClickTool(window, "acLearn");
        QTableView& entries = Table(window, "grEntries");
        window.findChild<QLineEdit*>("filter")->setFocus();
        QTest::keyClicks(window.findChild<QLineEdit*>("filter"), "gezeiten");
        EXPECT_EQ(TextOf(window, "filterCount").section(' ', 0, 0), "1");
        EXPECT_EQ(Cell(entries, 0, 0), "&Tides");
        ClickCell(entries, 0, 1);
        auto& text = *window.findChild<QPlainTextEdit*>("memTranslation");
        EXPECT_EQ(text.toPlainText(), "&Gezeiten");
        text.setFocus();
        QTest::keyClicks(&text, "Die ");
        EXPECT_EQ(Cell(entries, 0, 1), "Die &Gezeiten");
        ClickCell(entries, 0, 0);
        QTest::keyClick(&entries, Qt::Key_Delete);
        EXPECT_EQ(entries.model()->rowCount(), 0);
        QTest::keyClick(&entries, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Cell(entries, 0, 1), "Die &Gezeiten");
        User.On([](QWidget& fill) {
            QTableView& fills = Table(fill, "grFills");
            EXPECT_EQ(fill.findChild<QComboBox*>("cbLanguage")->currentText(), "German");
            EXPECT_EQ(fills.model()->rowCount(), 0);
            Press(fill, "ckbOverwriteExisting");
            ASSERT_EQ(fills.model()->rowCount(), 1);
            EXPECT_EQ(Cell(fills, 0, 3) + " " + Cell(fills, 0, 4), "&Gezeiten Die &Gezeiten");
            ClickCell(fills, 0, 2);
            QTest::keyClick(&fills, Qt::Key_Delete);
            EXPECT_FALSE(fill.findChild<QPushButton*>("btFill")->isEnabled());
            QTest::keyClick(&fills, Qt::Key_Insert);
            Press(fill, "btFill");
        });
        ClickTool(window, "acFill");
        EXPECT_TRUE(TextOf(window, "status").endsWith("Filled: 1 translation"));
        User.ChooseFile("words");
        ClickTool(window, "acSave");
        EXPECT_TRUE(TextOf(window, "status").endsWith("\"Project Settings...\" can make it the project's"));
        Press(window, "btClose");
    });
    Click("Dictionary1");
    Window->SaveAll();
    EXPECT_NE(OnDisk("harbour/words.dix").find(">Die &amp;Gezeiten</TEXT>\n"), std::string::npos);
    EXPECT_NE(OnDisk("harbour/forms/Mainwindow.lfm").find("'&Tides'#1'Die &Gezeiten'"), std::string::npos);
}

TEST_F(TDictionaryDesk, ListsTextsWithSeveralTranslations) {
    User.On([this](QWidget& window) {
        ClickTool(window, "acLearn");
        QTableView& entries = Table(window, "grEntries");
        window.findChild<QLineEdit*>("filter")->setText("&Tides");
        ClickCell(entries, 0, 1);
        QTest::keyClick(&entries, Qt::Key_F2);
        QTest::keyClicks(entries.findChild<QLineEdit*>(), "Ebbe");
        QTest::keyClick(entries.findChild<QLineEdit*>(), Qt::Key_Return);
        User.On([](QWidget& conflicts) {
            QTableView& table = Table(conflicts, "grConflicts");
            ASSERT_EQ(table.model()->rowCount(), 1);
            EXPECT_EQ(Cell(table, 0, 0) + "|" + Cell(table, 0, 1), "German|&Tides");
            EXPECT_EQ(Cell(table, 0, 2) + "|" + Cell(table, 0, 3), "Ebbe|&Gezeiten (1)");
            Press(conflicts, "btClose");
        });
        ClickTool(window, "acLearn");
        window.findChild<QComboBox*>("cbTranslation")->setFocus();
        QTest::keyClick(window.findChild<QComboBox*>("cbTranslation"), Qt::Key_Down);
        EXPECT_EQ(entries.model()->headerData(1, Qt::Horizontal), "Hebrew");
        User.Answer("Save the changes of the dictionary?", "No");
        Press(window, "btClose");
    });
    Click("Dictionary1");
}

}  // namespace
}  // namespace tml
