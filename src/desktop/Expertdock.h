#pragma once

#include <QDockWidget>
#include <memory>

#include "desktop/View.h"

namespace tml {

/// The frame of a window that is not modal: the dock host of the expert's main window, or its frame where
/// it stands alone.
class TExpertDock : public QDockWidget {
  public:
    TExpertDock(TForm& form, std::unique_ptr<TView> view, TRunner& runner, QWidget* parent);
    ~TExpertDock() override;

    const TForm& Form() const { return form_; }
    /// In front, with the focus.
    void ComeForward();
    /// The window is gone: nothing of it may be touched any more.
    void Forget();

  protected:
    /// Closing it closes the window.
    void closeEvent(QCloseEvent* event) override;

  private:
    TForm& Host() const;
    void Refresh();
    void FollowDocking();
    void SetApart();

    TForm& form_;
    TRunner& runner_;
    TView* view_;
    bool gone_ = false;
    bool wasApart_ = false;
};

}  // namespace tml
