#pragma once

namespace tml {

struct TControlCanvas;

/// What holds other controls, or stands between them.
void DrawForm(const TControlCanvas& on);
void DrawPanel(const TControlCanvas& on);
void DrawGroupBox(const TControlCanvas& on);
void DrawOutline(const TControlCanvas& on);
void DrawScrollBox(const TControlCanvas& on);
void DrawPages(const TControlCanvas& on);
void DrawToolBar(const TControlCanvas& on);
void DrawCoolBar(const TControlCanvas& on);
void DrawStatusBar(const TControlCanvas& on);
void DrawSplitter(const TControlCanvas& on);
void DrawDividerBevel(const TControlCanvas& on);

}  // namespace tml
