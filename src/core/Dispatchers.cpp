#include "core/Dispatchers.h"

#include "core/Modules.h"

namespace tml {

std::shared_ptr<TmlLangDispatcher> FindOwnDispatcher(IMlRuntime& runtime, IOTAFormEditor& editor) {
    const auto component = FindComponentOf(editor, [&](IOTAComponent& one) {
        return one.GetOrigin() == TComponentOrigin::coOwn &&
               runtime.InheritsFrom(one.GetComponentType(), "TmlLangDispatcher");
    });
    return component == nullptr ? nullptr : runtime.AsDispatcher(component);
}

std::shared_ptr<ILanguages> LanguagesInForce(TmlCustomLang& lang) {
    if (const auto dispatcher = lang.GetDispatcher()) return dispatcher;
    return {std::shared_ptr<void>(), &lang};
}

TDispatcherPlace PlaceOfDispatcher(TmlLangDispatcher& dispatcher) {
    auto component = dispatcher.GetComponent();
    while (const auto ancestor =
               component->GetOrigin() == TComponentOrigin::coInherited ? component->GetAncestor() : nullptr)
        component = ancestor;
    return {component->GetOwner()->GetName(), component->GetName()};
}

}  // namespace tml
