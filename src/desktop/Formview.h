#pragma once

#include <QStringList>
#include <QWidget>
#include <memory>
#include <string>

#include "layout/Formlayout.h"
#include "platform/Mlruntime.h"

class QAction;
class QComboBox;
class QLabel;
class QStackedWidget;
class QToolBar;

namespace tml {

class TFormTextView;

/// A form as it is drawn, without widgets of its own.
class TFormPicture : public QWidget {
  public:
    TFormPicture();

    void Show(TLayoutNode form, const TLayoutOptions& options);
    /// Its items say where in the picture each control is.
    const TFormLayout& Layout() const { return layout_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TLayoutNode form_;  ///< what the layout points into
    TFormLayout layout_;
};

/// A form in a tab: its picture in any of its languages, and its text, one of them in front.
class TFormView : public QWidget {
  public:
    TFormView(const std::string& fileName, IMlRuntime& runtime);

    TFormTextView& Text() const { return *text_; }
    void ShowPicture();
    void ShowText();
    /// Takes text and picture anew from the form, nullptr where there is none.
    void Follow(const std::shared_ptr<IOTAFormEditor>& form, const std::string& text);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QAction* AddSwitch(QToolBar& bar, const char* name, const char* caption, int page);
    void FollowLanguages();
    /// Nothing while it is behind something else.
    void Draw();
    TLayoutNode FormInLanguage(IOTAFormEditor& form) const;
    void ShowNotes(QStringList notes);

    IMlRuntime& runtime_;
    std::weak_ptr<IOTAFormEditor> form_;
    TFormTextView* text_;
    TFormPicture* picture_;
    QStackedWidget* pages_;
    QAction* showPicture_;
    QAction* showText_;
    QAction* languagesShown_;
    QComboBox* languages_;
    QLabel* notes_;
};

}  // namespace tml
