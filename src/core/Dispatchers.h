#pragma once

#include <memory>
#include <string>

#include "platform/Mlruntime.h"

namespace tml {

/// The first dispatcher that the form has of its own; nullptr for none.
std::shared_ptr<TmlLangDispatcher> FindOwnDispatcher(IMlRuntime& runtime, IOTAFormEditor& editor);

/// The languages that hold for a component, which has to outlive them: those of its dispatcher where it is
/// linked to one.
std::shared_ptr<ILanguages> LanguagesInForce(TmlCustomLang& lang);

/// A dispatcher and the form that brings it, which is an ancestor of a form that inherits it.
struct TDispatcherPlace {
    std::string Form;
    std::string Name;

    bool operator==(const TDispatcherPlace&) const = default;
};
TDispatcherPlace PlaceOfDispatcher(TmlLangDispatcher& dispatcher);

}  // namespace tml
