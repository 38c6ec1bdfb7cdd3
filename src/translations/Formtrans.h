#pragma once

#include <string>

#include "core/Context.h"
#include "tables/Texttransfer.h"
#include "translations/Transferreport.h"

namespace tml {

// The way of one form to and from a translation file; the form is a row of the list in front. Nothing for a
// name without a row, a row without a file and one without a component. EBadInput for a file that cannot be
// used, and where two forms of the list have the name. A command opens the files (IMlRuntime) once for all
// its forms.

/// Brings a copy of the texts up to the form and saves it; the form does not change. delimiter is that of the
/// text kind.
TTransferReport SaveFormToFile(TContext& context, const std::string& formName, const std::string& fileName,
                               const std::string& delimiter);
TTransferReport LoadFormFromFile(TContext& context, const std::string& formName, const std::string& fileName);
TTransferReport MergeFormFromFile(TContext& context, const std::string& formName,
                                  const std::string& fileName);
TTransferReport LoadFormLanguage(TContext& context, const std::string& formName, const std::string& fileName,
                                 const std::string& languageName);

/// Works on rows with one opening of the files, as one step of undo; see ForEachForm.
void TransferForms(TContext& context, const std::string& title, const std::vector<TFormRow*>& rows,
                   const std::function<TTransferReport(TFormRow&)>& transfer, TFormReports& reports);

/// What is said of a file that holds nothing of any of the forms, with whose forms it has; "" for one that
/// has something of them. Only a file from which nothing came is read for it.
std::string ProblemOfForeignFile(TContext& context, const std::string& fileName, const TFormReports& reports);

/// What a file holds of the active project, and no form with a component takes: "the file also holds
/// OldForm, which ...", "" for nothing. The file is read for it.
std::string UnclaimedForms(TContext& context, const std::string& fileName);

/// Those of the forms, of the active project, whose changes stand in open files only.
TStringList UnsavedForms(TContext& context, const TFormReports& reports);

/// Save every translated form of the list in front, in its order.
void SaveProjectToMLLFile(TContext& context, const std::string& fileName, const std::string& delimiter,
                          TFormReports& reports);
void SaveProjectToMLBFile(TContext& context, const std::string& fileName, TFormReports& reports);
/// Loads or merges every form of the list in front; what the file holds of other forms of the project is
/// reported under the file's name.
void LoadProjFromFile(TContext& context, const std::string& fileName, bool merge, TFormReports& reports);

/// EBadInput where the form of another unit would be one with the row's in a translation file: one of that
/// name in its list, or, for an external file, in the project.
void ExpectNoNamesakeOf(TContext& context, const TFormRow& row);

/// The name of the open project without folder and extension, by which files know its forms; "" without one.
std::string ProjectNameOf(TContext& context);

}  // namespace tml
