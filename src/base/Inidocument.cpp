#include "base/Inidocument.h"

#include <algorithm>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// A line without its end.
std::string_view ContentOf(std::string_view line) {
    while (line.ends_with('\n') || line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

}  // namespace

TIniDocument::TIniDocument(std::string_view text, const TIniSyntax& syntax)
    : syntax_(&syntax), lineEnd_(syntax.LineEnd) {
    if (text.starts_with(kUtf8Mark)) mark_ = kUtf8Mark;
    text.remove_prefix(mark_.size());
    TSection* current = nullptr;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        const auto line = lines_.insert(lines_.end(), std::string(text.substr(0, end)));
        if (lines_.size() == 1 && line->ends_with('\n')) lineEnd_ = line->ends_with("\r\n") ? "\r\n" : "\n";
        ReadLine(line, current);
        text.remove_prefix(end);
    }
}

void TIniDocument::ReadLine(TLines::iterator line, TSection*& current) {
    const std::string_view content = Trim(*line);
    if (content.empty()) return;
    const TIniLine read = syntax_->Read(content);
    if (read.Kind == TIniLine::TKind::Section) {
        const auto [place, isFirst] = sections_.try_emplace(UpperCase(read.Name), TSection{line, {}});
        current = isFirst ? &place->second : nullptr;
        return;
    }
    if (read.Kind == TIniLine::TKind::Broken && brokenLine_ == 0)
        brokenLine_ = static_cast<int>(lines_.size());
    if (current == nullptr) return;
    current->Last = line;
    if (read.Kind == TIniLine::TKind::Value) current->Values.try_emplace(UpperCase(read.Name), line);
}

std::optional<std::string_view> TIniDocument::Find(std::string_view section, std::string_view name) const {
    const auto place = sections_.find(UpperCase(section));
    if (place == sections_.end()) return std::nullopt;
    const auto value = place->second.Values.find(UpperCase(name));
    if (value == place->second.Values.end()) return std::nullopt;
    return syntax_->Read(Trim(*value->second)).Value;
}

void TIniDocument::Set(std::string_view section, std::string_view name, std::string_view value) {
    const std::string text = syntax_->ValueLine(name, value);
    const auto place = sections_.find(UpperCase(section));
    TSection& target = place == sections_.end() ? AddSection(section) : place->second;
    const auto [known, isNew] = target.Values.try_emplace(UpperCase(name));
    if (isNew) {
        target.Last = known->second = InsertBehind(target.Last, text);
    } else {
        std::string& line = *known->second;
        line = text + line.substr(ContentOf(line).size());
    }
}

TIniDocument::TSection& TIniDocument::AddSection(std::string_view section) {
    auto last = lines_.end();
    if (!lines_.empty()) --last;
    if (!lines_.empty() && syntax_->BlankLineBeforeSection) last = InsertBehind(last, "");
    last = InsertBehind(last, syntax_->SectionLine(section));
    return sections_.emplace(UpperCase(section), TSection{last, {}}).first->second;
}

TIniDocument::TLines::iterator TIniDocument::InsertBehind(TLines::iterator line, const std::string& text) {
    if (line == lines_.end()) return lines_.insert(line, text + lineEnd_);
    if (!line->ends_with('\n')) *line += lineEnd_;
    return lines_.insert(std::next(line), text + lineEnd_);
}

std::string TIniDocument::Text() const {
    std::string text = mark_;
    for (const std::string& line : lines_)
        text += line;
    return text;
}

}  // namespace tml
