#pragma once

#include <string>
#include <vector>

namespace tml {

/// A unit that a project names.
struct TProjectUnit {
    std::string Name;         ///< last part of the unit's name
    std::string FileName;     ///< full path as on disk, or as the project names it where it is missing
    std::string FormName;     ///< "" without a form
    std::string DesignClass;  ///< base of a form that is no plain form ("TFrame", "TDataModule"), else ""
    std::string FormFile;     ///< full path of the form file beside the unit, "" when there is none
    std::string HeaderFile;   ///< full path of a C++ unit's header, "" when there is none
    bool Missing = false;     ///< the unit's file is not on the disk
    std::string NamedBy;      ///< full path of the file that names the unit
    int Line = 0;             ///< 1-based line there, 0 when unknown
};

/// Something that is wrong with a project or with one of its files and does not keep it from opening.
struct TProjectProblem {
    std::string FileName;
    int Line = 0;  ///< 1-based, 0 without a line
    std::string Problem;
    std::string Remedy;

    bool operator==(const TProjectProblem&) const = default;
};

/// What a project file says, files looked up on the disk.
struct TProjectModel {
    std::string FileName;    ///< full path
    std::string MainSource;  ///< full path of the program's source, "" when there is none
    std::string CodePage;    ///< the project's code page ("1251"), "" when it gives none
    bool IsCpp = false;
    std::vector<TProjectUnit> Units;
};

}  // namespace tml
