#pragma once

namespace tml {

struct TControlCanvas;

/// Lists, trees and grids.
void DrawList(const TControlCanvas& on);
void DrawColumns(const TControlCanvas& on);

}  // namespace tml
