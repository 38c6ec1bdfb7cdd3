#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Edits.h"
#include "forms/Formvalue.h"

namespace tml {

/// Edits of one unit's text. Expected is the text that they were worked out for: a buffer that has
/// changed since refuses them.
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

/// Everything that is done while it lives becomes one step of undo. Destroyed without Commit it takes
/// everything back.
class ICommandScope {
  public:
    virtual ~ICommandScope() = default;
    virtual void Commit() = 0;
    /// What has been done so far, as a unified diff over all documents.
    virtual std::string Patch() = 0;
};

}  // namespace tml
