#include "desktop/Changedfile.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/Files.h"
#include "desktop/Places.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr QSize kSize(760, 420);

}  // namespace

TChangedFileWay AskAboutChangedFile(QWidget* parent, const std::string& fileName, const std::string& diff) {
    QDialog box(parent);
    box.setObjectName("changedFile");
    box.setWindowTitle(ToQt(FileNameOf(fileName)) + " has changed on the disk");
    auto* layout = new QVBoxLayout(&box);
    layout->addWidget(new QLabel("Somebody else has written the file since it was opened. The difference:"));
    auto* text = new QPlainTextEdit(ToQt(diff).remove('\r'));
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layout->addWidget(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    layout->addWidget(buttons);
    TChangedFileWay way = TChangedFileWay::Leave;
    const auto add = [&](const char* caption, const char* hint, TChangedFileWay choice) {
        QPushButton* button = buttons->addButton(caption, QDialogButtonBox::ActionRole);
        button->setToolTip(hint);
        button->setAutoDefault(false);
        QObject::connect(button, &QPushButton::clicked, &box, [&box, &way, choice] {
            way = choice;
            box.accept();
        });
    };
    add("&Reload", "Gives up what is not saved and opens the file as it is on the disk",
        TChangedFileWay::Reload);
    add("&Overwrite", "Saves what is open; what the disk holds is lost", TChangedFileWay::Overwrite);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    box.resize(kSize.boundedTo(RoomFor(box)));
    box.exec();
    return way;
}

}  // namespace tml
