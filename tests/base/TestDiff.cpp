#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "base/Diff.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Diff, EqualTextsHaveNone) {
    EXPECT_EQ(UnifiedDiff("a", "b", "x\n", "x\n"), "");
}

TEST(Diff, ShowsTheChangedLineInItsContext) {
    EXPECT_EQ(UnifiedDiff("a/U.pas", "b/U.pas", "1\n2\n3\n4\n5\n6\n", "1\n2\n3\n4\nX\n6\n"),
              "--- a/U.pas\n+++ b/U.pas\n@@ -2,5 +2,5 @@\n 2\n 3\n 4\n-5\n+X\n 6\n");
}

TEST(Diff, ATabEndsANameWithBlanks) {
    EXPECT_EQ(UnifiedDiff("a/U.pas", "b/My Unit.pas", "1\n", "2\n"),
              "--- a/U.pas\n+++ b/My Unit.pas\t\n@@ -1 +1 @@\n-1\n+2\n");
}

TEST(Diff, IsWhatThePatchProgramNeedsToMakeTheNewText) {
    std::mt19937 random(7);
    const fs::path folder =
        fs::temp_directory_path() / ("tml-diff-" + std::to_string(std::random_device{}()));
    fs::create_directories(folder);
    for (int round = 0; round < 60; ++round) {
        std::string before;
        std::string after;
        for (int i = 0; i < 60; ++i) {
            const std::string line = std::to_string(random() % 40) + "\n";
            if (random() % 9 != 0) before += line;
            if (random() % 9 != 0) after += line;
        }
        if (round % 3 == 0) before += "no line end";
        if (round % 5 == 0) after += "another";
        const std::string diff = UnifiedDiff("f", "f", before, after);
        Write(folder / "f", before);
        Write(folder / "d", diff);
        if (before == after) continue;
        const std::string command = "patch -s -d '" + folder.string() + "' f d";
        ASSERT_EQ(std::system(command.c_str()), 0) << diff;
        EXPECT_EQ(Read(folder / "f"), after) << diff;
    }
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tml
