#pragma once

#include "base/Edits.h"
#include "forms/Formeditor.h"

namespace tml {

/// The edits of the file's bytes that all changes below the root amount to; parts of a value that stay
/// equal keep their bytes.
TEdits FormEdits(const TFormNode& root, const IFormEditor& editor);

}  // namespace tml
