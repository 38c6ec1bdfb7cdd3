#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Placement.h"
#include "platform/Host.h"
#include "setup/Exclusionchanges.h"
#include "setup/Exclusiontree.h"
#include "windows/Actions.h"
#include "windows/Controls.h"
#include "windows/Listview.h"

namespace tml {

/// An entry of a list of the current form, as a row.
class TExclusionEntryRow : public TListRow {
  public:
    explicit TExclusionEntryRow(TExclusionUse use) : Use(std::move(use)) {}
    const TExclusionUse Use;

    std::string Cell(std::size_t column) const override;
};

/// "Exclude from Translation": what of the forms is translated and what is not. Nothing is written; what is
/// wanted is in Lists when the window closes with mrOk.
class TfrmExclude : public TForm {
  public:
    /// Opens a form for its picture: the form itself and the name of its file.
    using TUseForm =
        std::function<void(const std::shared_ptr<IOTAComponent>& root, const std::string& formFile)>;
    using TOpenForm = std::function<void(const TExclusionForm& form, const TUseForm& use)>;

    /// At least one form.
    TfrmExclude(const THost& host, std::vector<TExclusionForm> forms, TOpenForm openForm);
    TfrmExclude(const TfrmExclude&) = delete;
    TfrmExclude& operator=(const TfrmExclude&) = delete;

    std::string edSearch;
    bool ckbOnlyExcluded = false;
    bool ckbAllForms = false;  ///< commands on classes, properties and smart rules take all listed forms
    bool ckbFormView = true;   ///< the form is drawn beside the tree
    int Current = 0;           ///< node
    struct TSmartBox {
        std::string Rule;
        TExclusionCheck State = TExclusionCheck::Translated;  ///< Excluded: all forms meant have the rule
    };
    std::vector<TSmartBox> SmartBoxes;
    TListOf<TExclusionEntryRow> lvEntries;  ///< of the current form
    std::string lblShown;                   ///< what the tree does not show, "" where it shows all
    int LeftOut = 0;                        ///< chosen forms without a component
    std::string lblEffect;
    bool EffectWarns = false;  ///< translations would be dropped
    TActions Actions;          ///< on the tree

    std::vector<int> ColumnWidths;  ///< of the tree; empty as designed
    int FormViewWidth = 0;          ///< 0 as designed
    TPlacement Placement;

    const TExclusionTree& Tree() const { return tree_; }
    /// What stands in a column of the tree: 0 the name, 1 the text or how many are excluded, 2 by what.
    std::string Cell(int node, int column) const;
    /// Grows when a form's exclusions change.
    unsigned Revision() const { return revision_; }
    const std::vector<TExclusionForm>& Forms() const { return forms_; }
    /// The lists that a form is to have.
    const TExclusionLists& Lists(int form) const { return lists_[static_cast<std::size_t>(form)]; }
    /// Index of the form with the current node.
    int CurrentForm() const { return tree_.Node(Current).Form; }
    void UseCurrentForm(const TUseForm& use) const;

    void FormShow() override;
    void FormClose() override;
    void edSearchChange(const std::string& text);
    void ckbOnlyExcludedClick(bool only);
    void ckbAllFormsClick(bool all);
    void ckbFormViewClick(bool shown);
    void NodeClick(int node);
    /// Makes the component of the current form the current node.
    void ComponentClick(const std::string& path);
    /// The box of a node: excludes all below it, or takes that back.
    void BoxClick(int node, bool excludes);
    void SmartBoxClick(int box, bool on);
    void lvEntriesChange() { Changed(); }
    bool HasEntry() const { return lvEntries.FirstSelected() != nullptr; }
    void btnAddEntryClick();
    void btnRemoveEntryClick();
    void btOKClick();
    void btCancelClick() { Close(mrCancel); }

    void acTranslate() { BoxClick(Current, false); }
    void acExcludeComponent();
    void acExcludeWithAll();
    void acExcludeClass();
    void acExcludeProperty();
    void acExcludeClassProperty();
    bool IsExcluded() const { return tree_.Node(Current).Excluded > 0; }
    bool IsComponent() const { return tree_.Node(Current).Level >= TExclusionLevel::Component; }
    bool IsInner() const;  ///< a component, but not the form itself
    bool IsClass() const { return tree_.Node(Current).Level >= TExclusionLevel::Class; }
    bool IsProperty() const { return tree_.Node(Current).Level == TExclusionLevel::Property; }

  private:
    struct TFormState {
        std::vector<TExclusionUse> Uses;
        TExclusionEffect Effect;
    };
    const TTextOwner& CurrentOwner() const;
    const std::string& CurrentPath() const;
    std::vector<int> MeantForms() const;
    void SetLists(int form, TExclusionLists lists);
    /// In the forms meant; of the current form even where it matches nothing.
    void ChangeMeant(const TExclusionChange& change);
    void TellOfNoUse(const TExclusionChange& change);
    void Show();
    void ShowSmartBoxes();
    void ShowEntries();
    void ShowEffect();
    void ShowTree();
    void NameActions();

    const THost& host_;
    std::vector<TExclusionForm> forms_;
    TOpenForm openForm_;
    std::vector<TExclusionLists> lists_;
    std::vector<TFormState> states_;
    TExclusionTree tree_;
    unsigned revision_ = 0;
    int entriesOf_ = -1;  ///< the form whose entries are listed
    unsigned entriesRevision_ = 0;
};

}  // namespace tml
