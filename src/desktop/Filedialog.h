#pragma once

#include "windows/Filedialogs.h"

class QString;
class QWidget;

namespace tml {

/// Shows the desktop's dialog for files. startFolder is where it opens when nothing is proposed.
TModalResult ShowFileDialog(TOpenDialog& form, const QString& startFolder, QWidget* parent);

}  // namespace tml
