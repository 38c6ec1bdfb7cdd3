#include "setup/Exclusiontree.h"

#include <map>
#include <utility>

#include "base/Utf8.h"

namespace tml {

TExclusionCheck TExclusionNode::Check() const {
    if (Excluded == 0) return TExclusionCheck::Translated;
    return Excluded == Texts ? TExclusionCheck::Excluded : TExclusionCheck::Partly;
}

TExclusionTree::TExclusionTree(const std::vector<TExclusionForm>& forms) : forms_(forms) {
    for (std::size_t form = 0; form < forms.size(); ++form) {
        AddForm(static_cast<int>(form));
        by_.emplace_back();
        SetExcluded(static_cast<int>(form), std::vector<int>(forms[form].Texts.size(), -1));
    }
    SetFilter({}, false);
}

int TExclusionTree::Add(TExclusionNode node) {
    const int index = static_cast<int>(nodes_.size());
    if (node.Parent >= 0) all_[static_cast<std::size_t>(node.Parent)].push_back(index);
    nodes_.push_back(std::move(node));
    all_.emplace_back();
    return index;
}

/// Classes by their names, components and properties as the form has them.
void TExclusionTree::AddForm(int form) {
    const TExclusionForm& added = forms_[static_cast<std::size_t>(form)];
    std::vector<std::vector<int>> texts(added.Owners.size());
    for (std::size_t i = 0; i < added.Texts.size(); ++i)
        if (added.Texts[i].IsOffered())
            texts[static_cast<std::size_t>(added.Texts[i].Owner)].push_back(static_cast<int>(i));
    std::map<std::string, std::vector<int>> classes;
    for (std::size_t owner = 0; owner < texts.size(); ++owner)
        if (!texts[owner].empty())
            classes[UpperCase(added.Owners[owner].ClassName)].push_back(static_cast<int>(owner));
    formNodes_.push_back(Add({.Level = TExclusionLevel::Form, .Form = form}));
    for (const auto& [name, owners] : classes)
        AddClass(formNodes_.back(), owners, texts);
}

void TExclusionTree::AddClass(int formNode, const std::vector<int>& owners,
                              const std::vector<std::vector<int>>& texts) {
    const int form = Node(formNode).Form;
    const int classNode =
        Add({.Level = TExclusionLevel::Class, .Parent = formNode, .Form = form, .Owner = owners.front()});
    for (const int owner : owners) {
        const int component =
            Add({.Level = TExclusionLevel::Component, .Parent = classNode, .Form = form, .Owner = owner});
        for (const int text : texts[static_cast<std::size_t>(owner)])
            Add({.Level = TExclusionLevel::Property,
                 .Parent = component,
                 .Form = form,
                 .Owner = owner,
                 .Text = text,
                 .Texts = 1});
    }
}

std::string TExclusionTree::Caption(int node) const {
    const TExclusionNode& shown = Node(node);
    const TExclusionForm& form = FormOf(node);
    if (shown.Level == TExclusionLevel::Form) return form.FormName;
    if (shown.Level == TExclusionLevel::Property)
        return form.Texts[static_cast<std::size_t>(shown.Text)].Property;
    const TTextOwner& owner = form.Owners[static_cast<std::size_t>(shown.Owner)];
    if (shown.Level == TExclusionLevel::Class) return owner.ClassName;
    return owner.Path.empty() ? form.FormName : owner.Path;
}

int TExclusionTree::ComponentAbove(int node) const {
    const TExclusionLevel level = Node(node).Level;
    if (level == TExclusionLevel::Property) return Node(node).Parent;
    return level == TExclusionLevel::Component ? node : -1;
}

TTextFlags TExclusionTree::TextsBelow(int node) const {
    const TExclusionNode& top = Node(node);
    const TExclusionForm& form = FormOf(node);
    TTextFlags flags(form.Texts.size());
    for (std::size_t i = 0; i < flags.size(); ++i) {
        const TExclusionText& text = form.Texts[i];
        switch (top.Level) {
            case TExclusionLevel::Form:
                flags[i] = true;
                break;
            case TExclusionLevel::Class:
                flags[i] = SameText(form.OwnerOf(text).ClassName,
                                    form.Owners[static_cast<std::size_t>(top.Owner)].ClassName);
                break;
            case TExclusionLevel::Component:
                flags[i] = text.Owner == top.Owner;
                break;
            case TExclusionLevel::Property:
                flags[i] = static_cast<int>(i) == top.Text;
                break;
        }
    }
    return flags;
}

std::size_t TExclusionTree::EndOf(int form) const {
    const auto next = static_cast<std::size_t>(form) + 1;
    return next < formNodes_.size() ? static_cast<std::size_t>(formNodes_[next]) : nodes_.size();
}

std::unordered_map<std::string, int> TExclusionTree::ComponentsOf(int form) const {
    std::unordered_map<std::string, int> components;
    for (auto i = static_cast<std::size_t>(NodeOfForm(form)); i < EndOf(form); ++i)
        if (nodes_[i].Level == TExclusionLevel::Component) {
            const TTextOwner& owner =
                forms_[static_cast<std::size_t>(form)].Owners[static_cast<std::size_t>(nodes_[i].Owner)];
            components.emplace(UpperCase(owner.Path), static_cast<int>(i));
        }
    return components;
}

void TExclusionTree::SetExcluded(int form, std::vector<int> by) {
    by_[static_cast<std::size_t>(form)] = std::move(by);
    const auto begin = static_cast<std::size_t>(NodeOfForm(form));
    for (std::size_t i = EndOf(form); i-- > begin;) {
        TExclusionNode& node = nodes_[i];
        if (node.Level == TExclusionLevel::Property) {
            node.Excluded = ExcludedBy(static_cast<int>(i)) >= 0 ? 1 : 0;
            continue;
        }
        node.Texts = node.Excluded = 0;
        for (const int child : all_[i]) {
            node.Texts += Node(child).Texts;
            node.Excluded += Node(child).Excluded;
        }
    }
}

int TExclusionTree::ExcludedBy(int node) const {
    const TExclusionNode& property = Node(node);
    return by_[static_cast<std::size_t>(property.Form)][static_cast<std::size_t>(property.Text)];
}

bool TExclusionTree::Matches(int node) const {
    if (filter_.empty() || Contains(UpperCase(Caption(node)), filter_)) return true;
    const int text = Node(node).Text;
    return text >= 0 && Contains(UpperCase(FormOf(node).Texts[static_cast<std::size_t>(text)].Text), filter_);
}

/// Gives whether the node is shown; isMatched: something above it has the text.
bool TExclusionTree::Arrange(int node, bool isMatched) {
    TExclusionNode& shown = nodes_[static_cast<std::size_t>(node)];
    isMatched = isMatched || Matches(node);
    if (shown.Level == TExclusionLevel::Property) return isMatched && (!onlyExcluded_ || shown.Excluded > 0);
    shown.Children.clear();
    for (const int child : all_[static_cast<std::size_t>(node)])
        if (Arrange(child, isMatched)) {
            nodes_[static_cast<std::size_t>(child)].Place = static_cast<int>(shown.Children.size());
            shown.Children.push_back(child);
        }
    return !shown.Children.empty() || (isMatched && !onlyExcluded_);
}

void TExclusionTree::SetFilter(const std::string& text, bool onlyExcluded) {
    filter_ = UpperCase(Trim(text));
    onlyExcluded_ = onlyExcluded;
    roots_.clear();
    for (const int form : formNodes_)
        if (Arrange(form, false)) {
            nodes_[static_cast<std::size_t>(form)].Place = static_cast<int>(roots_.size());
            roots_.push_back(form);
        }
    ++revision_;
}

}  // namespace tml
