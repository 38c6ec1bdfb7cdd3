#pragma once

namespace tml {

struct TControlCanvas;

/// Pictures, and what nothing but its name is known of.
void DrawPicture(const TControlCanvas& on);
void DrawShape(const TControlCanvas& on);
void DrawComponent(const TControlCanvas& on);
void DrawNamedBox(const TControlCanvas& on);

}  // namespace tml
