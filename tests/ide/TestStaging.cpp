#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "base/Errors.h"
#include "ide/Commitrecord.h"
#include "ide/Staging.h"
#include "support/Memoryfiles.h"
#include "support/Wrappedfiles.h"

namespace tml {
namespace {

using TFault = TFaultyFileSystem::TFault;
using TFiles = std::map<std::string, std::string>;

const std::string kRecord = CommitRecordPath("/p/Project1.dpr");
const std::vector<std::string> kPaths = {"/p/A.pas", "/p/A.dfm", "/q/link.pas"};
const TFiles kOld = {{"/p/A.pas", "a1"}, {"/p/A.dfm", "b1"}, {"/r/B.pas", "c1"}};
const TFiles kNew = {{"/p/A.pas", "a2"}, {"/p/A.dfm", "b2"}, {"/r/B.pas", "c2"}};

TMemoryFileSystem OldDisk() {
    TMemoryFileSystem disk;
    disk.Files = kOld;
    disk.Links = {{"/q/link.pas", "/r/B.pas"}};
    return disk;
}

std::vector<TStagedFile> Staged(std::size_t count) {
    const std::vector<TStagedFile> all = {
        {kPaths[0], "a2", "a1"}, {kPaths[1], "b2", "b1"}, {kPaths[2], "c2", "c1"}};
    return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// What is on the disk but for the lock file that a crash leaves.
TFiles Contents(const TMemoryFileSystem& disk) {
    TFiles files = disk.Files;
    files.erase(kRecord + "-lock");
    return files;
}

bool Throws(IFileSystem& files) {
    try {
        WriteTogether(files, kRecord, Staged(3));
    } catch (const EFileError&) {
        return true;
    }
    return false;
}

TEST(Staging, EveryFailedCallLeavesAllOldOrAllNew) {
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        TMemoryFileSystem disk = OldDisk();
        TFaultyFileSystem faulty(disk, n, TFault::Once);
        const bool threw = Throws(faulty);
        if (!faulty.HasFailed()) {
            EXPECT_GT(n, 15);
            break;
        }
        RecoverStaged(disk, kRecord, kPaths);
        EXPECT_EQ(Contents(disk), threw ? kOld : kNew);
    }
}

TEST(Staging, EveryCrashIsRecoveredAlsoAfterACrashedRecovery) {
    for (int n = 1;; ++n) {
        TMemoryFileSystem crashed = OldDisk();
        TFaultyFileSystem faulty(crashed, n, TFault::Crash);
        Throws(faulty);
        if (!faulty.HasFailed()) break;
        for (int m = 0; m < 20; ++m) {
            SCOPED_TRACE(std::to_string(n) + " " + std::to_string(m));
            TMemoryFileSystem disk = crashed;
            TFaultyFileSystem recovery(disk, m, TFault::Crash);
            try {
                RecoverStaged(recovery, kRecord, kPaths);
            } catch (const EFileError&) {
                EXPECT_TRUE(recovery.HasFailed());
            }
            EXPECT_TRUE(RecoverStaged(disk, kRecord, kPaths).empty());
            const TFiles files = Contents(disk);
            EXPECT_TRUE(files == kOld || files == kNew) << testing::PrintToString(files);
        }
    }
}

TEST(Staging, ForeignChangesAndReadOnlyFilesAreRefused) {
    TMemoryFileSystem disk = OldDisk();
    disk.Files["/p/A.dfm"] = "somebody else's";
    const TFiles before = disk.Files;
    EXPECT_TRUE(Throws(disk));
    EXPECT_EQ(disk.Files, before);

    disk = OldDisk();
    disk.ReadOnlyFiles = {"/r/B.pas"};
    EXPECT_TRUE(Throws(disk));
    EXPECT_EQ(disk.Files, kOld);
}

TEST(Staging, ACrashedSaveDoesNotOverwriteWhatCameLater) {
    TMemoryFileSystem disk = OldDisk();
    int renames = 0;
    for (int n = 1; renames == 0; ++n) {
        disk = OldDisk();
        TFaultyFileSystem faulty(disk, n, TFault::Crash);
        Throws(faulty);
        renames = disk.Files["/p/A.pas"] == "a2" ? 1 : 0;
    }
    disk.Files["/p/A.dfm"] = "edited after the crash";
    const std::vector<TProjectProblem> problems = RecoverStaged(disk, kRecord, kPaths);
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].FileName, "/p/A.dfm");
    EXPECT_EQ(Contents(disk),
              (TFiles{{"/p/A.pas", "a2"}, {"/p/A.dfm", "edited after the crash"}, {"/r/B.pas", "c2"}}));
}

TEST(Staging, NothingIsTouchedWhereNothingIsLeft) {
    TMemoryFileSystem disk = OldDisk();
    TLoggingFileSystem log(disk);
    RecoverStaged(log, kRecord, kPaths);
    EXPECT_TRUE(log.Changes().empty());
}

TEST(Staging, ARecordThatNamesOtherFilesMovesNothing) {
    TMemoryFileSystem disk = OldDisk();
    const TContentMark a1 = MarkOf("a1"), c1 = MarkOf("c1");
    disk.Files["/p/.B.pas.7.tml-new"] = "a1";
    const TFiles before = disk.Files;
    disk.Files[kRecord] = WriteCommitRecord({{"/p/A.pas", "/r/New.pas", TContentMark(), a1},
                                             {"/p/.B.pas.7.tml-new", "/r/B.pas", c1, a1},
                                             {"/p/A.pas", "/r/B.pas", a1, a1}});
    EXPECT_TRUE(RecoverStaged(disk, kRecord, kPaths).empty());
    EXPECT_EQ(Contents(disk), before);
}

TEST(Staging, TheDisksLockIsNeverOnARemovedFileAndAPipeIsNotRead) {
    const std::string path = testing::TempDir() + "tml-lock-" + std::to_string(::getpid());
    const auto disk = MakeDiskFileSystem();
    std::unique_ptr<IFileLock> first = disk->Lock(path);
    std::thread waiting([&] {
        const auto second = disk->Lock(path);
        EXPECT_TRUE(disk->Stat(path));
        disk->Remove(path);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    disk->Remove(path);
    first.reset();
    waiting.join();

    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_THROW(disk->Read(path), EFileError);
    disk->Remove(path);
}

TEST(Staging, TheDiskKeepsLinksAndModes) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(testing::TempDir()) / ("tml-staging-" + std::to_string(::getpid()));
    fs::remove_all(folder);
    fs::create_directories(folder / "real");
    const auto disk = MakeDiskFileSystem();
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    for (const char* name : {"real/Unit1.pas", "Unit1.dfm"}) {
        disk->Stage((folder / name).string(), "old", "");
        fs::permissions(folder / name, mode);
    }
    fs::create_symlink("real/Unit1.pas", folder / "Unit1.pas");
    WriteTogether(
        *disk, CommitRecordPath((folder / "P.dpr").string()),
        {{(folder / "Unit1.pas").string(), "new", "old"}, {(folder / "Unit1.dfm").string(), "new", "old"}});
    EXPECT_TRUE(fs::is_symlink(folder / "Unit1.pas"));
    for (const char* name : {"real/Unit1.pas", "Unit1.dfm"}) {
        EXPECT_EQ(disk->Read((folder / name).string()), "new");
        EXPECT_EQ(fs::status(folder / name).permissions(), mode);
    }
    EXPECT_EQ(disk->List(folder.string()), (std::vector<std::string>{"Unit1.dfm", "Unit1.pas", "real"}));
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tml
