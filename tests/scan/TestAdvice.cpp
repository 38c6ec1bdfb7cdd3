#include <gtest/gtest.h>
#include <regex>

#include "scan/Advice.h"

namespace tml {
namespace {

/// The word for each literal in the order of the text, "-" for none.
std::string Words(const std::string& text, const TLanguage& language, bool everywhere = false,
                  const TSourceText* header = nullptr) {
    const TSourceText source(std::string_view(text), language);
    std::string words;
    for (const TAdvice advice : Advise(source, {"TForm1", everywhere, header})) {
        if (!words.empty()) words += ' ';
        words += advice == TAdvice::None ? "-" : AdviceWord(advice);
    }
    return words;
}

struct TCase {
    const char* Text;
    const char* Expected;
};

const std::string kUnit = R"(unit Unit1;
interface
uses A in 'a.pas';
const X = 'a'; Y: array[0..1] of string = ('b', 'c');
resourcestring R = 'd';
type
  IX = interface
    ['{00000000-0000-0000-C000-000000000046}']
    procedure P(const a: string = 'e');
  end;
  TForm1 = class(TForm)
    [Attr('f')]
    Button1: TButton;
    procedure M; message 'g';
    property Q: string default 'h';
  const K = 'i';
  end;
  TSub = 'a'..'z';
var V: string = 'j';
procedure Ext; external 'k' name 'l';
implementation
{$R 'm'}
procedure Free(x: string = 'n');
begin
  s := 'o';
end;
procedure TForm1.M;
const L = 'p';
  procedure Nested;
  begin
    s := 'q';
  end;
begin
  case s of
    'r', 's': t := 't';
    'u': begin t := 'v'; x := 'w'; end;
  else
    t := 'x'; F('y');
  end;
  if c in ['a', 'b', 'c'..'d'] then F(['aa', 'b']) else G[('z')];
  asm mov al, 'x' end;
  t := 'z'; // 'comment'
end;
class procedure TForm1.C;
begin
  s := 'a';
end;
procedure TForm2.M;
var
  p: procedure(x: string = 'b');
begin
  s := procedure begin t := 'c'; end;
end;
initialization
  s := 'd';
end.
)";

TEST(Advice, ForAWholeUnit) {
    EXPECT_EQ(
        Words(kUnit, kPascal),
        "uses const array-initialiser array-initialiser resourcestring guid default-parameter attribute "
        "external declaration const range range initialiser external external directive default-parameter "
        "outside-method const - case-label case-label - case-label - - - - set set range range - set - asm - "
        "comment outside-method default-parameter outside-method outside-method");
    EXPECT_EQ(Words("unit U; implementation procedure F; begin s := 'a'; end; const c = 'b';", kPascal, true),
              "- const");
}

TEST(Advice, SurvivesConditionsAndGaps) {
    const TCase cases[] = {
        {"implementation\n{$IFDEF A}\nprocedure TForm1.M(x: integer);\nbegin\n{$ELSE}\nprocedure TForm1.M;\n"
         "begin\n{$ENDIF}\n s := 'a';\nend;\nconst c = 'b';",
         "- const"},
        {"implementation\nprocedure TForm1.M;\nbegin\n{$IFDEF A}\nif x then begin\n{$ELSE}\nbegin\n{$ENDIF}\n"
         "s := 'a'; end;\nend;\nprocedure F;\nbegin s := 'b'; end;",
         "- outside-method"},
        {"implementation\nprocedure TForm1.M;\nbegin\n begin begin\nend;\nprocedure F;\nbegin s := 'a'; end;",
         "outside-method"},
        {"implementation\nprocedure TForm1.M;\nbegin\n for s in ['f1', 'f2'] do x;\n"
         " for c in ['a', 'b'] do if s in ['c1'] then y;\nend;",
         "- - set set set"},
        {"implementation\nprocedure F; forward;\nprocedure TForm1.M;\nbegin r.end_ := x.&end; s := 'a'; end;",
         "-"},
        {"type T<A: class, constructor> = class procedure X; end;\nimplementation\n"
         "procedure T<A>.X;\nbegin s := 'a'; end;\nfunction TForm1.G<B>(b: B): string;\nbegin s := 'b'; end;",
         "outside-method -"},
        {"implementation\nprocedure TForm1.M;\nbegin\n const a = 'a';\n f := function(x: string = 'b'): S.T\n"
         " var i: byte;\n const k = 'c';\n begin t := 'd'; end;\n var p: procedure; s := 'e';\nend;",
         "- default-parameter const - -"},
        {"implementation\nprocedure TForm1.M;\nbegin\n case x of\n {$IFDEF A} 'a': b; {$ELSE} 'c': d; "
         "{$ENDIF}\n"
         " 'e': f('g');\n {$R+} 'h': i; end;\nend;",
         "case-label case-label case-label - case-label"},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(Words(row.Text, kPascal), row.Expected) << row.Text;
}

TEST(Advice, WhereACharacterPointerIsWanted) {
    const std::string declared =
        "unit U; interface uses Windows;\n"
        "type PText = PChar; PNode = ^TNode; TNode = record Name: PChar; Title: string; end;\n"
        "TForm1 = class(TForm) F: PWideChar; S: string; A: array[0..1] of PText;\n"
        " procedure Show(const T: string; P: PChar; C: array of PChar); overload; property Q: PText read F; "
        "property Con;\n"
        " function G: PChar; procedure Say(P: PChar); procedure Say(S: string); end;\n"
        "procedure Ext(var Buffer; A, B: PAnsiChar; S: string); cdecl; external;\n"
        "var V: ^Char; implementation\n"
        "function TForm1.G: PChar;\nvar P: Pointer; S, T: string; N: PNode; I: Integer; D: PChar;\n begin ";
    const TCase pascal[] = {
        {"P := 'a'; S := 'b'; F := 'c' + #13; Self.F := 'd'; Self.S := 'e'; V := 'f';", "p - p p - p"},
        {"Result := 'a'; G := 'b'; Exit('c'); A[0] := 'd'; N.Name := 'e'; N^.Title := 'f';", "p p p p p -"},
        {"Q := 'a'; S[1] := 'b'; D[0] := 'c'; X.F := 'd'; Y.lpszText := 'e';", "p - - - p"},
        {"Show('a', 'b', ['cc']); Self.Show('d', 'e'); X.Show('f', 'g'); Say('h');", "- p - - p - - -"},
        {"Ext(I, 'a', S + 'b', 'c'); ext(I, PChar('d'), 'e' #0, IntToStr(1) + 'f');", "p - - - p -"},
        {"Application.MessageBox('a', 'b', 0); MessageBoxA(0, PChar(S), 'c', 0); X.MessageBox('d', 'e');",
         "p p p - -"},
        {"LoadLibrary('a'); StrPCopy(P, 'b'); StrComp('c', P); if StrComp(P, 'd' + S) = 0 then I := 1;",
         "p - p -"},
        {"Query(Con, 'a'); I := query(PChar(Con)); Note(PChar(D)); Note('b'); X.Add(PChar(T)); Add('c');",
         "p - -"},
    };
    for (const TCase& row : pascal) {
        const std::string expected = std::regex_replace(row.Expected, std::regex("p"), "char-pointer");
        EXPECT_EQ(Words(declared + row.Text + " end; end.", kPascal), expected) << row.Text;
    }
    EXPECT_EQ(Words("uses Dynlibs; implementation procedure TForm1.M; begin LoadLibrary('a'); "
                    "MessageBox(0, 'b', 'c', 0); end;\nfunction H: PChar; begin Result := 'd'; end;",
                    kPascal),
              "- char-pointer char-pointer outside-method");

    const TCase cpp[] = {
        {"const char *p = \"a\", *q; LPCTSTR w = L\"b\"; String s = \"c\"; p = \"d\"; if (s == \"e\") s = "
         "\"f\";",
         "p p - p - -"},
        {"s = p == \"a\" ? \"b\" : \"c\"; p = s == x(1) ? \"d\" : \"e\"; (const char *)\"f\"; PChar(\"g\");",
         "- - - p p p p"},
        {"Application->MessageBox(L\"a\", L\"b\", MB_OK); ::MessageBox(0, \"c\", s.c_str(), 0); "
         "x->MessageBox(\"d\");",
         "p p p -"},
        {"take(1, \"a\"); take(\"b\", 1); FText = \"c\"; this->FText = \"d\"; Put(\"e\", \"f\"); return "
         "\"g\";",
         "p - p p p - p"},
        {"std::strcmp(p, \"a\"); log(s.c_str()); log(n, \"b\"); char c[] = {1}; names[0] = \"c\"; p[0] = "
         "\"d\";",
         "p p p -"},
    };
    const auto header = ReadSource(
        "typedef const char* TText;\nclass TForm1 : public TForm { TText FText; String S;\n"
        " void Put(const char *p, const String& s); const char* G(char *p); };\n"
        "extern const wchar_t *names[2];\n",
        "Unit1.h");
    for (const TCase& row : cpp) {
        const std::string text =
            "void take(int n, TText t);\nconst char* TForm1::G(char *p)\n{ " + std::string(row.Text) + " }\n";
        const std::string expected = std::regex_replace(row.Expected, std::regex("p"), "char-pointer");
        EXPECT_EQ(Words(text, kCpp, false, header.get()), expected) << row.Text;
    }
    EXPECT_EQ(Words("void f(const char *p) { p = \"a\"; }", kCpp, true), "char-pointer");
}

TEST(Advice, ForCpp) {
    const TCase cases[] = {
        {"#include \"a.h\"\n#define A \"b\"\nextern \"C\" { void f(); }\n", "include directive linkage"},
        {"const char* a = \"b\";\nString c = \"d\";\nstatic String e[] = { \"f\", \"g\" };",
         "const initialiser array-initialiser array-initialiser"},
        {"void f(String s = \"a\");\nvoid __fastcall TForm1::M(TObject *Sender)\n{\n f(\"b\");\n if (x) { "
         "g(\"c\"); }\n}\n",
         "default-parameter - -"},
        {"void g() { f(\"a\"); }\nnamespace n { class TForm1 : public TForm { void m() { f(\"b\"); } }; }",
         "outside-method -"},
        {"void TForm1::M() { f(\"a\" PRIu64); f(\"b\" /* x */ \"c\"); f(X \"d\"); return \"e\"; "
         "static_assert(x, \"f\"); }",
         "macro inner-comment macro - declaration"},
        {"void TForm1::M() { struct L : B { String T() { return \"a\"; } } l; f(\"b\"); }",
         "outside-method -"},
        {"TForm1::TForm1(String s = \"a\") : TForm(f(\"b\")), FOne{\"c\"}, FTwo(\"d\") { g(\"e\"); }\n"
         "void f(String s = \"f\");",
         "default-parameter - array-initialiser - - default-parameter"},
        {"[[deprecated(\"a\")]] void f();\nTForm1::~TForm1() { f(\"b\"); String a[] = {\"c\"}; /* \"d\" */ }",
         "attribute - array-initialiser comment"},
        {"void TForm1::A() { asm volatile(\"a\" : \"=r\"(x) : : \"b\"); char c[] = \"c\"; s[2] = \"d\"; }",
         "asm asm asm array-initialiser -"},
        {"void TForm1::A() { static constexpr auto *c = \"a\"; const char *p = \"b\"; g(_D(\"c\")); "
         "_Pragma(\"d\") }",
         "const char-pointer macro directive"},
        {"void TForm1::A() { n = sizeof(\"a\"); c = \"b\"[i]; decltype(f(\"c\")) d = f(\"d\"); }\n"
         "void g() noexcept(noexcept(f(\"e\")));",
         "unevaluated unevaluated unevaluated - unevaluated"},
        {"void TForm1::A() { f([] { g(\"a\"); }, [=] { g(\"b\"); }, [&, x](int i) mutable -> T { g(\"c\"); "
         "}); "
         "v[0] = \"d\"; for (auto& [k, w] : m) { f([x, this] { [w] { [&] { g(\"e\"); }(); }(); g(\"f\"); }); "
         "} }",
         "outside-method - - - outside-method -"},
        {"void TForm1::A() { auto l = [this](const char *s = \"a\") noexcept(f(x)) { g(\"b\"); }; }",
         "default-parameter -"},
        {"void TForm1::A() { f(\n#ifdef X\n [] {\n#else\n [](int) {\n#endif\n g(\"a\"); }); }\n"
         "void TForm1::B() { g(\"b\"); char c[] {\"c\"}; }",
         "outside-method - array-initialiser"},
        {"void TForm1::A() { s = \"a\"\n#ifdef X\n \"b\"\n#else\n \"c\"\n#endif\n ;\n"
         " t =\n#ifdef X\n \"d\"\n#elif Y\n \"e\"\n#endif\n ;\n"
         " u = \"f\"\n#if X\n#else\n NAME\n#endif\n ;\n v = (\n#if X\n \"g\"\n#endif\n \"h\"); }",
         "macro macro macro - - macro macro macro"},
        {"USEFORM(\"forms\\Main.cpp\", MainForm); /* TForm: */ USERES(\"P.res\");", "uses uses"},
        {"__attribute__((deprecated(\"a\"))) void f(); void TForm1::A() { constexpr int i = 1; s = \"b\"; }",
         "attribute -"},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(Words(row.Text, kCpp), row.Expected) << row.Text;

    const TSourceText source(
        std::string_view(
            "void TForm1::S() { f(\"a\"); }\nvoid TForm1::M() { f(\"b\"); }\nint TForm1::V = g();"),
        kCpp);
    const auto header = ReadSource(
        "class TOther { static void M(); };\nclass TForm1 : public TForm {\npublic:\n"
        " static int V; virtual void M(); static void __fastcall S(int x = 1);\n};",
        "Unit1.h");
    EXPECT_EQ(Advise(source, {"TForm1", false, header.get()}),
              (std::vector<TAdvice>{TAdvice::OutsideMethod, TAdvice::None}));
    EXPECT_EQ(Words("void g() { f(\"a\"); }", kCpp, true), "-");
    EXPECT_EQ(Words("unit U; interface implementation procedure P; begin F('a'); end;\n"
                    "initialization F('b'); finalization F('c'); end.",
                    kPascal, true),
              "- no-form no-form");
    EXPECT_EQ(Words("program P; begin F('a'); end.", kPascal, true), "-");
    EXPECT_EQ(AdviceText(TAdvice::Include), "This is the name of a file to include.");
}

}  // namespace
}  // namespace tml
