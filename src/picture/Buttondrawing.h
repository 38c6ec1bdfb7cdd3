#pragma once

namespace tml {

struct TControlCanvas;

/// What is pressed or checked.
void DrawButton(const TControlCanvas& on);
void DrawSpeedButton(const TControlCanvas& on);
void DrawCheckBox(const TControlCanvas& on);
void DrawRadioButton(const TControlCanvas& on);
void DrawButtonPanel(const TControlCanvas& on);

}  // namespace tml
