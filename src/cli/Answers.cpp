#include "cli/Answers.h"

#include <algorithm>

#include "scan/Found.h"
#include "scan/Selunit.h"

namespace tml {

void TAnswers::ClearMessages() {
    Errors.clear();
    Information.clear();
}

TModalResult TAnswers::MessageDlg(const std::string& text, TMsgDlgType type, const TMsgDlgButtons& buttons) {
    const auto offers = [&](TModalResult result) {
        return std::find(buttons.begin(), buttons.end(), result) != buttons.end();
    };
    if (type == TMsgDlgType::mtError) Errors.push_back(text);
    if (type == TMsgDlgType::mtInformation) Information.push_back(text);
    if (!offers(mrYes)) return mrOk;
    if (type != TMsgDlgType::mtWarning || yes_) return mrYes;
    Errors.push_back(text + " (say --yes to go on)");
    return offers(mrCancel) ? mrCancel : mrNo;
}

bool TAnswers::InputQuery(const std::string& caption, const std::string& prompt, std::string&) {
    Errors.push_back(caption + ": " + prompt + " cannot be asked here");
    return false;
}

TModalResult TAnswers::ShowModal(TForm& form) {
    progress_.Hide();
    form.Visible = true;
    form.FormShow();
    if (auto* found = dynamic_cast<TfrmFound*>(&form); found != nullptr && Review) Review(*found);
    if (auto* units = dynamic_cast<TfrmTranslUnits*>(&form); units != nullptr && ChooseUnits)
        ChooseUnits(*units);
    form.Visible = false;
    form.FormClose();
    return form.ModalResult == mrNone ? mrCancel : form.ModalResult;
}

void TAnswers::Show(TForm& form) {
    if (form.Visible) return;
    form.Visible = true;
    form.FormShow();
}

bool TAnswers::ShowProgress(const std::string& text, int position, int maximum) {
    return progress_.Show(text, position, maximum);
}

void TAnswers::HideProgress() {
    progress_.Hide();
}

}  // namespace tml
