#include "desktop/Transformpane.h"

#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "desktop/Texts.h"
#include "desktop/Whereshown.h"
#include "layout/Openpages.h"
#include "picture/Formmeasure.h"
#include "picture/Formpainter.h"
#include "picture/Formpicture.h"

namespace tml {
namespace {

constexpr int kMarkWidth = 2;
constexpr int kAroundMark = 24;  ///< pixels that are in sight, too

}  // namespace

class TTransFormPane::TPicture : public QWidget {
  public:
    TPicture() { setObjectName("transForm"); }

    /// component is of the form; nullptr to mark nothing.
    void Show(TLayoutNode form, const TLayoutNode* component, const TLayoutOptions& options) {
        layout_ = {};
        form_ = std::move(form);
        layout_ = LayOutForm(form_, measure_, options);
        mark_ = QRect();
        for (const TLayoutItem& item : layout_.Items)
            if (item.Node == component && item.Item < 0 && item.Parent >= 0)
                mark_ = QRect(item.Seen.Left, item.Seen.Top, item.Seen.Width, item.Seen.Height);
        setFixedSize(PictureSize(layout_));
        update();
    }
    const TFormLayout& Layout() const { return layout_; }
    /// Empty for what is not seen.
    const QRect& Mark() const { return mark_; }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        PaintForm(painter, layout_, palette(), event->rect());
        if (mark_.isEmpty()) return;
        painter.setPen(QPen(palette().color(QPalette::Highlight), kMarkWidth));
        painter.setBrush(Qt::NoBrush);
        // Around the control: a small one is all text.
        painter.drawRect(mark_.adjusted(-1, -1, 1, 1) & rect().adjusted(1, 1, -1, -1));
    }

  private:
    TFormMeasure measure_;
    TLayoutNode form_;  ///< what the layout points into
    TFormLayout layout_;
    QRect mark_;
};

TTransFormPane::TTransFormPane(const THost& host, const TTransTexts& texts)
    : host_(host),
      texts_(texts),
      picture_(new TPicture),
      title_(new QLabel),
      scroll_(new QScrollArea),
      notes_(new QLabel) {
    title_->setObjectName("transFormTitle");
    title_->setMargin(4);
    title_->setTextFormat(Qt::PlainText);
    scroll_->setBackgroundRole(QPalette::Mid);
    scroll_->setWidget(picture_);
    scroll_->setFocusPolicy(Qt::NoFocus);
    notes_->setObjectName("transFormNotes");
    notes_->setMargin(4);
    notes_->setWordWrap(true);
    notes_->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(title_);
    column->addWidget(scroll_, 1);
    column->addWidget(notes_);
}

TTransFormPane::~TTransFormPane() = default;

TLayoutOptions TTransFormPane::OptionsOf(const std::string& formName) const {
    const auto modules = host_.Services == nullptr ? nullptr : host_.Services->GetModuleServices();
    const auto module = modules == nullptr ? nullptr : modules->FindFormModule(formName);
    const auto editor = module == nullptr ? nullptr : module->GetFormEditor();
    return editor == nullptr ? TLayoutOptions() : TLayoutOptions{LookOf(editor->GetFileName())};
}

void TTransFormPane::Read(const TTransForm& form) {
    if (lang_ == form.Lang) return;
    lang_ = nullptr;
    form_ = std::make_unique<TShownForm>(*host_.Runtime, form.Lang->GetComponent()->GetOwner(), form.Lang);
    options_ = OptionsOf(form.Name);
    lang_ = form.Lang;
}

TLangTexts TTransFormPane::ShownTexts() const {
    TLangTexts edited = texts_.ShownTexts(texts_.FormOf(row_));
    const TTransTable& table = texts_.TableOf(row_);
    const int place = texts_.PlaceOf(row_, column_);
    if (!typed_ || place == 0) return edited;
    if (table.IsExtended()) {
        auto& values = edited.Extended[static_cast<std::size_t>(row_.Entry)].Values;
        values.resize(std::max(values.size(), static_cast<std::size_t>(place)));
        values[static_cast<std::size_t>(place) - 1] = *typed_;
    } else if (!table.IsStrings()) {
        edited.Tables[static_cast<std::size_t>(table.Stored().Type())].SetText(row_.Entry, place, *typed_);
    }
    return edited;
}

void TTransFormPane::DrawForm() {
    Read(texts_.FormOf(row_));
    TLayoutNode form = form_->In(texts_.PlaceOf(row_, column_), ShownTexts());
    const bool isId = texts_.TableOf(row_).IsStrings();
    const TLayoutNode* const component = isId ? nullptr : form_->BringToFront(form, texts_.Text(row_, 0));
    const bool isForm = component == &form;
    const TWhereShown where = component == nullptr || isForm ? TWhereShown() : WhereShown(form, *component);
    picture_->Show(std::move(form), where.Control == nullptr ? component : where.Control, options_);
    ShowTitle(isForm);
    QStringList notes = NotesOf(picture_->Layout());
    const bool isSeen = isForm || (where.Control == nullptr && !picture_->Mark().isEmpty());
    if (component != nullptr && !isSeen) notes.prepend(ToQt(where.Note));
    notes_->setText(notes.join("; "));
}

/// A window's caption stands above of what is drawn.
void TTransFormPane::ShowTitle(bool isMarked) {
    title_->setText(ToQt(picture_->Layout().Items.front().Text));
    QFont font = title_->font();
    font.setBold(isMarked);
    title_->setFont(font);
    const bool isRightToLeft = picture_->Layout().Items.front().RightToLeft;
    title_->setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

void TTransFormPane::Show(TTransRow row, int column, std::optional<std::string> typed) {
    row_ = row;
    column_ = column;
    typed_ = std::move(typed);
    if (isVisible()) Draw();
}

void TTransFormPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Draw();
}

/// Where a person begins to read.
void TTransFormPane::ScrollToBegin() {
    const bool isRightToLeft = title_->layoutDirection() == Qt::RightToLeft;
    scroll_->ensureVisible(isRightToLeft ? picture_->width() : 0, 0, 0, 0);
}

void TTransFormPane::Draw() {
    const bool hasRow = texts_.Find(row_) != nullptr;
    picture_->setVisible(hasRow);
    notes_->clear();
    try {
        if (hasRow) DrawForm();
    } catch (const EBadInput& error) {
        picture_->hide();
        notes_->setText(ToQt(error.what()));
    }
    title_->setVisible(!picture_->isHidden());
    notes_->setVisible(!notes_->text().isEmpty());
    const QRect& mark = picture_->Mark();
    if (mark.isEmpty()) return ScrollToBegin();
    // The upper left end last: of a control larger than the pane it is what is seen.
    scroll_->ensureVisible(mark.right(), mark.bottom(), kAroundMark, kAroundMark);
    scroll_->ensureVisible(mark.left(), mark.top(), kAroundMark, kAroundMark);
}

}  // namespace tml
