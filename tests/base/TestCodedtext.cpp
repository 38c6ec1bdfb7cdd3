#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

TEST(Encodings, AreChosenByMarkThenUtf8ThenProjectThenDetector) {
    struct TRow {
        std::string Bytes, CodePage, Name;
    };
    const std::string russian =
        "\xcf\xf0\xe8\xe2\xe5\xf2, \xea\xe0\xea \xe4\xe5\xeb\xe0? \xdd\xf2\xee \xf0\xf3\xf1\xf1\xea\xe8\xe9 "
        "\xf2\xe5\xea\xf1\xf2 \xe2 \xf1\xf2\xe0\xf0\xee\xe9 \xea\xee\xe4\xe8\xf0\xee\xe2\xea\xe5.";
    const TRow rows[] = {
        {"plain", "1251", "UTF-8"},
        {"\xEF\xBB\xBFx", "1251", "UTF-8"},
        {std::string("\xFF\xFEx\0", 4), "", "UTF-16LE"},
        {std::string("\xFE\xFF\0x", 4), "", "UTF-16BE"},
        {"\xC3\xA4", "1251", "UTF-8"},
        {"\xE4", "1251", "windows-1251"},
        {"\x83\x5C", "932", "windows-932"},
        {"\xE4", "no such page", "windows-1252"},
        {russian, "", "windows-1251"},
        // A unit is mostly ASCII.
        {std::string(9000, 'x') + " '" + russian + "'", "", "windows-1251"},
        {"'\x80'", "", "windows-1252"},
        {"x; // \xFF\xFE", "", "windows-1252"},
    };
    for (const TRow& row : rows)
        EXPECT_EQ(DetectEncoding(row.Bytes, row.CodePage).Name, row.Name) << row.Bytes;
}

TEST(Codedtext, ReadsEveryEncodingAsUtf8WithOneKindOfLineEnd) {
    struct TRow {
        std::string Bytes, CodePage, Text;
    };
    const TRow rows[] = {
        {"", "", ""},
        {"a\nb\r\nc\rd", "", "a\r\nb\r\nc\rd"},
        {"\n\n\r\n\r\r\n\n", "", "\r\n\r\n\r\n\r\r\n\r\n"},
        {"\xEF\xBB\xBF\xC3\xA4\n", "", "ä\r\n"},
        {"\xEF\xBB\xBF\xC3\n", "", "\xEF\xBF\xBD\r\n"},
        {"\x83\x5C\n", "932", "ソ\r\n"},  // the second byte of the character is a back slash
        {"\xCF\n", "1251", "П\r\n"},
        {std::string("\xFF\xFE\x0A\x0D\x0A\0x\0", 8), "", "\xE0\xB4\x8A\r\nx"},  // U+0D0A is no line end
    };
    for (const TRow& row : rows) {
        const TCodedText text(row.Bytes, "Unit1.pas", row.CodePage);
        EXPECT_EQ(text.Text(), row.Text);
        EXPECT_EQ(TCodedText::TextOf(row.Bytes, row.CodePage), row.Text);
        EXPECT_EQ(text.Bytes(), row.Bytes);
    }
}

TEST(Codedtext, EditsWriteOnlyTheTouchedLinesAnew) {
    struct TRow {
        std::string Bytes, CodePage;
        TEdits Edits;
        std::string After;
    };
    const TRow rows[] = {
        {"a\nb\r\nc", "", {{3, 4, "B"}}, "a\nB\r\nc"},
        {"a\nb\r\nc", "", {{0, 0, "x\r\ny\r\n"}}, "x\ny\na\nb\r\nc"},
        {"a\r\nb\nc\n", "", {{3, 3, "x\r\n"}, {6, 6, "y\r\n"}}, "a\r\nx\nb\ny\nc\n"},
        {"a\nb\nc\n", "", {{3, 6, ""}}, "a\nc\n"},
        {"a\nb\nc\n", "", {{1, 3, ""}}, "ab\nc\n"},
        {"a", "", {{1, 1, "\r\nb"}}, "a\r\nb"},
        {"a\n", "", {{3, 3, "b\r\n"}}, "a\nb\n"},
        {"\xCF\n\xCF\n", "1251", {{0, 2, "р"}}, "\xF0\n\xCF\n"},
        {std::string("\xFF\xFE") + std::string("a\0\n\0b\0", 6),
         "",
         {{0, 1, "é"}},
         std::string("\xFF\xFE") + std::string("\xE9\0\n\0b\0", 6)},
    };
    for (const TRow& row : rows) {
        TCodedText text(row.Bytes, "Unit1.pas", row.CodePage);
        text.Check(row.Edits);
        const auto undo = text.Apply(row.Edits);
        EXPECT_EQ(text.Bytes(), row.After);
        const auto redo = text.Apply(undo);
        EXPECT_EQ(text.Bytes(), row.Bytes);
        text.Apply(redo);
        EXPECT_EQ(text.Bytes(), row.After);
    }
}

TEST(Codedtext, RefusesWhatTheFileCannotHold) {
    // The first line holds a byte pair that code page 932 does not know, the second is clean.
    TCodedText broken("'\x81\xFF' x\n'a'\n", "Unit1.pas", "932");
    EXPECT_THROW(broken.Check({{0, 1, "y"}}), EBadInput);
    EXPECT_NO_THROW(broken.Check({{0, 0, "{tag}\r\n"}}));
    const std::size_t second = broken.LineBegin(1);
    EXPECT_NO_THROW(broken.Check({{second, second + 1, "y"}}));
    try {
        broken.Check({{second, second, "Привет €"}});
        FAIL() << "the text does not fit code page 932";
    } catch (const EBadInput& error) {
        EXPECT_EQ(error.Line(), 2);
        EXPECT_EQ(error.File(), "Unit1.pas");
    }
    const auto undo = broken.Apply({{second, second + 1, "y"}});
    EXPECT_EQ(broken.Bytes(), "'\x81\xFF' x\nya'\n");
    broken.Apply(undo);
    EXPECT_EQ(broken.Bytes(), "'\x81\xFF' x\n'a'\n");
}

TEST(Codedtext, RandomEditsAndUndosAgreeWithThePlainText) {
    std::mt19937 random(20240501);
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    for (int round = 0; round < 300; ++round) {
        std::string bytes;
        for (std::size_t i = below(30); i > 0; --i)
            bytes += std::string(below(4), 'a') + (below(2) != 0 ? "\r\n" : "\n");
        TCodedText text(bytes + (below(2) != 0 ? "end" : ""), "Unit1.pas");
        const std::string before = text.Bytes();
        TEdits edits;
        for (std::size_t place = below(6); place < text.Text().size(); place += 1 + below(12)) {
            // Never between CR and LF: the editor takes a line end as one character.
            if (place > 0 && text.Text()[place] == '\n') ++place;
            std::size_t end = std::min(place + below(8), text.Text().size());
            if (end > 0 && end < text.Text().size() && text.Text()[end] == '\n') ++end;
            edits.push_back({place, end, std::string(below(3), 'b') + (below(3) == 0 ? "\r\n" : "")});
            place = end;
        }
        const std::string expected = ApplyEdits(text.Text(), edits);
        const auto undo = text.Apply(edits);
        EXPECT_EQ(text.Text(), expected);
        EXPECT_EQ(TCodedText(text.Bytes(), "").Text(), expected) << before;
        text.Apply(undo);
        EXPECT_EQ(text.Bytes(), before);
    }
}

}  // namespace
}  // namespace tml
