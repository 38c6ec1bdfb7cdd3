#include "ide/Projectmenus.h"

namespace tml {

std::vector<std::shared_ptr<TMenuItem>> TProjectMenus::Open(const std::string& ident,
                                                            const std::shared_ptr<IOTAProject>& project) {
    selected_ = project;
    std::vector<std::shared_ptr<TMenuItem>> entries;
    creators_.Tell([&](IProjectMenuCreator& creator) {
        if (creator.CanHandle(ident)) entries.push_back(creator.AddMenu(ident));
    });
    return entries;
}

}  // namespace tml
