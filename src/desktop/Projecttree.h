#pragma once

#include <QTreeWidget>
#include <functional>

#include "ide/Headlesside.h"

class QLabel;
class QMenu;

namespace tml {

/// The project manager: the group, its projects, their forms and units.
class TProjectTree : public QTreeWidget {
  public:
    explicit TProjectTree(THeadlessIde& ide);

    std::function<void(const std::string& file)> OnOpen;
    std::function<void(const std::string& unitFile)> OnViewForm;
    std::function<void(const std::shared_ptr<IOTAProject>& project)> OnMakeActive;
    /// The expert's command for the settings of the active project, nullptr while there is none.
    std::function<std::shared_ptr<TMenuItem>()> SettingsCommand;
    std::function<void(TMenuItem&)> OnCommand;

    void Refresh();

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Build();
    void AddProject(QTreeWidgetItem& group, const std::shared_ptr<IOTAProject>& project);
    void MarkItems();
    bool IsActive(const QTreeWidgetItem& item);
    void AddSettings(QMenu& menu);
    void AddEntries(QMenu& menu, const std::vector<std::shared_ptr<TMenuItem>>& entries);
    std::shared_ptr<IOTAProject> ProjectOf(const QTreeWidgetItem& item);

    THeadlessIde& ide_;
    /// Not the bare address: the next group may be given the same.
    std::weak_ptr<IOTAProjectGroup> shown_;
    QLabel* hint_;  ///< says what to do first while there is no project
};

}  // namespace tml
