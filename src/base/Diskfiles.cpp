// The file system of the machine: POSIX calls where the standard library has none (owner, mode, flush,
// lock), the portable ones elsewhere.
#include "base/Diskfiles.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <future>
#include <limits>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "base/Errors.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace tml {
namespace {

namespace fs = std::filesystem;

fs::path ToPath(const std::string& path) {
    return fs::path(std::u8string(path.begin(), path.end()));
}

std::string FromPath(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

struct TRemedy {
    int Error;
    const char* Text;
};
constexpr TRemedy kRemedies[] = {
    {EACCES, "Check the permissions of the file and its folder"},
    {EPERM, "Check the permissions of the file and its folder"},
    {EROFS, "The disk is read-only; work on a copy"},
    {ENOSPC, "Free some space on the disk and try again"},
#ifdef EDQUOT
    {EDQUOT, "Free some space on the disk and try again"},
#endif
    {ENOENT, "Check the name"},
    {ELOOP, "Remove the symbolic link in its place"},
};

constexpr const char* kNoFile = "cannot be read: it is no file";
constexpr const char* kFolder = "cannot be read: it is a folder";
constexpr const char* kNameFile = "Name a file";

[[noreturn]] void Fail(const std::string& path, const std::string& action, int error) {
    const auto* known = std::find_if(std::begin(kRemedies), std::end(kRemedies),
                                     [&](const TRemedy& row) { return row.Error == error; });
    throw EFileError(path, 0, action + ": " + std::strerror(error),
                     known == std::end(kRemedies) ? "" : known->Text);
}

/// Places in a text are counted in 32 bits.
constexpr std::uint64_t kLargestFile = std::numeric_limits<std::int32_t>::max();

/// What read makes of a file of a size; a file that is too large is named.
template <typename Read>
std::string InMemory(const std::string& path, std::uint64_t size, Read read) {
    if (size > kLargestFile) throw EFileError(path, 0, "is larger than 2 GB", kTooLarge);
    try {
        return read(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
        throw EFileError(path, 0, kNoMemory, kTooLarge);
    }
}

#ifndef _WIN32
class TDescriptor {
  public:
    TDescriptor(const std::string& path, int flags, const std::string& action, mode_t mode = 0666)
        : path_(path), action_(action), handle_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
        if (handle_ < 0) Fail(path_, action_, errno);
    }
    ~TDescriptor() {
        if (handle_ >= 0) ::close(handle_);
    }
    TDescriptor(const TDescriptor&) = delete;
    TDescriptor& operator=(const TDescriptor&) = delete;

    int Handle() const { return handle_; }

    /// Up to size bytes; fewer when the file ends before.
    std::string Read(std::size_t size) {
        std::string bytes(size, '\0');
        std::size_t done = 0;
        while (done < size) {
            const ssize_t count = ::read(handle_, bytes.data() + done, size - done);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) Fail(path_, action_, errno);
            if (count == 0) break;
            done += static_cast<std::size_t>(count);
        }
        bytes.resize(done);
        return bytes;
    }
    void Write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = ::write(handle_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) Fail(path_, action_, errno);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void Flush() {
        if (::fsync(handle_) != 0 && errno != EINVAL && errno != ENOTSUP) Fail(path_, action_, errno);
    }
    /// Promises nothing, but the disk is busy with the bytes while the next file is written.
    void StartFlush() {
#ifdef __linux__
        ::sync_file_range(handle_, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
    }
    void Close() {
        const int handle = std::exchange(handle_, -1);
        if (::close(handle) != 0) Fail(path_, action_, errno);
    }

  private:
    std::string path_;
    std::string action_;
    int handle_;
};

/// Only root gives files away, so a file of somebody else is refused; a group the user is in can be kept.
void CopyModeAndOwner(const TDescriptor& to, const std::string& modelPath) {
    struct stat model {};
    struct stat own {};
    if (::stat(modelPath.c_str(), &model) != 0) return;
    if (::fstat(to.Handle(), &own) != 0) Fail(modelPath, "the owner cannot be kept", errno);
    if (own.st_uid != model.st_uid && ::fchown(to.Handle(), model.st_uid, static_cast<gid_t>(-1)) != 0)
        throw EFileError(modelPath, 0, "belongs to another user, and writing it would make it yours",
                         "Let its owner run the command, or work on a copy");
    if (own.st_gid != model.st_gid && ::fchown(to.Handle(), static_cast<uid_t>(-1), model.st_gid) != 0)
        throw EFileError(modelPath, 0, "belongs to a group that you are not in, and would leave it",
                         "Let its owner run the command, or work on a copy");
    if (::fchmod(to.Handle(), model.st_mode & 07777U) != 0) Fail(modelPath, "the mode cannot be kept", errno);
}

#ifdef __linux__
/// The names (their bytes end with NUL) or, with one, its value; "" where there is none.
template <typename Get>
std::string ReadAttribute(Get get) {
    const ssize_t size = get(nullptr, 0);
    std::string bytes(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    const ssize_t read = bytes.empty() ? 0 : get(bytes.data(), bytes.size());
    bytes.resize(read > 0 ? static_cast<std::size_t>(read) : 0);
    return bytes;
}

/// What people set (also access lists) must be kept; what the system sets by itself it sets anew.
void CopyAttributes(const TDescriptor& to, const std::string& modelPath) {
    const char* model = modelPath.c_str();
    const std::string names =
        ReadAttribute([&](char* data, std::size_t size) { return ::listxattr(model, data, size); });
    for (std::size_t i = 0; i < names.size(); i = names.find('\0', i) + 1) {
        const char* name = names.c_str() + i;
        const std::string value =
            ReadAttribute([&](char* data, std::size_t size) { return ::getxattr(model, name, data, size); });
        const bool isPeoples = std::strncmp(name, "user.", 5) == 0 || std::strncmp(name, "system.", 7) == 0;
        if (::fsetxattr(to.Handle(), name, value.data(), value.size(), 0) != 0 && isPeoples)
            Fail(modelPath, std::string("the extended attribute ") + name + " cannot be kept", errno);
    }
}
#else
void CopyAttributes(const TDescriptor&, const std::string&) {}
#endif

class TFileLock : public IFileLock {
  public:
    TFileLock(const std::string& path, const std::function<bool()>& stop) {
        constexpr std::chrono::milliseconds kPause(20);
        do {
            file_.emplace(path, O_RDWR | O_CREAT | O_NOFOLLOW, "cannot be locked");
            while (::flock(file_->Handle(), LOCK_EX | LOCK_NB) != 0) {
                if (errno != EWOULDBLOCK && errno != EINTR) Fail(path, "cannot be locked", errno);
                if (stop && stop())
                    throw EFileError(path, 0, "stopped while another program holds the lock",
                                     "Nothing was written");
                std::this_thread::sleep_for(kPause);
            }
        } while (!IsAt(path));
    }

  private:
    /// A lock on a file that its former holder has removed (another may be in its place) guards nothing.
    bool IsAt(const std::string& path) const {
        struct stat held {};
        struct stat named {};
        return ::fstat(file_->Handle(), &held) == 0 && ::stat(path.c_str(), &named) == 0 &&
               held.st_dev == named.st_dev && held.st_ino == named.st_ino;
    }

    std::optional<TDescriptor> file_;
};

void WriteNew(const std::string& path, std::string_view bytes, const std::string& modelPath) {
    // Whatever stands there (a pipe would wait for its reader for ever) is a left-over.
    ::unlink(path.c_str());
    TDescriptor file(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, "cannot be written");
    CopyModeAndOwner(file, modelPath);
    CopyAttributes(file, modelPath);
    file.Write(bytes);
    file.StartFlush();
    file.Close();
}

void FlushOne(const std::string& path) {
    TDescriptor(path.empty() ? "." : path, O_RDONLY, "cannot be flushed").Flush();
}

/// One call to the system for all that is asked of a path: a scan asks of every file that it meets.
std::optional<struct stat> StatusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

std::optional<TFileInfo> InfoOf(const std::string& path) {
    const auto status = StatusOf(path);
    if (!status) return std::nullopt;
    constexpr mode_t kAnybody = S_IWUSR | S_IWGRP | S_IWOTH;
    TFileInfo info;
    info.IsFolder = S_ISDIR(status->st_mode);
    info.ReadOnly = (status->st_mode & kAnybody) == 0 || ::access(path.c_str(), W_OK) != 0;
    if (S_ISREG(status->st_mode)) info.Size = static_cast<std::uint64_t>(status->st_size);
    info.Modified = std::int64_t{status->st_mtim.tv_sec} * 1'000'000'000 + status->st_mtim.tv_nsec;
    return info;
}

std::uint64_t SizeToRead(const std::string& path) {
    const auto status = StatusOf(path);
    if (!status) Fail(path, "cannot be read", ENOENT);
    if (S_ISDIR(status->st_mode)) throw EFileError(path, 0, kFolder, kNameFile);
    // A pipe or a device has no size, and opening it may wait for ever.
    if (!S_ISREG(status->st_mode)) throw EFileError(path, 0, kNoFile);
    return static_cast<std::uint64_t>(status->st_size);
}

std::string ReadWhole(const std::string& path) {
    return InMemory(path, SizeToRead(path), [&](std::size_t size) {
        return TDescriptor(path, O_RDONLY, "cannot be read").Read(size);
    });
}

void ReadInParts(const std::string& path, const TPassPart& pass) {
    constexpr std::size_t kPart = 32768;
    SizeToRead(path);
    TDescriptor file(path, O_RDONLY, "cannot be read");
    for (std::string part = file.Read(kPart); !part.empty() && pass(part);)
        part = file.Read(kPart);
}
#else
class TFileLock : public IFileLock {
  public:
    TFileLock(const std::string& path, const std::function<bool()>&) : file_(ToPath(path), std::ios::app) {
        if (!file_) Fail(path, "cannot be locked", errno);
    }

  private:
    std::ofstream file_;
};

void WriteNew(const std::string& path, std::string_view bytes, const std::string&) {
    std::ofstream file(ToPath(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) Fail(path, "cannot be written", errno);
}

void FlushOne(const std::string&) {}  // the system orders renames itself

std::optional<TFileInfo> InfoOf(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(ToPath(path), error);
    if (!fs::exists(status)) return std::nullopt;
    TFileInfo info;
    info.IsFolder = fs::is_directory(status);
    info.ReadOnly = (status.permissions() & fs::perms::owner_write) == fs::perms::none;
    if (fs::is_regular_file(status)) info.Size = fs::file_size(ToPath(path), error);
    info.Modified = fs::last_write_time(ToPath(path), error).time_since_epoch().count();
    return info;
}

std::string ReadWhole(const std::string& path) {
    const auto info = InfoOf(path);
    if (!info) Fail(path, "cannot be read", ENOENT);
    if (info->IsFolder) throw EFileError(path, 0, kFolder, kNameFile);
    if (!fs::is_regular_file(ToPath(path))) throw EFileError(path, 0, kNoFile);
    return InMemory(path, info->Size, [&](std::size_t size) {
        std::ifstream file(ToPath(path), std::ios::binary);
        if (!file) Fail(path, "cannot be read", errno);
        std::string bytes(size, '\0');
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (file.bad()) Fail(path, "cannot be read", errno);
        bytes.resize(static_cast<std::size_t>(file.gcount()));
        return bytes;
    });
}

void ReadInParts(const std::string& path, const TPassPart& pass) {
    pass(ReadWhole(path));
}
#endif

/// The system confirms in one go what is asked for at the same time, so that a few who wait side by side wait
/// a fraction of the time; where it gives no thread one waits alone.
void FlushAll(const std::vector<std::string>& paths) {
    constexpr std::size_t kSideBySide = 8;
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < paths.size(); i = next++)
            FlushOne(paths[i]);
    };
    std::vector<std::future<void>> others;
    for (std::size_t i = 1; i < std::min(kSideBySide, paths.size()); ++i)
        others.push_back(std::async(work));
    work();
    for (std::future<void>& other : others)
        other.get();
}

class TDiskFileSystem : public IFileSystem {
  public:
    explicit TDiskFileSystem(std::function<bool()> stop) : stop_(std::move(stop)) {}

    std::optional<TFileInfo> Stat(const std::string& path) override { return InfoOf(path); }

    std::string Read(const std::string& path) override { return ReadWhole(path); }

    void ReadParts(const std::string& path, const TPassPart& pass) override { ReadInParts(path, pass); }

    std::string Resolve(const std::string& path) override {
        std::error_code error;
        const fs::path resolved = fs::weakly_canonical(fs::absolute(ToPath(path), error), error);
        return error ? path : FromPath(resolved);
    }

    std::vector<std::string> List(const std::string& folder) override {
        std::error_code error;
        std::vector<std::string> names;
        for (fs::directory_iterator entry(ToPath(folder), error), end; !error && entry != end;
             entry.increment(error))
            names.push_back(FromPath(entry->path().filename()));
        if (error) Fail(folder, "cannot be listed", error.value());
        std::sort(names.begin(), names.end());
        return names;
    }

    void MakeFolder(const std::string& folder) override {
        std::error_code error;
        fs::create_directories(ToPath(folder), error);
        if (error) Fail(folder, "cannot be created", error.value());
    }

    void Stage(const std::string& path, std::string_view bytes, const std::string& modelPath) override {
        try {
            WriteNew(path, bytes, modelPath);
        } catch (const EFileError&) {
            std::error_code ignored;
            fs::remove(ToPath(path), ignored);
            throw;
        }
    }

    void Rename(const std::string& from, const std::string& to) override {
        std::error_code error;
        fs::rename(ToPath(from), ToPath(to), error);
        if (error) Fail(to, "cannot be replaced", error.value());
    }

    void Remove(const std::string& path) override {
        std::error_code error;
        fs::remove(ToPath(path), error);
        if (error) Fail(path, "cannot be removed", error.value());
    }

    void Flush(const std::vector<std::string>& paths) override { FlushAll(paths); }

    std::unique_ptr<IFileLock> Lock(const std::string& path) override {
        return std::make_unique<TFileLock>(path, stop_);
    }

  private:
    std::function<bool()> stop_;
};

}  // namespace

std::unique_ptr<IFileSystem> MakeDiskFileSystem(std::function<bool()> stop) {
    return std::make_unique<TDiskFileSystem>(std::move(stop));
}

}  // namespace tml
