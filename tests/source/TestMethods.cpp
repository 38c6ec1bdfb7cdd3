#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "source/Methods.h"

namespace tml {
namespace {

/// The text with each routine's statements as "«name|...»", and where new routines go: "^" at the end of the
/// interface, "§" at that of the implementation.
std::string Dump(const std::string& text) {
    const TSourceText source(std::string_view(text), kPascal);
    const TUnitRoutines unit(source);
    std::string dump;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        for (const auto& routine : unit.Routines()) {
            if (routine.BodyBegin == i)
                dump += "«" + std::string(routine.Owner) + "." + std::string(routine.Name) + "|";
            if (routine.BodyEnd == i) dump += "»";
        }
        if (i == unit.EndOfInterface()) dump += "^";
        if (i == unit.EndOfImplementation()) dump += "§";
        dump += text.substr(i, 1);
    }
    return dump;
}

std::string Without(std::string text, const std::vector<std::string>& marks) {
    for (const std::string& mark : marks)
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;)
            text.erase(at, mark.size());
    return text;
}

TEST(Methods, RoutinesAndTheirPlaces) {
    const std::vector<std::string> dumps = {
        "unit U;\ninterface\n^implementation\nprocedure P;\nbegin«.P| Go »end;\n§end.\n",
        "^implementation\nprocedure T.A; procedure B; begin«.B| »end; begin«T.A| B; "
        "»end;\n§initialization\nend.",
        "^implementation\nprocedure A; external 'a'; procedure B; asm nop end;\n§end.",
        "^implementation\nprocedure A; begin«.A| if X then begin end; »end;\n§{$IFDEF "
        "X}\ninitialization\n{$ENDIF}\nend.",
        "^implementation\n{$IFDEF X}\nprocedure A; begin«.A|\n»end;\n{$ENDIF}\n§end.",
        "^implementation procedure A; begin«.A| »end; §end.",
    };
    for (const std::string& dump : dumps)
        EXPECT_EQ(Dump(Without(dump, {"«.P|", "«.A|", "«.B|", "«T.A|", "»", "^", "§"})), dump);
    EXPECT_THROW(Dump("unit U; interface end."), EBadInput);
}

TEST(Methods, WhatAUnitDeclares) {
    const std::string text =
        "unit U; interface procedure Free; type T = class(TForm) F: Integer; procedure Go(Sender: TObject); "
        "procedure Two(Sender: TObject); overload; procedure Two(A: Integer); overload; "
        "class procedure Of(Sender: TObject); end; implementation procedure Hidden; begin end; "
        "procedure T.Go(Sender: TObject); begin Free; Self.Two; U.Free; Hidden(1); end; "
        "{$IFDEF X} procedure T.Two(A: Integer); begin end; {$ELSE} procedure T.Two; begin end; {$ENDIF} "
        "end.";
    const TSourceText source(std::string_view(text), kPascal);
    const TUnitRoutines unit(source);
    const auto bodies = [&](const char* owner, const char* name, bool plainOnly) {
        return unit.Bodies(owner, name, plainOnly).size();
    };
    const auto calls = [&](const char* qualifier, const char* name) {
        return unit.Calls(unit.Bodies("t", "go").front(), qualifier, name).size();
    };
    const struct {
        const char* What;
        std::size_t Is;
        std::size_t Expected;
    } rows[] = {
        {"a routine of the interface", unit.DeclaresPlain("", "free"), 1},
        {"one of the implementation only", unit.DeclaresPlain("", "Hidden"), 0},
        {"a method is no routine", unit.DeclaresPlain("", "Go"), 0},
        {"a method with parameters is not plain", unit.DeclaresPlain("T", "Go"), 0},
        {"a method", unit.DeclaresMethod("T", "go"), 1},
        {"another class's", unit.DeclaresMethod("X", "Go"), 0},
        {"a handler", unit.DeclaresEventHandler("T", "Go"), 1},
        {"one overload is none", unit.DeclaresEventHandler("T", "Two"), 0},
        {"a class method is none", unit.DeclaresEventHandler("T", "Of"), 0},
        {"a field's name", unit.IsFreeName("T", "f"), 0},
        {"a parameter's name", unit.IsFreeName("T", "Sender"), 0},
        {"any other name", unit.IsFreeName("T", "Other"), 1},
        {"a bare call", calls("", "Free"), 1},
        {"a call behind Self", calls("", "Two"), 1},
        {"a call behind the unit", calls("Lib.U", "Free"), 1},
        {"a call with arguments", calls("", "Hidden"), 0},
        {"a call of another's", calls("V", "Free"), 0},
        {"bodies of both conditions", bodies("T", "Two", false), 2},
        {"of these without parameters", bodies("T", "Two", true), 1},
        {"a method has no body as a routine", bodies("", "Two", false), 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Is, row.Expected) << row.What;
    EXPECT_EQ(unit.AncestorOf("T"), "TForm");
}

TEST(Methods, NewOnesAreDeclaredInTheFirstSection) {
    const struct {
        const char* Class;
        const char* Expected;
    } rows[] = {
        {"  T = class(TForm)\r\n    A: X;\r\n  private\r\n    B: X;\r\n  end;",
         "  T = class(TForm)\r\n    A: X;\r\n    procedure P;\r\n  private\r\n    B: X;\r\n  end;"},
        {"  T = class\r\n  end;", "  T = class\r\n    procedure P;\r\n  end;"},
        {"  T = class A: X; end;", "  T = class A: X; \r\n    procedure P;\r\n  end;"},
        {"  T = class\r\n    private: X;\r\n    R: record\r\n    end;\r\n  end;",
         "  T = class\r\n    private: X;\r\n    R: record\r\n    end;\r\n    procedure P;\r\n  end;"},
    };
    for (const auto& row : rows) {
        const std::string head = "interface\r\ntype\r\n";
        const std::string tail = "\r\nimplementation\r\nend.";
        const std::string text = head + row.Class + tail;
        const TSourceText source(std::string_view(text), kPascal);
        const TEdit edit = TUnitRoutines(source).DeclareMethods("T", {"procedure P;"});
        EXPECT_EQ(ApplyEdits(text, {edit}), head + row.Expected + tail);
    }
}

}  // namespace
}  // namespace tml
