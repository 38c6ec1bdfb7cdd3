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

/// The description's own loops, to hold the quick search against: every entry in every line by six texts,
/// then every line call by call.
class TPlainCheck {
  public:
    using TForms = std::map<std::string, TIDHolder>;
    TPlainCheck(const TForms& forms, const std::string& formName) : forms_(forms), formName_(formName) {}

    std::string Rows(const std::vector<std::string>& lines) {
        if (lines.empty()) return rows_;
        const TIDHolder* own = formName_.empty() ? nullptr : Find(formName_);
        if (own != nullptr) Unused(*own, lines);
        inForce_ = own;
        for (std::size_t i = 0; i < lines.size(); ++i)
            Line(lines[i], std::to_string(i + 1));
        return rows_;
    }

  private:
    const TIDHolder* Find(const std::string& form) const {
        const auto found = forms_.find(form);
        return found == forms_.end() ? nullptr : &found->second;
    }

    void Unused(const TIDHolder& own, const std::vector<std::string>& lines) {
        for (std::size_t i = 0; i < own.Strings.Entries().size(); ++i) {
            const std::string& id = own.Strings.Entries()[i].Key;
            bool used = false;
            for (const std::string& method : kMethods)
                for (const std::string& line : lines)
                    used = used || UpperCase(line).find(UpperCase(method + "'" + id + "'")) != kNowhere;
            if (!used)
                rows_ += id + " | Not used in source of current module. | Index: " + std::to_string(i) + "\n";
        }
    }

    /// The first kind that occurs anywhere in the rest; its length in length.
    static std::size_t NextCall(const std::string& rest, std::size_t& length) {
        for (const std::string& method : kMethods) {
            length = method.size() + 1;
            const std::size_t at = UpperCase(rest).find(UpperCase(method) + "'");
            if (at != kNowhere) return at;
        }
        return kNowhere;
    }

    static std::string TakeBack(std::string& text, const std::string& signs) {
        std::string taken;
        for (; !text.empty() && signs.find(text.back()) != kNowhere; text.pop_back())
            taken = text.back() + taken;
        return taken;
    }

    void Line(const std::string& line, const std::string& number) {
        std::string rest = line;
        std::size_t length = 0;
        for (std::size_t at; (at = NextCall(rest, length)) != kNowhere;) {
            std::string front = rest.substr(0, at), form;
            if (TakeBack(front, ".->") == ".") {
                TakeBack(front, kLetters);
                if (!front.empty() && std::string(".->").find(front.back()) != kNowhere) {
                    front.pop_back();
                    form = TakeBack(front, kLetters);
                }
            }
            if (!form.empty()) {
                if (SameText(form, "Self")) form = formName_;
                inForce_ = Find(form);
            } else {
                form = formName_;
            }
            rest = rest.substr(at + length);
            const std::string id = rest.find('\'') == kNowhere ? "" : rest.substr(0, rest.find('\''));
            if (id.empty()) return;
            bool found = false;
            if (inForce_ != nullptr)
                for (const TTableEntry& entry : inForce_->Strings.Entries())
                    found = found || UpperCase(entry.Key) == UpperCase(id);
            if (found) continue;
            std::string behind(Trim(rest.substr(id.size() + 1)));
            const std::size_t open = behind.find("(*"), close = behind.find("*)");
            if (open != kNowhere && close != kNowhere) {
                // The bracket that follows the comment at once is not deleted with it.
                const bool isKept = open == 0 && behind.substr(close + 2, 1) == ")";
                behind.erase(open, close + 1 + (isKept ? 1 : 2));
            } else if (open != kNowhere) {
                behind.erase(open);
            }
            const bool missing = inForce_ != nullptr && !behind.empty() && behind[0] == ')';
            rows_ += id + " | " +
                     (missing ? "Not found in " + form + "." + inForce_->Name : "Can't be autochecked.") +
                     " | Line: " + number + "\n";
        }
    }

    static constexpr std::size_t kNowhere = std::string::npos;
    static inline const std::string kLetters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    static inline const std::string kMethods[] = {"GetText(",  "GetTextOrDefault(",
                                                  "GetTextC(", "GetTextOrDefaultC(",
                                                  "GetTextW(", "GetTextOrDefaultW("};
    const TForms& forms_;
    std::string formName_;
    const TIDHolder* inForce_ = nullptr;
    std::string rows_;
};

TEST(Idcheck, TheRowsAreThoseOfAPlainReading) {
    const std::string parts[] = {"GetText('",  "GetTextOrDefaultC('",
                                 "gettextw('", "GetTextC(",
                                 "'",          "')",
                                 "''",         "A",
                                 "b'",         "\xC3\xA4",
                                 ",",          " ",
                                 "Form1.L1.",  "Form2.L2.",
                                 "Self.L.",    "L1.",
                                 "Nobody.L.",  "->",
                                 "..",         "(*x*))",
                                 "(*x*) )",    "(* ",
                                 ")",          "\r\n"};
    unsigned seed = 1;
    const auto next = [&](unsigned below) { return (seed = seed * 1664525 + 1013904223) / 65536 % below; };
    std::map<std::string, TIDHolder> forms;
    for (const char* name : {"Form1", "Form2"}) {
        forms[name].Name = std::string("L") + name[4];
        for (const char* id : {"A", "b", "b'", "\xC3\x84", "A,", "'", "b'A'"})
            if (name[4] == '1' || next(2) == 0) forms[name].Strings.Add(id, "text", 1);
    }
    const auto find = [&](const std::string& name) {
        const auto found = forms.find(name);
        return found == forms.end() ? nullptr : &found->second;
    };
    std::map<TBadIDKind, int> kinds;
    for (int round = 0; round < 3000; ++round) {
        std::string text, got;
        for (int i = 0; i < 24; ++i)
            text += parts[next(std::size(parts))];
        const std::string form = next(4) == 0 ? "" : "Form1";
        for (const TBadID& bad : CheckIDs(text, kPascal, form, "u.pas", find)) {
            got += bad.ID + " | " + bad.Type() + " | " + bad.Info() + "\n";
            ++kinds[bad.Kind];
        }
        EXPECT_EQ(got, TPlainCheck(forms, form).Rows(TStringList::FromText(text).Items())) << text;
    }
    for (const TBadIDKind kind : {TBadIDKind::Unused, TBadIDKind::NotFound, TBadIDKind::Undecided})
        EXPECT_GT(kinds[kind], 500);
}

}  // namespace
}  // namespace tml
