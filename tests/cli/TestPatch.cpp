// "replace --patch" and "git apply" give what "replace" writes, byte for byte, whatever the files' encoding.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "base/Encodings.h"
#include "forms/Formtree.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::map<std::string, std::string> FilesBelow(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) files[entry.path().lexically_relative(folder)] = ReadFile(entry.path());
    return files;
}

using TChange = std::function<void(std::string& bytes)>;

void ForEach(const fs::path& folder, const std::string& extension, const TChange& change) {
    for (const auto& [name, bytes] : FilesBelow(folder)) {
        if (!name.ends_with(extension)) continue;
        std::string changed = bytes;
        change(changed);
        std::ofstream(folder / name, std::ios::binary) << changed;
    }
}

void ToUtf16(std::string& bytes) {
    const TEncoding from = DetectEncoding(bytes, {});
    std::string text, wide = "\xFF\xFE";
    Decode(from, std::string_view(bytes).substr(from.Bom.size()), text);
    Encode({"UTF-16LE", ""}, text, wide);
    bytes = wide;
}

void ToMixedLineEnds(std::string& bytes) {
    for (std::size_t i = 0; (i = bytes.find("\r\n", i + 80)) != std::string::npos;)
        bytes.erase(i, 1);
    while (!bytes.empty() && (bytes.back() == '\n' || bytes.back() == '\r'))
        bytes.pop_back();
}

/// Forms beside the project's folder, so that the patch begins above it.
void MoveFormsOut(const fs::path& folder) {
    fs::rename(folder / "app/forms", folder / "forms");
    for (const char* extension : {".dpr", ".dproj"})
        ForEach(folder / "app", extension, [](std::string& bytes) {
            for (std::size_t i = 0; (i = bytes.find("forms\\", i)) != std::string::npos; i += 9)
                bytes.insert(i, "..\\");
        });
}

struct TVariant {
    const char* Name;
    const char* Sample;
    const char* Project;
    std::function<void(const fs::path&)> Prepare;
};

const TVariant kVariants[] = {
    {"as it is", "orchard", "app/Orchard.dproj", [](const fs::path&) {}},
    {"C++", "cellar", "app/Cellar.cbproj", [](const fs::path&) {}},
    {"wide sources", "orchard", "app/Orchard.dproj", [](const fs::path& f) { ForEach(f, ".pas", ToUtf16); }},
    {"mixed line ends", "orchard", "app/Orchard.dproj",
     [](const fs::path& f) { ForEach(f, ".pas", ToMixedLineEnds); }},
    {"binary forms", "orchard", "app/Orchard.dproj",
     [](const fs::path& f) {
         ForEach(f, ".dfm", [](std::string& bytes) { bytes = TFormTree::Parse(bytes, "")->Binary(); });
     }},
    {"forms elsewhere", "orchard", "app/Orchard.dproj", MoveFormsOut},
};

TEST(Patch, GitMakesOfItWhatReplaceWrites) {
    const fs::path work = fs::temp_directory_path() / ("tml-patch-" + std::to_string(std::random_device{}()));
    for (const TVariant& variant : kVariants) {
        SCOPED_TRACE(variant.Name);
        for (const char* side : {"patched", "written"}) {
            fs::create_directories(work / side);
            fs::copy(fs::path(TML_TESTS) / "../examples" / variant.Sample, work / side / "app",
                     fs::copy_options::recursive);
            variant.Prepare(work / side);
        }
        const auto run = [&](const std::string& command) {
            return WEXITSTATUS(std::system(("cd '" + work.string() + "' && " + command).c_str()));
        };
        fs::create_directories(work / "config");
        const std::string program = "'" TML_BIN "/tmllang' --config config replace ";
        const auto before = FilesBelow(work / "written");
        run(program + "written/" + variant.Project + " >log 2>&1");
        run(program + "patched/" + variant.Project + " --patch >patch 2>>log");
        const bool above = fs::exists(work / "patched/forms");
        EXPECT_EQ(run(std::string("cd patched/") + (above ? "." : "app") +
                      " && git apply --whitespace=nowarn '" + (work / "patch").string() + "'"),
                  0);
        EXPECT_NE(FilesBelow(work / "written"), before) << ReadFile(work / "log");
        EXPECT_EQ(FilesBelow(work / "patched"), FilesBelow(work / "written")) << ReadFile(work / "log");
        fs::remove_all(work);
    }
}

}  // namespace
}  // namespace tml
