#include "ids/Idforms.h"

#include "base/Utf8.h"

namespace tml {

TIDForms::TIDForms(const TFormRows& rows) {
    for (const auto& row : rows.Items()) {
        if (!row->HasComponent()) continue;
        forms_.emplace(UpperCase(row->FormName),
                       TForm{row->FormName, row->Component.ComponentName, row->Component.Ancestor});
        if (!row->Component.Ancestor.empty())
            children_.emplace(UpperCase(row->Component.Ancestor), UpperCase(row->FormName));
        components_.insert(UpperCase(row->Component.ComponentName));
    }
}

void TIDForms::AddLink(const std::string& formName, const std::string& containerForm) {
    links_.emplace(UpperCase(containerForm), UpperCase(formName));
    askers_.clear();
}

std::string TIDForms::FormAsked(const std::string& form, const std::string& component,
                                const std::string& unitForm) const {
    const bool isOwn = form.empty() || SameText(form, "Self") || SameText(form, "this");
    const auto found = forms_.find(UpperCase(isOwn ? unitForm : form));
    const bool isKnown = found != forms_.end() && SameText(found->second.ComponentName, component);
    return isKnown ? found->second.FormName : std::string();
}

std::string TIDForms::FormAsked(const TIDCall& call, const std::string& unitForm) const {
    return call.HasOddOwner ? std::string() : FormAsked(call.Form, call.Component, unitForm);
}

std::string TIDForms::FormReferred(const std::string& reference, const std::string& formName) const {
    const std::size_t point = reference.find('.');
    if (point == std::string::npos) return FormAsked({}, reference, formName);
    return FormAsked(reference.substr(0, point), reference.substr(point + 1), {});
}

bool TIDForms::Descends(std::string formName, const std::string& from) const {
    // As many steps as forms are enough, should the ancestors run in a circle.
    for (std::size_t step = 0; step <= forms_.size() && !formName.empty(); ++step) {
        if (SameText(formName, from)) return true;
        const auto form = forms_.find(UpperCase(formName));
        formName = form == forms_.end() ? std::string() : form->second.Ancestor;
    }
    return false;
}

void TIDForms::AddKin(const std::string& formName, std::unordered_set<std::string>& kin) const {
    for (std::string name = UpperCase(formName); !name.empty() && kin.insert(name).second;) {
        const auto form = forms_.find(name);
        name = form == forms_.end() ? std::string() : UpperCase(form->second.Ancestor);
    }
    std::vector<std::string> open{UpperCase(formName)};
    while (!open.empty()) {
        const auto [first, last] = children_.equal_range(open.back());
        open.pop_back();
        for (auto child = first; child != last; ++child)
            if (kin.insert(child->second).second) open.push_back(child->second);
    }
}

const TIDForms::TAskers& TIDForms::AskersOf(const std::string& formName) const {
    const auto [place, isNew] = askers_.try_emplace(UpperCase(formName));
    TAskers& askers = place->second;
    if (!isNew) return askers;
    AddKin(formName, askers.Kin);
    askers.All = askers.Kin;
    std::vector<std::string> open(askers.Kin.begin(), askers.Kin.end());
    while (!open.empty()) {
        const auto [first, last] = links_.equal_range(open.back());
        open.pop_back();
        for (auto link = first; link != last; ++link) {
            std::unordered_set<std::string> linked;
            AddKin(link->second, linked);
            for (const std::string& form : linked)
                if (askers.All.insert(form).second) open.push_back(form);
        }
    }
    askers.All.insert("");
    return askers;
}

bool TIDForms::IsComponent(const std::string& name) const {
    return components_.contains(UpperCase(name));
}

}  // namespace tml
