#pragma once

#include <string>

#include "platform/Registry.h"
#include "runtime/Transfilter.h"

namespace tml {

/// What the translation editor remembers from one opening to the next.
struct TTransEditorMemory {
    std::string Form = {};   ///< of the current text
    std::string Table = {};  ///< its property
    std::string Key = {};
    std::string Language = {};  ///< of the current column, "" for that of the keys
    TTransFilter Filter = {};
    std::string NodeForm = {};   ///< of the node, "" for all forms
    std::string NodeTable = {};  ///< "" for all tables
};

/// What the user's settings hold of it; what they do not hold stays.
void ReadTransEditorMemory(IRegistry& registry, TTransEditorMemory& memory);
/// Stores what is not stored so yet.
void WriteTransEditorMemory(IRegistry& registry, const TTransEditorMemory& memory);

}  // namespace tml
