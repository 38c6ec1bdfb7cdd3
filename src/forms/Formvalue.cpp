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

bool TFormValue::operator==(const TFormValue&) const = default;

}  // namespace tml
