#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

/// The items of a list view or the nodes of a tree as a form holds them, in binary; only their texts are
/// understood, the rest stays as it is.
class TItemData {
  public:
    struct TText {
        std::string Place;  ///< behind "Items" in a key: "[0].Caption", "[0].SubItems[1]", "[0][2].Text"
        std::string Text;   ///< UTF-8
    };

    /// Reads the bytes of a property "Items.LazData" (list view, LCL), "Items.Data" (list view of VCL's old
    /// layout, tree of either framework), "Items.ItemData" (list view) or "Items.NodeData" (tree) of a
    /// component; none for another property and for bytes that cannot be read to their end.
    static std::optional<TItemData> Read(std::string_view property, std::string_view bytes);

    const std::vector<TText>& Texts() const { return texts_; }
    /// Gives the text at an index (as in Texts) another value; false where the layout cannot hold it.
    bool SetText(std::size_t index, const std::string& text);
    std::string Bytes() const;

  private:
    friend class TItemReader;
    /// How a text is stored: a length, then so many bytes or units of UTF-16.
    enum class TCoding { Bytes8, Bytes32, Wide8 };
    struct TField {
        std::size_t Begin;  ///< of the length
        std::size_t End;
        std::size_t SizeField;  ///< offset of a 32-bit size that counts the text
        TCoding Coding;
    };

    std::string bytes_;
    std::vector<TText> texts_;
    std::vector<TField> fields_;
    std::vector<std::string> coded_;  ///< length and text of each field
};

/// True for a binary property of the object "Items".
bool HoldsItems(const TFormProperty& property);
/// The items of such a property; none where they cannot be read.
std::optional<TItemData> ReadItemData(const TFormProperty& property);

}  // namespace tml
