#include "runtime/Transedits.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string_view>
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
struct TEqualKey {
    int Column;
    std::string_view BaseLanguage;
    std::string_view Base;

    bool operator==(const TEqualKey&) const = default;
};
struct TEqualHash {
    std::size_t operator()(const TEqualKey& key) const {
        return std::hash<std::string_view>()(key.Base) + static_cast<std::size_t>(key.Column);
    }
};

TEqualKey EqualKey(const TTransTexts& texts, const TTransCell& cell) {
    return {cell.Column, texts.FormOf(cell.Row).Languages[0], texts.Find(cell.Row)->Base()};
}

/// The translations among some cells, to be given to what is missing.
class TKnownTexts {
  public:
    /// Nothing may be written while it lives.
    TKnownTexts(const TTransTexts& texts, const std::vector<TTransCell>& cells) : texts_(texts) {
        known_.reserve(cells.size());
        for (const TTransCell& cell : cells) {
            const auto state = texts.State(cell.Row, cell.Column);
            if (!state || *state == TTextState::Missing) continue;
            known_.emplace(EqualKey(texts, cell), &texts.Text(cell.Row, cell.Column));
            columns_.insert(cell.Column);
        }
    }
    const std::set<int>& Columns() const { return columns_; }
    /// nullptr where a cell is not missing, or where no text is known for it.
    const std::string* For(const TTransCell& cell) const {
        if (texts_.State(cell.Row, cell.Column) != TTextState::Missing) return nullptr;
        const auto found = known_.find(EqualKey(texts_, cell));
        return found == known_.end() ? nullptr : found->second;
    }

  private:
    const TTransTexts& texts_;
    std::unordered_map<TEqualKey, const std::string*, TEqualHash> known_;
    std::set<int> columns_;
};

struct TNewText {
    TTransCell Cell;
    std::string Text;
};

/// None where the walk is stopped.
std::optional<std::vector<TNewText>> EqualTexts(const TTransTexts& texts,
                                                const std::vector<TTransCell>& cells,
                                                const TTransWalk::TGoesOn& goesOn) {
    if (!goesOn(0, static_cast<int>(cells.size()))) return std::nullopt;
    const TKnownTexts known(texts, cells);
    const int tables = static_cast<int>(texts.Tables().size());
    const auto count = [&](int table) { return texts.Tables()[static_cast<std::size_t>(table)].Count(); };
    int all = 0;
    for (int table = 0; table < tables; ++table)
        all += count(table);
    TTransWalk walk(all, goesOn);
    std::vector<TNewText> found;
    for (int table = 0; table < tables; ++table)
        for (int entry = 0; entry < count(table); ++entry) {
            if (!walk.GoesOn()) return std::nullopt;
            for (const int column : known.Columns())
                if (const std::string* text = known.For({{table, entry}, column}))
                    found.push_back({{{table, entry}, column}, *text});
        }
    return found;
}

/// Nothing is left of a text that the cell has already.
TTransPasted Paste(TTransTexts& texts, const TTransCell& cell, const std::string& text) {
    if (texts.Text(cell.Row, cell.Column) == text) return {};
    const int written = WriteText(texts, cell, text);
    return {written, texts.PlaceOf(cell.Row, cell.Column) == 0 ? 1 : 0, {}};
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

std::optional<int> TranslateEqual(TTransTexts& texts, const std::vector<TTransCell>& cells,
                                  const TTransWalk::TGoesOn& goesOn) {
    const auto found = EqualTexts(texts, cells, goesOn);
    if (!found) return std::nullopt;
    TTransWalk writing(static_cast<int>(found->size()), goesOn);
    int written = 0;
    for (const auto& [cell, text] : *found) {
        writing.GoesOn();  // what is begun is not stopped, it can be undone
        int changes = WriteText(texts, cell, text);
        // What equals the base text is as little in doubt here as where it comes from.
        if (texts.State(cell.Row, cell.Column) == TTextState::Missing)
            changes += SetStates(texts, {cell}, TTextState::Done);
        if (changes > 0) ++written;
    }
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
    TTransPasted pasted{0, 0, grid.Selection()};
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
    pasted.Range.LastColumn = pasted.Range.FirstColumn;
    for (const auto& row : rows) {
        int column = grid.Selection().FirstColumn;
        for (const std::string& text : row) {
            const bool isThere = place < grid.Count() && column < columns;
            add(isThere ? Paste(texts, {grid.RowAt(place), column}, text) : TTransPasted{0, 1, {}});
            if (isThere) pasted.Range.LastColumn = std::max(pasted.Range.LastColumn, column);
            ++column;
        }
        ++place;
    }
    pasted.Range.LastRow = place - 1;
    return pasted;
}

}  // namespace tml
