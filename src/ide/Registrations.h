#pragma once

#include <string>
#include <vector>

#include "platform/Registration.h"

namespace tml {

/// Classes under a heading: a page of the palette, or a category of actions.
struct TClassGroup {
    std::string Title;
    std::vector<std::string> Classes;
};

struct TComponentEditorEntry {
    std::string ComponentClass;
    TComponentEditorClass Editor;
};

struct TPropertyEditorEntry {
    std::string PropertyType;
    std::string ComponentClass;
    std::string PropertyName;
    TPropertyEditorClass Editor;
};

struct TSelectionEditorEntry {
    std::string ComponentClass;
    TSelectionEditorClass Editor;
};

/// What the loaded packages have registered, in that order.
struct TRegistrations {
    std::vector<TClassGroup> Components;
    std::vector<TComponentEditorEntry> ComponentEditors;
    std::vector<TPropertyEditorEntry> PropertyEditors;
    std::vector<TSelectionEditorEntry> SelectionEditors;
    std::vector<TClassGroup> Actions;

    /// Appends what another package has registered.
    void Add(const TRegistrations& other);
};

}  // namespace tml
