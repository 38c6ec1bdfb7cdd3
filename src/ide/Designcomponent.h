#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ide/Formdocument.h"
#include "platform/Toolsapi.h"

namespace tml {

/// A component of an open form. The form's document binds it to its node; without one (deleted, form
/// closed) every operation is refused with EBadInput, and an undo may bring it back.
class TDesignComponent : public IOTAComponent {
  public:
    TDesignComponent(TFormDocument& form, TFormNode& node)
        : form_(form), alive_(form.weak_from_this()), node_(&node) {}

    void Bind(TFormNode* node) { node_ = node; }
    /// False for one that has been deleted, or whose form is closed.
    bool IsBound() const;
    bool IsOn(const TFormDocument& form) const { return IsBound() && IsOf(form); }
    bool IsOf(const TFormDocument& form) const { return &form_ == &form && !alive_.expired(); }
    TFormNode& Node() const;

    TComponentHandle GetComponentHandle() override { return this; }
    std::string GetComponentType() override { return Node().ClassName(); }
    std::string GetName() override { return Node().Name(); }
    std::shared_ptr<IOTAComponent> GetOwner() override;
    std::shared_ptr<IOTAComponent> GetParent() override;
    TComponentOrigin GetOrigin() override;
    std::shared_ptr<IOTAComponent> GetAncestor() override;
    void SetName(const std::string& name) override;
    int GetComponentCount() override;
    std::shared_ptr<IOTAComponent> GetComponent(int index) override;
    std::shared_ptr<IOTAComponent> FindComponent(const std::string& name) override;
    std::vector<TFormProperty> GetProperties() override { return Node().Properties(); }
    std::vector<TFormProperty> GetTextProperties() override { return Node().TextProperties(); }
    std::optional<TFormValue> GetPropValue(const std::string& name) override { return Node().Find(name); }
    std::shared_ptr<IOTAComponent> GetPropComponent(const std::string& name) override;
    void SetPropValue(const std::string& name, const TFormValue& value) override;
    void RemoveProp(const std::string& name) override;
    void Delete() override;

  private:
    TFormDocument& form_;  ///< used only while it is alive
    std::weak_ptr<TDocument> alive_;
    TFormNode* node_;
};

}  // namespace tml
