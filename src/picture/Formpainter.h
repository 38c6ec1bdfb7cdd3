#pragma once

#include <QPainter>
#include <QPalette>

#include "layout/Formlayout.h"

namespace tml {

/// Draws a form as its layout says, from the upper left corner of the painter on, in the colours of the
/// palette where the form gives none: what the area touches, each control inside of its parents only.
void PaintForm(QPainter& painter, const TFormLayout& layout, const QPalette& palette, const QRect& area);

}  // namespace tml
