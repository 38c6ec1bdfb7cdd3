// bench-growth: prints for each of some inputs that nobody would write, but anybody may open, its name and
// how many times longer the work takes on four times as much of it. 4 is linear, 16 quadratic.
#include <algorithm>
#include <array>
#include <ctime>
#include <exception>
#include <iostream>
#include <string>

#include "base/Errors.h"
#include "forms/Formtree.h"
#include "projects/Projectfiles.h"
#include "scan/Rewrite.h"

namespace tml::bench {
namespace {

constexpr std::size_t kSmall = 10'000;
constexpr std::size_t kLarge = 4 * kSmall;

/// Before, then Piece over and over, then Behind; the file's name chooses what reads it.
struct TInput {
    const char* Name;
    const char* File;
    const char* Before;
    const char* Piece;
    const char* Behind;
};

constexpr std::array kInputs{
    TInput{"Pascal: one literal a line", "A.pas", "procedure TF.A; begin\r\n", "Say('xx');\r\n", "end;\r\n"},
    TInput{"Pascal: literals on one line", "A.pas", "procedure TF.A; begin ", "Say('xx');", "end;\r\n"},
    TInput{"Pascal: triple quotes at ends of lines", "A.pas", "", "  x'''\r\n", ""},
    TInput{"Pascal: one long name", "A.pas", "", "GetText", "('xx');\r\n"},
    TInput{"Pascal: open calls", "A.pas", "", "mlLang1.GetText( ", "'xx');\r\n"},
    TInput{"Pascal: open calls behind a literal", "A.pas", "'ab'", " mlLang1.GetText(", "\r\n"},
    TInput{"Pascal: nested comments", "A.pas", "{$mode objfpc}", "{ (* ", "'xx'\r\n"},
    TInput{"Pascal: open parentheses", "A.pas", "procedure TF.A; begin x := ", "(", "'xx';\r\n"},
    TInput{"C++: literals on one line", "A.cpp", "void TF::A() {", "Say(\"xx\");", "}\r\n"},
    TInput{"C++: adjacent literals", "A.cpp", "void TF::A() { x = ", "\"xx\" ", ";}\r\n"},
    TInput{"C++: open raw strings", "A.cpp", "", "R\"a(\r\n", "\"xx\"\r\n"},
    TInput{"C++: raw strings that take in the next", "A.cpp", "x =", " R\"a(\"", "\r\n"},
    TInput{"C++: signs of directives", "A.cpp", "\"ab\" ", "# ", "\r\n"},
    TInput{"C++: a long macro", "A.cpp", "#define A ", "\"xx\",\\\r\n", "0\r\n"},
    TInput{"C++: open braces", "A.cpp", "", "{", "Say(\"xx\");\r\n"},
    TInput{"form: nested objects", "A.dfm", "", "object A: TA\r\n", ""},
    TInput{"form: nested lists", "A.dfm", "object A: TA\r\n  P = ", "(", "\r\nend\r\n"},
    TInput{"form: properties", "A.dfm", "object A: TA\r\n", "  P = 1\r\n", "end\r\n"},
    TInput{"form: one long text", "A.dfm", "object A: TA\r\n  P = ", "'xx' +\r\n", "'x'\r\nend\r\n"},
    TInput{"project: units", "A.dpr", "program A; uses ", "B in 'B.pas' {B},\r\n", "C;"},
    TInput{"project: conditions", "A.dpr", "program A; uses ", "{$IFDEF X} B,\r\n", "C;"},
    TInput{"project: references", "A.dproj", "<Project><ItemGroup>",
           "<DCCReference Include=\"a.pas\"><Form>F</Form></DCCReference>\n", "</ItemGroup></Project>"},
    TInput{"project: nested elements", "A.dproj", "", "<a>", ""},
    TInput{"project: makefile", "A.bpg", "PROJECTS = ", "a.exe \\\r\n", "\r\na.exe: a.dpr\r\n"},
};

void ScanAndRewrite(const std::string& text, const std::string& file) {
    TScanInput input;
    input.Source = ReadSource(text, file);
    input.Component = {"F", "mlLang1", false, "TF"};
    TmlFoundSourceStrings kept;
    for (const TmlFoundSourceString& found : Scan(input).Found)
        if (found.Advice == TAdvice::None) kept.AddItem() = found;
    ProveRewrite(kept, input, Rewrite(kept, input));
}

void Work(const std::string& text, const std::string& file) {
    try {
        if (const TProjectParser parse = file.ends_with(".cpp") ? nullptr : FindProjectParser(file))
            parse(text, file, "");
        else if (file.ends_with(".dfm"))
            TFormTree::Parse(text, file)->Binary();
        else
            ScanAndRewrite(text, file);
    } catch (const EBadInput&) {
        // A refusal is an answer too; it must come as quickly.
    }
}

double SecondsFor(const TInput& input, std::size_t size) {
    std::string text = input.Before;
    while (text.size() < size)
        text += input.Piece;
    text += input.Behind;
    // The quickest of some calls: the first ones still ask the system for memory.
    double best = 1e9;
    for (int i = 0; i < 4; ++i) {
        const std::clock_t start = std::clock();
        Work(text, input.File);
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return std::max(best, 1e-4);
}

}  // namespace
}  // namespace tml::bench

int main() {
    try {
        for (const auto& input : tml::bench::kInputs)
            std::cout << input.Name << "\t"
                      << SecondsFor(input, tml::bench::kLarge) / SecondsFor(input, tml::bench::kSmall)
                      << "\n";
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-growth: " << error.what() << "\n";
        return 2;
    }
}
