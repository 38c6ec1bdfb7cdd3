// Everything is staged and flushed before the first record stands there, so a record means that its save can
// be completed: a crash before it leaves the old files, a crash behind it the new ones. There is a copy in
// each folder concerned, so that any project which uses one of the files finds it. One file alone needs none,
// its rename is one step. The disk is waited for three times, whatever the number of files: for the contents,
// for the records in their places, and for the renames before the records go.
#include "ide/Staging.h"

#include <algorithm>
#include <set>
#include <unordered_map>

#include "base/Errors.h"
#include "ide/Commitrecord.h"

namespace tml {
namespace {

constexpr std::string_view kStageEnd = ".tml-staged";
constexpr const char* kRecordName = ".tml-commit";
constexpr const char* kLockName = ".tml-lock";

using TFolders = std::set<std::string>;
using TLines = std::vector<TCommitLine>;

std::string StagePath(const std::string& target) {
    return JoinPath(FolderOf(target), "." + FileNameOf(target)).append(kStageEnd);
}

std::string RecordPath(const std::string& folder) {
    return JoinPath(folder, kRecordName);
}

TFolders FoldersOf(const TLines& lines) {
    TFolders folders;
    for (const TCommitLine& line : lines)
        folders.insert(FolderOf(line.Target));
    return folders;
}

/// What is wrong with a folder is said of it: nobody knows its lock file.
void ExpectUsable(IFileSystem& files, const std::string& folder) {
    const auto info = files.Stat(folder);
    if (!info) throw EFileError(folder, 0, "there is no such folder", "Make it, or name another one");
    if (info->ReadOnly)
        throw EFileError(folder, 0, "the folder is read-only", "Make it writable, or name another one");
}

/// Held while files of the folders are renamed, so that a second program does not take our stage files for
/// left-overs. In the order of their names, so that two programs never wait for each other; the lock files
/// go with it.
class TFolderLocks {
  public:
    TFolderLocks(IFileSystem& files, const TFolders& folders) : files_(files) {
        for (const std::string& folder : folders) {
            const std::string path = JoinPath(folder, kLockName);
            try {
                locks_.emplace_back(path, files.Lock(path));
            } catch (const EFileError&) {
                ExpectUsable(files, folder);
                throw;
            }
        }
    }
    ~TFolderLocks() {
        for (const auto& [path, lock] : locks_)
            try {
                files_.Remove(path);
            } catch (const EFileError&) {
                // A lock file that stays does no harm.
            }
    }
    TFolderLocks(const TFolderLocks&) = delete;
    TFolderLocks& operator=(const TFolderLocks&) = delete;

  private:
    IFileSystem& files_;
    std::vector<std::pair<std::string, std::unique_ptr<IFileLock>>> locks_;
};

/// The contents are those of the staged files.
struct TPending {
    TCommitLine Line;
    const std::optional<std::string>* Bytes;
    const std::optional<std::string>* Old;
};
using TAllPending = std::vector<TPending>;

TLines LinesOf(const TAllPending& pending) {
    TLines lines;
    for (const TPending& file : pending)
        lines.push_back(file.Line);
    return lines;
}

/// A file that is reached by two paths is written once, if both agree.
TAllPending Resolve(IFileSystem& files, const std::vector<TStagedFile>& staged) {
    TAllPending pending;
    std::unordered_map<std::string, TContentMark> known;
    for (const TStagedFile& file : staged) {
        TCommitLine line{files.Resolve(file.Path), MarkOfFile(file.Expected), MarkOfFile(file.Bytes)};
        const auto [same, isNew] = known.try_emplace(line.Target, line.New);
        if (isNew)
            pending.push_back({std::move(line), &file.Bytes, &file.Expected});
        else if (same->second != line.New)
            throw EBadInput(file.Path, 0, "is the same file as " + line.Target + " and would get other bytes",
                            "Name it once in the project");
    }
    return pending;
}

void RemoveQuietly(IFileSystem& files, const std::string& path) {
    try {
        files.Remove(path);
    } catch (const EFileError&) {
        // The next start removes it; the failure that led here is the one to report.
    }
}

TContentMark MarkOnDisk(IFileSystem& files, const std::string& path) {
    if (!files.Stat(path)) return {};
    TMarking marking;
    files.ReadParts(path, [&](std::string_view part) {
        marking.Add(part);
        return true;
    });
    return marking.Mark();
}

// --- writing

void CheckTarget(IFileSystem& files, const TCommitLine& line) {
    const auto info = files.Stat(line.Target);
    if (info && info->ReadOnly)
        throw EFileError(line.Target, 0, "the file is read-only", "Make it writable and save again");
    if (MarkOnDisk(files, line.Target) != line.Old)
        throw EChangedOnDisk(line.Target, 0, "the file has changed on the disk since it was read",
                             "Where it is open, close it without saving and open it again; then repeat the "
                             "command");
}

using TPaths = std::vector<std::string>;

void Stage(IFileSystem& files, const std::string& target, std::string_view bytes, TPaths& staged) {
    staged.push_back(StagePath(target));
    files.Stage(staged.back(), bytes, target);
}

void StageRecords(IFileSystem& files, const TFolders& folders, const TLines& lines, TPaths& staged) {
    for (const std::string& folder : folders)
        Stage(files, RecordPath(folder), WriteCommitRecord(lines, folder), staged);
}

/// The files and, for these folders, the records of them. For a file that is to go an empty one stands in, so
/// that no record alone removes anything.
void StageAll(IFileSystem& files, const TAllPending& pending, const TFolders& folders) {
    TPaths staged;
    for (const TPending& file : pending)
        Stage(files, file.Line.Target, *file.Bytes ? std::string_view(**file.Bytes) : std::string_view(),
              staged);
    StageRecords(files, folders, LinesOf(pending), staged);
    files.Flush(staged);
}

void FlushFolders(IFileSystem& files, const TFolders& folders) {
    files.Flush({folders.begin(), folders.end()});
}

void InstallRecords(IFileSystem& files, const TFolders& folders) {
    for (const std::string& folder : folders)
        files.Rename(StagePath(RecordPath(folder)), RecordPath(folder));
    FlushFolders(files, folders);
}

/// Removes all but the targets. Without its records nothing is renamed any more, so they go before the stage
/// files.
void Clear(IFileSystem& files, const TLines& lines) {
    for (const std::string& folder : FoldersOf(lines))
        for (const std::string& path : {RecordPath(folder), StagePath(RecordPath(folder))})
            RemoveQuietly(files, path);
    for (const TCommitLine& line : lines)
        RemoveQuietly(files, StagePath(line.Target));
}

/// Not everything could be put back, so records and stage files stay for the next start.
class EHalfWritten : public EFileError {
  public:
    explicit EHalfWritten(const EFileError& cause)
        : EFileError(cause.File(), cause.Line(), cause.Problem(),
                     "Some files are written already; opening the project again completes the rest") {}
};

void Install(IFileSystem& files, const TCommitLine& line) {
    if (line.New.Exists)
        files.Rename(StagePath(line.Target), line.Target);
    else
        files.Remove(line.Target);
}

/// What somebody else has done to either file since is not overwritten, nor installed.
void InstallUnchanged(IFileSystem& files, const TCommitLine& line) {
    CheckTarget(files, line);
    if (line.New.Exists && MarkOnDisk(files, StagePath(line.Target)) != line.New)
        throw EFileError(StagePath(line.Target), 0, "the file has been changed while it was being saved",
                         "Repeat the command");
    Install(files, line);
}

/// What leads back from the files already renamed. The disk is asked: a rename may report a failure after
/// it was made.
TAllPending Reversed(IFileSystem& files, const TAllPending& pending) {
    TAllPending back;
    for (const TPending& file : pending)
        if (file.Line.Old != file.Line.New && MarkOnDisk(files, file.Line.Target) == file.Line.New)
            back.push_back({{file.Line.Target, file.Line.New, file.Line.Old}, file.Old, file.Bytes});
    return back;
}

/// Puts the old contents back with a record of its own, so that a crash in its midst is completed too. The
/// first folder's record changes from forth to back in one step, so no other may be there then.
void PutBack(IFileSystem& files, const TAllPending& pending) {
    const TAllPending back = Reversed(files, pending);
    if (back.empty()) return;
    const TFolders folders = FoldersOf(LinesOf(pending));
    // The stage files get their names anew, so the renames must not be forgotten any more.
    FlushFolders(files, folders);
    StageAll(files, back, folders);
    for (auto folder = std::next(folders.begin()); folder != folders.end(); ++folder)
        files.Remove(RecordPath(*folder));
    FlushFolders(files, folders);
    InstallRecords(files, folders);
    for (const TPending& file : back)
        Install(files, file.Line);
    FlushFolders(files, folders);
}

void InstallAll(IFileSystem& files, const TAllPending& pending) {
    try {
        for (const TPending& file : pending)
            InstallUnchanged(files, file.Line);
        FlushFolders(files, FoldersOf(LinesOf(pending)));
    } catch (const EFileError& failure) {
        try {
            PutBack(files, pending);
        } catch (const EFileError&) {
            throw EHalfWritten(failure);
        }
        throw;
    }
}

void Commit(IFileSystem& files, const TAllPending& pending) {
    const TFolders recorded = pending.size() > 1 ? FoldersOf(LinesOf(pending)) : TFolders();
    StageAll(files, pending, recorded);
    for (const TPending& file : pending)
        CheckTarget(files, file.Line);
    InstallRecords(files, recorded);
    InstallAll(files, pending);
}

void ExpectNoRecord(IFileSystem& files, const TFolders& folders) {
    for (const std::string& folder : folders)
        if (files.Stat(RecordPath(folder)))
            throw EFileError(RecordPath(folder), 0, "a save was interrupted here and is not completed",
                             "Open the project again, which completes it, and repeat the command");
}

// --- recovery

enum class TProgress { ToDo, Done, NotStaged, Stuck };

TProgress ProgressOf(IFileSystem& files, const TCommitLine& line) {
    const bool isStaged = files.Stat(StagePath(line.Target)).has_value();
    const TContentMark target = MarkOnDisk(files, line.Target);
    if (target == line.New) return TProgress::Done;
    if (isStaged) {
        const bool fits = !line.New.Exists || MarkOnDisk(files, StagePath(line.Target)) == line.New;
        return target == line.Old && fits ? TProgress::ToDo : TProgress::Stuck;
    }
    if (target == line.Old) return TProgress::NotStaged;
    // Renamed before the crash and changed since, or it has been moved away.
    return target.Exists ? TProgress::Done : TProgress::Stuck;
}

[[noreturn]] void Refuse(const std::string& recordPath, const TCommitLine& line) {
    throw EFileError(recordPath, 0,
                     "an interrupted save cannot be completed: " + line.Target +
                         " has changed since or is not where it was",
                     "Put the file back as it was, or compare the files of the folder and delete " +
                         std::string(kRecordName) + " to keep them as they are");
}

/// Should the recovery be cut off too, any door must find it. The records found may not be on the disk yet.
void CompleteRecords(IFileSystem& files, const TLines& lines) {
    const TFolders folders = FoldersOf(lines);
    TFolders without = folders;
    std::erase_if(without, [&](const std::string& folder) { return files.Stat(RecordPath(folder)); });
    TPaths staged;
    StageRecords(files, without, lines, staged);
    files.Flush(staged);
    InstallRecords(files, without);
    FlushFolders(files, folders);
}

/// A save of which nothing is renamed yet and not everything staged any more is given up.
void CarryOut(IFileSystem& files, const std::string& recordPath, const TLines& lines) {
    std::vector<TProgress> progress;
    for (const TCommitLine& line : lines) {
        progress.push_back(ProgressOf(files, line));
        if (progress.back() == TProgress::Stuck) Refuse(recordPath, line);
    }
    const auto has = [&](TProgress wanted) {
        return std::find(progress.begin(), progress.end(), wanted) != progress.end();
    };
    if (has(TProgress::NotStaged) && has(TProgress::Done))
        Refuse(recordPath,
               lines[static_cast<std::size_t>(
                   std::find(progress.begin(), progress.end(), TProgress::NotStaged) - progress.begin())]);
    if (!has(TProgress::NotStaged) && has(TProgress::ToDo)) {
        CompleteRecords(files, lines);
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (progress[i] == TProgress::ToDo) Install(files, lines[i]);
    }
    if (!has(TProgress::NotStaged)) FlushFolders(files, FoldersOf(lines));
    for (const TCommitLine& line : lines)
        if (files.Stat(StagePath(line.Target))) files.Remove(StagePath(line.Target));
}

TLines ReadRecord(IFileSystem& files, const std::string& folder) {
    const std::string path = RecordPath(folder);
    return files.Stat(path) ? ParseCommitRecord(files.Read(path), folder, path) : TLines();
}

/// The names of what staging may have left in the folder; none where it cannot be listed.
std::vector<std::string> LeftOversIn(IFileSystem& files, const std::string& folder) {
    std::vector<std::string> names;
    try {
        names = files.List(folder);
    } catch (const EFileError&) {
        // Told where its units are read.
    }
    std::erase_if(names, [](const std::string& name) {
        return name != kRecordName && !(name.starts_with('.') && name.ends_with(kStageEnd));
    });
    return names;
}

/// The folders in which something is left, and those that their records name.
TFolders FoldersToRecover(IFileSystem& files, const TFolders& folders) {
    TFolders found;
    for (const std::string& folder : folders) {
        if (LeftOversIn(files, folder).empty()) continue;
        found.insert(folder);
        found.merge(FoldersOf(ReadRecord(files, folder)));
    }
    return found;
}

void RecoverLocked(IFileSystem& files, const TFolders& folders) {
    for (const std::string& folder : folders) {
        const TLines lines = ReadRecord(files, folder);
        if (lines.empty()) continue;
        CarryOut(files, RecordPath(folder), lines);
        for (const std::string& concerned : FoldersOf(lines))
            if (files.Stat(RecordPath(concerned))) files.Remove(RecordPath(concerned));
    }
    for (const std::string& folder : folders)
        for (const std::string& name : LeftOversIn(files, folder))
            files.Remove(JoinPath(folder, name));
}

bool HasRecord(IFileSystem& files, const TFolders& folders) {
    return std::any_of(folders.begin(), folders.end(),
                       [&](const std::string& folder) { return files.Stat(RecordPath(folder)); });
}

}  // namespace

void WriteTogether(IFileSystem& files, const std::vector<TStagedFile>& staged) {
    if (staged.empty()) return;
    const TAllPending pending = Resolve(files, staged);
    const TFolders folders = FoldersOf(LinesOf(pending));
    const TFolderLocks locks(files, folders);
    ExpectNoRecord(files, folders);
    try {
        Commit(files, pending);
    } catch (const EHalfWritten&) {
        throw;
    } catch (const EFileError&) {
        Clear(files, LinesOf(pending));
        throw;
    }
    Clear(files, LinesOf(pending));
}

void RecoverStaged(IFileSystem& files, const std::vector<std::string>& paths) {
    TFolders folders;
    for (const std::string& path : paths)
        folders.insert(FolderOf(files.Resolve(path)));
    // A project on a read-only disk must open, so nothing is locked unless there is work.
    const TFolders found = FoldersToRecover(files, folders);
    if (found.empty()) return;
    try {
        const TFolderLocks locks(files, found);
        RecoverLocked(files, found);
    } catch (const EFileError&) {
        // Left-overs that cannot be removed are no harm; half a save is.
        if (HasRecord(files, found)) throw;
    }
}

}  // namespace tml
