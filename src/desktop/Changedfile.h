#pragma once

#include <QWidget>
#include <string>

namespace tml {

enum class TChangedFileWay { Reload, Overwrite, Leave };

/// Asks what becomes of an open file that somebody else has written meanwhile, with the difference between
/// both in sight (a unified diff).
TChangedFileWay AskAboutChangedFile(QWidget* parent, const std::string& fileName, const std::string& diff);

}  // namespace tml
