#include "desktop/Expertdock.h"

#include <QCloseEvent>
#include <QScreen>

#include "desktop/Texts.h"

namespace tml {

TExpertDock::TExpertDock(TForm& form, std::unique_ptr<TView> view, TRunner& runner, QWidget* parent)
    : QDockWidget(parent), form_(form), runner_(runner), view_(view.release()) {
    const TForm& host = Host();
    setObjectName(ToQt(host.Name));
    setWindowTitle(ToQt(host.Caption));
    setWidget(view_);
    // A docked window's changes come by way of its host.
    Host().OnChange = [this] { Refresh(); };
    connect(this, &QDockWidget::topLevelChanged, this, [this](bool isApart) {
        wasApart_ = wasApart_ || isApart;
        Refresh();
    });
    Refresh();
}

TExpertDock::~TExpertDock() {
    if (!gone_) Host().OnChange = nullptr;
}

TForm& TExpertDock::Host() const {
    return form_.Parent == nullptr ? form_ : *form_.Parent;
}

void TExpertDock::ComeForward() {
    show();
    raise();
    activateWindow();
    view_->setFocus();
}

void TExpertDock::Forget() {
    gone_ = true;
    setWidget(nullptr);
    delete view_;
    view_ = nullptr;
}

void TExpertDock::Refresh() {
    if (gone_) return;
    FollowDocking();
    view_->Refresh();
}

void TExpertDock::FollowDocking() {
    setAllowedAreas(form_.Dockable ? Qt::AllDockWidgetAreas : Qt::NoDockWidgetArea);
    if (!form_.Dockable && !isFloating()) SetApart();
    const bool onTop = (windowFlags() & Qt::WindowStaysOnTopHint) != 0;
    if (!isFloating() || onTop == form_.StayOnTop) return;
    const bool visible = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, form_.StayOnTop);
    setVisible(visible);
}

/// The first time it stands where its form says, later where it was left.
void TExpertDock::SetApart() {
    const bool first = !wasApart_;
    setFloating(true);
    if (!first) return;
    resize(Host().ClientWidth, Host().ClientHeight);
    if (Host().Centered) move(screen()->availableGeometry().center() - rect().center());
}

void TExpertDock::closeEvent(QCloseEvent* event) {
    event->ignore();
    runner_.Run([this] {
        if (!gone_) form_.FormClose();
    });
}

}  // namespace tml
