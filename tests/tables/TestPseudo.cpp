#include <gtest/gtest.h>

#include "tables/Pseudo.h"

namespace tml {
namespace {

TEST(Pseudo, KeepsWhatAProgramReads) {
    const std::pair<const char*, const char*> cases[] = {
        {"OK", "[\u00d6\u0136 ~~]"},
        {"", ""},
        {"...", "..."},
        {"a %s b", "[\u00e0 %s \u0180 ~~~~~~]"},
        {"%0:d%1:-8.2f%%x", "[%0:d%1:-8.2f%%x ~~~~~~~~~~~~]"},
        {"%ld 5% a", "[%ld 5% \u00e0 ~~~~~~~~]"},
        {"{0} {name} {}a", "[{0} {name} {}\u00e0 ~~~~~~~~~~~]"},
        {"$(Home) $a", "[$(Home) $\u00e0 ~~~~~~~~~~]"},
        {"&Open && &close &", "[&O\u00fe\u00e9\u00f1 && &c\u013c\u00f6\u0161\u00e9 & ~~~~~~~~~~~~~]"},
        {"<b a=\"c\">x</b> a < b", "[<b a=\"c\">x</b> \u00e0 < \u0180 ~~~~~~~~~~~~~~~~]"},
        {"a&amp;&#160;b", "[\u00e0&amp;&#160;\u0180 ~~~~~~~~~~]"},
        {"a\r\n\nb", "[\u00e0 ~]\r\n\n[\u0180 ~]"},
        {"Short|Long", "[\u0160\u0125\u00f6\u0155\u0163 ~~~~~]|[\u013b\u00f6\u00f1\u011d ~~~~]"},
        {"Texts|*.txt;*.md|All|*.*",
         "[\u0162\u00e9x\u0163\u0161 ~~~~~]|*.txt;*.md|[\u00c0\u013c\u013c ~~~]|*.*"},
        {"\xD0\x96&\xD0\x96", "[\xD0\x96&\xD0\x96 ~~~]"},
    };
    for (const auto& [text, pseudo] : cases)
        EXPECT_EQ(PseudoText(text), pseudo) << text;
}

}  // namespace
}  // namespace tml
