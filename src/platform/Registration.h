#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Toolsapi.h"

namespace tml {

/// What a package offers for components on forms: each editor is made for what it edits and lives for one
/// use. Verbs are entries of the local menu, counted from 0.

class IComponentEditor {
  public:
    virtual ~IComponentEditor() = default;
    virtual int GetVerbCount() = 0;
    virtual std::string GetVerb(int index) = 0;
    virtual void ExecuteVerb(int index) = 0;
    /// Gives the entry of a verb its check mark, its entries below, or disables it.
    virtual void PrepareItem(int index, TMenuItem& item) = 0;
    /// The double click.
    virtual void Edit() = 0;
};
using TComponentEditorClass = std::function<std::unique_ptr<IComponentEditor>(
    const std::shared_ptr<IOTAComponent>& component, IDesigner& designer)>;

enum class TPropertyAttribute { paDialog, paValueList, paSubProperties, paMultiSelect, paRevertable };

class IPropertyEditor {
  public:
    virtual ~IPropertyEditor() = default;
    virtual std::vector<TPropertyAttribute> GetAttributes() = 0;
    /// The values of the drop-down list, in order.
    virtual void GetValues(const std::function<void(const std::string& value)>& add) = 0;
    /// The ellipsis button.
    virtual void Edit() = 0;
};
using TPropertyEditorClass = std::function<std::unique_ptr<IPropertyEditor>(
    const std::shared_ptr<IOTAComponent>& component, const std::string& propertyName, IDesigner& designer)>;

/// Works on what is selected in the designer.
class ISelectionEditor {
  public:
    virtual ~ISelectionEditor() = default;
    virtual int GetVerbCount() = 0;
    virtual std::string GetVerb(int index) = 0;
    virtual void ExecuteVerb(int index) = 0;
    virtual void PrepareItem(int index, TMenuItem& item) = 0;
};
using TSelectionEditorClass = std::function<std::unique_ptr<ISelectionEditor>(IDesigner& designer)>;

/// What a package may register while it is loaded; the IDE undoes it when the package unloads. Classes are
/// named; an editor serves a class and those that derive from it, a later registration comes first.
class IRegistration {
  public:
    virtual ~IRegistration() = default;
    /// Adopts the wizard; it is released when the package unloads.
    virtual void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) = 0;
    /// Puts component classes on a page of the palette.
    virtual void RegisterComponents(const std::string& page, const std::vector<std::string>& classes) = 0;
    virtual void RegisterComponentEditor(const std::string& componentClass, TComponentEditorClass editor) = 0;
    /// propertyType is the declared type of the property ("TStrings").
    virtual void RegisterPropertyEditor(const std::string& propertyType, const std::string& componentClass,
                                        const std::string& propertyName, TPropertyEditorClass editor) = 0;
    virtual void RegisterSelectionEditor(const std::string& componentClass, TSelectionEditorClass editor) = 0;
    virtual void RegisterActions(const std::string& category, const std::vector<std::string>& classes) = 0;
};

/// A design-time package: its entry, and what runs when all that it registered has been released.
struct TPackage {
    std::string Name;
    std::function<void(IRegistration&)> Register;
    std::function<void()> Finalization;
};

}  // namespace tml
