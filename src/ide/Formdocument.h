#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "forms/Formtree.h"
#include "ide/Document.h"
#include "platform/Toolsapi.h"

namespace tml {

class TDesignComponent;
class TFormDocument;

/// What a component asks of the designer that its form is open in.
class IComponentDesigner {
  public:
    virtual ~IComponentDesigner() = default;
    virtual void Rename(TFormNode& node, const std::string& name) = 0;
    virtual void Delete(TFormNode& node) = 0;
    /// "Name" on this form or "Form1.Name"; nullptr when there is none.
    virtual std::shared_ptr<IOTAComponent> FindReference(const std::string& reference) = 0;
    /// What the node repeats, see IOTAComponent::GetAncestor.
    virtual std::shared_ptr<IOTAComponent> FindAncestor(const TFormNode& node) = 0;
    /// Whether what the node repeats is a frame.
    virtual bool InheritsFrame(const TFormNode& node) = 0;
    /// See IOTAComponent::FindComponent.
    virtual std::shared_ptr<IOTAComponent> FindOwned(TFormNode& owner, const std::string& name) = 0;
    /// The component of the form's or frame's nearest ancestor that has one of this name; nullptr when there
    /// is none.
    virtual std::shared_ptr<IOTAComponent> FindInherited(const TFormNode& owner, const std::string& name) = 0;
    /// A component, perhaps the form itself, got a former name back.
    virtual void NameRestored() = 0;
};

/// A form file in the IDE: the tree is the only store, components are views on its nodes. A component
/// keeps its identity over undo and redo although the tree is then read anew.
class TFormDocument : public TDocument {
  public:
    /// EBadInput for a broken form.
    TFormDocument(TJournal& journal, const std::string& fileName, std::shared_ptr<const std::string> bytes,
                  std::shared_ptr<const std::string> onDisk, std::string codePage);
    ~TFormDocument() override;

    std::shared_ptr<const TView> View() const override;
    void Take(std::string bytes, const std::shared_ptr<const TView>& view) override;
    /// Makes the tree of bytes that were taken; whoever uses nodes does so by himself.
    void Read();
    /// The form as text in UTF-8, for reading.
    std::string ShownText();
    void Close() override;
    void Restored() override;
    void SetDesigner(IComponentDesigner* designer) { designer_ = designer; }
    IComponentDesigner& Designer() const { return *designer_; }

    TFormNode& Root() { return Tree().Root(); }
    /// The one component on a node. EBadInput when the form is closed.
    std::shared_ptr<TDesignComponent> ComponentOf(TFormNode& node);
    /// The components that the form or frame owns, in file order; none for other components.
    const std::vector<TFormNode*>& OwnedBy(const TFormNode& owner);
    /// The frame or form that owns the component, nullptr for the form itself.
    TFormNode* OwnerOf(const TFormNode& node);
    /// A frame owns what stands in its block, one that the form inherits as well.
    bool IsFrame(const TFormNode& node);
    /// The form itself or a component that it owns, without regard to case; nullptr when there is none.
    TFormNode* FindOwned(std::string_view name);
    /// Likewise a component of the file that a form or frame owns.
    TFormNode* FindOwned(const TFormNode& owner, std::string_view name);

    /// Makes a change as one step of undo, or as part of the running command. EBadInput when the form is
    /// closed.
    void Change(const std::string& title, const std::function<void(TFormTree&)>& change);
    /// Parts of a Change: a new component, and one that goes with all below it.
    TFormNode& Add(TFormTree& tree, TFormNode& parent, const std::string& name, const std::string& className,
                   TFormPrefix prefix = TFormPrefix::Object);
    void Remove(TFormTree& tree, TFormNode& node);

  protected:
    std::string WriteBytes() const override { return tree_->Bytes(); }

  private:
    struct TPlaces;
    using TNames = std::unordered_map<std::shared_ptr<TDesignComponent>, std::string>;

    TFormTree& Tree();
    /// The components that are known, and their names.
    TNames Names() const;
    /// The node and all below it lose their components.
    void Unbind(TFormNode& node);
    void ExpectOpen() const;

    std::string codePage_;
    std::unique_ptr<TFormTree> tree_;
    bool unread_ = false;                    ///< the tree is to be made of the bytes, on first use
    std::shared_ptr<const TPlaces> places_;  ///< of the components then
    IComponentDesigner* designer_ = nullptr;
    std::unordered_map<const TFormNode*, std::vector<TFormNode*>> owned_;
    std::unordered_map<const TFormNode*, bool> inheritsFrame_;
    /// Names before the first Take since the last Restored.
    TNames formerNames_;
};

/// The component and all below it in file order, but for what stands in the block of one that is closed.
std::vector<TFormNode*> NodesBelow(TFormNode& node,
                                   const std::function<bool(const TFormNode&)>& isClosed = {});

}  // namespace tml
