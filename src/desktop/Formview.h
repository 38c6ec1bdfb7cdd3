#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "desktop/Formcanvas.h"
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

/// The picture of a form in its designer: a click selects the component that is seen there, Ctrl and Shift
/// add it; the arrows go from one to the next, Esc to what it stands in.
class TFormPicture : public TFormCanvas {
  public:
    explicit TFormPicture(TFormDesign& design);

    /// The person has selected these, by their indexes.
    std::function<void(const std::vector<int>& indexes)> OnSelect;
    std::function<void()> OnEdit;  ///< Enter or a double click
    std::function<void()> OnDelete;
    std::function<void(const QPoint& at)> OnMenu;

    void Show(TLayoutNode form, const TLayoutOptions& options);
    /// Where the component is seen; empty for one that is not drawn.
    QRect PlaceOf(int component) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    /// Index of the component that is seen there, the form's where no other is.
    int ComponentAt(const QPoint& at) const;
    int ComponentOf(const TLayoutItem& item) const;
    void SelectNext(int step);

    TFormDesign& design_;
    std::unordered_map<const TLayoutNode*, std::string> paths_;
};

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
    void ScrollToSelected();
    void ShowNotes(QStringList notes);

    IMlRuntime& runtime_;
    TFormDesign design_;
    std::weak_ptr<IOTAFormEditor> form_;
    TFormTextView* text_;
    TFormPicture* picture_;
    TDesignPanel* panel_;
    QScrollArea* scroll_;
    QStackedWidget* pages_;
    QAction* showPicture_;
    QAction* showText_;
    QAction* languagesShown_;
    QComboBox* languages_;
    QLabel* notes_;
    std::vector<int> selected_;  ///< as the picture was scrolled for it
};

}  // namespace tml
