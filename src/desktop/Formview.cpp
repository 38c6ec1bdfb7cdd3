#include "desktop/Formview.h"

#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "base/Errors.h"
#include "core/Modules.h"
#include "desktop/Codeeditor.h"
#include "desktop/Designpanel.h"
#include "desktop/Texts.h"
#include "layout/Layoutclasses.h"
#include "layout/Openpages.h"
#include "picture/Formpicture.h"
#include "runtime/Shownform.h"

namespace tml {
namespace {

constexpr int kDesk = 16;  ///< pixels around a form
constexpr int kPictureWidth = 700;
constexpr int kPanelWidth = 300;
constexpr int kNotesTold = 3;  ///< the others in the hint
enum TFormPage { pgPicture, pgText };

}  // namespace

TFormView::TFormView(const std::string& fileName, THeadlessIde& ide, IMlRuntime& runtime, TRunner& runner)
    : runtime_(runtime),
      design_(ide, runtime),
      text_(new TFormTextView(fileName)),
      picture_(new TDesignPicture(design_)),
      panel_(new TDesignPanel(design_, runner)) {
    picture_->OnSelect = [this](const std::vector<int>& indexes) { panel_->Select(indexes); };
    picture_->OnEdit = [this] { panel_->Edit(); };
    picture_->OnDelete = [this] { panel_->Delete(); };
    picture_->OnMenu = [this](const QPoint& at) { panel_->ShowMenu(at); };
    pages_ = new QStackedWidget;
    pages_->addWidget(MakePicturePage());
    pages_->addWidget(text_);
    notes_ = new QLabel;
    notes_->setObjectName("formNotes");
    notes_->setMargin(4);
    notes_->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeBar());
    column->addWidget(pages_, 1);
    column->addWidget(notes_);
    showPicture_->setChecked(true);
}

QWidget* TFormView::MakePicturePage() {
    auto* desk = new QWidget;
    auto* around = new QVBoxLayout(desk);
    around->setContentsMargins(kDesk, kDesk, kDesk, kDesk);
    around->addWidget(picture_);
    around->setSizeConstraint(QLayout::SetFixedSize);
    scroll_ = new QScrollArea;
    scroll_->setBackgroundRole(QPalette::Mid);
    scroll_->setWidget(desk);
    auto* page = new QSplitter;
    page->addWidget(scroll_);
    page->addWidget(panel_);
    page->setStretchFactor(0, 1);
    page->setSizes({kPictureWidth, kPanelWidth});
    page->setFocusProxy(picture_);
    return page;
}

QToolBar* TFormView::MakeBar() {
    auto* bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* switches = new QActionGroup(this);
    showPicture_ = AddSwitch(*bar, "showPicture", "P&icture", pgPicture);
    showText_ = AddSwitch(*bar, "showText", "Te&xt", pgText);
    switches->addAction(showPicture_);
    switches->addAction(showText_);
    languages_ = new QComboBox;
    languages_->setObjectName("formLanguages");
    languages_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    languages_->setToolTip("Language in which the picture shows the form");
    auto* label = new QLabel("Lan&guage:");
    label->setBuddy(languages_);
    label->setMargin(4);
    auto* chooser = new QWidget;
    auto* row = new QHBoxLayout(chooser);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(languages_);
    bar->addSeparator();
    languagesShown_ = bar->addWidget(chooser);
    connect(languages_, &QComboBox::currentIndexChanged, this, [this] { Draw(); });
    return bar;
}

QAction* TFormView::AddSwitch(QToolBar& bar, const char* name, const char* caption, int page) {
    auto* action = new QAction(caption, &bar);
    // The text of a button, with its accelerator.
    action->setIconText(caption);
    bar.addAction(action);
    action->setObjectName(name);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this, page](bool isOn) {
        if (!isOn) return;
        pages_->setCurrentIndex(page);
        setFocusProxy(pages_->currentWidget());
        languagesShown_->setVisible(page == pgPicture && languages_->count() > 0);
        Draw();
    });
    connect(action, &QAction::triggered, this,
            [this] { pages_->currentWidget()->setFocus(Qt::ShortcutFocusReason); });
    return action;
}

void TFormView::ShowPicture() {
    showPicture_->setChecked(true);
}

void TFormView::ShowText() {
    showText_->setChecked(true);
}

void TFormView::Follow(const std::shared_ptr<IOTAFormEditor>& form, const std::string& text) {
    form_ = form;
    text_->SetContent(text);
    FollowLanguages();
    Draw();
}

/// The active language comes first. The chosen one stays as long as the form has it.
void TFormView::FollowLanguages() {
    const QSignalBlocker quiet(languages_);
    const QString chosen = languages_->currentIndex() > 0 ? languages_->currentText() : QString();
    languages_->clear();
    if (const auto form = form_.lock())
        if (const auto lang = FindCustomLang(runtime_, *form)) {
            const TStringList names = lang->GetLangNames();
            const int active = lang->GetActiveLanguage();
            for (int place = 1; place <= names.Count(); ++place)
                languages_->insertItem(place == active ? 0 : languages_->count(), ToQt(names[place - 1]),
                                       place);
        }
    const int again = languages_->findText(chosen);
    languages_->setCurrentIndex(chosen.isEmpty() || again < 0 ? 0 : again);
    languagesShown_->setVisible(showPicture_->isChecked() && languages_->count() > 0);
}

TLayoutNode TFormView::FormInLanguage(IOTAFormEditor& form) const {
    const auto lang = FindCustomLang(runtime_, form);
    return TShownForm(runtime_, form.GetRootComponent(), lang.get()).In(languages_->currentData().toInt());
}

/// What is selected is seen, as the form itself does not show it: pages come to front and stay there.
void TFormView::FollowPages() {
    const std::vector<TTreeComponent>& components = design_.Components();
    const std::vector<int> selected = design_.Selected();
    for (int index = selected.empty() ? 0 : selected.back(); index > 0;) {
        const TTreeComponent& one = components[static_cast<std::size_t>(index)];
        const TLayoutClass* const row = FindLayoutClass(one.ClassName);
        if (row != nullptr && row->Kind == TLayoutKind::Page) {
            std::erase(openPages_, one.Path);
            openPages_.push_back(one.Path);
            break;
        }
        index = one.Parent;
    }
    std::erase_if(openPages_, [this](const std::string& page) { return design_.Find(page) < 0; });
}

void TFormView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Draw();
}

void TFormView::Draw() {
    const auto form = form_.lock();
    if (form == nullptr || !picture_->isVisible()) return ShowNotes({});
    QStringList notes;
    try {
        design_.Follow(form);
        FollowPages();
        TLayoutNode shown = FormInLanguage(*form);
        for (const std::string& page : openPages_)
            OpenPagesTo(shown, page);
        picture_->Show(std::move(shown), {LookOf(form->GetFileName())});
        notes = NotesOf(picture_->Layout());
    } catch (const EBadInput& error) {
        notes += ToQt(error.what());
    }
    panel_->Refresh();
    ScrollToSelected();
    ShowNotes(notes);
}

/// To what has been selected meanwhile.
void TFormView::ScrollToSelected() {
    const std::vector<int> selected = design_.Selected();
    if (selected == selected_) return;
    selected_ = selected;
    const QRect place = selected.empty() ? QRect() : picture_->PlaceOf(selected.back());
    if (place.isEmpty()) return;
    const QPoint centre = picture_->mapTo(scroll_->widget(), place.center());
    scroll_->ensureVisible(centre.x(), centre.y(), place.width() / 2 + kDesk, place.height() / 2 + kDesk);
}

void TFormView::ShowNotes(QStringList notes) {
    notes_->setToolTip(notes.join('\n'));
    const auto more = notes.size() - kNotesTold;
    if (more > 0) notes = notes.mid(0, kNotesTold) << QString("and %1 more").arg(more);
    notes_->setText(notes.join("; "));
    notes_->setVisible(!notes.isEmpty());
}

}  // namespace tml
