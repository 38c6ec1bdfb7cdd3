#include "base/Stringlist.h"

#include <algorithm>

#include "base/Utf8.h"

namespace tml {
namespace {

bool NeedsQuotes(std::string_view entry) {
    return entry.empty() || entry.find_first_of(" ,\"\t\r\n") != std::string_view::npos;
}

std::string Quoted(std::string_view entry) {
    std::string result = "\"";
    for (const char c : entry) {
        if (c == '"') result += '"';
        result += c;
    }
    return result + '"';
}

/// The quoted entry that opens at pos; pos moves behind its closing quote (or to the end without one).
std::string ParseQuoted(std::string_view text, std::size_t& pos) {
    std::string entry;
    for (++pos; pos < text.size(); ++pos) {
        const bool quote = text[pos] == '"';
        const bool doubled = quote && pos + 1 < text.size() && text[pos + 1] == '"';
        if (quote && !doubled) {
            ++pos;
            break;
        }
        entry += text[pos];
        if (doubled) ++pos;
    }
    return entry;
}

}  // namespace

void TStringList::Sort() {
    std::stable_sort(items_.begin(), items_.end(),
                     [](const std::string& a, const std::string& b) { return CompareText(a, b) < 0; });
}

int TStringList::IndexOf(std::string_view text) const {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [&](const std::string& item) { return SameText(item, text); });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

std::string TStringList::Text() const {
    std::string result;
    for (const std::string& item : items_)
        result += item + "\r\n";
    return result;
}

void TStringList::SetText(std::string_view text) {
    items_.clear();
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        items_.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        text.remove_prefix(end + (pair ? 2 : 1));
    }
}

TStringList TStringList::FromText(std::string_view text) {
    TStringList result;
    result.SetText(text);
    return result;
}

std::string TStringList::CommaText() const {
    std::string result;
    for (const std::string& item : items_) {
        if (&item != &items_.front()) result += ',';
        result += NeedsQuotes(item) ? Quoted(item) : item;
    }
    return result;
}

void TStringList::SetCommaText(std::string_view text) {
    items_.clear();
    text = Trim(text);
    if (text.empty()) return;
    for (std::size_t pos = 0;;) {
        while (pos < text.size() && static_cast<unsigned char>(text[pos]) <= ' ')
            ++pos;
        const bool quoted = pos < text.size() && text[pos] == '"';
        std::string entry = quoted ? ParseQuoted(text, pos) : std::string();
        const std::size_t comma = std::min(text.find(',', pos), text.size());
        if (!quoted) entry = Trim(text.substr(pos, comma - pos));
        items_.push_back(std::move(entry));
        if (comma == text.size()) return;
        pos = comma + 1;
    }
}

TStringList TStringList::FromCommaText(std::string_view text) {
    TStringList result;
    result.SetCommaText(text);
    return result;
}

}  // namespace tml
