#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "desktop/Progressbox.h"
#include "desktop/View.h"
#include "platform/Dialogs.h"

namespace tml {

/// The person at the workbench.
class TQtDialogs : public IDialogs {
  public:
    /// To be set before anything is shown: the window that stands behind the dialogs, what the views use,
    /// who shows windows that stay open, and who lists errors.
    QPointer<QWidget> Parent;
    std::function<const TViewServices&()> Services;
    std::function<void(TForm&)> ShowWindow;
    std::function<void(const std::string& topic)> ShowTopic;
    std::function<void(const std::exception& error)> OnError;

    TModalResult MessageDlg(const std::string& text, TMsgDlgType type,
                            const TMsgDlgButtons& buttons) override;
    bool InputQuery(const std::string& caption, const std::string& prompt, std::string& value) override;
    TModalResult ShowModal(TForm& form) override;
    void Show(TForm& form) override { ShowWindow(form); }
    bool ShowProgress(const std::string& text, int position, int maximum) override;
    void HideProgress() override { progress_.Hide(); }
    void ShowHelp(const std::string& topic) override { ShowTopic(topic); }
    void NoteError(const std::exception& error) override { OnError(error); }

  private:
    /// The window in front, so that boxes stand on it.
    QWidget* Front() const;

    TProgressBox progress_;
};

}  // namespace tml
