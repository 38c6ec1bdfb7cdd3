#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Edits.h"
#include "forms/Formvalue.h"

namespace tml {

/// Edits of one unit's text. Expected is the text that they were worked out for: a buffer that has changed
/// since refuses them, unless the running command has changed it, elsewhere: then they move along.
struct TSourceChange {
    std::string FileName;
    std::shared_ptr<const std::string> Expected;
    TEdits Edits;
};

/// A property of a component on a form that is to have a value.
struct TPropertyChange {
    std::string FormName;
    std::string ComponentName;
    std::string PropertyName;
    TFormValue Value;
};

/// A change that has been worked out and not yet made: it can be shown, checked, applied and, once
/// applied, taken back as a whole.
struct TChangeSet {
    std::string Title;
    std::vector<TSourceChange> Sources;
    std::vector<TPropertyChange> Properties;
    /// Units (with extension) that shall be in the uses clause or among the includes of a source:
    /// {source file, unit name}.
    std::vector<std::pair<std::string, std::string>> UsedUnits;
};

/// The files as the running command has left them, written or not yet; without one those on the disk. A file
/// that is open in the IDE is read as it stands there. Paths are full ones.
class ICommandFiles {
  public:
    virtual ~ICommandFiles() = default;
    /// None when there is no such file; EFileError for one that cannot be read.
    virtual std::optional<std::string> ReadFile(const std::string& fileName) = 0;
    /// The same part by part, until pass gives false; false when there is no such file.
    virtual bool ReadParts(const std::string& fileName,
                           const std::function<bool(std::string_view part)>& pass) = 0;
    /// Written when the command ends, together with all that it saves; one step by itself when none is
    /// running. EBadInput for a file that is open.
    virtual void WriteFile(const std::string& fileName, std::string bytes) = 0;
    virtual void RemoveFile(const std::string& fileName) = 0;
};

/// Everything that is done while it lives becomes one step of undo. Destroyed without Commit it takes
/// everything back.
class ICommandScope {
  public:
    virtual ~ICommandScope() = default;
    virtual void Commit() = 0;
    /// What has been done so far over all files, as FilePatch gives it: for git apply.
    virtual std::string Patch() = 0;
};

}  // namespace tml
