#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Toolsapi.h"

namespace tml {

/// What a node of the IDE's project manager stands for.
inline constexpr std::string_view kProjectContainer = "ProjectContainer";
inline constexpr std::string_view kGroupContainer = "GroupContainer";
inline constexpr std::string_view kFileContainer = "FileContainer";

/// Adds an entry to the local menu of the project manager.
class IProjectMenuCreator {
  public:
    virtual ~IProjectMenuCreator() = default;
    /// Whether it has an entry for a node of the kind.
    virtual bool CanHandle(const std::string& ident) = 0;
    /// The entry, made anew each time the menu opens.
    virtual std::shared_ptr<TMenuItem> AddMenu(const std::string& ident) = 0;
};

class IOTAProjectManager {
  public:
    virtual ~IOTAProjectManager() = default;
    /// The index by which the creator is removed again; never below 0.
    virtual int AddMenuCreator(std::shared_ptr<IProjectMenuCreator> creator) = 0;
    virtual void RemoveMenuCreator(int index) = 0;
    /// The project whose menu was opened last; nullptr for the menu of another node.
    virtual std::shared_ptr<IOTAProject> GetSelectedProject() = 0;
};

}  // namespace tml
