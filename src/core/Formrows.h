#pragma once

#include <string>
#include <vector>

#include "core/Closedforms.h"
#include "core/Context.h"
#include "windows/Boxes.h"

namespace tml {

/// True for a file of the unit kinds: ".pas", ".dpr", ".cpp", ".c".
bool IsSourceUnit(const std::string& fileName);

/// Adds a module of the project to the lists: its form as a row of the forms list, or its unit to the
/// units without a form. A name with a "." is no unit's and is ignored.
void AddProjectModule(TContext& context, TClosedForms& closed, const TOTAModuleInfo& module);

/// Adds the row of an external file, unless it is there: the unit's form, or the unit alone.
void AddExternalRow(TContext& context, TClosedForms& closed, const std::string& fileName);
/// Makes the rows of the external files anew.
void ListExternalFiles(TContext& context);

/// What the form of a unit holds: the open form, else its form file.
TFormAnalysis ReadForm(TContext& context, TClosedForms& closed, const std::string& unitFile);
/// Reads the rows of these units and form files again, open or not, their forms' names too. The first error
/// is thrown when all are read.
void ReadRowsAgain(TContext& context, const std::vector<std::string>& fileNames);
/// Reads the open form of a row's file again.
void RefreshItem(TContext& context, TFormRow* row);

/// Lets go of the rows' notifiers and empties the list.
void ClearRows(TFormRows& list);

/// A box with the names of the listed forms, sorted; the one given is chosen where it is among them.
TChoiceBox FormsBox(TContext& context, const std::string& chosen);

/// Sorts the forms list by a column in the given direction (1 or -1); both are stored.
void SortRows(TContext& context, int column, int order);

}  // namespace tml
