#pragma once

#include <utility>
#include <vector>

#include "forms/Formfile.h"
#include "forms/Formsink.h"
#include "forms/Formvalue.h"

namespace tml {

/// The value that stands at a place of a file.
TFormValue ReadValue(const TFormFile& file, TFormSpan place);
/// The same into a new value.
void ReadValue(const TFormFile& file, TFormSpan place, TFormValue& value);

/// Where the parts of a value stand; has the shape of the value.
struct TFormValuePlace {
    TFormSpan Span;
    /// Of a list: its values.
    std::vector<TFormValuePlace> Items;
    /// Of a collection: its items, each with the values of its properties.
    struct TItem {
        TFormSpan Span;
        std::vector<TFormValuePlace> Properties;
    };
    std::vector<TItem> Collection;
};

/// The same, and where its parts stand.
std::pair<TFormValue, TFormValuePlace> LocateValue(const TFormFile& file, TFormSpan place);

/// Gives a value of the model to a writer for the file; throws EBadInput for one that no form can hold.
void EmitValue(const TFormValue& value, const TFormFile& file, TFormSink& sink);
/// Likewise an item of a collection.
void EmitItem(const std::vector<TFormProperty>& item, const TFormFile& file, TFormSink& sink);

/// A property's name in the file's encoding; throws EBadInput for one that no form can hold. Unlike other
/// names it may hold what needs quotes.
std::string CheckedPropertyName(const std::string& name, const TFormFile& file);

/// Likewise the name of a component or class.
std::string CheckedName(const std::string& name, const TFormFile& file);

}  // namespace tml
