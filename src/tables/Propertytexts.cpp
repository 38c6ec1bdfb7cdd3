#include "tables/Propertytexts.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kStrings = ".Strings";

bool IsName(const std::string& name) {
    return !name.empty() && (name.front() < '0' || name.front() > '9') &&
           name.find_first_of("[].") == std::string::npos;
}

const std::string& NameOf(const std::vector<TFormProperty>& item) {
    static const std::string none;
    for (const TFormProperty& property : item)
        if (SameText(property.Name, "Name") && property.Value.Kind == TFormValueKind::String)
            return property.Value.Text;
    return none;
}

/// The lines of a list with LF between them; none for a list that is no table's.
std::optional<std::string> LinesOf(const TFormValue& list) {
    std::string text;
    bool isEmpty = true;
    for (const TFormValue& line : list.Items) {
        if (line.Kind != TFormValueKind::String) return std::nullopt;
        if (line.Text.find_first_of("\r\n") != std::string::npos) return std::nullopt;
        if (&line != &list.Items.front()) text += '\n';
        text += line.Text;
        isEmpty = isEmpty && line.Text.empty();
    }
    return isEmpty ? std::nullopt : std::optional(text);
}

class TWalk {
  public:
    explicit TWalk(std::vector<TPropertyText>& texts) : texts_(texts) {}

    // A form may nest its collections as deep as its reader lets it.
    void Properties(const std::vector<TFormProperty>& properties, const std::string& prefix) {
        for (const TFormProperty& property : properties)
            Value(property.Value, prefix + property.Name);
    }

  private:
    void Value(const TFormValue& value, std::string path) {
        if (value.Kind == TFormValueKind::String) texts_.push_back({std::move(path), value.Text});
        if (value.Kind == TFormValueKind::List && WithoutStrings(path).size() < path.size()) {
            auto lines = LinesOf(value);
            path.resize(WithoutStrings(path).size());
            if (lines) texts_.push_back({std::move(path), std::move(*lines), true});
        }
        if (value.Kind != TFormValueKind::Collection) return;
        const std::vector<std::string> names = ItemNames(value.Collection);
        for (std::size_t i = 0; i < names.size(); ++i)
            Properties(value.Collection[i], path + '[' + names[i] + "].");
    }

    std::vector<TPropertyText>& texts_;
};

}  // namespace

std::string_view WithoutStrings(std::string_view path) {
    const bool isList =
        path.size() > kStrings.size() && SameText(path.substr(path.size() - kStrings.size()), kStrings);
    return isList ? path.substr(0, path.size() - kStrings.size()) : path;
}

std::vector<std::string> ItemNames(const std::vector<std::vector<TFormProperty>>& collection) {
    std::vector<std::string> names;
    std::unordered_set<std::string> met;
    for (std::size_t i = 0; i < collection.size(); ++i) {
        const std::string& name = NameOf(collection[i]);
        const bool isFirst = IsName(name) && met.insert(UpperCase(name)).second;
        names.push_back(isFirst ? name : std::to_string(i));
    }
    return names;
}

std::vector<TPropertyText> TextsOfProperties(const std::vector<TFormProperty>& properties) {
    std::vector<TPropertyText> texts;
    TWalk(texts).Properties(properties, {});
    return texts;
}

}  // namespace tml
