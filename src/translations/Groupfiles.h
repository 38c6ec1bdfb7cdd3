#pragma once

#include <string>

#include "core/Context.h"
#include "translations/Transferreport.h"

namespace tml {

// The translations of the projects of a group.

/// Asks for the file, or the template of file names, of one or several projects, then to confirm it:
/// confirmFormat is the question, with "%s" for the file name without its folder. delimiter is asked for
/// where a text file is saved, and "" else; projectName (a file name without folder) tells which file is
/// meant then. The answers are stored as settings. False to stop.
bool AskForFileName(TContext& context, bool saving, const std::string& confirmFormat,
                    const std::string& projectName, std::string& fileName, std::string& delimiter);

/// EBadInput where two of the projects have one name, by which translation files know the forms of both.
void ExpectDistinctNames(const TStringList& projectFileNames);

/// Makes the project of the group the active one, whose forms are listed then, and saves them. EBadInput
/// where the group has no such project.
void SaveProjectToFile(TContext& context, const std::string& projectFileName,
                       const std::string& translationFileName, const std::string& delimiter,
                       TFormReports& reports);
/// The same for loading; the project's file is saved where it is open.
void LoadProjectFromFile(TContext& context, const std::string& projectFileName,
                         const std::string& translationFileName, TFormReports& reports);

}  // namespace tml
