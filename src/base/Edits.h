#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// Replaces the bytes [Begin, End) of a text by Text; offsets are 0-based and those of the old text.
struct TEdit {
    std::size_t Begin = 0;
    std::size_t End = 0;
    std::string Text;

    bool operator==(const TEdit&) const = default;
};

/// Edits of one text, ascending and without overlap (several insertions at one place keep their order).
using TEdits = std::vector<TEdit>;

/// True when the edits are in order and lie within a text of the given size.
bool AreValid(const TEdits& edits, std::size_t textSize);

/// The text with all edits made. Throws std::logic_error when they are not valid for it.
std::string ApplyEdits(std::string_view text, const TEdits& edits);

/// Edits of a text as edits of what others have already made of it; at a place of both they come behind what
/// is done. None where they change what the others have changed.
std::optional<TEdits> MovedOver(TEdits edits, const TEdits& done);

/// The edits that lead back from ApplyEdits(text, edits) to text.
TEdits InverseEdits(std::string_view text, const TEdits& edits);

}  // namespace tml
