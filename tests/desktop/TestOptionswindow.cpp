#include <QCheckBox>
#include <QComboBox>
#include <QKeySequenceEdit>
#include <QPlainTextEdit>
#include <QTextBrowser>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

/// Steps a number by the upper or the lower of the buttons at its end.
void Step(QWidget& window, const char* name, bool up) {
    auto* field = window.findChild<QWidget*>(name);
    QTest::mouseClick(field, Qt::LeftButton, {},
                      {field->width() - 8, up ? field->height() / 4 : field->height() * 3 / 4});
}

struct TOptionsWindow : TDesktop {
    TOptionsWindow() { OpenOrchard(); }
    const TSettingValues& Settings() { return Window->Host().Expert()->Settings().Get(); }
    QAction& MenuItem(const char* section) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QAction* action : Find<QMenu>(section).actions())
            if (action->objectName() == "mlLangExpertMenuItem") return *action;
        throw std::runtime_error(std::string("not in ") + section);
    }
};

TEST_F(TOptionsWindow, EveryPageIsStoredAndAScanFollows) {
    User.On([](QWidget& dialog) {
        QTest::keyClicks(dialog.findChild<QWidget*>("cbMenuSection"), "Help");
        auto& keys = *dialog.findChild<QKeySequenceEdit*>("hkShortCut");
        QTest::keyClick(&keys, Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(&keys, Qt::Key_X);
        EXPECT_EQ(keys.keySequence(), QKeySequence("Ctrl+Shift+K")) << "a letter alone is no shortcut";
        Step(dialog, "edNumLang", true);
        Press(dialog, "ckbOpenAllForms");

        keys.setFocus();
        QTest::keyClick(&keys, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_TRUE(dialog.findChild<QAbstractButton*>("sbSourceStrings")->isChecked());
        Type(dialog, "edIgnoredLength", "1x5");
        EXPECT_EQ(EditOf(dialog, "edIgnoredLength").text(), "15");
        Step(dialog, "edIgnoredLength", false);
        Type(dialog, "edPreviewLines", "3");
        Press(dialog, "ckbNoComments");
        EXPECT_FALSE(dialog.findChild<QWidget*>("edCommentsLength")->isEnabled());
        EXPECT_FALSE(dialog.findChild<QWidget*>("commentsLengthLabel")->isEnabled());
        Type(dialog, "edHCPrefix", "TXT_");
        Press(dialog, "rbUppercase");

        Press(dialog, "sbExcludeAndSkip");
        auto& words = *dialog.findChild<QPlainTextEdit*>("memSkipWords");
        auto& patterns = *dialog.findChild<QCheckBox*>("ckbUseRegExp");
        EXPECT_TRUE(words.isVisible());
        EXPECT_FALSE(patterns.isEnabled());
        QTest::keyClicks(&words, ".*sav.*");
        EXPECT_TRUE(patterns.isEnabled());
        Press(dialog, "ckbUseRegExp");
        auto& lines = *dialog.findChild<QPlainTextEdit*>("memSkipLines");
        QTest::keyClicks(&lines, "Caption");
        QTest::keyClick(&lines, Qt::Key_Return);
        QTest::keyClicks(&lines, "Format(");
        Press(dialog, "btOK");
    });
    Click("Options1");
    EXPECT_EQ(Settings().MenuSection, "HelpMenu");
    EXPECT_EQ(Settings().ShortCut, TextToShortCut("Shift+Ctrl+K"));
    EXPECT_EQ(Settings().NumLang, 3);
    EXPECT_TRUE(Settings().OpenAllForms);
    EXPECT_EQ(Settings().IgnorableLength, 14);
    EXPECT_EQ(Settings().PreviewLines, 3);
    EXPECT_EQ(Settings().CnstPermanent, 1);
    EXPECT_EQ(Settings().SkipLines, TStringList({"Caption", "Format("}));
    EXPECT_TRUE(Settings().UseRegExpForSkip);
    EXPECT_EQ(MenuItem("HelpMenu").shortcut(), QKeySequence("Ctrl+Shift+K"));

    SelectForm("MainForm");
    User.On([this](QWidget& review) {
        const auto& table = *review.findChild<QTableView*>("sgStrings");
        ASSERT_GT(table.model()->rowCount(), 0);
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            EXPECT_TRUE(Cell(table, row, 1).startsWith("TXT_"));
            EXPECT_GT(Cell(table, row, 2).size(), 14);
            EXPECT_FALSE(Cell(table, row, 2).contains("sav")) << FromQt(Cell(table, row, 2));
        }
        User.Answer("This will close", "Yes");
        review.close();
    });
    Click("SourceWithForm1");
}

TEST_F(TOptionsWindow, ANumberThatIsNoneKeepsTheWindowAndEscGivesUp) {
    User.On([this](QWidget& dialog) {
        QTest::keyClick(dialog.findChild<QWidget*>("hkShortCut"), Qt::Key_Delete);
        Type(dialog, "edNumLang", "many");
        Press(dialog, "ckbOpenAllForms");
        User.Answer("'many' is not a valid integer value", "OK");
        Press(dialog, "btOK");
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(dialog.findChild<QWidget*>("hkShortCut"), Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    Click("Options2");
    EXPECT_EQ(Settings().ShortCut, 0) << "stored in front of the number";
    EXPECT_EQ(Settings().NumLang, 2);
    EXPECT_FALSE(Settings().OpenAllForms);
    EXPECT_EQ(MenuItem("ToolsMenu").shortcut(), QKeySequence("Ctrl+L"));
}

TEST_F(TOptionsWindow, TheListOfLanguages) {
    User.On([this](QWidget& dialog) {
        auto& list = *dialog.findChild<QListWidget*>("lbLanguages");
        const auto texts = [&] {
            QString all;
            for (int i = 0; i < list.count(); ++i)
                all += list.item(i)->text() + (list.item(i)->isSelected() ? "* " : " ");
            return all;
        };
        for (const char* name : {"English", "German", "Greek"}) {
            User.AnswerInput(name);
            Press(dialog, "btAdd");
        }
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(2)).center());
        Press(dialog, "btMoveUp");
        EXPECT_EQ(texts(), "English Greek* German ");
        User.AnswerInput("Modern Greek");
        Press(dialog, "btRename");
        Press(dialog, "btMoveDown");
        EXPECT_EQ(texts(), "English German Modern Greek* ");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
        User.Answer("Delete selected language name(s)?", "Yes");
        Press(dialog, "btDelete");
        Press(dialog, "btOK");
    });
    Click("Options1");
    EXPECT_EQ(Settings().DefaultLangNames, "English\r\nModern Greek\r\n");
}

TEST_F(TOptionsWindow, HelpOfAModalWindowCanBeRead) {
    User.On([](QWidget& dialog) {
        Press(dialog, "btHelp");
        auto* help = dialog.findChild<QDialog*>("help");
        ASSERT_NE(help, nullptr);
        const auto& page = *help->findChild<QTextBrowser*>();
        EXPECT_TRUE(page.toPlainText().startsWith("Options"));
        auto& contents = *help->findChild<QListWidget*>();
        QTest::mouseClick(contents.viewport(), Qt::LeftButton, {},
                          contents.visualItemRect(contents.item(0)).center());
        EXPECT_TRUE(page.toPlainText().startsWith("The workbench"));
        QTest::keyClick(help, Qt::Key_Escape);
        Activate(dialog);
        QTest::keyClick(&dialog, Qt::Key_F1);
        EXPECT_TRUE(help->isVisible());
        Press(dialog, "btCancel");
    });
    Click("Options1");
}

}  // namespace
}  // namespace tml
