#include "ide/Formdocument.h"

#include <algorithm>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "ide/Designcomponent.h"
#include "ide/Journal.h"

namespace tml {

// A form has no bound on its depth, so the walk keeps its own stack.
std::vector<TFormNode*> NodesBelow(TFormNode& node, bool intoFrames) {
    std::vector<TFormNode*> nodes;
    std::vector<TFormNode*> open = {&node};
    while (!open.empty()) {
        TFormNode* next = open.back();
        open.pop_back();
        nodes.push_back(next);
        if (!intoFrames && next != &node && next->Prefix() == TFormPrefix::Inline) continue;
        const auto& children = next->Children();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            open.push_back(child->get());
    }
    return nodes;
}

/// The whole form before (after an undo: behind) the changes of one scope.
class TFormDocument::TStep : public TUndoStep {
  public:
    TStep(std::shared_ptr<TDocument> document, TFormDocument& form)
        : TUndoStep(std::move(document)), form_(form), other_(form.Take()) {}

  protected:
    void ToggleContent() override {
        TSnapshot current = form_.Take();
        form_.Restore(other_);
        other_ = std::move(current);
    }

  private:
    TFormDocument& form_;
    TSnapshot other_;
};

TFormDocument::TFormDocument(TJournal& journal, const std::string& fileName, const std::string& bytes,
                             std::string onDisk, std::string codePage)
    : TDocument(journal, fileName, std::move(onDisk)),
      codePage_(std::move(codePage)),
      tree_(TFormTree::Parse(bytes, fileName, codePage_)) {}

std::string TFormDocument::ShownText() const {
    return TCodedText::TextOf(tree_->Text(), codePage_);
}

TFormDocument::~TFormDocument() {
    TFormDocument::Close();
}

void TFormDocument::Close() {
    TDocument::Close();
    for (const auto& [node, component] : components_)
        component->Bind(nullptr);
    components_.clear();
}

void TFormDocument::ExpectOpen() const {
    if (IsClosed()) throw EBadInput(FileName(), 0, "the form is closed", "Open it again");
}

std::shared_ptr<TDesignComponent> TFormDocument::ComponentOf(TFormNode& node) {
    ExpectOpen();
    std::shared_ptr<TDesignComponent>& component = components_[&node];
    if (!component) component = std::make_shared<TDesignComponent>(*this, node);
    return component;
}

const std::vector<TFormNode*>& TFormDocument::OwnedBy(const TFormNode& owner) {
    static const std::vector<TFormNode*> none;
    if (&owner != &Root() && owner.Prefix() != TFormPrefix::Inline) return none;
    const auto [place, isNew] = owned_.try_emplace(&owner);
    if (isNew) {
        place->second = NodesBelow(const_cast<TFormNode&>(owner), false);
        place->second.erase(place->second.begin());
    }
    return place->second;
}

TFormNode* TFormDocument::OwnerOf(const TFormNode& node) const {
    TFormNode* owner = node.Parent();
    while (owner != nullptr && owner->Parent() != nullptr && owner->Prefix() != TFormPrefix::Inline)
        owner = owner->Parent();
    return owner;
}

TFormNode* TFormDocument::FindOwned(std::string_view name) {
    if (SameText(Root().Name(), name)) return &Root();
    const std::vector<TFormNode*>& owned = OwnedBy(Root());
    const auto found = std::find_if(owned.begin(), owned.end(),
                                    [&](const TFormNode* node) { return SameText(node->Name(), name); });
    return found == owned.end() ? nullptr : *found;
}

void TFormDocument::Change(const std::string& title, const std::function<void(TFormTree&)>& change) {
    ExpectOpen();
    const auto command = Journal().BeginUnlessRunning(title);
    formerNames_.clear();
    // One picture of the form a scope is enough, whatever the number of its changes.
    if (!Journal().ChangedInScope(*this)) Journal().Add(std::make_unique<TStep>(shared_from_this(), *this));
    NewVersion();
    change(*tree_);
    if (command) command->Commit();
}

TFormNode& TFormDocument::Add(TFormTree& tree, TFormNode& parent, const std::string& name,
                              const std::string& className) {
    owned_.clear();
    return tree.AddChild(parent, name, className);
}

void TFormDocument::Remove(TFormTree& tree, TFormNode& node) {
    owned_.clear();
    for (TFormNode* gone : NodesBelow(node, true))
        Unbind(*gone);
    tree.RemoveChild(node);
}

void TFormDocument::Unbind(TFormNode& node) {
    const auto found = components_.find(&node);
    if (found == components_.end()) return;
    found->second->Bind(nullptr);
    components_.erase(found);
}

TFormDocument::TSnapshot TFormDocument::Take() {
    TSnapshot snapshot{tree_->Bytes(), {}};
    if (components_.empty()) return snapshot;
    const std::vector<TFormNode*> nodes = NodesBelow(Root(), true);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const auto found = components_.find(nodes[i]);
        if (found != components_.end()) snapshot.Places.emplace_back(found->second, i);
    }
    return snapshot;
}

void TFormDocument::Restore(const TSnapshot& snapshot) {
    const bool noteNames = formerNames_.empty();
    for (const auto& [node, component] : components_) {
        if (noteNames) formerNames_.emplace_back(component, node->Name());
        component->Bind(nullptr);
    }
    components_.clear();
    owned_.clear();
    tree_ = TFormTree::Parse(snapshot.Bytes, FileName(), codePage_);
    if (IsClosed()) return;
    const std::vector<TFormNode*> nodes = NodesBelow(Root(), true);
    for (const auto& [component, place] : snapshot.Places) {
        component->Bind(nodes.at(place));
        components_[nodes[place]] = component;
    }
}

void TFormDocument::Restored() {
    const auto formerNames = std::move(formerNames_);
    formerNames_.clear();
    if (IsClosed()) return;
    for (const auto& [component, name] : formerNames)
        if (component->IsBound() && component->GetName() != name) designer_->NameRestored(*component, name);
}

}  // namespace tml
