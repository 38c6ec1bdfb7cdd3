#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Stringlist.h"

namespace tml {

/// What a property of a form holds, free of how a file writes it.
enum class TFormValueKind : std::uint8_t {
    Integer,
    Float,
    String,
    Identifier,
    Set,
    List,
    Collection,
    Binary
};

/// False for numbers, names and sets.
constexpr bool MayHoldTexts(TFormValueKind kind) {
    return kind == TFormValueKind::String || kind == TFormValueKind::List ||
           kind == TFormValueKind::Collection || kind == TFormValueKind::Binary;
}

struct TFormProperty;

struct TFormValue {
    TFormValueKind Kind = TFormValueKind::Identifier;
    /// Integer, Float: decimal text; String: UTF-8; Identifier: as written (True, False, nil and dotted
    /// names included); Binary: the raw bytes.
    std::string Text;
    /// List: the values; Set: the identifiers.
    std::vector<TFormValue> Items;
    /// Collection: the properties of each item.
    std::vector<std::vector<TFormProperty>> Collection;

    static TFormValue Integer(std::int64_t number);
    static TFormValue String(std::string text);
    static TFormValue Identifier(std::string name);
    static TFormValue Boolean(bool value);
    /// A list of strings, as a string list property ("Captions.Strings") is stored.
    static TFormValue Strings(const TStringList& list);

    bool operator==(const TFormValue&) const;
};

struct TFormProperty {
    std::string Name;
    TFormValue Value;

    bool operator==(const TFormProperty&) const = default;
};

}  // namespace tml
