#include <QHeaderView>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

using TFormsWindow = TDesktop;

TEST_F(TFormsWindow, LanguagesOfAForm) {
    OpenOrchard();
    SelectForm("MainForm");
    User.On([&](QWidget& dialog) {
        auto& count = *dialog.findChild<QLineEdit*>("edLangCount");
        auto& names = *dialog.findChild<QListWidget*>("lbLangNames");
        count.selectAll();
        QTest::keyClicks(&count, "x");
        EXPECT_EQ(count.text(), "2") << "letters are refused";
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("sbUp2"), Qt::LeftButton);
        EXPECT_EQ(names.count(), 3);
        names.item(0)->setSelected(true);
        User.AnswerInput("English");
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("btnRename"), Qt::LeftButton);
        EXPECT_EQ(names.item(0)->text(), "English");
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("btOK"), Qt::LeftButton);
    });
    Click("tbLanguages");
    auto& forms = Find<QTableView>("lvFormNames");
    EXPECT_EQ(Cell(forms, forms.currentIndex().row(), 3), "3");
}

TEST_F(TFormsWindow, NothingThatTheLanguagesOfSeveralFormsLeaveOpenIsHidden) {
    OpenOrchard();
    auto& forms = Find<QTableView>("lvFormNames");
    for (int row = 0; row < forms.model()->rowCount(); ++row)
        for (const char* form : {"AboutBox", "CustomersForm", "MainForm"})
            if (Cell(forms, row, 0) == form) ClickCell(forms, row, 0, Qt::ControlModifier);
    EXPECT_EQ(forms.selectionModel()->selectedRows().size(), 3);
    User.On([](QWidget& dialog) { Press(dialog, "btOK"); });
    Click("tbLanguages");
    const auto open = Window->Host().Ide().Modules();
    EXPECT_FALSE(open.empty());
    QStringList tabs;
    for (int tab = 0; tab < Window->Tabs().count(); ++tab)
        tabs += Window->Tabs().tabToolTip(tab);
    for (const auto& module : open)
        EXPECT_TRUE(tabs.contains(ToQt(module->GetFileName()))) << module->GetFileName();
}

TEST_F(TFormsWindow, KeysOfTheListStayInTheList) {
    OpenOrchard();
    Window->activateWindow();
    auto& forms = Find<QTableView>("lvFormNames");
    auto& pages = *Find<QTabWidget>("pcFormsList").tabBar();
    pages.setFocus();
    for (int time = 0; time < 3; ++time) {
        SelectForm("MainForm");
        QApplication::processEvents();
        QTest::keyClick(&pages, Qt::Key_A, Qt::ControlModifier);
        QApplication::processEvents();
        EXPECT_EQ(forms.selectionModel()->selectedRows().size(), forms.model()->rowCount())
            << "whenever the menus are made anew";
    }
    const QString first = Cell(forms, 0, 0);
    QTest::mouseClick(forms.horizontalHeader()->viewport(), Qt::LeftButton, {}, {10, 5});
    EXPECT_NE(Cell(forms, 0, 0), first) << "the same column again turns the order round";
}

}  // namespace
}  // namespace tml
