#pragma once

#include <functional>
#include <string>

#include "base/Stringlist.h"

namespace tml {

/// Units outside the project that the same commands serve: full file names.
class TmlExternalFiles {
  public:
    virtual ~TmlExternalFiles() = default;

    /// Stores the list: told of every change of it, of the one that leaves nothing, too.
    std::function<void()> OnChange;

    const TStringList& Files() const { return files_; }
    const std::string& ProjectName() const { return projectName_; }

    /// Copies the list; the object's own list is left alone. Every change that leaves entries is saved.
    void SetFiles(const TStringList& list);
    void SetProjectName(const std::string& name);
    void Add(const std::string& fileName);
    /// No change that is saved or told of: the project closes.
    void Clear() { files_.Clear(); }
    /// The list of another project, as it is stored; nothing is saved or told of.
    void Open(const std::string& projectName, const TStringList& list);

  protected:
    /// Both do nothing, on purpose: OnChange stores the list with the project.
    virtual void Load() {}
    virtual void Save() {}

  private:
    void ListChanged();
    void SaveEntries();

    TStringList files_;
    std::string projectName_;
};

}  // namespace tml
