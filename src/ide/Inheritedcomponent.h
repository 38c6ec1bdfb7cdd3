#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ide/Designcomponent.h"
#include "platform/Toolsapi.h"

namespace tml {

/// A component that a form or a frame on it inherits, whether its file repeats it or not. The first property
/// that is set makes the file repeat it ("inherited Name: TClass"); an undo takes that back like any change.
class TInheritedComponent : public IOTAComponent {
  public:
    TInheritedComponent(std::shared_ptr<TFormDocument> form, std::shared_ptr<TDesignComponent> owner,
                        std::string name)
        : form_(std::move(form)), owner_(std::move(owner)), name_(std::move(name)) {}

    bool IsOn(const TFormDocument& form) const { return form_.get() == &form; }
    /// False where the form is closed or inherits no such component any more.
    bool IsThere() const;

    TComponentHandle GetComponentHandle() override;
    std::string GetComponentType() override { return Inherited()->GetComponentType(); }
    std::string GetName() override { return Inherited()->GetName(); }
    std::shared_ptr<IOTAComponent> GetOwner() override { return owner_; }
    std::shared_ptr<IOTAComponent> GetParent() override { return GetOwner(); }
    TComponentOrigin GetOrigin() override { return TComponentOrigin::coInherited; }
    std::shared_ptr<IOTAComponent> GetAncestor() override { return Inherited(); }
    void SetName(const std::string& name) override;
    int GetComponentCount() override { return 0; }
    std::shared_ptr<IOTAComponent> GetComponent(int) override { return nullptr; }
    std::shared_ptr<IOTAComponent> FindComponent(const std::string&) override { return nullptr; }
    std::vector<TFormProperty> GetProperties() override;
    std::vector<TFormProperty> GetTextProperties() override;
    std::optional<TFormValue> GetPropValue(const std::string& name) override;
    std::shared_ptr<IOTAComponent> GetPropComponent(const std::string& name) override;
    void SetPropValue(const std::string& name, const TFormValue& value) override;
    void RemoveProp(const std::string& name) override;
    void Delete() override;

  private:
    /// The component in the form's file, nullptr while that does not repeat it.
    std::shared_ptr<IOTAComponent> Repeated();
    std::shared_ptr<IOTAComponent> FindInherited() const;
    /// EBadInput where no ancestor has such a component any more.
    std::shared_ptr<IOTAComponent> Inherited();

    std::shared_ptr<TFormDocument> form_;
    std::shared_ptr<TDesignComponent> owner_;
    std::string name_;
};

}  // namespace tml
