#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// Cells as spreadsheets put them on the clipboard: a line a row, cells separated by tabs. A cell that holds
/// a tab, a line break or a quote is enclosed in quotes, with its quotes doubled.
using TCellRows = std::vector<std::vector<std::string>>;

/// The cells of a text, row by row; line breaks inside of cells stay as they are. A quote that begins a cell
/// and has no end there stands for itself.
TCellRows ReadTabSeparated(std::string_view text);

/// Each row ends with CR LF, but for a single cell, which stands alone.
std::string WriteTabSeparated(const TCellRows& rows);

}  // namespace tml
