#pragma once

#include <QTreeWidget>
#include <functional>

#include "ide/Headlesside.h"

namespace tml {

/// The project manager: the group, its projects, their forms and units.
class TProjectTree : public QTreeWidget {
  public:
    explicit TProjectTree(THeadlessIde& ide);

    std::function<void(const std::string& file)> OnOpen;
    std::function<void(const std::string& unitFile)> OnViewFormText;
    std::function<void(const std::shared_ptr<IOTAProject>& project)> OnMakeActive;

    void Refresh();

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Build();
    void AddProject(QTreeWidgetItem& group, const std::shared_ptr<IOTAProject>& project);
    void MarkItems();
    std::shared_ptr<IOTAProject> ProjectOf(const QTreeWidgetItem& item);

    THeadlessIde& ide_;
    IOTAProjectGroup* shown_ = nullptr;
};

}  // namespace tml
