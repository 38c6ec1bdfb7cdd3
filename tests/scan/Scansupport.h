#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Commonlibrary.h"
#include "scan/Scan.h"

namespace tml {

/// The punctuation that is excluded unless the person says otherwise.
inline constexpr const char* kPunctuation = "\\|/?><.,\":;]}[{=+-_)(!@#$%^&*`~' ";

/// The library that was built with the tests; held until the program ends.
inline ICommonLibrary* CommonLibrary() {
    static const auto loader = MakeCommonLibraryLoader(TML_BIN "/TmlLang_Common.so");
    return loader->Load();
}

inline TScanInput InputFor(const std::string& fileName, const std::string& text) {
    TScanInput input;
    input.Source = ReadSource(text, fileName);
    input.Component = {"Form1", "mlLang1", false, ""};
    input.Skip.ExcludeChars = kPunctuation;
    input.Common = CommonLibrary();
    return input;
}

/// A string table with these IDs and texts.
inline TTable Strings(const std::vector<std::pair<std::string, std::string>>& strings) {
    TStringList lines;
    for (const auto& [id, text] : strings)
        lines.Add(id + "|" + text);
    return TTable(TStringsType::stStrings, lines, "|");
}

/// "ID=text" for each found string, a bar, "reason:text" for each skipped one.
inline std::string Dump(const TScanResult& result) {
    std::string dump;
    for (const TmlFoundSourceString& row : result.Found)
        dump += row.StrID + "=" + row.StrContent + " ";
    dump += "|";
    for (const TmlSkippedString& skipped : result.Skipped)
        dump += " " + std::string(SkipReasonName(skipped.Reason)) + ":" + skipped.Text;
    return dump;
}

}  // namespace tml
