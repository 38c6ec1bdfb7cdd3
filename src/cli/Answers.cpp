#include "cli/Answers.h"

#include <algorithm>

namespace tml {
namespace {

std::string LinesJoined(std::string text) {
    for (std::size_t pos = 0; (pos = text.find("\r\n", pos)) != std::string::npos;)
        text.replace(pos, 2, " ");
    return text;
}

/// On a terminal a carriage return alone would write the next line over the one before.
std::string LinesShown(std::string text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\r' && text.compare(i, 2, "\r\n") != 0) text[i] = '\n';
    return text;
}

}  // namespace

void TAnswers::ClearMessages() {
    Errors.clear();
    Information.clear();
}

TModalResult TAnswers::MessageDlg(const std::string& text, TMsgDlgType type, const TMsgDlgButtons& buttons) {
    const auto offers = [&](TModalResult result) {
        return std::find(buttons.begin(), buttons.end(), result) != buttons.end();
    };
    if (type == TMsgDlgType::mtError) Errors.push_back(text);
    if (type == TMsgDlgType::mtInformation) Information.push_back(LinesJoined(text));
    if (!offers(mrYes)) return mrOk;
    if (type != TMsgDlgType::mtWarning || yes_) return mrYes;
    Errors.push_back(LinesShown(text) + " (say --yes to go on)");
    return offers(mrCancel) ? mrCancel : mrNo;
}

bool TAnswers::InputQuery(const std::string& caption, const std::string& prompt, std::string& value) {
    if (Text) value = *Text;
    if (Text) return true;
    Errors.push_back(caption + ": " + prompt + " cannot be asked here");
    return false;
}

TModalResult TAnswers::ShowModal(TForm& form) {
    progress_.Hide();
    form.Visible = true;
    form.FormShow();
    const auto answer = windows_.find(typeid(form));
    if (answer != windows_.end()) answer->second(form);
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
