#include <QPlainTextEdit>

#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"
#include "scan/Skippedstrings.h"

namespace tml {
namespace {

using TSkippedWindow = TDesktop;

TEST_F(TSkippedWindow, ShowsWhatWasSkippedAndLeadsThere) {
    OpenOrchard();
    Context().Settings.SetSkipWords(TStringList({"READY"}));
    SelectForm("MainForm");
    User.On([&](QWidget& review) {
        auto& found = *review.findChild<TRowTable*>("sgStrings");
        const int row = found.currentIndex().row();
        QTest::keyClick(review.findChild<QLineEdit*>("filter"), Qt::Key_Down);
        QTest::keyClick(&found, Qt::Key_Down);
        EXPECT_EQ(found.currentIndex().row(), row + 1);
        User.On([&](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "Strings Skipped by Expert");
            auto& table = *window.findChild<QTableView*>("lvStrings");
            auto& filter = *window.findChild<QLineEdit*>("filter");
            auto& wayOut = *window.findChild<QPushButton*>("btWayOut");
            EXPECT_TRUE(table.hasFocus());
            QTest::keyClick(&table, Qt::Key_F, Qt::ControlModifier);
            QTest::keyClicks(&filter, "ready");
            EXPECT_TRUE(TextOf(window, "filterCount").startsWith("2 of "));
            ClickCell(table, 1, 1);
            EXPECT_TRUE(TextOf(window, "lblReason").startsWith("Found string is equal to phrase"));
            EXPECT_EQ(wayOut.text(), "&Open the option...");
            const QTextCursor own = window.findChild<QPlainTextEdit*>("memPreview")->textCursor();
            EXPECT_EQ(own.selectedText().trimmed(), "StatusBar.SimpleText := 'Ready';");
            User.On([](QWidget& options) {
                auto& words = *options.findChild<QPlainTextEdit*>("memSkipWords");
                EXPECT_TRUE(words.isVisible());
                EXPECT_EQ(options.focusWidget(), &words);
                words.clear();
                Press(options, "btOK");
            });
            Press(window, "btWayOut");
            EXPECT_TRUE(TextOf(window, "lblNote").contains("no longer skip 2 of its "));

            filter.setText("LogLine('started')");
            ASSERT_EQ(table.model()->rowCount(), 1);
            EXPECT_TRUE(TextOf(window, "lblReason").contains("TML:IGNORE tag"));
            Activate(window);
            QTest::keyClick(&table, Qt::Key_O, Qt::AltModifier);
            // A button's key shows it pressed for a moment first.
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return TextOf(window, "lblNote").startsWith("The code editor"); }));
            int line = 0, column = 0;
            Window->Tabs().Current()->getCursorPosition(&line, &column);
            EXPECT_TRUE(Window->Tabs().Current()->text(line).contains("LogLine('started')"));

            filter.setText("no such string");
            EXPECT_EQ(TextOf(window, "lblReason"), "");
            EXPECT_FALSE(wayOut.isVisible());
            User.On([](QWidget& help) {
                auto& pages = *help.findChild<QListWidget*>();
                EXPECT_EQ(pages.currentItem()->text(), "Skipped strings");
                ClickItem(pages, 0);
                EXPECT_EQ(pages.currentRow(), 0) << "it can be read while the window is open";
                help.close();
            });
            Press(window, "btHelp");
            EXPECT_TRUE(QTest::qWaitFor(
                [] { return QApplication::activeModalWidget()->objectName() == "frmSkippedStrings"; }));
            window.resize(700, 500);
            Press(window, "btClose");
        });
        review.findChild<QAction*>("acViewSkipped")->trigger();
        User.Answer("This will close", "Yes");
        review.close();
    });
    Click("SourceWithForm1");
    const std::string key = "\\Software\\Velmora\\TmlLang\\SkippedStrings";
    EXPECT_EQ(Window->Host().Host().Registry->ReadInteger(key, "Width"), 700);
}

TEST_F(TSkippedWindow, TheSkippedStringsBearTwentyThousandRows) {
    OpenOrchard();
    constexpr int kRows = 20'000;
    GoTo("orchard/Main.pas", 1);
    TScanMemory& memory = Window->Host().Expert()->Subjects().Scan;
    for (int i = 0; i < kRows; ++i)
        memory.Skipped.push_back({"text number " + std::to_string(kRows - i), 1 + i % 900, 0, ssrByPhrase});
    TfrmSkippedStrings form(Context(), memory);
    User.On([&](QWidget& window) {
        auto& table = *window.findChild<QTableView*>("lvStrings");
        EXPECT_EQ(Cell(table, 0, 1), "text number 20000") << "in the order of the scan";
        table.sortByColumn(0, Qt::AscendingOrder);
        EXPECT_LT(Cell(table, 0, 0).toInt(), 2);
        EXPECT_GT(Cell(table, kRows - 1, 0).toInt(), 20) << "by number";
        QTest::keyClicks(window.findChild<QLineEdit*>("filter"), "R 1999");
        EXPECT_EQ(TextOf(window, "filterCount"), "11 of 20000");
        window.findChild<QLineEdit*>("filter")->clear();
        table.setFocus();
        const int from = table.currentIndex().row();
        for (int i = 0; i < 20; ++i)
            QTest::keyClick(&table, Qt::Key_Down);
        EXPECT_EQ(table.currentIndex().row(), from + 20);
        EXPECT_EQ(form.Table.Cell(form.Table.Current(), 1), FromQt(Cell(table, from + 20, 1)));
        QTest::keyClick(&table, Qt::Key_Escape);
    });
    Context().Dialogs().ShowModal(form);
}

}  // namespace
}  // namespace tml
