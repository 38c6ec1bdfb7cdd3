#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/Context.h"
#include "ids/Idcheck.h"

namespace tml {

/// What a check knows of the project: the components of its forms and the calls of its units, each read when
/// it is first asked for.
class TProjectIDs {
  public:
    explicit TProjectIDs(TContext& context) : context_(context) {}
    TProjectIDs(const TProjectIDs&) = delete;
    TProjectIDs& operator=(const TProjectIDs&) = delete;

    /// nullptr for a form without a component, where the project has no such form, and where that cannot be
    /// opened.
    const TIDHolder* Find(const std::string& formName);
    /// Takes the calls of an open unit, once. formName is that of its form, "" without one.
    void Read(IOTAModule& module, const std::string& formName);
    /// Tells of each unused ID what else of the project asks for it. Units that were not read are opened for
    /// it.
    void Judge(std::vector<TBadID>& found);
    /// All that asks for IDs; every unit of the project is read then.
    const TIDUses& Uses();

  private:
    TIDUses& Started();
    void ReadForm(IOTAModule& module, const std::string& formName);
    void ReadUnit(const std::string& fileName, const std::string& formName);
    void ReadAll();

    TContext& context_;
    std::unordered_map<std::string, std::optional<TIDHolder>> holders_;  ///< by upper-cased form name
    std::optional<TIDUses> uses_;
    std::unordered_set<std::string> read_;  ///< files
    bool allRead_ = false;
};

/// Checks a unit as the editor holds it; a closed one is opened meanwhile. formName is that of its form, ""
/// for a unit that is checked by itself. EmlLangSilent when it cannot be opened.
std::vector<TBadID> CheckIDInFile(TContext& context, TProjectIDs& ids, const std::string& formName,
                                  const std::string& fileName);

}  // namespace tml
