#pragma once

#include <QTreeWidget>
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <tuple>

namespace tml {

/// What went wrong or was done unseen, a line each; a click on a line with a file leads there.
class TMessagePane : public QTreeWidget {
  public:
    TMessagePane();

    /// Called for a line that is clicked or entered; line is 1-based, 0 without one.
    std::function<void(const std::string& file, int line)> OnGoTo;

    /// A message that comes again stands once, as the current one.
    void AddMessage(const std::string& file, int line, const std::string& text);
    /// Tells of a file what is no fault.
    void AddNote(const std::string& file, const std::string& text);
    /// With its place, where the error has one.
    void AddError(const std::exception& error);
    void ClearMessages();
    /// What was said of a file does not hold any more.
    void Forget(const std::string& file);

  private:
    void GoTo(const QTreeWidgetItem& item) const;
    void Add(const char* picture, const std::string& file, int line, const std::string& text);

    std::map<std::tuple<std::string, int, std::string>, QTreeWidgetItem*> shown_;
};

}  // namespace tml
