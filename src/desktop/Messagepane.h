#pragma once

#include <QTreeWidget>
#include <functional>
#include <string>

namespace tml {

/// What went wrong, a line each; a line with a file leads there.
class TMessagePane : public QTreeWidget {
  public:
    TMessagePane();

    /// Called for a line that is double-clicked or entered; line is 1-based, 0 without one.
    std::function<void(const std::string& file, int line)> OnGoTo;

    void AddMessage(const std::string& file, int line, const std::string& text);
};

}  // namespace tml
