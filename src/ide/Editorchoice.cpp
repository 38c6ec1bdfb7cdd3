#include "ide/Editorchoice.h"

#include <algorithm>

#include "base/Utf8.h"
#include "tables/Componentclasses.h"

namespace tml {

bool TEditorChoice::InheritsFrom(const std::string& className, std::string_view ancestor) const {
    return SameText(ancestor, "TComponent") || runtime_.InheritsFrom(className, std::string(ancestor)) ||
           ComponentInheritsFrom(className, ancestor);
}

std::unique_ptr<IComponentEditor> TEditorChoice::ForComponent(const std::shared_ptr<IOTAComponent>& component,
                                                              IDesigner& designer) const {
    const auto& all = registered_.ComponentEditors;
    const auto found = std::find_if(all.rbegin(), all.rend(), [&](const TComponentEditorEntry& entry) {
        return InheritsFrom(component->GetComponentType(), entry.ComponentClass);
    });
    return found == all.rend() ? nullptr : found->Editor(component, designer);
}

std::unique_ptr<IPropertyEditor> TEditorChoice::ForProperty(const std::shared_ptr<IOTAComponent>& component,
                                                            const std::string& property,
                                                            IDesigner& designer) const {
    const auto& all = registered_.PropertyEditors;
    const auto found = std::find_if(all.rbegin(), all.rend(), [&](const TPropertyEditorEntry& entry) {
        return SameText(entry.PropertyName, property) &&
               InheritsFrom(component->GetComponentType(), entry.ComponentClass);
    });
    // By the name that it was registered with: an editor may go by its letter case.
    return found == all.rend() ? nullptr : found->Editor(component, found->PropertyName, designer);
}

std::vector<std::unique_ptr<ISelectionEditor>> TEditorChoice::ForSelection(IDesigner& designer) const {
    std::vector<std::unique_ptr<ISelectionEditor>> editors;
    const auto selected = designer.GetSelections();
    if (selected.empty()) return editors;
    for (const TSelectionEditorEntry& entry : registered_.SelectionEditors)
        if (std::all_of(selected.begin(), selected.end(), [&](const auto& component) {
                return InheritsFrom(component->GetComponentType(), entry.ComponentClass);
            }))
            editors.push_back(entry.Editor(designer));
    return editors;
}

std::vector<std::string> TEditorChoice::PropertiesWithEditor(const std::string& className) const {
    std::vector<std::string> names;
    for (const TPropertyEditorEntry& entry : registered_.PropertyEditors)
        if (InheritsFrom(className, entry.ComponentClass)) names.push_back(entry.PropertyName);
    return names;
}

std::vector<TClassGroup> TEditorChoice::Palette() const {
    std::vector<TClassGroup> pages;
    for (const TClassGroup& group : registered_.Components) {
        const auto page = std::find_if(pages.begin(), pages.end(),
                                       [&](const TClassGroup& one) { return one.Title == group.Title; });
        if (page == pages.end())
            pages.push_back(group);
        else
            page->Classes.insert(page->Classes.end(), group.Classes.begin(), group.Classes.end());
    }
    return pages;
}

}  // namespace tml
