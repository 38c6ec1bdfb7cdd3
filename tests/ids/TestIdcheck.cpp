#include <gtest/gtest.h>
#include <map>

#include "base/Utf8.h"
#include "ids/Idcheck.h"

namespace tml {
namespace {

/// Form1 and Form2 with a component each; "id id ..." are their strings.
std::string Check(const std::string& text, const std::string& formName, const TLanguage& language = kPascal) {
    std::map<std::string, TIDHolder> forms;
    for (const char* name : {"Form1", "Form2"}) {
        TIDHolder& holder = forms[name];
        holder.Name = std::string("L") + name[4];
        holder.Strings.Add(std::string("own") + name[4], "text", 1);
        holder.Strings.Add("Both", "text", 1);
    }
    const auto find = [&](const std::string& name) {
        const auto found = forms.find(name);
        return found == forms.end() ? nullptr : &found->second;
    };
    std::string rows;
    for (const TBadID& bad : CheckIDs(text, language, formName, "Unit1.pas", find))
        rows += bad.ID + " | " + bad.Type() + " | " + bad.Info() + "\n";
    return rows;
}

constexpr const char* kUnused = " | Not used in source of current module. | Index: ";
constexpr const char* kUndecided = " | Can't be autochecked. | Line: ";

TEST(Idcheck, FindsWhatIsNotUsedAndWhatIsNotThere) {
    const std::string uses = "// l1.gettext('OWN1')\nL1.GetTextOrDefaultW('both', 'x');\n";
    const struct {
        std::string Text, Rows;
    } cases[] = {
        {"x;\n", std::string("own1") + kUnused + "0\nBoth" + kUnused + "1\n"},
        {"L2.GetText('Both')\nxGetTextC('own1'", ""},
        {"L1.GetText( 'own1');", std::string("own1") + kUnused + "0\nBoth" + kUnused + "1\n"},
        {uses + "L1.GetText('A');", "A | Not found in Form1.L1 | Line: 3\n"},
        {uses + "L1.GetText('A' (* 'Text' *));", "A | Not found in Form1.L1 | Line: 3\n"},
        {uses + "L1.GetText('A' (* 'Text' *) );", "A | Not found in Form1.L1 | Line: 3\n"},
        {uses + "L1.GetText('A' (* 'Text' *)  );", std::string("A") + kUndecided + "3\n"},
        {uses + "L1.GetText('A' (* 'Text", std::string("A") + kUndecided + "3\n"},
        {uses + "L1.GetTextOrDefault('A', 'Text');", std::string("A") + kUndecided + "3\n"},
        {uses + "L1.GetText('') + L1.GetText('A');", ""},
        // The kind of the call comes before its place.
        {uses + "GetTextC('B') + GetText('A') + GetTextC('C')",
         "A | Not found in Form1.L1 | Line: 3\nC | Not found in Form1.L1 | Line: 3\n"},
        // A form in front of the component chooses the component for what follows.
        {uses +
             "Self.L1.GetText('own2');\nForm2.L2.GetText('own2');\nL1.GetText('own1');\nL1.GetText('Both');",
         "own2 | Not found in Form1.L1 | Line: 3\nown1 | Not found in Form1.L2 | Line: 5\n"},
        {uses + "Form3.L3.GetText('own1');\nL1.GetText('own1');",
         std::string("own1") + kUndecided + "3\nown1" + kUndecided + "4\n"},
        {uses + "Form2->L2->GetText('own1');\nForm2..L2..GetText('own1');", ""},
    };
    for (const auto& [text, rows] : cases)
        EXPECT_EQ(Check(text, "Form1"), rows) << text;
}

TEST(Idcheck, AUnitByItselfKnowsFormsByTheirNames) {
    EXPECT_EQ(
        Check("L1.GetText('own1');\nForm2.L2.GetText('A');\nL1.GetText('own2');\nSelf.L1.GetText('own2');",
              ""),
        std::string("own1") + kUndecided + "1\nA | Not found in Form2.L2 | Line: 2\nown2" + kUndecided +
            "4\n");
    EXPECT_EQ(Check("", "Form1"), "") << "an empty unit";
}

TEST(Idcheck, CppHasItsOwnQuoteAndArrow) {
    EXPECT_EQ(Check("L1->GetText(\"own1\"); L1->GetText(\"both\" /* 'x' */ );\nForm2->L2->GetText(\"A\" /* "
                    "'x' */ );\n"
                    "this->L1->GetText(\"own2\");\nForm2.L2.GetText(\"own2\");",
                    "Form1", kCpp),
              "A | Not found in Form2.L2 | Line: 2\nown2 | Not found in Form1.L1 | Line: 3\n"
              "own2 | Not found in Form1.L1 | Line: 4\n");
}

/// The description's own loops, to hold the quick search against: every entry in every line by six texts.
bool IsUsed(const std::string& id, const std::string& text) {
    const std::string upper = UpperCase(text);
    for (const char* method : {"GETTEXT(", "GETTEXTORDEFAULT(", "GETTEXTC(", "GETTEXTORDEFAULTC(",
                               "GETTEXTW(", "GETTEXTORDEFAULTW("})
        if (upper.find(method + ("'" + UpperCase(id)) + "'") != std::string::npos) return true;
    return false;
}

TEST(Idcheck, TheUsedIDsAreThoseOfAPlainSearch) {
    const std::string parts[] = {"GetText(", "GetTextOrDefaultC(", "gettextw(", "'", "''", "A",
                                 "b'",       "\xC3\xA4",           ",",         " "};
    unsigned seed = 1;
    const auto next = [&](unsigned below) { return (seed = seed * 1664525 + 1013904223) / 65536 % below; };
    int used = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (int i = 0; i < 12; ++i)
            text += parts[next(std::size(parts))];
        for (const std::string id : {"A", "b", "b'", "\xC3\x84", "A,", "'"}) {
            const TIDHolder holder{"L", [&] {
                                       TTable table(TStringsType::stStrings);
                                       table.Add(id, "text", 1);
                                       return table;
                                   }()};
            const auto rows =
                CheckIDs(text, kPascal, "F", "u.pas", [&](const std::string&) { return &holder; });
            const bool isUnused = !rows.empty() && rows.front().Kind == TBadIDKind::Unused;
            EXPECT_EQ(isUnused, !IsUsed(id, text)) << id << " in " << text;
            used += isUnused ? 0 : 1;
        }
    }
    EXPECT_GT(used, 200);
}

}  // namespace
}  // namespace tml
