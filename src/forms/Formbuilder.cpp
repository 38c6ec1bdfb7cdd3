#include "forms/Formbuilder.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/Errors.h"
#include "forms/Formchars.h"
#include "forms/Formfloat.h"
#include "forms/Formplain.h"
#include "forms/Formstrings.h"

namespace tml {

namespace {

constexpr std::size_t kMaxName = 255;

/// Builds one value; containers that are not closed yet stand on a stack.
class TValueBuilder : public TFormSink {
  public:
    explicit TValueBuilder(const TFormFile& file) : file_(file) {}
    TFormValue Take() { return std::move(root_); }

    void Property(std::string_view name) override {
        open_.back()->Collection.back().push_back({DecodeFrom(file_, name), {}});
    }

    void Integer(std::int64_t number, std::string_view text) override {
        // An unsigned 64-bit number comes with its bits in a negative one.
        const bool isUnsigned = number < 0 && !text.empty() && text.front() != '-';
        Put(TFormValueKind::Integer, isUnsigned ? std::string(text) : std::to_string(number));
    }
    void Float(const TFormFloat& value) override { Put(TFormValueKind::Float, ShortFloatText(value)); }
    void String(const TFormString& value) override { Put(TFormValueKind::String, ToUtf8(value, file_)); }
    void Identifier(std::string_view name) override {
        Put(TFormValueKind::Identifier, DecodeFrom(file_, name));
    }
    void Binary(std::string_view bytes) override { Put(TFormValueKind::Binary, std::string(bytes)); }
    void Set(const std::vector<std::string_view>& names) override {
        TFormValue& set = Put(TFormValueKind::Set, {});
        for (const std::string_view name : names) {
            set.Items.push_back(TFormValue::Identifier(DecodeFrom(file_, name)));
        }
    }
    void BeginList() override { open_.push_back(&Put(TFormValueKind::List, {})); }
    void EndList() override { open_.pop_back(); }
    void BeginCollection() override { open_.push_back(&Put(TFormValueKind::Collection, {})); }
    // The model has no place for an item's position; the file keeps it.
    void BeginItem(std::optional<int> /*position*/) override { open_.back()->Collection.emplace_back(); }
    void EndCollection() override { open_.pop_back(); }

  private:
    TFormValue& Place() {
        if (open_.empty()) return root_;
        TFormValue& container = *open_.back();
        if (container.Kind == TFormValueKind::List) return container.Items.emplace_back();
        return container.Collection.back().back().Value;
    }
    TFormValue& Put(TFormValueKind kind, std::string text) {
        TFormValue& value = Place();
        value.Kind = kind;
        value.Text = std::move(text);
        return value;
    }

    const TFormFile& file_;
    TFormValue root_;
    std::vector<TFormValue*> open_;
};

class TPlaceBuilder : public IFormPlaces {
  public:
    TFormValuePlace Take() { return std::move(root_); }

    void BeginValue(std::size_t offset) override {
        TFormValuePlace* place = &root_;
        if (!open_.empty()) {
            TFormValuePlace& parent = *open_.back().Value;
            place = open_.back().InItem ? &parent.Collection.back().Properties.emplace_back()
                                        : &parent.Items.emplace_back();
        }
        place->Span.Begin = static_cast<std::uint32_t>(offset);
        open_.push_back({place, false});
    }
    void EndValue(std::size_t offset) override {
        open_.back().Value->Span.End = static_cast<std::uint32_t>(offset);
        open_.pop_back();
    }
    void BeginItem(std::size_t offset) override {
        open_.back().InItem = true;
        open_.back().Value->Collection.emplace_back().Span.Begin = static_cast<std::uint32_t>(offset);
    }
    void EndItem(std::size_t offset) override {
        open_.back().InItem = false;
        open_.back().Value->Collection.back().Span.End = static_cast<std::uint32_t>(offset);
    }

  private:
    struct TOpen {
        TFormValuePlace* Value;
        bool InItem;
    };

    TFormValuePlace root_;
    std::vector<TOpen> open_;
};

void EmitInteger(const std::string& text, const TFormFile& file, TFormSink& sink) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (result.ec == std::errc::result_out_of_range) {
        std::uint64_t bits = 0;
        result = std::from_chars(text.data(), end, bits);
        number = static_cast<std::int64_t>(bits);
    }
    if (result.ec != std::errc{} || result.ptr != end) {
        throw EBadInput(file.FileName(), 0, "'" + text + "' is no whole number of 64 bits");
    }
    sink.Integer(number, text);
}

void EmitFloat(const std::string& text, const TFormFile& file, TFormSink& sink) {
    long double number = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    const bool isSpecial = text.find_first_of("0123456789") == text.npos;
    if (text.empty() || isSpecial || result.ptr != end) {
        throw EBadInput(file.FileName(), 0, "'" + text + "' is no decimal number");
    }
    sink.Float({TFormFloatKind::Extended, text, {}});
}

void EmitSet(const TFormValue& value, const TFormFile& file, TFormSink& sink) {
    std::vector<std::string> names;
    for (const TFormValue& item : value.Items)
        names.push_back(CheckedName(item.Text, file));
    sink.Set({names.begin(), names.end()});
}

void EmitList(const TFormValue& value, const TFormFile& file, TFormSink& sink) {
    sink.BeginList();
    for (const TFormValue& item : value.Items) {
        sink.ListItem();
        EmitValue(item, file, sink);
    }
    sink.EndList();
}

void EmitCollection(const TFormValue& value, const TFormFile& file, TFormSink& sink) {
    sink.BeginCollection();
    for (const std::vector<TFormProperty>& item : value.Collection)
        EmitItem(item, file, sink);
    sink.EndCollection();
}

}  // namespace

std::string CheckedName(const std::string& name, const TFormFile& file) {
    if (IsFormName(name) && name.size() <= kMaxName) return EncodeFor(file, name);
    throw EBadInput(file.FileName(), 0, "'" + name + "' is no name that a form can hold",
                    "A name has letters, digits and '_' only, at most 255");
}

std::string CheckedPropertyName(const std::string& name, const TFormFile& file) {
    const bool isHarmless = std::all_of(
        name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '\''; });
    if (!name.empty() && name.size() <= kMaxName && isHarmless) return EncodeFor(file, name);
    throw EBadInput(file.FileName(), 0, "'" + name + "' is no name that a property can have");
}

void ReadValue(const TFormFile& file, TFormSpan place, TFormValue& value) {
    if (!file.IsBinary() && ReadPlain(file.At(place), value)) return;
    TValueBuilder builder(file);
    file.Read(place, builder);
    value = builder.Take();
}

TFormValue ReadValue(const TFormFile& file, TFormSpan place) {
    TFormValue value;
    ReadValue(file, place, value);
    return value;
}

std::pair<TFormValue, TFormValuePlace> LocateValue(const TFormFile& file, TFormSpan place) {
    TValueBuilder value(file);
    TPlaceBuilder places;
    file.Read(place, value, &places);
    return {value.Take(), places.Take()};
}

void EmitItem(const std::vector<TFormProperty>& item, const TFormFile& file, TFormSink& sink) {
    sink.BeginItem(std::nullopt);
    for (const TFormProperty& property : item) {
        sink.Property(CheckedPropertyName(property.Name, file));
        EmitValue(property.Value, file, sink);
    }
    sink.EndItem();
}

void EmitValue(const TFormValue& value, const TFormFile& file, TFormSink& sink) {
    switch (value.Kind) {
        case TFormValueKind::Integer:
            return EmitInteger(value.Text, file, sink);
        case TFormValueKind::Float:
            return EmitFloat(value.Text, file, sink);
        case TFormValueKind::String:
            return sink.String({TFormStringKind::Utf8, value.Text});
        case TFormValueKind::Identifier:
            return sink.Identifier(CheckedName(value.Text, file));
        case TFormValueKind::Binary:
            return sink.Binary(value.Text);
        case TFormValueKind::Set:
            return EmitSet(value, file, sink);
        case TFormValueKind::List:
            return EmitList(value, file, sink);
        case TFormValueKind::Collection:
            return EmitCollection(value, file, sink);
    }
}

}  // namespace tml
