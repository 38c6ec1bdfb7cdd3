#pragma once

#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

#include "windows/Controls.h"

namespace tml {

enum class TMsgDlgType { mtWarning, mtError, mtInformation, mtConfirmation };

/// The buttons of a message box, named by the result each gives.
using TMsgDlgButtons = std::vector<TModalResult>;

/// The person on the other side. Only commands talk to it, never a notification or a destructor, but for
/// NoteError.
class IDialogs {
  public:
    virtual ~IDialogs() = default;

    virtual TModalResult MessageDlg(const std::string& text, TMsgDlgType type,
                                    const TMsgDlgButtons& buttons) = 0;
    /// Asks for a text; value holds the proposal, then the answer. False on cancel.
    virtual bool InputQuery(const std::string& caption, const std::string& prompt, std::string& value) = 0;
    /// Shows a window until it is closed; gives its ModalResult.
    virtual TModalResult ShowModal(TForm& form) = 0;
    /// Shows a window that stays open, or brings it to the front.
    virtual void Show(TForm& form) = 0;

    /// The modal progress text of a long operation, with a bar where maximum is above 0. False when the
    /// person wants to stop.
    virtual bool ShowProgress(const std::string& text, int position = 0, int maximum = 0) = 0;
    virtual void HideProgress() = 0;

    /// Opens the manual at a page, named as the window that it describes ("frmFound"), "" for the first
    /// page. Does nothing where nobody reads it.
    virtual void ShowHelp(const std::string& /*topic*/) {}

    /// Lists what went wrong while the IDE was telling its news, without a box: the IDE must not be
    /// interrupted. Does nothing where a command that needs the same finds it again.
    virtual void NoteError(const std::exception& /*error*/) {}
};

/// Ends the progress text of an operation, however the operation ends.
class TProgressEnd {
  public:
    explicit TProgressEnd(IDialogs& dialogs) : dialogs_(dialogs) {}
    ~TProgressEnd() { dialogs_.HideProgress(); }
    TProgressEnd(const TProgressEnd&) = delete;
    TProgressEnd& operator=(const TProgressEnd&) = delete;

  private:
    IDialogs& dialogs_;
};

}  // namespace tml
