#include "ide/Designer.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "ide/Designcomponent.h"
#include "ide/Inheritedcomponent.h"
#include "runtime/Classes.h"
#include "source/Charclass.h"

namespace tml {
namespace {

/// The component of the form, or of what that inherits.
std::shared_ptr<IOTAComponent> FindOn(std::shared_ptr<IOTAComponent> form, const std::string& name) {
    for (; form != nullptr; form = form->GetAncestor())
        for (int i = 0; i < form->GetComponentCount(); ++i)
            if (auto component = form->GetComponent(i); SameText(component->GetName(), name))
                return component;
    return nullptr;
}

}  // namespace

TDesigner::TDesigner(std::shared_ptr<TFormDocument> form, TUnitSource source, TServices services)
    : form_(std::move(form)), source_(std::move(source)), services_(std::move(services)) {
    form_->SetDesigner(this);
}

TDesigner::~TDesigner() {
    form_->Close();
}

void TDesigner::Show() {
    services_.Show();
    notifiers_.Tell([](IOTAFormNotifier& notifier) { notifier.FormActivated(); });
}

std::shared_ptr<IOTAComponent> TDesigner::GetRootComponent() {
    return form_->ComponentOf(form_->Root());
}

std::shared_ptr<IOTAComponent> TDesigner::FindComponent(const std::string& name) {
    TFormNode& root = form_->Root();
    return SameText(root.Name(), name) ? form_->ComponentOf(root) : FindOwned(root, name);
}

std::shared_ptr<IOTAComponent> TDesigner::FindOwned(TFormNode& owner, const std::string& name) {
    if (TFormNode* node = form_->FindOwned(owner, name)) return form_->ComponentOf(*node);
    const auto inherited = owner.Prefix() == TFormPrefix::Object ? nullptr : FindInherited(owner, name);
    if (inherited == nullptr) return nullptr;
    const auto holder = form_->ComponentOf(owner);
    std::shared_ptr<IOTAComponent>& component = inherited_[{holder->GetComponentHandle(), UpperCase(name)}];
    if (!component) component = std::make_shared<TInheritedComponent>(form_, holder, inherited->GetName());
    return component;
}

std::shared_ptr<IOTAComponent> TDesigner::CreateComponent(IOTAComponent* container,
                                                          const std::string& typeName, int x, int y, int w,
                                                          int h, const std::string& wantedName) {
    if (!services_.Runtime->IsRegistered(typeName)) return nullptr;
    TFormNode* parent = &form_->Root();
    if (container != nullptr) {
        parent = form_->FindOwned(container->GetName());
        if (parent == nullptr) throw EBadInput(GetFileName(), 0, "the container is not on this form");
    }
    const TRuntimeClass& typeClass = *FindRuntimeClass(typeName);
    const std::string className(typeClass.Name);
    const std::string name = NewName(wantedName, className);
    const std::pair<const char*, int> places[] = {{"Left", x}, {"Top", y}, {"Width", w}, {"Height", h}};
    const auto command = services_.Journal->Begin("Create " + name);
    TFormNode* created = nullptr;
    form_->Change("Create " + name, [&](TFormTree& tree) {
        created = &form_->Add(tree, *parent, name, className);
        for (const auto& [property, value] : places)
            if (value != 0) tree.SetProperty(*created, property, TFormValue::Integer(value));
    });
    source_.AddComponent(form_->Root().ClassName(), name, className, std::string(typeClass.Unit));
    command->Commit();
    return form_->ComponentOf(*created);
}

bool TDesigner::HasComponent(const IOTAComponent* component) const {
    if (const auto* inherited = dynamic_cast<const TInheritedComponent*>(component))
        return inherited->IsOn(*form_) && inherited->IsThere();
    const auto* own = dynamic_cast<const TDesignComponent*>(component);
    return own != nullptr && own->IsOn(*form_);
}

std::vector<std::shared_ptr<IOTAComponent>> TDesigner::GetSelections() {
    std::vector<std::shared_ptr<IOTAComponent>> selected;
    for (const auto& component : selection_)
        if (HasComponent(component.get())) selected.push_back(component);
    return selected;
}

void TDesigner::SetSelections(const std::vector<std::shared_ptr<IOTAComponent>>& components) {
    for (const auto& component : components)
        if (!HasComponent(component.get()))
            throw EBadInput(GetFileName(), 0, "the component is not on this form");
    selection_ = components;
}

int TDesigner::AddNotifier(std::shared_ptr<IOTAFormNotifier> notifier) {
    return notifiers_.Add(std::move(notifier));
}

void TDesigner::Destroyed() {
    notifiers_.Tell([](IOTAFormNotifier& notifier) { notifier.Destroyed(); });
    notifiers_.Clear();
}

bool TDesigner::IsFree(const std::string& name, const std::string& typeName) {
    return form_->FindOwned(name) == nullptr && FindInherited(form_->Root(), name) == nullptr &&
           source_.HasRoomFor(form_->Root().ClassName(), name, typeName);
}

std::string TDesigner::FreeName(const std::string& name, const std::string& typeName) {
    CheckName(name);
    const std::string stem = IsDigit(name.back()) ? name + "_" : name;
    std::string free = name;
    for (int number = 2; !IsFree(free, typeName); ++number)
        free = stem + std::to_string(number);
    return free;
}

/// The wanted name, or the class name without its T and the first free number.
std::string TDesigner::NewName(const std::string& name, const std::string& className) {
    if (name.empty()) {
        const std::string stem = className.starts_with('T') ? className.substr(1) : className;
        for (int number = 1;; ++number)
            if (std::string free = stem + std::to_string(number); IsFree(free, className)) return free;
    }
    CheckName(name);
    CheckNamesake(name, nullptr);
    if (!IsFree(name, className))
        throw EBadInput(GetFileName(), 0,
                        "the class " + form_->Root().ClassName() + " has a member " + name + " already",
                        "Choose another name");
    return name;
}

void TDesigner::CheckNamesake(const std::string& name, const TFormNode* own) {
    const TFormNode* namesake = form_->FindOwned(name);
    if (namesake != nullptr && namesake != own)
        throw EBadInput(GetFileName(), namesake->Line(), "the form has a component " + name + " already",
                        "Choose another name");
}

void TDesigner::CheckName(const std::string& name) {
    if (!source_.CanDeclare(name))
        throw EBadInput(GetFileName(), 0, "\"" + name + "\" is no name for a component",
                        "Use letters, digits and underscores, a letter first, and no word of the language");
}

/// What a frame or an ancestor declares has no field here.
void TDesigner::CheckOwn(const TFormNode& node) {
    if (node.Prefix() != TFormPrefix::Inherited && form_->OwnerOf(node) == &form_->Root()) return;
    throw EBadInput(GetFileName(), node.Line(),
                    node.Name() + " belongs to a frame or an ancestor of the form",
                    "Change it in the form that declares it");
}

/// A property that refers to a component holds its name; so may, in theory, an enumeration value: forms
/// where both meet are not known.
template <typename Change>
void TDesigner::ForEachReference(const std::string& name, Change change) {
    if (name.empty()) return;
    for (TFormNode* node : NodesBelow(form_->Root()))
        for (const TFormProperty& property : node->Properties())
            if (property.Value.Kind == TFormValueKind::Identifier && SameText(property.Value.Text, name))
                change(*node, property.Name);
}

void TDesigner::Rename(TFormNode& node, const std::string& name) {
    CheckName(name);
    CheckNamesake(name, &node);
    const bool isForm = &node == &form_->Root();
    if (!isForm) CheckOwn(node);
    const std::string oldName = node.Name();
    const auto command = services_.Journal->Begin("Rename " + oldName);
    form_->Change("Rename " + oldName, [&](TFormTree& tree) {
        tree.Rename(node, name);
        ForEachReference(oldName, [&](TFormNode& user, const std::string& property) {
            tree.SetProperty(user, property, TFormValue::Identifier(name));
        });
    });
    if (isForm)
        source_.RenameForm(oldName, name);
    else
        source_.RenameComponent(form_->Root().ClassName(), node.ClassName(), oldName, name);
    TellRenamed(form_->ComponentOf(node)->GetComponentHandle(), oldName, name);
    command->Commit();
}

void TDesigner::Delete(TFormNode& node) {
    if (&node == &form_->Root()) throw EBadInput(GetFileName(), 0, "the form itself cannot be deleted");
    if (node.Prefix() == TFormPrefix::Inherited && node.PropertyNames().empty()) return Forget(node);
    CheckOwn(node);
    const std::string name = node.Name();
    const auto command = services_.Journal->Begin("Delete " + name);
    for (const TFormNode* gone :
         NodesBelow(node, [this](const TFormNode& one) { return form_->IsFrame(one); }))
        if (!gone->Name().empty())
            source_.RemoveComponent(form_->Root().ClassName(), gone->ClassName(), gone->Name());
    form_->Change("Delete " + name, [&](TFormTree& tree) {
        form_->Remove(tree, node);
        ForEachReference(
            name, [&](TFormNode& user, const std::string& property) { tree.RemoveProperty(user, property); });
    });
    command->Commit();
}

/// The file repeats an inherited component for its properties, or for what stands in its block.
void TDesigner::Forget(TFormNode& node) {
    if (!node.Children().empty()) return;
    form_->Change("Reset " + node.Name(), [&](TFormTree& tree) { form_->Remove(tree, node); });
}

std::shared_ptr<IOTAComponent> TDesigner::FindReference(const std::string& reference) {
    const std::size_t dot = reference.find('.');
    if (dot == std::string::npos) return FindComponent(reference);
    const std::string owner = reference.substr(0, dot);
    const std::string name = reference.substr(dot + 1);
    std::shared_ptr<IOTAComponent> place = FindComponent(owner);
    if (!place) place = services_.FindForm(owner);
    return FindOn(std::move(place), name);
}

std::shared_ptr<IOTAComponent> TDesigner::FindInherited(const TFormNode& owner, const std::string& name) {
    return FindOn(FindAncestor(owner), name);
}

/// The project's form of a class has the class's name without its T.
std::shared_ptr<IOTAComponent> TDesigner::FindAncestor(const TFormNode& node) {
    const bool isForm = &node == &form_->Root();
    if (!isForm && node.Prefix() == TFormPrefix::Inherited)
        return FindOn(FindAncestor(*form_->OwnerOf(node)), node.Name());
    if (!isForm && node.Prefix() != TFormPrefix::Inline) return nullptr;
    const std::string className = isForm ? source_.AncestorOf(node.ClassName()) : node.ClassName();
    if (className.size() < 2 || className.front() != 'T') return nullptr;
    auto found = services_.FindForm(className.substr(1));
    // A class that derives from itself would be looked through for ever.
    const bool fits = found != nullptr && found != GetRootComponent();
    return fits && SameText(found->GetComponentType(), className) ? found : nullptr;
}

bool TDesigner::InheritsFrame(const TFormNode& node) {
    auto inherited = FindAncestor(node);
    while (inherited != nullptr && inherited->GetOrigin() == TComponentOrigin::coInherited)
        inherited = inherited->GetAncestor();
    return inherited != nullptr && inherited->GetOrigin() == TComponentOrigin::coFrame;
}

/// What had followed the name is restored as well, so nobody is told.
void TDesigner::NameRestored() {
    services_.FormRenamed();
}

void TDesigner::TellRenamed(TComponentHandle handle, const std::string& oldName, const std::string& newName) {
    services_.FormRenamed();
    notifiers_.Tell([&](IOTAFormNotifier& notifier) { notifier.ComponentRenamed(handle, oldName, newName); });
}

}  // namespace tml
