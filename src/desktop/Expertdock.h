#pragma once

#include <QDockWidget>

#include "desktop/Formslistview.h"

namespace tml {

/// The dock host of the expert's main window, or its frame where it stands alone.
class TExpertDock : public QDockWidget {
  public:
    TExpertDock(TfrmmlLang& form, const TViewServices& services, QWidget* parent);
    ~TExpertDock() override;

    const TfrmmlLang& Form() const { return form_; }
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

    TfrmmlLang& form_;
    TRunner& runner_;
    TFormsListView* view_;
    bool gone_ = false;
    bool wasApart_ = false;
};

}  // namespace tml
