#include "scan/Editorcommands.h"
#include "scan/Found.h"
#include "scan/Selunit.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

struct TEditorCommands : TExpertFixture, testing::Test {
    std::shared_ptr<IOTASourceEditor> Edit(int number) {
        return Ide.GetModuleServices()
            ->OpenModule("/p/Unit" + std::to_string(number) + ".pas", true)
            ->GetSourceEditor(0);
    }
    void Click(const std::string& name) {
        for (const auto& item : Ide.GetNTAServices()->GetEditorLocalMenu().Items)
            if (item->Name == name) return item->Click();
        FAIL() << "no such item";
    }
    void Mark() { Click("MarkUnTranslatableSourceMenu"); }
    /// The rows of the review that the command shows; the review is given up.
    std::string Reviewed() {
        std::string rows;
        User.OnWindow<TfrmFound>("frmFound", [&](TfrmFound& window) {
            for (const TFoundRow& row : window.Rows)
                rows += row.Record.StrContent + "|" + std::to_string(row.Record.Line + 1) + "|";
            User.OnMessage("This will close the Found Strings form! Continue?", mrYes);
            window.tbCancelClick();
            Context().Rows.StatusPanels[0] = "of before";
        });
        Click("TranslateSourceMenu");
        EXPECT_EQ(Context().Rows.StatusPanels[0], "Forms count: 2") << "the window follows";
        return rows;
    }
};

TEST_F(TEditorCommands, TheSelectionIsEnclosedInTagLines) {
    Open();
    const auto editor = Edit(1);
    const std::string before = *editor->GetText();
    User.OnMessage("There are no lines selected in the source editor!");
    Mark();
    editor->SetBlock({1, 0}, {1, 4}, TOTABlockType::btColumn);
    User.OnMessage("There are no lines selected in the source editor!");
    Mark();
    EXPECT_EQ(*editor->GetText(), before);
    editor->SetBlock({1, 5}, {3, 4}, TOTABlockType::btNonInclusive);
    Mark();
    EXPECT_TRUE(editor->GetText()->starts_with(
        "unit \r\n{TML:IGNORE ON}\r\nUnit1;\r\n\r\ninte\r\n{TML:IGNORE OFF}\r\nrface\r\n"))
        << *editor->GetText();
    Ide.Undo("/p/Unit1.pas");
    EXPECT_EQ(*editor->GetText(), before);
}

TEST_F(TEditorCommands, OnlyTheSelectionIsTranslated) {
    PutForm(1, "", "  F('One');\n  F('Two');\n  F('Three');\n");
    Open();
    const auto editor = Edit(1);
    const auto line = [&](const char* text) {
        return editor->GetEditView(0)->PosToCharPos(static_cast<int>(editor->GetText()->find(text))).Line;
    };
    const int second = line("F('Two')");
    editor->SetBlock({second, 0}, {second + 1, 0}, TOTABlockType::btNonInclusive);
    Context().Rows.Page = TFormsPage::ExternalFiles;
    EXPECT_EQ(Reviewed(), "Two|" + std::to_string(second) + "|") << "the page in front does not count";
    EXPECT_EQ(editor->GetBlockStart(), (TOTACharPos{second, 0})) << "given up, it is where it was";
    EXPECT_EQ(ScanMemory().ScanMode, 0);

    for (const TOTABlockType type : {TOTABlockType::btNonInclusive, TOTABlockType::btColumn}) {
        const bool column = type == TOTABlockType::btColumn;
        editor->SetBlock({1, 0}, {column ? 90 : 1, 0}, type);
        User.OnMessage("No strings found in the \"Unit1.pas\" source!");
        Click("TranslateSourceMenu");
    }
    Put("/p/Alien.pas", "unit Alien;\ninterface\nimplementation\nend.\n");
    Ide.GetModuleServices()->OpenModule("/p/Alien.pas", true);
    User.OnMessage("Current project doesn't include /p/Alien.pas file!");
    Click("TranslateSourceMenu");
    User.StopAt = "Reading forms...";
    Click("TranslateSourceMenu");
}

TEST_F(TEditorCommands, TheSelectionOfAUnitWithoutAFormGoesToAChosenForm) {
    Put("/p/Helper.pas",
        "unit Helper;\n\ninterface\n\nimplementation\n\nprocedure P;\nbegin\n  F('One');\n  "
        "F('Two');\nend;\n\n"
        "end.\n");
    Open();
    const auto editor = Ide.GetModuleServices()->OpenModule("/p/Helper.pas", true)->GetSourceEditor(0);
    editor->SetBlock({10, 0}, {11, 0}, TOTABlockType::btNonInclusive);
    User.OnWindow<TfrmTranslUnits>("frmTranslUnits", [](TfrmTranslUnits& window) {
        EXPECT_EQ(window.lbUnits.SelectedItems(), TStringList({"/p/Helper.pas"}));
        window.cbForm.ItemIndex = 1;
        window.btOKClick();
    });
    EXPECT_EQ(Reviewed(), "Two|10|");
}

TEST_F(TEditorCommands, TheLinesOfAFoundStringAreEnclosed) {
    struct TRow {
        std::string FileName, Text, Marked, Content;
    };
    const TRow rows[] = {
        {"Helper.pas", "a\r\n  F('One');\r\nb\r\n",
         "a\r\n\r\n{TML:IGNORE ON}\r\n  F('One');\r\n\r\n{TML:IGNORE OFF}\r\nb\r\n", "One"},
        {"Helper.cpp", "a\r\n  F(\"One\"\r\n  \"Two\");\r\nb\r\n",
         "a\r\n\r\n/*TML:IGNORE ON*/\r\n  F(\"One\"\r\n  \"Two\");\r\n\r\n/*TML:IGNORE OFF*/\r\nb\r\n",
         "OneTwo"},
        {"Joined.cpp", "F(\"One\"\r\n  L\"\"\r\n  \"T\");\r\nb\r\n",
         "\r\n/*TML:IGNORE ON*/\r\nF(\"One\"\r\n  L\"\"\r\n  \"T\");\r\n\r\n/*TML:IGNORE OFF*/\r\nb\r\n",
         "OneT"},
    };
    Open();
    for (const TRow& row : rows) {
        Files.Files["/p/" + row.FileName] = row.Text;
        const auto editor =
            Ide.GetModuleServices()->OpenModule("/p/" + row.FileName, true)->GetSourceEditor(0);
        TmlFoundSourceString found;
        found.Position = static_cast<int>(row.Text.find("One"));
        found.StrContent = row.Content;
        found.SpanEnd = static_cast<std::int32_t>(row.Text.find(");") + 1);
        MarkStringToSkip(Context(), found);
        EXPECT_EQ(*editor->GetText(), row.Marked);
    }
}

TEST_F(TEditorCommands, TheTranslationEditorFindsAStringInTheSource) {
    const std::string form = Files.Files["/p/Unit2.dfm"];
    PutForm(2, "x", "  F(mlLang1.GetText('A'));\n  F(mlLang1.GetText('IDS_1'));\n");
    Files.Files["/p/Unit2.dfm"] = form;
    Open();
    Runtime->NavigateToSource("Form2", "ids_1");
    const auto editor = Ide.GetModuleServices()->GetCurrentSourceEditor();
    ASSERT_EQ(editor->GetFileName(), "/p/Unit2.pas");
    const TOTACharPos place = editor->GetEditView(0)->GetCursorPos();
    EXPECT_EQ(editor->GetText()->find("mlLang1.GetText('IDS_1'"),
              static_cast<std::size_t>(editor->GetEditView(0)->CharPosToPos(place)));
    User.OnMessage("No call in Unit2.pas fetches \"none\"!");
    EXPECT_THROW(Runtime->NavigateToSource("Form2", "none"), EmlLangSilent);
    EXPECT_EQ(editor->GetEditView(0)->GetCursorPos(), place);
}

}  // namespace
}  // namespace tml
