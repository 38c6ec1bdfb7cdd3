#include "desktop/Dictionaryview.h"

#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "desktop/Filterbox.h"
#include "desktop/Gridtable.h"
#include "desktop/Texts.h"
#include "ui_Conflictsview.h"
#include "ui_Dictionaryview.h"

namespace tml {

TDictionaryView::TDictionaryView(TfrmDictionary& form, const TViewServices& services)
    : form_(form),
      services_(services),
      ui_(std::make_unique<Ui::Dictionaryview>()),
      binder_(services.Runner),
      model_([&form]() -> TGrid& { return form.grEntries; }) {
    ui_->setupUi(this);
    const auto changed = [&form] { form.cbLanguageChange(); };
    binder_.Choice(ui_->cbLanguage, form.cbLanguage, changed);
    binder_.Choice(ui_->cbTranslation, form.cbTranslation, changed);
    BindTable();
    BindText(*ui_->memText, form.memText, &TfrmDictionary::memTextChange);
    BindText(*ui_->memTranslation, form.memTranslation, &TfrmDictionary::memTranslationChange);
    binder_.Label(ui_->status, form.Status);
    binder_.Click(ui_->btClose, [&form] { form.btCloseClick(); });
    actions_ = std::make_unique<TActionBinding>(
        form.Actions, *this, *ui_->toolBar, *ui_->grEntries, [this](const TAction& action) {
            ui_->grEntries->CommitEditor();
            services_.Runner.Run([&] { action.Execute ? action.Execute() : services_.ShowHelp(form_.Name); });
        });
}

TDictionaryView::~TDictionaryView() = default;

void TDictionaryView::BindTable() {
    SetUpGrid(*this, *ui_->grEntries, model_, services_.Runner);
    BindFilter(*this, *ui_->filter, *ui_->grEntries, services_.Runner,
               [this](const std::string& text) { form_.SetFilter(text); });
    binder_.Show([this] {
        // An entry that is led to may be one that was hidden.
        const QSignalBlocker quiet(*ui_->filter);
        const QString filter = ToQt(form_.grEntries.Filter());
        if (ui_->filter->text() != filter) ui_->filter->setText(filter);
        ui_->filterCount->setText(FilterCount(*ui_->grEntries));
    });
}

void TDictionaryView::BindText(QPlainTextEdit& edit, const std::string& member,
                               void (TfrmDictionary::*change)(const std::string&)) {
    connect(&edit, &QPlainTextEdit::textChanged, this, [this, &edit, change] {
        services_.Runner.Run([&] { (form_.*change)(FromQt(edit.toPlainText())); });
    });
    binder_.Show([this, &edit, &member] {
        edit.setEnabled(form_.HasEntry());
        if (edit.toPlainText() == ToQt(member)) return;
        const QSignalBlocker quiet(edit);
        edit.setPlainText(ToQt(member));
    });
}

void TDictionaryView::Refresh() {
    setWindowTitle(ToQt(form_.Caption));
    ui_->grEntries->ShowGrid();
    binder_.Refresh();
    actions_->Refresh();
}

TDictionaryConflictsView::TDictionaryConflictsView(TfrmDictionaryConflicts& form,
                                                   const TViewServices& services)
    : ui_(std::make_unique<Ui::Conflictsview>()),
      binder_(services.Runner),
      model_([&form]() -> TGrid& { return form.grConflicts; }) {
    ui_->setupUi(this);
    SetUpGrid(*this, *ui_->grConflicts, model_, services.Runner);
    binder_.Label(ui_->lblConflicts, form.lblConflicts);
    binder_.Click(ui_->btClose, [&form] { form.btCloseClick(); });
}

TDictionaryConflictsView::~TDictionaryConflictsView() = default;

void TDictionaryConflictsView::Refresh() {
    ui_->grConflicts->ShowGrid();
    binder_.Refresh();
}

}  // namespace tml
