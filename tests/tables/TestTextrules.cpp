#include <gtest/gtest.h>

#include "tables/Componentclasses.h"
#include "tables/Propertytexts.h"
#include "tables/Textrules.h"
#include "tables/Textshapes.h"

namespace tml {
namespace {

struct TRuleCase {
    const char* ClassName;
    const char* Path;  ///< a list with ".Strings"
    const char* Value;
    const char* Table;  ///< "" for no text
};

TEST(Textrules, TextsOfEveryFrameworkHaveTheirTableAndDataHasNone) {
    const TRuleCase cases[] = {
        {"TButton", "Caption", "&OK", "Captions"},
        {"TLABEL", "CAPTION", "Achtung:", "Captions"},
        {"TMenuItem", "Caption", "-", ""},
        {"TLabel", "Caption", "Label12", ""},
        {"TLabel", "Caption", "lblWheelAlt", ""},
        {"TLabel", "Caption", "\xD0\x96", "Captions"},
        {"TLabel", "Caption", "\xE2\x80\xA6", ""},
        {"TForm1", "Caption", "Form1", ""},
        {"TOptionsDialog", "Caption", "Options", "Captions"},
        {"TUnknownThing", "Hint", "Copy|Copies it", "Hints"},
        {"TStringField", "DisplayLabel", "Country", "DisplayLabels"},
        {"TStringField", "FieldName", "COUNTRY", ""},
        {"TLongintField", "DisplayFormat", "#,##0.00", ""},
        {"TOpenDialog", "Title", "Open a chart", "DlgsCaptions"},
        {"TSavePictureDialog", "Filter", "Pictures|*.png", "DlgsCaptions"},
        {"TOpenDialog", "DefaultExt", "png", ""},
        {"TFileOpen", "Dialog.Title", "Open a chart", "DlgsCaptions"},
        {"TNewKindOfDialog", "Title", "Pick one", "DlgsCaptions"},
        {"TFindDialog", "FindText", "harbour", ""},
        {"TTable", "Filter", "COUNTRY = 'X' | Y", ""},
        {"TFileNameEdit", "Filter", "Charts|*.chart", "OtherStrings"},
        {"TOpenDialog", "Filter", "*.json;*.txt|*.json;*.txt|(*.*)|*.*", ""},
        {"TOpenDialog", "Filter", "*.json|*.json|All (*.*)|*.*", "DlgsCaptions"},
        {"TFileNameEdit", "DialogTitle", "Choose a chart", "OtherStrings"},
        {"TEdit", "TextHint", "User name", "OtherStrings"},
        {"TEdit", "Text", "Any harbour", "OtherStrings"},
        {"TEdit", "Text", "C:\\Data\\ships.db", ""},
        {"TEdit", "Text", "https://a.example/x", ""},
        {"TEdit", "Text", "1,250.50 %", ""},
        {"TMaskEdit", "Text", "5000 x", ""},
        {"TButton", "Text", "Send", "Captions"},
        {"TListBoxItem", "Text", "Send", "Captions"},
        {"TPage", "Title.Caption", "Ships", "Captions"},
        {"TStatusBar", "Panels[0].Text", "Ready", "Collections"},
        {"TStringGrid", "Columns[Tide].Title.Caption", "Tide", "Collections"},
        {"TListView", "Columns[2].ImageName", "ship", ""},
        {"TMemo", "Lines.Strings", "First\nSecond", "MultiLines"},
        {"TMemo", "Lines.Strings", "Memo1", ""},
        {"TComboBox", "Items.Strings", "ssNone\nssBoth", ""},
        {"TRadioGroup", "Items.Strings", "1\n2\nMore", "MultiLines"},
        {"TDBGrid", "Columns[0].PickList.Strings", "Cow\nDog", "MultiLines"},
        {"TChart", "Title.Text.Strings", "Ships a year", "MultiLines"},
        {"TSynEdit", "Lines.Strings", "begin\nend.", ""},
        {"TDBSynEdit", "Lines.Strings", "begin it\nend.", ""},
        {"TSQLQuery", "SQL.Strings", "select a\nfrom b", ""},
        {"TLabel", "Font.Name", "Arial", "Fonts"},
        {"TDBGrid", "TitleFont.Height", "-12", "Fonts"},
        {"TDBGrid", "Columns[0].Title.Font.Charset", "RUSSIAN_CHARSET", "CharSets"},
        {"TFontDialog", "Font.Name", "Arial", ""},
        {"TAction", "Category", "File", ""},
        {"TButtonPanel", "OKButton.Caption", "&Write", "Captions"},
        {"TButtonPanel", "OKButton.Name", "OKButton", ""},
    };
    for (const TRuleCase& row : cases) {
        const std::string_view path = WithoutStrings(row.Path);
        const TTextProperty property{row.ClassName, "Some", path, path != row.Path};
        const auto kind = KindOfText(property, row.Value);
        EXPECT_EQ(kind && kind->IsForReaders ? KindOf(kind->Table).Property : "", row.Table)
            << row.ClassName << "." << row.Path;
    }
    const auto isForReaders = [](const TTextProperty& property, std::string_view value) {
        return KindOfText(property, value)->IsForReaders;
    };
    EXPECT_FALSE(isForReaders({"TButton", "AllButton", "Caption"}, "AllButton")) << "its own name";
    EXPECT_TRUE(isForReaders({"TButton", "Cancel", "Caption"}, "Cancel")) << "a word that is its name, too";
    EXPECT_FALSE(isForReaders({"TComboBox", "CBID", "Text"}, "CBID")) << "nobody's wording";
    EXPECT_EQ(KindOfText({"TMenuItem", "", "Caption"}, "-")->Table, TStringsType::stCaptions)
        << "whatever the value";
}

TEST(Textrules, ClassesDeriveFromWhatTheDataSays) {
    EXPECT_TRUE(ComponentInheritsFrom("tsavePictureDialog", "TCommonDialog"));
    EXPECT_TRUE(ComponentInheritsFrom("TMine", "tmine"));
    EXPECT_FALSE(ComponentInheritsFrom("TMine", "TComponent"));
    EXPECT_FALSE(ComponentInheritsFrom("TButton", "TBitBtn"));
}

TEST(Textrules, ShapesOfTexts) {
    struct TShapeCase {
        bool (*Is)(std::string_view);
        std::vector<std::string_view> Such, Others;
    };
    const TShapeCase cases[] = {
        {IsNumber, {"0", "-1,250.5", "10 %", "1e9"}, {"", "e", "ten", "1 ship", "..."}},
        {IsPunctuation, {"...", ">>", "\xE2\x80\xA6"}, {"", "a", "1", "\xC3\xA9"}},
        {IsPath,
         {"C:\\a b", "/etc/hosts", "*.txt", "readme.txt", "..\\x"},
         {"and/or", "e.g. this", "A. Smith", "/"}},
        {IsAddress,
         {"https://a.example", "a@b.example", "127.0.0.1", "www.a.example"},
         {"a @ b", "1.2.3", "@home"}},
        {LooksLikeIdentifier,
         {"lblName", "MAX_SIZE", "Edit1", "a.b", "XMLFile"},
         {"", "Name", "IDs", "OK", "1a", "a b"}},
        {HasTypePrefix, {"btnOk", "dsCommon"}, {"macOS", "iPhone", "Common", "longerPrefix"}},
    };
    for (const TShapeCase& row : cases) {
        for (const std::string_view text : row.Such)
            EXPECT_TRUE(row.Is(text)) << text;
        for (const std::string_view text : row.Others)
            EXPECT_FALSE(row.Is(text)) << text;
    }
}

TEST(Propertytexts, ItemsAreNamedOrCountedAndListsComeWhole) {
    const auto named = [](const std::string& name) {
        return TFormProperty{"Name", TFormValue::String(name)};
    };
    const TFormProperty caption{"Caption", TFormValue::String("x")};
    TFormValue inner;
    inner.Kind = TFormValueKind::Collection;
    inner.Collection = {{named("Tide"), caption}, {named("tide"), caption}, {named("2nd")}, {caption}};
    TFormValue outer = inner;
    outer.Collection = {{{"Columns", inner}}};
    const auto texts = TextsOfProperties({{"Bands", outer},
                                          {"Lines.Strings", TFormValue::Strings(TStringList({"a", "", "b"}))},
                                          {"Items.Strings", TFormValue::Strings(TStringList({"a\nb"}))},
                                          {"Tabs.Strings", TFormValue::Strings(TStringList({"", ""}))}});
    std::string paths;
    for (const TPropertyText& text : texts)
        paths += text.Path + "=" + text.Text + ";";
    EXPECT_EQ(
        paths,
        "Bands[0].Columns[Tide].Name=Tide;Bands[0].Columns[Tide].Caption=x;Bands[0].Columns[1].Name=tide;"
        "Bands[0].Columns[1].Caption=x;Bands[0].Columns[2].Name=2nd;Bands[0].Columns[3].Caption=x;"
        "Lines=a\n\nb;");
}

}  // namespace
}  // namespace tml
