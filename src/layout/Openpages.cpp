#include "layout/Openpages.h"

#include <string>
#include <vector>

#include "base/Utf8.h"
#include "layout/Layoutclasses.h"

namespace tml {
namespace {

struct TReached {
    TLayoutNode* Node;
    int Parent;
    std::string Path;
    std::string Prefix;  ///< of the paths of what stands in it
};

bool IsPage(const TLayoutNode& node) {
    const TLayoutClass* const row = FindLayoutClass(node.ClassName);
    return row != nullptr && row->Kind == TLayoutKind::Page;
}

void Open(TLayoutNode& control, const std::string& page) {
    std::erase_if(control.Properties, [](const TFormProperty& one) {
        return SameText(one.Name, "ActivePage") || SameText(one.Name, "PageIndex");
    });
    control.Properties.push_back({"ActivePage", TFormValue::Identifier(page)});
}

/// Those that lie deeper come later; the last one is the wanted one, where there is such a one.
std::vector<TReached> WayTo(TLayoutNode& form, std::string_view path) {
    std::vector<TReached> reached = {{&form, -1, "", ""}};
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const std::string prefix = reached[i].Prefix;
        for (TLayoutNode& child : reached[i].Node->Children) {
            const std::string own = prefix + child.Name;
            reached.push_back({&child, static_cast<int>(i), own, child.IsFrame ? own + "." : prefix});
            if (SameText(own, path)) return reached;
        }
    }
    return reached;
}

}  // namespace

const TLayoutNode* OpenPagesTo(TLayoutNode& form, std::string_view path) {
    if (path.empty()) return &form;
    const std::vector<TReached> way = WayTo(form, path);
    if (!SameText(way.back().Path, path)) return nullptr;
    for (const TReached* one = &way.back(); one->Parent >= 0;) {
        const TReached& parent = way[static_cast<std::size_t>(one->Parent)];
        if (IsPage(*one->Node)) Open(*parent.Node, one->Node->Name);
        one = &parent;
    }
    return way.back().Node;
}

}  // namespace tml
