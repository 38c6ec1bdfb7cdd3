#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "desktop/Runner.h"
#include "windows/Boxes.h"
#include "windows/Controls.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;

namespace tml {

class THotKeyEdit;
class TStepEdit;

/// Ties the widgets of a view to the public members of its state class: what the person changes is written
/// to the member or given to the handler, Refresh shows the members. The state must outlive the binder.
class TBinder {
  public:
    explicit TBinder(TRunner& runner) : runner_(runner) {}
    TBinder(const TBinder&) = delete;
    TBinder& operator=(const TBinder&) = delete;

    void Refresh();

    void Click(QAbstractButton* button, std::function<void()> handler);
    /// A button that closes the window with a result of its own.
    void CloseWith(QAbstractButton* button, TForm& form, TModalResult result);
    /// Without a handler the member takes the value.
    void Text(QLineEdit* edit, std::string& member, std::function<void(const std::string&)> handler = {});
    void Lines(QPlainTextEdit* edit, TStringList& member, std::function<void()> handler = {});
    void Check(QCheckBox* box, bool& member, std::function<void()> handler = {});
    /// A number that may be typed; step makes it greater (1) or smaller (-1).
    void Number(TStepEdit* edit, std::string& member, std::function<void(int step)> step,
                std::function<void(const std::string&)> handler = {});
    void ShortCut(THotKeyEdit* edit, TShortCut& member);
    /// The entries of a closed list and the chosen one.
    void Choice(QComboBox* box, TChoiceBox& choice, std::function<void()> handler = {});
    /// A text that may be typed or chosen from the entries.
    void TextOrChoice(QComboBox* box, const TStringList& items, const std::string& text,
                      std::function<void(const std::string&)> handler);
    /// Buttons of which one is down: read gives its index (-1: none of a group), choose is told of another.
    void OneOf(const std::vector<QAbstractButton*>& buttons, std::function<int()> read,
               std::function<void(int)> choose);
    /// Keys that work wherever the focus is in the view.
    void Keys(QWidget* view, const QKeySequence& keys, std::function<void()> handler);
    /// A list of names with a flag for each that is selected.
    void Names(QListWidget* list, const TStringList& names, std::vector<bool>& selected,
               std::function<void()> handler = {});
    /// index: of the item, 0-based.
    void DoubleClick(QListWidget* list, std::function<void(int index)> handler);
    /// Buttons that work on what is selected of a list, dead without a selection; F2 and a double click
    /// press the one that renames.
    void ForSelected(QListWidget* list, QAbstractButton* rename, const std::vector<QAbstractButton*>& others);
    void Enabled(QWidget* widget, const bool& member);
    void Label(QLabel* label, const std::string& member);
    /// Anything else that follows the state.
    void Show(std::function<void()> show) { shows_.push_back(std::move(show)); }

  private:
    TRunner& runner_;
    std::vector<std::function<void()>> shows_;
};

}  // namespace tml
