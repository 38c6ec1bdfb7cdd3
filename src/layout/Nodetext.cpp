#include "layout/Nodetext.h"

#include <memory>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "forms/Formbuilder.h"
#include "forms/Formtext.h"
#include "forms/Formtextwriter.h"

namespace tml {
namespace {

bool CanStand(const TFormProperty& property, const TFormFile& file) {
    try {
        TFormSink deaf;
        EmitValue(property.Value, file, deaf);
        return true;
    } catch (const EBadInput&) {
        return false;
    }
}

void BeginNode(const TLayoutNode& node, const TFormFile& file, TFormSink& sink) {
    const TFormPrefix prefix = node.IsFrame ? TFormPrefix::Inline : TFormPrefix::Object;
    sink.BeginNode({prefix, std::nullopt, node.Name, node.ClassName});
    for (const TFormProperty& property : node.Properties) {
        if (!CanStand(property, file)) continue;
        sink.Property(CheckedPropertyName(property.Name, file));
        EmitValue(property.Value, file, sink);
    }
    sink.EndProperties();
}

}  // namespace

// By hand instead of by recursion: a form may be as deep as it is long.
std::string FormTextOf(const TLayoutNode& form) {
    const TTextFormFile file(std::make_shared<const std::string>(), {}, {});
    const TFormTextStyle style;
    std::string text;
    TFormTextWriter writer(file, style, text);
    BeginNode(form, file, writer);
    std::vector<std::pair<const TLayoutNode*, std::size_t>> open = {{&form, 0}};
    while (!open.empty()) {
        auto& [node, next] = open.back();
        if (next < node->Children.size()) {
            const TLayoutNode& child = node->Children[next++];
            BeginNode(child, file, writer);
            open.emplace_back(&child, 0);
        } else {
            writer.EndNode();
            open.pop_back();
        }
    }
    return text + style.LineEnd;
}

}  // namespace tml
