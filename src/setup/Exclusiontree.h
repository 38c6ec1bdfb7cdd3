#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "setup/Exclusionplan.h"

namespace tml {

enum class TExclusionLevel { Form, Class, Component, Property };
enum class TExclusionCheck { Translated, Partly, Excluded };

/// A form, a class of its components, a component or a property. Indexes are 0-based.
struct TExclusionNode {
    TExclusionLevel Level = TExclusionLevel::Form;
    int Parent = -1;  ///< -1 for a form
    int Form = 0;
    int Owner = -1;                  ///< index of a component in its form; of a class that of its first one
    int Text = -1;                   ///< of a property
    std::vector<int> Children = {};  ///< that are shown
    int Place = 0;                   ///< among what is shown of its parent
    int Texts = 0;                   ///< offered below, or itself
    int Excluded = 0;                ///< of them

    TExclusionCheck Check() const;
};

/// The forms with their classes, components and properties, and what of it is shown. A node keeps its index.
class TExclusionTree {
  public:
    /// The forms outlive the tree; they are never added to.
    explicit TExclusionTree(const std::vector<TExclusionForm>& forms);

    const TExclusionNode& Node(int node) const { return nodes_[static_cast<std::size_t>(node)]; }
    /// The forms that are shown.
    const std::vector<int>& Roots() const { return roots_; }
    /// The node of a form, shown or not.
    int NodeOfForm(int form) const { return formNodes_[static_cast<std::size_t>(form)]; }
    /// "MainForm", "TButton", "btnOK", "Caption".
    std::string Caption(int node) const;
    const TExclusionForm& FormOf(int node) const { return forms_[static_cast<std::size_t>(Node(node).Form)]; }
    /// The nodes of a form's components by their paths, upper-cased; shown or not.
    std::unordered_map<std::string, int> ComponentsOf(int form) const;
    /// The component that a node is or belongs to; -1 for a form and a class.
    int ComponentAbove(int node) const;
    /// All children of a node, shown or not.
    const std::vector<int>& AllBelow(int node) const { return all_[static_cast<std::size_t>(node)]; }
    /// A flag for each text of the node's form that stands below it, or is it.
    TTextFlags TextsBelow(int node) const;

    /// by: for each text of the form what excludes it, -1 for none.
    void SetExcluded(int form, std::vector<int> by);
    /// See ExcludedBy; of a property's node.
    int ExcludedBy(int node) const;

    /// Shows what has the text in its caption or, of a property, in its text, without regard to case, with
    /// all above and below it; onlyExcluded leaves out properties that are translated.
    void SetFilter(const std::string& text, bool onlyExcluded);
    /// Grows when other nodes are shown.
    unsigned Revision() const { return revision_; }

  private:
    int Add(TExclusionNode node);
    void AddForm(int form);
    void AddClass(int formNode, const std::vector<int>& owners, const std::vector<std::vector<int>>& texts);
    /// Behind the nodes of a form.
    std::size_t EndOf(int form) const;
    bool Matches(int node) const;
    bool Arrange(int node, bool isMatched);

    const std::vector<TExclusionForm>& forms_;
    std::vector<TExclusionNode> nodes_;  ///< parents before their children
    std::vector<std::vector<int>> all_;  ///< the children of each node
    std::vector<int> formNodes_;
    std::vector<std::vector<int>> by_;  ///< for each form
    std::vector<int> roots_;
    std::string filter_;  ///< upper-cased
    bool onlyExcluded_ = false;
    unsigned revision_ = 0;
};

}  // namespace tml
