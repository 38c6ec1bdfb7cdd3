#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "scan/Duplicates.h"
#include "scan/Rewrite.h"
#include "scan/Scansupport.h"

namespace tml {
namespace {

std::string Rewritten(const TScanInput& input, const TmlFoundSourceStrings& rows) {
    const TEdits edits = Rewrite(rows, input);
    ProveRewrite(rows, input, edits);
    return ApplyEdits(input.Text(), edits);
}

struct TCase {
    const char* FileName;
    const char* Text;
    const char* Expected;
};

TEST(Rewrite, PutsCallsInPlace) {
    const TCase cases[] = {
        {"a.pas", "s := 'ab' + 'cd';\r\n", "s := mlLang1.GetText('IDS_0') + mlLang1.GetText('IDS_1');\r\n"},
        {"a.pas", "s := #10^M'next' + ^M^J'more';\r\n",
         "s := #10^M + mlLang1.GetText('IDS_0') + ^M^J + mlLang1.GetText('IDS_1');\r\n"},
        {"a.pas", "s := 'Line'#13#10'next'^M;\r\n",
         "s := mlLang1.GetText('IDS_0') + #13#10 + mlLang1.GetText('IDS_1') + ^M;\r\n"},
        {"a.cpp", "return\"ab\";\r\n", "return mlLang1->GetText(\"IDS_0\");\r\n"},
        {"a.pas", "s := 'it''s';\r\n", "s := mlLang1.GetText('IDS_0');\r\n"},
        {"a.pas", "s := '''\r\n  ab\r\n  ''';\r\n", "s := mlLang1.GetText('IDS_0');\r\n"},
        {"a.cpp", "f(L\"ab\" L\"cd\",\r\n  _T(\"ef\"));\r\n",
         "f(mlLang1->GetText(\"IDS_0\"),\r\n  mlLang1->GetText(\"IDS_1\"));\r\n"},
    };
    for (const TCase& row : cases) {
        TScanInput input = InputFor(row.FileName, row.Text);
        input.NoCommentsInSources = true;
        input.ReplaceMethod = "GetText(";
        EXPECT_EQ(Rewritten(input, Scan(input).Found), row.Expected);
    }
}

TEST(Rewrite, TakesWhatTheReviewMadeOfTheRows) {
    TScanInput input =
        InputFor("a.pas", "begin\r\n  s := 'ab'#13;\r\n  t := 'cd';\r\n  u := 'ef';\r\nend.\r\n");
    TmlFoundSourceStrings rows = Scan(input).Found;
    rows[0].Replacement = "PChar(mlLang1.GetTextC('OWN'))";
    rows[0].StrID = "OWN";
    rows[1].MarkedToIgnore = true;
    rows[2].MarkedToIgnore = true;
    const std::string text = Rewritten(input, rows);
    EXPECT_EQ(text,
              "begin\r\n  s := PChar(mlLang1.GetTextC('OWN')) + #13;\r\n{TML:IGNORE ON}\r\n  t := 'cd';\r\n"
              "  u := 'ef';\r\n{TML:IGNORE OFF}\r\nend.\r\n");
    input.Source = ReadSource(text, "a.pas");
    EXPECT_EQ(Dump(Scan(input)), "|");
}

TEST(Rewrite, KeepsTagLinesOutOfCommentsAndContinuedLines) {
    const TCase cases[] = {
        {"a.pas", "{ one\r\n 'ab'\r\n}\r\nx;\r\n",
         "{TML:IGNORE ON}\r\n{ one\r\n 'ab'\r\n}\r\n{TML:IGNORE OFF}\r\nx;\r\n"},
        {"a.cpp", "#define A \\\r\n  \"ab\" \\\r\n  x\r\ny;\r\n",
         "/*TML:IGNORE ON*/\r\n#define A \\\r\n  \"ab\" \\\r\n  x\r\n/*TML:IGNORE OFF*/\r\ny;\r\n"},
        {"a.cpp", "f(\"ab\"\r\n  \"cd\");\r\n",
         "/*TML:IGNORE ON*/\r\nf(\"ab\"\r\n  \"cd\");\r\n/*TML:IGNORE OFF*/\r\n"},
    };
    for (const TCase& row : cases) {
        TScanInput input = InputFor(row.FileName, row.Text);
        input.Common = nullptr;
        TmlFoundSourceStrings rows = Scan(input).Found;
        ASSERT_EQ(rows.Count(), 1) << row.Text;
        rows[0].MarkedToIgnore = true;
        EXPECT_EQ(Rewritten(input, rows), row.Expected);
    }
}

TEST(Rewrite, AMarkTakesBackTheTagThatLetsALineThrough) {
    const std::string tag = "{TML:TRANSLATE NEXT}\r\n";
    const std::string lines = "  s := 'ab';\r\n  t := 'cd';\r\n";
    const TScanInput input = InputFor("a.pas", "{TML:IGNORE ON}\r\n" + tag + lines + "{TML:IGNORE OFF}\r\n");
    TmlFoundSourceStrings rows = Scan(input).Found;
    ASSERT_EQ(rows.Count(), 1);
    rows[0].MarkedToIgnore = true;
    EXPECT_EQ(Rewritten(input, rows), "{TML:IGNORE ON}\r\n" + lines + "{TML:IGNORE OFF}\r\n");

    // A block around the line would end the one that it stands in.
    const std::size_t begin = input.Text().find("  s");
    const std::size_t end = input.Text().find("  t");
    const TEdits edits{{begin, begin, "{TML:IGNORE ON}\r\n"}, {end, end, "{TML:IGNORE OFF}\r\n"}};
    EXPECT_THROW(ProveRewrite(rows, input, edits), EBadInput);
    EXPECT_THROW(ProveRewrite(rows, input, {}), EBadInput);
}

TEST(Rewrite, ProofRefusesWhatWouldNotBeFound) {
    const TScanInput input = InputFor("unit1.pas", "x;\r\ns := 'ab' + 'cd';\r\n");
    const TmlFoundSourceStrings rows = Scan(input).Found;
    const auto expectRefused = [&](const TmlFoundSourceStrings& kept, const TEdits& edits, const char* why) {
        try {
            ProveRewrite(kept, input, edits);
            ADD_FAILURE() << why;
        } catch (const EBadInput& error) {
            EXPECT_EQ(error.File(), "unit1.pas") << why;
            EXPECT_EQ(error.Line(), 2) << why;
        }
    };
    TmlFoundSourceStrings changed = rows;
    changed[1].Replacement = "mlLang1.GetText('OTHER')";
    expectRefused(changed, Rewrite(changed, input), "another ID");
    changed = rows;
    changed[1].Replacement = "Load('IDS_1')";
    expectRefused(changed, Rewrite(changed, input), "no call on the component");
    changed = rows;
    changed[0].Replacement = "{" + rows[0].Replacement + "}";
    changed[1].Replacement = rows[1].Replacement + " + 'ef'";
    expectRefused(changed, Rewrite(changed, input), "a literal that would be found again");
    expectRefused(rows, {Rewrite(rows, input).front()}, "a row without its edit");
    EXPECT_NO_THROW(ProveRewrite(rows, input, Rewrite(rows, input)));
}

/// Rewrites everything that a real unit offers, and scans the outcome.
TEST(Rewrite, SecondScanOfRealUnitsFindsNothing) {
    namespace fs = std::filesystem;
    const fs::path folder = "/usr/share/fpcsrc";
    ASSERT_TRUE(fs::exists(folder)) << "the package fpc-source is missing";
    int units = 0;
    int strings = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".pp" || ++units % 20 != 0) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        std::string text;
        for (std::string line; std::getline(file, line);)
            text += line + (line.ends_with('\r') ? "\n" : "\r\n");
        if (!IsValidUtf8(text)) continue;
        TScanInput input = InputFor(entry.path().string(), text);
        input.WithAdvice = false;
        TmlFoundSourceStrings rows = Scan(input).Found;
        MergeDuplicates(rows);
        strings += rows.Count();
        input.Source = ReadSource(Rewritten(input, rows), entry.path().string());
        EXPECT_EQ(Scan(input).Found.Count(), 0) << entry.path();
    }
    EXPECT_GT(strings, 1000);
}

}  // namespace
}  // namespace tml
