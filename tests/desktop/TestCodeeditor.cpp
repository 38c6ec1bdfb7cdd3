#include <QClipboard>
#include <QPlainTextEdit>
#include <fstream>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

using TCodeEditorPane = TDesktop;

TEST_F(TCodeEditorPane, TypingIsUndoneByTheIde) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 3);
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

TEST_F(TCodeEditorPane, TheEditorsBlockIsTheIdes) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 5);
    TCodeEditor& editor = *Window->Tabs().Current();
    QTest::keyClick(&editor, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(editor.Source().GetBlockStart(), (TOTACharPos{5, 0}));
    EXPECT_EQ(editor.Source().GetBlockAfter(), (TOTACharPos{6, 0}));
    const auto mark = Window->Host().Ide().GetNTAServices()->GetEditorLocalMenu().Items.end()[-2];
    EXPECT_EQ(mark->Caption, "Mark as &untranslatable");
    Window->Runner().Run([&] { mark->Click(); });
    EXPECT_TRUE(editor.text().contains("{TML:IGNORE ON}"));
}

TEST_F(TCodeEditorPane, EveryEntryOfTheLocalMenuWorks) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 1);
    TCodeEditor& editor = *Window->Tabs().Current();
    const auto choose = [&](const QString& entry, int line) {
        editor.setSelection(line, 0, line + 1, 0);
        ChooseFromMenu(*editor.viewport(), {5, 5}, entry);
    };
    const QString first = editor.text(0);
    choose("Cut", 0);
    EXPECT_NE(editor.text(0), first);
    Click("Undo1");
    EXPECT_EQ(editor.text(0), first);
    choose("Copy", 0);
    choose("Paste", 1);
    EXPECT_EQ(editor.text(1), first);
    Click("Undo1");
    QApplication::clipboard()->clear();
    const QString whole = editor.text();
    choose("Paste", 0);
    EXPECT_EQ(editor.text(), whole) << "there is nothing to paste";
    choose("Mark as untranslatable", 0);
    EXPECT_EQ(editor.text(1), "{TML:IGNORE ON}\r\n");
    const auto line = editor.text().section("Caption :=", 0, 0).count('\n');
    User.On([&](QWidget& review) {
        EXPECT_EQ(review.findChild<QTableView*>("sgStrings")->model()->rowCount(), 1);
        User.Answer("This will close", "Yes");
        review.close();
    });
    choose("Translate selected source", static_cast<int>(line));
}

TEST_F(TCodeEditorPane, TheAcceleratorsOfTheLocalMenuDiffer) {
    QStringList keys;
    for (const auto& item : Window->Host().Ide().GetNTAServices()->GetEditorLocalMenu().Items)
        if (item->Visible && item->Caption != "-")
            keys += ToQt(item->Caption).section('&', 1).left(1).toLower();
    EXPECT_EQ(keys.removeDuplicates(), 0) << FromQt(keys.join(' '));
}

TEST_F(TCodeEditorPane, AFormInFrontIsTheIdesCurrentEditor) {
    OpenOrchard();
    GoTo("orchard/units/Pricing.pas", 1);
    GoTo("orchard/Main.pas", 1);
    SelectForm("CustomersForm");
    auto& forms = Find<QTableView>("lvFormNames");
    ChooseFromMenu(*forms.viewport(), forms.visualRect(forms.currentIndex()).center(), "View Form");
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/forms/Customers.dfm"));
    Click("mlLangExpertMenuItem");
    ASSERT_EQ(forms.selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(Cell(forms, forms.currentIndex().row(), 0), "CustomersForm") << "the row of the form in front";
    GoTo("orchard/Main.pas", 1);
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.pas"));
    Window->Runner().Run([&] { Window->Tabs().ShowForm(Path("orchard/Main.pas")); });
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.dfm"));
    GoTo("orchard/Main.pas", 1);
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.pas")) << "shown from behind its own form";
    GoTo("orchard/forms/Customers.pas", 1);
    Click("Close1");
    EXPECT_EQ(Window->Host().Modules().FindModule(Path("orchard/forms/Customers.pas")), nullptr);
}

TEST_F(TCodeEditorPane, TheFormInFrontIsSaved) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 1);
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    Window->Runner().Run([&] { Window->Tabs().ShowForm(Path("orchard/Main.pas")); });
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.dfm"));
    EXPECT_EQ(Window->Tabs().tabText(1), "Main.dfm");
    Window->Runner().Run([&] {
        Window->Host().Modules().FindModule(Path("orchard/Main.pas"))->GetFormEditor()->MarkModified();
    });
    EXPECT_EQ(Window->Tabs().tabText(1), "Main.dfm *");
    Click("Save1");
    EXPECT_TRUE(OnDisk("orchard/Main.pas").starts_with("// mine "));
}

TEST_F(TCodeEditorPane, AFileThatChangedOnTheDiskIsComparedReloadedOrOverwritten) {
    OpenOrchard();
    const std::string pricing = "orchard/units/Pricing.pas";
    const std::string theirs = "// theirs\r\n" + OnDisk(pricing);
    GoTo(pricing, 1);
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    std::ofstream(Path(pricing), std::ios::binary) << theirs;
    const auto answer = [&](const QString& button, const char* command = "Save1") {
        User.On([button](QWidget& box) {
            const QString diff = box.findChild<QPlainTextEdit*>()->toPlainText();
            EXPECT_TRUE(diff.contains("\n-// theirs\n") && diff.contains("\n+// mine ")) << FromQt(diff);
            for (auto* candidate : box.findChildren<QPushButton*>())
                if (candidate->text().remove('&') == button)
                    return QTest::mouseClick(candidate, Qt::LeftButton);
            ADD_FAILURE() << "no button " << FromQt(button);
        });
        Click(command);
    };
    answer("Cancel");
    EXPECT_TRUE(EditorText().startsWith("// mine "));
    EXPECT_EQ(OnDisk(pricing), theirs);
    answer("Overwrite");
    EXPECT_TRUE(OnDisk(pricing).starts_with("// mine "));
    EXPECT_FALSE(Window->Tabs().Current()->IsModified());
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    GoTo("orchard/Main.pas", 1);
    QTest::keyClicks(Window->Tabs().Current(), "// main ");
    std::ofstream(Path(pricing), std::ios::binary) << theirs;
    answer("Reload", "SaveAll1");
    EXPECT_EQ(FromQt(EditorText().remove('\r')), FromQt(ToQt(theirs).remove('\r')));
    EXPECT_EQ(OnDisk(pricing), theirs);
    EXPECT_TRUE(OnDisk("orchard/Main.pas").starts_with("// main ")) << "the others are saved all the same";
}

TEST_F(TCodeEditorPane, AsksAboutUnsavedWork) {
    OpenOrchard();
    const std::string file = Path("orchard/Main.pas");
    Window->Runner().Run([&] { Window->GoTo(file, 1); });
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    User.Answer("Save the changes of these units?\n\nMain.pas", "Cancel");
    Window->close();
    EXPECT_TRUE(Window->isVisible());
    User.Answer("Save the changes of these units?", "Yes");
    Click("Close1");
    EXPECT_EQ(Window->Messages().topLevelItemCount(), 0) << "it was open when it was saved";
    GoTo("orchard/Main.pas", 1);
    QTest::keyClicks(Window->Tabs().Current(), "// mine ");
    User.Answer("Save the changes of these units?", "Yes");
    Window->close();
    EXPECT_FALSE(Window->isVisible());
    EXPECT_TRUE(MakeDiskFileSystem()->Read(file).starts_with("// mine "));
}

}  // namespace
}  // namespace tml
