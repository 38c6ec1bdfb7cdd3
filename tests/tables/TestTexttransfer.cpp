#include <gtest/gtest.h>

#include "tables/Texttransfer.h"

namespace tml {
namespace {

TLangTexts Texts(const TStringList& languages, const std::vector<std::vector<std::string>>& captions) {
    TLangTexts texts = TextsIn(languages);
    for (const auto& row : captions) {
        TTableEntry entry{row[0], {}};
        for (auto text = row.begin() + 1; text != row.end(); ++text)
            entry.Values.push_back({*text});
        texts.Tables[0].Append(std::move(entry));
    }
    return texts;
}

const TStringList kTwo({"English", "German"});

struct TOutcome {
    std::string Value;  ///< of the one entry in German, with its mark behind a "/"
    std::string Counts;
};

/// One entry of the form and of the file: base, German, mark of the German text and what it was made for.
struct TSide {
    std::string Base;
    std::string German;
    TValueMark Mark = TValueMark::None;
    std::string Former = {};
};

TLangTexts TextsOf(const TSide& side) {
    TLangTexts texts = Texts(kTwo, {{"a.Caption", side.Base, side.German}});
    texts.Tables[0].SetMark(0, 2, side.Mark, side.Former);
    return texts;
}

TOutcome Transferred(const TSide& form, const TSide& file, TTransferKind kind) {
    TLangTexts texts = TextsOf(form);
    TTransferReport report;
    TransferTexts(texts, TextsOf(file), {kind, {1, 2}}, report);
    const TTableEntry& entry = texts.Tables[0].Entries()[0];
    EXPECT_EQ(entry.Base(), form.Base);
    const std::string mark = std::string(" =?~").substr(static_cast<std::size_t>(entry.Values[1].Mark), 1);
    return {entry.Values[1].Text + "/" + (mark == " " ? "" : mark) + entry.Values[1].Former,
            std::to_string(report.Taken) + std::to_string(report.Kept) + std::to_string(report.InDoubt) +
                std::to_string(report.Overwritten.Count())};
}

TEST(Texttransfer, WhatATextOfTheFileDoesToOneOfTheForm) {
    using enum TValueMark;
    const struct {
        const char* Case;
        TSide Form, File;
        const char *Loaded, *LoadCounts;  ///< taken, kept, in doubt, overwritten
        const char *Merged, *MergeCounts;
    } rows[] = {
        {"equal", {"Go", "Los"}, {"Go", "Los"}, "Los/", "0000", "Los/", "0000"},
        {"new", {"Go", "Go"}, {"Go", "Los"}, "Los/", "1000", "Los/", "1000"},
        {"into nothing", {"Go", ""}, {"Go", "Go"}, "Go/", "1000", "Go/", "1000"},
        {"another", {"Go", "Los"}, {"Go", "Start"}, "Start/", "1001", "Start/", "1001"},
        {"empty", {"Go", "Los"}, {"Go", ""}, "Los/", "0100", "Los/", "0100"},
        {"untranslated", {"Go", "Los"}, {"Go", "Go"}, "Go/", "1001", "Los/", "0100"},
        {"same on purpose", {"Go", "Los"}, {"Go", "Go", Same}, "Go/=", "1001", "Go/=", "1001"},
        {"of another base", {"Go", "Los"}, {"Run", "Lauf"}, "Lauf/?Run", "1011", "Lauf/?Run", "1011"},
        {"other looks", {"Go!", ""}, {"&go", "Los"}, "Los/~&go", "1010", "Los/~&go", "1010"},
        {"follows", {"Go", "Go"}, {"Run", "Run"}, "Go/", "0000", "Go/", "0000"},
        {"base is back",
         {"Go", "Los", Stale, "Run"},
         {"Run", "Los", Stale, "Go"},
         "Los/",
         "0000",
         "Los/",
         "0000"},
        {"confirmed there", {"Go", "Los", Stale, "Run"}, {"Go", "Los"}, "Los/", "0000", "Los/", "0000"},
        {"confirmed here", {"Go", "Los"}, {"Go", "Los", Stale, "Run"}, "Los/?Run", "0010", "Los/", "0000"},
        {"written anew",
         {"Go", "Lauf", Stale, "Run"},
         {"Go", "Los", Stale, "Run"},
         "Los/",
         "1001",
         "Los/",
         "1001"},
        {"of the former base once more",
         {"Go", "Lauf", Stale, "Run"},
         {"Run", "Los"},
         "Los/?Run",
         "1011",
         "Los/?Run",
         "1011"},
    };
    for (const auto& row : rows) {
        const TOutcome loaded = Transferred(row.Form, row.File, TTransferKind::Load);
        EXPECT_EQ(loaded.Value + " " + loaded.Counts, std::string(row.Loaded) + " " + row.LoadCounts)
            << row.Case;
        const TOutcome merged = Transferred(row.Form, row.File, TTransferKind::Merge);
        EXPECT_EQ(merged.Value + " " + merged.Counts, std::string(row.Merged) + " " + row.MergeCounts)
            << row.Case;
    }
}

TEST(Texttransfer, EntriesMeetByKeyAndTurnAndWhatOneSideLacksIsTold) {
    const TLangTexts file = Texts(kTwo, {{"A.CAPTION", "1", "eins"},
                                         {"b.Caption", "2", "zwei"},
                                         {"b.Caption", "2", "zwo"},
                                         {"B.Caption", "2", "zwote"},
                                         {"gone.Caption", "G", "Weg"}});
    for (const TTransferKind kind : {TTransferKind::Load, TTransferKind::Merge}) {
        TLangTexts form = Texts(kTwo, {{"b.Caption", "2", "2"},
                                       {"a.Caption", "1", ""},
                                       {"b.Caption", "2"},
                                       {"own.Caption", "O", "Eigen"}});
        TTransferReport report;
        TransferTexts(form, file, {kind, {1, 2}}, report);
        const bool loads = kind == TTransferKind::Load;
        EXPECT_EQ(form.Tables[0].Lines("|").CommaText(),
                  std::string("b.Caption|2|zwei,a.Caption|1|eins,b.Caption|2|zwo,own.Caption|O|") +
                      (loads ? "" : "Eigen"));
        EXPECT_EQ(report.Unknown.CommaText(), "\"Captions gone.Caption\"");
        EXPECT_EQ(report.Notes.Text(),
                  "no place: Captions B.Caption (stands in the file more often than in the form)\r\n");
        EXPECT_EQ(report.Dropped.CommaText(), loads ? "\"Captions own.Caption (German): 'Eigen'\"" : "");
        EXPECT_EQ(report.Kept, loads ? 0 : 1);
    }
}

TEST(Texttransfer, EveryTextOfANewEntryCountsWhereATableTakesIt) {
    const struct {
        TStringsType Type;
        const char *Base, *German;
        int Taken;
    } rows[] = {
        {TStringsType::stStrings, "Go", "", 1},     {TStringsType::stStrings, "Go", "Los", 2},
        {TStringsType::stLocales, "en", "en", 2},   {TStringsType::stLocales, "", "de", 1},
        {TStringsType::stCaptions, "Go", "Los", 0},
    };
    for (const auto& row : rows) {
        TLangTexts form = TextsIn(kTwo), file = form;
        for (const char* key : {"A", "a"})
            file.Tables[static_cast<std::size_t>(row.Type)].Append({key, {{row.Base}, {row.German}}});
        for (const int taken : {row.Taken, 0}) {
            TTransferReport report;
            TransferTexts(form, file, {TTransferKind::Load, {1, 2}}, report);
            EXPECT_EQ(report.Taken, taken) << row.Base << row.German;
            EXPECT_EQ(report.Notes.Count(), row.Taken > 0 ? 1 : 0) << "the key stands twice";
            EXPECT_EQ(report.Unknown.Count(), row.Taken > 0 ? 0 : 2);
        }
    }
}

TEST(Texttransfer, LanguagesMeetByName) {
    const struct {
        const char *Present, *File, *Loaded, *Merged, *Only;  ///< names; from where; to where
    } rows[] = {
        {"English,German", "english,german", "English,German 12 12", "English,German 12 12", ""},
        {"English,German", "English,French,German", "English,French,German 102 123",
         "English,German,French 120 132", ""},
        {"English,German,Polish", "English,Polish", "English,Polish 13 12", "English,German,Polish 123 13",
         ""},
        {"Language N1,Language N2", "English,German", "English,German 12 12", "Language N1,German 12 12", ""},
        {"English,German", "Default,German", "Default,German 12 12", "English,German 12 12", ""},
        {"English", "English,German,French", "English,German,French 100 123", "English,French 10 102",
         "french"},
    };
    for (const auto& row : rows) {
        const auto meet = [&](TTransferKind kind) {
            const TLanguageMeeting meeting =
                MeetLanguages(TStringList::FromCommaText(row.Present), TStringList::FromCommaText(row.File),
                              kind, row.Only);
            std::string text;
            for (const std::string& name : meeting.Names)
                text += (text.empty() ? "" : ",") + name;
            text += " ";
            for (const int place : meeting.Former)
                text += std::to_string(place);
            text += " ";
            for (const int place : meeting.Places)
                text += std::to_string(place);
            return text;
        };
        EXPECT_EQ(meet(TTransferKind::Load), row.Loaded);
        EXPECT_EQ(meet(TTransferKind::Merge), row.Merged);
    }
    EXPECT_TRUE(AreBasesCrossed(kTwo, TStringList({"German", "English"})));
    EXPECT_FALSE(AreBasesCrossed(kTwo, TStringList({"Deutsch", "French"})));
}

}  // namespace
}  // namespace tml
