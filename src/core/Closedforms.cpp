#include "core/Closedforms.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Utf8.h"
#include "forms/Formtree.h"
#include "source/Ancestors.h"

namespace tml {
namespace {

constexpr std::string_view kInherited = "inherited ";
constexpr std::array<std::string_view, 2> kHeaders{"object ", kInherited};
constexpr std::string_view kNumOfLanguages = "NumOfLanguages = ";

/// Takes a line without its end and the blanks in front of it.
std::string_view TakeLine(std::string_view& text) {
    const auto isEnd = [](char c) { return c == '\r' || c == '\n'; };
    const auto end = static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isEnd) - text.begin());
    std::string_view line = text.substr(0, end);
    const std::size_t endSize = text.substr(end).starts_with("\r\n") ? 2 : 1;
    text.remove_prefix(std::min(end + endSize, text.size()));
    while (!line.empty() && static_cast<unsigned char>(line.back()) <= ' ')
        line.remove_suffix(1);
    return line;
}

/// The class of a form that inherits from another one, by the line that it begins with; "" for any other.
std::string_view DescendantClass(std::string_view line) {
    const std::size_t mark = line.find(": ");
    const bool inherits = Trim(line).starts_with(kInherited) && mark != std::string_view::npos;
    return inherits ? line.substr(mark + 2) : std::string_view();
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

/// The form as text in UTF-8; "" for one that cannot be read.
std::string FormText(IFileSystem& files, const std::string& formFile) {
    try {
        std::string text = files.Read(formFile);
        if (text.starts_with("\xFF\x0A") || text.starts_with("TPF0"))
            text = TFormTree::Parse(text, formFile)->Text();
        return FindNonAscii(text, 0) == text.size() ? text : TCodedText::TextOf(text);
    } catch (const EBadInput&) {
        // The row stays without languages; opening the form tells what is wrong with it.
        return {};
    }
}

/// Completes what a form's text tells by what its ancestor has.
void Inherit(TFormSearch& search, const TFormAnalysis& ancestor) {
    TFormAnalysis& found = search.Found;
    const std::string formName = found.FormName;
    if (found.NumLang == 0)
        found = ancestor;
    else if (!SameText(found.ComponentName, ancestor.ComponentName))
        return;
    else if (!search.HasNumber)
        found.NumLang = ancestor.NumLang;
    found.FormName = formName;
    found.Ancestor = ancestor.NumLang > 0 ? ancestor.FormName : std::string();
    found.DerivesFrom = ancestor.FormName;
}

}  // namespace

TFormSearch SearchFormText(std::string_view text, const std::vector<std::string>& classNames,
                           const std::string& fileName) {
    TFormSearch search;
    TFormAnalysis& found = search.Found;
    const std::string_view form = TakeLine(text);
    search.DescendantClass = DescendantClass(form);
    for (int number = 2; !text.empty(); ++number) {
        const std::string_view line = TakeLine(text);
        for (const std::string& className : classNames)
            if (const auto name = HeaderName(line, className)) {
                found = {std::string(*name), className, 1};
                search.IsInherited = line.find(kHeaders[0]) == std::string_view::npos;
            }
        if (found.NumLang == 0 || line.find(kNumOfLanguages) == std::string_view::npos) continue;
        found.NumLang = NumberOfLanguages(line.substr(line.find('=') + 2), fileName, number);
        search.HasNumber = true;
        break;
    }
    if (found.NumLang <= 0) found = {};
    found.FormName = NameIn(form);
    return search;
}

TClosedForms::TClosedForms(const THost& host) : host_(host), folders_(*host.Files) {}

TFormAnalysis TClosedForms::Read(const std::string& unitFile) {
    const auto [place, isNew] = read_.try_emplace(unitFile);
    if (!isNew) return place->second;
    TFormAnalysis& read = place->second;  // until then nothing, for a form that derives from itself
    const std::string formFile = folders_.FormFileOf(unitFile);
    const std::string text = formFile.empty() ? std::string() : FormText(*host_.Files, formFile);
    TFormSearch search = SearchFormText(text, host_.Runtime->NamesArray(), formFile);
    const bool isItsOwn = search.Found.NumLang > 0 && !search.IsInherited;
    if (!isItsOwn && !search.DescendantClass.empty())
        Inherit(search, ReadAncestor(unitFile, search.DescendantClass));
    return read = search.Found;
}

TFormAnalysis TClosedForms::ReadAncestor(const std::string& unitFile, const std::string& className) {
    const std::string ancestor = AncestorClass(unitFile, className);
    // The project's form of a class has the class's name without its T.
    const std::string unit = ancestor.starts_with('T') ? UnitOfForm(ancestor.substr(1)) : std::string();
    return unit.empty() ? TFormAnalysis() : Read(unit);
}

std::string TClosedForms::AncestorClass(const std::string& unitFile, const std::string& className) {
    const std::string header = folders_.HeaderFileOf(unitFile);
    const std::string& source = header.empty() ? unitFile : header;
    try {
        const std::string text = TCodedText::TextOf(host_.Files->Read(source));
        return AncestorOf(TSourceText(std::make_shared<const std::string>(text), source), className);
    } catch (const EBadInput&) {
        return {};
    }
}

std::string TClosedForms::UnitOfForm(const std::string& formName) {
    IOTAModuleServices* services = host_.Services == nullptr ? nullptr : host_.Services->GetModuleServices();
    const auto project = services == nullptr ? nullptr : services->GetActiveProject();
    const int count = project == nullptr || !units_.empty() ? 0 : project->GetModuleCount();
    for (int i = 0; i < count; ++i) {
        const TOTAModuleInfo module = project->GetModule(i);
        units_.try_emplace(UpperCase(module.FormName), module.FileName);
    }
    const auto found = units_.find(UpperCase(formName));
    return found == units_.end() ? std::string() : found->second;
}

}  // namespace tml
