#pragma once

#include <functional>
#include <optional>
#include <string>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "cli/Progressline.h"
#include "platform/Dialogs.h"

namespace tml {

/// Answers the system's questions from the command's options. Naming the command is consent to what it
/// does; a warning (overwriting, deleting) is answered with Yes only on --yes.
class TAnswers : public IDialogs {
  public:
    explicit TAnswers(bool yes) : yes_(yes) {}

    /// Has the answer stand in for the person in every window of the class: it works with the window until
    /// that has a ModalResult. A window that nobody answers is cancelled.
    template <typename Form>
    void On(std::function<void(Form&)> answer) {
        windows_[typeid(Form)] = [answer = std::move(answer)](TForm& form) {
            answer(dynamic_cast<Form&>(form));
        };
    }

    /// Error messages shown since the last ClearErrors.
    std::vector<std::string> Errors;
    /// Texts of information since the last ClearErrors.
    std::vector<std::string> Information;
    void ClearMessages();
    /// What a question for a text is answered with; none is cancelled.
    std::optional<std::string> Text;

    TModalResult MessageDlg(const std::string& text, TMsgDlgType type,
                            const TMsgDlgButtons& buttons) override;
    bool InputQuery(const std::string& caption, const std::string& prompt, std::string& value) override;
    TModalResult ShowModal(TForm& form) override;
    void Show(TForm& form) override;
    bool ShowProgress(const std::string& text, int position, int maximum) override;
    void HideProgress() override;

  private:
    bool yes_;
    std::unordered_map<std::type_index, std::function<void(TForm&)>> windows_;
    TProgressLine progress_;
};

}  // namespace tml
