#include "tables/States.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/Utf8.h"
#include "tables/Fieldcodec.h"
#include "tables/Textshapes.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 4> kStateNames = {"missing", "stale", "touched", "done"};
/// In the order of the marks.
constexpr std::array<std::string_view, 4> kMarkNames = {"", "same", "stale", "touched"};

int PlaceOf(const std::string& text) {
    int place = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), place);
    return error == std::errc() && end == text.data() + text.size() && place > 1 ? place : 0;
}

/// Letters and digits, without regard to case.
std::string Bare(std::string_view text) {
    const std::string folded = FoldCase(text);
    std::string bare;
    for (std::size_t pos = 0; pos < folded.size();) {
        const std::size_t begin = pos;
        DecodeCodePoint(folded, pos);
        const std::string_view one = std::string_view(folded).substr(begin, pos - begin);
        if (HasLetter(one) || IsNumber(one)) bare += one;
    }
    return bare;
}

}  // namespace

std::string_view NameOf(TValueMark mark) {
    return kMarkNames[static_cast<std::size_t>(mark)];
}

TValueMark ValueMarkOf(std::string_view name) {
    const auto* const found = std::find(kMarkNames.begin() + 1, kMarkNames.end(), name);
    return found == kMarkNames.end() ? TValueMark::None : static_cast<TValueMark>(found - kMarkNames.begin());
}

bool IsInDoubt(const TTableValue& value) {
    return value.Mark == TValueMark::Stale || value.Mark == TValueMark::Touched;
}

bool IsTranslation(const TTableValue& value, const std::string& base) {
    return !value.Text.empty() && (value.Text != base || value.Mark != TValueMark::None);
}

TTableValue WithNewBase(TTableValue value, const std::string& former, const std::string& base,
                        bool hasStates) {
    if (value.Text.empty() || former == base) return value;
    if (value.Mark == TValueMark::None && (value.Text == former || !hasStates)) {
        if (value.Text == former) value.Text = base;
        return value;
    }
    const std::string translated = IsInDoubt(value) ? value.Former : former;
    if (translated == base) return {value.Text, value.Text == base ? TValueMark::Same : TValueMark::None};
    return {value.Text, DifferInLooksOnly(translated, base) ? TValueMark::Touched : TValueMark::Stale,
            translated};
}

std::string_view NameOf(TTextState state) {
    return kStateNames[static_cast<std::size_t>(state)];
}

TTextState StateOf(const TTableEntry& entry, int place) {
    const auto index = static_cast<std::size_t>(place) - 1;
    if (index >= entry.Values.size() || entry.Values[index].Text.empty()) return TTextState::Missing;
    const TTableValue& value = entry.Values[index];
    switch (value.Mark) {
        case TValueMark::Stale:
            return TTextState::Stale;
        case TValueMark::Touched:
            return TTextState::Touched;
        case TValueMark::Same:
            return TTextState::Done;
        case TValueMark::None:
            break;
    }
    return value.Text == entry.Base() ? TTextState::Missing : TTextState::Done;
}

bool DifferInLooksOnly(std::string_view left, std::string_view right) {
    const std::string bare = Bare(left);
    return !bare.empty() && bare == Bare(right);
}

TStateRecords::TStateRecords(const TStringList& lines, std::string_view delimiter) : delimiter_(delimiter) {
    for (const std::string& line : lines) {
        std::vector<std::string> fields = SplitFields(line, delimiter);
        const bool isRecord = fields.size() == 5 && ValueMarkOf(fields[3]) != TValueMark::None;
        TRecord record{{}, {}, isRecord ? PlaceOf(fields[2]) : 0, {}, line};
        if (record.Place > 0) {
            record.Table = std::move(fields[0]);
            record.Key = std::move(fields[1]);
            record.Value = {{}, ValueMarkOf(fields[3]), std::move(fields[4])};
        }
        records_.push_back(std::move(record));
    }
}

void TStateRecords::Mark(TTable& table) const {
    const std::string_view name = KindOf(table.Type()).Property;
    for (const TRecord& record : records_) {
        const int entry = record.Place > 0 && record.Table == name ? table.Find(record.Key) : -1;
        if (entry >= 0) table.SetMark(entry, record.Place, record.Value.Mark, record.Value.Former);
    }
}

void TStateRecords::Take(const TTable& table) {
    const std::string_view name = KindOf(table.Type()).Property;
    std::erase_if(records_, [&](const TRecord& record) { return record.Table == name; });
    for (const TTableEntry& entry : table.Entries())
        for (std::size_t i = 1; i < entry.Values.size(); ++i)
            if (entry.Values[i].Mark != TValueMark::None) {
                records_.push_back(
                    {std::string(name), entry.Key, static_cast<int>(i) + 1, entry.Values[i], {}});
                records_.back().Line = LineOf(records_.back());
            }
    // The tables in their order; a line that is no record, or of a table that is not known, stays in front.
    std::stable_sort(records_.begin(), records_.end(), [](const TRecord& left, const TRecord& right) {
        return OrdinalOf(left.Table) < OrdinalOf(right.Table);
    });
}

void TStateRecords::Move(TStringsType type, const std::vector<int>& former) {
    const std::string_view name = KindOf(type).Property;
    for (TRecord& record : records_) {
        if (record.Place == 0 || record.Table != name) continue;
        const auto found = std::find(former.begin() + 1, former.end(), record.Place);
        record.Place = found == former.end() ? 1 : static_cast<int>(found - former.begin()) + 1;
        record.Line = LineOf(record);
    }
    // Where its language goes, or becomes the base language, it says nothing.
    std::erase_if(records_, [](const TRecord& record) { return record.Place == 1; });
}

TStringList TStateRecords::Lines() const {
    TStringList lines;
    for (const TRecord& record : records_)
        lines.Add(record.Line);
    return lines;
}

std::string TStateRecords::LineOf(const TRecord& record) const {
    return JoinFields({record.Table, record.Key, std::to_string(record.Place), NameOf(record.Value.Mark),
                       record.Value.Former},
                      delimiter_);
}

}  // namespace tml
