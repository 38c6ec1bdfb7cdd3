#include "core/Closedforms.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "forms/Formtree.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 2> kHeaders{"object ", "inherited "};
constexpr std::string_view kNumOfLanguages = "NumOfLanguages = ";

/// Takes a line without its end and the blanks in front of it.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    while (!line.empty() && static_cast<unsigned char>(line.back()) <= ' ')
        line.remove_suffix(1);
    return line;
}

/// The component's name where the line is the header of a component of this class.
std::optional<std::string_view> HeaderName(std::string_view line, std::string_view className) {
    if (!line.ends_with(className)) return std::nullopt;
    line.remove_suffix(className.size());
    if (!line.ends_with(": ")) return std::nullopt;
    line.remove_suffix(2);
    for (const std::string_view header : kHeaders) {
        const std::size_t begin = line.find(header);
        if (begin != std::string_view::npos) return line.substr(begin + header.size());
    }
    return std::nullopt;
}

/// "Form1" of the form's own line, "object Form1: TForm1"; "" where it has no name.
std::string NameIn(std::string_view line) {
    const std::size_t end = line.find(':');
    const std::size_t begin = std::min(line.find(' '), line.size());
    return end == std::string_view::npos || end < begin ? std::string()
                                                        : std::string(Trim(line.substr(begin, end - begin)));
}

int NumberOfLanguages(std::string_view digits, const std::string& fileName, int line) {
    try {
        return ToInteger(digits);
    } catch (const EConvertError& error) {
        throw EBadInput(fileName, line, std::string("NumOfLanguages: ") + error.what(),
                        "Correct the number in the form");
    }
}

bool IsBinaryForm(std::string_view bytes) {
    return bytes.starts_with("\xFF\x0A") || bytes.starts_with("TPF0");
}

}  // namespace

TFormAnalysis SearchFormText(std::string_view text, const std::vector<std::string>& classNames,
                             const std::string& fileName) {
    TFormAnalysis found;
    std::string formName = NameIn(TakeLine(text));
    for (int number = 2; !text.empty(); ++number) {
        const std::string_view line = TakeLine(text);
        for (const std::string& className : classNames)
            if (const auto name = HeaderName(line, className)) found = {std::string(*name), className, 1};
        if (found.NumLang == 0 || line.find(kNumOfLanguages) == std::string_view::npos) continue;
        found.NumLang = NumberOfLanguages(line.substr(line.find('=') + 2), fileName, number);
        break;
    }
    if (found.NumLang == 0) found = {};
    found.FormName = std::move(formName);
    return found;
}

TFormAnalysis AnalyzeClosedForm(IFileSystem& files, const std::string& formFile,
                                const std::vector<std::string>& classNames) {
    std::string text;
    try {
        text = files.Read(formFile);
        if (IsBinaryForm(text)) text = TFormTree::Parse(text, formFile)->Text();
    } catch (const EBadInput&) {
        // The row stays without languages; opening the form tells what is wrong with it.
        return {};
    }
    return SearchFormText(text, classNames, formFile);
}

}  // namespace tml
