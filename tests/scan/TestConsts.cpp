#include <gtest/gtest.h>

#include "base/Errors.h"
#include "scan/Constrewrite.h"
#include "scan/Scansupport.h"

namespace tml {
namespace {

/// The text with CR LF line ends.
std::string Lines(std::string text) {
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2)
        text.insert(at, 1, '\r');
    return text;
}

/// The lines of a unit Unit1 with the form Form1 around what the case is about.
std::string Unit(const std::string& consts, const std::string& code = "") {
    return Lines("unit Unit1;\ninterface\ntype\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n  end;\n" +
                 consts + "implementation\n" + code + "end.\n");
}

TConstInput ConstInput(const std::string& text) {
    TConstInput input;
    input.Scan = InputFor("Unit1.pas", text);
    return input;
}

const TConstForm kForm{ReadSource("", "Unit1.pas"), "TForm1", "mlLang1", "", ""};

struct TScanCase {
    const char* Consts;
    const char* Expected;  ///< "line:name=text(type,advice)" of records, a bar, "line:reason" of skips
};

TEST(Consts, TheScanTakesStringsOfConstSectionsOnly) {
    const TScanCase cases[] = {
        {"const\n  A = 'one'; B: String = 'two';\nvar V: string = 'var';\nconst C = 'it''s';\n",
         "8:A=one() 8:B=two(t) 10:C=it's() |"},
        {"const\n  A: PChar = 'one';\n  B : widestring = 'two'; D: string[20] = 'three';\n",
         "8:A=one(tc) 9:B=two(t) 9:D=three(t) |"},
        {"const\n  A = 'one' +\n    // why\n    'two'#33'!';\n  B =\n    'not on the line of the sign';\n",
         "8:A=onetwo!!() |"},
        {"const\n  A: array[0..1] of string = ('one', 'two'); R: TRec = (s: 'x1');\n  N = Length('one');\n"
         "  E = 'one' + S; Z = 12; B = 'x' in S; L = S + Low('a');\n",
         "10:E=one(joined) |"},
        {"const\n  A = #55357#56832'xy'#%1010#&12; &Type = 'ab'#153; C = ('in' + 'side');\n"
         "  D: UnicodeString = 'four'; E: PWideChar = 'five'; F = 'six' + Unit2.S + 'ten';\n",
         "8:A=😀xy\n\n() 8:&Type=ab™() 8:C=inside() 9:D=four(tconst-type) 9:E=five(tconst-type) "
         "9:F=sixten(joined) |"},
        {"resourcestring R = 'no'; const A = 'one'; S = 'two';\n{$IF S = 'x'} {$ENDIF} {$DEFINE A}\n",
         "7:A=one() 7:S=two(constant-use) |"},
        {"const\n  A = 'one'; // 'old = x'\n  // B = 'two';\n  { C = 'three'; }\n  D = {'no'} 'four';\n",
         "8:A=one() 11:D=four() | 8:ssrComments 10:ssrComments 11:ssrComments"},
        {"const\n  A = 'one'; {TML:IGNORE}\n{TML:IGNORE ON}\n  B = 'two';\n{TML:IGNORE OFF}\n  C = 'three';\n"
         "  D: string = ''; (* 'four' *) // TML: Localized (Don't modify!)\n  E = '...'; F = 'x' ;\n",
         "12:C=three() | 8:ssByIgnoreTag 14:ssrBadChars"},
        {"const\n  A = 'one' +\n{TML:IGNORE}\n  'two';\n  B = 'three' +\n  'four'; {TML:IGNORE}\n"
         "  C = 'five' +\n    'six'; D = 'seven'; {TML:IGNORE}\n",
         " | 12:ssByIgnoreTag 14:ssByIgnoreTag"},
        {"const\n  A = 'one'; B = 'two' + 'more'; C = 'é';\n  U = A + X;\n{$IFDEF X} I = 'cond'; {$ENDIF}\n",
         "8:A=one(constant-use) 8:B=twomore() 8:C=é(character) 10:I=cond(conditional) |"},
        {"type TOuter = class\n  type TInner = class\n  const A = 'one';\n  end;\n  end;\n  TG<T> = class\n"
         "  const B = 'two';\n  end;\n",
         "9:TOuter.TInner.A=one() 13:TG.B=two(declaration) |"},
    };
    for (const TScanCase& test : cases) {
        const TConstScanResult result = ScanConsts(ConstInput(Unit(test.Consts)));
        std::string dump;
        for (const TStrRec& r : result.Records) {
            dump += std::to_string(r.StrLine) + ":" + (r.Owner.empty() ? "" : r.Owner + ".") + r.StrName;
            dump += "=" + r.StrContent + "(" + (r.AlreadyHasType ? "t" : "") + (r.IsPChar ? "c" : "");
            dump += std::string(AdviceWord(r.Advice)) + ") ";
        }
        if (dump.empty()) dump = " ";
        dump += "|";
        for (const TmlSkippedString& s : result.Skipped) {
            EXPECT_EQ(s.Position, 0);
            const bool isWhole = s.Text.starts_with("  ") && s.Text.ends_with("}");
            EXPECT_TRUE(isWhole || s.Reason != ssByIgnoreTag) << s.Text;
            dump += " " + std::to_string(s.ConstLine) + ":" + std::string(SkipReasonName(s.Reason));
        }
        EXPECT_EQ(dump, test.Expected) << test.Consts;
    }
}

TEST(Consts, ADeclarationMayReachIntoALineWithoutEnd) {
    EXPECT_EQ(
        ScanConsts(ConstInput("unit U;\r\ninterface\r\nconst\r\n  A = 'one' +\r\n  'two';")).Records.size(),
        1U);
}

TEST(Consts, IDsAreThePrefixAndTheNameAndRespectTheComponent) {
    TConstInput input =
        ConstInput(Unit("const\n  Hello = 'one'; Bye = 'two'; Bye = 'three'; &Type = 'four';\n"));
    input.Scan.Existing = Strings({{"STRHELLO", "other"}, {"strBye", "two"}});
    for (const auto& [permanent, expected] : {std::pair(0, "strHello1 strBye strBye1 strType "),
                                              std::pair(1, "strHELLO1 strBYE strBYE1 strTYPE ")}) {
        input.CnstPermanent = permanent;
        std::string ids;
        for (const TStrRec& record : ScanConsts(input).Records)
            ids += record.StrID + " ";
        EXPECT_EQ(ids, expected);
    }
}

struct TDeclarationCase {
    const char* Source;
    const char* Emptied;
    const char* Kept;
};

/// The const section of the rewritten unit, without what is added elsewhere.
std::string Section(const TConstInput& input) {
    const std::vector<TStrRec> records = ScanConsts(input).Records;
    const TmlFoundSourceStrings rows = ConstRows(input, records);
    const TConstChanges changes = RewriteConsts(rows, input, records, kForm);
    ProveConsts(rows, input, records, kForm, changes);
    std::string text = ApplyEdits(input.Scan.Text(), changes.Unit);
    text.erase(0, text.find("  end;\r\n") + 8);
    text.erase(text.find("implementation"));
    std::erase(text, '\r');
    return text;
}

TEST(Consts, DeclarationsAreRewrittenForBothSettings) {
    const std::string done = " // TML: Localized (Don't modify!)";
    const TDeclarationCase cases[] = {
        {"const\n  A = 'one';\n", "const\n\tA: string = ''; (* 'one' *)@\n",
         "const\n\tA: string = 'one';@\n"},
        {"const A: PChar = 'it''s'; // note\n", "const\n\tA: PChar = ''; (* 'it''s' *)@ // note\n",
         "const\n\tA: PChar = 'it''s';@ // note\n"},
        {"const\n  A = 'one'; B = 2; C = 'two'; D = 'three';\n",
         "const\n\tA: string = ''; (* 'one' *)@\n B = 2;\n\tC: string = ''; (* 'two' *)@\n\tD: string = ''; "
         "(* "
         "'three' *)@\n",
         "const\n\tA: string = 'one';@\n B = 2;\n\tC: string = 'two';@\n\tD: string = 'three';@\n"},
        {"const\n  A = 'one'#13#10 + { why }\n    'two' +\n    'three';\n",
         "const\n\t{ why }\n\tA: string = ''; (* 'one'#13#10 + \t'two' + 'three' *)@\n",
         "const\n\t{ why }\n\tA: string = 'one'#13#10 + \t'two' + 'three';@\n"},
        {"const\n  A = '''a''#13#10''b''' +\n    'c';\n",
         "const\n\tA: string = ''; (* '''a''#13#10''b''' + 'c' *)@\n",
         "const\n\tA: string = '''a''#13#10''b''' + 'c';@\n"},
        {"const\n  A = '''\n    one\n    two's\n    ''';\n",
         "const\n\tA: string = ''; (* 'one'#13#10 + \t'two''s' *)@\n",
         "const\n\tA: string = 'one'#13#10 + \t'two''s';@\n"},
        {"const\n  A = 'a*)b'; { tail }\n", "const\n\tA: string = ''; (* 'ab' *)@\n { tail }\n",
         "const\n\tA: string = 'a*)b';@\n { tail }\n"},
    };
    for (const TDeclarationCase& test : cases)
        for (const bool empty : {true, false}) {
            TConstInput input = ConstInput(Unit(test.Source));
            input.EmptyConstsValues = empty;
            std::string expected = empty ? test.Emptied : test.Kept;
            for (std::size_t at = 0; (at = expected.find('@', at)) != std::string::npos; at += done.size())
                expected.replace(at, 1, done);
            EXPECT_EQ(Section(input), expected);
        }
}

/// The unit with a class whose members and bodies are given, rewritten; line ends as "\n".
std::string RewrittenUnit(const std::string& members, const std::string& bodies) {
    std::string text = Unit("const\n  A = 'one';\n", bodies);
    text.insert(text.find("  end;"), Lines(members));
    const TConstInput input = ConstInput(text);
    const std::vector<TStrRec> records = ScanConsts(input).Records;
    const TmlFoundSourceStrings rows = ConstRows(input, records);
    const TConstChanges changes = RewriteConsts(rows, input, records, kForm);
    ProveConsts(rows, input, records, kForm, changes);
    text = ApplyEdits(text, changes.Unit);
    std::erase(text, '\r');
    return text;
}

int Count(const std::string& text, const std::string& what) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += what.size())
        ++count;
    return count;
}

TEST(Consts, EveryBuildSetsTheConstants) {
    const std::string head = "procedure TForm1.FormCreate(Sender: TObject);\n";
    const struct {
        std::string Bodies;
        int Calls;  ///< of UpdateStrings in handlers; -1 where the unit is refused
    } cases[] = {
        {head + "begin\nend;\n", 2},
        {"{$IFDEF A}\n" + head + "begin\nend;\n{$ELSE}\n" + head + "begin\nend;\n{$ENDIF}\n", 3},
        {"{$IFDEF A}\n" + head + "begin\nUpdateStrings;\nend;\n{$ELSE}\n" + head + "begin\nend;\n{$ENDIF}\n",
         3},
        {head + "begin\n{$IFDEF A}\nUpdateStrings;\n{$ENDIF}\nend;\n", 3},
        {"{$IFDEF A}\n" + head + "begin\nend;\n{$ENDIF}\n", -1},
    };
    for (const auto& [bodies, calls] : cases)
        try {
            const std::string text = RewrittenUnit("procedure FormCreate(Sender: TObject);\n", bodies);
            EXPECT_EQ(Count(text, "UpdateStrings;\n") - 2, calls) << text;
        } catch (const EBadInput& error) {
            EXPECT_EQ(calls, -1) << error.what();
            EXPECT_EQ(std::string(error.what()).find("Unit1.pas:12: FormCreate has a body"), 0U)
                << error.what();
        }
}

TEST(Consts, AnUpdateStringsThatCannotBeCalledSoIsLeftAlone) {
    const std::string call = "A := mlLang1.GetTextOrDefault(";
    const struct {
        const char* Members;
        const char* Bodies;
        const char* Name;  ///< of the procedure that sets the constants
    } cases[] = {
        {"", "", "UpdateStrings"},
        {"procedure UpdateStrings;\n", "procedure TForm1.UpdateStrings;\nbegin\nend;\n", "UpdateStrings"},
        {"procedure UpdateStrings(A: Integer); overload;\nprocedure UpdateStrings; overload;\n",
         "procedure TForm1.UpdateStrings(A: Integer);\nbegin\nend;\n"
         "procedure TForm1.UpdateStrings;\nbegin\nend;\n",
         "UpdateStrings"},
        {"procedure UpdateStrings(A: Integer);\n", "procedure TForm1.UpdateStrings;\nbegin\nend;\n",
         "UpdateStrings1"},
        {"UpdateStrings: TStringList;\n", "", "UpdateStrings1"},
    };
    for (const auto& row : cases) {
        const std::string text = RewrittenUnit(row.Members, row.Bodies);
        const std::string body = "procedure TForm1." + std::string(row.Name) + ";\nbegin\n  " + call;
        EXPECT_EQ(Count(text, body), 1) << text;
        EXPECT_EQ(Count(text, std::string("  ") + row.Name + ";\n"), 1) << text;
        EXPECT_EQ(Count(text, std::string("  Self.") + row.Name + ";\n"), 1) << text;
    }
}

TEST(Consts, AMethodOfAnotherSignatureIsNoHandler) {
    const struct {
        std::string Kind, Create, Change, Expected;
    } cases[] = {
        {"procedure ", "FormCreate(Sender: TObject)", "ChangeLanguage(It: tobject)",
         "FormCreate ChangeLanguage"},
        {"procedure ", "FormCreate(const S: TObject)", "ChangeLanguage(const ALang: string)",
         "FormCreate1 mlLang1ChangeLanguage"},
        {"procedure ", "FormCreate", "mlLang1ChangeLanguage(A, B: TObject)",
         "FormCreate1 mlLang1ChangeLanguage1"},
        {"class procedure ", "FormCreate(Sender: TObject)", "ChangeLanguage(Sender: TObject)",
         "FormCreate1 mlLang1ChangeLanguage"},
    };
    for (const auto& [kind, create, change, expected] : cases) {
        std::string text = Unit("const\n  A = 'one';\n");
        for (const std::string& head : {create, change}) {
            text.insert(text.find("  end;"), kind + head + ";\r\n");
            text.insert(text.find("end.\r\n"), kind + "TForm1." + head + ";\r\nbegin\r\nend;\r\n");
        }
        const TConstInput input = ConstInput(text);
        const std::vector<TStrRec> records = ScanConsts(input).Records;
        const TmlFoundSourceStrings rows = ConstRows(input, records);
        const TConstChanges changes = RewriteConsts(rows, input, records, kForm);
        ProveConsts(rows, input, records, kForm, changes);
        EXPECT_EQ(changes.OnCreate + " " + changes.OnChangeLanguage, expected);
    }
}

struct TBadCase {
    const char* Text;
    const char* Message;
};

TEST(Consts, WhatCannotBeReadToItsEndIsRefused) {
    const std::string head = "unit Unit1;\ninterface\nconst\n  A = 'one';\n";
    const TBadCase cases[] = {
        {"  B = 'two'; { no end\nimplementation\nend.\n",
         "Unit1.pas:5: the const section ends inside a comment"},
        {"  B = 'two\nimplementation\nend.\n", "Unit1.pas:5: the literal has no end"},
        {"end.\n", "Unit1.pas:6: the unit has no implementation part"},
        {"implementation\nend.\n", "Unit1.pas:5: the class TForm1 is not declared"},
        {"type TForm1 = class(TFrame) end;\nimplementation\nend.\n",
         "Unit1.pas: a frame has no creation handler"},
    };
    for (const TBadCase& test : cases)
        try {
            Section(ConstInput(Lines(head + std::string(test.Text))));
            ADD_FAILURE() << test.Message;
        } catch (const EBadInput& error) {
            EXPECT_EQ(std::string(error.what()).substr(0, std::string(test.Message).size()), test.Message);
        }
}

TEST(Consts, TheProofRefusesACallThatIsNotTheRowsOwn) {
    const TConstInput input = ConstInput(Unit("const\n  A = 'one';\n"));
    const std::vector<TStrRec> records = ScanConsts(input).Records;
    TmlFoundSourceStrings rows = ConstRows(input, records);
    TConstChanges changes = RewriteConsts(rows, input, records, kForm);
    rows[0].StrID = "other";
    EXPECT_THROW(ProveConsts(rows, input, records, kForm, changes), EBadInput);
    rows[0].StrID = records[0].StrID;
    TConstChanges other = changes;
    other.Unit[1].Text.replace(other.Unit[1].Text.find("''"), 2, "'new'");
    EXPECT_THROW(ProveConsts(rows, input, records, kForm, other), EBadInput);
    changes.Unit.erase(changes.Unit.begin() + 1);  // the declaration
    EXPECT_THROW(ProveConsts(rows, input, records, kForm, changes), EBadInput);
}

}  // namespace
}  // namespace tml
