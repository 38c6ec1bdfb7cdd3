#include "runtime/Transedits.h"

#include <set>
#include <unordered_map>
#include <utility>

#include "tables/Textedits.h"

namespace tml {
namespace {

bool IsTranslationCell(const TTransTexts& texts, const TTransCell& cell) {
    return texts.Find(cell.Row) != nullptr && texts.PlaceOf(cell.Row, cell.Column) > 1;
}

template <typename TTextFor>
int WriteTranslations(TTransTexts& texts, const std::vector<TTransCell>& cells, const TTextFor& textFor) {
    int written = 0;
    for (const TTransCell& cell : cells)
        if (IsTranslationCell(texts, cell)) written += WriteText(texts, cell, textFor(cell));
    return written;
}

/// What two texts must have in common to be translated alike: both languages, and the base text.
std::string EqualKey(const TTransTexts& texts, const TTransCell& cell) {
    return std::to_string(cell.Column) + '\n' + texts.FormOf(cell.Row).Languages[0] + '\n' +
           texts.Find(cell.Row)->Base();
}

/// Nothing is left of a text that the cell has already.
TTransPasted Paste(TTransTexts& texts, const TTransCell& cell, const std::string& text) {
    if (texts.Text(cell.Row, cell.Column) == text) return {};
    const int written = WriteText(texts, cell, text);
    return {written, texts.PlaceOf(cell.Row, cell.Column) == 0 ? 1 : 0};
}

}  // namespace

int WriteText(TTransTexts& texts, const TTransCell& cell, const std::string& text) {
    const TTableEntry* const entry = texts.Find(cell.Row);
    const int place = texts.PlaceOf(cell.Row, cell.Column);
    if (entry == nullptr || place == 0) return 0;
    const std::string& present = texts.Text(cell.Row, cell.Column);
    const std::string written = text == present ? text : WithLineBreaksOf(*entry, text);
    if (written == present) return 0;
    texts.Put(cell.Row, WithText(*entry, place, written, texts.TableOf(cell.Row).HasStates()));
    return 1;
}

int SetStates(TTransTexts& texts, const std::vector<TTransCell>& cells, TTextState state) {
    int changed = 0;
    for (const TTransCell& cell : cells) {
        const auto present = texts.State(cell.Row, cell.Column);
        if (!present || *present == state) continue;
        const TTableEntry& entry = *texts.Find(cell.Row);
        TTableEntry stated = WithState(entry, texts.PlaceOf(cell.Row, cell.Column), state);
        if (stated.Values == entry.Values) continue;
        texts.Put(cell.Row, std::move(stated));
        ++changed;
    }
    return changed;
}

int ClearTexts(TTransTexts& texts, const std::vector<TTransCell>& cells) {
    return WriteTranslations(texts, cells, [](const TTransCell&) { return std::string(); });
}

int CopyBase(TTransTexts& texts, const std::vector<TTransCell>& cells, bool onlyIntoEmpty) {
    return WriteTranslations(texts, cells, [&](const TTransCell& cell) {
        const std::string& present = texts.Text(cell.Row, cell.Column);
        return onlyIntoEmpty && !present.empty() ? present : texts.Find(cell.Row)->Base();
    });
}

int TranslateEqual(TTransTexts& texts, const std::vector<TTransCell>& cells) {
    std::unordered_map<std::string, std::string> known;
    std::set<int> columns;
    for (const TTransCell& cell : cells) {
        const auto state = texts.State(cell.Row, cell.Column);
        if (!state || *state == TTextState::Missing) continue;
        known.emplace(EqualKey(texts, cell), texts.Text(cell.Row, cell.Column));
        columns.insert(cell.Column);
    }
    int written = 0;
    const auto translate = [&](const TTransCell& cell) {
        if (texts.State(cell.Row, cell.Column) != TTextState::Missing) return;
        const auto text = known.find(EqualKey(texts, cell));
        if (text == known.end() || WriteText(texts, cell, text->second) == 0) return;
        if (texts.State(cell.Row, cell.Column) == TTextState::Missing)
            SetStates(texts, {cell}, TTextState::Done);
        ++written;
    };
    for (int table = 0; table < static_cast<int>(texts.Tables().size()); ++table)
        for (int entry = 0; entry < texts.Tables()[static_cast<std::size_t>(table)].Count(); ++entry)
            for (const int column : columns)
                translate({{table, entry}, column});
    return written;
}

// --- the clipboard

std::vector<TTransCell> SelectedCells(const TTransGrid& grid) {
    std::vector<TTransCell> cells;
    const TTransRange& range = grid.Selection();
    if (grid.HasRow())
        for (int place = range.FirstRow; place <= range.LastRow; ++place)
            for (int column = range.FirstColumn; column <= range.LastColumn; ++column)
                cells.push_back({grid.RowAt(place), column});
    return cells;
}

TCellRows TextsOf(const TTransTexts& texts, const TTransGrid& grid) {
    TCellRows rows;
    for (const TTransCell& cell : SelectedCells(grid)) {
        if (cell.Column == grid.Selection().FirstColumn) rows.emplace_back();
        rows.back().push_back(texts.Text(cell.Row, cell.Column));
    }
    return rows;
}

TTransPasted PasteTexts(TTransTexts& texts, const TTransGrid& grid, const TCellRows& rows) {
    TTransPasted pasted;
    if (!grid.HasRow()) return pasted;
    const auto add = [&](const TTransPasted& one) {
        pasted.Written += one.Written;
        pasted.Left += one.Left;
    };
    if (rows.size() == 1 && rows.front().size() == 1) {
        for (const TTransCell& cell : SelectedCells(grid))
            add(Paste(texts, cell, rows.front().front()));
        return pasted;
    }
    const int columns = static_cast<int>(texts.Languages().size()) + 1;
    int place = grid.Selection().FirstRow;
    for (const auto& row : rows) {
        int column = grid.Selection().FirstColumn;
        for (const std::string& text : row) {
            const bool isThere = place < grid.Count() && column < columns;
            add(isThere ? Paste(texts, {grid.RowAt(place), column}, text) : TTransPasted{0, 1});
            ++column;
        }
        ++place;
    }
    return pasted;
}

}  // namespace tml
