#include "forms/Formchanges.h"

#include <algorithm>

#include "base/Utf8.h"
#include "forms/Formbuilder.h"

namespace tml {

namespace {

using TItem = std::vector<TFormProperty>;

/// Which old entry each new one goes back to, -1 for none: equal ones at both ends of the list, and those
/// in between pair by pair when the number is unchanged.
template <typename Entry>
std::vector<int> Align(const std::vector<Entry>& from, const std::vector<Entry>& to) {
    const std::size_t shorter = std::min(from.size(), to.size());
    std::size_t head = 0;
    while (head < shorter && from[head] == to[head])
        ++head;
    std::size_t tail = 0;
    while (head + tail < shorter && from[from.size() - 1 - tail] == to[to.size() - 1 - tail])
        ++tail;
    std::vector<int> origin(to.size(), -1);
    for (std::size_t i = 0; i < to.size(); ++i) {
        if (i < head || from.size() == to.size()) {
            origin[i] = static_cast<int>(i);
        } else if (i >= to.size() - tail) {
            origin[i] = static_cast<int>(i + from.size() - to.size());
        }
    }
    return origin;
}

bool IsContainer(const TFormValue& value) {
    return !value.Items.empty() || !value.Collection.empty();
}

bool SameNames(const TItem& from, const TItem& to) {
    return std::equal(from.begin(), from.end(), to.begin(), to.end(),
                      [](const TFormProperty& l, const TFormProperty& r) { return l.Name == r.Name; });
}

/// Writes a new value over an old one.
class TValueRewriter {
  public:
    TValueRewriter(const TFormFile& file, const IFormEditor& editor) : file_(file), editor_(editor) {}

    std::string Rewrite(const TFormValuePlace& place, const TFormValue& from, const TFormValue& to,
                        const TFormSpot& spot) const;

  private:
    std::string RewriteList(const TFormValuePlace& place, const TFormValue& from, const TFormValue& to,
                            const TFormSpot& spot) const;
    std::string RewriteCollection(const TFormValuePlace& place, const TFormValue& from, const TFormValue& to,
                                  const TFormSpot& spot) const;
    std::string RewriteItem(const TFormValuePlace::TItem& place, const TItem& from, const TItem& to,
                            const TFormSpot& spot) const;
    std::string_view Bytes(std::size_t begin, std::size_t end) const {
        return std::string_view(file_.Bytes()).substr(begin, end - begin);
    }
    /// An entry with what separates it from the one before; the opening bracket has one byte.
    template <typename Place>
    std::string_view WithGap(const TFormValuePlace& list, const std::vector<Place>& entries, int index,
                             std::size_t end) const {
        const auto i = static_cast<std::size_t>(index);
        return Bytes(i == 0 ? list.Span.Begin + 1 : entries[i - 1].Span.End, end);
    }

    const TFormFile& file_;
    const IFormEditor& editor_;
};

std::string TValueRewriter::Rewrite(const TFormValuePlace& place, const TFormValue& from,
                                    const TFormValue& to, const TFormSpot& spot) const {
    if (from == to) return std::string(file_.At(place.Span));
    if (from.Kind == to.Kind && IsContainer(from) && IsContainer(to)) {
        if (to.Kind == TFormValueKind::List) return RewriteList(place, from, to, spot);
        if (to.Kind == TFormValueKind::Collection) return RewriteCollection(place, from, to, spot);
    }
    return editor_.Value(to, spot);
}

std::string TValueRewriter::RewriteList(const TFormValuePlace& place, const TFormValue& from,
                                        const TFormValue& to, const TFormSpot& spot) const {
    std::string result(Bytes(place.Span.Begin, place.Span.Begin + 1));
    const std::vector<int> origin = Align(from.Items, to.Items);
    for (std::size_t i = 0; i < to.Items.size(); ++i) {
        const TFormValue& item = to.Items[i];
        const TFormValue* const old =
            origin[i] < 0 ? nullptr : &from.Items[static_cast<std::size_t>(origin[i])];
        if (old == nullptr || (*old != item && !IsContainer(*old))) {
            result += editor_.ListItem(item, spot);
            continue;
        }
        const TFormValuePlace& oldPlace = place.Items[static_cast<std::size_t>(origin[i])];
        result += WithGap(place, place.Items, origin[i], oldPlace.Span.Begin);
        result += Rewrite(oldPlace, *old, item, editor_.Deeper(spot, 1));
    }
    return result.append(Bytes(place.Items.back().Span.End, place.Span.End));
}

std::string TValueRewriter::RewriteCollection(const TFormValuePlace& place, const TFormValue& from,
                                              const TFormValue& to, const TFormSpot& spot) const {
    std::string result(Bytes(place.Span.Begin, place.Span.Begin + 1));
    const std::vector<int> origin = Align(from.Collection, to.Collection);
    for (std::size_t i = 0; i < to.Collection.size(); ++i) {
        const TItem& item = to.Collection[i];
        const TItem* const old =
            origin[i] < 0 ? nullptr : &from.Collection[static_cast<std::size_t>(origin[i])];
        if (old == nullptr || !SameNames(*old, item)) {
            result += editor_.Item(item, spot);
            continue;
        }
        const TFormValuePlace::TItem& oldPlace = place.Collection[static_cast<std::size_t>(origin[i])];
        result += WithGap(place, place.Collection, origin[i], oldPlace.Span.Begin);
        result += RewriteItem(oldPlace, *old, item, editor_.Deeper(spot, 2));
    }
    return result.append(Bytes(place.Collection.back().Span.End, place.Span.End));
}

std::string TValueRewriter::RewriteItem(const TFormValuePlace::TItem& place, const TItem& from,
                                        const TItem& to, const TFormSpot& spot) const {
    std::string result;
    std::size_t copied = place.Span.Begin;
    for (std::size_t i = 0; i < to.size(); ++i) {
        if (from[i].Value == to[i].Value) continue;
        const TEdit edit = editor_.Replacement(place.Properties[i].Span);
        result += Bytes(copied, edit.Begin);
        result += edit.Text + Rewrite(place.Properties[i], from[i].Value, to[i].Value, spot);
        copied = edit.End;
    }
    return result.append(Bytes(copied, place.Span.End));
}

bool IsInFile(const TFormPropertyPlace& place) {
    return !place.Name.Empty();
}

void AddNodeEdits(const TFormNode& node, const IFormEditor& editor, TEdits& edits) {
    const TFormNodeData& data = node.Data();
    const TFormFile& file = *data.File;
    if (data.Renamed) edits.push_back(editor.Name(data));
    if (data.Reclassed) edits.push_back(editor.Class(data));
    for (auto at = data.Properties.begin(); at != data.Properties.end(); ++at) {
        const TFormPropertyPlace& place = *at;
        if (!place.Change) continue;
        if (place.Name.Empty()) {
            const auto next = std::find_if(at, data.Properties.end(), IsInFile);
            edits.push_back(
                editor.NewProperty(data, *place.Change, next == data.Properties.end() ? nullptr : &*next));
            continue;
        }
        const auto [from, parts] = LocateValue(file, place.Value);
        if (from == place.Change->Value) continue;
        TEdit edit = editor.Replacement(place.Value);
        edit.Text += TValueRewriter(file, editor)
                         .Rewrite(parts, from, place.Change->Value, editor.SpotAt(place.Name.Begin));
        edits.push_back(std::move(edit));
    }
    for (const TFormSpan span : data.Removed)
        edits.push_back(editor.Removal(span));
    for (const auto& child : data.Children) {
        if (child->Data().IsNew) {
            edits.push_back(editor.NewChild(data, *child));
        } else {
            AddNodeEdits(*child, editor, edits);
        }
    }
}

}  // namespace

TEdits FormEdits(const TFormNode& root, const IFormEditor& editor) {
    TEdits edits;
    AddNodeEdits(root, editor, edits);
    // Insertions keep their order and come before a removal at the same place.
    std::stable_sort(edits.begin(), edits.end(), [](const TEdit& left, const TEdit& right) {
        return left.Begin != right.Begin ? left.Begin < right.Begin : left.End < right.End;
    });
    editor.Finish(edits);
    return edits;
}

}  // namespace tml
