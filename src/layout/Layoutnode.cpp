#include "layout/Layoutnode.h"

#include <utility>

#include "base/Utf8.h"

namespace tml {

const TFormValue* TLayoutNode::Find(std::string_view property) const {
    for (const TFormProperty& one : Properties)
        if (one.Name.size() == property.size() && SameText(one.Name, property)) return &one.Value;
    return nullptr;
}

// By hand instead of by recursion: a form may be as deep as it is long.
TLayoutNode LayoutNodeOf(const TFormNode& root) {
    TLayoutNode result;
    std::vector<std::pair<const TFormNode*, TLayoutNode*>> open = {{&root, &result}};
    while (!open.empty()) {
        const auto [node, target] = open.back();
        open.pop_back();
        target->Name = node->Name();
        target->ClassName = node->ClassName();
        target->Properties = node->Properties();
        target->IsFrame = node->Prefix() == TFormPrefix::Inline;
        target->Children.resize(node->Children().size());
        for (std::size_t i = 0; i < target->Children.size(); ++i)
            open.emplace_back(node->Children()[i].get(), &target->Children[i]);
    }
    return result;
}

}  // namespace tml
