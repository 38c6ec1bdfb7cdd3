#include <functional>
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "source/Fieldedits.h"
#include "source/Includeedits.h"
#include "source/Usesedits.h"

namespace tml {
namespace {

using TEditor = std::function<TEdits(const TSourceText&)>;

std::string Lines(std::string text) {
    for (std::size_t pos = 0; (pos = text.find('\n', pos)) != std::string::npos; pos += 2)
        text.insert(pos, 1, '\r');
    return text;
}

struct TCase {
    const char* Before;
    const char* After;
};

void ExpectEdits(const TLanguage& language, const TEditor& edit, std::initializer_list<TCase> cases) {
    for (const TCase& row : cases) {
        const std::string text = Lines(row.Before);
        const TSourceText source(std::string_view(text), language, "Unit1.pas");
        EXPECT_EQ(ApplyEdits(text, edit(source)), Lines(row.After)) << row.Before;
    }
}

const TEditor kAdd = [](const TSourceText& s) { return AddField(s, "tform1", "mlLang1", "TmlLang"); };
const TEditor kAddCpp = [](const TSourceText& s) { return AddField(s, "TForm1", "mlLang1", "TmlLang"); };
const TEditor kRename = [](const TSourceText& s) { return RenameField(s, "TForm1", "B", "NewName"); };
const TEditor kRemove = [](const TSourceText& s) { return RemoveField(s, "TForm1", "B"); };

TEST(Fields, AreAddedInPascal) {
    ExpectEdits(
        kPascal, kAdd,
        {{"type\n  TForm1 = class(TForm)\n    A: TA;\n    B : TB; // b\n    procedure X;\n  private\n    C: "
          "TC;\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    A: TA;\n    B : TB; // b\n    mlLang1 : TmlLang;\n    "
          "procedure X;\n"
          "  private\n    C: TC;\n  end;\n"},
         {"type\n  TForm1 = class;\n  TForm1 = class(TForm)\n  private\n    { Private }\n  public\n  end;\n",
          "type\n  TForm1 = class;\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n  private\n    { Private "
          "}\n"
          "  public\n  end;\n"},
         {"type\n  TForm1 = class(TForm)\n  published\n    A, B: record X: Integer; end;\n  end;\n",
          "type\n  TForm1 = class(TForm)\n  published\n    A, B: record X: Integer; end;\n    mlLang1: "
          "TmlLang;\n  end;\n"},
         {"type\n  TForm1 = class(TForm)\n    procedure X;\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n    procedure X;\n  end;\n"},
         {"type\n  TForm1 = class sealed(TForm)\n    procedure X;\n  end;\n",
          "type\n  TForm1 = class sealed(TForm)\n    mlLang1: TmlLang;\n    procedure X;\n  end;\n"},
         {"type\n  TForm1 = class(TForm)\n    A: TA;\n{$IFDEF X}\n    B: TB;\n{$ENDIF}\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n    A: TA;\n{$IFDEF X}\n    B: "
          "TB;\n{$ENDIF}\n  end;\n"},
         {"type\n  TForm1 = class(TForm) end;\n",
          "type\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n  end;\n"},
         {"type\n  TForm1 = class(TForm)\n  public\n    MLLANG1: TmlLang;\n  end;\n",
          "type\n  TForm1 = class(TForm)\n  public\n    MLLANG1: TmlLang;\n  end;\n"}});
}

TEST(Fields, StandWhereEveryBuildSeesThemAndInNoComment) {
    ExpectEdits(
        kPascal, kAdd,
        {{"type\n  TForm1 = class(TForm)\n    A: TA; { one\n      two }\n    B: procedure of object; (* c\n  "
          "d *)\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    A: TA; { one\n      two }\n    B: procedure of object; (* c\n  "
          "d *)\n    mlLang1: TmlLang;\n  end;\n"},
         {"type\n  TForm1 = class(TForm) { the\n  form } A: TA;\n  end;\n",
          "type\n  TForm1 = class(TForm) { the\n  form } A: TA;\n  mlLang1: TmlLang;\n  end;\n"},
         {"type\n  TForm1 = class(TForm) { the\n  form } procedure X;\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n    { the\n  form } procedure X;\n  end;\n"},
         {"type\n  TForm1 = class(TForm)\n    A: TA; procedure X;\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    A: TA;\n    mlLang1: TmlLang;\n    procedure X;\n  end;\n"},
         {"type\n  TForm1 = class(TForm) {$IFDEF X}\n    A: TA;{$ENDIF}\n  end;\n",
          "type\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n    {$IFDEF X}\n    A: TA;{$ENDIF}\n  "
          "end;\n"},
         {"type\n{$IFDEF X}\n  TForm1 = class(TForm)\n    A: TA;\n  end;\n{$ELSE}\n  TForm1 = class(TB)\n  "
          "end;\n{$ENDIF}\n",
          "type\n{$IFDEF X}\n  TForm1 = class(TForm)\n    A: TA;\n    mlLang1: TmlLang;\n  end;\n{$ELSE}\n  "
          "TForm1 = class(TB)\n    mlLang1: TmlLang;\n  end;\n{$ENDIF}\n"},
         {"type\n  TForm1<T> = class\n  end;\n  TOuter = class\n  type\n    TForm1 = class\n    end;\n  "
          "end;\n  TForm1 = class(TForm)\n  end;\n",
          "type\n  TForm1<T> = class\n  end;\n  TOuter = class\n  type\n    TForm1 = class\n    end;\n  "
          "end;\n  TForm1 = class(TForm)\n    mlLang1: TmlLang;\n  end;\n"},
         {"type\n  TForm1 = class(TForm)\n{$IFDEF X}\n    mlLang1: TmlLang;\n{$ELSE}\n    mlLang1: "
          "L.TmlLang;\n{$ENDIF}\n  end;\n",
          "type\n  TForm1 = class(TForm)\n{$IFDEF X}\n    mlLang1: TmlLang;\n{$ELSE}\n    mlLang1: "
          "L.TmlLang;\n{$ENDIF}\n  end;\n"}});
    ExpectEdits(
        kCpp, kAddCpp,
        {{"class TForm1 : public TForm\n{\n\tfriend class X;\n\tint N;\n__published:\n\tTA *A; // a \\\n\tb\n"
          "\tvoid M();\n};\n",
          "class TForm1 : public TForm\n{\n\tfriend class X;\n\tint N;\n__published:\n\tTA *A; // a \\\n\tb\n"
          "\tTmlLang *mlLang1;\n\tvoid M();\n};\n"},
         {"class TForm1 : public TForm\n{\nprivate:\n\tint N;\npublic:\n\tvoid M();\n};\n",
          "class TForm1 : public TForm\n{\nprivate:\n\tint N;\npublic:\n\tvoid M();\n__published:\n\tTmlLang "
          "*mlLang1;\n};\n"},
         {"class TForm1 : public TForm { typedef int T; enum E { a }; class TForm1 { TA *A; }; };\n",
          "class TForm1 : public TForm { typedef int T; enum E { a }; class TForm1 { TA *A; }; "
          "\n__published:\n\tTmlLang *mlLang1;\n};\n"},
         {"class TForm1 : public TForm\n{\n__published: /* IDE\n\tmanaged */\n#ifdef X\n\tTA "
          "*A;\n#endif\n};\n",
          "class TForm1 : public TForm\n{\n__published: /* IDE\n\tmanaged */\n\tTmlLang *mlLang1;\n#ifdef "
          "X\n\tTA *A;\n#endif\n};\n"},
         {"#ifndef H\n#define H\n#if X\nclass TForm1 : public TForm {\n__published:\n\tTA *A;\n};\n#else\n"
          "class TForm1 : public TB {\n};\n#endif\n#endif\n",
          "#ifndef H\n#define H\n#if X\nclass TForm1 : public TForm {\n__published:\n\tTA *A;\n\tTmlLang "
          "*mlLang1;\n};\n#else\nclass TForm1 : public TB {\n__published:\n\tTmlLang "
          "*mlLang1;\n};\n#endif\n#endif\n"}});
}

TEST(Fields, AreRenamedAndRemoved) {
    const char* several = "type TForm1 = class\n    A, B, C: TA;\n  end;\n";
    ExpectEdits(kPascal, kRename, {{several, "type TForm1 = class\n    A, NewName, C: TA;\n  end;\n"}});
    ExpectEdits(
        kPascal, kRemove,
        {{several, "type TForm1 = class\n    A, C: TA;\n  end;\n"},
         {"type TForm1 = class\n    B, C: TA;\n  end;\n", "type TForm1 = class\n    C: TA;\n  end;\n"},
         {"type TForm1 = class\n    A, B: TA;\n  end;\n", "type TForm1 = class\n    A: TA;\n  end;\n"},
         {"type TForm1 = class\n    A: TA;\n    b: TB; // x\n  end;\n",
          "type TForm1 = class\n    A: TA;\n  end;\n"},
         {"type TForm1 = class\n    procedure X(B: TB);\n    A: TA; B: TB;\n  end;\n",
          "type TForm1 = class\n    procedure X(B: TB);\n    A: TA; \n  end;\n"}});
    ExpectEdits(kCpp, kRemove,
                {{"class TForm1 : public TForm\n{\n\tTA *A;\n\tTB *B;\n};\n",
                  "class TForm1 : public TForm\n{\n\tTA *A;\n};\n"},
                 {"class TForm1 {\n TA *B, *C;\n};\n", "class TForm1 {\n TA *C;\n};\n"}});
}

TEST(Fields, AreAddedInCpp) {
    ExpectEdits(kCpp, kAddCpp,
                {{"class TForm1 : public TForm\n{\n__published:\t// IDE\n\tTA* A;\n\tvoid __fastcall X();\n"
                  "private:\n\tTB *B;\npublic:\n};\n",
                  "class TForm1 : public TForm\n{\n__published:\t// IDE\n\tTA* A;\n\tTmlLang* mlLang1;\n"
                  "\tvoid __fastcall X();\nprivate:\n\tTB *B;\npublic:\n};\n"},
                 {"class TForm1;\nclass PACKAGE TForm1 : public TForm\n{\n__published:\nprivate:\n};\n",
                  "class TForm1;\nclass PACKAGE TForm1 : public TForm\n{\n__published:\n\tTmlLang "
                  "*mlLang1;\nprivate:\n};\n"}});
}

/// The line that a refusal names, 0 where nothing is refused.
int RefusedLine(const TLanguage& language, const TEditor& edit, const std::string& text) {
    const TSourceText source(std::string_view(text), language, "Unit1.pas");
    try {
        edit(source);
    } catch (const EBadInput& error) {
        return error.File() == "Unit1.pas" ? error.Line() : -1;
    }
    return 0;
}

TEST(Edits, AreRefusedWithTheLine) {
    const TEditor addOther = [](const TSourceText& s) { return AddField(s, "TForm2", "X", "TX"); };
    const TEditor use = [](const TSourceText& s) { return AddUsedUnit(s, "mlLang"); };
    const TEditor useBelow = [](const TSourceText& s) { return AddImplementationUnit(s, "X"); };
    const struct {
        const TLanguage& Language;
        const TEditor& Edit;
        const char* Text;
        int Line;
    } cases[] = {
        {kPascal, addOther, "interface\ntype TForm1 = class\n  A: TA;\nend;\nimplementation\n", 5},
        {kPascal, kRemove, "interface\ntype TForm1 = class\n  A: TA;\nend;\nimplementation\n", 2},
        {kPascal, kAdd, "type\n TForm1 = class\n  procedure MLLANG1;\n end;\n", 3},
        {kPascal, kAdd, "type\n TForm1 = class\n private\n  mlLang1: TOther;\n end;\n", 4},
        {kPascal, kAdd, "type\n TForm1 = class\n{$IFDEF X}\n  mlLang1: TmlLang;\n{$ENDIF}\n end;\n", 4},
        {kPascal, kAdd, "type\n{$IFDEF X}\n TForm1 = class(TA)\n{$ELSE}\n TForm1 = class\n{$ENDIF}\n end;\n",
         3},
        {kPascal, useBelow, "begin\nend.", 2},
        {kPascal, use, "interface\nuses A,\n{$IFDEF X}\n  mlLang,\n{$ENDIF}\n  B;\n", 4},
        {kPascal, use, "interface\n{$IFDEF X}\nuses A;\nconst C = 1;\n{$ENDIF}\n", 3},
        {kPascal, use, "interface\nuses A;\nimplementation\nuses mlLang {$IFDEF X}, B {$ENDIF};\n", 4},
    };
    for (const auto& row : cases)
        EXPECT_EQ(RefusedLine(row.Language, row.Edit, row.Text), row.Line) << row.Text;
}

TEST(Units, AreAddedToUsesClauses) {
    const TEditor add = [](const TSourceText& s) { return AddUsedUnit(s, "mlLang"); };
    ExpectEdits(
        kPascal, add,
        {{"interface\nuses A;\nimplementation\nuses D, MLLANG;\n",
          "interface\nuses A, mlLang;\nimplementation\nuses D;\n"},
         {"interface\nuses A;\nimplementation\nuses mlLang,\n  D;\n",
          "interface\nuses A, mlLang;\nimplementation\nuses D;\n"},
         {"interface\nuses A;\nimplementation\nuses mlLang;\n",
          "interface\nuses A, mlLang;\nimplementation\n\n"},
         {"interface\nuses A;\nimplementation\nuses S, // a, b\n  mlLang;\n",
          "interface\nuses A, mlLang;\nimplementation\nuses S // a, b\n  ;\n"},
         {"interface\nuses A;\nimplementation\nuses S, {x, y} mlLang, {z} B;\n",
          "interface\nuses A, mlLang;\nimplementation\nuses S, {x, y} {z} B;\n"},
         {"interface\nuses A;\nimplementation\nuses {c} mlLang {d};\n",
          "interface\nuses A, mlLang;\nimplementation\n {c}  {d}\n"},
         {"interface\nuses A;\nimplementation\nuses B {$IFDEF X}, mlLang{$ENDIF};\n",
          "interface\nuses A, mlLang;\nimplementation\nuses B {$IFDEF X}{$ENDIF};\n"},
         {"interface\nuses {$IFDEF X} mlLang, {$ELSE} mlLang, {$ENDIF} A;\n",
          "interface\nuses {$IFDEF X} mlLang, {$ELSE} mlLang, {$ENDIF} A;\n"},
         {"unit U;\ninterface { the\n interface }\ntype\n",
          "unit U;\ninterface { the\n interface }\n\nuses\n  mlLang;\ntype\n"},
         {"unit U;\ninterface\nuses\n  A, B.C;\nimplementation\nuses D;\n",
          "unit U;\ninterface\nuses\n  A, B.C, mlLang;\nimplementation\nuses D;\n"},
         {"interface\nuses\n  A,\n  B { x };\n", "interface\nuses\n  A,\n  B { x },\n  mlLang;\n"},
         {"interface\nuses A, MLLANG;\n", "interface\nuses A, MLLANG;\n"},
         {"interface\nuses A {$IFDEF X}, B;{$ELSE};{$ENDIF}\n",
          "interface\nuses mlLang, A {$IFDEF X}, B;{$ELSE};{$ENDIF}\n"},
         {"interface\nuses A{$IFDEF X}, B{$ENDIF};\n", "interface\nuses A{$IFDEF X}, B{$ENDIF}, mlLang;\n"},
         {"interface\nuses Aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa, Bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb;\n",
          "interface\nuses Aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa, Bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb,\n  "
          "mlLang;\n"},
         {"unit U;\ninterface\ntype\n", "unit U;\ninterface\n\nuses\n  mlLang;\ntype\n"},
         {"program P;\nuses A in 'a.pas' {Form1};\nbegin\nend.\n",
          "program P;\nuses A in 'a.pas' {Form1}, mlLang;\nbegin\nend.\n"}});
    const TEditor addBelow = [](const TSourceText& s) { return AddImplementationUnit(s, "Unit2"); };
    ExpectEdits(kPascal, addBelow,
                {{"interface\nuses A;\nimplementation\n{$R *.dfm}\n",
                  "interface\nuses A;\nimplementation\n\nuses\n  Unit2;\n{$R *.dfm}\n"},
                 {"interface\nimplementation\n{$IFDEF X}\nuses B;\n{$ELSE}\nuses C;\n{$ENDIF}\n",
                  "interface\nimplementation\nuses\n  Unit2 {$IFDEF X}\n, B\n{$ELSE}\n, C\n{$ENDIF};\n"},
                 {"interface\nimplementation\nconst C = 1;\n{$IFDEF X}uses B;{$ENDIF}\n",
                  "interface\nimplementation\n\nuses\n  Unit2;\nconst C = 1;\n{$IFDEF X}uses B;{$ENDIF}\n"},
                 {"interface\nuses A;\nimplementation\nuses B;\n",
                  "interface\nuses A;\nimplementation\nuses B, Unit2;\n"},
                 {"interface\nuses unit2;\nimplementation\n", "interface\nuses unit2;\nimplementation\n"}});
}

TEST(Units, AreIncludedInHeaders) {
    const TEditor add = [](const TSourceText& s) { return AddInclude(s, "mlLang.hpp"); };
    ExpectEdits(
        kCpp, add,
        {{"#ifndef UH\n#define UH\n#include <A.hpp>\n#ifdef X\n#include \"B.h\"\n#endif\nclass C;\n#endif\n",
          "#ifndef UH\n#define UH\n#include <A.hpp>\n#include \"mlLang.hpp\"\n#ifdef X\n#include "
          "\"B.h\"\n#endif\nclass C;\n#endif\n"},
         {"#pragma once\nclass C;\n", "#pragma once\n#include \"mlLang.hpp\"\nclass C;\n"},
         {"#include <MLLANG.hpp>\n", "#include <MLLANG.hpp>\n"},
         {"class C;\n", "#include \"mlLang.hpp\"\nclass C;\n"},
         {"#include <A.hpp> /* a\n b */\n#include <B.hpp> // b \\\n c\nclass C;\n",
          "#include <A.hpp> /* a\n b */\n#include <B.hpp> // b \\\n c\n#include \"mlLang.hpp\"\nclass C;\n"},
         {"#ifndef H\n#define H\n#ifdef X\n#include <A.hpp>\n#else\n#include <mlLang.hpp>\n#endif\nclass "
          "C;\n#endif\n",
          "#ifndef H\n#define H\n#include \"mlLang.hpp\"\n#ifdef X\n#include <A.hpp>\n#else\n#include "
          "<mlLang.hpp>\n#endif\nclass C;\n#endif\n"},
         {"#include <A.hpp>\nclass C {\n};\n#include <B.hpp>\n",
          "#include <A.hpp>\n#include \"mlLang.hpp\"\nclass C {\n};\n#include <B.hpp>\n"},
         {"#if X\n#include \"mlLang.hpp\"\n#elif Y\n#include \"mlLang.hpp\"\n#else\n#include "
          "\"mlLang.hpp\"\n#endif\n",
          "#if X\n#include \"mlLang.hpp\"\n#elif Y\n#include \"mlLang.hpp\"\n#else\n#include "
          "\"mlLang.hpp\"\n#endif\n"}});
}

}  // namespace
}  // namespace tml
