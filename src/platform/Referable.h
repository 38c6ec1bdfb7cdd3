#pragma once

#include <functional>
#include <set>
#include <string>

#include "base/Utf8.h"
#include "platform/Toolsapi.h"

namespace tml {

/// What a reference is written as, and the component that it names.
using TAddReferable = std::function<void(const std::string& reference, IOTAComponent& component)>;

/// The components of a form or frame, then those that it inherits and its file does not repeat.
inline void AddComponentsOf(const std::shared_ptr<IOTAComponent>& owner, const std::string& prefix,
                            const TAddReferable& add) {
    constexpr int kDeepest = 50;  // an ancestor may be one of its own
    std::set<std::string> met;
    auto holder = owner;
    for (int depth = 0; holder != nullptr && depth < kDeepest; holder = holder->GetAncestor(), ++depth)
        for (int i = 0; i < holder->GetComponentCount(); ++i) {
            const std::string name = holder->GetComponent(i)->GetName();
            if (name.empty() || !met.insert(UpperCase(name)).second) continue;
            if (const auto component = owner->FindComponent(name)) add(prefix + name, *component);
        }
}

inline bool StandsForFrame(std::shared_ptr<IOTAComponent> component) {
    while (component != nullptr && component->GetOrigin() == TComponentOrigin::coInherited)
        component = component->GetAncestor();
    return component != nullptr && component->GetOrigin() == TComponentOrigin::coFrame;
}

/// The components that a property of a component on the designer's form can name: the form's, those of its
/// frames ("Frame1.Name") and those of the project's other open forms ("Form1.Name").
inline void ForEachReferable(IOTAModuleServices& services, IDesigner& designer, const TAddReferable& add) {
    const auto root = designer.GetRoot();
    std::vector<std::string> frames;
    AddComponentsOf(root, {}, [&](const std::string& name, IOTAComponent& component) {
        if (StandsForFrame(root->FindComponent(name))) frames.push_back(name);
        add(name, component);
    });
    for (const std::string& frame : frames)
        AddComponentsOf(root->FindComponent(frame), frame + '.', add);
    const auto project = services.GetActiveProject();
    for (int i = 0; project != nullptr && i < project->GetModuleCount(); ++i) {
        const TOTAModuleInfo info = project->GetModule(i);
        const auto module = info.FormName.empty() ? nullptr : services.FindModule(info.FileName);
        const auto form = module == nullptr ? nullptr : module->GetFormEditor();
        if (form == nullptr || form->GetRootComponent() == root) continue;
        AddComponentsOf(form->GetRootComponent(), form->GetRootComponent()->GetName() + '.', add);
    }
}

}  // namespace tml
