#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "desktop/Designpicture.h"
#include "ide/Formdesign.h"
#include "platform/Mlruntime.h"

class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QStackedWidget;
class QToolBar;

namespace tml {

class TDesignPanel;
class TFormTextView;
class TRunner;

/// A form in a tab: its picture in any of its languages, with the panes of its designer, and its text, one of
/// them in front.
class TFormView : public QWidget {
  public:
    TFormView(const std::string& fileName, THeadlessIde& ide, IMlRuntime& runtime, TRunner& runner);

    TFormTextView& Text() const { return *text_; }
    void ShowPicture();
    void ShowText();
    /// Takes text and picture anew from the form, nullptr where there is none.
    void Follow(const std::shared_ptr<IOTAFormEditor>& form, const std::string& text);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakePicturePage();
    QToolBar* MakeBar();
    QAction* AddSwitch(QToolBar& bar, const char* name, const char* caption, int page);
    void FollowLanguages();
    /// Nothing while it is behind something else.
    void Draw();
    TLayoutNode FormInLanguage(IOTAFormEditor& form) const;
    void FollowPages();
    void ScrollToSelected();
    void ShowNotes(QStringList notes);

    IMlRuntime& runtime_;
    TFormDesign design_;
    std::weak_ptr<IOTAFormEditor> form_;
    TFormTextView* text_;
    TDesignPicture* picture_;
    TDesignPanel* panel_;
    QScrollArea* scroll_;
    QStackedWidget* pages_;
    QAction* showPicture_;
    QAction* showText_;
    QAction* languagesShown_;
    QComboBox* languages_;
    QLabel* notes_;
    std::vector<int> selected_;  ///< as the picture was scrolled for it
    /// Paths of the pages that stand in front because something on them was selected, the last one last.
    std::vector<std::string> openPages_;
};

}  // namespace tml
