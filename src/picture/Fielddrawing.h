#pragma once

namespace tml {

struct TControlCanvas;

/// Texts, and what a value is typed or set in.
void DrawLabel(const TControlCanvas& on);
void DrawEdit(const TControlCanvas& on);
void DrawSpinEdit(const TControlCanvas& on);
void DrawEditButton(const TControlCanvas& on);
void DrawComboBox(const TControlCanvas& on);
void DrawMemo(const TControlCanvas& on);
void DrawTrackBar(const TControlCanvas& on);
void DrawScrollBar(const TControlCanvas& on);
void DrawUpDown(const TControlCanvas& on);

}  // namespace tml
