#pragma once

#include <string>

#include "core/Context.h"

namespace tml {

/// The files that the dialogs of these commands named last.
struct TFilesMemory {
    std::string Saved;
    std::string Opened;
};

// The commands "Save/&Load Translation" of the main window, on the selected rows of the list in front or on
// all of them.

void SaveSelectedForms(TContext& context, TFilesMemory& memory);
void LoadSelectedForms(TContext& context, TFilesMemory& memory);
void MergeSelectedForms(TContext& context, TFilesMemory& memory);
void LoadLanguageForForms(TContext& context, TFilesMemory& memory);
void SaveProject(TContext& context, TFilesMemory& memory);
void LoadProject(TContext& context, TFilesMemory& memory);
void MergeProject(TContext& context, TFilesMemory& memory);
void LoadLanguageForProject(TContext& context, TFilesMemory& memory);

// Chosen properties of project forms, whichever list is in front.

void SaveSelectedProperties(TContext& context, TFilesMemory& memory);
void SaveProjectProperties(TContext& context, TFilesMemory& memory);

}  // namespace tml
