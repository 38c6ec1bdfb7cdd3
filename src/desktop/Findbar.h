#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class QsciScintilla;

namespace Ui {
class Findbar;
}

namespace tml {

/// Finds a text in the editor in front.
class TFindBar : public QWidget {
  public:
    /// current gives the editor, nullptr when there is none.
    explicit TFindBar(std::function<QsciScintilla*()> current);
    ~TFindBar() override;

    /// Shows the bar, with the selected word.
    void Open();
    void FindNext(bool forward);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Close();

    std::function<QsciScintilla*()> current_;
    std::unique_ptr<Ui::Findbar> ui_;
};

}  // namespace tml
