#include "ide/Formdesign.h"

#include <algorithm>
#include <cstdlib>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "layout/Layoutclasses.h"
#include "runtime/Componentprops.h"

namespace tml {
namespace {

constexpr int kMargin = 8;  ///< pixels between the edge and what the palette puts on a form
constexpr int kIcon = 32;   ///< pixels that a component without a place in the running program takes here
constexpr int kColumns = 8;

constexpr TLayoutKind kContainers[] = {TLayoutKind::Panel, TLayoutKind::GroupBox, TLayoutKind::ScrollBox,
                                       TLayoutKind::Page};

bool IsControl(const TFormPart& part) {
    const auto holdsSize = [](const TFormProperty& property) {
        return SameText(property.Name, "Width") || SameText(property.Name, "Height");
    };
    return part.Path.empty() || part.IsFrame || FindLayoutClass(part.ClassName) != nullptr ||
           std::any_of(part.Properties.begin(), part.Properties.end(), holdsSize);
}

bool IsContainer(const std::string& className) {
    const TLayoutClass* row = FindLayoutClass(className);
    return row != nullptr &&
           std::find(std::begin(kContainers), std::end(kContainers), row->Kind) != std::end(kContainers);
}

TComponentOrigin OriginOf(const TFormPart& part) {
    if (part.Path.empty()) return TComponentOrigin::coOwn;
    return part.Component == nullptr ? TComponentOrigin::coInherited : part.Component->GetOrigin();
}

std::string PathOf(IOTAComponent& component) {
    const auto owner = component.GetOwner();
    if (owner == nullptr) return {};
    const std::string path = PathOf(*owner);
    return path.empty() ? component.GetName() : path + '.' + component.GetName();
}

std::shared_ptr<TMenuItem> NewItem(const std::string& name, const std::string& caption,
                                   std::function<void()> work) {
    auto item = std::make_shared<TMenuItem>();
    item->Name = name;
    item->Caption = caption;
    item->OnClick = std::move(work);
    return item;
}

/// The verbs of an editor, which lives as long as they do.
template <typename TEditor>
void AddVerbs(std::vector<std::shared_ptr<TMenuItem>>& menu, const std::shared_ptr<TEditor>& editor) {
    if (editor == nullptr || editor->GetVerbCount() == 0) return;
    if (!menu.empty()) menu.push_back(NewItem({}, "-", {}));
    for (int i = 0; i < editor->GetVerbCount(); ++i) {
        auto item = NewItem({}, editor->GetVerb(i), [editor, i] { editor->ExecuteVerb(i); });
        editor->PrepareItem(i, *item);
        menu.push_back(std::move(item));
    }
}

}  // namespace

TFormDesign::TFormDesign(THeadlessIde& ide, IMlRuntime& runtime)
    : ide_(ide),
      runtime_(runtime),
      editors_(std::make_shared<TEditorChoice>(ide.Registered(), runtime)),
      inspector_(*ide.GetModuleServices(), runtime) {}

std::shared_ptr<IOTAFormEditor> TFormDesign::Form() const {
    if (auto form = form_.lock()) return form;
    throw EBadInput("", 0, "the form is closed", "Open the form again and repeat the command");
}

// --- components

void TFormDesign::Follow(const std::shared_ptr<IOTAFormEditor>& form) {
    form_ = form;
    parts_.reset();
    components_.clear();
    byPath_.clear();
    inspector_.Follow(nullptr, {}, editors_);
    if (form == nullptr) return;
    editors_ = std::make_shared<TEditorChoice>(ide_.Registered(), runtime_);
    parts_.emplace(form->GetRootComponent(), TFormParts::TFrames::Whole);
    ReadComponents();
    FollowSelection();
}

void TFormDesign::ReadComponents() {
    for (const TFormPart& part : parts_->Items()) {
        const int parent = part.Path.empty() ? -1 : std::max(0, part.Holder);
        byPath_.emplace(UpperCase(part.Path), static_cast<int>(components_.size()));
        components_.push_back(
            {part.Path, part.Name, part.ClassName, parent, OriginOf(part), IsControl(part)});
    }
}

int TFormDesign::Find(const std::string& path) const {
    const auto found = byPath_.find(UpperCase(path));
    return found == byPath_.end() ? -1 : found->second;
}

/// nullptr for one that the form's file cannot name.
TFormDesign::TComponentPtr TFormDesign::ComponentAt(int index) const {
    const TFormPart& part = parts_->Items().at(static_cast<std::size_t>(index));
    if (part.Component != nullptr) return part.Component;
    TComponentPtr found = Form()->GetRootComponent();
    for (std::size_t begin = 0; found != nullptr && begin < part.Path.size();) {
        const std::size_t end = std::min(part.Path.find('.', begin), part.Path.size());
        found = found->FindComponent(part.Path.substr(begin, end - begin));
        begin = end + 1;
    }
    return found;
}

// --- selection

std::vector<int> TFormDesign::Selected() const {
    std::vector<int> indexes;
    if (form_.expired() || components_.empty()) return indexes;
    for (const auto& component : Designer().GetSelections())
        if (const int index = Find(PathOf(*component)); index >= 0) indexes.push_back(index);
    return indexes;
}

void TFormDesign::SelectComponents(const std::vector<TComponentPtr>& components) {
    Designer().SetSelections(components);
    FollowSelection();
}

/// Without a selection the properties are those of the form.
void TFormDesign::FollowSelection() {
    const auto form = Form();
    auto selected = form->GetDesigner().GetSelections();
    if (selected.empty()) selected.push_back(form->GetRootComponent());
    inspector_.Follow(form, selected, editors_);
}

void TFormDesign::Select(const std::vector<int>& indexes) {
    std::vector<TComponentPtr> components;
    for (const int index : indexes)
        if (auto component = ComponentAt(index)) components.push_back(std::move(component));
    SelectComponents(components);
}

int TFormDesign::ParentOfSelected() const {
    const std::vector<int> selected = Selected();
    return selected.empty() ? 0 : std::max(0, components_[static_cast<std::size_t>(selected.front())].Parent);
}

// --- commands

std::vector<std::shared_ptr<TMenuItem>> TFormDesign::Menu() {
    std::vector<std::shared_ptr<TMenuItem>> menu;
    IDesigner& designer = Designer();
    const auto selected = designer.GetSelections();
    if (selected.empty()) return menu;
    if (selected.size() == 1)
        AddVerbs(menu, std::shared_ptr(editors_->ForComponent(selected.front(), designer)));
    for (auto& editor : editors_->ForSelection(designer))
        AddVerbs(menu, std::shared_ptr(std::move(editor)));
    if (!menu.empty()) menu.push_back(NewItem({}, "-", {}));
    auto remove = NewItem("DeleteComponent", "&Delete", [this] { Delete(); });
    remove->Enabled = std::none_of(selected.begin(), selected.end(), [](const auto& component) {
        return component->GetOwner() == nullptr || component->GetOrigin() == TComponentOrigin::coInherited;
    });
    menu.push_back(std::move(remove));
    return menu;
}

void TFormDesign::Edit() {
    IDesigner& designer = Designer();
    const auto selected = designer.GetSelections();
    if (selected.size() != 1) return;
    if (const auto editor = editors_->ForComponent(selected.front(), designer)) editor->Edit();
}

void TFormDesign::Delete() {
    IDesigner& designer = Designer();
    const auto selected = designer.GetSelections();
    if (selected.empty()) return;
    const auto isThere = [&](const TComponentPtr& component) {
        const auto rest = designer.GetSelections();
        return std::find(rest.begin(), rest.end(), component) != rest.end();
    };
    const auto parent = selected.front()->GetParent();
    const std::string title = selected.size() > 1 ? Format("Delete %d components", selected.size())
                                                  : "Delete " + selected.front()->GetName();
    const auto scope = ide_.GetModuleServices()->BeginCommand(title);
    for (const auto& component : selected)
        if (isThere(component)) component->Delete();  // not one that has gone with its parent
    scope->Commit();
    SelectComponents({});
    if (parent != nullptr && Find(PathOf(*parent)) >= 0) Designer().SetSelections({parent});
}

/// The selected control that can hold others, or what it stands in; the form where there is none.
int TFormDesign::ContainerOfSelected() const {
    const std::vector<int> selected = Selected();
    int index = selected.empty() ? 0 : selected.front();
    while (index > 0) {
        const TTreeComponent& one = components_[static_cast<std::size_t>(index)];
        // What stands on a frame is the frame's.
        if (IsContainer(one.ClassName) && one.Path.find('.') == std::string::npos) break;
        index = one.Parent;
    }
    return std::max(0, index);
}

/// By a component that the running program does not show: those have no size.
bool TFormDesign::IsTaken(int left, int top) const {
    for (std::size_t i = 0; i < components_.size(); ++i) {
        if (components_[i].IsControl) continue;
        const TComponentPtr other = ComponentAt(static_cast<int>(i));
        if (other == nullptr) continue;
        const int otherLeft = ReadIntegerProp(*other, "Left", -kIcon);
        const int otherTop = ReadIntegerProp(*other, "Top", -kIcon);
        if (std::abs(otherLeft - left) < kIcon && std::abs(otherTop - top) < kIcon) return true;
    }
    return false;
}

void TFormDesign::Place(const std::string& className) {
    const auto form = Form();
    const bool isControl = FindLayoutClass(className) != nullptr;
    const TComponentPtr container = isControl ? ComponentAt(ContainerOfSelected()) : form->GetRootComponent();
    int place = 0;
    const auto left = [&] { return kMargin + place % kColumns * (kIcon + kMargin); };
    const auto top = [&] { return kMargin + place / kColumns * (kIcon + kMargin); };
    while (!isControl && IsTaken(left(), top()))
        ++place;
    const auto created = form->CreateComponent(container.get(), className, left(), top(), 0, 0, {});
    if (created == nullptr) throw EBadInput(form->GetFileName(), 0, className + " cannot be put on a form");
    Designer().SetSelections({created});
}

}  // namespace tml
