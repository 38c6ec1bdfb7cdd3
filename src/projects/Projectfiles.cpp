#include "projects/Projectfiles.h"

#include <algorithm>
#include <iterator>

#include "base/Files.h"
#include "base/Stringlist.h"
#include "base/Utf8.h"
#include "projects/Bdsfiles.h"
#include "projects/Bpgfile.h"
#include "projects/Bprfile.h"
#include "projects/Cppprogram.h"
#include "projects/Dprfile.h"
#include "projects/Lpifile.h"
#include "projects/Xmlprojects.h"
#include "source/Charclass.h"

namespace tml {
namespace {

/// The project files that can be opened. A new format is a parser and a row here.
struct TProjectFormat {
    std::string_view Extension;
    TProjectParser Parse;
};
constexpr TProjectFormat kFormats[] = {
    {".dpr", ParseDpr},         {".dpk", ParseDpr},
    {".dproj", ParseDproj},     {".groupproj", ParseGroupproj},
    {".bdsproj", ParseBdsproj}, {".bdsgroup", ParseBdsgroup},
    {".bpg", ParseBpg},         {".bpr", ParseBpr},
    {".bpk", ParseBpr},         {".cbproj", ParseCbproj},
    {".lpi", ParseLpi},         {".lpg", ParseLpg},
};

/// What is a project only as the main source of one.
constexpr TProjectFormat kMainSources[] = {
    {".lpr", ParseDpr},
    {".cpp", ParseCppProgram},
};

template <typename Formats>
TProjectParser FindIn(const Formats& formats, const std::string& fileName) {
    const std::string extension = ExtensionOf(fileName);
    for (const TProjectFormat& format : formats)
        if (SameText(format.Extension, extension)) return format.Parse;
    return nullptr;
}

}  // namespace

TProjectParser FindProjectParser(const std::string& fileName) {
    return FindIn(kFormats, fileName);
}

TProjectParser FindMainSourceParser(const std::string& fileName) {
    const TProjectParser parse = FindIn(kMainSources, fileName);
    return parse == nullptr ? FindProjectParser(fileName) : parse;
}

std::vector<std::string> ProjectExtensions() {
    std::vector<std::string> extensions;
    std::transform(std::begin(kFormats), std::end(kFormats), std::back_inserter(extensions),
                   [](const TProjectFormat& format) { return std::string(format.Extension); });
    return extensions;
}

bool IsFormlessPackage(const std::string& fileName) {
    return SameText(ExtensionOf(fileName), ".lpk");
}

std::string LastNamePart(const std::string& unitName) {
    return unitName.substr(unitName.rfind('.') + 1);
}

std::string UnitNameOf(const std::string& path) {
    const std::string file = FileNameOf(path);
    const std::string extension = ExtensionOf(file);
    const bool isUnit = SameText(extension, ".pas") || SameText(extension, ".pp") ||
                        SameText(extension, ".cpp") || SameText(extension, ".c");
    return isUnit ? LastNamePart(WithExtension(file, "")) : file;
}

void SetForm(TNamedUnit& unit, std::string_view name, std::string_view base) {
    if (name.empty() || !std::all_of(name.begin(), name.end(), IsNameChar) || SameText(base, "CoClass"))
        return;
    unit.FormName = std::string(name);
    unit.DesignClass = std::string(base);
}

std::string ParseOptionsCodePage(const std::string& text) {
    constexpr std::string_view kKey = "CodePage=";
    for (const std::string& line : TStringList::FromText(text))
        if (SameText(LeftCodePoints(line, kKey.size()), kKey))
            return std::string(Trim(std::string_view(line).substr(kKey.size())));
    return {};
}

}  // namespace tml
