#include <gtest/gtest.h>

#include "support/Growth.h"
#include "support/Sampleproject.h"
#include "tables/Fieldcodec.h"
#include "tables/Table.h"

namespace tml {
namespace {

TEST(Fields, EveryTextSurvivesEveryDelimiterAndTheRawLineSplits) {
    const std::vector<std::string> fields = {"",
                                             "plain",
                                             "it's \"x\"",
                                             "a\r\nb\nc",
                                             "\x01\x02\x03",
                                             "drnDRN;,",
                                             "\xD0\x96\xE6\x97\xA5",
                                             "\x02"
                                             "d"};
    for (const std::string delimiter : {"\x01", "\x02", ";", "d", "\xC2\xA7"}) {
        const std::string line = JoinFields({fields.begin(), fields.end()}, delimiter);
        EXPECT_EQ(SplitFields(line, delimiter), fields) << delimiter;
        EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
        std::size_t delimiters = 0;
        for (std::size_t pos = 0; (pos = line.find(delimiter, pos)) != std::string::npos; ++pos)
            ++delimiters;
        EXPECT_EQ(delimiters, fields.size() - 1) << delimiter;
    }
    EXPECT_EQ(JoinFields({"IDS_0", "C:\\new", ""}, "|"), "IDS_0|C:\\new|");
}

TEST(Kinds, StandInTheirOrder) {
    EXPECT_EQ(kTableKinds.size(), 12U);
    for (std::size_t i = 0; i < kTableKinds.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(kTableKinds[i].Type), i);
        EXPECT_EQ(kTableKinds[i].Name, "st" + std::string(kTableKinds[i].Property));
    }
    EXPECT_EQ(KindOf(TStringsType::stListView_TreeView_Items).Property, "ListView_TreeView_Items");
}

// Odd on purpose: no value, too many, an unknown escape, a key that stands twice, an empty line.
const TStringList kLines({"A.Caption|one|eins", "odd", "more|1|2|3|4", "esc|\x02q|\x02", "A.Caption|x", ""});

TEST(Table, WhatNobodyChangesIsWrittenBackByteForByte) {
    TTable table(TStringsType::stCaptions, kLines, "|");
    EXPECT_EQ(table.Lines("|"), kLines);
    EXPECT_EQ(table.Find("A.Caption"), 0);
    EXPECT_EQ(table.Find("a.caption"), -1) << "only IDs are compared without case";
    EXPECT_EQ(table.Find("odd"), 1);
    EXPECT_EQ(table.Entries()[1].Base(), "");
    EXPECT_EQ(table.Lines(";")[2], "more;1;2;3;4") << "another component's delimiter";

    table.Rename([](const std::string& key) { return key == "odd" ? "even" : key; });
    EXPECT_EQ(table.Find("odd") + table.Find("even"), 0);
    EXPECT_FALSE(table.Add("even", "x", 2));
    EXPECT_TRUE(table.Add("new", "x|y", 2));
    TStringList changed = kLines;
    changed.Set(1, "even");
    changed.Add(
        "new|x\x02"
        "dy|x\x02"
        "dy");
    EXPECT_EQ(table.Lines("|"), changed);
}

TEST(Table, IDsOfStringsAreComparedWithoutCase) {
    TTable table(TStringsType::stStrings, TStringList({"IDS_0|a", "ids_0|b"}), "|");
    EXPECT_EQ(table.Find("Ids_0"), 0);
    EXPECT_FALSE(table.Add("ids_0", "c", 1));
    EXPECT_EQ(table.Lines("|").Count(), 2);
}

struct TMoveCase {
    std::vector<int> Former;
    const char* Line;
    const char* Moved;
};

TEST(Table, ValuesMoveWithTheirLanguages) {
    const TMoveCase cases[] = {
        {{1, 2, 3}, "k|a|b|c", "k|a|b|c"},
        {{1, 3}, "k|a|b|c", "k|a|c"},
        {{2, 1, 3}, "k|a|b|c", "k|b|a|c"},
        {{1, 0, 2}, "k|a|b", "k|a|a|b"},
        {{1, 2, 3}, "k|a", "k|a|a|a"},
        {{3, 1}, "k|a", "k|a|a"},
        {{1, 2}, "k", "k||"},
        {{0, 1, 2}, "k|a|b", "k|a|a|b"},
        {{2, 1}, "k|a|", "k|a|a"},
        {{3, 0}, "k|a|b|", "k|a|a"},
        {{2, 1}, "k||", "k||"},
    };
    for (const TMoveCase& row : cases) {
        TTable table(TStringsType::stHints, TStringList({row.Line}), "|");
        table.MoveLanguages(row.Former);
        EXPECT_EQ(table.Lines("|")[0], row.Moved) << row.Line;
    }
}

TEST(Table, ReadingAndWritingBackGrowsWithItsSize) {
    ExpectLinearGrowth(5000, [](int count) {
        TSampleIde ide;
        const auto lang = ide.Runtime->AsCustomLang(ide.Component("mlLang1"));
        TTable table(TStringsType::stStrings);
        for (int i = 0; i < count; ++i)
            table.Add("IDS_" + std::to_string(i), "A text of some length", 2);
        lang->SetTable(table);
        return lang->GetTable(TStringsType::stStrings).Find("ids_" + std::to_string(count - 1)) == count - 1;
    });
}

}  // namespace
}  // namespace tml
