#include <QDockWidget>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTreeWidget>
#include <fstream>

#include "base/Diskfiles.h"
#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"
#include "expert/Mllangexp.h"
#include "scan/Found.h"

namespace tml {
namespace {

using TWorkbench = TDesktop;

std::vector<int> EveryOther(int rows) {
    std::vector<int> result;
    for (int row = 0; row < rows; row += 2)
        result.push_back(row);
    return result;
}

TEST_F(TWorkbench, ReviewsAndRewritesAFormAndTakesItBack) {
    OpenOrchard();
    Window->Runner().Run([&] { Window->GoTo(Path("orchard/Main.pas"), 1); });
    SelectForm("MainForm");
    const QString before = EditorText();
    int found = 0;
    User.On([&](QWidget& review) {
        auto& table = *review.findChild<TRowTable*>("sgStrings");
        found = table.model()->rowCount();
        ASSERT_GT(found, 5);
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

TEST_F(TWorkbench, FiltersAndGivesTheReviewUp) {
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

TEST_F(TWorkbench, TheReviewBearsTwentyThousandRows) {
    OpenOrchard();
    constexpr int kRows = 20'000;
    TContext& context = Window->Host().Expert()->Context();
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
        form.SelectRows(EveryOther(kRows), true);
        QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(form.StatusPanels[2], "Selected rows: 20000");
        User.Answer("This will close", "Yes");
        review.close();
    });
    EXPECT_EQ(context.Dialogs().ShowModal(form), mrCancel);
}

TEST_F(TWorkbench, TypingIsUndoneByTheIde) {
    OpenOrchard();
    Window->Runner().Run([&] { Window->GoTo(Path("orchard/Main.pas"), 3); });
    TCodeEditor& editor = *Window->Tabs().Current();
    const QString before = editor.text();
    QTest::keyClicks(&editor, "// a note");
    EXPECT_TRUE(Window->Tabs().tabText(0).endsWith(" *"));
    editor.SendScintilla(QsciScintilla::SCI_SETSEL, 0UL, 4L);
    Click("Undo1");
    EXPECT_EQ(editor.text(), before);
    EXPECT_FALSE(editor.IsModified());
    Click("Redo1");
    EXPECT_TRUE(editor.text().contains("// a note"));
    EXPECT_EQ(FromQt(editor.text()), *editor.Source().GetText());
}

TEST_F(TWorkbench, TheEditorsBlockIsTheIdes) {
    OpenOrchard();
    Window->Runner().Run([&] { Window->GoTo(Path("orchard/Main.pas"), 5); });
    TCodeEditor& editor = *Window->Tabs().Current();
    QTest::keyClick(&editor, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(editor.Source().GetBlockStart(), (TOTACharPos{5, 0}));
    EXPECT_EQ(editor.Source().GetBlockAfter(), (TOTACharPos{6, 0}));
    const auto mark = Window->Host().Ide().GetNTAServices()->GetEditorLocalMenu().Items.back();
    EXPECT_EQ(mark->Caption, "Mark as &untranslatable");
    Window->Runner().Run([&] { mark->Click(); });
    EXPECT_TRUE(editor.text().contains("{TML:IGNORE ON}"));
}

TEST_F(TWorkbench, LanguagesOfAForm) {
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
        User.On([](QWidget& input) {
            auto& box = dynamic_cast<QInputDialog&>(input);
            box.setTextValue("English");
            box.accept();
        });
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("btnRename"), Qt::LeftButton);
        EXPECT_EQ(names.item(0)->text(), "English");
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("btOK"), Qt::LeftButton);
    });
    Click("tbLanguages");
    auto& forms = Find<QTableView>("lvFormNames");
    EXPECT_EQ(Cell(forms, forms.currentIndex().row(), 3), "3");
}

TEST_F(TWorkbench, KeysOfTheListStayInTheList) {
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

TEST_F(TWorkbench, ProgressComesLateAndCanBeStopped) {
    IDialogs& dialogs = *Window->Host().Host().Dialogs;
    EXPECT_TRUE(dialogs.ShowProgress("Working", 1, 3));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    QTest::qSleep(120);
    User.On([](QWidget& box) { QTest::mouseClick(box.findChild<QPushButton*>(), Qt::LeftButton); });
    bool goesOn = true;
    for (int i = 0; i < 500 && goesOn; ++i) {
        QTest::qSleep(10);
        goesOn = dialogs.ShowProgress("Working", 2, 3);
    }
    EXPECT_FALSE(goesOn);
    dialogs.HideProgress();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TWorkbench, LongMessagesLeaveRoomForTheButtons) {
    std::string text = "first line\n" + std::string(10'000, 'x') + "\n";
    for (int i = 0; i < 500; ++i)
        text += "x\n";
    User.On([&](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_LT(box.height(), 600);
        EXPECT_TRUE(box.text().startsWith("first line")) << FromQt(box.text());
        EXPECT_TRUE(box.text().endsWith("Continue?"));
        EXPECT_TRUE(FromQt(box.detailedText()) == text + "Continue?");
        box.close();
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->MessageDlg(text + "Continue?", TMsgDlgType::mtConfirmation,
                                                        {mrYes, mrNo}),
              mrNo);
}

TEST_F(TWorkbench, ProblemsOfAProjectLeadToTheirFile) {
    std::filesystem::remove(Path("orchard/units/Pricing.pas"));
    OpenOrchard();
    auto& messages = Window->Messages();
    ASSERT_EQ(messages.topLevelItemCount(), 1);
    EXPECT_TRUE(messages.isVisible());
    auto& tree = Find<QTreeWidget>("projectTree");
    for (QTreeWidgetItem* item : tree.findItems("MainForm", Qt::MatchStartsWith | Qt::MatchRecursive))
        Q_EMIT tree.itemActivated(item, 0);
    ASSERT_NE(Window->Tabs().Current(), nullptr);
    EXPECT_EQ(Window->Tabs().Current()->FileName(), Path("orchard/Main.pas"));
    QTest::mouseClick(messages.viewport(), Qt::LeftButton, {},
                      messages.visualItemRect(messages.topLevelItem(0)).center());
    EXPECT_EQ(Window->Tabs().Current()->FileName(), Path("orchard/Orchard.dproj"));
}

TEST_F(TWorkbench, TheExpertDocksFloatsAndComesBack) {
    OpenOrchard();
    auto* dock = &Find<QDockWidget>("TmlLangExpertIDEDockableForm");
    EXPECT_TRUE(dock->isVisible());
    EXPECT_FALSE(dock->isFloating());
    EXPECT_EQ(dock->windowTitle(), "TmlLang Expert (VCL Edition)");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Find<QMenu>("File1").title(), "File") << "the IDE's menu bar has the accelerator";
    Click("Dockable2");
    EXPECT_TRUE(dock->isFloating());
    EXPECT_EQ(dock->size(), QSize(700, 400));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Find<QMenu>("File1").title(), "&File");
    EXPECT_EQ(dock->allowedAreas(), Qt::NoDockWidgetArea);
    Click("StayOnTop2");
    EXPECT_TRUE(dock->windowFlags() & Qt::WindowStaysOnTopHint);
    Click("Exit1");
    EXPECT_EQ(Window->Host().ExpertWindow(), nullptr);
    Click("mlLangExpertMenuItem");
    ASSERT_NE(Window->Host().ExpertWindow(), nullptr);
    EXPECT_TRUE(Find<QDockWidget>("TmlLangExpertIDEDockableForm").isVisible());
}

TEST_F(TWorkbench, AProjectThatCannotBeOpenedLeavesTheOneThatIsOpen) {
    OpenOrchard();
    User.Answer(ToQt(Path("none.dproj")), "OK");
    Window->OpenProject(ToQt(Path("none.dproj")));
    EXPECT_EQ(Window->Messages().topLevelItemCount(), 1);
    EXPECT_GT(Find<QTableView>("lvFormNames").model()->rowCount(), 2);
    EXPECT_TRUE(Window->windowTitle().startsWith("Orchard.dproj"));
}

TEST_F(TWorkbench, AFormThatCannotBeReadIsNamedInTheMessages) {
    std::ofstream(Path("orchard/Main.dfm")) << "object MainForm: TMainForm\n  Caption = 'x\n";
    OpenOrchard();
    SelectForm("MainForm");
    Click("ViewForm2");
    Click("ViewForm2");
    auto& messages = Window->Messages();
    EXPECT_TRUE(messages.isVisible());
    ASSERT_EQ(messages.topLevelItemCount(), 1) << "the same message stands once";
    EXPECT_EQ(messages.topLevelItem(0)->text(0) + messages.topLevelItem(0)->text(1), "Main.dfm2");
}

TEST_F(TWorkbench, SettingsThatCannotBeReadOrWrittenBarNothing) {
    for (const char* blocked : {"settings", "settings/settings/x"}) {
        Window.reset();
        std::filesystem::remove_all(Path("settings"));
        const bool isRead = std::string_view(blocked) != "settings";
        if (isRead)
            std::filesystem::create_directories(Path(blocked));
        else
            std::ofstream(Path(blocked)) << "a file where the folder should be";
        // What cannot be read is told at the start, by the expert and the window; then the recent projects.
        for (int box = isRead ? 0 : 2; box < 3; ++box)
            User.Answer(ToQt(Path("settings")), "OK");
        Window = std::make_unique<TMainWindow>(TDeskFolders{Path("settings"), TML_BIN});
        Window->show();
        OpenOrchard();
        EXPECT_TRUE(Window->windowTitle().startsWith("Orchard.dproj"));
        if (!isRead) {
            EXPECT_GT(Find<QTableView>("lvFormNames").model()->rowCount(), 2);
        }
        User.Answer(ToQt(Path("settings")), "OK");
        Window->close();
        EXPECT_FALSE(Window->isVisible());
    }
}

TEST_F(TWorkbench, TheFormInFrontIsSaved) {
    OpenOrchard();
    Window->Runner().Run([&] { Window->GoTo(Path("orchard/Main.pas"), 1); });
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    Window->Runner().Run([&] { Window->Tabs().ShowFormText(Path("orchard/Main.pas")); });
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.dfm"));
    EXPECT_EQ(Window->Tabs().tabText(1), "Main.dfm");
    Window->Runner().Run([&] {
        Window->Host().Modules().FindModule(Path("orchard/Main.pas"))->GetFormEditor()->MarkModified();
    });
    EXPECT_EQ(Window->Tabs().tabText(1), "Main.dfm *");
    Click("Save1");
    EXPECT_TRUE(MakeDiskFileSystem()->Read(Path("orchard/Main.pas")).starts_with("// mine "));
}

TEST_F(TWorkbench, AsksAboutUnsavedWork) {
    OpenOrchard();
    const std::string file = Path("orchard/Main.pas");
    Window->Runner().Run([&] { Window->GoTo(file, 1); });
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    User.Answer("Save the changes of these units?\n\nMain.pas", "Cancel");
    Window->close();
    EXPECT_TRUE(Window->isVisible());
    User.Answer("Save the changes of these units?", "Yes");
    Window->close();
    EXPECT_FALSE(Window->isVisible());
    EXPECT_TRUE(MakeDiskFileSystem()->Read(file).starts_with("// mine "));
}

}  // namespace
}  // namespace tml
