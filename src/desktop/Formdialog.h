#pragma once

#include <QDialog>
#include <memory>

#include "desktop/View.h"

namespace tml {

/// A modal window: frames the view of a form and keeps the form's life from FormShow to FormClose.
class TFormDialog : public QDialog {
  public:
    TFormDialog(TForm& form, std::unique_ptr<TView> view, const TViewServices& services, QWidget* parent);
    ~TFormDialog() override;
    TFormDialog(const TFormDialog&) = delete;
    TFormDialog& operator=(const TFormDialog&) = delete;

    /// Shows it until it is closed; gives the form's result. What FormShow throws passes on.
    TModalResult Execute();
    /// Shows it beside the other windows; it frees itself once it is closed. The form may go then.
    void ShowOpen();
    const TForm* Form() const { return form_; }
    /// Asked for by Esc and the window's close button.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    /// Brings it where it stood, with what the form holds.
    void Begin();
    void End();
    void FormChanged();
    /// Makes it as small as its screen.
    void FitOnScreen();
    /// What has no room, which is the size that it needs at least, is scrolled to, but for the buttons.
    void Scroll(const QSize& least);
    void FocusActiveControl();
    void TryClose();
    void StoreLayout();
    std::string PlaceName() const;

    TForm* form_;  ///< nullptr once the window is closed
    TView* view_;
    const TViewServices& services_;
    bool asking_ = false;
};

}  // namespace tml
