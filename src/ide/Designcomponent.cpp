#include "ide/Designcomponent.h"

#include "base/Errors.h"
#include "runtime/Classproperties.h"

namespace tml {

bool TDesignComponent::IsBound() const {
    if (node_ == nullptr && !alive_.expired()) form_.Read();
    return node_ != nullptr;
}

TFormNode& TDesignComponent::Node() const {
    if (!IsBound())
        throw EBadInput("", 0, "the component has been deleted or its form is closed",
                        "Open the form again and repeat the command");
    return *node_;
}

std::shared_ptr<IOTAComponent> TDesignComponent::GetOwner() {
    TFormNode* owner = form_.OwnerOf(Node());
    return owner == nullptr ? nullptr : form_.ComponentOf(*owner);
}

std::shared_ptr<IOTAComponent> TDesignComponent::GetParent() {
    TFormNode* parent = Node().Parent();
    return parent == nullptr ? nullptr : form_.ComponentOf(*parent);
}

TComponentOrigin TDesignComponent::GetOrigin() {
    const TFormPrefix prefix = Node().Prefix();
    if (prefix == TFormPrefix::Inline) return TComponentOrigin::coFrame;
    return prefix == TFormPrefix::Inherited ? TComponentOrigin::coInherited : TComponentOrigin::coOwn;
}

std::shared_ptr<IOTAComponent> TDesignComponent::GetAncestor() {
    return form_.Designer().FindAncestor(Node());
}

void TDesignComponent::SetName(const std::string& name) {
    TFormNode& node = Node();
    if (node.Name() != name) form_.Designer().Rename(node, name);
}

int TDesignComponent::GetComponentCount() {
    const TFormNode& node = Node();
    return static_cast<int>(form_.OwnedBy(node).size());
}

std::shared_ptr<IOTAComponent> TDesignComponent::GetComponent(int index) {
    const TFormNode& node = Node();
    return form_.ComponentOf(*form_.OwnedBy(node).at(static_cast<std::size_t>(index)));
}

std::shared_ptr<IOTAComponent> TDesignComponent::FindComponent(const std::string& name) {
    return form_.Designer().FindOwned(Node(), name);
}

std::shared_ptr<IOTAComponent> TDesignComponent::GetPropComponent(const std::string& name) {
    const auto value = Node().Find(name);
    if (!value || value->Kind != TFormValueKind::Identifier) return nullptr;
    return form_.Designer().FindReference(value->Text);
}

void TDesignComponent::SetPropValue(const std::string& name, const TFormValue& value) {
    TFormNode& node = Node();
    const auto current = node.Find(name);
    if (current && *current == value) return;
    const std::size_t place =
        current ? kNoProperty : PlaceOfNewProperty(node.ClassName(), node.PropertyNames(), name);
    form_.Change("Set " + node.Name() + "." + name,
                 [&](TFormTree& tree) { tree.SetProperty(node, name, value, place); });
}

void TDesignComponent::RemoveProp(const std::string& name) {
    TFormNode& node = Node();
    if (!node.Find(name)) return;
    form_.Change("Reset " + node.Name() + "." + name,
                 [&](TFormTree& tree) { tree.RemoveProperty(node, name); });
}

void TDesignComponent::Delete() {
    form_.Designer().Delete(Node());
}

}  // namespace tml
