#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

#include "base/Diskfiles.h"
#include "base/Errors.h"
#include "ide/Commitrecord.h"
#include "ide/Staging.h"
#include "support/Memoryfiles.h"
#include "support/Wrappedfiles.h"

namespace tml {
namespace {

using TFault = TFaultyFileSystem::TFault;
using TFiles = std::map<std::string, std::string>;

const std::vector<std::string> kPaths = {"/p/A.pas", "/p/A.dfm", "/q/link.pas", "/p/Gone.txt"};
const TFiles kOld = {{"/p/A.pas", "a1"}, {"/p/A.dfm", "b1"}, {"/r/B.pas", "c1"}, {"/p/Gone.txt", "d1"}};
const TFiles kNew = {{"/p/A.pas", "a2"}, {"/p/A.dfm", "b2"}, {"/r/B.pas", "c2"}};

TMemoryFileSystem OldDisk() {
    TMemoryFileSystem disk;
    disk.Files = kOld;
    disk.Links = {{"/q/link.pas", "/r/B.pas"}};
    return disk;
}

const std::vector<TStagedFile> kStaged = {{kPaths[0], "a2", "a1"},
                                          {kPaths[1], "b2", "b1"},
                                          {kPaths[2], "c2", "c1"},
                                          {"/r/B.pas", "c2", "c1"},
                                          {kPaths[3], std::nullopt, "d1"}};

/// What is on the disk but for the lock files that a crash leaves.
TFiles Contents(const TMemoryFileSystem& disk) {
    TFiles files = disk.Files;
    std::erase_if(files, [](const auto& file) { return file.first.ends_with("/.tml-lock"); });
    return files;
}

/// The same without all that staging made.
TFiles Targets(const TMemoryFileSystem& disk) {
    TFiles files = Contents(disk);
    std::erase_if(files, [](const auto& file) { return file.first.find("/.") != std::string::npos; });
    return files;
}

bool Throws(IFileSystem& files) {
    try {
        WriteTogether(files, kStaged);
    } catch (const EFileError&) {
        return true;
    }
    return false;
}

/// A disk on which a save was cut off when A.pas had been renamed.
TMemoryFileSystem HalfWritten() {
    for (int n = 1;; ++n) {
        TMemoryFileSystem disk = OldDisk();
        TFaultyFileSystem faulty(disk, n, TFault::Crash);
        Throws(faulty);
        if (disk.Files["/p/A.pas"] == "a2") return disk;
    }
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
        RecoverStaged(disk, kPaths);
        EXPECT_EQ(Contents(disk), threw ? kOld : kNew);
    }
}

TEST(Staging, EveryCrashIsRecoveredFromAnyDoorAlsoAfterACrashedRecovery) {
    for (int n = 1;; ++n) {
        TMemoryFileSystem crashed = OldDisk();
        TFaultyFileSystem faulty(crashed, n, TFault::Crash);
        Throws(faulty);
        if (!faulty.HasFailed()) break;
        for (int m = 0; m < 60; ++m) {
            SCOPED_TRACE(std::to_string(n) + " " + std::to_string(m));
            TMemoryFileSystem disk = crashed;
            TFaultyFileSystem recovery(disk, m, TFault::Crash);
            const std::vector<std::string> doors[] = {{"/p/P.dpr"}, {"/q/link.pas"}};
            try {
                RecoverStaged(recovery, doors[m % 2]);
            } catch (const EFileError&) {
                EXPECT_TRUE(recovery.HasFailed());
            }
            RecoverStaged(disk, doors[n % 2]);
            const TFiles files = Targets(disk);
            EXPECT_TRUE(files == kOld || files == kNew) << testing::PrintToString(files);
            RecoverStaged(disk, doors[(n + 1) % 2]);
            EXPECT_EQ(Contents(disk), files);
        }
    }
}

/// A disk that may lose all that was not flushed when the machine stops.
class TCachedDisk : public TWrappedFileSystem {
  public:
    explicit TCachedDisk(TMemoryFileSystem& disk) : TWrappedFileSystem(disk) {
        for (const auto& [path, bytes] : disk.Files)
            onDisk_[path] = seen_[path] = std::make_shared<TFile>(TFile{bytes, true});
    }
    void Stage(const std::string& path, std::string_view bytes, const std::string& modelPath) override {
        TWrappedFileSystem::Stage(path, bytes, modelPath);
        Change("", path, std::make_shared<TFile>(TFile{std::string(bytes), false}));
    }
    void Rename(const std::string& from, const std::string& to) override {
        TWrappedFileSystem::Rename(from, to);
        Change(from, to, seen_[from]);
    }
    void Remove(const std::string& path) override {
        TWrappedFileSystem::Remove(path);
        Change(path, "", nullptr);
    }
    void Flush(const std::vector<std::string>& paths) override {
        TWrappedFileSystem::Flush(paths);
        for (const std::string& path : paths) {
            if (const auto file = seen_.find(path); file != seen_.end()) file->second->IsFlushed = true;
            for (const TChange& change : changes_)
                if (change.Folder() == path) Apply(change, onDisk_);
            std::erase_if(changes_, [&](const TChange& change) { return change.Folder() == path; });
        }
    }

    /// What the next start finds; bit n of luck says whether change n that was not flushed has survived.
    TFiles AfterPowerLoss(std::uint64_t luck) const {
        TEntries left = onDisk_;
        for (const TChange& change : changes_) {
            if ((luck & 1U) != 0) Apply(change, left);
            luck >>= 1U;
        }
        TFiles files;
        for (const auto& [path, file] : left)
            files[path] = file->IsFlushed ? file->Bytes : "torn";
        return files;
    }

  protected:
    void Before(const std::string&, const std::string&) override {}

  private:
    struct TFile {
        std::string Bytes;
        bool IsFlushed;
    };
    using TEntries = std::map<std::string, std::shared_ptr<TFile>>;
    struct TChange {
        std::string From, To;
        std::shared_ptr<TFile> File;
        std::string Folder() const { return FolderOf(To.empty() ? From : To); }
    };
    static void Apply(const TChange& change, TEntries& entries) {
        entries.erase(change.From);
        if (change.File != nullptr) entries[change.To] = change.File;
    }
    void Change(const std::string& from, const std::string& to, std::shared_ptr<TFile> file) {
        changes_.push_back({from, to, std::move(file)});
        Apply(changes_.back(), seen_);
    }

    TEntries onDisk_, seen_;
    std::vector<TChange> changes_;
};

using TWork = std::function<void(IFileSystem&)>;

/// The power fails at call n of the work, of which one call has failed before. Whatever the disk has
/// forgotten, a start through the doors finds all of the work done or nothing. False when the work ended
/// before call n.
bool IsCutOff(TMemoryFileSystem disk, const TWork& work, int fault, int n,
              const std::vector<std::string>& doors) {
    const TFiles before = Targets(disk);
    TCachedDisk cached(disk);
    TFaultyFileSystem once(cached, fault, TFault::Once);
    TFaultyFileSystem power(once, n, TFault::Crash);
    bool isDone = true;
    try {
        work(power);
    } catch (const EFileError&) {
        isDone = false;
    }
    for (const std::uint64_t luck : {0x0ULL, ~0x0ULL, 0x5555555555555555ULL, 0xAAAAAAAAAAAAAAAAULL}) {
        SCOPED_TRACE(testing::Message() << "fault " << fault << ", power " << n << ", luck " << luck);
        disk.Files = cached.AfterPowerLoss(luck);
        EXPECT_NO_THROW(RecoverStaged(disk, doors));
        const TFiles files = Targets(disk);
        EXPECT_TRUE(files == kNew || (!isDone && files == before)) << testing::PrintToString(files);
    }
    return power.HasFailed();
}

TEST(Staging, APowerFailureLosesNothingWhateverTheDiskHasForgotten) {
    const TWork write = [](IFileSystem& files) { WriteTogether(files, kStaged); };
    TMemoryFileSystem disk = OldDisk();
    TFaultyFileSystem counted(disk, 0, TFault::Once);
    write(counted);
    for (int fault = 0; fault <= counted.Calls(); ++fault)
        for (int n = 1; IsCutOff(OldDisk(), write, fault, n, kPaths);)
            ++n;

    disk = HalfWritten();
    disk.Files.erase("/r/.tml-commit");
    const TWork recover = [](IFileSystem& files) {
        RecoverStaged(files, {"/p/P.dpr"});
        files.Stat("/p");  // fails where the recovery has kept quiet about the power
    };
    for (int n = 1; IsCutOff(disk, recover, 0, n, {"/q/link.pas"});)
        ++n;
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

    disk = OldDisk();
    const std::vector<TStagedFile> differing = {{"/r/B.pas", "x", "c1"}, {"/q/link.pas", "y", "c1"}};
    EXPECT_THROW(WriteTogether(disk, differing), EBadInput);
    EXPECT_EQ(disk.Files, kOld);
}

/// Changes a file when another is about to be renamed.
struct TRival : TWrappedFileSystem {
    TRival(TMemoryFileSystem& disk, std::string path)
        : TWrappedFileSystem(disk), Disk(disk), Path(std::move(path)) {}
    void Before(const std::string& call, const std::string& arguments) override {
        if (call == "Rename" && arguments.ends_with("/p/A.pas")) Disk.Files[Path] = "";
    }
    TMemoryFileSystem& Disk;
    std::string Path;
};

TEST(Staging, WhatARivalDoesBetweenTwoRenamesIsNotLost) {
    for (const char* path : {"/p/A.dfm", "/r/B.pas", "/p/.A.dfm.tml-staged"}) {
        TMemoryFileSystem disk = OldDisk();
        TRival rival(disk, path);
        EXPECT_TRUE(Throws(rival)) << path;
        TFiles expected = kOld;
        if (expected.contains(path)) expected[path] = "";
        EXPECT_EQ(disk.Files, expected);
    }
}

TEST(Staging, ACrashedSaveThatDoesNotFitAnyMoreIsRefusedAndKept) {
    using TDamage = void (*)(TFiles&);
    const TDamage damages[] = {
        [](TFiles& files) { files["/p/A.dfm"] = "edited after the crash"; },
        [](TFiles& files) { files["/p/.A.dfm.tml-staged"] = "edited after the crash"; },
        [](TFiles& files) { files.erase("/p/.A.dfm.tml-staged"); },
        [](TFiles& files) {
            // The folder was moved away alone.
            files.erase("/r/B.pas");
            files.erase("/r/.B.pas.tml-staged");
        },
    };
    for (const TDamage damage : damages) {
        TMemoryFileSystem disk = HalfWritten();
        damage(disk.Files);
        const TFiles before = Contents(disk);
        try {
            RecoverStaged(disk, {"/p/P.dpr"});
            ADD_FAILURE();
        } catch (const EFileError& error) {
            EXPECT_EQ(error.File(), "/p/.tml-commit");
        }
        EXPECT_EQ(Contents(disk), before);
        EXPECT_TRUE(Throws(disk)) << "nor is anything written meanwhile";
        disk.Files.erase("/p/.tml-commit");
        disk.Files.erase("/r/.tml-commit");
        RecoverStaged(disk, kPaths);
        EXPECT_EQ(Contents(disk), Targets(disk)) << "the person keeps the files as they are";
    }
}

TEST(Staging, ACrashedSaveIsCompletedWhereItsFoldersHaveBeenMovedTo) {
    TMemoryFileSystem disk = HalfWritten();
    TFiles moved, expected;
    for (const auto& [path, bytes] : disk.Files)
        moved["/new/place" + path] = bytes;
    for (const auto& [path, bytes] : kNew)
        expected["/new/place" + path] = bytes;
    disk.Files = moved;
    RecoverStaged(disk, {"/new/place/r/Other.dpr"});
    EXPECT_EQ(Targets(disk), expected);
}

TEST(Staging, NothingIsTouchedWhereNothingIsLeft) {
    TMemoryFileSystem disk = OldDisk();
    TLoggingFileSystem log(disk);
    RecoverStaged(log, kPaths);
    EXPECT_TRUE(log.Changes().empty());
}

TEST(Staging, ARecordThatNamesOtherFilesMovesNothing) {
    TMemoryFileSystem disk = OldDisk();
    const TContentMark a1 = MarkOf("a1"), c1 = MarkOf("c1");
    disk.Files["/p/.tml-commit"] =
        WriteCommitRecord({{"/r/New.pas", TContentMark(), a1}, {"/r/B.pas", c1, TContentMark()}}, "/p");
    EXPECT_NE(disk.Files["/p/.tml-commit"].find("\t../r/New.pas\n"), std::string::npos);
    RecoverStaged(disk, kPaths);
    EXPECT_EQ(Contents(disk), kOld);
    disk.Files["/p/.tml-commit"] = "1\t2\n";
    EXPECT_THROW(RecoverStaged(disk, kPaths), EBadInput);
}

namespace fs = std::filesystem;

fs::path NewFolder() {
    fs::path folder = fs::path(testing::TempDir()) / ("tml-staging-" + std::to_string(::getpid()));
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

TEST(Staging, AFolderThatCannotBeWrittenIsNamed) {
    const fs::path folder = NewFolder();
    fs::permissions(folder, fs::perms(0555));
    std::thread somebody([&] {
        // Root may write everywhere; of this thread only.
        if (::geteuid() == 0) {
            ASSERT_EQ(::syscall(SYS_setresuid, -1, 1234, -1), 0);
        }
        try {
            WriteTogether(*MakeDiskFileSystem(), {{(folder / "a.mll").string(), "new", std::nullopt}});
            ADD_FAILURE();
        } catch (const EFileError& error) {
            EXPECT_EQ(error.what(),
                      folder.string() + ": the folder is read-only. Make it writable, or name another one");
        }
    });
    somebody.join();
    fs::remove_all(folder);
}

TEST(Staging, TheDiskKeepsLinksAndModes) {
    const fs::path folder = NewFolder();
    fs::create_directories(folder / "real");
    const auto disk = MakeDiskFileSystem();
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    for (const char* name : {"real/Unit1.pas", "Unit1.dfm"}) {
        disk->Stage((folder / name).string(), "old", "");
        fs::permissions(folder / name, mode);
    }
    fs::create_symlink("real/Unit1.pas", folder / "Unit1.pas");
    WriteTogether(*disk, {{(folder / "Unit1.pas").string(), "new", "old"},
                          {(folder / "Unit1.dfm").string(), "new", "old"}});
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
