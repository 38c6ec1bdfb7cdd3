#pragma once

#include "windows/Filedialogs.h"

class QString;
class QWidget;

namespace tml {

/// Shows the desktop's dialog for a window that chooses files or a folder; false for any other window.
/// startFolder is where it opens when nothing is proposed.
bool ShowFileDialog(TForm& form, const QString& startFolder, QWidget* parent);

}  // namespace tml
