#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// What the file system tells of a path.
struct TFileInfo {
    bool IsFolder = false;
    bool ReadOnly = false;  ///< nobody may write it, or this user may not
    std::uint64_t Size = 0;
    std::int64_t Modified = 0;  ///< nanoseconds since the epoch

    bool operator==(const TFileInfo&) const = default;
};

/// Keeps a lock until it is destroyed.
class IFileLock {
  public:
    virtual ~IFileLock() = default;
};

using TPassPart = std::function<bool(std::string_view part)>;

/// The few calls through which everything reaches the disk. Paths are UTF-8 with the host's separator.
/// Every failure is an EFileError that names the path and the reason.
class IFileSystem {
  public:
    virtual ~IFileSystem() = default;

    /// None when the path does not exist.
    virtual std::optional<TFileInfo> Stat(const std::string& path) = 0;
    virtual std::string Read(const std::string& path) = 0;
    /// Passes the bytes part by part, for whoever need not hold them all, until pass gives false.
    virtual void ReadParts(const std::string& path, const TPassPart& pass) { pass(Read(path)); }
    /// The path behind symbolic links, absolute; the path itself when it does not exist.
    virtual std::string Resolve(const std::string& path) = 0;
    /// Names (without folder) in a folder, sorted.
    virtual std::vector<std::string> List(const std::string& folder) = 0;
    virtual void MakeFolder(const std::string& folder) = 0;
    /// Writes a new file with the bytes; takes mode, owner, group and extended attributes of modelPath where
    /// that exists. A failure leaves no file behind.
    virtual void Stage(const std::string& path, std::string_view bytes, const std::string& modelPath) = 0;
    /// Puts the file in the other's place in one step.
    virtual void Rename(const std::string& from, const std::string& to) = 0;
    virtual void Remove(const std::string& path) = 0;
    /// Brings the bytes of files, and what has been renamed or removed in folders, to the disk; before, a
    /// machine that stops may lose any part of it. Many paths in one call cost far less than one by one.
    virtual void Flush(const std::vector<std::string>& paths) = 0;
    /// Waits for the lock file and holds it, so that only one process at a time changes what it guards. The
    /// holder may remove the file. A symbolic link in its place is refused.
    virtual std::unique_ptr<IFileLock> Lock(const std::string& path) = 0;
};

/// Path helpers; both "/" and "\" separate when reading.
std::string FolderOf(std::string_view path);     ///< without the last separator, "" when there is none
std::string FileNameOf(std::string_view path);   ///< the last part
std::string ExtensionOf(std::string_view path);  ///< with its dot, "" when there is none
std::string WithExtension(std::string_view path, std::string_view extension);
std::string JoinPath(std::string_view folder, std::string_view name);  ///< name alone when it is absolute
bool IsAbsolutePath(std::string_view path);
/// The file's path from the folder on; the whole path of a file that is elsewhere.
std::string RelativeTo(const std::string& folder, const std::string& file);
std::string WithOwnSeparators(std::string path);  ///< a path of another system, written as JoinPath does

/// Writes one file so that it is at every moment the old or the new one. EFileError for a read-only file,
/// although a rename could take its place.
void WriteFileSafely(IFileSystem& files, const std::string& path, std::string_view bytes);

}  // namespace tml
