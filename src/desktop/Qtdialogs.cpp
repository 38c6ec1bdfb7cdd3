#include "desktop/Qtdialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <array>
#include <map>

#include "base/Files.h"
#include "desktop/Filedialog.h"
#include "desktop/Formdialog.h"
#include "desktop/Icons.h"
#include "desktop/Texts.h"
#include "desktop/Views.h"

namespace tml {
namespace {

struct TButton {
    TModalResult Result;
    const char* Caption;
    QMessageBox::ButtonRole Role;
};

constexpr std::array kButtons{
    TButton{mrOk, "OK", QMessageBox::AcceptRole},
    TButton{mrCancel, "Cancel", QMessageBox::RejectRole},
    TButton{mrAbort, "&Abort", QMessageBox::DestructiveRole},
    TButton{mrRetry, "&Retry", QMessageBox::AcceptRole},
    TButton{mrIgnore, "&Ignore", QMessageBox::AcceptRole},
    TButton{mrYes, "&Yes", QMessageBox::YesRole},
    TButton{mrNo, "&No", QMessageBox::NoRole},
    TButton{mrClose, "&Close", QMessageBox::RejectRole},
    TButton{mrHelp, "&Help", QMessageBox::HelpRole},
    TButton{mrTryAgain, "&Try Again", QMessageBox::AcceptRole},
    TButton{mrContinue, "&Continue", QMessageBox::AcceptRole},
    TButton{mrAll, "&All", QMessageBox::AcceptRole},
    TButton{mrNoToAll, "N&o to All", QMessageBox::NoRole},
    TButton{mrYesToAll, "Yes to &All", QMessageBox::YesRole},
};

const std::map<TMsgDlgType, const char*> kPictures{
    {TMsgDlgType::mtWarning, "advice"},
    {TMsgDlgType::mtError, "error"},
    {TMsgDlgType::mtInformation, "info"},
    {TMsgDlgType::mtConfirmation, "help"},
};
constexpr int kPictureSize = 32;

constexpr int kInputWidth = 360;    ///< pixels
constexpr int kTitleButtons = 160;  ///< what the frame puts beside a title, pixels

constexpr const char* kCaption = "TmlLang Expert";

/// What closing the box by Esc or its frame means.
TModalResult ResultOfEsc(const TMsgDlgButtons& buttons) {
    for (const TModalResult way : {mrCancel, mrNo, mrClose, mrAbort, mrOk})
        if (std::find(buttons.begin(), buttons.end(), way) != buttons.end()) return way;
    return mrCancel;
}

constexpr qsizetype kMostLines = 16;
constexpr qsizetype kLastLines = 2;
constexpr qsizetype kLongestLine = 300;

/// A message of hundreds of lines would push the buttons off the screen: its begin and end stay.
QString ShortText(const QString& text) {
    QStringList lines = text.split('\n');
    const qsizetype left = lines.size() - kMostLines;
    if (left > 0) {
        const qsizetype first = kMostLines - kLastLines;
        lines.remove(first, left);
        lines.insert(first, QString("... (%1 more lines)").arg(left));
    }
    for (QString& line : lines)
        if (line.size() > kLongestLine) line = line.left(kLongestLine) + "...";
    return lines.join('\n');
}

QString ProjectFolder(const THost& host) {
    const auto project = host.Services->GetModuleServices()->GetActiveProject();
    return project == nullptr ? QString() : ToQt(FolderOf(project->GetFileName()));
}

}  // namespace

QWidget* TQtDialogs::Front() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    // A window that stands open beside the main one gets the keys back.
    QWidget* active = QApplication::activeWindow();
    return dynamic_cast<TFormDialog*>(active) == nullptr ? Parent.data() : active;
}

TModalResult TQtDialogs::MessageDlg(const std::string& text, TMsgDlgType type,
                                    const TMsgDlgButtons& buttons) {
    progress_.Hide();
    QMessageBox box(QMessageBox::NoIcon, kCaption, {}, QMessageBox::NoButton, Front());
    box.setIconPixmap(PictureOf(kPictures.at(type)).pixmap(kPictureSize));
    box.setTextFormat(Qt::PlainText);
    const QString whole = ToQt(text);
    box.setText(ShortText(whole));
    if (box.text() != whole) box.setDetailedText(whole);
    std::map<const QAbstractButton*, TModalResult> results;
    for (const TButton& button : kButtons) {
        if (std::find(buttons.begin(), buttons.end(), button.Result) == buttons.end()) continue;
        QPushButton* added = box.addButton(ToQt(button.Caption), button.Role);
        results[added] = button.Result;
        if (button.Result == ResultOfEsc(buttons)) box.setEscapeButton(added);
        if (button.Result == buttons.front()) box.setDefaultButton(added);
    }
    box.exec();
    const auto clicked = results.find(box.clickedButton());
    return clicked == results.end() ? ResultOfEsc(buttons) : clicked->second;
}

bool TQtDialogs::InputQuery(const std::string& caption, const std::string& prompt, std::string& value) {
    progress_.Hide();
    QInputDialog box(Front());
    box.setWindowTitle(ToQt(caption));
    box.setLabelText(ToQt(prompt));
    box.setTextValue(ToQt(value));
    // The box takes its width from its parts, its title is none of them.
    QLineEdit& edit = *box.findChild<QLineEdit*>();
    edit.setMinimumWidth(
        std::max(kInputWidth, box.fontMetrics().horizontalAdvance(box.windowTitle()) + kTitleButtons));
    if (box.exec() != QDialog::Accepted) return false;
    value = FromQt(box.textValue());
    return true;
}

TModalResult TQtDialogs::ShowModal(TForm& form) {
    progress_.Hide();
    const TViewServices& services = Services();
    if (ShowFileDialog(form, ProjectFolder(services.Host), Front())) return form.ModalResult;
    std::unique_ptr<TView> view = MakeView(form, services);
    // A command has opened the unit that the window is about: it shall stand behind it.
    if (services.Runner.After) services.Runner.After();
    return TFormDialog(form, std::move(view), services, Front()).Execute();
}

bool TQtDialogs::ShowProgress(const std::string& text, int position, int maximum) {
    return progress_.Show(Front(), text, position, maximum);
}

}  // namespace tml
