#include <gtest/gtest.h>

#include "source/Ancestors.h"

namespace tml {
namespace {

struct TAncestorCase {
    const char* FileName;
    const char* Text;
    const char* Ancestor;
};

TEST(Ancestors, AreReadFromTheHeading) {
    const TAncestorCase cases[] = {
        {"a.pas", "type TA = class(TBase) x: Integer; end;", "TBase"},
        {"a.pas", "type tA = class ( TBase, IThing ) end;", "TBase"},
        {"a.pas", "type TA = class; TB = class(TA) end; TA = class(TC) end;", "TC"},
        {"a.pas", "type TA = class x: Integer; procedure P(A: TB); end;", ""},
        {"a.pas", "type TB = class(TA) end;", ""},
        {"a.h", "class TA : public TBase { int x; };", "TBase"},
        {"a.h", "class PACKAGE TA : virtual public TBase, private TOther {};", "TBase"},
        {"a.h", "class TA { int x : 3; };", ""},
    };
    for (const TAncestorCase& row : cases) {
        const TSourceText source(std::string_view(row.Text), LanguageOf(row.FileName), row.FileName);
        EXPECT_EQ(AncestorOf(source, "TA"), row.Ancestor) << row.Text;
    }
}

}  // namespace
}  // namespace tml
