#include "tables/Propertytexts.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "base/Utf8.h"
#include "tables/Fontvalue.h"

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

/// The object and the property of "Title.Font.Height"; no object for a property that is no font's.
struct TFontPart {
    std::string_view Font;
    std::string_view Part;
};

TFontPart FontPartOf(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const std::string_view object = dot == std::string_view::npos ? std::string_view() : path.substr(0, dot);
    if (!object.ends_with("Font")) return {{}, path};
    return {object, path.substr(dot + 1)};
}

class TWalk {
  public:
    explicit TWalk(std::vector<TPropertyText>& texts) : texts_(texts) {}

    // A form may nest its collections as deep as its reader lets it.
    void Properties(const std::vector<TFormProperty>& properties, const std::string& prefix) {
        TFont font;
        for (const TFormProperty& property : properties)
            if (!TakeFont(prefix, property, font) && MayHoldTexts(property.Value.Kind))
                Value(property.Value, prefix + property.Name);
    }

  private:
    /// The font whose parts, which stand together, are being read.
    struct TFont {
        std::string Path;
        TFontValue Value;
        std::size_t Index = 0;
    };

    bool TakeFont(const std::string& prefix, const TFormProperty& property, TFont& font) {
        const auto [object, part] = FontPartOf(property.Name);
        if (object.empty()) return false;
        std::string path = prefix + std::string(object);
        if (SameText(part, "Charset")) {
            texts_.push_back({path + '.' + std::string(part), property.Value.Text, TTextShape::CharSet});
            return true;
        }
        if (font.Path != path) font = {path, {}, texts_.size()};
        if (!font.Value.Take(part, property.Value)) return false;
        if (font.Index == texts_.size()) texts_.push_back({std::move(path), {}, TTextShape::Font});
        texts_[font.Index].Text = font.Value.Text();
        return true;
    }

    void Value(const TFormValue& value, std::string path) {
        if (value.Kind == TFormValueKind::String) return texts_.push_back({std::move(path), value.Text});
        if (value.Kind == TFormValueKind::List) return List(value, std::move(path));
        if (value.Kind == TFormValueKind::Collection) Collection(value, path);
    }

    void List(const TFormValue& value, std::string path) {
        const std::size_t size = WithoutStrings(path).size();
        if (size == path.size()) return;
        path.resize(size);
        if (auto lines = LinesOf(value))
            texts_.push_back({std::move(path), std::move(*lines), TTextShape::List});
    }

    void Collection(const TFormValue& value, const std::string& path) {
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

std::string WithoutIndexes(std::string_view path) {
    if (path.find('[') == std::string_view::npos) return std::string(path);
    std::string plain;
    for (bool isInside = false; const char c : path) {
        if (c == '[') isInside = true;
        if (!isInside) plain += c;
        if (c == ']') isInside = false;
    }
    return plain;
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

void ReadTextsOfProperties(const std::vector<TFormProperty>& properties, std::vector<TPropertyText>& texts) {
    texts.clear();
    TWalk(texts).Properties(properties, {});
}

std::vector<TPropertyText> TextsOfProperties(const std::vector<TFormProperty>& properties) {
    std::vector<TPropertyText> texts;
    ReadTextsOfProperties(properties, texts);
    return texts;
}

}  // namespace tml
