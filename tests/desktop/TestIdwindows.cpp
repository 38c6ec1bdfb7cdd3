#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <fstream>

#include "desktop/Codeeditor.h"
#include "desktop/Deskfixture.h"

namespace tml {
namespace {

/// The windows on string IDs and phrases, on a program in English, German and Hebrew.
class TIdWindows : public TDesktop {
  public:
    TIdWindows() {
        std::filesystem::copy(std::filesystem::path(TML_TESTS) / "../examples/harbour", Path("harbour"),
                              std::filesystem::copy_options::recursive);
        Window->OpenProject(ToQt(Path("harbour/Harbour.lpi")));
        SelectForm("MainForm");
    }
    QMenuBar& Bar() { return *Find<QTableView>("lvFormNames").window()->findChild<QMenuBar*>(); }
    /// An open window by its name.
    QWidget& Open(const char* name) {
        QWidget* window = Window->findChild<QDialog*>(name);
        EXPECT_NE(window, nullptr) << name;
        return *window;
    }
    /// A cell's text has room in its column.
    static void ExpectWhole(const QTableView& table, int row, int column) {
        EXPECT_GT(table.columnWidth(column), table.fontMetrics().horizontalAdvance(Cell(table, row, column)))
            << column;
    }
    static constexpr const char* kLongID = "IDS_WAITING_FOR_A_PILOT";
    static void AddID(QWidget& editor, TDeskUser& user, const char* id) {
        Activate(editor);
        user.AnswerInput(id);
        QTest::keyClick(editor.findChild<QTableView*>("grTexts"), Qt::Key_Insert);
    }
};

TEST_F(TIdWindows, BadIDsAreListedShownAndDeleted) {
    User.On([this](QWidget& editor) {
        AddID(editor, User, "IDS_UNUSED");
        AddID(editor, User, kLongID);
        Press(editor, "btnOK");
    });
    Click("Translate1");
    Click("CheckBadIDs1");
    QWidget& bad = Open("frmBadIDs");
    EXPECT_EQ(bad.windowTitle(), "Bad string IDs");
    auto& list = *bad.findChild<QTableView*>("lvIDs");
    ASSERT_EQ(list.model()->rowCount(), 2);
    EXPECT_EQ(Cell(list, 0, 0), "IDS_UNUSED");
    EXPECT_EQ(Cell(list, 0, 1), "Not used in source of current module.");
    ExpectWhole(list, 0, 1);
    ExpectWhole(list, 1, 0);
    bad.resize(500, 200);
    ExpectWhole(list, 0, 2);
    QApplication::processEvents();
    EXPECT_FALSE(list.horizontalScrollBar()->isVisible()) << "the widest columns give way";
    EXPECT_EQ(TextOf(bad, "total"), "Total: 2");
    User.On([](QWidget& editor) {
        EXPECT_EQ(Cell(*editor.findChild<QTableView*>("grTexts"), 2, 0), "IDS_UNUSED");
        EXPECT_EQ(editor.findChild<QTableView*>("grTexts")->currentIndex().row(), 2);
        Press(editor, "btnCancel");
    });
    ClickCell(list, 0, 0);
    QTest::keyClick(&list, Qt::Key_Return);
    User.On([&bad](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), &bad) << "the list gets the keys back";
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Activate(bad);
    ChooseFromMenu(*list.viewport(), list.visualRect(list.model()->index(0, 0)).center(), "Delete");
    EXPECT_EQ(list.model()->rowCount(), 1);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(0, {}));
    Activate(bad);
    EXPECT_TRUE(list.hasFocus());
    User.Answer(QString("This will delete %1 from MainForm.").arg(kLongID), "Yes");
    QTest::keyClick(&list, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->findChild<QDialog*>("frmBadIDs") == nullptr; }))
        << "the last row closes it";
    User.Answer("All IDs on ", "OK");
    Click("CheckBadIDs1");
    EXPECT_EQ(Window->findChild<QDialog*>("frmBadIDs"), nullptr);
}

TEST_F(TIdWindows, AnIDThatAnotherUnitUsesIsNotDeletedByTheWay) {
    const std::string tides = Path("harbour/forms/Tidetable.pas");
    std::string unit = OnDisk("harbour/forms/Tidetable.pas");
    const std::string call = "mlLang_TidesForm.GetTextOrDefault('IDS_1'";
    unit.replace(unit.find(call), call.size(), "MainForm.mlLangTLV_MainForm.GetText('IDS_TIDE'");
    std::ofstream(tides, std::ios::binary) << unit;
    User.On([this](QWidget& editor) {
        AddID(editor, User, "IDS_TIDE");
        Press(editor, "btnOK");
    });
    Click("Translate1");
    Click("CheckBadIDs1");
    QWidget& bad = Open("frmBadIDs");
    auto& list = *bad.findChild<QTableView*>("lvIDs");
    ASSERT_EQ(list.model()->rowCount(), 1);
    ASSERT_EQ(Cell(list, 0, 3), "used in Tidetable.pas:50");
    ClickCell(list, 0, 0);
    User.Answer("This will delete IDS_TIDE from MainForm.", "Yes to All");
    User.On([](QWidget& box) {
        EXPECT_TRUE(dynamic_cast<QMessageBox&>(box).text().contains("IDS_TIDE: used in Tidetable.pas:50"));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QTest::keyClick(&list, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(list.model()->rowCount(), 1);
}

TEST_F(TIdWindows, TheLineOfABadIDIsNotCovered) {
    User.On([](QWidget& editor) {
        auto& filter = *editor.findChild<QLineEdit*>("filter");
        QTest::keyClicks(&filter, "IDS_0");
        QTest::keyClick(&filter, Qt::Key_Return);
        ClickCell(*editor.findChild<QTableView*>("grTexts"), 0, 0);
        QTest::keyClick(editor.findChild<QTableView*>("grTexts"), Qt::Key_Delete, Qt::ControlModifier);
        Press(editor, "btnOK");
    });
    Click("Translate1");
    Click("CheckBadIDs1");
    QWidget& bad = Open("frmBadIDs");
    auto& list = *bad.findChild<QTableView*>("lvIDs");
    ASSERT_GT(list.model()->rowCount(), 0);
    ASSERT_TRUE(Cell(list, 0, 2).startsWith("Line: ")) << FromQt(Cell(list, 0, 2));
    ClickCell(list, 0, 0);
    QTest::keyClick(&list, Qt::Key_Return);
    TCodeEditor& editor = *Window->Tabs().Current();
    const long at = editor.SendScintilla(QsciScintilla::SCI_GETCURRENTPOS);
    EXPECT_EQ(editor.SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION, at) + 1,
              Cell(list, 0, 2).mid(6).toLong());
    const auto place = [&](unsigned message) {
        return static_cast<int>(editor.SendScintilla(message, 0L, at));
    };
    const QPoint caret(place(QsciScintilla::SCI_POINTXFROMPOSITION),
                       place(QsciScintilla::SCI_POINTYFROMPOSITION));
    EXPECT_TRUE(editor.viewport()->rect().contains(caret));
    EXPECT_FALSE(bad.frameGeometry().contains(editor.viewport()->mapToGlobal(caret)));
}

TEST_F(TIdWindows, ARenamedIDIsFollowedByTheUnitThatIsChosen) {
    User.On([this](QWidget& editor) {
        auto& cells = *editor.findChild<QTableView*>("grTexts");
        auto& filter = *editor.findChild<QLineEdit*>("filter");
        QTest::keyClicks(&filter, "IDS_0");
        QTest::keyClick(&filter, Qt::Key_Return);
        ClickCell(cells, 0, 0);
        User.AnswerInput("IDS_SHIPS");
        User.On([](QWidget& units) {
            EXPECT_EQ(units.windowTitle(), "String ID Replacement");
            auto& chosen = *units.findChild<QListWidget*>("lbSelectedUnits");
            ASSERT_EQ(chosen.count(), 1);
            EXPECT_TRUE(chosen.item(0)->text().endsWith("Mainwindow.pas"));
            Press(units, "btAddAll");
            EXPECT_GT(chosen.count(), 5);
            EXPECT_FALSE(units.findChild<QPushButton*>("btAddAll")->isEnabled());
            for (int i = 1; i < chosen.count(); ++i)
                chosen.item(i)->setSelected(true);
            Press(units, "btRemove");
            EXPECT_EQ(chosen.count(), 1);
            Press(units, "btReplace");
        });
        User.On([](QWidget& lines) {
            auto& list = *lines.findChild<QTableView*>("lvSourceLines");
            EXPECT_TRUE(list.isVisible());
            ASSERT_EQ(list.model()->rowCount(), 1);
            EXPECT_TRUE(Cell(list, 0, 2).contains("'IDS_SHIPS'"));
            lines.resize(500, 300);
            QApplication::processEvents();
            EXPECT_FALSE(list.horizontalScrollBar()->isVisible()) << "both lines are in sight";
            EXPECT_EQ(lines.findChild<QPushButton*>("btReplace")->text(), "&Replace");
            Press(lines, "btReplace");
        });
        QTest::keyClick(&cells, Qt::Key_R, Qt::ControlModifier);
        Press(editor, "btnOK");
    });
    Click("Translate1");
    Window->SaveAll();
    EXPECT_NE(OnDisk("harbour/forms/Mainwindow.lfm").find("IDS_SHIPS"), std::string::npos);
    const std::string unit = OnDisk("harbour/forms/Mainwindow.pas");
    EXPECT_NE(unit.find("'IDS_SHIPS'"), std::string::npos);
    EXPECT_EQ(unit.find("'IDS_0'"), std::string::npos);
}

TEST_F(TIdWindows, PhrasesAreFoundAndReplaced) {
    User.On([](QWidget& find) {
        EXPECT_EQ(find.windowTitle(), "Find Phrase");
        EXPECT_FALSE(find.findChild<QLineEdit*>("edReplace")->isVisible());
        Type(find, "edFindText", "Hafen");
        Press(find, "btOK");
    });
    Click("FindPhrase1");
    QWidget& found = Open("frmFoundPhrases");
    auto& list = *found.findChild<QTableView*>("lvIDs");
    ASSERT_EQ(list.model()->rowCount(), 3);
    EXPECT_EQ(Cell(list, 0, 3), "German");
    EXPECT_TRUE(Cell(list, 0, 4).endsWith(".Caption")) << FromQt(Cell(list, 0, 4));
    EXPECT_EQ(Cell(list, 0, 5), "Hafen");
    found.resize(600, 200);
    for (const int column : {1, 2, 3, 4, 5})
        ExpectWhole(list, 0, column);
    found.resize(400, 200);
    QApplication::processEvents();
    EXPECT_FALSE(list.horizontalScrollBar()->isVisible()) << "the path gives way, then the others";
    list.setColumnWidth(4, 250);
    found.resize(900, 200);
    EXPECT_EQ(list.columnWidth(4), 250) << "chosen by the person";
    User.On([](QWidget& editor) {
        EXPECT_EQ(TextOf(editor, "lblText"), "German (Done):");
        EXPECT_EQ(editor.findChild<QPlainTextEdit*>("memText")->toPlainText(), "Hafen");
        Press(editor, "btnCancel");
    });
    ClickCell(list, 0, 0);
    QTest::keyClick(&list, Qt::Key_Return);
    found.close();
    User.On([](QWidget& replace) {
        Type(replace, "edFindText", "Hafen");
        Type(replace, "edReplace", "Port");
        Press(replace, "ckbDoPrompt");
        Press(replace, "btOK");
    });
    for (const char* button : {"btYes", "btNo", "btCancel"})
        User.On([button](QWidget& confirm) {
            EXPECT_TRUE(confirm.findChild<QPlainTextEdit*>("memResult")->toPlainText().contains("Port"));
            Press(confirm, button);
        });
    User.Answer("1 occurrence was replaced.", "OK");
    Click("ReplacePhrase1");
    Window->SaveAll();
    const std::string form = OnDisk("harbour/forms/Mainwindow.lfm");
    EXPECT_NE(form.find("Port"), std::string::npos);
    EXPECT_NE(form.find("Hafen"), std::string::npos) << "what was not confirmed";
}

TEST_F(TIdWindows, TheTypeMenuGivesAComponentAnotherClass) {
    SelectForm("TidesForm");
    const std::string before = OnDisk("harbour/forms/Tidetable.lfm");
    Click("ChangeTmlLangtype1_1");
    EXPECT_NE(OnDisk("harbour/forms/Tidetable.lfm").find(": TmlLangRTSE"), std::string::npos);
    SelectForm("TidesForm");
    Click("ChangeTmlLangtype1_0");
    EXPECT_EQ(OnDisk("harbour/forms/Tidetable.lfm"), before);
}

}  // namespace
}  // namespace tml
