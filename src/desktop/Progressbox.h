#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <string>

class QProgressDialog;
class QWidget;

namespace tml {

/// The modal progress text of long operations: appears when one has taken 100 ms, and lets the windows
/// breathe at most 20 times a second.
class TProgressBox {
  public:
    ~TProgressBox() { Hide(); }

    /// False when the person has cancelled.
    bool Show(QWidget* parent, const std::string& text, int position, int maximum);
    void Hide();

  private:
    QPointer<QProgressDialog> box_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceEvents_;
};

}  // namespace tml
