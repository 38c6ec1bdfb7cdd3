#include "forms/Formvalue.h"

#include <utility>

namespace tml {

namespace {

TFormValue Scalar(TFormValueKind kind, std::string text) {
    TFormValue value;
    value.Kind = kind;
    value.Text = std::move(text);
    return value;
}

}  // namespace

TFormValue TFormValue::Integer(std::int64_t number) {
    return Scalar(TFormValueKind::Integer, std::to_string(number));
}

TFormValue TFormValue::String(std::string text) {
    return Scalar(TFormValueKind::String, std::move(text));
}

TFormValue TFormValue::Identifier(std::string name) {
    return Scalar(TFormValueKind::Identifier, std::move(name));
}

TFormValue TFormValue::Boolean(bool value) {
    return Identifier(value ? "True" : "False");
}

TFormValue TFormValue::Strings(const TStringList& list) {
    TFormValue value = Scalar(TFormValueKind::List, {});
    for (const std::string& item : list)
        value.Items.push_back(String(item));
    return value;
}

// Written out: clang 14 breaks down over a default comparison of a type that holds itself.
bool TFormValue::operator==(const TFormValue& other) const {
    return Kind == other.Kind && Text == other.Text && Items == other.Items && Collection == other.Collection;
}

}  // namespace tml
