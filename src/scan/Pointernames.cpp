#include "scan/Pointernames.h"

#include <algorithm>
#include <array>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 19> kPointerTypes = {
    "PChar",   "PAnsiChar", "PWideChar", "PUnicodeChar", "PWChar", "PSTR",   "PCSTR",
    "PWSTR",   "PCWSTR",    "PTSTR",     "PCTSTR",       "LPSTR",  "LPCSTR", "LPWSTR",
    "LPCWSTR", "LPTSTR",    "LPCTSTR",   "PCHAR",        "Pointer"};
constexpr std::array<std::string_view, 11> kCharacterTypes = {
    "char",  "wchar_t",  "char8_t", "char16_t", "char32_t",   "AnsiChar",
    "TCHAR", "WideChar", "WCHAR",   "CHAR",     "UnicodeChar"};
constexpr std::array<std::string_view, 7> kStringTypes = {
    "string", "AnsiString", "WideString", "UnicodeString", "UTF8String", "RawByteString", "ShortString"};
constexpr std::array<std::string_view, 5> kFieldPrefixes = {"lpsz", "lpcsz", "lpstr", "psz", "pwsz"};

/// Units, name spaces and objects whose routines the list below means.
constexpr std::array<std::string_view, 8> kQualifiers = {"",        "Application", "Windows", "SysUtils",
                                                         "Strings", "ShellAPI",    "LCLIntf", "std"};

/// In the C library and in C++ only.
constexpr auto kCRoutines = std::to_array<TPointerRoutine>({
    {"atof", ""},   {"atoi", ""},    {"fopen", ""},   {"fprintf", ""}, {"fputs", ""},   {"getenv", ""},
    {"memcpy", ""}, {"printf", ""},  {"puts", ""},    {"scanf", ""},   {"sprintf", ""}, {"snprintf", ""},
    {"sscanf", ""}, {"strcat", ""},  {"strchr", ""},  {"strcmp", ""},  {"strcpy", ""},  {"strdup", ""},
    {"strlen", ""}, {"strncmp", ""}, {"strncpy", ""}, {"strstr", ""},  {"system", ""},  {"wcscmp", ""},
});

/// Of the systems' and the languages' own libraries.
constexpr auto kRoutines = std::to_array<TPointerRoutine>({
    {"AddAtom", ""},
    {"AppendMenu", ""},
    {"CreateFile", ""},
    {"CreateFileMapping", ""},
    {"CreateMutex", ""},
    {"CreateProcess", ""},
    {"CreateSemaphore", ""},
    {"CreateWindowEx", ""},
    {"ExtTextOut", ""},
    {"FatalAppExit", ""},
    {"FindResource", ""},
    {"FindWindow", ""},
    {"FindWindowEx", ""},
    {"GetModuleHandle", "dynlibs"},
    {"GetPrivateProfileString", ""},
    {"GetProcAddress", "dynlibs"},
    {"GlobalAddAtom", ""},
    {"InsertMenu", ""},
    {"LoadLibrary", "dynlibs"},
    {"LoadLibraryEx", ""},
    {"MessageBox", ""},
    {"MessageBoxEx", ""},
    {"ModifyMenu", ""},
    {"OpenEvent", ""},
    {"OpenMutex", ""},
    {"OutputDebugString", ""},
    {"RegisterClipboardFormat", ""},
    {"RegisterWindowMessage", ""},
    {"RegOpenKeyEx", ""},
    {"RegQueryValueEx", ""},
    {"SetDlgItemText", ""},
    {"SetWindowText", ""},
    {"ShellExecute", ""},
    {"StrComp", ""},
    {"StrCopy", ""},
    {"StrFmt", ""},
    {"StrIComp", ""},
    {"StrLComp", ""},
    {"StrLFmt", ""},
    {"StrLen", ""},
    {"StrLIComp", ""},
    {"StrPos", ""},
    {"WinExec", ""},
    {"WritePrivateProfileString", ""},
});

bool IsSame(std::string_view left, std::string_view right, bool isCpp) {
    return left.size() == right.size() && (isCpp ? left == right : SameText(left, right));
}

template <typename List>
bool IsIn(const List& list, std::string_view name, bool isCpp) {
    return std::any_of(list.begin(), list.end(),
                       [&](std::string_view entry) { return IsSame(entry, name, isCpp); });
}

template <typename List>
const TPointerRoutine* FindIn(const List& list, std::string_view name, bool isCpp) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const TPointerRoutine& routine) {
        return IsSame(routine.Name, name, isCpp);
    });
    return found == list.end() ? nullptr : &*found;
}

}  // namespace

bool IsPointerType(std::string_view name, bool isCpp) {
    const bool isNamedSo = !isCpp && name.size() > 4 && SameText(name.substr(0, 1), "P") &&
                           SameText(name.substr(name.size() - 4), "char");
    return isNamedSo || IsIn(kPointerTypes, name, isCpp);
}

bool IsCharacterType(std::string_view name, bool isCpp) {
    return IsIn(kCharacterTypes, name, isCpp);
}

bool IsStringType(std::string_view name) {
    return IsIn(kStringTypes, name, false);
}

bool IsPointerField(std::string_view name) {
    return std::any_of(kFieldPrefixes.begin(), kFieldPrefixes.end(), [&](std::string_view prefix) {
        return name.size() > prefix.size() && SameText(name.substr(0, prefix.size()), prefix);
    });
}

const TPointerRoutine* FindPointerRoutine(std::string_view qualifier, std::string_view name, bool isCpp) {
    if (!IsIn(kQualifiers, qualifier, isCpp)) return nullptr;
    if (isCpp)
        if (const TPointerRoutine* known = FindIn(kCRoutines, name, isCpp)) return known;
    if (const TPointerRoutine* known = FindIn(kRoutines, name, isCpp)) return known;
    // The routines of the system end in an "A" or a "W" too, by the width of the characters.
    const bool hasWidth = name.size() > 1 && (name.back() == 'A' || name.back() == 'W');
    return hasWidth ? FindIn(kRoutines, name.substr(0, name.size() - 1), isCpp) : nullptr;
}

}  // namespace tml
