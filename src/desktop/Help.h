#pragma once

#include <QDialog>
#include <string>

class QListWidget;
class QTextBrowser;

namespace tml {

/// The manual, one page a window.
class THelp : public QDialog {
  public:
    explicit THelp(QWidget* parent);

    /// Shows the page of a window ("frmFound"), the first page for any other topic.
    void ShowTopic(const std::string& topic);

  private:
    void GoTo(const QString& page);

    QListWidget* contents_;
    QTextBrowser* page_;
};

}  // namespace tml
