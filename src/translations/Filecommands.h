#pragma once

#include <string>

#include "core/Context.h"

namespace tml {

/// The files that the dialogs of these commands named last.
struct TFilesMemory {
    std::string Saved;
    std::string Opened;
};

// The commands "Save/&Load Translation" of the main window. A command's tag says which rows of the list in
// front it works on.

inline constexpr int kSelectedForms = 111;
inline constexpr int kMergeSelectedForms = 112;
inline constexpr int kMergeProject = 113;
inline constexpr int kProject = -1;

/// kSelectedForms or kProject.
void sbSaveAllClick(TContext& context, TFilesMemory& memory, int tag);
/// Loads, or merges.
void sbLoadAllClick(TContext& context, TFilesMemory& memory, int tag);
/// kSelectedForms or kProject.
void LoadLanguageforForms1Click(TContext& context, TFilesMemory& memory, int tag);

// Chosen properties of project forms, whichever list is in front: of the selected ones, or of all.

void Savepropertiestofile1Click(TContext& context, TFilesMemory& memory);
void Savepropertiestofileforallforms1Click(TContext& context, TFilesMemory& memory);

}  // namespace tml
