#include <atomic>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

#include "base/Diskfiles.h"
#include "base/Errors.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

struct TDiskfiles : testing::Test {
    TDiskfiles() { fs::create_directories(Folder); }
    ~TDiskfiles() override { fs::remove_all(Folder); }
    const fs::path Folder = fs::path(testing::TempDir()) / ("tml-disk-" + std::to_string(::getpid()));
    const std::string Path = (Folder / "file").string();
    std::unique_ptr<IFileSystem> Disk = MakeDiskFileSystem();
};

TEST_F(TDiskfiles, ALockIsNeverOnARemovedFileNorThroughALink) {
    std::unique_ptr<IFileLock> first = Disk->Lock(Path);
    std::thread waiting([&] {
        const auto second = Disk->Lock(Path);
        EXPECT_TRUE(Disk->Stat(Path));
        Disk->Remove(Path);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Disk->Remove(Path);
    first.reset();
    waiting.join();

    fs::create_symlink(Folder / "elsewhere", Path);
    EXPECT_THROW(Disk->Lock(Path), EFileError);
    EXPECT_FALSE(fs::exists(Folder / "elsewhere"));
}

TEST_F(TDiskfiles, WhoWaitsForALockCanBeStopped) {
    const auto held = Disk->Lock(Path);
    int asked = 0;
    const auto stopped = MakeDiskFileSystem([&] { return ++asked > 2; });
    EXPECT_THROW(stopped->Lock(Path), EFileError);
    EXPECT_EQ(asked, 3);
}

TEST_F(TDiskfiles, APipeIsNeitherReadNorWaitedFor) {
    ASSERT_EQ(::mkfifo(Path.c_str(), 0600), 0);
    EXPECT_THROW(Disk->Read(Path), EFileError);
    Disk->Stage(Path, "new", "");
    EXPECT_EQ(Disk->Read(Path), "new");
}

TEST_F(TDiskfiles, AFileThatIsTooLargeIsNamed) {
    Disk->Stage(Path, "", "");
    fs::resize_file(Path, std::uintmax_t{1} << 40U);
    try {
        Disk->Read(Path);
        ADD_FAILURE() << "it was read";
    } catch (const EFileError& error) {
        EXPECT_EQ(error.what(), Path + ": is larger than 2 GB. Divide it, or leave it out");
    }
}

TEST_F(TDiskfiles, OfManyFilesTheOneThatCannotBeFlushedIsNamed) {
    std::vector<std::string> paths = {Folder.string(), ""};
    for (int i = 0; i < 50; ++i)
        Disk->Stage(paths.emplace_back(Path + std::to_string(i)), "new", "");
    Disk->Flush(paths);
    Disk->Remove(paths[20]);
    try {
        Disk->Flush(paths);
        ADD_FAILURE() << "it was flushed";
    } catch (const EFileError& error) {
        EXPECT_EQ(error.File(), paths[20]);
    }
}

TEST_F(TDiskfiles, AStagedFileIsLikeTheOneThatItReplaces) {
    const std::string staged = (Folder / "staged").string();
    Disk->Stage(Path, "old", "");
    ASSERT_EQ(::chmod(Path.c_str(), 0664), 0);
    ASSERT_EQ(::setxattr(Path.c_str(), "user.note", "mine", 4, 0), 0);
    const bool isRoot = ::geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(::chown(Path.c_str(), 1234, 2345), 0);
    }
    Disk->Stage(staged, "new", Path);
    struct stat status {};
    ASSERT_EQ(::stat(staged.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0664U);
    if (isRoot) {
        EXPECT_EQ(status.st_uid * 10000 + status.st_gid, 12342345U);
    }
    char value[8] = {};
    EXPECT_EQ(::getxattr(staged.c_str(), "user.note", value, sizeof value), 4);
    EXPECT_STREQ(value, "mine");
    if (!isRoot) return;
    // Neither root's file nor its group can be kept by somebody else, who may write it.
    fs::permissions(Folder, fs::perms::all);
    ASSERT_EQ(::chown(Path.c_str(), 0, 0) + ::chmod(Path.c_str(), 0666), 0);
    Disk->Remove(staged);
    std::thread somebody([&] {
        // Of this thread only.
        ASSERT_EQ(::syscall(SYS_setresuid, -1, 1234, -1), 0);
        EXPECT_THROW(Disk->Stage(staged, "new", Path), EFileError);
        EXPECT_FALSE(fs::exists(staged));
    });
    somebody.join();
    EXPECT_EQ(Disk->Read(Path), "old");
}

}  // namespace
}  // namespace tml
