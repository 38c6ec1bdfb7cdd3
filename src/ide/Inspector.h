#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ide/Editorchoice.h"
#include "ide/Propertytypes.h"
#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"

namespace tml {

/// A property of all that is selected.
struct TInspectedProperty {
    std::string Name;   ///< without the ".Strings" under which a form stores a list of texts
    std::string Value;  ///< as a person reads it; "" where the selected components differ or none holds it
    TPropertyType Type;
    bool IsHeld = false;  ///< by the form's file; else what the value shows is inherited
    bool CanType = false;
    bool HasList = false;    ///< offers values
    bool HasDialog = false;  ///< of a registered editor, or the one for lines
};

/// The properties of the selected components: those that the form holds or inherits, those that have a
/// registered editor and those of the run-time library's classes. Every change is one step of undo; a value
/// that the property does not take is refused with EBadInput, and the form is as it was.
class TInspector {
  public:
    /// modules and runtime must outlive it.
    TInspector(IOTAModuleServices& modules, IMlRuntime& runtime) : modules_(modules), runtime_(runtime) {}

    using TComponents = std::vector<std::shared_ptr<IOTAComponent>>;
    /// Shows the properties of these components, which are on the form; none for no form.
    void Follow(const std::shared_ptr<IOTAFormEditor>& form, const TComponents& components,
                std::shared_ptr<const TEditorChoice> editors);

    /// Sorted by name.
    const std::vector<TInspectedProperty>& Rows() const { return rows_; }
    /// "Button1: TButton", or how many components there are.
    std::string Title() const;
    /// What the property's list offers, in order.
    TStringList Values(const std::string& property);
    /// Gives all of the components what the text stands for; nothing for the text that is shown.
    void SetText(const std::string& property, const std::string& text);
    /// The ellipsis.
    void Edit(const std::string& property);
    /// The form holds the property, and a component can be without it.
    bool CanReset(const std::string& property) const;
    /// Gives all of the components the value that they have by themselves, or inherit: the form no longer
    /// holds the property.
    void Reset(const std::string& property);

  private:
    struct TCollected;
    /// EBadInput when it is closed.
    std::shared_ptr<IOTAFormEditor> Form() const;
    std::vector<TInspectedProperty> RowsOf(const std::shared_ptr<IOTAComponent>& component) const;
    void KeepCommon(const std::vector<TInspectedProperty>& others);
    void AddHeld(TCollected& rows, IOTAComponent& component) const;
    void AddOffered(TCollected& rows, const std::string& className) const;
    void AddLanguage(TCollected& rows, const std::shared_ptr<IOTAComponent>& component) const;
    void AddEdited(TCollected& rows, const std::shared_ptr<IOTAComponent>& component) const;
    const TInspectedProperty* Find(const std::string& property) const;
    std::unique_ptr<IPropertyEditor> EditorOf(const std::shared_ptr<IOTAComponent>& component,
                                              const std::string& property) const;
    /// The components that the property can name.
    TStringList Candidates(const TPropertyType& type) const;
    void Change(const std::shared_ptr<IOTAComponent>& component, const TInspectedProperty& row,
                const std::string& text);
    void ExpectTarget(IOTAComponent& component, const TInspectedProperty& row, const std::string& text);
    void EditLines(const TInspectedProperty& row);
    void ResetOn(const std::shared_ptr<IOTAComponent>& component, const std::string& property);
    void DoAs(const std::string& title, const std::function<void()>& work);
    [[noreturn]] void Refuse(const std::string& why) const;

    IOTAModuleServices& modules_;
    IMlRuntime& runtime_;
    std::weak_ptr<IOTAFormEditor> form_;
    TComponents components_;
    std::shared_ptr<const TEditorChoice> editors_;
    std::vector<TInspectedProperty> rows_;
};

}  // namespace tml
