#include <QHeaderView>
#include <QStatusBar>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

struct TFormsWindow : TDesktop {
    void FromFileMenu(const QString& entry) { ChooseFromBar(*Dock().findChild<QMenuBar*>(), "File", entry); }
    QString Status() { return Window->statusBar()->currentMessage(); }
    QString Title() { return Window->Tabs().tabText(Window->Tabs().currentIndex()); }
};

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
    User.Answer("These languages would give up English as the base language of AboutBox", "Yes");
    Click("tbLanguages");
    const auto open = Window->Host().Ide().Modules();
    EXPECT_FALSE(open.empty());
    QStringList tabs;
    for (int tab = 0; tab < Window->Tabs().count(); ++tab)
        tabs += Window->Tabs().tabToolTip(tab);
    for (const auto& module : open)
        EXPECT_TRUE(tabs.contains(ToQt(module->GetFileName()))) << module->GetFileName();
}

TEST_F(TFormsWindow, WhatIsTypedFiltersAndHomeAndEndGoToTheEnds) {
    OpenOrchard();
    Activate(*Window);
    auto& forms = Find<QTableView>("lvFormNames");
    SelectForm("MainForm");
    QTest::keyClick(&forms, Qt::Key_End);
    EXPECT_EQ(forms.currentIndex().row(), forms.model()->rowCount() - 1);
    QTest::keyClick(&forms, Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(forms.selectionModel()->selectedRows().size(), forms.model()->rowCount());
    QTest::keyClicks(QApplication::focusWidget(), "D");
    QTest::keyClicks(QApplication::focusWidget(), "ialog");
    QStringList shown;
    for (int row = 0; row < forms.model()->rowCount(); ++row)
        if (!forms.isRowHidden(row)) shown += Cell(forms, row, 0);
    EXPECT_EQ(shown.size(), 2) << FromQt(shown.join(' '));
    EXPECT_EQ(forms.selectionModel()->selectedRows().size(), 2) << "what is hidden is not selected";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(forms.hasFocus());
    QStringList chosen;
    for (const QModelIndex& row : forms.selectionModel()->selectedRows())
        chosen += row.data().toString();
    EXPECT_EQ(chosen, shown.mid(0, 1)) << "the first of what is shown";
    QTest::keyClick(&forms, Qt::Key_Escape);
    EXPECT_FALSE(forms.isRowHidden(0)) << "the filter goes from the list, too";
    QTest::keyClicks(QApplication::focusWidget(), "D");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(forms.isRowHidden(0));
    EXPECT_TRUE(forms.hasFocus());
}

TEST_F(TFormsWindow, EnterAndADoubleClickTranslateTheForm) {
    OpenOrchard();
    auto& forms = Find<QTableView>("lvFormNames");
    const auto expect = [this](const char* caption) {
        User.On([caption](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), caption);
            Press(window, "btnCancel");
        });
    };
    expect("Translation Editor - MainForm");
    SelectForm("MainForm");
    QTest::keyClick(&forms, Qt::Key_Return);
    expect("Translation Editor - AboutBox");
    SelectForm("AboutBox");
    QTest::mouseDClick(forms.viewport(), Qt::LeftButton, {},
                       forms.visualRect(forms.selectionModel()->selectedRows().at(0)).center());
}

TEST_F(TFormsWindow, WhatIsWrittenUnseenIsToldAndWhatChangesNothingIsNoChange) {
    OpenOrchard();
    const std::string about = "orchard/forms/About.dfm";
    const std::string before = OnDisk(about);
    SelectForm("AboutBox");
    const auto clear = [&] {
        User.Answer("This will clear all translation information", "Yes");
        FromFileMenu("Clear Translations");
    };
    clear();
    EXPECT_EQ(OnDisk(about).find("Bestellbuch"), std::string::npos);
    QStatusTipEvent hint("what the mouse is over");
    QApplication::sendEvent(&Dock(), &hint);
    EXPECT_EQ(Status(), "Written: About.dfm (Clear Translations)");
    auto& messages = Window->Messages();
    ASSERT_EQ(messages.topLevelItemCount(), 1);
    EXPECT_EQ(messages.topLevelItem(0)->text(0), "About.dfm");
    EXPECT_TRUE(messages.topLevelItem(0)->text(2).contains("Clear Translations"));
    Click("Messages1");
    QTest::mouseClick(messages.viewport(), Qt::LeftButton, {},
                      messages.visualItemRect(messages.topLevelItem(0)).center());
    Dock().raise();
    clear();
    EXPECT_EQ(Title(), "About.dfm") << "not modified";
    Click("Undo1");
    EXPECT_EQ(Status(), "Undone: Clear Translations");
    EXPECT_EQ(Title(), "About.dfm *");
    Click("Save1");
    EXPECT_EQ(OnDisk(about), before);
    EXPECT_EQ(messages.topLevelItemCount(), 0) << "a save of what is open is seen";
    EXPECT_EQ(Status(), "Written: About.dfm");
    OpenOrchard();
    EXPECT_EQ(Status(), "") << "of the project that was open before";
}

TEST_F(TFormsWindow, LanguagesAreRenamedByKeyAndStayWhereTheQuestionIsAnsweredNo) {
    OpenOrchard();
    SelectForm("AboutBox");
    User.On([&](QWidget& dialog) {
        auto& names = *dialog.findChild<QListWidget*>("lbLangNames");
        EXPECT_FALSE(dialog.findChild<QPushButton*>("btnRename")->isEnabled()) << "nothing is selected";
        ClickItem(names, 1);
        User.AnswerInput("Deutsch");
        QTest::keyClick(&names, Qt::Key_F2);
        Press(dialog, "btnMoveUp");
        User.Answer("These languages would give up English as the base language of AboutBox", "No");
        Press(dialog, "btOK");
        ASSERT_TRUE(dialog.isVisible());
        EXPECT_EQ(names.item(0)->text(), "Deutsch");
        Press(dialog, "btnMoveDown");
        Press(dialog, "btOK");
    });
    FromFileMenu("Languages...");
    EXPECT_NE(OnDisk("orchard/forms/About.dfm").find("'Deutsch')"), std::string::npos);
    EXPECT_EQ(Status(), "Written: About.dfm (Languages)");
    Click("CloseProject1");
    EXPECT_EQ(Status(), "");
}

TEST_F(TFormsWindow, NamesAreWholeAndNoWidthIsDead) {
    OpenOrchard();
    auto& forms = Find<QTableView>("lvFormNames");
    const auto& header = *forms.horizontalHeader();
    for (const int width : {1300, 800}) {
        Window->resize(width, 700);
        QApplication::processEvents();
        EXPECT_EQ(header.length(), forms.viewport()->width());
        for (int row = 0; row < forms.model()->rowCount(); ++row)
            for (const int column : {0, 1})
                EXPECT_GT(header.sectionSize(column),
                          forms.fontMetrics().horizontalAdvance(Cell(forms, row, column)))
                    << FromQt(Cell(forms, row, column));
    }
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

TEST_F(TFormsWindow, ExternalFilesComeAndGoOnAPageOfTheirOwn) {
    OpenOrchard();
    std::filesystem::create_directory(Path("shared"));
    for (const char* file : {"About.pas", "About.dfm"})
        std::filesystem::copy(Path(std::string("orchard/forms/") + file), Path("shared"));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Window->findChild<QAction*>("tbAddExternalFile"), nullptr);
    auto& tabs = *Find<QTabWidget>("pcFormsList").tabBar();
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    User.ChooseFile(ToQt(Path("shared/About.pas")));
    Click("tbAddExternalFile");
    auto& files = Find<QTableView>("lvExternalFiles");
    ASSERT_EQ(files.model()->rowCount(), 1);
    EXPECT_EQ(Cell(files, 0, fcFormName), "AboutBox");
    EXPECT_EQ(OnDisk("orchard/Orchard.mlproj"), "[External Files]\r\nFiles=../shared/About.pas\r\n");
    EXPECT_FALSE(Find<QAction>("tbRemoveExternalFile").isEnabled());
    ClickCell(files, 0, 0);
    Click("tbRemoveExternalFile");
    EXPECT_EQ(files.model()->rowCount(), 0);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Window->findChild<QAction*>("tbRemoveExternalFile"), nullptr);
}

}  // namespace
}  // namespace tml
