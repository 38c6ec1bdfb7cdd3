#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

/// The properties of a component or of an item of a collection, found by name in constant time; names without
/// regard to case.
class TPropertyBag {
  public:
    /// Works on the properties of the caller, which outlive it and are changed through it alone.
    explicit TPropertyBag(std::vector<TFormProperty>& properties) : properties_(properties) {}

    /// nullptr for one that is not held.
    const TFormValue* Find(std::string_view name) const;
    /// A new one stands behind the others of its object.
    void Set(const std::string& name, TFormValue value);
    void Remove(std::string_view name);
    /// An item of a collection by what stands in "[...]" of a key; nullptr where there is none.
    TPropertyBag* Item(std::string_view collection, std::string_view item);

  private:
    struct TCollection {
        std::unordered_map<std::string, std::size_t> Names;  ///< upper-cased
        std::vector<std::unique_ptr<TPropertyBag>> Items;
    };
    TCollection& CollectionOf(std::string_view name);
    std::size_t IndexOf(std::string_view name) const;

    std::vector<TFormProperty>& properties_;
    mutable std::unordered_map<std::string, std::size_t> index_;  ///< upper-cased; empty until asked for
    std::unordered_map<std::string, TCollection> collections_;    ///< upper-cased, those asked for
};

}  // namespace tml
