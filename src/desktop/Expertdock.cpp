#include "desktop/Expertdock.h"

#include <QCloseEvent>

#include "desktop/Texts.h"

namespace tml {

TExpertDock::TExpertDock(TfrmmlLang& form, const TViewServices& services, QWidget* parent)
    : QDockWidget(parent), form_(form), runner_(services.Runner), view_(new TFormsListView(form, services)) {
    TForm& host = form_.Parent == nullptr ? static_cast<TForm&>(form_) : *form_.Parent;
    setObjectName(ToQt(host.Name));
    setWindowTitle(ToQt(host.Caption));
    setWidget(view_);
    // A docked window's changes come by way of its host.
    host.OnChange = [this] { Refresh(); };
    connect(this, &QDockWidget::topLevelChanged, this, [this] { Refresh(); });
    Refresh();
}

TExpertDock::~TExpertDock() {
    if (gone_) return;
    TForm& host = form_.Parent == nullptr ? static_cast<TForm&>(form_) : *form_.Parent;
    host.OnChange = nullptr;
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
    if (!form_.Dockable && !isFloating()) setFloating(true);
    const bool onTop = (windowFlags() & Qt::WindowStaysOnTopHint) != 0;
    if (!isFloating() || onTop == form_.StayOnTop) return;
    const bool visible = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, form_.StayOnTop);
    setVisible(visible);
}

void TExpertDock::closeEvent(QCloseEvent* event) {
    event->ignore();
    runner_.Run([this] {
        if (!gone_) form_.FormClose();
    });
}

}  // namespace tml
