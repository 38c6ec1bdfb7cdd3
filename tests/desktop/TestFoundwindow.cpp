#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"
#include "scan/Found.h"

namespace tml {
namespace {

using TFoundWindow = TDesktop;

std::vector<int> EveryOther(int rows) {
    std::vector<int> result;
    for (int row = 0; row < rows; row += 2)
        result.push_back(row);
    return result;
}

TEST_F(TFoundWindow, ReviewsAndRewritesAFormAndTakesItBack) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 1);
    SelectForm("MainForm");
    const QString before = EditorText();
    int found = 0;
    User.On([&](QWidget& review) {
        auto& table = *review.findChild<TRowTable*>("sgStrings");
        found = table.model()->rowCount();
        ASSERT_GT(found, 5);
        review.findChild<QAction*>("acTakeAll")->trigger();
        const auto key = [&](Qt::Key code, Qt::KeyboardModifiers with) {
            // Without a window manager a window is not active again when a box in front of it has closed.
            review.activateWindow();
            QApplication::processEvents();
            QTest::keyClick(&table, code, with);
        };

        ClickCell(table, 0, 1);
        key(Qt::Key_F2, Qt::NoModifier);
        auto* edit = table.findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        QTest::keyClicks(edit, "IDS_FIRST");
        QTest::keyClick(edit, Qt::Key_Return);
        QApplication::processEvents();
        EXPECT_EQ(Cell(table, 0, 1), "IDS_FIRST");
        EXPECT_TRUE(Cell(table, 0, 3).contains("'IDS_FIRST'"));

        ClickCell(table, 1, 0);
        User.Answer("Exclude all ", "Yes");
        key(Qt::Key_E, Qt::ControlModifier);
        EXPECT_LT(table.model()->rowCount(), found);
        found = table.model()->rowCount();

        ClickCell(table, 1, 0, Qt::ControlModifier);
        ClickCell(table, 2, 0, Qt::ControlModifier);
        EXPECT_EQ(table.selectionModel()->selectedRows().size(), 2);
        User.Answer("Delete selected rows?", "Yes");
        key(Qt::Key_Delete, Qt::ControlModifier);
        EXPECT_EQ(table.model()->rowCount(), found - 2);
        review.findChild<QAction*>("acSwitchDeleted")->trigger();
        EXPECT_EQ(table.model()->rowCount(), 2);
        EXPECT_EQ(review.findChild<QAction*>("acSwitchDeleted")->text(), "Found");
        ClickCell(table, 0, 0);
        review.findChild<QAction*>("acRestoreDeletedRow")->trigger();
        review.findChild<QAction*>("acSwitchDeleted")->trigger();
        EXPECT_EQ(table.model()->rowCount(), found - 1);

        ClickCell(table, found - 2, 0);
        key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
        User.Answer("There are some row(s) selected.", "Yes");
        User.Answer("This will apply changes and modify source code.", "Yes");
        User.Answer("Source file translated.", "OK");
        key(Qt::Key_Return, Qt::ControlModifier);
    });
    Click("SourceWithForm1");
    EXPECT_TRUE(EditorText().contains("GetTextOrDefault('IDS_FIRST'")) << FromQt(EditorText());
    EXPECT_TRUE(EditorText().contains("{TML:IGNORE ON}"));
    auto& forms = Find<QTableView>("lvFormNames");
    const int row = forms.currentIndex().row();
    EXPECT_NE(Cell(forms, row, 3), "0");
    EXPECT_FALSE(Cell(forms, row, 4).isEmpty());

    Window->activateWindow();
    Window->Tabs().Current()->setFocus();
    QApplication::processEvents();
    QTest::keyClick(Window->Tabs().Current(), Qt::Key_Z, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(FromQt(EditorText()), FromQt(before)) << "one step of undo for the whole rewrite";
}

TEST_F(TFoundWindow, FiltersAndGivesTheReviewUp) {
    OpenOrchard();
    SelectForm("MainForm");
    User.On([&](QWidget& review) {
        auto& table = *review.findChild<TRowTable*>("sgStrings");
        const int all = table.model()->rowCount();
        const QString text = Cell(table, 0, 2);
        QTest::keyClicks(review.findChild<QLineEdit*>("filter"), text.toUpper());
        EXPECT_LT(table.model()->rowCount(), all);
        EXPECT_GE(table.model()->rowCount(), 1);
        User.Answer("This will close the Found Strings form! Continue?", "No");
        QTest::keyClick(&table, Qt::Key_Escape);
        EXPECT_TRUE(review.isVisible());
        User.Answer("This will close the Found Strings form! Continue?", "Yes");
        QTest::keyClick(&table, Qt::Key_Escape);
    });
    Click("SourceWithForm1");
    EXPECT_FALSE(EditorText().contains("GetText"));
    EXPECT_EQ(Cell(Find<QTableView>("lvFormNames"), 0, 4), "") << "no component is left on the form";
}

TEST_F(TFoundWindow, TheReviewBearsTwentyThousandRows) {
    OpenOrchard();
    constexpr int kRows = 20'000;
    TContext& context = Context();
    TFoundInput input;
    input.FileName = "Big.pas";
    input.Source = std::make_shared<std::string>("x := 'a';\r\n");
    input.Style.Language = &LanguageOf("Big.pas");
    for (int i = 0; i < kRows; ++i) {
        TmlFoundSourceString& found = input.Found.AddItem();
        found.StrID = "IDS_" + std::to_string(i);
        found.StrContent = "text number " + std::to_string(kRows - i);
        found.Position = 6;
        found.SpanLength = 3;
    }
    TfrmFound form(context, Window->Host().Expert()->Subjects().Scan, std::move(input));
    User.On([&](QWidget& review) {
        auto& table = *review.findChild<TRowTable*>("sgStrings");
        ASSERT_EQ(table.model()->rowCount(), kRows);
        table.sortByColumn(2, Qt::AscendingOrder);
        EXPECT_EQ(Cell(table, 0, 2), "text number 1");
        table.scrollToBottom();
        table.setFocus();
        QTest::keyClick(&table, Qt::Key_I, Qt::ControlModifier);
        EXPECT_EQ(form.StatusPanels[2], "Selected rows: 20000");
        QTest::keyClicks(review.findChild<QLineEdit*>("filter"), "R 1999");
        EXPECT_EQ(table.model()->rowCount(), 11);
        EXPECT_EQ(form.StatusPanels[2], "Selected rows: 11") << "what is hidden is no longer selected";
        review.findChild<QLineEdit*>("filter")->clear();
        form.sgStrings.Select(EveryOther(kRows));
        QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(form.StatusPanels[2], "Selected rows: 20000");
        User.Answer("This will close", "Yes");
        review.close();
    });
    EXPECT_EQ(context.Dialogs().ShowModal(form), mrCancel);
}

}  // namespace
}  // namespace tml
