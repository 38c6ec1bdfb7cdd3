#include "ide/Formdocument.h"

#include <algorithm>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "ide/Designcomponent.h"
#include "ide/Journal.h"

namespace tml {
namespace {

/// nullptr where nobody has asked for it yet.
std::shared_ptr<TDesignComponent> KnownComponentOf(const TFormNode& node) {
    return std::static_pointer_cast<TDesignComponent>(node.View);
}

}  // namespace

// A form has no bound on its depth, so the walk keeps its own stack.
std::vector<TFormNode*> NodesBelow(TFormNode& node, const std::function<bool(const TFormNode&)>& isClosed) {
    std::vector<TFormNode*> nodes;
    std::vector<TFormNode*> open = {&node};
    while (!open.empty()) {
        TFormNode* next = open.back();
        open.pop_back();
        nodes.push_back(next);
        if (isClosed && next != &node && isClosed(*next)) continue;
        const auto& children = next->Children();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            open.push_back(child->get());
    }
    return nodes;
}

/// Components, the place of their node, counted through the file from 0, and their names.
struct TFormDocument::TPlaces : TView {
    struct TPlace {
        std::shared_ptr<TDesignComponent> Component;
        std::size_t Node;
        std::string Name;
    };
    std::vector<TPlace> Places;
};

TFormDocument::TFormDocument(TJournal& journal, const std::string& fileName,
                             std::shared_ptr<const std::string> bytes,
                             std::shared_ptr<const std::string> onDisk, std::string codePage)
    : TDocument(journal, fileName, std::move(onDisk)),
      codePage_(std::move(codePage)),
      tree_(TFormTree::Parse(std::move(bytes), fileName, codePage_)) {}

std::string TFormDocument::ShownText() {
    return TCodedText::TextOf(Tree().Text(), codePage_);
}

TFormDocument::~TFormDocument() {
    TFormDocument::Close();
}

void TFormDocument::Close() {
    if (IsClosed()) return;
    TDocument::Close();
    Unbind(tree_->Root());
    places_.reset();
}

void TFormDocument::ExpectOpen() const {
    if (IsClosed()) throw EBadInput(FileName(), 0, "the form is closed", "Open it again");
}

std::shared_ptr<TDesignComponent> TFormDocument::ComponentOf(TFormNode& node) {
    ExpectOpen();
    if (!node.View) node.View = std::make_shared<TDesignComponent>(*this, node);
    return KnownComponentOf(node);
}

const std::vector<TFormNode*>& TFormDocument::OwnedBy(const TFormNode& owner) {
    static const std::vector<TFormNode*> none;
    if (&owner != &Root() && !IsFrame(owner)) return none;
    if (const auto known = owned_.find(&owner); known != owned_.end()) return known->second;
    std::vector<TFormNode*> owned =
        NodesBelow(const_cast<TFormNode&>(owner), [this](const TFormNode& node) { return IsFrame(node); });
    owned.erase(owned.begin());
    return owned_[&owner] = std::move(owned);
}

TFormNode* TFormDocument::OwnerOf(const TFormNode& node) {
    TFormNode* owner = node.Parent();
    while (owner != nullptr && owner->Parent() != nullptr && !IsFrame(*owner))
        owner = owner->Parent();
    return owner;
}

/// The file does not tell an inherited frame from another container: its ancestors do.
bool TFormDocument::IsFrame(const TFormNode& node) {
    if (node.Prefix() == TFormPrefix::Inline) return true;
    const bool mayBe = node.Prefix() == TFormPrefix::Inherited && node.Parent() != nullptr;
    if (!mayBe || node.Children().empty()) return false;
    // Forms that inherit from each other would ask for ever.
    const auto [known, isNew] = inheritsFrame_.try_emplace(&node, false);
    if (!isNew) return known->second;
    const bool isFrame = designer_->InheritsFrame(node);
    return inheritsFrame_[&node] = isFrame;
}

TFormNode* TFormDocument::FindOwned(std::string_view name) {
    return SameText(Root().Name(), name) ? &Root() : FindOwned(Root(), name);
}

TFormNode* TFormDocument::FindOwned(const TFormNode& owner, std::string_view name) {
    const std::vector<TFormNode*>& owned = OwnedBy(owner);
    const auto found = std::find_if(owned.begin(), owned.end(),
                                    [&](const TFormNode* node) { return SameText(node->Name(), name); });
    return found == owned.end() ? nullptr : *found;
}

void TFormDocument::Change(const std::string& title, const std::function<void(TFormTree&)>& change) {
    ExpectOpen();
    const auto command = Journal().BeginUnlessRunning(title);
    formerNames_.clear();
    Changing();
    change(Tree());
    if (command) command->Commit();
}

TFormNode& TFormDocument::Add(TFormTree& tree, TFormNode& parent, const std::string& name,
                              const std::string& className, TFormPrefix prefix) {
    owned_.clear();
    return tree.AddChild(parent, name, className, prefix);
}

void TFormDocument::Remove(TFormTree& tree, TFormNode& node) {
    owned_.clear();
    inheritsFrame_.clear();
    Unbind(node);
    tree.RemoveChild(node);
}

void TFormDocument::Unbind(TFormNode& node) {
    for (TFormNode* one : NodesBelow(node)) {
        if (const auto component = KnownComponentOf(*one)) component->Bind(nullptr);
        one->View.reset();
    }
}

TFormTree& TFormDocument::Tree() {
    Read();
    return *tree_;
}

void TFormDocument::Read() {
    if (!unread_ || IsClosed()) return;
    owned_.clear();
    inheritsFrame_.clear();
    tree_ = TFormTree::Parse(Bytes(), FileName(), codePage_);
    unread_ = false;
    if (!places_) return;
    const std::vector<TFormNode*> nodes = NodesBelow(tree_->Root());
    for (const TPlaces::TPlace& place : places_->Places) {
        place.Component->Bind(nodes.at(place.Node));
        nodes[place.Node]->View = place.Component;
    }
    places_.reset();
}

std::shared_ptr<const TDocument::TView> TFormDocument::View() const {
    if (unread_) return places_;
    auto view = std::make_shared<TPlaces>();
    const std::vector<TFormNode*> nodes = NodesBelow(tree_->Root());
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (auto component = KnownComponentOf(*nodes[i]))
            view->Places.push_back({std::move(component), i, nodes[i]->Name()});
    return view;
}

TFormDocument::TNames TFormDocument::Names() const {
    TNames names;
    for (const TFormNode* node : NodesBelow(tree_->Root()))
        if (auto component = KnownComponentOf(*node)) names.emplace(std::move(component), node->Name());
    if (places_)
        for (const TPlaces::TPlace& place : places_->Places)
            names.emplace(place.Component, place.Name);
    return names;
}

void TFormDocument::Take(std::string bytes, const std::shared_ptr<const TView>& view) {
    if (formerNames_.empty()) formerNames_ = Names();
    Unbind(tree_->Root());
    SetBytes(std::move(bytes));
    unread_ = true;
    places_ = std::dynamic_pointer_cast<const TPlaces>(view);
    // A form that was opened anew has components of its own.
    if (places_ && !places_->Places.empty() && !places_->Places.front().Component->IsOf(*this))
        places_.reset();
}

void TFormDocument::Restored() {
    const TNames former = std::move(formerNames_);
    formerNames_.clear();
    for (const auto& [component, name] : Names())
        if (const auto old = former.find(component); old != former.end() && old->second != name)
            return designer_->NameRestored();
}

}  // namespace tml
