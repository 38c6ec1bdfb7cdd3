#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "base/Gitpatch.h"

namespace tml {
namespace {

namespace fs = std::filesystem;
using TBytes = std::optional<std::string>;

void Write(const fs::path& path, const TBytes& bytes) {
    fs::create_directories(path.parent_path());
    fs::remove(path);
    if (bytes) std::ofstream(path, std::ios::binary) << *bytes;
}

TBytes Read(const fs::path& path) {
    if (!fs::exists(path)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(Gitpatch, GitMakesOfItWhatItWasMadeFrom) {
    std::mt19937 random(5);
    std::string noise(70000, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    const TBytes sides[] = {std::nullopt,
                            "",
                            "a\nb\nc\nd\n",
                            "a\nb\nc\nx",
                            "a\r\nb\nc\r\n\rd \t\r\n",
                            "\xCF\xF0\xE8\r\nb\r\n",
                            std::string("\xFF\xFE\x61\0\x0A\0", 6),
                            std::string("a\nb\0", 4),
                            noise,
                            noise + "!"};
    const fs::path folder =
        fs::temp_directory_path() / ("tml-gitpatch-" + std::to_string(std::random_device{}()));
    fs::create_directories(folder / "sub");
    const std::string names[] = {"Unit1.pas", "sub/My Unit.dfm", "\xC3\xA4 \"x\\y\".pas"};
    for (const TBytes& before : sides)
        for (const TBytes& after : sides) {
            const std::string& name = names[random() % std::size(names)];
            const std::string patch = FilePatch(name, before, after);
            EXPECT_EQ(patch.empty(), before == after);
            if (patch.empty()) continue;
            Write(folder / name, before);
            Write(folder / "patch", patch);
            const std::string command = "cd '" + folder.string() + "' && git apply --whitespace=nowarn patch";
            EXPECT_EQ(std::system(command.c_str()), 0) << patch;
            EXPECT_EQ(Read(folder / name), after) << patch;
            fs::remove(folder / name);
        }
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tml
