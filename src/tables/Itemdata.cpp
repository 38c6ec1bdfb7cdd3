// The layouts, all little endian:
//   list view, LCL:   size, count; items: image, state, overlay, number of sub-items; caption, sub-items;
//   then an
//                     image a sub-item. Texts: 32-bit length and bytes.
//   list view, old:   the same with 32 bits of data in each item and texts with an 8-bit length.
//   list view, new:   version (a byte), size, count; items as before with a group; texts with an 8-bit length
//   in
//                     units of UTF-16. Versions differ in data of items and sub-items.
//   tree, LCL:        -7, version (16 bits), count; nodes: image, selected, state, overlay, number of
//   children,
//                     height, a byte; text, children.
//   tree, old:        count; nodes: size; image, selected, state, overlay, data, number of children; text.
//   tree, new:        version (a byte), count; nodes: size; as before and more; text in UTF-16.
// A layout is taken only where it leads exactly to the end of the bytes.
#include "tables/Itemdata.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::size_t kNoSize = static_cast<std::size_t>(-1);
constexpr int kDeepestNode = 500;
constexpr std::int32_t kLclTree = -7;

struct EUnreadable {};

std::uint32_t NumberAt(std::string_view bytes, std::size_t pos) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[pos + i])) << (8 * i);
    return number;
}

std::string Number32(std::uint32_t number) {
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
    return bytes;
}

std::string FromWide(std::string_view wide) {
    std::string text;
    for (std::size_t i = 0; i + 1 < wide.size(); i += 2) {
        const auto unit = [&](std::size_t at) {
            return static_cast<char32_t>(static_cast<unsigned char>(wide[at]) |
                                         static_cast<unsigned char>(wide[at + 1]) << 8);
        };
        char32_t code = unit(i);
        const bool isPair =
            (code & 0xFC00) == 0xD800 && i + 3 < wide.size() && (unit(i + 2) & 0xFC00) == 0xDC00;
        if (isPair) {
            code = 0x10000 + ((code - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
            i += 2;
        }
        if ((code & 0xFFFFF800) == 0xD800) throw EUnreadable();
        AppendCodePoint(text, code);
    }
    return text;
}

std::string ToWide(const std::string& text) {
    std::string wide;
    const auto add = [&](char32_t unit) {
        wide += static_cast<char>(unit & 0xFF);
        wide += static_cast<char>(unit >> 8);
    };
    for (std::size_t pos = 0; pos < text.size();) {
        const char32_t code = DecodeCodePoint(text, pos);
        if (code < 0x10000) {
            add(code);
        } else {
            add(0xD800 + ((code - 0x10000) >> 10));
            add(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    return wide;
}

std::string Bracketed(std::size_t index) {
    return '[' + std::to_string(index) + ']';
}

/// The bytes in front of a node's text in the new layout; the number of children is the last 32-bit one.
constexpr std::array<std::size_t, 6> kWideNodeHeads = {28, 29, 32, 33, 36, 37};

}  // namespace

class TItemReader {
  public:
    /// What differs between the layouts of a list view.
    struct TListLayout {
        std::size_t SizeField;  ///< offset of the size, with the count behind it
        std::size_t ItemHead;   ///< the bytes of an item in front of its texts
        TItemData::TCoding Coding;
        std::size_t DataOfSubItem;  ///< bytes behind its text
    };
    static constexpr TListLayout kLclList = {0, 16, TItemData::TCoding::Bytes32, 0};
    static constexpr TListLayout kOldList = {0, 20, TItemData::TCoding::Bytes8, 0};
    static constexpr auto kWide = TItemData::TCoding::Wide8;
    static constexpr TListLayout kWideLists[] = {{1, 24, kWide, 4}, {1, 24, kWide, 0}, {1, 20, kWide, 0},
                                                 {1, 28, kWide, 8}, {1, 28, kWide, 0}, {1, 20, kWide, 4}};

    TItemReader(TItemData& data, std::string_view bytes) : data_(data), bytes_(bytes) {}

    void List(const TListLayout& layout) {
        Skip(layout.SizeField + 4);
        const std::size_t count = Number();
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t subItems = SubItemsBehind(layout.ItemHead);
            Text(Bracketed(i) + ".Caption", layout.SizeField, layout.Coding);
            for (std::size_t j = 0; j < subItems; ++j) {
                Text(Bracketed(i) + ".SubItems" + Bracketed(j), layout.SizeField, layout.Coding);
                Skip(layout.DataOfSubItem);
            }
        }
        End(images_);
    }

    void LclTree() {
        if (static_cast<std::int32_t>(Number()) != kLclTree) throw EUnreadable();
        if (Take(2) != std::string_view("\x02\0", 2)) throw EUnreadable();
        Nodes(Number(), {}, 0, [&](const std::string& place) {
            const std::size_t children = NumberAt(Take(25), 16);
            Text(place + ".Text", kNoSize, TItemData::TCoding::Bytes32);
            return children;
        });
        End(0);
    }

    void OldTree() {
        Nodes(Number(), {}, 0, [&](const std::string& place) { return SizedNode(place, 24, false); });
        End(0);
    }

    void WideTree(std::size_t head) {
        Skip(1);
        Nodes(Number(), {}, 0, [&](const std::string& place) { return SizedNode(place, head, true); });
        End(0);
    }

  private:
    std::string_view Take(std::size_t count) {
        if (bytes_.size() - pos_ < count) throw EUnreadable();
        pos_ += count;
        return bytes_.substr(pos_ - count, count);
    }
    void Skip(std::size_t count) { Take(count); }
    std::size_t Number() { return NumberAt(Take(4), 0); }

    /// The number stands fourth in what an item has in front of its texts.
    std::size_t SubItemsBehind(std::size_t head) {
        const std::size_t count = NumberAt(Take(head), 12);
        images_ += count;
        return count;
    }

    void Text(std::string place, std::size_t sizeField, TItemData::TCoding coding) {
        const std::size_t begin = pos_;
        std::size_t length =
            coding == TItemData::TCoding::Bytes32 ? Number() : static_cast<unsigned char>(Take(1).front());
        if (coding == TItemData::TCoding::Wide8) length *= 2;
        const std::string_view stored = Take(length);
        std::string text = coding == TItemData::TCoding::Wide8 ? FromWide(stored) : std::string(stored);
        if (!IsValidUtf8(text)) throw EUnreadable();
        data_.texts_.push_back({std::move(place), std::move(text)});
        data_.fields_.push_back({begin, pos_, sizeField, coding});
        data_.coded_.emplace_back(bytes_.substr(begin, pos_ - begin));
    }

    template <typename Node>
    void Nodes(std::size_t count, const std::string& parent, int depth, const Node& node) {
        if (depth > kDeepestNode) throw EUnreadable();
        for (std::size_t i = 0; i < count; ++i) {
            const std::string place = parent + Bracketed(i);
            Nodes(node(place), place, depth + 1, node);
        }
    }

    std::size_t SizedNode(const std::string& place, std::size_t head, bool isWide) {
        const std::size_t sizeField = pos_;
        const std::size_t size = Number();
        const std::size_t children = NumberAt(Take(head), head - head % 4 - 4);
        Text(place + ".Text", sizeField, isWide ? TItemData::TCoding::Wide8 : TItemData::TCoding::Bytes8);
        if (pos_ - sizeField - 4 != size) throw EUnreadable();
        return children;
    }

    /// Behind the items of a list view an image a sub-item may stand, of 16 or 32 bits.
    void End(std::size_t images) const {
        const std::size_t rest = bytes_.size() - pos_;
        if (rest != 0 && rest != 2 * images && rest != 4 * images) throw EUnreadable();
    }

    TItemData& data_;
    std::string_view bytes_;
    std::size_t pos_ = 0;
    std::size_t images_ = 0;
};

namespace {

template <typename Layout>
std::optional<TItemData> Try(TItemData data, std::string_view bytes, Layout layout) {
    try {
        TItemReader reader(data, bytes);
        layout(reader);
        return data;
    } catch (const EUnreadable&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<TItemData> TItemData::Read(std::string_view property, std::string_view bytes) {
    TItemData empty;
    empty.bytes_ = bytes;
    const auto as = [&](auto layout) { return Try(empty, bytes, layout); };
    std::optional<TItemData> data;
    if (SameText(property, "Items.LazData"))
        return as([](TItemReader& reader) { reader.List(TItemReader::kLclList); });
    if (SameText(property, "Items.Data")) {
        if (!data) data = as([](TItemReader& reader) { reader.LclTree(); });
        if (!data) data = as([](TItemReader& reader) { reader.OldTree(); });
        if (!data) data = as([](TItemReader& reader) { reader.List(TItemReader::kOldList); });
    }
    if (SameText(property, "Items.ItemData"))
        for (const auto& layout : TItemReader::kWideLists)
            if (!data) data = as([&](TItemReader& reader) { reader.List(layout); });
    if (SameText(property, "Items.NodeData"))
        for (const std::size_t head : kWideNodeHeads)
            if (!data) data = as([&](TItemReader& reader) { reader.WideTree(head); });
    return data;
}

bool TItemData::SetText(std::size_t index, const std::string& text) {
    const std::string stored = fields_[index].Coding == TCoding::Wide8 ? ToWide(text) : text;
    const std::size_t length = fields_[index].Coding == TCoding::Wide8 ? stored.size() / 2 : stored.size();
    if (fields_[index].Coding == TCoding::Bytes32)
        coded_[index] = Number32(static_cast<std::uint32_t>(length)) + stored;
    else if (length > 255)
        return false;
    else
        coded_[index] = static_cast<char>(length) + stored;
    texts_[index].Text = text;
    return true;
}

std::string TItemData::Bytes() const {
    std::string bytes = bytes_;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const TField& field = fields_[i];
        if (field.SizeField == kNoSize) continue;
        const auto growth = static_cast<std::uint32_t>(coded_[i].size() - (field.End - field.Begin));
        bytes.replace(field.SizeField, 4, Number32(NumberAt(bytes, field.SizeField) + growth));
    }
    std::string changed;
    std::size_t done = 0;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        changed.append(bytes, done, fields_[i].Begin - done).append(coded_[i]);
        done = fields_[i].End;
    }
    return changed.append(bytes, done);
}

bool HoldsItems(const TFormProperty& property) {
    constexpr std::string_view kItems = "Items.";
    return property.Value.Kind == TFormValueKind::Binary && property.Name.size() > kItems.size() &&
           SameText(std::string_view(property.Name).substr(0, kItems.size()), kItems);
}

std::optional<TItemData> ReadItemData(const TFormProperty& property) {
    return HoldsItems(property) ? TItemData::Read(property.Name, property.Value.Text) : std::nullopt;
}

}  // namespace tml
