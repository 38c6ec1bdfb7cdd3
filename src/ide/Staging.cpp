// The commit record is the point of no return: a crash before it stands leaves the old files, a crash
// behind it the new ones (RecoverStaged makes the missing renames). One file alone needs no record, its
// rename is one step.
#include "ide/Staging.h"

#include <algorithm>

#include "base/Errors.h"
#include "ide/Commitrecord.h"

namespace tml {
namespace {

constexpr std::string_view kStageEnd = ".tml-new";

/// The name tells whose record a stage file belongs to, so that nobody else takes it for a left-over.
std::string StagePath(const std::string& target, const std::string& recordPath) {
    const auto owner = static_cast<std::uint32_t>(MarkOf(recordPath).Hash);
    return JoinPath(FolderOf(target), "." + FileNameOf(target) + "." + std::to_string(owner))
        .append(kStageEnd);
}

/// True where the line names a stage file beside its target. A record may come with somebody's project: it
/// must not move or remove any other file. (Its owner may differ: a folder has more than one path.)
bool IsOurs(const TCommitLine& line) {
    const std::string name = FileNameOf(line.Staged);
    return FolderOf(line.Staged) == FolderOf(line.Target) &&
           name.starts_with("." + FileNameOf(line.Target) + ".") && name.ends_with(kStageEnd);
}

/// Held while files are renamed, so that a second program does not take our stage files for left-overs.
/// The lock file goes with it.
class TSaveLock {
  public:
    TSaveLock(IFileSystem& files, const std::string& recordPath)
        : files_(files), path_(recordPath + "-lock"), lock_(files.Lock(path_)) {}
    ~TSaveLock() {
        try {
            files_.Remove(path_);
        } catch (const EFileError&) {
            // A lock file that stays does no harm.
        }
    }
    TSaveLock(const TSaveLock&) = delete;
    TSaveLock& operator=(const TSaveLock&) = delete;

  private:
    IFileSystem& files_;
    std::string path_;
    std::unique_ptr<IFileLock> lock_;
};

struct TPending {
    TCommitLine Line;
    std::string Bytes;
    std::optional<std::string> Old;
};

std::vector<TPending> Resolve(IFileSystem& files, const std::string& recordPath,
                              const std::vector<TStagedFile>& staged) {
    std::vector<TPending> pending;
    for (const TStagedFile& file : staged) {
        const std::string target = files.Resolve(file.Path);
        const TContentMark old = file.Expected ? MarkOf(*file.Expected) : TContentMark();
        pending.push_back(
            {{StagePath(target, recordPath), target, old, MarkOf(file.Bytes)}, file.Bytes, file.Expected});
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

void RemoveStaged(IFileSystem& files, const std::vector<TPending>& pending) {
    for (const TPending& file : pending)
        RemoveQuietly(files, file.Line.Staged);
}

TContentMark MarkOnDisk(IFileSystem& files, const std::string& path) {
    return files.Stat(path) ? MarkOf(files.Read(path)) : TContentMark();
}

void CheckTarget(IFileSystem& files, const TCommitLine& line) {
    const auto info = files.Stat(line.Target);
    if (info && info->ReadOnly)
        throw EFileError(line.Target, 0, "the file is read-only", "Make it writable and save again");
    if (MarkOnDisk(files, line.Target) != line.Old)
        throw EFileError(line.Target, 0, "the file has changed on the disk since it was opened",
                         "Close it without saving and open it again, then repeat the command");
}

void StageAll(IFileSystem& files, const std::vector<TPending>& pending) {
    for (const TPending& file : pending)
        files.Stage(file.Line.Staged, file.Bytes, file.Line.Target);
    for (const TPending& file : pending)
        CheckTarget(files, file.Line);
}

void WriteRecord(IFileSystem& files, const std::string& recordPath, const std::vector<TPending>& pending) {
    std::vector<TCommitLine> lines;
    lines.reserve(pending.size());
    for (const TPending& file : pending)
        lines.push_back(file.Line);
    const std::string staged = StagePath(recordPath, recordPath);
    files.Stage(staged, WriteCommitRecord(lines), recordPath);
    try {
        files.Rename(staged, recordPath);
    } catch (const EFileError&) {
        RemoveQuietly(files, staged);
        throw;
    }
}

/// Not everything could be put back, so record and stage files stay for the next start.
class EHalfWritten : public EFileError {
  public:
    explicit EHalfWritten(const EFileError& cause)
        : EFileError(cause.File(), cause.Line(), cause.Problem(),
                     "Some files are written already; opening the project again completes the rest") {}
};

/// What leads back from the files already renamed. The disk is asked: a rename may report a failure after
/// it was made. A file that was not there before cannot be staged as absent, so it is removed.
std::vector<TPending> Reversed(IFileSystem& files, const std::vector<TPending>& pending) {
    std::vector<TPending> back;
    for (const TPending& file : pending) {
        if (file.Line.Old == file.Line.New || MarkOnDisk(files, file.Line.Target) != file.Line.New) continue;
        if (!file.Old) {
            files.Remove(file.Line.Target);
            continue;
        }
        TCommitLine line = file.Line;
        std::swap(line.Old, line.New);
        back.push_back({line, *file.Old, file.Bytes});
    }
    return back;
}

/// Puts the old contents back with a record of its own, so that a crash in its midst is completed too.
void PutBack(IFileSystem& files, const std::string& recordPath, const std::vector<TPending>& pending) {
    const std::vector<TPending> back = Reversed(files, pending);
    if (back.empty()) return;
    for (const TPending& file : back)
        files.Stage(file.Line.Staged, file.Bytes, file.Line.Target);
    WriteRecord(files, recordPath, back);
    for (const TPending& file : back)
        files.Rename(file.Line.Staged, file.Line.Target);
}

void RenameAll(IFileSystem& files, const std::string& recordPath, const std::vector<TPending>& pending) {
    try {
        for (const TPending& file : pending)
            files.Rename(file.Line.Staged, file.Line.Target);
    } catch (const EFileError& failure) {
        try {
            PutBack(files, recordPath, pending);
        } catch (const EFileError&) {
            throw EHalfWritten(failure);
        }
        throw;
    }
}

void CommitStaged(IFileSystem& files, const std::string& recordPath, const std::vector<TPending>& pending) {
    const bool recorded = pending.size() > 1;
    try {
        if (recorded) WriteRecord(files, recordPath, pending);
        RenameAll(files, recordPath, pending);
    } catch (const EHalfWritten&) {
        throw;
    } catch (const EFileError&) {
        // Without its record nothing is renamed any more, so the record goes before the stage files.
        RemoveQuietly(files, recordPath);
        throw;
    }
    // All files are in place: a record that stays has nothing left to rename.
    if (recorded) RemoveQuietly(files, recordPath);
}

/// False when neither the old nor the new content is in place.
bool CompleteRename(IFileSystem& files, const TCommitLine& line) {
    // A staged file that is gone has been renamed before the crash.
    if (!files.Stat(line.Staged)) return true;
    const TContentMark current = MarkOnDisk(files, line.Target);
    if (current == line.Old && MarkOnDisk(files, line.Staged) == line.New) {
        files.Rename(line.Staged, line.Target);
        return true;
    }
    files.Remove(line.Staged);
    return current == line.New;
}

std::vector<TProjectProblem> CompleteRecord(IFileSystem& files, const std::string& recordPath) {
    std::vector<TProjectProblem> problems;
    for (const TCommitLine& line : ParseCommitRecord(files.Read(recordPath))) {
        if (!IsOurs(line) || CompleteRename(files, line)) continue;
        problems.push_back({line.Target, 0,
                            "an interrupted save could not be completed: the file has changed since",
                            "Compare the file with the others of that save and repeat the command"});
    }
    files.Remove(recordPath);
    return problems;
}

bool HasLeftOvers(IFileSystem& files, const std::string& recordPath,
                  const std::vector<std::string>& stagePaths) {
    return files.Stat(recordPath) || std::any_of(stagePaths.begin(), stagePaths.end(),
                                                 [&](const std::string& path) { return files.Stat(path); });
}

}  // namespace

std::string CommitRecordPath(const std::string& projectFile) {
    return JoinPath(FolderOf(projectFile), "." + WithExtension(FileNameOf(projectFile), "") + ".tml-commit");
}

void WriteTogether(IFileSystem& files, const std::string& recordPath,
                   const std::vector<TStagedFile>& staged) {
    if (staged.empty()) return;
    const std::vector<TPending> pending = Resolve(files, recordPath, staged);
    const TSaveLock lock(files, recordPath);
    try {
        StageAll(files, pending);
        CommitStaged(files, recordPath, pending);
    } catch (const EHalfWritten&) {
        throw;
    } catch (const EFileError&) {
        RemoveStaged(files, pending);
        throw;
    }
}

std::vector<TProjectProblem> RecoverStaged(IFileSystem& files, const std::string& recordPath,
                                           const std::vector<std::string>& paths) {
    std::vector<std::string> stagePaths = {StagePath(recordPath, recordPath)};
    for (const std::string& path : paths)
        stagePaths.push_back(StagePath(files.Resolve(path), recordPath));
    // A project on a read-only disk must open, so nothing is locked unless there is work.
    if (!HasLeftOvers(files, recordPath, stagePaths)) return {};
    const TSaveLock lock(files, recordPath);
    std::vector<TProjectProblem> problems;
    if (files.Stat(recordPath)) problems = CompleteRecord(files, recordPath);
    for (const std::string& path : stagePaths)
        if (files.Stat(path)) files.Remove(path);
    return problems;
}

}  // namespace tml
