#include "desktop/Binder.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "desktop/Texts.h"

namespace tml {

void TBinder::Refresh() {
    for (const auto& show : shows_)
        show();
}

void TBinder::Click(QAbstractButton* button, std::function<void()> handler) {
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [this, handler = std::move(handler)] { runner_.Run(handler); });
}

void TBinder::CloseWith(QAbstractButton* button, TForm& form, TModalResult result) {
    Click(button, [&form, result] {
        form.ModalResult = result;
        form.Changed();
    });
}

void TBinder::Text(QLineEdit* edit, std::string& member, std::function<void(const std::string&)> handler) {
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [this, &member, handler = std::move(handler)](const QString& text) {
                         runner_.Run([&] { handler ? handler(FromQt(text)) : void(member = FromQt(text)); });
                         Refresh();
                     });
    Show([edit, &member] {
        const QSignalBlocker quiet(edit);
        // Setting an equal text would move the cursor.
        if (edit->text() != ToQt(member)) edit->setText(ToQt(member));
    });
}

void TBinder::Lines(QPlainTextEdit* edit, TStringList& member, std::function<void()> handler) {
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                     [this, edit, &member, handler = std::move(handler)] {
                         member.SetText(FromQt(edit->toPlainText()));
                         if (handler) runner_.Run(handler);
                     });
    Show([edit, &member] {
        const QSignalBlocker quiet(edit);
        if (TStringList::FromText(FromQt(edit->toPlainText())) != member)
            edit->setPlainText(ToQt(member).join('\n'));
    });
}

void TBinder::Check(QCheckBox* box, bool& member, std::function<void()> handler) {
    QObject::connect(box, &QCheckBox::toggled, box,
                     [this, &member, handler = std::move(handler)](bool checked) {
                         member = checked;
                         if (handler) runner_.Run(handler);
                     });
    Show([box, &member] {
        const QSignalBlocker quiet(box);
        box->setChecked(member);
    });
}

void TBinder::Choice(QComboBox* box, const std::vector<std::string>& items, int& index) {
    QObject::connect(box, &QComboBox::currentIndexChanged, box, [&index](int chosen) { index = chosen; });
    Show([box, &items, &index] {
        const QSignalBlocker quiet(box);
        QStringList texts;
        for (const std::string& item : items)
            texts += ToQt(item);
        box->clear();
        box->addItems(texts);
        box->setCurrentIndex(index);
    });
}

void TBinder::Names(QListWidget* list, const TStringList& names, std::vector<bool>& selected,
                    std::function<void()> handler) {
    QObject::connect(list, &QListWidget::itemSelectionChanged, list,
                     [this, list, &selected, handler = std::move(handler)] {
                         selected.resize(static_cast<std::size_t>(list->count()));
                         for (int i = 0; i < list->count(); ++i)
                             selected[static_cast<std::size_t>(i)] = list->item(i)->isSelected();
                         if (handler) runner_.Run(handler);
                     });
    Show([list, &names, &selected] {
        const QSignalBlocker quiet(list);
        while (list->count() > names.Count())
            delete list->takeItem(list->count() - 1);
        while (list->count() < names.Count())
            list->addItem(QString());
        for (int i = 0; i < names.Count(); ++i) {
            list->item(i)->setText(ToQt(names[i]));
            const auto index = static_cast<std::size_t>(i);
            list->item(i)->setSelected(index < selected.size() && selected[index]);
        }
    });
}

void TBinder::Enabled(QWidget* widget, const bool& member) {
    Show([widget, &member] { widget->setEnabled(member); });
}

}  // namespace tml
