#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/Modules.h"
#include "setup/Exclusionform.h"
#include "setup/Setupplan.h"

namespace tml {

/// Whether components of the class have a common container.
bool HasCommonContainer(TContext& context, const std::string& className);

/// Opens the form of a row, shown to nobody, or takes the open one. EBadInput with the reason why it is none
/// that can be worked on.
std::unique_ptr<TModuleLease> OpenForSetup(TContext& context, const TFormRow& row);

/// EBadInput for wishes that fit no form.
void CheckWishes(TContext& context, const TSetupWishes& wishes);

/// Whether a component's tables are what an update would make of them.
bool AreTablesUpToDate(TmlCustomLang& lang);

/// Works out what a run would do; see PlanSetup.
class TSetupPlanner {
  public:
    /// EBadInput for wishes that fit no form.
    TSetupPlanner(TContext& context, const TSetupWishes& wishes);

    TSetupPlan Plan(const std::vector<TFormRow*>& rows);

  private:
    /// An entry of the exclusions, and whether it has been found to mean something.
    struct TEntry {
        TExclusionList List;
        std::string Text;
        bool MeansSomething = false;
        bool IsEverywhere = false;
    };
    /// What the component of a form has now.
    struct TPresent {
        std::string Dispatcher;
        std::string Container;
        TExclusionLists Exclusions;
        std::optional<TExclusionForm> Texts;  ///< where there are exclusions to be added
    };

    std::vector<TFormRow*> AllRows(const std::vector<TFormRow*>& rows) const;
    void PlanForm(TFormRow& row);
    void Read(TFormRow& row, TFormSetup& form);
    void PlanComponent(const TFormRow& row, TFormSetup& form, IOTAFormEditor& editor);
    void Keep(TFormSetup& form, TmlCustomLang& lang);
    void Insert(TFormSetup& form, IOTAFormEditor& editor) const;
    void PlanLanguages(TFormSetup& form, TmlCustomLang& lang) const;
    void PlanGivenUp(TFormSetup& form, TmlCustomLang& lang) const;
    void PlanDispatcher(TFormSetup& form, IOTAFormEditor& editor) const;
    void PlanProperties(TFormSetup& form, TmlCustomLang* lang) const;
    void PlanExclusions(TFormSetup& form, IOTAFormEditor& editor);
    void PlanFiles(TFormSetup& form, IOTAModule& module) const;
    void ExpectWritable();
    void ExpectWritable(const TFormSetup& form) const;
    void PlanTables();
    void PlanEffect();
    void AddEverywhere();
    void PlanPackage();
    void Link();
    void LinkTo(const TFormSetup& holder, const std::string& component, bool isDispatcher);

    TContext& context_;
    TSetupPlan plan_;
    std::vector<TEntry> entries_;
    std::vector<TFormProperty> properties_;
    std::unordered_set<std::string> ancestors_;             ///< of forms of the plan; upper-cased
    std::unordered_map<std::string, std::size_t> planned_;  ///< by upper-cased form name
    std::vector<TPresent> present_;                         ///< of each form of the plan
    std::vector<std::unique_ptr<TModuleLease>> held_;       ///< ancestors, read once for all that inherit
};

}  // namespace tml
