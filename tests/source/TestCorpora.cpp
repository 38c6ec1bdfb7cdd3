// The lexer over all Pascal sources and C++ headers that the test machine has, against readings that
// share no code with it.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/Utf8.h"
#include "source/Outline.h"
#include "source/Tokens.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> FilesBelow(const char* folder, const std::set<std::string>& extensions) {
    std::vector<fs::path> files;
    if (fs::exists(folder))
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (entry.is_regular_file() && extensions.contains(LowerCase(entry.path().extension().string())))
                files.push_back(entry.path());
    return files;
}

/// The literals in code by a plain walk, character by character.
std::vector<std::pair<std::size_t, std::size_t>> SimpleLiterals(const std::string& t, bool nests) {
    std::vector<std::pair<std::size_t, std::size_t>> literals;
    const auto is = [&](std::size_t i, const char* what) { return t.compare(i, 2, what) == 0; };
    for (std::size_t i = 0; i < t.size();) {
        if (t[i] == '\'') {
            const std::size_t begin = i++;
            while (i < t.size() && t[i] != '\r' && t[i] != '\n' && (t[i] != '\'' || is(i, "''")))
                i += is(i, "''") ? 2 : 1;
            if (i < t.size() && t[i] == '\'') literals.emplace_back(begin, ++i);
        } else if (t[i] == '"') {
            std::size_t end = i + 1;
            while (end < t.size() && t[end] != '"' && t[end] != '\n' && t[end] != '\r')
                ++end;
            i = end < t.size() && t[end] == '"' ? end + 1 : i + 1;
        } else if (is(i, "//")) {
            while (i < t.size() && t[i] != '\n' && t[i] != '\r')
                ++i;
        } else if (t[i] == '{' || is(i, "(*")) {
            const bool brace = t[i] == '{';
            int depth = 1;
            for (i += brace ? 1 : 2; i < t.size() && depth > 0;) {
                const bool opens = brace ? t[i] == '{' : is(i, "(*");
                const bool closes = brace ? t[i] == '}' : is(i, "*)");
                depth += (opens && nests ? 1 : 0) - (closes ? 1 : 0);
                i += !brace && (closes || (opens && nests)) ? 2 : 1;
            }
        } else {
            ++i;
        }
    }
    return literals;
}

void ExpectTiles(const TSourceText& source, const std::string& name) {
    std::size_t end = 0;
    for (const TToken& token : Tokenize(source)) {
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
    const auto files = FilesBelow("/usr/share/fpcsrc", {".pas", ".pp", ".inc"});
    ASSERT_FALSE(files.empty()) << "the package fpc-source is missing";
    std::size_t compared = 0;
    for (const fs::path& path : files) {
        const std::string text = ReadFile(path);
        const TSourceText source(std::string_view(text), kPascal);
        std::vector<std::pair<std::size_t, std::size_t>> found;
        for (const TLiteral& literal : source.Literals())
            if (!literal.InComment && !literal.InDirective) found.emplace_back(literal.Begin, literal.End);
        // A text that turns nesting on half-way has no single simple reading.
        const bool agrees = found == SimpleLiterals(text, source.CommentsNest()) ||
                            (source.CommentsNest() && found == SimpleLiterals(text, false));
        EXPECT_TRUE(agrees) << path;
        compared += found.size();
        if (path.extension() == ".inc") continue;
        ExpectTiles(source, path.string());
        ExpectNests(ReadPascalOutline(source), path.string());
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(compared, 100'000U);
}

/// The compiler's own raw tokens of these kinds, as "kind text".
std::vector<std::string> CompilerTokens(const fs::path& path) {
    std::vector<std::string> tokens;
    const std::string command =
        "clang++ -cc1 -x c++ -std=c++20 -dump-raw-tokens '" + path.string() + "' 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string out;
    for (char buffer[4096]; pipe != nullptr && std::fgets(buffer, sizeof buffer, pipe.get()) != nullptr;)
        out += buffer;
    for (std::size_t pos = 0; pos < out.size();) {
        const std::size_t quote = out.find(" '", pos);
        const std::size_t loc = out.find("Loc=<", pos);
        if (quote == std::string::npos || loc == std::string::npos) break;
        const std::string kind = out.substr(pos, quote - pos);
        const std::size_t close = out.rfind('\'', loc);
        const std::string text = out.substr(quote + 2, close - quote - 2);
        if (kind == "string_literal" || kind.ends_with("_string_literal")) tokens.push_back(text);
        pos = out.find('\n', loc) + 1;
    }
    return tokens;
}

/// The pieces of our literals, prefixes included, without what joins them.
std::string Squeezed(const std::string& text) {
    std::string result;
    for (const char c : text)
        if (static_cast<unsigned char>(c) > ' ' && c != '\\') result += c;
    return result;
}

TEST(Corpora, CppLiteralsAgreeWithTheCompiler) {
    auto files = FilesBelow("/usr/include/c++", {".h", ".hpp"});
    for (const char* more : {"/usr/include/unicode", "/usr/include/gtest", "/usr/include/linux"})
        for (const fs::path& path : FilesBelow(more, {".h"}))
            files.push_back(path);
    ASSERT_GT(files.size(), 200U) << "the C++ headers of the test machine are missing";
    std::size_t literals = 0;
    for (std::size_t i = 0; i < files.size(); i += files.size() / 60 + 1) {
        const std::string text = ReadFile(files[i]);
        const TSourceText source(std::string_view(text), kCpp);
        ExpectTiles(source, files[i].string());
        ExpectNests(ReadCppOutline(source), files[i].string());
        std::string expected;
        for (const std::string& token : CompilerTokens(files[i]))
            expected += Squeezed(token);
        std::string found;
        for (const TLiteral& literal : source.Literals()) {
            const std::string span = text.substr(literal.Begin, literal.End - literal.Begin);
            if (literal.InComment || span.find("/*") != std::string::npos) continue;
            found += Squeezed(span);
            ++literals;
        }
        EXPECT_EQ(found, expected) << files[i];
    }
    EXPECT_GT(literals, 50U);
}

}  // namespace
}  // namespace tml
