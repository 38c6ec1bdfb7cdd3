#include <gtest/gtest.h>

#include "base/Checksum.h"
#include "base/Errors.h"
#include "tables/Mllfile.h"
#include "tables/Translationfile.h"

namespace tml {
namespace {

using namespace std::string_literals;

const std::vector<std::string> kTexts = {"plain", " a=b ", "[x]",          "; c", "a\r\nb",
                                         "~!@#$", "\\n",   "\xE2\x98\x83", ""};

struct TSavedForm {
    TFormAddress Address;
    TLangTexts Texts;
};

TTable& TableOf(TSavedForm& form, TStringsType type) {
    return form.Texts.Tables[static_cast<std::size_t>(type)];
}

TTableEntry Entry(const std::string& key, const std::vector<std::string>& texts) {
    TTableEntry entry{key, {}};
    for (const std::string& text : texts)
        entry.Values.push_back({text});
    return entry;
}

TSavedForm Form(const std::string& name, const TStringList& languages) {
    TSavedForm form{{"Harbour", name}, TextsIn(languages)};
    for (const std::string& text : kTexts)
        TableOf(form, TStringsType::stCaptions)
            .Append(Entry(text, std::vector<std::string>(languages.Items().size(), text)));
    TableOf(form, TStringsType::stStrings).Append(Entry("IDS_0", languages.Items()));
    SetMark(form.Texts, TStringsType::stStrings, "IDS_0", 2, TValueMark::Stale, "Old\ntext");
    SetMark(form.Texts, TStringsType::stCaptions, " a=b ", 2, TValueMark::Same, "");
    form.Texts.Extended = {{"Chart1", "Title.Text", languages.Items()}};
    return form;
}

void ExpectEqual(const TLangTexts& read, const TLangTexts& expected) {
    EXPECT_EQ(read.Languages, expected.Languages);
    ASSERT_EQ(read.Tables.size(), expected.Tables.size());
    for (std::size_t i = 0; i < read.Tables.size(); ++i)
        EXPECT_TRUE(read.Tables[i].Entries() == expected.Tables[i].Entries()) << kTableKinds[i].Property;
    EXPECT_EQ(read.Extended, expected.Extended);
}

std::string Saved(const std::string& bytes, const std::string& fileName, const TSavedForm& form,
                  const std::string& delimiter = {}) {
    const auto file = OpenTranslationFile(bytes, fileName, delimiter);
    file->Put(form.Address, form.Texts);
    return file->Bytes();
}

const TStringList kTwoLanguages({"English", "German"});
const TStringList kThree({"German", "English", "Hebrew"});

TEST(Translationfile, FormsOfDifferentLanguagesShareAFileOfEitherKindAndKeepTheirPlaces) {
    for (const std::string name : {"a.mll", "a.MLB"}) {
        std::string bytes = Saved("", name, Form("One", kTwoLanguages), "~!@#$");
        bytes = Saved(bytes, name, Form("Two", kThree));
        TSavedForm changed = Form("One", kTwoLanguages);
        TableOf(changed, TStringsType::stStrings).SetText(0, 2, "Neu");
        bytes = Saved(bytes, name, changed);
        const auto file = OpenTranslationFile(bytes, name);
        ASSERT_EQ(file->Forms().size(), 2U);
        EXPECT_EQ(file->Forms()[0].Form, "One");
        EXPECT_EQ(file->Languages().CommaText(), "English,German,Hebrew");
        ExpectEqual(file->Read({"HARBOUR", "one"}).value(), changed.Texts);
        ExpectEqual(file->Read({"Harbour", "Two"}).value(), Form("Two", kThree).Texts);
        EXPECT_FALSE(file->Read({"Other", "One"}).has_value());
        EXPECT_EQ(Saved(bytes, name, changed), bytes);
    }
}

TEST(Translationfile, OnlyTheLineOfAChangedEntryChangesAndWhatIsUnknownStays) {
    const std::string text =
        "; ours\r\n[Options]\r\nTool=x\r\nDelimiter = \"|\" \r\nVersion= 1\r\n\r\n"
        "; names\r\n[Language names - for internal use only!]\r\nen = English\r\nde=German \t\r\n\r\n"
        "[P/F]\r\nNote=kept \r\n\tlanguages=en, de\r\n\r\n"
        "; of captions\r\n  ; alone\r\n[P/F/Captions]\r\n; first\r\n  a=1|2 \r\n\r\nb=3|4\t\r\n; end\r\n\r\n"
        "; not ours\r\n[Unknown]\r\nx=y\r\n";
    const auto file = OpenTranslationFile(text, "f.mll");
    const TFormAddress address{"P", "F"};
    TLangTexts texts = file->Read(address).value();
    file->Put(address, texts);
    EXPECT_EQ(file->Bytes(), text);
    TTable& captions = texts.Tables[static_cast<std::size_t>(TStringsType::stCaptions)];
    TTable& strings = texts.Tables[static_cast<std::size_t>(TStringsType::stStrings)];
    captions.SetText(0, 2, "zwei");
    strings.Add("ID", "", 2);
    file->Put(address, texts);
    std::string expected = text;
    expected.replace(expected.find("  a=1|2 "), 8, "a=1|zwei");
    expected.insert(expected.find("; not ours"), "[P/F/Strings]\r\nID=|\r\n\r\n");
    EXPECT_EQ(file->Bytes(), expected);
    strings.Remove({true});
    captions.Remove({true, false});
    file->Put(address, texts);
    expected = text;
    const std::size_t first = expected.find("; first");
    expected.erase(first, expected.find("\r\n\r\nb=") + 2 - first);
    EXPECT_EQ(file->Bytes(), expected);
    captions.Remove({true});
    file->Put(address, texts);
    const std::size_t section = expected.find("; of captions");
    expected.erase(section, expected.find("; not ours") - section);
    EXPECT_EQ(file->Bytes(), expected);
}

TEST(Translationfile, AnotherDelimiterWritesEveryLineAnew) {
    const TSavedForm one = Form("One", kTwoLanguages), two = Form("Two", kThree);
    std::string bytes = Saved(Saved("", "a.mll", one, "~!@#$"), "a.mll", two);
    for (const std::string delimiter : {"=", " ", "\\", "\"", "a\\"}) {
        bytes = Saved(bytes, "a.mll", one, delimiter);
        const auto file = OpenTranslationFile(bytes, "a.mll");
        ExpectEqual(file->Read(one.Address).value(), one.Texts);
        ExpectEqual(file->Read(two.Address).value(), two.Texts);
    }
    // What an editor has left behind a line is no text, and a line that is none stays as broken as it is.
    const std::string edited = "[Options]\nDelimiter=|\n[P/G/Captions]\na=1|2 \nb\n";
    EXPECT_EQ(OpenTranslationFile(edited, "a.mll", "# ")->Bytes(),
              "[Options]\nDelimiter=\"# \"\nVersion=1\n[P/G/Captions]\na=1# 2\nb\n");
}

TEST(Translationfile, AFormIsFoundByItsProjectElseByItsName) {
    std::string bytes = "[Options]\nDelimiter=|\n[A/F]\n[B/F]\n[A/G]\n[/H]\n[C/H]\n[/I]\n";
    const auto file = OpenTranslationFile(bytes, "a.mll");
    const TFormFinder finder(*file);
    const struct {
        TFormAddress Wanted;
        const char* Found;
    } rows[] = {{{"b", "f"}, "B/F"},   {{"C", "F"}, nullptr}, {{"", "F"}, nullptr}, {{"", "g"}, "A/G"},
                {{"B", "G"}, nullptr}, {{"C", "H"}, "C/H"},   {{"D", "I"}, "/I"},   {{"A", "X"}, nullptr}};
    for (const auto& row : rows) {
        const auto found = finder.Find(row.Wanted);
        EXPECT_EQ(found ? found->Project + '/' + found->Form : "none", row.Found ? row.Found : "none");
    }
}

/// The message of what reading the form F of project P throws.
std::string MessageOf(const std::string& bytes, const std::string& name) {
    try {
        const auto file = OpenTranslationFile(bytes, name);
        file->Read({"P", "F"});
        file->Put({"P", "F"}, TextsIn(kTwoLanguages));
    } catch (const EBadInput& error) {
        return error.what();
    }
    return "read";
}

TEST(Translationfile, WhatIsDamagedOrForeignIsRefusedWithItsPlace) {
    const std::string head =
        "[Options]\nDelimiter=|\n[Language names - for internal use only!]\n1=A\n2=B\n[P/F]\n";
    const struct {
        std::string Bytes;
        const char* Message;
    } rows[] = {
        {head + "Languages=1,2\n[P/F/Captions]\na=x|y\n", "read"},
        {"object Form1: TForm1\nend\n", "f.mll:1: expected a section in brackets"},
        {"[Options]\nVersion=1\n", "f.mll:1: the section \"Options\" has no delimiter"},
        {"[Settings]\na=b\n", "f.mll:1: the section \"Options\" is missing"},
        {"[Options]\nVersion=x\nDelimiter=|\n", "f.mll:2: the version is no number"},
        {"[Options]\nVersion=2\nDelimiter=|\n", "f.mll: the file is of a newer version"},
        {"[Options\n", "f.mll:1: expected \"]\""},
        {head + "[p/f]\n", "f.mll:7: the section stands in the file already"},
        {head, "f.mll:6: the form names no languages"},
        {head + "Languages=1,3\n", "f.mll:7: the file names no language 3"},
        {head + "Languages=1,2\n[P/F/Captions]\n\na=x~y\n", "f.mll:10: a has 1 text where 2 are expected"},
        {head + "Languages=1,2\n[P/F/Captions]\na\n", "f.mll:9: a has no \"=\" behind it. Put it between"},
        {head + "Languages=1,2\n[P/F/Captions]\na=x|y", "f.mll:9: the file ends within this line"},
        {head + "Languages=1,2\n[P/F/Capt", "f.mll:8: the file ends within this line"},
        {std::string("TMLB\1", 5), "f.mll: this is a binary translation file. Give it the extension .mlb"},
        {head + "Languages=1,2\n[P/F/States]\nCaptions:3:a=same\n", "f.mll:9: this is no state"},
        {head + "Languages=1,2\n[P/F/Captions]\na=\xFF|\n", "f.mll:9: the line is no UTF-8"},
        {head + "Languages=1,2,2\n", "f.mll:7: the form names the language B twice"},
        {"[Options]\nDelimiter=|\n[Language names - for internal use only!]\n1=A\n1=B\n",
         "f.mll:5: a language has the number 1 already"},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(MessageOf(row.Bytes, "f.mll").starts_with(row.Message)) << MessageOf(row.Bytes, "f.mll");
}

TEST(Translationfile, TheDelimiterIsThatOfTheOptionsAndNoOther) {
    const struct {
        const char *Bytes, *Delimiter;
    } rows[] = {
        {"; see [Options]\n[Options]\nDelimiter=@@\n", "@@"},
        {"\xEF\xBB\xBF[options]\r\n;Delimiter=x\r\n DELIMITER = \" \"\r\n", " "},
        {"[Options]\nDelimiter=@@\nDelimiter=|\n[P/F]\nDelimiter=x\n", "|"},
        {"[P/F]\nDelimiter=x\n[Options]\nDelimiter=y\n", "y"},
        {"[P/F]\nDelimiter=x\n", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DelimiterOfMll(row.Bytes), row.Delimiter) << row.Bytes;
    for (const char* const odd : {"a\nb", "\r", "\xFF"})
        EXPECT_THROW(OpenTranslationFile("", "a.mll", odd), EBadInput) << odd;
    // Where the file names none, the one given is taken if it can be that of the lines.
    const std::string lines =
        "[Language names - for internal use only!]\n1=A\n2=B\n[P/F]\nLanguages=1,2\n"
        "[P/F/Captions]\na=x|y\n[Options]\nVersion=1\n";
    EXPECT_NO_THROW(OpenTranslationFile(lines, "a.mll", "|"));
    EXPECT_THROW(OpenTranslationFile(lines, "a.mll", "#"), EBadInput);
    EXPECT_THROW(OpenTranslationFile(lines, "a.mll"), EBadInput);
}

/// As a translator's editor, or spreadsheet, may leave them.
TEST(Translationfile, BlanksAroundEqualsAndOtherSpellingsOfALanguageSayNothing) {
    const std::string bytes =
        "[Options]\nDelimiter=|\n[Language names - for internal use "
        "only!]\n1=A\n2=GERMAN\n[P/F]\nLanguages=1,2\n"
        "[P/F/Captions]\n a\t =  x |y\n[P/F/States]\nCaptions:2:a = stale|z\n";
    const auto file = OpenTranslationFile(bytes, "a.mll");
    TLangTexts texts = file->Read({"P", "F"}).value();
    const TTableEntry entry = texts.Tables[0].Entries().at(0);
    EXPECT_EQ(entry.Key + "/" + entry.Base() + "/" + entry.Values[1].Text + "/" + entry.Values[1].Former,
              "a/x /y/z");
    for (const char* const names : {"A,German", "A,german,GERMAN", "A,German,german"}) {
        texts.Languages = TStringList::FromCommaText(names);
        file->Put({"P", "F"}, texts);
        EXPECT_EQ(file->Read({"P", "F"})->Languages.Count(), texts.Languages.Count()) << file->Bytes();
        EXPECT_EQ(file->Languages()[1], "GERMAN");
    }
}

TEST(Translationfile, ANumberThatAFormUsesIsNoNewLanguages) {
    const std::string bytes =
        "[Options]\nDelimiter=|\n[Language names - for internal use only!]\n1=A\n2147483647=Z\n"
        "[P/F]\nLanguages=1,3\n";
    const auto file = OpenTranslationFile(bytes, "a.mll");
    file->Put({"P", "G"}, TextsIn(TStringList({"A", "B"})));
    EXPECT_NE(file->Bytes().find("\n4=B\n"), std::string::npos) << file->Bytes();
}

TEST(Translationfile, EveryBrokenByteOfABinaryFileIsNoticed) {
    TSavedForm form = Form("F", kTwoLanguages);
    form.Address.Project = "P";
    const std::string whole = Saved("", "f.mlb", form);
    ASSERT_EQ(MessageOf(whole, "f.mlb"), "read");
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string damaged = whole;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_NE(MessageOf(damaged, "f.mlb"), "read") << i;
        EXPECT_NE(MessageOf(whole.substr(0, i + 1), "f.mlb"), i + 1 < whole.size() ? "read" : "") << i;
        // With a matching checksum only the content is left to say so, and it may not lead astray.
        if (i < 14) continue;
        const std::uint32_t checksum = Crc32(std::string_view(damaged).substr(14));
        for (std::size_t byte = 0; byte < 4; ++byte)
            damaged[10 + byte] = static_cast<char>(checksum >> (8 * byte) & 0xFF);
        EXPECT_NO_THROW(MessageOf(damaged, "f.mlb")) << i;
    }
}

}  // namespace
}  // namespace tml
