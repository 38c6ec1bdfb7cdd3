#include "desktop/Messagepane.h"

#include <QHeaderView>

#include "base/Errors.h"
#include "base/Files.h"
#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr int kFileRole = Qt::UserRole;
constexpr int kLineRole = Qt::UserRole + 1;

}  // namespace

TMessagePane::TMessagePane() {
    setObjectName("messages");
    setHeaderLabels({"File", "Line", "Message"});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    header()->resizeSection(0, 180);
    header()->resizeSection(1, 50);
    connect(this, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) { GoTo(*item); });
    connect(this, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) { GoTo(*item); });
}

void TMessagePane::GoTo(const QTreeWidgetItem& item) const {
    const QString file = item.data(0, kFileRole).toString();
    if (!file.isEmpty() && OnGoTo) OnGoTo(FromQt(file), item.data(0, kLineRole).toInt());
}

void TMessagePane::AddMessage(const std::string& file, int line, const std::string& text) {
    Add("error", file, line, text);
}

void TMessagePane::AddNote(const std::string& file, const std::string& text) {
    Add("info", file, 0, text);
}

void TMessagePane::Add(const char* picture, const std::string& file, int line, const std::string& text) {
    QTreeWidgetItem*& item = shown_[{file, line, text}];
    // One that is there may be the one whose click has brought the message.
    if (item != nullptr) return setCurrentItem(item);
    item = new QTreeWidgetItem(this);
    item->setIcon(0, PictureOf(picture));
    item->setText(0, ToQt(FileNameOf(file)));
    item->setToolTip(0, ToQt(file));
    item->setText(1, line > 0 ? QString::number(line) : QString());
    item->setText(2, ToQt(text).simplified());
    item->setToolTip(2, ToQt(text));
    item->setData(0, kFileRole, ToQt(file));
    item->setData(0, kLineRole, line);
    setCurrentItem(item);
}

void TMessagePane::ClearMessages() {
    shown_.clear();
    clear();
}

void TMessagePane::Forget(const std::string& file) {
    std::erase_if(shown_, [&](const auto& message) {
        const bool isOfFile = std::get<0>(message.first) == file;
        if (isOfFile) delete message.second;
        return isOfFile;
    });
}

void TMessagePane::AddError(const std::exception& error) {
    if (const auto* bad = dynamic_cast<const EBadInput*>(&error))
        AddMessage(bad->File(), bad->Line(), bad->Problem());
    else
        AddMessage({}, 0, error.what());
}

}  // namespace tml
