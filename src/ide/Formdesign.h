#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ide/Headlesside.h"
#include "ide/Inspector.h"
#include "runtime/Formparts.h"

namespace tml {

/// A component as the tree of its form shows it.
struct TTreeComponent {
    std::string Path;  ///< from the form on, through frames; "" for the form itself
    std::string Name;
    std::string ClassName;
    int Parent = -1;  ///< index of the one whose block it stands in, -1 for the form
    TComponentOrigin Origin = TComponentOrigin::coOwn;
    bool IsControl = false;  ///< else it is not seen in the running program

    bool operator==(const TTreeComponent&) const = default;
};

/// A form as a person works on it in its designer: its components, which of them are selected, and what can
/// be done with these. What is selected is kept by the form's designer. Every command is one step of undo.
class TFormDesign {
  public:
    /// ide and runtime must outlive it.
    TFormDesign(THeadlessIde& ide, IMlRuntime& runtime);

    /// Takes the components anew, nullptr for no form. EBadInput where what the form inherits cannot be read;
    /// there is no component then.
    void Follow(const std::shared_ptr<IOTAFormEditor>& form);
    /// The form first, parents before what stands in them.
    const std::vector<TTreeComponent>& Components() const { return components_; }
    /// The same with their properties; nullptr for no form.
    const TFormParts* Parts() const { return parts_ ? &*parts_ : nullptr; }
    /// Index of the component at a path, -1 when there is none.
    int Find(const std::string& path) const;

    /// Indexes, in the order in which they were selected.
    std::vector<int> Selected() const;
    /// A component that cannot be reached, on a frame of an inherited frame, is passed over.
    void Select(const std::vector<int>& indexes);
    /// What the first selected component stands in, the form without one.
    int ParentOfSelected() const;

    TInspector& Inspector() { return inspector_; }
    /// The local menu of what is selected: the verbs of its component's editor, those of the selection
    /// editors, and what every component has. It is of use while the selection stays.
    std::vector<std::shared_ptr<TMenuItem>> Menu();
    /// The double click; nothing where no editor serves the one selected component.
    void Edit();
    /// Deletes what is selected; EBadInput for the form itself and for what is inherited.
    void Delete();
    std::vector<TClassGroup> Palette() const { return editors_->Palette(); }
    /// Puts a component of the class on the form and selects it: a control into the selected one that can
    /// hold it, another one on the form where no other stands.
    void Place(const std::string& className);

  private:
    using TComponentPtr = std::shared_ptr<IOTAComponent>;
    IDesigner& Designer() const { return Form()->GetDesigner(); }
    std::shared_ptr<IOTAFormEditor> Form() const;
    void ReadComponents();
    TComponentPtr ComponentAt(int index) const;
    void SelectComponents(const std::vector<TComponentPtr>& components);
    void FollowSelection();
    int ContainerOfSelected() const;
    bool IsTaken(int left, int top) const;

    THeadlessIde& ide_;
    IMlRuntime& runtime_;
    std::weak_ptr<IOTAFormEditor> form_;
    std::shared_ptr<const TEditorChoice> editors_;
    std::optional<TFormParts> parts_;
    std::vector<TTreeComponent> components_;
    std::unordered_map<std::string, int> byPath_;  ///< upper-cased
    TInspector inspector_;
};

}  // namespace tml
