#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ide/Notifierlist.h"
#include "platform/Projectmanager.h"

namespace tml {

/// What add-ins add to the local menu of the project manager.
class TProjectMenus : public IOTAProjectManager {
  public:
    int AddMenuCreator(std::shared_ptr<IProjectMenuCreator> creator) override {
        return creators_.Add(std::move(creator));
    }
    void RemoveMenuCreator(int index) override { creators_.Remove(index); }
    std::shared_ptr<IOTAProject> GetSelectedProject() override { return selected_.lock(); }

    /// The entries for a node of the kind; project is that of the node, nullptr for another one.
    std::vector<std::shared_ptr<TMenuItem>> Open(const std::string& ident,
                                                 const std::shared_ptr<IOTAProject>& project);

  private:
    TNotifierList<IProjectMenuCreator> creators_;
    std::weak_ptr<IOTAProject> selected_;
};

}  // namespace tml
