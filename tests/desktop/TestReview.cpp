#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QToolBar>

#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";

/// The review of the sample's main form, given up at its end.
struct TReview : TDesktop {
    void Review(const std::function<void(QWidget& review)>& work) {
        User.On([this, work](QWidget& review) {
            work(review);
            User.Answer("This will close the Found Strings form! Continue?", "Yes");
            review.close();
        });
        Click("SourceWithForm1");
    }
    static TRowTable& Rows(QWidget& review) { return *review.findChild<TRowTable*>("sgStrings"); }
    static void Press(QWidget& review, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        Activate(review);
        QTest::keyClick(review.focusWidget(), key, with);
    }
};

TEST_F(TReview, ThePreviewKeepsItsHeight) {
    OpenOrchard();
    IRegistry& registry = *Window->Host().Host().Registry;
    registry.WriteInteger(kKey, "PreviewHeight", 150);
    for (const int height : {620, 700}) {
        SelectForm("MainForm");
        Review([height](QWidget& review) {
            EXPECT_NEAR(review.findChild<QWidget*>("previewPane")->height(), 150, 2);
            review.resize(900, height);
        });
        EXPECT_NEAR(registry.ReadInteger(kKey, "PreviewHeight").value_or(0), 150, 2);
    }
}

TEST_F(TReview, WhatIsTypedCountsBeforeACommandRuns) {
    OpenOrchard();
    SelectForm("MainForm");
    Review([this](QWidget& review) {
        TRowTable& rows = Rows(review);
        review.findChild<QAction*>("acTakeAll")->trigger();
        const QString other = Cell(rows, 1, 1);
        ASSERT_NE(Cell(rows, 0, 2), Cell(rows, 1, 2));
        const auto type = [&](int row, const QString& id) {
            ClickCell(rows, row, 1);
            Press(review, Qt::Key_F2);
            QTest::keyClicks(review.focusWidget(), id);
        };
        type(0, other);
        User.Answer("The string ID \"" + other + "\" is used for different texts!", "OK");
        Press(review, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_EQ(Cell(rows, 0, 1), other);

        type(0, "IDS_500");
        User.On([](QWidget& input) {
            EXPECT_EQ(input.findChild<QLineEdit*>()->text(), "500");
            QTest::keyClick(&input, Qt::Key_Escape);
        });
        auto* bar = review.findChild<QToolBar*>("toolBar");
        QTest::mouseClick(bar->widgetForAction(review.findChild<QAction*>("acStartID")), Qt::LeftButton);

        type(0, "IDS_600");
        auto* method = review.findChild<QMenu*>("UseMethod")->actions().at(1);
        method->trigger();
        EXPECT_TRUE(Cell(rows, 0, 3).contains(method->text() + "'IDS_600'")) << FromQt(Cell(rows, 0, 3));
        EXPECT_EQ(rows.indexWidget(rows.currentIndex()), nullptr) << "the editor is closed";
    });
}

TEST_F(TReview, HintsNameTheKeys) {
    OpenOrchard();
    SelectForm("MainForm");
    Review([](QWidget& review) {
        for (const auto& [name, tip] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"ModifySource", "Applies changes and modifies source unit (Ctrl+Return)"},
                 {"Cancel", "Cancels source translation"},
                 {"Help", "Displays help topic (F1)"},
                 {"acExclude", "Exclude (Ctrl+E)"},
                 {"acSwitchDeleted", "Shows deleted rows"}})
            EXPECT_EQ(review.findChild<QAction*>(name)->toolTip(), tip);
    });
}

TEST_F(TReview, TheWholeChangeStandsInThePlaceOfTheRowsLines) {
    OpenOrchard();
    SelectForm("MainForm");
    Review([](QWidget& review) {
        auto& row = *review.findChild<QPlainTextEdit*>("memPreview");
        auto& whole = *review.findChild<QPlainTextEdit*>("memChange");
        tml::Press(review, "wholeChange");
        EXPECT_TRUE(whole.isVisible() && !row.isVisible());
        EXPECT_TRUE(whole.toPlainText().contains("\n+  Caption := mlLang_MainForm.GetTextOrDefault('IDS_"))
            << FromQt(whole.toPlainText());
        EXPECT_FALSE(whole.extraSelections().isEmpty());
        Press(review, Qt::Key_D, Qt::ControlModifier);
        EXPECT_TRUE(row.isVisible() && !whole.isVisible());
    });
}

TEST_F(TReview, AClickSelectsWhatWasClickedAndKeysStayInTheirPlace) {
    OpenOrchard();
    SelectForm("MainForm");
    Review([](QWidget& review) {
        TRowTable& rows = Rows(review);
        review.findChild<QAction*>("acTakeAll")->trigger();
        const auto selected = [&] { return rows.selectionModel()->selectedRows().size(); };
        ClickCell(rows, 1, 2);
        ClickCell(rows, 2, 2);
        EXPECT_EQ(selected(), 1);
        ClickCell(rows, 0, 2, Qt::ControlModifier);
        EXPECT_EQ(selected(), 2);
        const auto panels = review.findChild<QStatusBar*>()->findChildren<QLabel*>();
        const QString before = panels.back()->text();
        Press(review, Qt::Key_Space);
        EXPECT_NE(panels.back()->text(), before) << "both are left out";
        Press(review, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(panels.back()->text(), before);
        Press(review, Qt::Key_Down);
        EXPECT_EQ(selected(), 0);

        const int count = rows.model()->rowCount();
        auto* filter = review.findChild<QLineEdit*>("filter");
        filter->setFocus();
        Press(review, Qt::Key_Delete, Qt::ControlModifier);
        EXPECT_EQ(rows.model()->rowCount(), count) << "the key belongs to the box";
        rows.setFocus();

        ClickCell(rows, 0, 3);
        const QString advice = review.findChild<QLabel*>("advice")->text();
        Press(review, Qt::Key_X);
        QTest::keyClicks(review.focusWidget(), "YZ");
        EXPECT_EQ(review.findChild<QLabel*>("advice")->text(), advice);
        QTest::keyClick(review.focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(review.focusWidget(), Cell(rows, 1, 1));
        EXPECT_TRUE(review.findChild<QLabel*>("advice")->text().contains("is used for different texts!"));
        QTest::keyClick(review.focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(review.findChild<QLabel*>("advice")->text(), advice);
        rows.sortByColumn(2, Qt::AscendingOrder);
        EXPECT_TRUE(Cell(rows, 0, 0).startsWith("1 ("));
        review.findChild<QAction*>("acSwitchDeleted")->trigger();
        EXPECT_TRUE(review.findChild<QLabel*>("tableCaption")->text().startsWith("Deleted strings"));
    });
}

}  // namespace
}  // namespace tml
