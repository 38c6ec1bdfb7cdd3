#pragma once

#include <QIcon>
#include <string_view>

namespace tml {

/// The picture of a command by its component name ("Languages1", "tbLanguages"), empty when it has none. It
/// is drawn in the colours of the palette at any size.
QIcon IconOf(std::string_view name);
/// The picture of an SVG among the resources, "form" for icons/form.svg.
QIcon PictureOf(const QString& file);
/// The program's own icon, in its own colours.
QIcon ProgramIcon();

}  // namespace tml
