#include <gtest/gtest.h>

#include "ids/Iduses.h"

namespace tml {
namespace {

/// Base has a component that Child and Other inherit, Form2 one of its own.
TFormRows SampleRows() {
    TFormRows rows;
    const auto add = [&](const char* form, const char* component, const char* ancestor) {
        UpdateItem(&rows.Add(form, form, std::string("/p/") + form + ".pas"),
                   {component, "TmlLang", 2, form, ancestor});
    };
    add("Base", "L", "");
    add("Child", "L", "Base");
    add("Other", "L", "Base");
    add("Form2", "L2", "");
    return rows;
}

/// What is known of Child's string ABC when the unit of a form has this text.
std::string UseWith(const std::string& unitForm, const std::string& text) {
    const TFormRows rows = SampleRows();
    TIDUses uses(rows);
    uses.AddLink("Form2", "Child");
    uses.Add("/p/Unit.pas", unitForm, *ReadSource(text, "Unit.pas"));
    return uses.UseOf("Child", "ABC").Text();
}

TEST(Iduses, WhatAsksForAnID) {
    const std::string used = "used in Unit.pas:1";
    const std::string off = "undecidable: asked for in code that a directive can switch off (Unit.pas:1)";
    const std::string other = "undecidable: asked for through another form's component (Unit.pas:1)";
    const std::string built = "undecidable: an ID is put together at run time (Unit.pas:1)";
    const struct {
        const char *Form, *Text;
        std::string Use;
    } cases[] = {
        {"Child", "L.GetText('abc');", used},
        {"Child", "l . GetTextOrDefaultW ( 'ABC' , 'x');", used},
        {"Child", "Self.L.GetText('ABC' (* 'Text' *) );", used},
        {"Base", "L.GetText('ABC');", used},
        {"Other", "L.GetText('ABC');", "unused"},
        {"", "Child.L.GetText('ABC');", used},
        {"", "Unit1.child.L.GetTextC('ABC');", used},
        {"Child", "// L.GetText('ABC');\n{ L.GetText('ABC') } S := 'L.GetText(''ABC'')';", "unused"},
        {"Child", "Form2.L2.GetText('ABC');", other},  // it is linked
        {"Form2", "L2.GetText('ABC');", other},
        {"", "Form2.L.GetText('ABC');", other},
        {"", "Forms[0].L.GetText('ABC');", other},
        {"", "GetText('ABC');", other},
        {"", "L.GetText('ABCD'); L.GetText('AB');", "unused"},
        {"Child", "{$IFDEF A}L.GetText('ABC');{$ENDIF}", off},
        {"Child", "{$IFDEF A}L.GetText('ABC');{$ENDIF}\nL.GetText('ABC');", "used in Unit.pas:2"},
        {"Child", "L.GetText('AB' + S);", built},
        {"Child", "L.GetText('B' + S);", "unused"},
        {"Child", "L.GetText(S);", built},
        {"Other", "L.GetText(S);", "unused"},
        {"", "Any.L.GetText('A' + S);", built},
        {"", "Memo.GetText(S); function GetText(S: string): string;", "unused"},
        {"", "uses Mllang; Any.GetText(S);", built},
        {"Child", "L.GetText('ABC'#13);", built},
    };
    for (const auto& [form, text, use] : cases)
        EXPECT_EQ(UseWith(form, text), use) << form << ": " << text;
}

TEST(Iduses, LabelsAndUnitsThatCannotBeRead) {
    const TFormRows rows = SampleRows();
    TIDUses uses(rows);
    uses.AddReference("/p/Form2.dfm", "Form2", "Child.L", "ABC");
    uses.AddReference("/p/Form2.dfm", "Form2", "L2", "D");
    EXPECT_EQ(uses.UseOf("Child", "abc").Text(), "used in Form2.dfm");
    EXPECT_EQ(uses.UseOf("Child", "D").Text(), "unused");
    uses.AddUnread("/p/Gone.pas");
    EXPECT_EQ(uses.UseOf("Child", "D").Text(), "undecidable: a unit cannot be read (Gone.pas)");
    EXPECT_EQ(uses.UseOf("Child", "ABC").Text(), "used in Form2.dfm");
}

}  // namespace
}  // namespace tml
