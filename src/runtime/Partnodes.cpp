#include "runtime/Partnodes.h"

#include <algorithm>
#include <utility>

namespace tml {
namespace {

using TChildren = std::vector<std::vector<std::size_t>>;

/// Of every part those that stand in its block; what stands in none is on the form.
TChildren ChildrenOf(const std::vector<TFormPart>& parts) {
    TChildren children(parts.size());
    for (std::size_t i = 1; i < parts.size(); ++i)
        children[static_cast<std::size_t>(std::max(0, parts[i].Holder))].push_back(i);
    return children;
}

void Fill(TLayoutNode& node, const TFormPart& part) {
    node.Name = part.Name;
    node.ClassName = part.ClassName;
    node.Properties = part.Properties;
    node.IsFrame = part.IsFrame;
}

}  // namespace

// By hand instead of by recursion: a form may be as deep as it is long.
TLayoutNode LayoutNodeOf(const std::vector<TFormPart>& parts) {
    const TChildren children = ChildrenOf(parts);
    TLayoutNode result;
    std::vector<std::pair<std::size_t, TLayoutNode*>> open;
    if (!parts.empty()) open.emplace_back(0, &result);
    while (!open.empty()) {
        const auto [index, node] = open.back();
        open.pop_back();
        Fill(*node, parts[index]);
        node->Children.resize(children[index].size());
        for (std::size_t i = 0; i < node->Children.size(); ++i)
            open.emplace_back(children[index][i], &node->Children[i]);
    }
    return result;
}

}  // namespace tml
