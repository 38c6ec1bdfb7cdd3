#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/Progressline.h"
#include "platform/Dialogs.h"

namespace tml {

class TfrmFound;
class TfrmTranslUnits;

/// Answers the system's questions from the command's options. Naming the command is consent to what it
/// does; a warning (overwriting, deleting) is answered with Yes only on --yes.
class TAnswers : public IDialogs {
  public:
    explicit TAnswers(bool yes) : yes_(yes) {}

    /// What stands in for the person in the review: changes the rows and closes the window.
    std::function<void(TfrmFound&)> Review;
    /// What stands in for the person in the choice of units.
    std::function<void(TfrmTranslUnits&)> ChooseUnits;
    /// Error messages shown since the last ClearErrors.
    std::vector<std::string> Errors;
    /// Texts of information since the last ClearErrors.
    std::vector<std::string> Information;
    void ClearMessages();

    TModalResult MessageDlg(const std::string& text, TMsgDlgType type,
                            const TMsgDlgButtons& buttons) override;
    bool InputQuery(const std::string& caption, const std::string& prompt, std::string& value) override;
    TModalResult ShowModal(TForm& form) override;
    void Show(TForm& form) override;
    bool ShowProgress(const std::string& text, int position, int maximum) override;
    void HideProgress() override;

  private:
    bool yes_;
    TProgressLine progress_;
};

}  // namespace tml
