#pragma once

#include <QImage>
#include <QPalette>
#include <QSize>
#include <QStringList>

#include "layout/Formlayout.h"

namespace tml {

/// Of a form's picture, in its own pixels: what lies beyond is not drawn.
constexpr int kLargestPicture = 8192;

/// The form's size within kLargestPicture, and a pixel at least.
QSize PictureSize(const TFormLayout& layout);

/// The form, so many times as large, in the colours of the palette where it gives none.
QImage DrawnForm(const TFormLayout& layout, const QPalette& palette, double scale);

/// What a person should know who looks at the picture: what the layout notes, fonts that others stand for,
/// texts that no font can show, and a form that is larger than its picture.
QStringList NotesOf(const TFormLayout& layout);

}  // namespace tml
