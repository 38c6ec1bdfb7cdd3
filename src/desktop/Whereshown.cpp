#include "desktop/Whereshown.h"

#include <algorithm>
#include <vector>

#include "base/Format.h"
#include "base/Utf8.h"
#include "layout/Openpages.h"

namespace tml {
namespace {

using TNodes = std::vector<const TLayoutNode*>;

bool IsMenu(const TLayoutNode& node) {
    return SameText(node.ClassName, "TMainMenu") || SameText(node.ClassName, "TPopupMenu");
}
bool IsListOfActions(const TLayoutNode& node) {
    return SameText(node.ClassName, "TActionList") || SameText(node.ClassName, "TActionManager");
}

/// What a component is owned by, the form first and the component last; false where it is not below the node.
bool FindWay(const TLayoutNode& node, const TLayoutNode& component, TNodes& way) {
    way.push_back(&node);
    if (&node == &component) return true;
    for (const TLayoutNode& child : node.Children)
        if (FindWay(child, component, way)) return true;
    way.pop_back();
    return false;
}

void FindLinked(const TLayoutNode& node, const std::string& action, TNodes& linked) {
    const TFormValue* const link = node.Find("Action");
    if (link != nullptr && SameText(link->Text, action)) linked.push_back(&node);
    for (const TLayoutNode& child : node.Children)
        FindLinked(child, action, linked);
}

TWhereShown WhereActionIsShown(TLayoutNode& form, const TLayoutNode& action) {
    TNodes linked;
    FindLinked(form, action.Name, linked);
    if (linked.empty())
        return {nullptr, Format("%s is an action that nothing on the form shows", action.Name)};
    std::string names;
    for (const TLayoutNode* const one : linked)
        names += (names.empty() ? "" : ", ") + one->Name;
    const auto control = std::find_if(linked.begin(), linked.end(), [](const TLayoutNode* one) {
        return !SameText(one->ClassName, "TMenuItem");
    });
    return {control == linked.end() ? nullptr : OpenPagesTo(form, (*control)->Name),
            Format("%s is an action, shown by %s", action.Name, names)};
}

}  // namespace

TWhereShown WhereShown(TLayoutNode& form, const TLayoutNode& component) {
    TNodes way;
    FindWay(form, component, way);
    for (const TLayoutNode* const owner : way) {
        if (IsListOfActions(*owner)) return WhereActionIsShown(form, component);
        if (IsMenu(*owner)) return {nullptr, Format("%s is in the menu %s", component.Name, owner->Name)};
    }
    return {nullptr, Format("%s is not seen on the form", component.Name)};
}

}  // namespace tml
