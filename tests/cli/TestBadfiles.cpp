// Translation files that are hard to use or cannot be used, and folders that cannot be written: the program
// names the file and the place, ends with code 2 and leaves every file as it was.
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "base/Checksum.h"
#include "support/Workfolder.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

/// The sample project with a file of either kind, saved.
struct TBadfiles : testing::Test {
    TBadfiles() {
        Folder.Copy("tests/cli/cases/update-and-texts/before", "p");
        for (const char* file : {"fleet.mll", "fleet.mlb"})
            EXPECT_EQ(Tell("save Fleet.dpr " + std::string(file)).Exit, 0);
    }
    /// Messages and exit code of a run.
    TWorkFolder::TRun Tell(const std::string& command) {
        return Folder.Run("cd p && " + Folder.Program() + " " + command + " 2>&1 >/dev/null");
    }
    fs::path File(const std::string& name) { return Folder / ("p/" + name); }

    const TWorkFolder Folder;
};

using TPrepare = std::function<void(const fs::path& file)>;

TPrepare Replaced(const std::string& what, const std::string& by) {
    return [=](const fs::path& file) {
        std::string bytes = BytesOf(file);
        bytes.replace(bytes.find(what), what.size(), by);
        WriteBytes(file, bytes);
    };
}

/// In a binary file, whose checksum fits again.
TPrepare Resealed(const std::string& what, const std::string& by) {
    return [=](const fs::path& file) {
        Replaced(what, by)(file);
        std::string bytes = BytesOf(file);
        for (const std::uint32_t sum = Crc32(std::string_view(bytes).substr(14)); const int i : {0, 1, 2, 3})
            bytes[static_cast<std::size_t>(10 + i)] = static_cast<char>(sum >> (8 * i) & 0xFF);
        WriteBytes(file, bytes);
    };
}

TPrepare CutBehind(const std::string& what) {
    return [=](const fs::path& file) { fs::resize_file(file, BytesOf(file).find(what) + what.size()); };
}

void MakeHuge(const fs::path& file) {
    fs::resize_file(file, 3'000'000'000);
}

TEST_F(TBadfiles, AreNamedWithTheirPlaceAndChangeNothing) {
    const struct {
        const char* File;
        TPrepare Prepare;
        const char* Command;
        const char* Message;  ///< behind the file's name
    } rows[] = {
        {"fleet.mll", MakeHuge, "save", ": is larger than 2 GB"},
        {"fleet.mll", MakeHuge, "load", ": is larger than 2 GB"},
        {"fleet.mlb", MakeHuge, "merge", ": is larger than 2 GB"},
        {"fleet.mll", CutBehind("\n.Cap"), "load",
         ":13: the file ends within this line: it may have been cut off"},
        {"fleet.mll", CutBehind("[Fleet/Ship"), "save",
         ":9: the file ends within this line: it may have been cut off"},
        {"fleet.mll", CutBehind(""), "merge", ": the file is empty"},
        {"fleet.mlb", CutBehind(""), "load", ": the file is empty"},
        {"fleet.mlb", CutBehind("Capt"), "load", ": the file has "},
        {"fleet.mlb", CutBehind("TMLB"), "save", ": the file is no binary translation file"},
        {"fleet.mlb", Replaced("Ship", "Shop"), "merge", ": the checksum of the file does not match"},
        {"fleet.mll", Replaced("Delimiter=~!@#$", "Delimiter=|"), "load",
         ":13: .Caption has 1 text where 2 are expected. Put the delimiter | between them"},
        {"fleet.mll", Replaced("Delimiter=~!@#$", ""), "merge",
         ":1: the section \"Options\" has no delimiter"},
        {"fleet.mll", Replaced("[Fleet/BaseForm]", "[Fleet/ShipForm]"), "load",
         ":42: the section stands in the file already"},
        {"fleet.mll", [](const fs::path& file) { WriteBytes(file, "\xFF\xFE[\n"); }, "load",
         ":1: the line is no UTF-8"},
        {"Fleet.dpr", [](const fs::path&) {}, "merge", ":1: expected a section in brackets"},
        {"forms", [](const fs::path& file) { fs::create_directory(file); }, "save", ": cannot be read: "},
        {"gone.mll", [](const fs::path&) {}, "load", ": there is no such file"},
        {"gone/fleet.mll", [](const fs::path&) {}, "save", ""},
    };
    const auto good = ContentOf(Folder / "p");
    for (const auto& row : rows) {
        const fs::path file = File(row.File);
        row.Prepare(file);
        const auto size = fs::is_regular_file(file) ? fs::file_size(file) : 0;
        const TWorkFolder::TRun run =
            Tell(std::string(row.Command) + " Fleet.dpr --form ShipForm " + row.File);
        EXPECT_EQ(run.Exit, 2) << row.File;
        EXPECT_NE(run.Output.find(file.parent_path().string()), std::string::npos) << run.Output;
        EXPECT_TRUE(*row.Message == '\0' || run.Output.find(file.string() + row.Message) != std::string::npos)
            << row.Command << " " << row.Message << ": " << run.Output;
        EXPECT_EQ(fs::is_regular_file(file) ? fs::file_size(file) : 0, size);
        if (good.contains(row.File)) WriteBytes(file, good.at(row.File));
        EXPECT_EQ(ContentOf(Folder / "p"), good) << row.Command << " " << row.Message;
    }
}

TEST_F(TBadfiles, OfADamagedFormNothingElseIsTold) {
    const struct {
        const char* File;
        TPrepare Prepare;
        const char* Problem;
    } rows[] = {
        {"ship.mll", Replaced("~!@#$Schiff", ""), ":13: .Caption has 1 text where 2 are expected"},
        {"ship.mlb", Resealed(".Caption\2", ".Caption\3"), ": the form ShipForm names more than it holds"},
    };
    for (const auto& row : rows) {
        Tell("save Fleet.dpr --form ShipForm " + std::string(row.File));
        row.Prepare(File(row.File));
        const std::string output = Tell("load Fleet.dpr " + std::string(row.File)).Output;
        EXPECT_TRUE(output.starts_with("tmllang: ShipForm: " + File(row.File).string() + row.Problem))
            << output;
        EXPECT_EQ(output.find('\n'), output.size() - 1) << output;
    }
}

TEST_F(TBadfiles, OptionsBehindTheFirstPartOfAFileAreFound) {
    Tell("save Fleet.dpr fleet.mll --delimiter '<->' --yes");
    const std::string text = BytesOf(File("fleet.mll"));
    constexpr std::size_t kPart = 32 * 1024;
    for (const std::size_t front : {2 * kPart, kPart - text.find("->")}) {
        const std::string late = ";" + std::string(front - 2, '-') + "\n" + text;
        WriteBytes(File("fleet.mll"), late);
        EXPECT_EQ(Tell("save Fleet.dpr fleet.mll").Output, "");
        EXPECT_TRUE(BytesOf(File("fleet.mll")) == late) << front;
    }
}

TEST_F(TBadfiles, OfTwoProgramsAtOneFileNoneUndoesTheOther) {
    for (int round = 0; round < 5; ++round) {
        fs::remove(File("both.mll"));
        const std::string save = Folder.Program() + " save Fleet.dpr both.mll --form ";
        Folder.Run("{ { cd p; " + save + "ShipForm; echo $? >../ship; } >one 2>&1 & { cd p; " + save +
                   "BaseForm; echo $? >../base; } >two 2>&1 & wait; }");
        const std::string text = BytesOf(File("both.mll"));
        for (const auto& [exit, output, form] :
             {std::tuple("ship", "one", "[Fleet/ShipForm]"), std::tuple("base", "two", "[Fleet/BaseForm]")}) {
            const bool saved = BytesOf(Folder / exit) == "0\n";
            EXPECT_EQ(saved, text.find(form) != std::string::npos);
            EXPECT_TRUE(saved ||
                        BytesOf(Folder / output).find("both.mll: the file has changed") != std::string::npos);
        }
        EXPECT_NE(text.find("[Options]"), std::string::npos) << "one of them has saved";
    }
}

}  // namespace
}  // namespace tml
