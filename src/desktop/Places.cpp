#include "desktop/Places.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "desktop/Texts.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\Workbench";
constexpr const char* kDocks = "Docks";
constexpr const char* kExpert = "OpensExpert";
constexpr const char* kForm = "TranslatesOnForm";
constexpr const char* kRecent = "RecentProjects";
constexpr int kMostRecent = 10;
constexpr int kLargestSize = 10'000;

}  // namespace

QSize RoomFor(const QWidget& window) {
    const QStyle& style = *window.style();
    const int border = 2 * style.pixelMetric(QStyle::PM_DefaultFrameWidth);
    return window.screen()->availableGeometry().size() -
           QSize(border, border + style.pixelMetric(QStyle::PM_TitleBarHeight));
}

void PutAt(QWidget& window, const TPlacement& place) {
    window.resize(place.Width.value_or(window.width()), place.Height.value_or(window.height()));
    if (!place.Left || !place.Top) return;
    const QPoint at(*place.Left, *place.Top);
    if (QGuiApplication::screenAt(at) != nullptr) window.move(at);
}

void PutAtFoot(QWidget& window) {
    const QRect over = window.parentWidget()->frameGeometry();
    const QRect room = window.screen()->availableGeometry();
    const int border = window.style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const int left = std::max(over.center().x() - window.width() / 2, room.left());
    const int top = std::min(over.bottom(), room.bottom()) - window.height() - 2 * border -
                    window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    window.move(left, std::max(top, room.top()));
}

void NotePlace(const QWidget& window, TPlacement& place) {
    place = {window.width(), window.height(), window.y(), window.x()};
}

QByteArray TPlaces::Bytes(const std::string& name) {
    return QByteArray::fromBase64(QByteArray::fromStdString(registry_.ReadString(kKey, name).value_or("")));
}

void TPlaces::SetBytes(const std::string& name, const QByteArray& bytes) {
    registry_.WriteString(kKey, name, bytes.toBase64().toStdString());
}

void TPlaces::Restore(QWidget& window, const std::string& name) {
    window.restoreGeometry(Bytes(name));
}

void TPlaces::Save(const QWidget& window, const std::string& name) {
    SetBytes(name, window.saveGeometry());
}

std::vector<int> TPlaces::Sizes(const std::string& name) {
    std::vector<int> sizes;
    for (const QString& size :
         ToQt(registry_.ReadString(kKey, name).value_or("")).split(' ', Qt::SkipEmptyParts))
        sizes.push_back(std::clamp(size.toInt(), 0, kLargestSize));
    return sizes;
}

void TPlaces::SetSizes(const std::string& name, const std::vector<int>& sizes) {
    QStringList texts;
    for (const int size : sizes)
        texts += QString::number(size);
    registry_.WriteString(kKey, name, FromQt(texts.join(' ')));
}

void TPlaces::RestoreState(QMainWindow& window) {
    window.restoreState(Bytes(kDocks));
}

void TPlaces::SaveState(const QMainWindow& window) {
    SetBytes(kDocks, window.saveState());
}

bool TPlaces::WantsExpert() {
    return registry_.ReadInteger(kKey, kExpert).value_or(1) != 0;
}

void TPlaces::SetWantsExpert(bool wants) {
    registry_.WriteInteger(kKey, kExpert, wants ? 1 : 0);
}

bool TPlaces::WantsForm() {
    return registry_.ReadInteger(kKey, kForm).value_or(1) != 0;
}

void TPlaces::SetWantsForm(bool wants) {
    registry_.WriteInteger(kKey, kForm, wants ? 1 : 0);
}

QStringList TPlaces::RecentProjects() {
    return ToQt(TStringList::FromText(registry_.ReadString(kKey, kRecent).value_or("")));
}

void TPlaces::AddRecentProject(const QString& path) {
    QStringList paths = RecentProjects();
    paths.removeAll(path);
    paths.prepend(path);
    registry_.WriteString(kKey, kRecent, FromQt(paths.mid(0, kMostRecent).join("\n")));
}

}  // namespace tml
