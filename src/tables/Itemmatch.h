#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// A key of a table and its text, for finding items of collections again.
struct TKeyedText {
    std::string Key;
    std::string_view Text;
    bool Tells = true;  ///< the text helps to recognise its item; a font does not
};

/// For each key of the former texts the one that it has in the present form, where items of collections were
/// inserted, moved or removed: an item is the one of the same Name, else the one with the same texts (the
/// first of equal ones first), else one that shares a text, else the one at its index. "" for a key whose
/// item is gone. A key without items stays as it is. Keys are compared without case.
std::vector<std::string> MatchItems(const std::vector<TKeyedText>& former,
                                    const std::vector<TKeyedText>& present);

}  // namespace tml
