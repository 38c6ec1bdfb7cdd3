#include "base/Errors.h"
#include "base/Format.h"
#include "core/Closedforms.h"
#include "support/Memoryfiles.h"

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
        {"", "  0"}};
    for (const auto& row : rows) {
        const TFormAnalysis found = SearchFormText(row.Text, kNames);
        EXPECT_EQ(Format("%s %s %d", found.ComponentName, found.ClassName, found.NumLang), row.Found)
            << row.Text;
    }
    EXPECT_THROW(SearchFormText("object F: TF\n object A: TmlLang\n NumOfLanguages = x\n", kNames),
                 EBadInput);
}

TEST(Closedforms, OneThatCannotBeReadHasNoComponent) {
    TMemoryFileSystem files;
    files.Files["/p/A.dfm"] = "TPF0\x04broken";
    EXPECT_EQ(AnalyzeClosedForm(files, "/p/A.dfm", kNames).NumLang, 0);
    EXPECT_EQ(AnalyzeClosedForm(files, "/p/B.dfm", kNames).NumLang, 0);
}

}  // namespace
}  // namespace tml
