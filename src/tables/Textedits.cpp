#include "tables/Textedits.h"

#include <algorithm>
#include <utility>

namespace tml {
namespace {

/// What was on record of another text goes.
void Write(TTableValue& value, const std::string& text) {
    if (value.Text != text) value = {text};
}

TTableValue WithState(TTableValue value, const std::string& base, TTextState state) {
    const bool isEqual = value.Text == base;
    if (value.Text.empty() || (state == TTextState::Missing && !isEqual)) return value;
    if (state == TTextState::Missing) return {value.Text};
    if (state == TTextState::Done) return {value.Text, isEqual ? TValueMark::Same : TValueMark::None};
    const TValueMark mark = state == TTextState::Stale ? TValueMark::Stale : TValueMark::Touched;
    return {value.Text, mark, IsInDoubt(value) ? value.Former : base};
}

}  // namespace

TTableEntry WithText(TTableEntry entry, int place, const std::string& text, bool hasStates) {
    const auto index = static_cast<std::size_t>(place) - 1;
    if (entry.Values.size() <= index) entry.Values.resize(index + 1);
    const std::string former = entry.Base();
    Write(entry.Values[index], text);
    if (place == 1)
        for (auto value = entry.Values.begin() + 1; value != entry.Values.end(); ++value)
            *value = WithNewBase(std::move(*value), former, text, hasStates);
    return entry;
}

TTableEntry WithState(TTableEntry entry, int place, TTextState state) {
    const auto index = static_cast<std::size_t>(place) - 1;
    if (index > 0 && index < entry.Values.size())
        entry.Values[index] = WithState(std::move(entry.Values[index]), entry.Base(), state);
    return entry;
}

std::string WithLineBreaksOf(const TTableEntry& entry, const std::string& text) {
    const bool hasPairs = std::any_of(entry.Values.begin(), entry.Values.end(), [](const auto& value) {
        return value.Text.find("\r\n") != std::string::npos;
    });
    std::string written;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isBreak = text[i] == '\r' || text[i] == '\n';
        if (isBreak)
            written += hasPairs ? "\r\n" : "\n";
        else
            written += text[i];
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    }
    return written;
}

}  // namespace tml
