#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "source/Outline.h"
#include "source/Sourcetext.h"

namespace tml {
namespace {

/// A region's sign, followed by its name where it has one: "class TForm1", "routine TForm1.Go".
std::string Sign(const TRegion& region) {
    static const std::map<TRegionKind, std::string> kinds = {{TRegionKind::Interface, "interface"},
                                                             {TRegionKind::Implementation, "implementation"},
                                                             {TRegionKind::Initialization, "main"},
                                                             {TRegionKind::Uses, "uses"},
                                                             {TRegionKind::Exports, "exports"},
                                                             {TRegionKind::Const, "const"},
                                                             {TRegionKind::ResourceString, "texts"},
                                                             {TRegionKind::Type, "type"},
                                                             {TRegionKind::Var, "var"},
                                                             {TRegionKind::Class, "class"},
                                                             {TRegionKind::Attribute, "attribute"},
                                                             {TRegionKind::Property, "property"},
                                                             {TRegionKind::Routine, "routine"},
                                                             {TRegionKind::Head, "head"},
                                                             {TRegionKind::Parameters, "parameters"},
                                                             {TRegionKind::Body, "body"},
                                                             {TRegionKind::CaseLabel, "label"},
                                                             {TRegionKind::Assembler, "asm"},
                                                             {TRegionKind::Initialiser, "value"},
                                                             {TRegionKind::Braces, "list"}};
    std::string sign = kinds.at(region.Kind);
    if (!region.Name.empty()) sign += " ";
    if (!region.Owner.empty()) sign.append(region.Owner) += ".";
    return sign.append(region.Name) + (region.OfClass ? "!" : "");
}

/// The text with each region as "«sign|...»".
std::string Dump(const std::string& text, const TLanguage& language) {
    const TSourceText source(std::string_view(text), language);
    std::multiset<std::size_t> ends;
    for (const TRegion& region : source.Outline())
        ends.insert(region.End);
    auto next = source.Outline().begin();
    std::string dump;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        for (std::size_t closed = ends.count(i); closed > 0; --closed)
            dump += "»";
        for (; next != source.Outline().end() && next->Begin == i; ++next)
            dump += "«" + Sign(*next) + "|";
        dump += text.substr(i, 1);
    }
    return dump;
}

/// Each text is its dump without the marks.
void ExpectOutlines(const TLanguage& language, const std::vector<std::string>& dumps) {
    static const std::regex marks("«[^|]*\\||»");
    for (const std::string& dump : dumps)
        EXPECT_EQ(Dump(std::regex_replace(dump, marks, ""), language), dump);
}

TEST(Outline, OfPascal) {
    const std::vector<std::string> dumps = {
        "unit U; «interface|interface «uses|uses A, B in 'b.pas';» «const|const C = 'c'; »«var|var V: T; "
        "»»«implementation|implementation «uses|uses D;» »«main|initialization end».",
        "library P; «uses|uses A;» «texts|resourcestring S = 's'; »«exports|exports E name 'e';» «main|begin "
        "Go; end».",
        "«implementation|implementation «routine T.P|«head|procedure T.P«parameters|(const A: string = "
        "'a')»;» «body|begin end»»; «const|const D = 1;»»",
        "«implementation|implementation «routine T.F!|class «head|function T.F: string;» «var|var S: string; "
        "»«routine In|«head|procedure In;» «body|begin end»»; «body|begin if S = '' then begin end; end»»;»",
        "«implementation|implementation «routine G|«head|procedure G; external 'g.dll' name 'G';»» «routine "
        "H|«head|procedure H; forward;»» «routine H|«head|procedure H;» «body|«asm|asm mov al, 'x' end»»»;»",
        "«implementation|implementation «routine A|«head|procedure A;» «body|begin case S of «label|'a', "
        "'b'»: Go; «label|'c'»: begin end; else Stop; end; end»»; «routine B|«head|procedure B;» «body|begin "
        "end»»;»",
        "«implementation|implementation «routine A|«head|procedure A;» «body|begin begin Go; »»«routine "
        "T.B|«head|procedure T.B;» «body|begin end»»;»",
        "«implementation|implementation «routine A|«head|procedure A;» «body|begin {$IFDEF X} if B then "
        "begin {$ELSE} begin {$ENDIF} end; end»»; «var|var V: T;»»",
        "«implementation|implementation {$IFDEF X} «routine A|«head|procedure A«parameters|(X: T)»;» "
        "»{$ELSE} «routine A|«head|procedure A;» {$ENDIF} «body|begin end»»; «var|var V: T;»»",
        "«implementation|implementation «routine A|«head|procedure A;» «body|begin "
        "F(procedure«parameters|(S: string)» «const|const K = 'k'; »begin Go; end); end»»; «var|var R: "
        "«class|record X: T; end»;»»",
        "«implementation|implementation generic «routine T.B|«head|procedure T<X>.B;» «body|begin end»»; "
        "«routine T.Add|«head|operator T.Add«parameters|(a, b: T)»: T;» «body|begin end»»;»",
        "«type|type «attribute|[A('x')]» T = «class T|class «attribute|[Weak]» F: T; strict private "
        "«const|const K = 'k'; »public «type|type I = «class I|record N: T; end»; »«head|procedure P;» "
        "end»;»",
        "«type|type I = «class I|interface «attribute|['{GUID}']» «property|property Q: string read X;» "
        "end»; R = packed «class R|record A: T; end»; E = «head|procedure«parameters|(S: T)» of object;»»",
        "«type|type T = class; TC = class of T; G<X: class> = «class G|class(TObject) F: X; end»; H = «class "
        "H|object P: Integer; end»; »«implementation|implementation»",
    };
    ExpectOutlines(kPascal, dumps);
}

TEST(Outline, OfCpp) {
    const std::vector<std::string> dumps = {
        R"(const char* a «const|= "a"»; char* b[] «value|= «list|{"x", "y"}»»; static const int n «const|= f("z")»;)",
        R"(class T : public B «class T|{ __published: TButton* B; void __fastcall Go«parameters|(TObject* S)»; private: int x «value|= 1»; enum E «list|{ one = 1 }»; }»;)",
        R"(void __fastcall T::Go«parameters|(TObject* S)» «routine T.Go|{ ShowMessage("a"); if (x) { struct L «class L|{ int y; }»; } }» int last;)",
        R"(namespace N { extern "C" { int f«parameters|(int a = 1)»; } } «attribute|[[nodiscard]]» int g«parameters|()» «routine g|{ return h("a"); }»)",
        R"(__fastcall T::T«parameters|(A* o)» «routine T.T|: B(o), x("a"), y«list|{"b"}» { z(); }» T::~T«parameters|()» «routine T.T|{}» template <class T> void TBox<T>::Put«parameters|(T t)» «routine TBox.Put|{ }»)",
        "#define M(x) { f(x);\r\nvoid f«parameters|()» «routine f|{ int a[] = «list|{1}»; auto l = [](int b) "
        "{ return \"a\"; }; }» int last «value|= 1»;",
    };
    ExpectOutlines(kCpp, dumps);
}

}  // namespace
}  // namespace tml
