#pragma once

#include <string>

#include "base/Stringlist.h"

namespace tml {

/// Units outside the project that the same commands shall serve. Nothing fills the list yet.
class TmlExternalFiles {
  public:
    virtual ~TmlExternalFiles() = default;

    const TStringList& Files() const { return files_; }
    const std::string& ProjectName() const { return projectName_; }

    /// Copies the list; the object's own list is left alone. Every change that leaves entries is saved.
    void SetFiles(const TStringList& list);
    void SetProjectName(const std::string& name);
    void Add(const std::string& fileName);
    /// Never saves.
    void Clear() { files_.Clear(); }

  protected:
    /// Where the list would be kept; both do nothing, on purpose: it lives as long as the expert.
    virtual void Load() {}
    virtual void Save() {}

  private:
    void ListChanged();

    TStringList files_;
    std::string projectName_;
};

}  // namespace tml
