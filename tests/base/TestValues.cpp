#include <ctime>
#include <gtest/gtest.h>

#include "base/Clock.h"
#include "base/Edits.h"
#include "base/Errors.h"
#include "base/Format.h"
#include "base/Stringlist.h"
#include "base/Utf8.h"

namespace tml {
namespace {

TEST(Utf8, CaseMappingKeepsEveryPlace) {
    struct TRow {
        std::string Text, Upper;
    };
    const TRow rows[] = {
        {"abcÄöß", "ABCÄÖß"},  // a sharp s has no single capital of its length
        {"привет", "ПРИВЕТ"},
        {"\xFF"
         "a",
         "\xFF"
         "A"},
        {"ıx", "ıX"},  // a dotless i would shrink
        {"@az[`{ a long text, größer als ein Block", "@AZ[`{ A LONG TEXT, GRÖßER ALS EIN BLOCK"},
    };
    for (const TRow& row : rows) {
        EXPECT_EQ(UpperCase(row.Text), row.Upper);
        EXPECT_EQ(UpperCase(row.Text).size(), row.Text.size());
        EXPECT_TRUE(SameText(row.Text, row.Upper));
    }
    EXPECT_LT(CompareText("abc", "ABD"), 0);
    EXPECT_GT(CompareText("b", "A"), 0);
}

TEST(Utf8, TellsWellFormedFromBroken) {
    const std::string broken[] = {"\x80", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\xF8"};
    for (const std::string& text : broken)
        EXPECT_FALSE(IsValidUtf8("a" + text));
    EXPECT_TRUE(IsValidUtf8("a\xF0\x9F\x98\x80"));
    EXPECT_EQ(CountCodePoints("aä😀"), 3U);
    EXPECT_EQ(LeftCodePoints("aä😀", 2), "aä");
}

TEST(Utf8, IntegersAreStrict) {
    EXPECT_EQ(ToInteger("-12"), -12);
    for (const char* text : {"", " 1", "1 ", "1x", "99999999999", "+-1", "--1"})
        EXPECT_THROW(ToInteger(text), EConvertError) << text;
}

TEST(Stringlist, TextAndCommaTextKeepTheirRules) {
    EXPECT_EQ(TStringList::FromText("a\r\nb\n\rc").Items(), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(TStringList::FromText("a\r\n").Text(), "a\r\n");
    struct TRow {
        std::string CommaText;
        std::vector<std::string> Items;
    };
    const TRow rows[] = {
        {"", {}},
        {"English, German", {"English", "German"}},
        {"Chinese (PRC),German", {"Chinese (PRC)", "German"}},  // never split at a blank
        {"\"a,\"\"b\",c", {"a,\"b", "c"}},
        {"a,,b,", {"a", "", "b", ""}},
    };
    for (const TRow& row : rows) {
        const TStringList list = TStringList::FromCommaText(row.CommaText);
        EXPECT_EQ(list.Items(), row.Items) << row.CommaText;
        EXPECT_EQ(TStringList::FromCommaText(list.CommaText()), list);
    }
    EXPECT_EQ(TStringList({"a", "Ä"}).IndexOf("ä"), 1);
}

TEST(Format, PutsArgumentsInTheirPlaces) {
    EXPECT_EQ(Format("%s: %d of %d, 100%%", "a%s", 1, 2), "a%s: 1 of 2, 100%");
    EXPECT_THROW(Format("%s"), std::logic_error);
    EXPECT_THROW(Format("x", 1), std::logic_error);
}

TEST(Edits, TurnBack) {
    const std::string text = "one two three";
    const TEdits edits = {{0, 3, ""}, {4, 4, "x"}, {4, 7, "longer"}, {13, 13, "!"}};
    const std::string changed = ApplyEdits(text, edits);
    EXPECT_EQ(changed, " xlonger three!");
    EXPECT_EQ(ApplyEdits(changed, InverseEdits(text, edits)), text);
    EXPECT_THROW(ApplyEdits("ab", {{1, 3, ""}}), std::logic_error);
    EXPECT_THROW(ApplyEdits("ab", {{1, 2, ""}, {0, 1, ""}}), std::logic_error);
}

TEST(Edits, MoveOverOthers) {
    struct TRow {
        TEdits Edits;
        TEdits Done;
        const char* Text;  // nullptr where both change the same
    };
    const TRow rows[] = {
        {{{0, 3, "1"}, {4, 7, "2"}}, {{3, 4, " and "}}, "1 and 2"},
        {{{0, 3, "1"}}, {{4, 7, ""}}, "1 "},
        {{{3, 3, "b"}}, {{3, 3, "a"}}, "oneab two"},
        {{{3, 4, "-"}}, {{3, 3, "a"}, {4, 4, "b"}}, "onea-btwo"},
        {{{4, 4, "x"}, {7, 7, "y"}}, {{4, 7, "2"}}, "one x2y"},
        {{{5, 5, "x"}}, {{4, 7, "2"}}, nullptr},
        {{{0, 4, "x"}}, {{3, 3, "a"}}, nullptr},
        {{{4, 6, "x"}}, {{0, 1, ""}, {2, 5, ""}}, nullptr},
    };
    for (const TRow& row : rows) {
        const std::optional<TEdits> moved = MovedOver(row.Edits, row.Done);
        ASSERT_EQ(moved.has_value(), row.Text != nullptr);
        if (!moved) continue;
        EXPECT_EQ(ApplyEdits(ApplyEdits("one two", row.Done), *moved), row.Text);
    }
}

TEST(Errors, NameFileLineProblemAndRemedy) {
    EXPECT_STREQ(EBadInput("U.pas", 3, "no end", "Add one").what(), "U.pas:3: no end. Add one");
    EXPECT_STREQ(EBadInput("", 0, "no end").what(), "no end");
}

TEST(Clock, ShowsTheLocalTime) {
    const std::time_t seconds = std::time(nullptr);
    std::tm local = *std::localtime(&seconds);
    const TDateTime now = MakeSystemClock()->Now();
    const TDateTime before{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                           local.tm_hour,        local.tm_min,     local.tm_sec};
    EXPECT_LE(before, now);
    local.tm_min += 5;
    std::mktime(&local);
    EXPECT_LT(now, (TDateTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                              local.tm_min, local.tm_sec}));
}

}  // namespace
}  // namespace tml
