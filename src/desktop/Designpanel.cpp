#include "desktop/Designpanel.h"

#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/Componenttree.h"
#include "desktop/Inspectortable.h"
#include "desktop/Menubinding.h"
#include "desktop/Palettelist.h"
#include "desktop/Texts.h"
#include "windows/Menukeys.h"

namespace tml {
namespace {

/// The accelerator of a tab leads into its page, also where that is in front.
class TPageTabs : public QTabWidget {
  public:
    TPageTabs() { tabBar()->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        // Once the bar has chosen the page.
        if (event->type() == QEvent::Shortcut)
            QTimer::singleShot(0, this, [this] { currentWidget()->setFocus(Qt::ShortcutFocusReason); });
        return QTabWidget::eventFilter(watched, event);
    }
};

}  // namespace

TDesignPanel::TDesignPanel(TFormDesign& design, TRunner& runner)
    : QSplitter(Qt::Vertical),
      design_(design),
      runner_(runner),
      tree_(new TComponentTree(design)),
      palette_(new TPaletteList),
      inspector_(new TInspectorTable(design.Inspector())),
      title_(new QLabel) {
    setObjectName("designPanel");
    auto* tabs = new TPageTabs;
    tabs->setObjectName("designTabs");
    tabs->setDocumentMode(true);
    tabs->addTab(tree_, "Co&mponents");
    tabs->addTab(palette_, "Pa&lette");
    addWidget(tabs);
    addWidget(MakeInspector());
    connect(new QShortcut(Qt::Key_F11, this), &QShortcut::activated, inspector_,
            [this] { inspector_->setFocus(Qt::ShortcutFocusReason); });
    tree_->OnSelect = [this](const std::vector<int>& indexes) { Select(indexes); };
    tree_->OnEdit = [this] { Edit(); };
    tree_->OnDelete = [this] { Delete(); };
    tree_->OnMenu = [this](const QPoint& at) { ShowMenu(at); };
    palette_->OnPlace = [this](const std::string& className) {
        RunLater([this, className] { design_.Place(className); });
    };
    inspector_->OnSet = [this](const std::string& property, const std::string& text) {
        Run([&] { design_.Inspector().SetText(property, text); });
    };
    inspector_->OnEdit = [this](const std::string& property) {
        Run([&] { design_.Inspector().Edit(property); });
    };
    inspector_->OnReset = [this](const std::string& property) {
        Run([&] { design_.Inspector().Reset(property); });
    };
}

QWidget* TDesignPanel::MakeInspector() {
    title_->setObjectName("inspectorTitle");
    title_->setMargin(4);
    title_->setTextFormat(Qt::PlainText);
    // A long name must not widen the panel.
    title_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(title_);
    column->addWidget(inspector_, 1);
    return page;
}

void TDesignPanel::Refresh() {
    tree_->Refresh();
    palette_->Show(design_.Palette());
    title_->setText(ToQt(design_.Inspector().Title()));
    inspector_->Refresh();
}

void TDesignPanel::Run(const std::function<void()>& work) {
    runner_.Run(work);
}

void TDesignPanel::RunLater(std::function<void()> work) {
    QTimer::singleShot(0, this, [this, work = std::move(work)] { Run(work); });
}

void TDesignPanel::Select(const std::vector<int>& indexes) {
    Run([&] { design_.Select(indexes); });
}

void TDesignPanel::Edit() {
    RunLater([this] { design_.Edit(); });
}

void TDesignPanel::Delete() {
    RunLater([this] { design_.Delete(); });
}

void TDesignPanel::ShowMenu(const QPoint& at) {
    Run([this] { menu_ = design_.Menu(); });
    if (menu_.empty()) return;
    AddAccelerators(menu_);
    auto* popup = new QMenu(this);
    popup->setObjectName("componentMenu");
    const auto binding = std::make_shared<TMenuBinding>(
        popup, [this] { return menu_; }, runner_);
    connect(popup, &QMenu::aboutToHide, popup, [popup, binding] { popup->deleteLater(); });
    popup->popup(at);
}

}  // namespace tml
