#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Tabseparated.h"
#include "runtime/Transgrid.h"
#include "runtime/Transwalk.h"

namespace tml {

// What a person does with cells, as parts of the step that EndStep of the texts ends. Each gives the number
// of cells that are others now; keys, and cells of languages that a form has not got, are passed over.

/// Line breaks become those of the entry.
int WriteText(TTransTexts& texts, const TTransCell& cell, const std::string& text);
/// Of translations, base texts stay.
int SetStates(TTransTexts& texts, const std::vector<TTransCell>& cells, TTextState state);
int ClearTexts(TTransTexts& texts, const std::vector<TTransCell>& cells);
int CopyBase(TTransTexts& texts, const std::vector<TTransCell>& cells, bool onlyIntoEmpty);
/// What is missing anywhere gets the text that one of the cells has for the same base text in the same
/// languages. None where the walk over all texts is stopped, and nothing has changed.
std::optional<int> TranslateEqual(TTransTexts& texts, const std::vector<TTransCell>& cells,
                                  const TTransWalk::TGoesOn& goesOn);

/// The selected cells, row by row.
std::vector<TTransCell> SelectedCells(const TTransGrid& grid);
TCellRows TextsOf(const TTransTexts& texts, const TTransGrid& grid);

struct TTransPasted {
    int Written = 0;
    int Left = 0;       ///< texts that have no cell, or one that takes none
    TTransRange Range;  ///< the cells that the texts are for
};
/// From the first selected cell on; a single text goes into every selected cell.
TTransPasted PasteTexts(TTransTexts& texts, const TTransGrid& grid, const TCellRows& rows);

}  // namespace tml
