// The lexer over all Pascal sources and C++ headers that the test machine has, against readings that
// share no code with it.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "source/Sourcetext.h"
#include "support/Corpora.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

void ExpectTiles(const TSourceText& source, const std::string& name) {
    std::size_t end = 0;
    for (const TToken& token : source.Tokens()) {
        ASSERT_LE(end, token.Begin) << name;
        ASSERT_LT(token.Begin, token.End) << name;
        for (std::size_t i = end; i < token.Begin; ++i)
            ASSERT_TRUE(static_cast<unsigned char>(source.Text()[i]) <= ' ' || source.Text()[i] == '\\')
                << name << " at " << i;
        end = token.End;
    }
    ASSERT_LE(end, source.Text().size());
}

void ExpectNests(const std::vector<TRegion>& regions, const std::string& name) {
    for (std::size_t i = 0; i < regions.size(); ++i) {
        ASSERT_LE(regions[i].Begin, regions[i].End) << name;
        ASSERT_LE(i > 0 ? regions[i - 1].Begin : 0, regions[i].Begin) << name;
        const std::size_t parent = regions[i].Parent;
        ASSERT_TRUE(parent == kNoRegion || regions[i].End <= regions[parent].End) << name;
    }
}

TEST(Corpora, PascalLiteralsAgreeWithASimpleReading) {
    const auto files = PartOf(FilesBelow("/usr/share/fpcsrc", {".pas", ".pp", ".inc"}), 12);
    ASSERT_FALSE(files.empty()) << "the package fpc-source is missing";
    std::size_t compared = 0;
    for (const fs::path& path : files) {
        const std::string text = ReadFileOf(path);
        const TSourceText source(std::string_view(text), kPascal);
        std::vector<TSpan> found;
        for (const TLiteral& literal : source.Literals())
            if (!literal.InComment && !literal.InDirective) found.emplace_back(literal.Begin, literal.End);
        // A text that turns nesting on half-way has no single simple reading.
        const bool agrees = found == SimpleReading(text, source.CommentsNest()).Literals ||
                            (source.CommentsNest() && found == SimpleReading(text, false).Literals);
        EXPECT_TRUE(agrees) << path;
        compared += found.size();
        if (path.extension() == ".inc") continue;
        ExpectTiles(source, path.string());
        ExpectNests(source.Outline(), path.string());
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(compared, 20'000U);
}

/// The pieces of our literals, prefixes included, without what joins them.
std::string Squeezed(const std::string& text) {
    std::string result;
    for (const char c : text)
        if (static_cast<unsigned char>(c) > ' ' && c != '\\') result += c;
    return result;
}

TEST(Corpora, CppLiteralsAgreeWithTheCompiler) {
    const auto files = CppHeaders();
    ASSERT_GT(files.size(), 40U) << "the C++ headers of the test machine are missing";
    std::size_t literals = 0;
    for (const fs::path& file : files) {
        const std::string text = ReadFileOf(file);
        const TSourceText source(std::string_view(text), kCpp);
        ExpectTiles(source, file.string());
        ExpectNests(source.Outline(), file.string());
        std::string expected;
        for (const TCompilerToken& token : CompilerTokens(file))
            expected += Squeezed(token.Text);
        std::string found;
        for (const TLiteral& literal : source.Literals()) {
            const std::string span = text.substr(literal.Begin, literal.End - literal.Begin);
            if (literal.InComment || span.find("/*") != std::string::npos) continue;
            found += Squeezed(span);
            ++literals;
        }
        EXPECT_EQ(found, expected) << file;
    }
    EXPECT_GT(literals, 50U);
}

}  // namespace
}  // namespace tml
