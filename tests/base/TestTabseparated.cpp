#include <gtest/gtest.h>

#include "base/Tabseparated.h"

namespace tml {
namespace {

struct TCellsCase {
    const char* Text;
    TCellRows Rows;
    const char* Written;
};

TEST(Tabseparated, ReadsAndWritesAsSpreadsheetsDo) {
    const TCellsCase cases[] = {
        {"", {}, ""},
        {"a", {{"a"}}, "a"},
        {"a\r\n", {{"a"}}, "a"},
        {"a\tb\r\nc\t\r\n", {{"a", "b"}, {"c", ""}}, "a\tb\r\nc\t\r\n"},
        {"a\n\nb", {{"a"}, {""}, {"b"}}, "a\r\n\r\nb\r\n"},
        {"a\rb", {{"a"}, {"b"}}, "a\r\nb\r\n"},
        {"\"a\tb\"\t\"c\r\nd\"\r\n", {{"a\tb", "c\r\nd"}}, "\"a\tb\"\t\"c\r\nd\"\r\n"},
        {"\"say \"\"hi\"\"\"", {{"say \"hi\""}}, "\"say \"\"hi\"\"\""},
        {"5\" disk\tx", {{"5\" disk", "x"}}, "\"5\"\" disk\"\tx\r\n"},
        {"\"open\tx", {{"\"open", "x"}}, "\"\"\"open\"\tx\r\n"},
        {"\"a\"b\t\"", {{"\"a\"b", "\""}}, "\"\"\"a\"\"b\"\t\"\"\"\"\r\n"},
    };
    for (const TCellsCase& one : cases) {
        EXPECT_EQ(ReadTabSeparated(one.Text), one.Rows) << one.Text;
        EXPECT_EQ(WriteTabSeparated(one.Rows), one.Written) << one.Text;
        EXPECT_EQ(ReadTabSeparated(one.Written), one.Rows) << one.Text;
    }
}

}  // namespace
}  // namespace tml
