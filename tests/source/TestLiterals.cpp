#include <gtest/gtest.h>
#include <string>

#include "source/Literals.h"

namespace tml {
namespace {

/// Each literal as [its span=its text] with signs: c in a comment, d in a directive, < and > for codes.
std::string Dump(const std::string& text, const TLanguage& language) {
    const TSourceText source(std::string_view(text), language);
    std::string dump;
    for (const TLiteral& literal : source.Literals()) {
        dump += "[" + text.substr(literal.Begin, literal.End - literal.Begin) + "=";
        dump += DecodeLiteral(source, literal) + "]";
        if (literal.InComment) dump += 'c';
        if (literal.InDirective) dump += 'd';
        if (literal.CodeBefore) dump += '<';
        if (literal.CodeAfter) dump += '>';
    }
    return dump;
}

struct TCase {
    const char* Text;
    const char* Expected;
};

// The readers look at many bytes at a time.
TEST(Literals, AreFoundHoweverFarTheyLie) {
    for (std::size_t gap = 0; gap < 50; ++gap) {
        const std::string filler(gap, 'x');
        EXPECT_EQ(Dump(filler + "{'b'" + filler + "}" + filler + "'a''a'", kPascal), "['b'=b]c['a''a'=a'a]");
        EXPECT_EQ(Dump(filler + "\"a\" /*" + filler + "\"b\"*/ ", kCpp), "[\"a\"=a][\"b\"=b]c");
    }
}

TEST(Literals, OfPascal) {
    const TCase cases[] = {
        {"s := 'it''s' + '';", "['it''s'=it's][''=]"},
        {"s := 'a'#13#10'b'^M'c';", "['a'=a]>['b'=b]<>['c'=c]<"},
        {"s := #$0D'a' + p^ + 'b';", "['a'=a]<['b'=b]"},
        {"{ don't } s := 'a'; // it's 'x'\r\nt := 'b';", "['a'=a]['s '=s ]c['b'=b]"},
        {"(* 'x' *) s := 'a';", "['x'=x]c['a'=a]"},
        {"{$REGION 'x'} s := 'a';", "['x'=x]d['a'=a]"},
        {"s := 'open\r\nt := 'b';", "['b'=b]"},
        {"{ { } 'a' } 'b'", "['a'=a]['b'=b]"},
        {"{$MODE OBJFPC}{ { } 'a' } 'b'", "['a'=a]c['b'=b]"},
        {"{$MODE DELPHI}{$modeswitch nestedcomments+}(* (* *) 'a' *) 'b'", "['a'=a]c['b'=b]"},
        {"{$MODE FPC}{$MODESWITCH NESTEDCOMMENTS OFF}{ { } 'a' }", "['a'=a]"},
        {"asm mov al, \"'\" end; s := 'a'", "['a'=a]"},
        {"s := '''\r\n    one\r\n      two''s\r\n    ''';",
         "['''\r\n    one\r\n      two''s\r\n    '''=one\r\n  two''s]"},
        {"a := ''''; b := 'x';", "[''''='][\'x\'=x]"},
        {"a := (b*c) / d * 'x' (* * ) 'y' *)", "['x'=x]['y'=y]c"},
        {"s := pp^^+'xyz'; if pp^^='def' then; t := a[1]^+'g' + #10^M'h'",
         "['xyz'=xyz]['def'=def]['g'=g]['h'=h]<"},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(Dump(row.Text, kPascal), row.Expected) << row.Text;
}

TEST(Literals, OfCpp) {
    const TCase cases[] = {
        {R"(f(L"a", u8"b", "c\"d\\");)", R"([L"a"=a][u8"b"=b]["c\"d\\"=c"d\])"},
        {R"(s = "a" "b" /* "x" */ "c";)", R"(["a" "b" /* "x" */ "c"=abc])"},
        {"s = \"a\" // it\r\n  \"b\";", "[\"a\" // it\r\n  \"b\"=ab]"},
        {R"x(s = R"y(a"b\n)y";)x", R"x([R"y(a"b\n)y"=a"b\n])x"},
        {"s = R\"(a\r\nb)\";", "[R\"(a\r\nb)\"=a\nb]"},
        {R"(c = '"'; d = '\''; n = 1'000'000; s = "a";)", R"(["a"=a])"},
        {R"(s = _T("a") _T("b"); t = TEXT( "c" "d" );)", R"([_T("a") _T("b")=ab][TEXT( "c" "d" )=cd])"},
        {"/* c */ #include \"x.h\"", "[\"x.h\"=x.h]d"},
        {"#include \"x.h\"\n\"y\"", "[\"x.h\"=x.h]d[\"y\"=y]"},
        {"#define A \\\n \"x\" \"y\"\ns = \"z\";", "[\"x\" \"y\"=xy]d[\"z\"=z]"},
        {"#error don't \"x\ns = \"a\";", "[\"a\"=a]"},
        {"// say \"x\"\n/* \"y\" */ s = \"a\\\nb\";", "[\"x\"=x]c[\"y\"=y]c[\"a\\\nb\"=ab]"},
        {R"(s = "\x41\101\u00e9\xC3\xA9"; w = L"\xE9\xD83D\xDE00";)",
         "[\"\\x41\\101\\u00e9\\xC3\\xA9\"=AAéé][L\"\\xE9\\xD83D\\xDE00\"=é😀]"},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(Dump(row.Text, kCpp), row.Expected) << row.Text;
}

TEST(Literals, GiveCharactersByNumberInTheFilesEncoding) {
    const TEncoding unicode;
    const TEncoding cyrillic{"windows-1251", ""};
    const struct {
        TEncoding File;
        const char* CodePage;
        const char* Text;
        const char* Expected;
    } cases[] = {
        {cyrillic, "", R"("\xCF\xF0\xE8")", "При"},
        {unicode, "1251", R"("\xCF" "\xF0\350")", "При"},
        {unicode, "", R"("a\x80")", "a€"},
        {unicode, "1251", R"("\xC3\xA9")", "é"},
        {cyrillic, "", R"(u8"\xC3\xA9" L"\xE9")", "éé"},
        {cyrillic, "1252", R"("\uD83D\uDE00\101\\")", "😀A\\"},
    };
    for (const auto& row : cases) {
        const auto source = ReadSource(row.Text, "a.cpp", ByteEncodingsOf(row.File, row.CodePage));
        ASSERT_EQ(source->Literals().size(), 1U) << row.Text;
        EXPECT_EQ(DecodeLiteral(*source, source->Literals()[0]), row.Expected) << row.Text;
    }
}

TEST(Literals, AreWrittenAsTheyAreRead) {
    const std::string text = "it's \"x\"\\\r\n\tend\x01";
    EXPECT_EQ(EncodeLiteralBody(text, kPascal), "it''s \"x\"\\'#13#10'\tend'#1'");
    const std::string cpp = "\"" + EncodeLiteralBody(text, kCpp) + "\"";
    const TSourceText source(std::string_view(cpp), kCpp);
    ASSERT_EQ(source.Literals().size(), 1U);
    EXPECT_EQ(DecodeLiteral(source, source.Literals()[0]), text);
}

TEST(Comments, CoverTheirDelimitersButNoDirective) {
    const std::string text = "a{b}{$c}d//e\r\nf";
    const TSourceText source(std::string_view(text), kPascal);
    std::string inside;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (source.IsCommentAt(i)) inside += text[i];
    EXPECT_EQ(inside, "{b}//e");
}

TEST(Language, IsChosenByTheExtension) {
    for (const char* name : {"a.cpp", "unit1.H", "x.y.c"})
        EXPECT_TRUE(LanguageOf(name).IsCPPSource) << name;
    for (const char* name : {"a.pas", "unit1.inc", "cpp", "a.hpp", ""})
        EXPECT_FALSE(LanguageOf(name).IsCPPSource) << name;
}

TEST(Tokens, TellThePartsApart) {
    const std::string text = "x:=$FF..1.5e-3+^M'a'p^.&end#$0D;";
    const TSourceText source(std::string_view(text), kPascal);
    std::string dump;
    for (const TToken& token : source.Tokens())
        dump += std::string(TextOf(source, token)) + "nNsLcCDS"[static_cast<int>(token.Kind)] + ' ';
    EXPECT_EQ(dump, "xn :=s $FFN ..s 1.5e-3N +s ^Mc 'a'L pn ^s .s &endn #$0Dc ;s ");
}

}  // namespace
}  // namespace tml
