#include <gtest/gtest.h>
#include <string>

#include "host/Commonlibrary.h"

namespace tml {
namespace {

std::unique_ptr<ICommonLibraryLoader> Loader() {
    return MakeCommonLibraryLoader(TML_BIN "/TmlLang_Common.so");
}

std::string InComments(ICommonLibrary& library, const std::string& text, bool isCpp) {
    library.InitInternalPasSource(text);
    std::string inside;
    for (int offset = 1; offset <= static_cast<int>(text.size()); ++offset)
        if (library.IsCommentAt(0, offset, isCpp)) inside += text[static_cast<std::size_t>(offset - 1)];
    return inside;
}

TEST(Common, ClassifiesCommentsByLanguage) {
    const auto loader = Loader();
    ICommonLibrary* library = loader->Load();
    ASSERT_NE(library, nullptr);
    const std::string text = "a (*b*) {c} /*d*/ '{' \"/*\" // e";
    EXPECT_EQ(InComments(*library, text, false), "(*b*){c}// e");
    EXPECT_EQ(InComments(*library, text, true), "/*d*/// e");
    EXPECT_FALSE(library->IsCommentAt(0, 0, true));
    EXPECT_FALSE(library->IsCommentAt(5, 1000, true));
    EXPECT_EQ(InComments(*library, "", false), "");
    const std::string zero("'a'\0{b}", 7);
    EXPECT_EQ(InComments(*library, zero, false), "{b}") << "a zero byte does not end the text";
}

TEST(Common, MatchesWholeTexts) {
    const auto loader = Loader();
    ICommonLibrary* library = loader->Load();
    ASSERT_NE(library, nullptr);
    struct TCase {
        std::string Text;
        const char* Pattern;
        bool Matches;
    };
    const TCase cases[] = {
        {"abc", "a.c", true},
        {"abc", "b", false},
        {"abc", "a|abc", true},
        {"ab\nc", "ab", false},
        {"äöü", "...", true},
        {"x", "(", false},
        {"", "", true},
        {"\xFF", ".*", false},
        {"abc", "ABC", false},
        {"abc", "(?i)ABC", true},
        {"abc", "[^b]bc|x", true},
        {"abc", "(?=a)\\w+(?<=c)", true},
        {"bc", "a?bc", true},
        {"ABCDE", "[A-Z]{2,4}", false},
        {"ÄÄ", "\\w+", true},
        {"a1", "(a)(1)", true},
        {std::string("a\0b", 3), "a", false},
        {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab", "(a+)+$", false},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(library->mlREStringMatches(row.Text, row.Pattern), row.Matches)
            << row.Text << " " << row.Pattern;
}

TEST(Common, APatternThatTakesTooLongIsTriedNoMoreInItsScan) {
    const auto loader = Loader();
    ICommonLibrary* library = loader->Load();
    ASSERT_NE(library, nullptr);
    const std::string pattern = "(a+)+$";
    library->InitInternalPasSource("");
    EXPECT_TRUE(library->mlREStringMatches("aa", pattern));
    EXPECT_FALSE(library->mlREStringMatches(std::string(40, 'a') + "b", pattern));
    EXPECT_FALSE(library->mlREStringMatches("aa", pattern));
    library->InitInternalPasSource("");
    EXPECT_TRUE(library->mlREStringMatches("aa", pattern));
}

TEST(Common, MissingLibraryIsNoError) {
    const auto loader = MakeCommonLibraryLoader("/nowhere/TmlLang_Common.so");
    EXPECT_EQ(loader->Load(), nullptr);
    loader->Unload();
}

}  // namespace
}  // namespace tml
