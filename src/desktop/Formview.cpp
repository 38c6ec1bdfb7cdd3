#include "desktop/Formview.h"

#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QPaintEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "desktop/Codeeditor.h"
#include "desktop/Formmeasure.h"
#include "desktop/Formpainter.h"
#include "desktop/Texts.h"
#include "runtime/Partnodes.h"
#include "runtime/Showlanguage.h"

namespace tml {
namespace {

constexpr int kDesk = 16;      ///< pixels around a form
constexpr int kNotesTold = 3;  ///< the others in the hint
enum TFormPage { pgPicture, pgText };

/// The first localization component of a form's file; nullptr for a form without one.
std::shared_ptr<TmlCustomLang> LangOn(IMlRuntime& runtime, IOTAComponent& form) {
    for (int i = 0; i < form.GetComponentCount(); ++i)
        if (auto lang = runtime.AsCustomLang(form.GetComponent(i))) return lang;
    return nullptr;
}

TLayoutOptions OptionsOf(const std::string& fileName) {
    TLayoutOptions options;
    const bool isLcl = ToQt(fileName).endsWith(".lfm", Qt::CaseInsensitive);
    options.Look = isLcl ? TLayoutLook::Lcl : TLayoutLook::Vcl;
    return options;
}

}  // namespace

TFormPicture::TFormPicture() {
    setObjectName("formPicture");
}

void TFormPicture::Show(TLayoutNode form, const TLayoutOptions& options) {
    layout_ = {};
    form_ = std::move(form);
    layout_ = LayOutForm(form_, TFormMeasure(), options);
    const TLayoutRect& place = layout_.Items.front().Place;
    setFixedSize(place.Width, place.Height);
    update();
}

void TFormPicture::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintForm(painter, layout_, palette(), event->rect());
}

TFormView::TFormView(const std::string& fileName, IMlRuntime& runtime)
    : runtime_(runtime), text_(new TFormTextView(fileName)), picture_(new TFormPicture) {
    auto* desk = new QWidget;
    auto* around = new QVBoxLayout(desk);
    around->setContentsMargins(kDesk, kDesk, kDesk, kDesk);
    around->addWidget(picture_);
    around->setSizeConstraint(QLayout::SetFixedSize);
    auto* scroll = new QScrollArea;
    scroll->setBackgroundRole(QPalette::Mid);
    scroll->setWidget(desk);
    pages_ = new QStackedWidget;
    pages_->addWidget(scroll);
    pages_->addWidget(text_);

    auto* bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* switches = new QActionGroup(this);
    showPicture_ = AddSwitch(*bar, "showPicture", "Picture", pgPicture);
    showText_ = AddSwitch(*bar, "showText", "Text", pgText);
    switches->addAction(showPicture_);
    switches->addAction(showText_);
    languages_ = new QComboBox;
    languages_->setObjectName("formLanguages");
    languages_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    languages_->setToolTip("Language in which the picture shows the form");
    bar->addSeparator();
    languagesShown_ = bar->addWidget(languages_);
    connect(languages_, &QComboBox::currentIndexChanged, this, [this] { Draw(); });

    notes_ = new QLabel;
    notes_->setObjectName("formNotes");
    notes_->setMargin(4);
    notes_->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(pages_, 1);
    column->addWidget(notes_);
    showPicture_->setChecked(true);
}

QAction* TFormView::AddSwitch(QToolBar& bar, const char* name, const char* caption, int page) {
    QAction* action = bar.addAction(caption);
    action->setObjectName(name);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this, page](bool isOn) {
        if (!isOn) return;
        pages_->setCurrentIndex(page);
        setFocusProxy(pages_->currentWidget());
        languagesShown_->setVisible(page == pgPicture && languages_->count() > 0);
        Draw();
    });
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
        if (const auto lang = LangOn(runtime_, *form->GetRootComponent())) {
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
    const auto root = form.GetRootComponent();
    const TFormParts parts(root, TFormParts::TFrames::Whole);
    const auto lang = languages_->currentIndex() > 0 ? LangOn(runtime_, *root) : nullptr;
    if (lang == nullptr) return LayoutNodeOf(parts.Items());
    return LayoutNodeOf(PartsInLanguage(parts, *lang, languages_->currentData().toInt()));
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
        picture_->Show(FormInLanguage(*form), OptionsOf(form->GetFileName()));
        for (const std::string& note : picture_->Layout().Notes)
            notes += ToQt(note);
        for (const QString& font : MissingFonts(picture_->Layout()))
            notes += "Another font stands for " + font;
    } catch (const EBadInput& error) {
        notes += ToQt(error.what());
    }
    ShowNotes(notes);
}

void TFormView::ShowNotes(QStringList notes) {
    notes_->setToolTip(notes.join('\n'));
    const auto more = notes.size() - kNotesTold;
    if (more > 0) notes = notes.mid(0, kNotesTold) << QString("and %1 more").arg(more);
    notes_->setText(notes.join("; "));
    notes_->setVisible(!notes.isEmpty());
}

}  // namespace tml
