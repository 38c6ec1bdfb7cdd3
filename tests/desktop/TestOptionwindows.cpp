#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBrowser>
#include <QTreeWidget>
#include <fstream>

#include "base/Diskfiles.h"
#include "desktop/Deskfixture.h"
#include "expert/Mllangexp.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

void Press(QWidget& window, const char* button) {
    // A check box answers to its box and text only, wherever the rest of its row ends.
    QTest::mouseClick(window.findChild<QAbstractButton*>(button), Qt::LeftButton, {}, {8, 8});
}

QLineEdit& EditOf(QWidget& window, const char* name) {
    auto* field = window.findChild<QWidget*>(name);
    auto* edit = qobject_cast<QLineEdit*>(field);
    return edit == nullptr ? *field->findChild<QLineEdit*>() : *edit;
}

void Type(QWidget& window, const char* name, const QString& text) {
    QLineEdit& edit = EditOf(window, name);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, text);
}

/// Clicks the upper or the lower of the buttons at the end of a number.
void Step(QWidget& window, const char* name, bool up) {
    auto* field = window.findChild<QWidget*>(name);
    QTest::mouseClick(field, Qt::LeftButton, {},
                      {field->width() - 8, up ? field->height() / 4 : field->height() * 3 / 4});
}

struct TOptionWindows : TDesktop {
    TOptionWindows() { OpenOrchard(); }
    const TSettingValues& Settings() { return Window->Host().Expert()->Settings().Get(); }
    /// A person who types a name into the dialog for files.
    void ChooseFile(const std::string& file) {
        User.On([file](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            Type(dialog, "fileNameEdit", ToQt(file));
            QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
        });
    }
    void AnswerInput(const QString& text) {
        User.On([text](QWidget& window) {
            dynamic_cast<QInputDialog&>(window).setTextValue(text);
            dynamic_cast<QInputDialog&>(window).accept();
        });
    }
    QAction& MenuItem(const char* section) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QAction* action : Find<QMenu>(section).actions())
            if (action->objectName() == "mlLangExpertMenuItem") return *action;
        throw std::runtime_error(std::string("not in ") + section);
    }
    std::string ProjectFile() { return MakeDiskFileSystem()->Read(Path("orchard/Orchard.mlproj")); }
};

TEST_F(TOptionWindows, EveryPageIsStoredAndAScanFollows) {
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

TEST_F(TOptionWindows, ANumberThatIsNoneKeepsTheWindowAndEscGivesUp) {
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

TEST_F(TOptionWindows, TheListOfLanguages) {
    User.On([this](QWidget& dialog) {
        auto& list = *dialog.findChild<QListWidget*>("lbLanguages");
        const auto texts = [&] {
            QString all;
            for (int i = 0; i < list.count(); ++i)
                all += list.item(i)->text() + (list.item(i)->isSelected() ? "* " : " ");
            return all;
        };
        for (const char* name : {"English", "German", "Greek"}) {
            AnswerInput(name);
            Press(dialog, "btAdd");
        }
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(2)).center());
        Press(dialog, "btMoveUp");
        EXPECT_EQ(texts(), "English Greek* German ");
        AnswerInput("Modern Greek");
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

TEST_F(TOptionWindows, TheSettingsOfAProject) {
    std::ofstream(Path("orchard/d.dix")) << "<HEAD>\n<LANGUAGE>English</LANGUAGE>\n</HEAD>\n";
    User.On([this](QWidget& dialog) {
        EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
        ChooseFile("d.dix");
        Press(dialog, "btDictionary");
        EXPECT_EQ(EditOf(dialog, "edDefaultDictionary").text(), ToQt(Path("orchard/d.dix")));
        auto& language = *dialog.findChild<QComboBox*>("cbDefaultLanguage");
        EXPECT_EQ(language.itemText(0), "English</LANGUAGE>");
        const auto& warning = *dialog.findChild<QLabel*>("languageWarning");
        Type(dialog, "cbDefaultLanguage", "English");
        EXPECT_EQ(language.currentText(), "English");
        EXPECT_TRUE(warning.isVisible());
        language.setFocus();
        QTest::keyClick(&language, Qt::Key_Down);
        EXPECT_FALSE(warning.isVisible());
        Press(dialog, "ckbAskForDictionary");
        Activate(dialog);
        QTest::keyClick(&dialog, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_TRUE(dialog.findChild<QAbstractButton*>("sbProject")->isChecked());
        ChooseFile("texts");
        Press(dialog, "btTranslationFile");
        QTest::keyClicks(dialog.findChild<QComboBox*>("cbDefFormForUnits"), "Main");
        Press(dialog, "btOK");
    });
    Click("ProjectSettings1");
    const std::string written = ProjectFile();
    for (const std::string& line :
         {"DefaultDictionary=" + Path("orchard/d.dix"),
          std::string("DictionaryBaseLanguage=English</LANGUAGE>"), std::string("DontAskForDictionary=1"),
          "DefaultTranslationFileName=" + Path("orchard/texts.mlb"),
          std::string("DefaultFormForUnits=MainForm"), std::string("DispatcherForm=")})
        EXPECT_NE(written.find(line + "\r\n"), std::string::npos) << line << " in " << written;
}

TEST_F(TOptionWindows, TheProjectManagerOpensTheSettingsAndCancelWritesNothing) {
    auto& tree = Find<QTreeWidget>("projectTree");
    const QPoint at = tree.visualItemRect(tree.topLevelItem(0)).center();
    QTimer::singleShot(0, Window.get(), [] {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        QAction* settings = menu.actions().last();
        EXPECT_EQ(settings->text(), "Project Settings...");
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(settings).center());
    });
    User.On([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Project Translation Settings");
        Press(dialog, "ckbForceEmpties");
        Press(dialog, "btCancel");
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree.viewport()->mapToGlobal(at));
    QApplication::sendEvent(tree.viewport(), &event);
    EXPECT_FALSE(std::filesystem::exists(Path("orchard/Orchard.mlproj")));
}

TEST_F(TOptionWindows, SeveralFilesThatExist) {
    std::ofstream(Path("orchard/Other.pas")) << "unit Other;";
    TOpenDialog files;
    files.Filter = "Pascal Files(*.pas)|*.pas|All files|*.*";
    files.FileMustExist = true;
    files.Files = {Path("orchard/Orchard.dpr")};
    User.On([this](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.nameFilters(), QStringList({"Pascal Files (*.pas)", "All files (*)"}));
        Type(dialog, "fileNameEdit", "none.pas");
        User.On([](QWidget& message) { message.close(); });
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Activate(dialog);
        Type(dialog, "fileNameEdit", "\"Main.pas\" \"Other.pas\"");
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(files), mrOk);
    EXPECT_EQ(files.Files, (std::vector{Path("orchard/Main.pas"), Path("orchard/Other.pas")}));
    User.On([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(files), mrCancel);
}

TEST_F(TOptionWindows, AFileToWriteAndAFolder) {
    TSaveDialog save;
    save.DefaultExt = "mll";
    save.Filter = "TmlLang text files (*.mll)|*.mll|TmlLang binary files (*.mlb)|*.mlb";
    save.FilterIndex = 2;
    save.OverwritePrompt = true;
    std::ofstream(Path("orchard/There.mlb")) << "x";
    User.On([this](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.selectedNameFilter(), "TmlLang binary files (*.mlb)");
        Type(dialog, "fileNameEdit", "There");
        User.On([](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); });
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Activate(dialog);
        Type(dialog, "fileNameEdit", "New");
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(save), mrOk);
    EXPECT_EQ(save.Files, std::vector{Path("orchard/New.mlb")});
    EXPECT_EQ(save.FilterIndex, 2);

    TSelectDirectory folder;
    folder.Folder = Path("orchard");
    User.On([](QWidget& dialog) { QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return); });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(folder), mrOk);
    EXPECT_EQ(folder.Folder, Path("orchard"));
}

TEST_F(TOptionWindows, HelpOfAModalWindowCanBeRead) {
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
