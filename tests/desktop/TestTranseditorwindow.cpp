#include <QClipboard>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScrollBar>
#include <QTreeWidget>
#include <fstream>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

/// The translation editor on a program in English, German and Hebrew.
class TTransWindow : public TDesktop {
  public:
    TTransWindow() {
        std::filesystem::copy(std::filesystem::path(TML_TESTS) / "../examples/harbour", Path("harbour"),
                              std::filesystem::copy_options::recursive);
    }

    /// As somebody else has done it before.
    void Set(const char* form, const char* key, const char* language, const char* text) {
        EXPECT_EQ(QProcess::execute(TML_BIN "/tmllang", {"set", ToQt(Path("harbour/Harbour.lpi")), "--form",
                                                         form, "--key", key, "--language", language, text}),
                  0);
    }
    /// Opens it on the main form by Enter in the forms list.
    void Translate(const std::function<void(QWidget&)>& work) {
        Window->OpenProject(ToQt(Path("harbour/Harbour.lpi")));
        SelectForm("MainForm");
        User.On(work);
        QTest::keyClick(&Find<QTableView>("lvFormNames"), Qt::Key_Return);
        QApplication::processEvents();
    }
    static QTableView& Cells(QWidget& window) { return *window.findChild<QTableView*>("grTexts"); }
    static QString Box(QWidget& window, const char* name) {
        return window.findChild<QPlainTextEdit*>(name)->toPlainText();
    }
    /// Each key goes where the one before has left the focus.
    static void TypeHere(QWidget& window, const char* text) {
        for (const char* key = text; *key != 0; ++key)
            QTest::keyClick(window.focusWidget(), *key);
    }
    static void Search(QWidget& window, const char* text) {
        window.findChild<QLineEdit*>("filter")->clear();
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(window.findChild<QLineEdit*>("filter"), text);
        QTest::keyClick(window.findChild<QLineEdit*>("filter"), Qt::Key_Down);
    }
};

TEST_F(TTransWindow, ATranslatorWorksThroughAFormByTheKeyboard) {
    Set("MainForm", "mniQuit.Caption", "German", "");
    Set("MainForm", "mniFile.Caption", "English", "&Storage");
    Translate([](QWidget& window) {
        QTableView& cells = Cells(window);
        EXPECT_EQ(window.windowTitle(), "Translation Editor - MainForm");
        EXPECT_TRUE(cells.hasFocus());
        EXPECT_EQ(DoubleAccelerators(window), "");
        // The next texts that are missing or were made for another base text.
        QTest::keyClick(&cells, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClick(window.focusWidget(), Qt::Key_F7);
        EXPECT_TRUE(cells.hasFocus());
        EXPECT_EQ(TextOf(window, "lblText"), "German (Stale):");
        EXPECT_EQ(Box(window, "memBase"), "&Storage");
        EXPECT_EQ(Box(window, "memFormer"), "&File");
        EXPECT_TRUE(window.findChild<QWidget*>("memFormer")->isVisible());
        EXPECT_TRUE(cells.viewport()->rect().contains(cells.visualRect(cells.currentIndex())))
            << "the row is in sight";
        TypeHere(window, "&Lager");
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QTest::keyClick(&cells, Qt::Key_F7);
        EXPECT_EQ(TextOf(window, "lblText"), "German (Missing):");
        EXPECT_FALSE(window.findChild<QWidget*>("memFormer")->isVisible());
        QTest::keyClick(&cells, Qt::Key_F8);
        EXPECT_EQ(TextOf(window, "lblText"), "German (Missing):") << "there is no text to be confirmed";
        QTest::keyClick(&cells, Qt::Key_F6);
        EXPECT_EQ(Box(window, "memText"), "&Quit");
        QTest::keyClick(&cells, Qt::Key_F8);
        // A text of several lines is edited in the box; Esc drops what was typed there.
        Search(window, "fairway");
        ClickCell(cells, 0, 2);
        QTest::keyClick(&cells, Qt::Key_F2);
        auto& box = *window.findChild<QPlainTextEdit*>("memText");
        EXPECT_TRUE(box.hasFocus());
        QTest::keyClicks(&box, "nothing");
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(Box(window, "memText").startsWith("Die Fahrrinne ist frei.\n"));
        QTest::keyClick(&cells, Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClicks(&box, "Eins");
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClicks(&box, "Zwei");
        QTest::keyClick(&box, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_EQ(Cell(cells, 0, 2), "Eins\u21B5Zwei");
        // Back and forth.
        QTest::keyClick(&cells, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(Box(window, "memText").startsWith("Die Fahrrinne ist frei.\n"));
        QTest::keyClick(&cells, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(Box(window, "memText"), "Eins\nZwei");
        Press(window, "btnOK");
    });
    Window->SaveAll();
    const std::string form = OnDisk("harbour/forms/Mainwindow.lfm");
    for (const char* text : {"&Lager", "Eins", "Zwei"})
        EXPECT_NE(form.find(text), std::string::npos) << text;
    EXPECT_EQ(form.find("Fahrrinne"), std::string::npos);
}

TEST_F(TTransWindow, RangesOfCellsAreCopiedAndPastedAndSentencesOfTheRightToLeft) {
    Translate([this](QWidget& window) {
        QTableView& cells = Cells(window);
        Search(window, "mni");
        ClickCell(cells, 0, 1);
        ClickCell(cells, 1, 2, Qt::ShiftModifier);
        QTest::keyClick(&cells, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text(),
                  "&File\t&Datei\r\n&New arrival...\t&Neue Ankunft...\r\n");
        QGuiApplication::clipboard()->setText("eins\t\"zwei\"\ndrei\tvier\n");
        ClickCell(cells, 0, 2);
        QTest::keyClick(&cells, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(Cell(cells, 0, 2) + Cell(cells, 0, 3) + Cell(cells, 1, 2) + Cell(cells, 1, 3),
                  "einszweidreivier");
        EXPECT_EQ(cells.selectionModel()->selectedIndexes().size(), 4);
        QTest::keyClick(&cells, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Cell(cells, 0, 2), "&Datei") << "one step";
        ClickCell(cells, 0, 3);
        const auto& box = *window.findChild<QPlainTextEdit*>("memText");
        EXPECT_EQ(box.document()->defaultTextOption().textDirection(), Qt::RightToLeft);
        // A search that finds nothing, and one by a pattern.
        Search(window, "nothing like it");
        EXPECT_EQ(TextOf(window, "filterCount"), "0 of 28 rows");
        EXPECT_FALSE(window.findChild<QAction*>("acConfirm")->isEnabled());
        Press(window, "ckPattern");
        Search(window, "^&F");
        EXPECT_EQ(TextOf(window, "filterCount"), "1 of 28 rows");
        Search(window, "^&F(");
        EXPECT_EQ(TextOf(window, "notice"),
                  "The pattern cannot be read: missing closing parenthesis (behind \"^&F(\")");
        Search(window, "^&F");
        User.Answer("What you have edited is not written yet", "No");
        ClickCell(cells, 0, 2);
        QTest::keyClicks(&cells, "x");
        Press(window, "btnCancel");
        QApplication::processEvents();
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(TextOf(window, "changedFiles"), "");
        std::ofstream(Path("harbour/forms/Mainwindow.pas"), std::ios::app) << "\n";
        User.Answer("What you have edited is not written yet", "No");
        Press(window, "btnCancel");
        Activate(window);
        EXPECT_EQ(TextOf(window, "changedFiles"), "Changed on the disk: Mainwindow.pas")
            << "once the window is active again";
        User.Answer("What you have edited is not written yet", "Yes");
        Press(window, "btnCancel");
    });
    Window->SaveAll();
    EXPECT_NE(OnDisk("harbour/forms/Mainwindow.lfm").find("&Datei"), std::string::npos);
}

TEST_F(TTransWindow, KeysLeadToTreeAndSearchAndPlacesAreRemembered) {
    Translate([](QWidget& window) {
        QTableView& cells = Cells(window);
        auto& tree = *window.findChild<QTreeWidget*>("tree");
        auto& filter = *window.findChild<QLineEdit*>("filter");
        cells.setColumnWidth(1, 333);
        QTest::keyClick(&cells, Qt::Key_F9);
        EXPECT_TRUE(tree.hasFocus());
        QTest::keyClick(&tree, Qt::Key_Down);
        QTest::keyClick(&tree, Qt::Key_Return);
        EXPECT_TRUE(cells.hasFocus());
        QTest::keyClick(&cells, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(&filter, "quit");
        EXPECT_TRUE(QTest::qWaitFor([&] { return TextOf(window, "filterCount") == "1 of 12 rows"; }));
        EXPECT_EQ(filter.text(), "quit");
        QTest::keyClick(&filter, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(cells.hasFocus());
        EXPECT_EQ(filter.text(), "");
        EXPECT_NE(TextOf(window, "filterCount"), "1 of 12 rows");
        Search(window, "quit");
        Press(window, "btnCancel");
    });
    Translate([](QWidget& window) {
        QTableView& cells = Cells(window);
        EXPECT_NEAR(cells.columnWidth(1), 333, 2);
        EXPECT_FALSE(cells.horizontalScrollBar()->isVisible()) << "the others have what is left";
        EXPECT_EQ(window.findChild<QLineEdit*>("filter")->text(), "quit");
        EXPECT_EQ(TextOf(window, "filterCount"), "1 of 12 rows");
        EXPECT_EQ(window.findChild<QTreeWidget*>("tree")->currentItem()->text(0), "Captions");
        EXPECT_EQ(cells.model()->headerData(2, Qt::Horizontal).toString(), "German  100 %");
        Press(window, "btnCancel");
    });
}

TEST_F(TTransWindow, TheTreeAndTheFilterNarrowWhatIsShown) {
    Set("MainForm", "mniQuit.Caption", "Hebrew", "");
    Translate([](QWidget& window) {
        auto& tree = *window.findChild<QTreeWidget*>("tree");
        QTableView& cells = Cells(window);
        const auto strings = tree.findItems("Strings", Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(strings.size(), 1);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(strings[0]).center());
        EXPECT_EQ(TextOf(window, "filterCount"), "2 rows");
        EXPECT_EQ(strings[0]->text(1), "2/2");
        EXPECT_EQ(Cell(cells, 0, 0), "IDS_0");
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                          tree.visualItemRect(tree.topLevelItem(0)).center());
        window.findChild<QComboBox*>("cbShow")->setCurrentText("missing");
        EXPECT_EQ(TextOf(window, "filterCount"), "1 of 28 rows");
        window.findChild<QComboBox*>("cbLanguage")->setCurrentText("German");
        EXPECT_EQ(TextOf(window, "filterCount"), "0 of 28 rows");
        Press(window, "btnCancel");
    });
}

/// What of two pictures of one size differs.
QRect Difference(const QImage& one, const QImage& two) {
    QRect differing;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != two.pixel(x, y)) differing |= QRect(x, y, 1, 1);
    return differing;
}

TEST_F(TTransWindow, TheFormShowsWhatIsTypedAndMarksItsControl) {
    const auto form = [](QWidget& window) {
        return window.findChild<QWidget*>("transForm")->grab().toImage();
    };
    const auto onForm = [&](QWidget& window, const char* key) {
        Search(window, key);
        ClickCell(Cells(window), 0, 2);
        return form(window);
    };
    Translate([&](QWidget& window) {
        const QImage service = onForm(window, "lblServices");
        ASSERT_EQ(service.size(), QSize(620, 400));
        const QImage log = onForm(window, "lblLog");
        EXPECT_EQ(TextOf(window, "transFormTitle"), "Hafen");
        EXPECT_TRUE(Difference(service, log).contains(QRect(176, 222, 170, 12)))
            << "the marks of both labels";
        QTest::keyClick(&Cells(window), Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClicks(window.focusWidget(), "Logbuch, lang");
        const QImage typed = form(window);
        const QRect changed = Difference(log, typed);
        EXPECT_GT(changed.width(), 30) << "before it is taken";
        EXPECT_TRUE(QRect(310, 215, 150, 25).contains(changed));
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(form(window), log);
        Cells(window).setCurrentIndex(Cells(window).model()->index(0, 3));
        EXPECT_GT(Difference(log, form(window)).width(), 500) << "Hebrew, mirrored";
        onForm(window, "mniArrival.Caption");
        EXPECT_EQ(TextOf(window, "transFormNotes"), "mniArrival is in the menu mnuMain");
        QTest::mouseClick(window.findChild<QAbstractButton*>("ckForm"), Qt::LeftButton);
        EXPECT_FALSE(window.findChild<QWidget*>("transForm")->isVisible());
        Press(window, "btnCancel");
    });
    User.On([](QWidget& window) {
        EXPECT_FALSE(window.findChild<QWidget*>("transForm")->isVisible()) << "as it was left";
        Press(window, "btnCancel");
    });
    QTest::keyClick(&Find<QTableView>("lvFormNames"), Qt::Key_Return);
}

TEST_F(TTransWindow, AnActionIsShownByItsControlOnAPageThatIsBehind) {
    const std::string file = Path("harbour/forms/Mainwindow.lfm");
    std::string form = OnDisk("harbour/forms/Mainwindow.lfm");
    form.insert(
        form.rfind("end"),
        "  object pgcPort: TPageControl\n    Left = 200\n    Height = 100\n    Top = 40\n    Width = 200\n"
        "    ActivePage = pgOne\n    object pgOne: TTabSheet\n      Caption = 'One'\n    end\n    object "
        "pgTwo: "
        "TTabSheet\n      Caption = 'Two'\n      object btnDredge: TButton\n        Left = 8\n        Height "
        "= 25\n        Top = 8\n        Width = 75\n        Action = acDredge\n      end\n    end\n  end\n  "
        "object "
        "aclPort: TActionList\n    object acDredge: TAction\n      Caption = 'Dredge'\n    end\n    object "
        "acIdle: "
        "TAction\n      Caption = 'Idle'\n    end\n  end\n");
    std::ofstream(file) << form;
    EXPECT_EQ(QProcess::execute(TML_BIN "/tmllang",
                                {"update", ToQt(Path("harbour/Harbour.lpi")), "--form", "MainForm"}),
              0);
    Translate([](QWidget& window) {
        const auto show = [&](const char* key) {
            Search(window, key);
            ClickCell(Cells(window), 0, 2);
            return window.findChild<QWidget*>("transForm")->grab().toImage();
        };
        const QImage idle = show("acIdle");
        EXPECT_EQ(TextOf(window, "transFormNotes"), "acIdle is an action that nothing on the form shows");
        const QImage dredge = show("acDredge");
        EXPECT_EQ(TextOf(window, "transFormNotes"), "acDredge is an action, shown by btnDredge");
        const QRect changed = Difference(idle, dredge);
        EXPECT_TRUE(QRect(200, 30, 210, 120).contains(changed));
        EXPECT_GT(changed.width(), 75);
        Press(window, "btnCancel");
    });
}

TEST_F(TTransWindow, AStringIsShownInItsSourceInPlaceOfTheEditor) {
    Translate([](QWidget& window) {
        Search(window, "IDS_1");
        ClickCell(Cells(window), 0, 2);
        TypeHere(window, "Neu");
        QTest::keyClick(window.focusWidget(), Qt::Key_J, Qt::ControlModifier);
    });
    const TCodeEditor* const source = Window->Tabs().Current();
    ASSERT_NE(source, nullptr) << "the unit was closed before";
    int line = 0, column = 0;
    source->getCursorPosition(&line, &column);
    EXPECT_TRUE(source->text(line).mid(column).startsWith("mlLangTLV_MainForm.GetTextOrDefault('IDS_1'"));
    const long top = source->SendScintilla(QsciScintilla::SCI_GETFIRSTVISIBLELINE);
    EXPECT_LT(line - top, source->SendScintilla(QsciScintilla::SCI_LINESONSCREEN)) << "in sight";
    EXPECT_EQ(OnDisk("harbour/forms/Mainwindow.lfm").find("'Neu'"), std::string::npos);
    Window->SaveAll();
    EXPECT_NE(OnDisk("harbour/forms/Mainwindow.lfm").find("'Neu'"), std::string::npos);
}

}  // namespace
}  // namespace tml
