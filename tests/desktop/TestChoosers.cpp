#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSplitter>

#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"
#include "expert/Mllangexp.h"
#include "scan/Dntcedit.h"
#include "scan/Skippedstrings.h"

namespace tml {
namespace {

struct TChoosers : TDesktop {
    static void Press(QWidget& window, const char* button) {
        QTest::mouseClick(window.findChild<QAbstractButton*>(button), Qt::LeftButton);
    }
    static void ClickItem(QListWidget& list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        list.scrollToItem(list.item(row));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, keys,
                          list.visualItemRect(list.item(row)).center());
    }
    static QStringList Texts(const QListWidget& list) {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row)
            texts += list.item(row)->text();
        return texts;
    }
    static QString TextOf(QWidget& window, const char* label) {
        return window.findChild<QLabel*>(label)->text();
    }
    TContext& Context() { return Window->Host().Expert()->Context(); }
    TScanMemory& ScanMemory() { return Window->Host().Expert()->Subjects().Scan; }
    QDockWidget& Dock() { return Find<QDockWidget>("TmlLangExpertIDEDockableForm"); }
};

TEST_F(TChoosers, MovesTheStringsOfAUnitWithoutAForm) {
    OpenOrchard();
    User.On([&](QWidget& chooser) {
        EXPECT_EQ(chooser.windowTitle(), "Translate units without a form");
        auto& units = *chooser.findChild<QListWidget*>("lbUnits");
        auto& ok = *chooser.findChild<QPushButton*>("btOK");
        const int pricing = static_cast<int>(Texts(units).indexOf("units/Pricing.pas"));
        ASSERT_GE(pricing, 0);
        EXPECT_FALSE(ok.isEnabled());
        ClickItem(units, pricing);
        EXPECT_FALSE(ok.isEnabled()) << "no form receives the strings yet";
        QTest::keyClicks(chooser.findChild<QComboBox*>("cbForm"), "MainF");
        EXPECT_TRUE(ok.isEnabled());
        Press(chooser, "btSelectAll");
        EXPECT_EQ(units.selectedItems().size(), units.count());
        ClickItem(units, pricing);
        EXPECT_EQ(units.selectedItems().size(), 1);
        QTest::keyClick(&units, Qt::Key_Return);
    });
    User.On([&](QWidget& review) {
        EXPECT_EQ(review.windowTitle(), "Found String Constants (Pricing.pas)");
        User.Answer("This will apply changes and modify source code.", "Yes");
        User.Answer("Source file translated.", "OK");
        review.findChild<QAction*>("ModifySource")->trigger();
    });
    Click("SourceWithoutForm1");
    EXPECT_EQ(Window->Tabs().Current()->FileName(), Path("orchard/units/Pricing.pas"));
    EXPECT_TRUE(EditorText().contains("MainForm.mlLang_MainForm.GetTextOrDefault('IDS_0' (* 'for free' *) )"))
        << FromQt(EditorText());
}

TEST_F(TChoosers, ShowsWhatWasSkippedAndLeadsThere) {
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

TEST_F(TChoosers, TheSkippedStringsBearTwentyThousandRows) {
    OpenOrchard();
    constexpr int kRows = 20'000;
    Window->Runner().Run([&] { Window->GoTo(Path("orchard/Main.pas"), 1); });
    for (int i = 0; i < kRows; ++i)
        ScanMemory().Skipped.push_back(
            {"text number " + std::to_string(kRows - i), 1 + i % 900, 0, ssrByPhrase});
    TfrmSkippedStrings form(Context(), ScanMemory());
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
        EXPECT_EQ(form.lvStrings.Items()[static_cast<std::size_t>(form.Row)]->SubItems[0],
                  FromQt(Cell(table, from + 20, 1)));
        QTest::keyClick(&table, Qt::Key_Escape);
    });
    Context().Dialogs().ShowModal(form);
}

TEST_F(TChoosers, NamesMoveBetweenTwoLists) {
    IRegistry& registry = *Window->Host().Host().Registry;
    const std::string key = "\\Software\\Velmora\\TmlLang\\ExcludeComponents";
    registry.WriteInteger(key, "LeftWidth", 180);
    registry.WriteInteger(key, "Width", 640);
    TfrmNotTranslate form(registry, TStringList({"Button1", "Edit1", "Label1", "Memo1"}), {});
    User.On([&](QWidget& chooser) {
        auto& left = *chooser.findChild<QListWidget*>("lbComps");
        auto& right = *chooser.findChild<QListWidget*>("lbSelected");
        const auto enabled = [&] {
            QString states;
            for (const char* name : {"btAdd", "btAddAll", "btRemove", "btRemoveAll"})
                states += chooser.findChild<QAbstractButton*>(name)->isEnabled() ? '1' : '0';
            return states;
        };
        EXPECT_EQ(chooser.width(), 640);
        EXPECT_EQ(chooser.findChild<QSplitter*>("splitter")->sizes().front(), 180);
        EXPECT_EQ(enabled(), "0100");
        ClickItem(left, 1);
        ClickItem(left, 3, Qt::ShiftModifier);
        EXPECT_EQ(enabled(), "1100");
        Press(chooser, "btAdd");
        EXPECT_EQ(Texts(right), QStringList({"Edit1", "Label1", "Memo1"}));
        EXPECT_EQ(enabled(), "0101");
        const QPoint second = right.visualItemRect(right.item(1)).center();
        QTest::mouseClick(right.viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(right.viewport(), Qt::LeftButton, {}, second);
        EXPECT_EQ(Texts(left), QStringList({"Button1", "Label1"}));
        Press(chooser, "btAddAll");
        EXPECT_EQ(enabled(), "0001");
        Press(chooser, "btRemoveAll");
        EXPECT_EQ(enabled(), "0100");
        ClickItem(left, 0);
        Press(chooser, "btAdd");
        chooser.findChild<QSplitter*>("splitter")->setSizes({250, 300});
        Press(chooser, "btOK");
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(form), mrOk);
    EXPECT_EQ(form.lbSelected.Items, TStringList({"Button1"}));
    EXPECT_GT(registry.ReadInteger(key, "LeftWidth"), 200);
    EXPECT_EQ(registry.ReadInteger(key, "Width"), 640);
    EXPECT_TRUE(registry.ReadInteger(key, "Top").has_value());
}

TEST_F(TChoosers, TheExpertComesBackToItsPlace) {
    OpenOrchard();
    Window->addDockWidget(Qt::RightDockWidgetArea, &Dock());
    Click("Exit1");
    Click("mlLangExpertMenuItem");
    EXPECT_EQ(Window->dockWidgetArea(&Dock()), Qt::RightDockWidgetArea) << "in the same run";
    for (const bool floating : {false, true}) {
        Dock().setFloating(floating);
        if (floating) Dock().setGeometry(40, 60, 640, 300);
        Window->close();
        Window = nullptr;
        Window = std::make_unique<TMainWindow>(TDeskFolders{Path("settings"), TML_BIN});
        Window->show();
        OpenOrchard();
        EXPECT_EQ(Dock().isFloating(), floating);
        EXPECT_EQ(Window->dockWidgetArea(&Dock()), Qt::RightDockWidgetArea);
    }
    EXPECT_EQ(Dock().size(), QSize(640, 300));
}

}  // namespace
}  // namespace tml
