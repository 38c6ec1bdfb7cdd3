#include <gtest/gtest.h>

#include "base/Encodings.h"
#include "base/Errors.h"
#include "base/Utf8.h"
#include "tables/Accelerators.h"
#include "tables/Dictionaryfill.h"
#include "tables/Dictionarylearning.h"
#include "tables/Dictionarysteps.h"
#include "tables/Dixfile.h"
#include "tables/States.h"

namespace tml {
namespace {

TDictionary DictionaryOf(const std::vector<std::vector<std::string>>& entries) {
    TDictionary dictionary;
    dictionary.Languages = TStringList({"English", "German"});
    for (const auto& texts : entries)
        dictionary.Entries.push_back({texts});
    return dictionary;
}

/// The texts of all entries, as "a=b; c=d".
std::string TextsOf(const TDictionary& dictionary) {
    std::string texts;
    for (const TDictionaryEntry& entry : dictionary.Entries)
        texts += (texts.empty() ? "" : "; ") + entry.Text(0) + "=" + entry.Text(1);
    return texts;
}

// --- the file

constexpr const char* kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DICTIONARY VERSION=\"1\">\n<HEAD>\n"
    "<LANGUAGE>English</LANGUAGE>\n<LANGUAGE>German</LANGUAGE>\n</HEAD>\n";

TEST(Dixfile, AnyTextSurvives) {
    TDictionary dictionary = DictionaryOf({{"", "nur"}, {}, {" \t ", "\r\n\n\r"}});
    dictionary.Languages.Add("R&D <\"x\">");
    std::string all;
    for (const char32_t c : {0, 1, 9, 10, 13, 31, 34, 38, 60, 62, 93, 127, 0xE4, 0x5D0, 0x65E5, 0xFFFE,
                             0xFFFF, 0x1F600, 0x10FFFF})
        AppendCodePoint(all, c);
    for (const std::string& text : {all, std::string("]]>"), std::string("&amp;"), std::string("<TEXT>")})
        dictionary.Entries.push_back({{text, "x", text}});
    for (const char* lineEnd : {"\n", "\r\n"}) {
        dictionary.LineEnd = lineEnd;
        EXPECT_EQ(ReadDix(WriteDix(dictionary, "a.dix"), "a.dix"), dictionary);
    }
}

TEST(Dixfile, WhatIsNotKnownStays) {
    const std::string bytes =
        std::string(kHead).replace(std::string(kHead).find("</HEAD>"), 0, "<NOTE>n</NOTE>\n") +
        "<!-- first -->\n<ENTRY>\n<TEXT LANGUAGE=\"English\">a</TEXT>\n"
        "<NOTE AUTHOR=\"me\">b &amp; c</NOTE>\n</ENTRY>\n<OTHER/>\n</DICTIONARY>\n";
    EXPECT_EQ(WriteDix(ReadDix(bytes, "a.dix"), "a.dix"), bytes);
}

TEST(Dixfile, OneEntryMoreIsOneEntryMoreInTheFile) {
    TDictionary dictionary = DictionaryOf({{"z", "Z"}, {"b", "B"}, {"b", "BB"}});
    const std::string before = WriteDix(dictionary, "a.dix");
    dictionary.Merge({{{"c", "C"}}, {{"a", "A"}}});
    EXPECT_EQ(TextsOf(dictionary), "a=A; c=C; z=Z; b=B; b=BB");
    std::string after = WriteDix(dictionary, "a.dix");
    const std::size_t begin = after.find("<ENTRY>");
    EXPECT_EQ(after.erase(begin, after.find(">z<") - 24 - begin - 8), before);
}

TEST(Dixfile, SaysWhatIsWrongAndWhere) {
    const std::string head = kHead;
    const auto entry = [&](const std::string& inside) {
        return head + "<ENTRY>\n" + inside + "\n</ENTRY>\n</DICTIONARY>\n";
    };
    const struct {
        std::string Bytes;
        int Line;
        const char* Problem;
    } cases[] = {
        {"", 1, "no valid XML"},
        {"object Form1: TForm1", 1, "no valid XML"},
        {std::string("TPF0\0\x05", 6), 1, "the file is binary"},
        {"<DICTIONARY VERSION=\"1\">\n\xE4", 2, "not in UTF-8"},
        {std::string("\xFF\xFE<\0\n\0\0\xDC", 8), 2, "not in UTF-16LE"},
        {"<Project/>", 1, "the root element is not \"DICTIONARY\""},
        {"<!DOCTYPE a>\n<DICTIONARY VERSION=\"1\"/>", 2, "no document type"},
        {"\n<DICTIONARY/>", 2, "names no version"},
        {"<DICTIONARY VERSION=\"1x\"/>", 1, "names no version"},
        {"<DICTIONARY VERSION=\"1\"/>", 1, "no head"},
        {"<DICTIONARY VERSION=\"1\">\n<HEAD/></DICTIONARY>", 2, "names no language"},
        {"<DICTIONARY VERSION=\"1\"><HEAD>\n<LANGUAGE/></HEAD></DICTIONARY>", 2, "without a name"},
        {"<DICTIONARY "
         "VERSION=\"1\"><HEAD>\n<LANGUAGE>a</LANGUAGE>\n<LANGUAGE>A</LANGUAGE></HEAD></DICTIONARY>",
         3, "language A stands twice"},
        {head + "<HEAD/></DICTIONARY>", 7, "two heads"},
        {head + "\n<ENTRY>", 8, "no valid XML"},
        {entry("<TEXT LANGUAGE=\"Dutch\">a</TEXT>"), 8, "names no language \"Dutch\""},
        {entry("<TEXT>a</TEXT>"), 8, "names no language \"\""},
        {entry("<TEXT LANGUAGE=\"german\">a</TEXT>\n<TEXT LANGUAGE=\"German\">a</TEXT>"), 9,
         "two texts in German"},
        {entry("\n<TEXT LANGUAGE=\"German\"><b>a</b></TEXT>"), 9, "a text holds only"},
        {entry("\n<TEXT LANGUAGE=\"German\"><CHAR CODE=\"65\"/></TEXT>"), 9, "a text holds only"},
        {entry("stray"), 7, "text outside"},
    };
    for (const auto& [bytes, line, problem] : cases)
        try {
            ReadDix(bytes, "a.dix");
            ADD_FAILURE() << bytes;
        } catch (const EBadInput& error) {
            EXPECT_EQ(error.Line(), line) << error.what();
            EXPECT_NE(std::string(error.what()).find(problem), std::string::npos) << error.what();
        }
}

TEST(Dixfile, Utf16IsReadAndBecomesUtf8) {
    const TDictionary dictionary = DictionaryOf({{"Open", "\u00d6ffnen \U0001F600"}});
    const std::string bytes = WriteDix(dictionary, "a.dix");
    for (const TEncoding& encoding : {TEncoding{"UTF-16LE", "\xFF\xFE"}, TEncoding{"UTF-16BE", "\xFE\xFF"}}) {
        std::string wide = encoding.Bom;
        ASSERT_TRUE(Encode(encoding, bytes, wide));
        EXPECT_EQ(WriteDix(ReadDix(wide, "a.dix"), "a.dix"), bytes);
    }
}

TEST(Dixfile, ANewerVersionIsReadAndNotWritten) {
    std::string bytes = std::string(kHead) + "</DICTIONARY>\n";
    EXPECT_EQ(NewerVersionNote(ReadDix(bytes, "a.dix"), "a.dix"), "");
    bytes.replace(bytes.find("VERSION=\"1\""), 11, "VERSION=\"9\"");
    const TDictionary dictionary = ReadDix(bytes, "a.dix");
    EXPECT_EQ(NewerVersionNote(dictionary, "a.dix").find("a.dix: the dictionary is of version 9"), 0U);
    EXPECT_EQ(dictionary.Languages.Count(), 2);
    EXPECT_THROW(WriteDix(dictionary, "a.dix"), EBadInput);
}

TEST(Dictionary, LanguagesAreFoundAsListsShowThem) {
    TDictionary dictionary = DictionaryOf({});
    EXPECT_EQ(dictionary.LanguageOf("german</LANGUAGE>"), 1);
    EXPECT_EQ(dictionary.NeedLanguage("French</LANGUAGE>"), 2);
    EXPECT_EQ(dictionary.Languages[2], "French");
}

// --- looking up

TEST(Accelerators, StandWhereTheyFit) {
    const struct {
        const char* Text;
        const char* Translation;
        const char* Marked;
    } cases[] = {
        {"Open", "&\u00d6ffnen", "\u00d6ffnen"},
        {"&Open", "\u00d6&ffnen", "\u00d6&ffnen"},
        {"&File", "Neue Datei f\u00fcr alle", "Neue Datei &f\u00fcr alle"},
        {"&Edit", "Ganz anders", "Ganz and&ers"},
        {"&View", "\u00d6ffnen", "&\u00d6ffnen"},
        {"&Show", "%s \u00f6ffnen", "%s &\u00f6ffnen"},
        {"R && &D", "F && E", "&F && E"},
        {"&Open...", "\u958b\u304f...", "\u958b\u304f(&O)..."},
        {"Open", "\u958b\u304f(&O)...", "\u958b\u304f..."},
        {"a & b", "x & &y", "x & y"},
        {"&1", "...", "..."},
    };
    for (const auto& [text, translation, marked] : cases)
        EXPECT_EQ(WithAcceleratorOf(text, translation), marked) << text << " " << translation;
}

TEST(Dictionarysearch, FindsByTheOptions) {
    const TDictionary dictionary = DictionaryOf({{"open", "klein"},
                                                 {"Open", "\u00d6ffnen"},
                                                 {"Open", "zweites"},
                                                 {"&Close", "S&chlie\u00dfen"},
                                                 {"Untranslated", ""},
                                                 {"a\nb", "c\nd"}});
    const TDictionaryOptions none;
    const TDictionaryOptions noCase{.IgnoreCase = true};
    const TDictionaryOptions noMarks{.SkipAmpersands = true};
    const TDictionaryOptions loose{.IgnoreCase = true, .SkipAmpersands = true, .ParseMultilines = true};
    const struct {
        const TDictionaryOptions& Options;
        const char* Text;
        const char* Hit;  ///< text and what was found, "" for none
    } cases[] = {
        {none, "Open", "\u00d6ffnen/Open"},
        {none, "OPEN", ""},
        {none, "Untranslated", ""},
        {none, "", ""},
        {none, "a\r\nb", "c\nd/a\nb"},
        {noCase, "Open", "\u00d6ffnen/Open"},
        {noCase, "OPEN", "klein/open"},
        {noCase, "&Open", ""},
        {noMarks, "&Open", "&\u00d6ffnen/Open"},
        {noMarks, "Close", "Schlie\u00dfen/&Close"},
        {noMarks, "close", ""},
        {loose, "C&LOSE", "S&chlie\u00dfen/&Close"},
        {noMarks, "Open\r\nClose", ""},
        {loose, "Open\r\n\r\n Open", ""},
        {loose, "\nOpen\r\n  \r\nclose\n",
         "\n\u00d6ffnen\r\n  \r\nSchlie\u00dfen\n/\nOpen\r\n  \r\n&Close\n"},
        {loose, "\r\n\r\n", ""},
    };
    for (const auto& [options, text, expected] : cases) {
        const auto hit = TDictionarySearch(dictionary, 0, 1, options).Find(text);
        EXPECT_EQ(hit ? hit->Text + "/" + hit->Found : "", expected) << text;
    }
}

// --- filling

TTable TableOf(const std::vector<std::vector<TTableValue>>& entries) {
    TTable table(TStringsType::stCaptions);
    for (const auto& values : entries)
        table.Append({"k" + std::to_string(table.Entries().size()), values});
    return table;
}

TEST(Dictionaryfill, FillsWhatTheOptionsSay) {
    const TDictionary dictionary = DictionaryOf({{"Open", "\u00d6ffnen"}, {"OK", "OK"}});
    const TDictionaryOptions none;
    const TDictionaryOptions forced{.IgnoreCase = true, .ForceEmpties = true};
    const TDictionaryOptions over{.IgnoreCase = true, .OverwriteExisting = true};
    const struct {
        const TDictionaryOptions& Options;
        std::string Base;
        TTableValue German;
        TDictionaryOutcome Outcome;
        TTableValue Filled;
    } cases[] = {
        {none, "Open", {"Open"}, TDictionaryOutcome::Filled, {"\u00d6ffnen"}},
        {none, "Open", {""}, TDictionaryOutcome::Empty, {}},
        {none, "Open", {"Auf"}, TDictionaryOutcome::Existing, {}},
        {none, "Close", {"Close"}, TDictionaryOutcome::Unknown, {}},
        {none, "OK", {"OK"}, TDictionaryOutcome::Filled, {"OK", TValueMark::Same}},
        {forced, "Open", {""}, TDictionaryOutcome::Filled, {"\u00d6ffnen"}},
        {forced, "OPEN", {""}, TDictionaryOutcome::Filled, {"\u00d6ffnen", TValueMark::Touched, "Open"}},
        {forced, "Open", {"Auf", TValueMark::Stale, "Shut"}, TDictionaryOutcome::Existing, {}},
        {over, "Open", {"Auf", TValueMark::Stale, "Shut"}, TDictionaryOutcome::Filled, {"\u00d6ffnen"}},
        {over,
         "Open",
         {"\u00d6ffnen", TValueMark::Touched, "open"},
         TDictionaryOutcome::Filled,
         {"\u00d6ffnen"}},
        {over, "Open", {"\u00d6ffnen"}, TDictionaryOutcome::Existing, {}},
        {over, "Open", {""}, TDictionaryOutcome::Empty, {}},
    };
    for (const auto& [options, base, german, outcome, filled] : cases) {
        const TDictionarySearch search(dictionary, 0, 1, options);
        std::vector<TTable> tables{TableOf({{{base}, german}})};
        TDictionaryCounts counts;
        const auto plan = PlanFill(tables, 2, search, counts);
        EXPECT_EQ(counts[outcome], 1) << base;
        FillTables(tables, 2, plan);
        const TTableValue& value = tables[0].Entries()[0].Values[1];
        EXPECT_EQ(value, outcome == TDictionaryOutcome::Filled ? filled : german)
            << base << " " << value.Text;
    }
}

// --- learning

TEST(Dictionarylearning, TheMostFrequentTranslationIsTaken) {
    TDictionaryLearning learning;
    learning.Take({TableOf({{{"Open"}, {"Auf"}},
                            {{"Open"}, {"\u00d6ffnen"}},
                            {{"Open"}, {"\u00d6ffnen"}},
                            {{"Close"}, {"Zu"}},
                            {{"Stale"}, {"alt", TValueMark::Stale, "x"}},
                            {{"Same"}, {"Same"}},
                            {{"OK"}, {"OK", TValueMark::Same}},
                            {{"Name"}, {"Name alt"}}})},
                  2, "English", "German");
    TDictionary dictionary = DictionaryOf({{"Name", "Bezeichnung"}, {"Close", ""}, {"Open", "\u00d6ffnen"}});
    TDictionary replaced = dictionary;
    const TDictionary before = dictionary;
    const TLearned learned = learning.Into(dictionary, false);
    EXPECT_EQ(TextsOf(dictionary), "Name=Bezeichnung; Close=Zu; OK=OK; Open=\u00d6ffnen");
    TDictionary back = dictionary;
    EXPECT_EQ(TakeStep(back, StepBack(dictionary, before)).Gone, (std::vector<std::size_t>{1}));
    EXPECT_EQ(back, before);
    EXPECT_EQ(learned.Added, 2);
    EXPECT_EQ(learned.Entries, 1);
    EXPECT_EQ(learned.Known, 1);
    ASSERT_EQ(learned.Conflicts.size(), 2U);
    EXPECT_EQ(learned.Conflicts[0].Base, "Open");
    EXPECT_EQ(learned.Conflicts[0].Choices[0].Count, 2);
    EXPECT_EQ(learned.Conflicts[0].Choices[1].Text, "Auf");
    EXPECT_EQ(learned.Conflicts[1].Taken, "Bezeichnung");
    EXPECT_EQ(learning.Into(replaced, true).Replaced, 1);
    EXPECT_EQ(replaced.Entries[0].Text(1), "Name alt");
    EXPECT_EQ(learning.Into(dictionary, false).Added, 0);
}

}  // namespace
}  // namespace tml
