#pragma once

#include <string_view>

namespace tml {

/// What a source language writes for the things that the scan reads and writes. The names are those
/// under which every part of the system knows these marks.
struct TLanguage {
    std::string_view STRDELIM;           ///< string delimiter, one character
    std::string_view METHODPOINT;        ///< member access between a component and its method
    std::string_view BEGINSIGN;          ///< opens a routine's body
    std::string_view COMMENTSTART;       ///< opens a generated comment
    std::string_view COMMENTEND;         ///< closes a generated comment
    std::string_view IGNORELINE;         ///< skips the line that carries it
    std::string_view STARTIGNORE;        ///< opens an ignored block
    std::string_view STOPIGNORE;         ///< closes an ignored block
    std::string_view IGNORENEXTLINE;     ///< skips the next line
    std::string_view TRANSLATENEXTLINE;  ///< scans the next line although in an ignored block
    std::string_view SOURCEEXT;          ///< extension of a unit's implementation file
    std::string_view EVENTPARAMETER;     ///< parameter in a generated event handler's head
    bool IsCPPSource;

    char Delimiter() const { return STRDELIM.front(); }
};

inline constexpr TLanguage kPascal = {
    .STRDELIM = "'",
    .METHODPOINT = ".",
    .BEGINSIGN = "BEGIN",
    .COMMENTSTART = "(*",
    .COMMENTEND = "*)",
    .IGNORELINE = "{TML:IGNORE}",
    .STARTIGNORE = "{TML:IGNORE ON}",
    .STOPIGNORE = "{TML:IGNORE OFF}",
    .IGNORENEXTLINE = "{TML:IGNORE NEXT}",
    .TRANSLATENEXTLINE = "{TML:TRANSLATE NEXT}",
    .SOURCEEXT = ".pas",
    .EVENTPARAMETER = "Sender",
    .IsCPPSource = false,
};

inline constexpr TLanguage kCpp = {
    .STRDELIM = "\"",
    .METHODPOINT = "->",
    .BEGINSIGN = "{",
    .COMMENTSTART = "/*",
    .COMMENTEND = "*/",
    .IGNORELINE = "/*TML:IGNORE*/",
    .STARTIGNORE = "/*TML:IGNORE ON*/",
    .STOPIGNORE = "/*TML:IGNORE OFF*/",
    .IGNORENEXTLINE = "/*TML:IGNORE NEXT*/",
    .TRANSLATENEXTLINE = "/*TML:TRANSLATE NEXT*/",
    .SOURCEEXT = ".cpp",
    .EVENTPARAMETER = "*Sender",
    .IsCPPSource = true,
};

/// kCpp for ".cpp", ".h" and ".c" (in any case), kPascal for everything else.
const TLanguage& LanguageOf(std::string_view fileName);

}  // namespace tml
