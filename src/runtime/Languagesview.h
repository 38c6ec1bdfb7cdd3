#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "base/Stringlist.h"
#include "platform/Mlruntime.h"
#include "runtime/Componentprops.h"
#include "tables/Languages.h"

namespace tml {

/// The languages of a component, whatever its kind. The active language is stored by its name; the first
/// one, and a name that is not (any more) among the names, is the default.
template <typename Interface>
class TLanguagesView : public Interface {
  public:
    explicit TLanguagesView(std::shared_ptr<IOTAComponent> component) : component_(std::move(component)) {}

    std::shared_ptr<IOTAComponent> GetComponent() override { return component_; }

    TStringList GetLangNames() override { return FitLangNames(StoredNames(), Count()); }
    void SetLangNames(const TStringList& names) override { WriteListProp(*component_, "LangNames", names); }

    int GetActiveLanguage() override {
        const int index = GetLangNames().IndexOf(ReadStringProp(*component_, "Language"));
        return std::max(index, 0) + 1;
    }
    std::string GetLanguage() override {
        const TStringList names = GetLangNames();
        const int active = GetActiveLanguage();
        return active > names.Count() ? std::string() : names[active - 1];
    }
    void SetLanguage(const std::string& name) override {
        const TStringList names = GetLangNames();
        const int index = names.IndexOf(name);
        if (index < 0) return;
        WriteStringProp(*component_, "Language", index == 0 ? std::string() : names[index]);
    }

  protected:
    IOTAComponent& Component() const { return *component_; }
    int Count() const { return ReadIntegerProp(*component_, "NumOfLanguages", 1); }
    /// The names of languages that are dropped go, too.
    void StoreCount(int count) {
        const TStringList names = StoredNames();
        if (names.Count() > count) SetLangNames(FitLangNames(names, count));
        WriteIntegerProp(*component_, "NumOfLanguages", count, 1);
    }

  private:
    TStringList StoredNames() const { return ReadListProp(*component_, "LangNames"); }

    std::shared_ptr<IOTAComponent> component_;
};

}  // namespace tml
