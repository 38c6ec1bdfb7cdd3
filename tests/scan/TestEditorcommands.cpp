#include "scan/Editorcommands.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

struct TEditorCommands : TExpertFixture, testing::Test {
    std::shared_ptr<IOTASourceEditor> Edit(int number) {
        return Ide.GetModuleServices()
            ->OpenModule("/p/Unit" + std::to_string(number) + ".pas", true)
            ->GetSourceEditor(0);
    }
    void Mark() {
        for (const auto& item : Ide.GetNTAServices()->GetEditorLocalMenu().Items)
            if (item->Name == "MarkUnTranslatableSourceMenu") return item->Click();
        FAIL() << "no such item";
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
    Runtime->NavigateToSource("Form2", "none");
    EXPECT_EQ(editor->GetEditView(0)->GetCursorPos(), place);
}

}  // namespace
}  // namespace tml
