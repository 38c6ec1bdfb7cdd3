#include "ide/Project.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {

TProject::TProject(TProjectModel model) : model_(std::move(model)) {
    for (std::size_t i = 0; i < model_.Units.size(); ++i) {
        const TProjectUnit& unit = model_.Units[i];
        for (const std::string& file : {unit.FileName, unit.FormFile, unit.HeaderFile})
            if (!file.empty()) byFile_.try_emplace(UpperCase(file), i);
        if (!unit.FormName.empty()) byForm_.try_emplace(UpperCase(unit.FormName), i);
    }
}

TOTAModuleInfo TProject::GetModule(int index) {
    const TProjectUnit& unit = model_.Units.at(static_cast<std::size_t>(index));
    return {unit.Name, unit.FileName, unit.FormName};
}

const TProjectUnit* TProject::FindUnit(const std::string& fileName) const {
    const auto found = byFile_.find(UpperCase(fileName));
    return found == byFile_.end() ? nullptr : &model_.Units[found->second];
}

const TProjectUnit* TProject::FindForm(const std::string& formName) const {
    const auto found = byForm_.find(UpperCase(formName));
    return found == byForm_.end() ? nullptr : &model_.Units[found->second];
}

std::shared_ptr<IOTAProject> TProjectGroup::GetProject(int index) {
    return projects_.at(static_cast<std::size_t>(index));
}

std::shared_ptr<IOTAProject> TProjectGroup::GetActiveProject() {
    return active_ < projects_.size() ? projects_[active_] : nullptr;
}

TProject* TProjectGroup::Active() const {
    return active_ < projects_.size() ? projects_[active_].get() : nullptr;
}

std::string TProjectGroup::MainFile() const {
    return fileName_.empty() && !projects_.empty() ? projects_.front()->Model().FileName : fileName_;
}

void TProjectGroup::SetActiveProject(const std::shared_ptr<IOTAProject>& project) {
    const auto found = std::find(projects_.begin(), projects_.end(), project);
    if (found == projects_.end())
        throw EBadInput(fileName_, 0, "the project is not part of the group", "Choose one of its projects");
    const auto index = static_cast<std::size_t>(found - projects_.begin());
    if (index == active_) return;
    active_ = index;
    if (changed_) changed_(**found);
}

}  // namespace tml
