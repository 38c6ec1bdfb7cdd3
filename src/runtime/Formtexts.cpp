#include "runtime/Formtexts.h"

#include "base/Utf8.h"

namespace tml {

TFormTexts::TFormTexts(const std::shared_ptr<IOTAComponent>& owner) {
    components_.emplace("", owner);
    AddOwnedBy(*owner, "");
}

void TFormTexts::AddOwnedBy(IOTAComponent& owner, const std::string& path) {
    for (int i = 0; i < owner.GetComponentCount(); ++i) {
        const auto component = owner.GetComponent(i);
        if (component->GetName().empty()) continue;
        const std::string place = path + UpperCase(component->GetName());
        components_.emplace(place, component);
        AddOwnedBy(*component, place + ".");
    }
}

void TFormTexts::Replace(const std::string& key, const std::string& from, const std::string& to) const {
    if (from == to) return;
    // As many names as there are components; the rest is the property's path.
    for (std::size_t dot = key.rfind('.'); dot != std::string::npos; dot = key.rfind('.', dot - 1)) {
        const auto found = components_.find(UpperCase(key.substr(0, dot)));
        if (found != components_.end()) {
            const std::string property = key.substr(dot + 1);
            const auto value = found->second->GetPropValue(property);
            const bool isText = value && value->Kind == TFormValueKind::String && value->Text == from;
            if (isText) found->second->SetPropValue(property, TFormValue::String(to));
            return;
        }
        if (dot == 0) return;
    }
}

}  // namespace tml
