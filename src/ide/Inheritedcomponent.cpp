#include "ide/Inheritedcomponent.h"

#include "base/Errors.h"

namespace tml {

std::shared_ptr<IOTAComponent> TInheritedComponent::Repeated() {
    if (form_->IsClosed()) return nullptr;
    TFormNode* node = form_->FindOwned(owner_->Node(), name_);
    return node == nullptr ? nullptr : form_->ComponentOf(*node);
}

std::shared_ptr<IOTAComponent> TInheritedComponent::FindInherited() const {
    const bool isOpen = !form_->IsClosed() && owner_->IsBound();
    return isOpen ? form_->Designer().FindInherited(owner_->Node(), name_) : nullptr;
}

bool TInheritedComponent::IsThere() const {
    return FindInherited() != nullptr;
}

std::shared_ptr<IOTAComponent> TInheritedComponent::Inherited() {
    if (auto found = FindInherited()) return found;
    throw EBadInput(form_->FileName(), 0, "the form inherits no component " + name_ + " any more",
                    "Open the form again and repeat the command");
}

TComponentHandle TInheritedComponent::GetComponentHandle() {
    const auto repeated = Repeated();
    return repeated != nullptr ? repeated->GetComponentHandle() : this;
}

void TInheritedComponent::SetName(const std::string& name) {
    if (name == GetName()) return;
    throw EBadInput(form_->FileName(), 0, name_ + " belongs to an ancestor of the form",
                    "Change it in the form that declares it");
}

void TInheritedComponent::Delete() {
    SetName({});
}

std::vector<TFormProperty> TInheritedComponent::GetProperties() {
    const auto repeated = Repeated();
    return repeated == nullptr ? std::vector<TFormProperty>() : repeated->GetProperties();
}

std::vector<TFormProperty> TInheritedComponent::GetTextProperties() {
    const auto repeated = Repeated();
    return repeated == nullptr ? std::vector<TFormProperty>() : repeated->GetTextProperties();
}

std::optional<TFormValue> TInheritedComponent::GetPropValue(const std::string& name) {
    const auto repeated = Repeated();
    return repeated == nullptr ? std::nullopt : repeated->GetPropValue(name);
}

std::shared_ptr<IOTAComponent> TInheritedComponent::GetPropComponent(const std::string& name) {
    const auto repeated = Repeated();
    return repeated == nullptr ? nullptr : repeated->GetPropComponent(name);
}

void TInheritedComponent::SetPropValue(const std::string& name, const TFormValue& value) {
    if (Repeated() == nullptr) {
        const auto inherited = Inherited();
        form_->Change("Set " + name_ + "." + name, [&](TFormTree& tree) {
            TFormNode& node = form_->Add(tree, owner_->Node(), inherited->GetName(),
                                         inherited->GetComponentType(), TFormPrefix::Inherited);
            tree.SetProperty(node, name, value);
        });
        return;
    }
    Repeated()->SetPropValue(name, value);
}

void TInheritedComponent::RemoveProp(const std::string& name) {
    if (const auto repeated = Repeated()) repeated->RemoveProp(name);
}

}  // namespace tml
