#pragma once

#include <string>
#include <vector>

#include "forms/Formnode.h"
#include "forms/Formvalue.h"

namespace tml {

/// A component as a layout takes it: with what it inherits, as a running program has it. Whoever knows the
/// project merges ancestors and frames; texts may be those of any language.
struct TLayoutNode {
    std::string Name;  ///< "" for a nameless component
    std::string ClassName;
    /// As in a form's file: "Font.Height", "Items.Strings".
    std::vector<TFormProperty> Properties;
    std::vector<TLayoutNode> Children;
    bool IsFrame = false;

    /// Without regard to case; nullptr when the form does not hold the property.
    const TFormValue* Find(std::string_view property) const;
};

/// A form's file alone: what it inherits is not there.
TLayoutNode LayoutNodeOf(const TFormNode& root);

}  // namespace tml
