#include "ide/Projectfiles.h"

#include <algorithm>

#include "base/Files.h"
#include "base/Stringlist.h"
#include "base/Utf8.h"

namespace tml {
namespace {

/// The project files that can be opened. A new format is a parser and a row here.
struct TProjectFormat {
    std::string_view Extension;
    TProjectParser Parse;
};
constexpr TProjectFormat kFormats[] = {
    {".dpr", ParseDpr},
    {".dproj", ParseDproj},
    {".groupproj", ParseGroupproj},
};

}  // namespace

TProjectParser FindProjectParser(const std::string& fileName) {
    const std::string extension = ExtensionOf(fileName);
    const auto* found =
        std::find_if(std::begin(kFormats), std::end(kFormats),
                     [&](const TProjectFormat& format) { return SameText(format.Extension, extension); });
    return found == std::end(kFormats) ? nullptr : found->Parse;
}

std::string KnownProjectFiles() {
    std::string names;
    for (const TProjectFormat& format : kFormats)
        names += (names.empty() ? "*" : ", *") + std::string(format.Extension);
    return names;
}

std::string LastNamePart(const std::string& unitName) {
    return unitName.substr(unitName.rfind('.') + 1);
}

std::string ParseOptionsCodePage(const std::string& text) {
    constexpr std::string_view kKey = "CodePage=";
    for (const std::string& line : TStringList::FromText(text))
        if (SameText(LeftCodePoints(line, kKey.size()), kKey))
            return std::string(Trim(std::string_view(line).substr(kKey.size())));
    return {};
}

}  // namespace tml
