#include "desktop/Binder.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QSignalBlocker>

#include "desktop/Hotkeyedit.h"
#include "desktop/Stepedit.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

/// Only where they are others: filling takes the choice and the typed text away.
void ShowItems(QComboBox& box, const TStringList& items) {
    QStringList shown;
    for (int i = 0; i < box.count(); ++i)
        shown += box.itemText(i);
    if (shown == ToQt(items)) return;
    box.clear();
    box.addItems(ToQt(items));
    box.setCurrentIndex(-1);
}

/// The last one that is down goes up only where none has to be.
void ShowNoneDown(const std::vector<QAbstractButton*>& buttons) {
    QButtonGroup& group = *buttons.front()->group();
    group.setExclusive(false);
    for (QAbstractButton* const button : buttons) {
        const QSignalBlocker quiet(button);
        button->setChecked(false);
    }
    group.setExclusive(true);
}

}  // namespace

void TBinder::Refresh() {
    for (const auto& show : shows_)
        show();
}

void TBinder::Click(QAbstractButton* button, std::function<void()> handler) {
    QObject::connect(button, &QAbstractButton::clicked, button, [this, handler = std::move(handler)] {
        // What was done in front of an error shows.
        if (!runner_.Run(handler)) Refresh();
    });
}

void TBinder::CloseWith(QAbstractButton* button, TForm& form, TModalResult result) {
    Click(button, [&form, result] { form.Close(result); });
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

void TBinder::Number(TStepEdit* edit, std::string& member, std::function<void(int)> step,
                     std::function<void(const std::string&)> handler) {
    Text(edit->Edit(), member, std::move(handler));
    edit->OnStep = [this, step = std::move(step)](int by) { runner_.Run([&] { step(by); }); };
}

void TBinder::ShortCut(THotKeyEdit* edit, TShortCut& member) {
    QObject::connect(edit, &QKeySequenceEdit::keySequenceChanged, edit,
                     [edit, &member] { member = edit->ShortCut(); });
    Show([edit, &member] {
        const QSignalBlocker quiet(edit);
        edit->setKeySequence(KeysOf(member));
    });
}

void TBinder::Choice(QComboBox* box, TChoiceBox& choice, std::function<void()> handler) {
    QObject::connect(box, &QComboBox::currentIndexChanged, box,
                     [this, &choice, handler = std::move(handler)](int chosen) {
                         choice.ItemIndex = chosen;
                         if (handler) runner_.Run(handler);
                     });
    Show([box, &choice] {
        const QSignalBlocker quiet(box);
        ShowItems(*box, choice.Items);
        box->setCurrentIndex(choice.ItemIndex);
    });
}

void TBinder::TextOrChoice(QComboBox* box, const TStringList& items, const std::string& text,
                           std::function<void(const std::string&)> handler) {
    QObject::connect(box, &QComboBox::editTextChanged, box,
                     [this, handler = std::move(handler)](const QString& typed) {
                         runner_.Run([&] { handler(FromQt(typed)); });
                     });
    Show([box, &items, &text] {
        const QSignalBlocker quiet(box);
        ShowItems(*box, items);
        if (box->currentText() != ToQt(text)) box->setEditText(ToQt(text));
    });
}

void TBinder::OneOf(const std::vector<QAbstractButton*>& buttons, std::function<int()> read,
                    std::function<void(int)> choose) {
    for (std::size_t i = 0; i < buttons.size(); ++i)
        QObject::connect(buttons[i], &QAbstractButton::toggled, buttons[i], [this, i, choose](bool down) {
            if (down) runner_.Run([&] { choose(static_cast<int>(i)); });
        });
    Show([buttons, read = std::move(read)] {
        const int down = read();
        if (down < 0) return ShowNoneDown(buttons);
        QAbstractButton* const button = buttons[static_cast<std::size_t>(down)];
        const QSignalBlocker quiet(button);
        button->setChecked(true);
    });
}

void TBinder::Keys(QWidget* view, const QKeySequence& keys, std::function<void()> handler) {
    QObject::connect(new QShortcut(keys, view), &QShortcut::activated, view,
                     [this, handler = std::move(handler)] { runner_.Run(handler); });
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

void TBinder::DoubleClick(QListWidget* list, std::function<void(int index)> handler) {
    QObject::connect(list, &QListWidget::doubleClicked, list,
                     [this, handler = std::move(handler)](const QModelIndex& item) {
                         runner_.Run([&, row = item.row()] { handler(row); });
                     });
}

void TBinder::ForSelected(QListWidget* list, QAbstractButton* rename,
                          const std::vector<QAbstractButton*>& others) {
    const auto enable = [list, rename, others] {
        const bool hasSelection = !list->selectedItems().isEmpty();
        rename->setEnabled(hasSelection);
        for (QAbstractButton* button : others)
            button->setEnabled(hasSelection);
    };
    QObject::connect(list, &QListWidget::itemSelectionChanged, list, enable);
    Show(enable);
    QObject::connect(list, &QListWidget::doubleClicked, rename, &QAbstractButton::click);
    QObject::connect(new QShortcut(Qt::Key_F2, list, nullptr, nullptr, Qt::WidgetShortcut),
                     &QShortcut::activated, rename, &QAbstractButton::click);
}

void TBinder::Enabled(QWidget* widget, const bool& member) {
    Show([widget, &member] { widget->setEnabled(member); });
}

void TBinder::Label(QLabel* label, const std::string& member) {
    Show([label, &member] { label->setText(ToQt(member)); });
}

}  // namespace tml
