#pragma once

#include <QImage>

#include "layout/Layoutnode.h"

namespace tml {

/// The picture that a form holds for a button, the first one of those beside each other, with the colour of
/// its lower left corner seen through; null where the form holds none, or none that can be read.
QImage GlyphIn(const TLayoutNode& button);

/// The picture that a form holds for an image; null likewise.
QImage ImageIn(const TLayoutNode& image);

}  // namespace tml
