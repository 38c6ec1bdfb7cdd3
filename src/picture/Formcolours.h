#pragma once

#include <QColor>
#include <QPalette>
#include <string>

namespace tml {

/// A colour as a form holds it: a name ("clWindow", "clRed") or a number (blue, green and red from the
/// highest byte on). Names of the system's colours are those of the palette; invalid for "", clNone,
/// clDefault and what is no colour.
QColor ColourOf(const std::string& name, const QPalette& palette);

/// The colour where it can be told from the paper; else black or white.
QColor ReadableOn(const QColor& paper, const QColor& colour);

}  // namespace tml
