#include <gtest/gtest.h>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "scan/Duplicates.h"
#include "scan/Lines.h"
#include "scan/Scansupport.h"

namespace tml {
namespace {

struct TCase {
    const char* Text;
    const char* Expected;
};

void ExpectScans(const std::string& fileName, std::initializer_list<TCase> cases, bool withLibrary = true) {
    for (const TCase& row : cases) {
        TScanInput input = InputFor(fileName, row.Text);
        if (!withLibrary) input.Common = nullptr;
        const TScanResult result = Scan(input);
        EXPECT_EQ(Dump(result), row.Expected) << row.Text;
        const TStringCounts counts = CountStrings(input);
        EXPECT_EQ(counts.Found, result.Found.Count()) << row.Text;
        EXPECT_EQ(counts.Skipped, static_cast<int>(result.Skipped.size())) << row.Text;
    }
}

TEST(Scan, FindsLiteralsLineByLine) {
    ExpectScans("a.pas", {{"x := 1; // 'abc'\r\n", "|"},
                          {"s := 'ab'; // b\r\n", "IDS_0=ab |"},
                          {"s := 'ab'; // 'cd'\r\n", "IDS_0=ab | ssrComments:cd"},
                          {"{ it's } s := 'ab';\r\n", "IDS_0=ab |"},
                          {"s := 'ab' + 'cd' + 'e' + '';\r\n", "IDS_0=ab IDS_1=cd |"},
                          {"s := 'not ended by a line break'", "|"},
                          {"s := '...'; t := '--';\r\n", "| ssrBadChars:... ssrBadChars:--"},
                          {"s := 'it''s';\r\n", "IDS_0=it's |"},
                          {"", "|"}});
    ExpectScans("a.cpp", {{"s = \"ab\"; c = 'x'; // \"cd\"\r\n", "IDS_0=ab | ssrComments:cd"},
                          {"s = \"http://x\";\r\n", "IDS_0=http://x |"},
                          {"c = '\"'; s = \"ab\";\r\n", "IDS_0=ab |"}});
}

TEST(Scan, WithoutLibraryOffersComments) {
    ExpectScans("a.pas", {{"{ 'ab' } s := 'cd'; (* 'e' 'ok' *)\r\n", "IDS_0=ab IDS_1=cd IDS_2=ok |"}}, false);
}

TEST(Scan, ObeysTags) {
    ExpectScans("a.pas",
                {{"  {tml:ignore on} \r\ns := 'ab';\r\n{TML:IGNORE OFF}\r\ns := 'cd';\r\n", "IDS_0=cd |"},
                 {"x := 1; {TML:IGNORE ON}\r\ns := 'ab';\r\n", "IDS_0=ab |"},
                 {"s := 'ab'; {tml:Ignore}\r\n", "| ssByIgnoreTag:s := 'ab'; {tml:Ignore}"},
                 {"{TML:IGNORE ON} s := 'ab';\r\n", "| ssByIgnoreTag:{TML:IGNORE ON} s := 'ab';"},
                 {"{tml:ignore on} s := 'ab';\r\n", "IDS_0=ab |"},
                 {"{TML:IGNORE NEXT}\r\ns := 'ab';\r\ns := 'cd';\r\n", "IDS_0=cd |"},
                 {"{TML:IGNORE ON}\r\n{TML:TRANSLATE NEXT}\r\ns := 'ab';\r\ns := 'cd';\r\n", "IDS_0=ab |"},
                 {"{TML:IGNORE NEXT}\r\n{TML:IGNORE ON}\r\ns := 'ab';\r\n", "IDS_0=ab |"}});
    ExpectScans("a.h",
                {{"/*TML:IGNORE ON*/\r\ns = \"ab\";\r\n/*TML:IGNORE OFF*/\r\ns = \"cd\";\r\n", "IDS_0=cd |"},
                 {"/*TML:IGNORE NEXT*/\r\ns = \"ab\";\r\ns = \"cd\"; /*TML:IGNORE*/\r\n",
                  "| ssByIgnoreTag:s = \"cd\"; /*TML:IGNORE*/"}});
}

TEST(Scan, LiteralsOverSeveralLinesStandOrFallAsOne) {
    ExpectScans("a.cpp",
                {{"s = \"ab\"\r\n  \"cd\";\r\nt = \"ef\";\r\n", "IDS_0=abcd IDS_1=ef |"},
                 {"s = \"ab\"\r\n  \"cd\"; /*TML:IGNORE*/\r\n", "| ssByIgnoreTag:  \"cd\"; /*TML:IGNORE*/"},
                 {"s = \"ab\"\r\n/*TML:IGNORE NEXT*/\r\n  \"cd\";\r\n", "|"}});
    ExpectScans("a.pas", {{"s := '''\r\n  ab\r\n  cd\r\n  ''';\r\n", "IDS_0=ab\r\ncd |"}});
}

TEST(Scan, AppliesTheSettingsInOrder) {
    const std::string text = "s := 'ok'; t := 'a1'; u := 'ab'; { 'OK' 'x1' }\r\nLog('cd');\r\n";
    TScanInput input = InputFor("a.pas", text);
    input.Skip.SkipWords = TStringList({"OK", "[a-z]1", "("});
    input.Skip.SkipLines = TStringList({"", "log("});
    input.Skip.UseRegExpForSkip = true;
    EXPECT_EQ(
        Dump(Scan(input)),
        "IDS_0=ab | ssrByPhrase:ok ssrByPhrasesRE:a1 ssrByPhrase:OK ssrComments:x1 ssrByLine:Log('cd');");
    EXPECT_EQ(SkipReasonText(ssrComments), "The string is found in source comments.");
    input.Common = nullptr;
    EXPECT_EQ(Dump(Scan(input)),
              "IDS_0=a1 IDS_1=ab IDS_2=x1 | ssrByPhrase:ok ssrByPhrase:OK ssrByLine:Log('cd');");
    TScanInput joined = InputFor("a.cpp", "s = \"ab\"\r\n  // log(\r\n  \"cd\";\r\n");
    joined.Skip.SkipLines = input.Skip.SkipLines;
    EXPECT_EQ(Dump(Scan(joined)), "| ssrByLine:  // log(");
    EXPECT_EQ(Scan(joined).Skipped.front().Position, static_cast<int>(joined.Text().find("  //") + 1));
    input.Skip.IgnorableLength = 2;
    EXPECT_EQ(Dump(Scan(input)), "| ssrByLine:Log('cd');");
    input = InputFor("a.pas", "s := '' + 'x' + '–';\r\n");
    input.Skip.IgnorableLength = 0;
    input.Skip.ExcludeChars = "–";
    EXPECT_EQ(Dump(Scan(input)), "IDS_0=x | ssrBadChars:–");
    input.Skip.IgnorableLength = -1;
    EXPECT_EQ(Dump(Scan(input)), "IDS_0=x | ssrBadChars: ssrBadChars:–");
}

TEST(Scan, PassesOverCallsThatAreThere) {
    ExpectScans(
        "a.pas",
        {{"s := mlLang1.GetText('IDS_0' (* 'Old' *) ) + 'ab';\r\n", "IDS_0=ab |"},
         {"s := SELF.mllang1.gettextordefault ( 'X', 'Text' + F('y(')) + 'ab';\r\n", "IDS_0=ab |"},
         {"s := Form1.mlLang1.GetTextW('XX') + Form2.mlLang1.GetText('ab');\r\n", "IDS_0=ab |"},
         {"s := mlLang2.GetText('ab') + mlLang1.GetTexts('cd');\r\n", "IDS_0=ab IDS_1=cd |"},
         {"s := mlLang1.GetText(\r\n  'XX',\r\n  'Text') + 'ab';\r\n", "IDS_0=ab |"},
         {"// mlLang1.GetText('XX' \r\ns := 'ab';\r\n", "IDS_0=ab |"},
         {"s := mlLang1.GetText('X' { mlLang1.GetText( }\r\n;\r\ns := 'ab';\r\n", "IDS_0=ab |"},
         {"s := 'mlLang1.GetText(' + 'ab';\r\n", "IDS_0=mlLang1.GetText( IDS_1=ab |"},
         {"{ it's mlLang1.GetText('X') } s := 'ab';\r\n", "IDS_0=ab | ssrComments:s mlLang1.GetText("}});
    ExpectScans("a.cpp", {{"s = mlLang1->GetText(\"XX\" /* \"Old\" */ ) + F('(', \"ab\");\r\n", "IDS_0=ab |"},
                          {"s = this->mlLang1->GetTextC(\"XX\" \"YY\");\r\n", "|"}});
    TScanInput input =
        InputFor("a.pas",
                 "s := FORM2 . mlLang9.GetText('X' (* 'no' *) ) + Form1.mlLang1.GetText('X1');\r\n"
                 "s := mlLang9.GetText('ab') + Form1.mlLang9.GetText('cd');\r\n");
    input.Others = [](std::string_view form, std::string_view component) {
        return SameText(form, "Form2") && SameText(component, "mlLang9");
    };
    EXPECT_EQ(Dump(Scan(input)), "IDS_0=ab IDS_1=cd |");
    input.Component = {};
    EXPECT_EQ(Dump(Scan(input)), "IDS_0=X1 IDS_1=ab IDS_2=cd |");
}

TEST(Scan, DescribesWhatItFinds) {
    TScanInput input = InputFor("a.cpp", "int x;\r\ns = L\"a\\\"b\";\r\nreturn \"cd\";\r\n");
    input.Existing = Strings({{"ids_0", "x"}, {"IDS_2", "y"}});
    input.WithAdvice = false;
    const TScanResult result = Scan(input);
    ASSERT_EQ(result.Found.Count(), 2);
    const TmlFoundSourceString& first = result.Found[0];
    EXPECT_EQ(first.StrID + " " + result.Found[1].StrID, "IDS_1 IDS_3");
    EXPECT_EQ(first.Position, 14);
    EXPECT_EQ(first.Line, 1);
    EXPECT_EQ(first.SpanBegin, 13);
    EXPECT_EQ(first.SpanEnd, 20);
    EXPECT_EQ(first.SpanLength, 7);
    EXPECT_TRUE(first.EscapeDelimiter);
    EXPECT_FALSE(result.Found[1].EscapeDelimiter);
    EXPECT_EQ(first.Replacement, R"(mlLang1->GetTextOrDefault("IDS_1" /* "a\"b" */ ))");
}

TEST(Scan, CoversTheSelectionOnly) {
    const std::string text =
        "{TML:IGNORE ON}\r\na := 'ab';\r\n{TML:IGNORE OFF}\r\nb := 'cd'; c := 'ef';\r\nd := 'gh';\r\n";
    TScanInput input = InputFor("a.pas", text);
    const auto scan = [&](const char* from, const char* to) {
        input.Selection = TTextRange{text.find(from), text.find(to)};
        return Dump(Scan(input));
    };
    EXPECT_EQ(scan("a :=", "{TML:IGNORE OFF"), "|") << "a block that opened before is still open";
    EXPECT_EQ(scan("; c", "d :="), "IDS_0=ef |");
    EXPECT_EQ(scan("b :=", "'gh"), "IDS_0=cd IDS_1=ef |") << "the last line is cut";
    input.Selection = TTextRange{text.find("b :="), text.size() + 100};
    EXPECT_EQ(Scan(input).Found[0].Position, static_cast<int>(text.find("'cd'") + 1));
}

/// Openers without an end, and much on one line, must not be searched again and again.
TEST(Scan, TakesTimeThatGrowsWithTheText) {
    constexpr int kTimes = 100'000;
    const struct {
        const char* FileName;
        const char* Begin;
        const char* Repeated;
        int Found;
    } cases[] = {
        {"a.pas", "", "x := '''\r\n", 0}, {"a.cpp", "", "x = R\"a(;)\r\n", 0},
        {"a.cpp", "x =", " R\"a(\"", 1},  {"a.cpp", "", "#x \"ab\" \\\r\n", kTimes},
        {"a.cpp", "\"ab\" ", "# ", 1},    {"a.pas", "'ab'", " mlLang1.GetText(", 1},
    };
    for (const auto& row : cases) {
        std::string text = row.Begin;
        for (int i = 0; i < kTimes; ++i)
            text += row.Repeated;
        EXPECT_EQ(Scan(InputFor(row.FileName, text + "\r\n")).Found.Count(), row.Found) << row.Repeated;
    }
}

TEST(Scan, ReportsProgressAndStops) {
    TScanInput input = InputFor("a.pas", "s := 'ab' + 'cd' + 'ef';\r\n");
    int last = 0;
    input.Progress = [&](int found) {
        last = found;
        return found < 2;
    };
    EXPECT_THROW(Scan(input), EmlLangSilent);
    EXPECT_EQ(last, 2);
}

TEST(Rows, OneTextGetsOneID) {
    TScanInput input = InputFor("a.pas", "s := 'ab' + 'cd' + 'ab' + 'AB' + 'cd';\r\n");
    input.Existing = Strings({{"OLD", "cd"}, {"X", "none"}, {"NEWER", "cd"}});
    TmlFoundSourceStrings found = Scan(input).Found;
    VerifyAgainstExisting(found, input.Existing, CallStyleOf(input));
    MergeDuplicates(found);
    std::string ids;
    for (const TmlFoundSourceString& row : found)
        ids += row.StrID + " ";
    EXPECT_EQ(ids, "IDS_0 NEWER IDS_0 IDS_3 NEWER ");
    EXPECT_EQ(found[4].Replacement, "mlLang1.GetTextOrDefault('NEWER' (* 'cd' *) )");
}

/// Takes what it is asked about at one place for a comment.
struct TOddLibrary : ICommonLibrary {
    int Comment = 0;
    std::string Asked;

    bool HasClassifier() const override { return true; }
    bool HasMatcher() const override { return false; }
    void InitInternalPasSource(const std::string& text) override { Asked += text.substr(0, 4); }
    bool IsCommentAt(int line, int offset, bool isCpp) override {
        Asked += " " + std::to_string(line) + ":" + std::to_string(offset) + (isCpp ? "c" : "");
        return offset == Comment;
    }
    bool mlREStringMatches(const std::string&, const std::string&) override { return false; }
};

TEST(Scan, AsksTheLibraryAboutEveryLiteral) {
    TOddLibrary library;
    library.Comment = 8;
    TScanInput input = InputFor("a.pas", "'ab' + 'cd' {'ef'};\r\nf('ok', 'ij');\r\n");
    input.Common = &library;
    input.Skip.SkipWords.Add("OK");
    EXPECT_EQ(Dump(Scan(input)), "IDS_0=ab IDS_1=ef IDS_2=ij | ssrComments:cd ssrByPhrase:ok");
    EXPECT_EQ(library.Asked, "'ab' 0:8 0:14 0:30");
}

TEST(Replacement, FollowsTheStyle) {
    TCallStyle style;
    style.Reference = "mlLang1";
    const auto call = [&](const char* text) { return ReplacementText(style, "IDS_0", text); };
    EXPECT_EQ(call("Hello"), "mlLang1.GetTextOrDefault('IDS_0' (* 'Hello' *) )");
    EXPECT_EQ(call("it's **)) *)x"), "mlLang1.GetTextOrDefault('IDS_0' (* 'it''s  x' *) )");
    style.Encoding = "windows-1252";
    EXPECT_EQ(call("é"), "mlLang1.GetTextOrDefault('IDS_0' (* 'é' *) )");
    EXPECT_EQ(call("Ж"), "mlLang1.GetTextOrDefault('IDS_0')");
    style.CommentsLength = 5;
    EXPECT_EQ(call("Hello world"), "mlLang1.GetTextOrDefault('IDS_0' (* 'Hello...' *) )");
    EXPECT_EQ(call("äöüß' x"), "mlLang1.GetTextOrDefault('IDS_0' (* 'äöüß''...' *) )");
    style.NoCommentsInSources = true;
    style.ReplaceMethod = "GetTextC(";
    style.Reference = TComponentReference{"Form1", "mlLang1", true, ""}.Text(kCpp);
    style.Language = &kCpp;
    EXPECT_EQ(ReplacementText(style, "IDS_0", "x", true), "Form1->mlLang1->GetTextC(\"IDS_0\");");
}

TEST(Lines, AreCountedAndCut) {
    EXPECT_EQ(GetLineByPos("a\r\nb", 4), 2);
    EXPECT_EQ(GetLineByPos("a\r\nb", 1), 1);
    const std::string text = "1\r\n2\r\n3\r\n4\r\n5";
    const TSourcePreview middle = GetCurrentSourcePreview(text, 3, 0, 1);
    EXPECT_EQ(middle.Text, "2\r\n3\r\n4\r\n");
    EXPECT_EQ(middle.Index, 1);
    EXPECT_EQ(GetCurrentSourcePreview(text, 0, 1, 1).Index, 0);
    EXPECT_EQ(GetCurrentSourcePreview(text, 0, text.size(), 1).Text, "4\r\n5");
    EXPECT_TRUE(IsStringTerminated("'a';", kPascal));
    EXPECT_TRUE(IsStringTerminated("'a'; (* ; *)", kPascal));
    EXPECT_FALSE(IsStringTerminated("'a' (* ; *)", kPascal));
    EXPECT_FALSE(IsStringTerminated("'a;' +", kPascal));
}

}  // namespace
}  // namespace tml
