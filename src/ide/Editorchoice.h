#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ide/Registrations.h"
#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"

namespace tml {

/// Chooses among the editors that the packages have registered: one that serves the class or an ancestor, the
/// last one registered first.
class TEditorChoice {
  public:
    /// The runtime must outlive it.
    TEditorChoice(TRegistrations registered, const IMlRuntime& runtime)
        : registered_(std::move(registered)), runtime_(runtime) {}

    /// Make the editor for one use; nullptr where none serves.
    std::unique_ptr<IComponentEditor> ForComponent(const std::shared_ptr<IOTAComponent>& component,
                                                   IDesigner& designer) const;
    std::unique_ptr<IPropertyEditor> ForProperty(const std::shared_ptr<IOTAComponent>& component,
                                                 const std::string& property, IDesigner& designer) const;
    /// Those that serve everything that is selected, in the order of their registration; none where nothing
    /// is.
    std::vector<std::unique_ptr<ISelectionEditor>> ForSelection(IDesigner& designer) const;
    /// Properties of a class that have an editor, as they were registered.
    std::vector<std::string> PropertiesWithEditor(const std::string& className) const;
    /// The palette: a page for each title, classes in the order of their registration.
    std::vector<TClassGroup> Palette() const;
    /// By what the run-time library and the data on classes know; every class is a TComponent.
    bool InheritsFrom(const std::string& className, std::string_view ancestor) const;

  private:
    TRegistrations registered_;
    const IMlRuntime& runtime_;
};

}  // namespace tml
