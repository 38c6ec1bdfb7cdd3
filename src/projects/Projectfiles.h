#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// A unit as a project file names it.
struct TNamedUnit {
    std::string Name;  ///< last part of the unit's name; with its extension for what is no unit ("rtl.dcp")
    std::string Path;  ///< as written
    std::string FormName;
    std::string DesignClass;
    int Line = 0;  ///< 1-based line in the project file, 0 when unknown
};

/// What one project file says, nothing looked up.
struct TParsedProject {
    std::vector<TNamedUnit> Units;
    std::string MainSource;  ///< as written
    std::string CodePage;
    bool IsCpp = false;
    bool IsGroup = false;
    std::vector<std::string> Projects;  ///< of a group: the projects as written
};

/// A parser takes the file's bytes; fileName serves messages, codePage is that of bytes above 127 ("" when
/// unknown). What is broken gives EBadInput with the line.
using TProjectParser = TParsedProject (*)(const std::string& bytes, const std::string& fileName,
                                          const std::string& codePage);

/// The parser for a file by its extension (any letter case); nullptr when the file is no project.
TProjectParser FindProjectParser(const std::string& fileName);
/// The parser for the main source that a project names; nullptr when it names no units.
TProjectParser FindMainSourceParser(const std::string& fileName);
/// Extensions, with their dot, of the files that open as a project.
std::vector<std::string> ProjectExtensions();
/// Whether a group's member is a package whose file does not name its forms; a group is read without it.
bool IsFormlessPackage(const std::string& fileName);

/// The last part of a unit's name: "Forms.Main" gives "Main".
std::string LastNamePart(const std::string& unitName);
/// The unit's name by its file's; what is no unit keeps its extension, and so is told apart by the dot.
std::string UnitNameOf(const std::string& path);
/// Notes the form that a project file names for a unit, with its base. What is no name (a directive) and the
/// COM class of a unit ("CoClass") are no forms.
void SetForm(TNamedUnit& unit, std::string_view name, std::string_view base);
/// The code page in the text of an options file ("CodePage=932" on a line of its own); "" without one.
std::string ParseOptionsCodePage(const std::string& text);

}  // namespace tml
