#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Closedforms.h"
#include "core/Modules.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

const std::vector<std::string> kNames{"TmlLang", "TmlLangRT"};

TEST(Closedforms, AreSearchedLineByLine) {
    const struct {
        const char* Text;
        const char* Found;
    } rows[] = {
        {"object F: TF\n  object L: TmlLang\n    NumOfLanguages = 3\n  end\nend\n", "L TmlLang 3"},
        {"object F: TF\r\n  object L: TmlLangRT\r\n  end\r\nend", "L TmlLangRT 1"},
        {"object F: TmlLang\n  NumOfLanguages = 3\nend\n", "  0"},
        {"object F: TF\n NumOfLanguages = 9\n inherited A: TmlLang\n end\n object B: TmlLangRT\n end\n",
         "B TmlLangRT 1"},
        {"object F: TF\n object A: TmlLang\n end\n object D: TDisp\n  NumOfLanguages = 4\n", "A TmlLang 4"},
        {"object F: TF\n object A: TmlLang\n  NumOfLanguages = 0\n end\n object B: TmlLang\n", "  0"},
        {"object F: TF\n inline A: TmlLang\n end\n object B: TmlLangX\n", "  0"},
        {"object F: TF\r object L: TmlLang\r  NumOfLanguages = 3\r end\rend\r", "L TmlLang 3"},
        {"", "  0"}};
    for (const auto& row : rows) {
        const TFormAnalysis found = SearchFormText(row.Text, kNames).Found;
        EXPECT_EQ(Format("%s %s %d", found.ComponentName, found.ClassName, found.NumLang), row.Found)
            << row.Text;
    }
    EXPECT_THROW(SearchFormText("object F: TF\n object A: TmlLang\n NumOfLanguages = x\n", kNames),
                 EBadInput);
}

TEST(Closedforms, AreReadThroughTheirAncestors) {
    const std::string base =
        "  object mlLang1: TmlLang\n    NumOfLanguages = 3\n  end\n  object Timer1: TTimer\n  end\n";
    const struct {
        const char *Heading, *Root, *Components, *Row;
    } rows[] = {
        {"class(TForm2)", "inherited", "", "3|mlLang1"},
        {"class(TForm2)", "inherited", "  inherited mlLang1: TmlLang\n  end\n", "3|mlLang1"},
        {"class(TForm2)", "inherited", "  inherited mlLang1: TmlLang\n    NumOfLanguages = 4\n  end\n",
         "4|mlLang1"},
        {"class(TForm2)", "object", "", "0|"},
        {"class(TForm3)", "inherited", "", "0|"},
        {"class(TForm1)", "inherited", "", "0|"},
        {"class", "inherited", "", "0|"},
    };
    for (const auto& row : rows) {
        TExpertFixture test;
        test.PutForm(2, base);
        test.PutForm(1, row.Components);
        std::string& form = test.Files.Files["/p/Unit1.dfm"];
        form.replace(0, 6, row.Root);
        std::string& unit = test.Files.Files["/p/Unit1.pas"];
        unit.replace(unit.find("class(TForm)"), 12, row.Heading);
        test.Open();
        const auto shown = [&] {
            return test.Row("Form1").Cell(fcLanguages) + "|" + test.Row("Form1").Cell(fcComponent);
        };
        EXPECT_EQ(shown(), row.Row) << row.Heading << row.Components;
        OpenFile(test.Context(), "/p/Unit1.pas", false);
        EXPECT_EQ(shown(), row.Row) << "open";
        CloseFile(test.Context(), "/p/Unit1.pas");
        EXPECT_FALSE(IsFileOpen(test.Context(), "/p/Unit2.pas")) << "it was open for the other's sake";
    }
}

TEST(Closedforms, NamesAreDecodedAndWhatCannotBeReadHasNoComponent) {
    TExpertFixture test;
    test.PutForm(1, "  object \xCC\xEE\xE9\xCF\xE5\xF0\xE5\xE2\xEE\xE4: TmlLang\n  end\n");
    test.Files.Files["/p/Unit2.dfm"] = "TPF0\x04broken";
    test.Open();
    EXPECT_TRUE(IsValidUtf8(test.Row("Form1").Cell(fcComponent))) << test.Row("Form1").Cell(fcComponent);
    EXPECT_EQ(test.Row("Form2").Cell(fcLanguages), "0");
}

}  // namespace
}  // namespace tml
