#include <gtest/gtest.h>

#include "tables/Exclusionrules.h"
#include "tables/Fontvalue.h"
#include "tables/Itemmatch.h"
#include "tables/States.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

constexpr TStringsType kCaptions = TStringsType::stCaptions;

/// "key|base|second" lines; a state, where there is one, in braces behind the value: "{stale:former}".
TTable Table(TStringsType type, const std::vector<std::string>& lines,
             const std::vector<std::string>& states = {}) {
    TTable table(type, TStringList(lines), "|");
    TStateRecords(TStringList(states), "|").Mark(table);
    return table;
}

std::string Dump(const TTable& table) {
    std::string dump;
    for (const std::string& line : table.Lines("|"))
        dump += line + "\n";
    TStateRecords records({}, "|");
    records.Take(table);
    for (const std::string& line : records.Lines())
        dump += "  " + line + "\n";
    return dump;
}

struct TMergeCase {
    const char* What;
    std::vector<std::string> Before, States;
    std::vector<std::pair<const char*, const char*>> Form;  ///< "-" in front of a key: enters no table
    std::string After;
    int Active = 1;
    bool IgnoreRemovals = false;
};

TEST(Textmerge, TablesFollowTheForm) {
    const TMergeCase cases[] = {
        {"a new text stands at the end, in every language",
         {"A.Caption|a|x"},
         {},
         {{"B.Caption", "b"}, {"A.Caption", "a"}},
         "A.Caption|a|x\nB.Caption|b|b\n"},
        {"data begins no entry, but is followed",
         {"A.Text|a|x"},
         {},
         {{"-B.Text", "1"}, {"-A.Text", "1"}},
         "A.Text|1|x\n  Captions|A.Text|2|stale|a\n"},
        {"a changed base text puts its translation in doubt, a missing one follows",
         {"A.Caption|Save|Sichern", "B.Caption|Save|Save", "C.Caption|Save|", "D.Caption|odd"},
         {},
         {{"A.Caption", "Store"}, {"B.Caption", "Store"}, {"C.Caption", "Store"}, {"D.Caption", "even"}},
         "A.Caption|Store|Sichern\nB.Caption|Store|Store\nC.Caption|Store|\nD.Caption|even\n"
         "  Captions|A.Caption|2|stale|Save\n"},
        {"looks alone touch",
         {"A.Caption|Save as|Sichern"},
         {},
         {{"A.Caption", "&Save As..."}},
         "A.Caption|&Save As...|Sichern\n  Captions|A.Caption|2|touched|Save as\n"},
        {"the former text of a record stays, and its return ends the record",
         {"A.Caption|Two|Eins", "B.Caption|Two|Eins"},
         {"Captions|A.Caption|2|stale|One", "Captions|B.Caption|2|stale|One"},
         {{"A.Caption", "Three"}, {"B.Caption", "One"}},
         "A.Caption|Three|Eins\nB.Caption|One|Eins\n  Captions|A.Caption|2|stale|One\n"},
        {"equal on purpose",
         {"A.Caption|OK|OK"},
         {"Captions|A.Caption|2|same|"},
         {{"A.Caption", "Fine"}},
         "A.Caption|Fine|OK\n  Captions|A.Caption|2|stale|OK\n"},
        {"the active language follows the form, which ends its record",
         {"A.Caption|Save|Sichern"},
         {"Captions|A.Caption|2|stale|Keep"},
         {{"A.Caption", "Speichern"}},
         "A.Caption|Save|Speichern\n",
         2},
        {"a base text in another language says nothing",
         {"A.Caption|Save|Sichern", "B.Caption|No|"},
         {},
         {{"A.Caption", "Save"}, {"B.Caption", "Nein"}},
         "A.Caption|Save|Sichern\nB.Caption|No|Nein\n",
         2},
        {"removed, renamed and odd",
         {"A.Caption|a|x", "B.Caption|b|y", "odd", "C.Caption|c|1", "C.Caption|c|2"},
         {},
         {{"C.Caption", "c"}, {"New.Caption", "b"}},
         "New.Caption|b|y\nodd\nC.Caption|c|1\nC.Caption|c|2\n"},
        {"removals ignored",
         {"A.Caption|a|x", "B.Caption|b|y"},
         {},
         {{"New.Caption", "b"}},
         "A.Caption|a|x\nB.Caption|b|y\nNew.Caption|b|y\n",
         1,
         true},
        {"names without case keep the way they are written",
         {"a.caption|a|x"},
         {},
         {{"A.Caption", "a"}},
         "a.caption|a|x\n"},
        {"an item inserted in front moves the others",
         {"L.C[0].Caption|Name|N", "L.C[1].Caption|Size|G", "L.C[1].Hint|of it|davon"},
         {"Captions|L.C[1].Caption|2|stale|Big"},
         {{"L.C[0].Caption", "New"},
          {"L.C[1].Caption", "Name"},
          {"L.C[2].Caption", "Size"},
          {"L.C[2].Hint", "of all"}},
         "L.C[1].Caption|Name|N\nL.C[2].Caption|Size|G\nL.C[2].Hint|of all|davon\nL.C[0].Caption|New|New\n"
         "  Captions|L.C[2].Caption|2|stale|Big\n  Captions|L.C[2].Hint|2|stale|of it\n"},
        {"items that change places",
         {"L.C[0].Caption|a|x", "L.C[1].Caption|b|y"},
         {},
         {{"L.C[0].Caption", "b"}, {"L.C[1].Caption", "a"}},
         "L.C[1].Caption|a|x\nL.C[0].Caption|b|y\n"},
        {"an item that goes, its key taken by another",
         {"L.C[0].Caption|a|x", "L.C[1].Caption|b|y"},
         {},
         {{"L.C[0].Caption", "b"}},
         "L.C[0].Caption|b|y\n",
         1,
         true},
        {"nested items, of one name and by index",
         {"L.B[Sea].C[0].Caption|a|x", "L.B[Sea].C[1].Caption|a|y"},
         {},
         {{"L.B[Sea].C[0].Caption", "new"}, {"L.B[sea].C[1].Caption", "a"}},
         "L.B[Sea].C[0].Caption|new|x\nL.B[Sea].C[1].Caption|a|y\n"
         "  Captions|L.B[Sea].C[0].Caption|2|stale|a\n"},
    };
    for (const TMergeCase& row : cases) {
        std::vector<TTable> tables = {Table(kCaptions, row.Before, row.States)};
        std::vector<TFormText> texts;
        for (const auto& [key, text] : row.Form) {
            const std::string_view view = key;
            const bool enters = !view.starts_with('-');
            texts.push_back({kCaptions, std::string(view.substr(enters ? 0 : 1)), text, enters});
        }
        MergeTexts(tables, texts,
                   {2, row.Active, row.IgnoreRemovals, [](const std::string&, bool) { return false; }});
        EXPECT_EQ(Dump(tables[0]), row.After) << row.What;
    }
}

TEST(Textmerge, APropertyThatMovedToAnotherTableTakesItsTranslationsAlong) {
    std::vector<TTable> tables = {
        Table(kCaptions, {"B.Caption|b|y|z"}),
        Table(TStringsType::stOtherStrings, {"A.Text|a|x|w"}, {"OtherStrings|A.Text|2|stale|o"}),
        Table(TStringsType::stStrings, {"A.Text|a|x"})};
    MergeTexts(tables, {{kCaptions, "A.Text", "a"}, {kCaptions, "B.Caption", "b"}}, {3});
    EXPECT_EQ(Dump(tables[0]), "B.Caption|b|y|z\nA.Text|a|x|w\n  Captions|A.Text|2|stale|o\n");
    EXPECT_EQ(Dump(tables[1]) + Dump(tables[2]), "A.Text|a|x\n") << "the string table is nobody's";
}

TEST(Textmerge, AFontShowsWhatItsLanguageLeavesOpen) {
    std::vector<TTable> tables = {Table(TStringsType::stFonts, {".Font|Name=Sans;Height=-12|Name=Miriam"})};
    MergeTexts(tables, {{TStringsType::stFonts, ".Font", "Name=Miriam;Height=-12"}}, {2, 2});
    EXPECT_EQ(Dump(tables[0]), ".Font|Name=Sans;Height=-12|Name=Miriam\n");
    MergeTexts(tables, {{TStringsType::stFonts, ".Font", "Name=Miriam;Height=-14"}}, {2, 2});
    EXPECT_EQ(Dump(tables[0]), ".Font|Name=Sans;Height=-12|Name=Miriam;Height=-14\n");
}

TEST(States, AreWhatTheTextsAndTheirMarksSay) {
    const TTable table = Table(
        kCaptions, {"A|a||a|x|a|y|z|w"},
        {"Captions|A|5|same|", "Captions|A|6|stale|o", "Captions|A|7|touched|A", "odd",
         "Captions|A|1|stale|x", "Captions|Gone|2|stale|x", "Captions|A|99|stale|x", "Later|A|2|stale|x"});
    std::string states;
    for (int place = 2; place <= 9; ++place)
        states += std::string(NameOf(StateOf(table.Entries()[0], place))) + " ";
    EXPECT_EQ(states, "missing missing done done stale touched done missing ");
    TStateRecords records(TStringList({"odd", "Later|A|2|stale|x", "Captions|Gone|2|stale|x"}), "|");
    records.Take(table);
    EXPECT_EQ(records.Lines().CommaText(),
              "odd,Later|A|2|stale|x,Captions|A|5|same|,Captions|A|6|stale|o,Captions|A|7|touched|A");
    EXPECT_TRUE(DifferInLooksOnly("&Open file", "Open File..."));
    EXPECT_FALSE(DifferInLooksOnly("Open 1", "Open 2"));
    EXPECT_FALSE(DifferInLooksOnly("...", "!!!")) << "nothing is left to compare";
}

TEST(States, FollowLanguagesThatMoveAndEndWithTheirText) {
    TTable table = Table(kCaptions, {"A|a|x|y"}, {"Captions|A|2|stale|o", "Captions|A|3|touched|p"});
    table.MoveLanguages({1, 3, 2});
    EXPECT_EQ(Dump(table), "A|a|y|x\n  Captions|A|2|touched|p\n  Captions|A|3|stale|o\n");
    table.SetText(0, 3, "x");
    table.SetText(0, 2, "new");
    EXPECT_EQ(Dump(table), "A|a|new|x\n  Captions|A|3|stale|o\n");
    table.ClearTranslations();
    EXPECT_EQ(Dump(table), "A|a||\n");
}

TEST(Fontvalue, ComesBackFromItsText) {
    for (const char* text :
         {"Name=Sans;Height=-12;Style=Bold,Italic", "Height=9", "Style=", "Name=a\\;b\\\\c", ""})
        EXPECT_EQ(TFontValue::FromText(text).Text(), text);
    EXPECT_EQ(TFontValue::FromText("style=Bold;Size=9;Height=big;name=X").Text(), "Name=X;Style=Bold");
}

TEST(Exclusionrules, MeanWhatTheyName) {
    const TExclusionRules rules(
        TStringList({"pnlSide"}),
        TStringList({"!edtName", ".Hint", "btnOK.Caption", "TCustomEdit.Text", "TBitBtn", "fra.lbl.Caption",
                     "TLabel.Font"}),
        TStringList({"Number", "Path:TLabel.Caption", "EqualsName:*.Caption", "Nonsense"}),
        {"", "btnOK", "edtName", "fra", "fra.lbl", "pnlSide"});
    EXPECT_TRUE(rules.DoesNotTranslate("PNLSIDE"));
    EXPECT_TRUE(rules.ExcludesComponent("EdtName", "TEdit"));
    EXPECT_TRUE(rules.ExcludesComponent("b", "TBitBtn"));
    EXPECT_FALSE(rules.ExcludesComponent("btnOK", "TButton"));
    struct TPropertyCase {
        const char *Component, *Class, *Path;
        bool Excluded;
    };
    for (const TPropertyCase& row : {TPropertyCase{"x", "TAny", "Columns[2].Hint", true},
                                     {"btnok", "TButton", "Caption", true},
                                     {"btnB", "TButton", "Caption", false},
                                     {"memo", "TMemo", "Text", true},
                                     {"box", "TComboBox", "Text", false},
                                     {"fra.lbl", "TLabel", "Caption", true},
                                     {"lbl", "TLabel", "Caption", false}})
        EXPECT_EQ(rules.ExcludesProperty(row.Component, {row.Class, "", row.Path}), row.Excluded)
            << row.Component << "." << row.Path;
    EXPECT_TRUE(rules.ExcludesText({"TLabel", "x", "Caption"}, "12"));
    EXPECT_TRUE(rules.ExcludesText({"TLabel", "x", "Caption"}, "C:\\a b"));
    EXPECT_FALSE(rules.ExcludesText({"TButton", "x", "Caption"}, "C:\\a b"));
    EXPECT_TRUE(rules.ExcludesText({"TButton", "Go", "Caption"}, "go"));
    EXPECT_FALSE(rules.ExcludesText({"TButton", "Go", "Hint"}, "go"));
}

TEST(States, RecordsOfATableFollowItsLanguages) {
    TStateRecords records(
        TStringList({"Captions|a|2|stale|Go", "Captions|a|3|same|", "Hints|a|2|same|", "Captions|odd"}), "|");
    records.Move(TStringsType::stCaptions, {1, 0, 2});
    EXPECT_EQ(records.Lines().CommaText(), "Captions|a|3|stale|Go,Hints|a|2|same|,Captions|odd");
}

}  // namespace
}  // namespace tml
