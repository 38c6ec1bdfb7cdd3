// "replace --patch" and "git apply" give what "replace" writes, byte for byte, whatever the files' encoding.
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "base/Encodings.h"
#include "forms/Formtree.h"
#include "support/Workfolder.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

using TChange = std::function<void(std::string& bytes)>;

void ForEach(const fs::path& folder, const std::string& extension, const TChange& change) {
    for (auto& [name, bytes] : ContentOf(folder)) {
        if (!name.ends_with(extension)) continue;
        std::string changed = bytes;
        change(changed);
        WriteBytes(folder / name, changed);
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
    for (const TVariant& variant : kVariants) {
        SCOPED_TRACE(variant.Name);
        const TWorkFolder work;
        for (const char* side : {"patched", "written"}) {
            fs::create_directory(work / side);
            work.Copy(std::string("examples/") + variant.Sample, side + std::string("/app"));
            variant.Prepare(work / side);
        }
        const std::string replace = work.Program() + " replace ";
        const auto before = ContentOf(work / "written");
        work.Run(replace + "written/" + variant.Project + " >log 2>&1");
        work.Run(replace + "patched/" + variant.Project + " --patch >patch 2>>log");
        const bool above = fs::exists(work / "patched/forms");
        EXPECT_EQ(work.Run(std::string("cd patched/") + (above ? "." : "app") +
                           " && git apply --whitespace=nowarn '" + (work / "patch").string() + "'")
                      .Exit,
                  0);
        EXPECT_NE(ContentOf(work / "written"), before) << BytesOf(work / "log");
        EXPECT_EQ(ContentOf(work / "patched"), ContentOf(work / "written")) << BytesOf(work / "log");
    }
}

}  // namespace
}  // namespace tml
