#pragma once

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Toolsapi.h"
#include "projects/Projectmodel.h"

namespace tml {

class TProject : public IOTAProject {
  public:
    explicit TProject(TProjectModel model);

    std::string GetFileName() override { return model_.FileName; }
    int GetModuleCount() override { return static_cast<int>(model_.Units.size()); }
    TOTAModuleInfo GetModule(int index) override;
    bool IsCPPProject() override { return model_.IsCpp; }

    const TProjectModel& Model() const { return model_; }
    /// The unit of this file or whose form is of this name (any letter case); nullptr without one.
    const TProjectUnit* FindUnit(const std::string& fileName) const;
    const TProjectUnit* FindForm(const std::string& formName) const;

  private:
    TProjectModel model_;
    std::unordered_map<std::string, std::size_t> byFile_;
    std::unordered_map<std::string, std::size_t> byForm_;
};

/// The open projects; a single project stands in a group without a file.
class TProjectGroup : public IOTAProjectGroup {
  public:
    TProjectGroup(std::string fileName, std::vector<std::shared_ptr<TProject>> projects)
        : fileName_(std::move(fileName)), projects_(std::move(projects)) {}

    std::string GetFileName() override { return fileName_; }
    int GetProjectCount() override { return static_cast<int>(projects_.size()); }
    std::shared_ptr<IOTAProject> GetProject(int index) override;
    std::shared_ptr<IOTAProject> GetActiveProject() override;
    /// Announces the change; EBadInput for a project that is not of the group.
    void SetActiveProject(const std::shared_ptr<IOTAProject>& project) override;

    const std::vector<std::shared_ptr<TProject>>& Projects() const { return projects_; }
    TProject* Active() const;
    /// The file of the group, or of its only project.
    std::string MainFile() const;
    void OnActiveChanged(std::function<void(TProject&)> changed) { changed_ = std::move(changed); }

  private:
    std::string fileName_;
    std::vector<std::shared_ptr<TProject>> projects_;
    std::size_t active_ = 0;
    std::function<void(TProject&)> changed_;
};

}  // namespace tml
