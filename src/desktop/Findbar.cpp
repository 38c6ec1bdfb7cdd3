#include "desktop/Findbar.h"

#include <QKeyEvent>
#include <Qsci/qsciscintilla.h>

#include "desktop/Icons.h"
#include "ui_Findbar.h"

namespace tml {

TFindBar::TFindBar(std::function<QsciScintilla*()> current)
    : current_(std::move(current)), ui_(std::make_unique<Ui::Findbar>()) {
    ui_->setupUi(this);
    ui_->previous->setIcon(PictureOf("up"));
    ui_->next->setIcon(PictureOf("down"));
    ui_->close->setIcon(PictureOf("cancel"));
    connect(ui_->next, &QToolButton::clicked, this, [this] { FindNext(true); });
    connect(ui_->previous, &QToolButton::clicked, this, [this] { FindNext(false); });
    connect(ui_->text, &QLineEdit::returnPressed, this, [this] { FindNext(true); });
    connect(ui_->close, &QToolButton::clicked, this, [this] { Close(); });
    hide();
}

TFindBar::~TFindBar() = default;

void TFindBar::Open() {
    const QsciScintilla* editor = current_();
    if (editor == nullptr) return;
    const QString selected = editor->selectedText();
    if (!selected.isEmpty() && !selected.contains('\n')) ui_->text->setText(selected);
    show();
    ui_->text->setFocus();
    ui_->text->selectAll();
}

void TFindBar::FindNext(bool forward) {
    QsciScintilla* editor = current_();
    if (editor == nullptr || ui_->text->text().isEmpty()) return;
    int line = -1, column = -1, endLine = -1, endColumn = -1;
    // Backwards the search would find the selected match again.
    if (!forward && editor->hasSelectedText()) editor->getSelection(&line, &column, &endLine, &endColumn);
    const bool found = editor->findFirst(ui_->text->text(), false, ui_->matchCase->isChecked(),
                                         ui_->wholeWord->isChecked(), true, forward, line, column);
    ui_->state->setText(found ? QString() : "Not found");
}

void TFindBar::Close() {
    hide();
    if (QsciScintilla* editor = current_()) editor->setFocus();
}

void TFindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else
        QWidget::keyPressEvent(event);
}

}  // namespace tml
