#include "desktop/Langcomboview.h"

#include <QFontDatabase>
#include <QSignalBlocker>

#include "desktop/Texts.h"
#include "ui_Langcomboview.h"

namespace tml {
namespace {

constexpr const char* kCharsets[] = {
    "",
    "ANSI_CHARSET",
    "DEFAULT_CHARSET",
    "SYMBOL_CHARSET",
    "SHIFTJIS_CHARSET",
    "HANGEUL_CHARSET",
    "JOHAB_CHARSET",
    "GB2312_CHARSET",
    "GREEK_CHARSET",
    "CHINESEBIG5_CHARSET",
    "TURKISH_CHARSET",
    "VIETNAMESE_CHARSET",
    "HEBREW_CHARSET",
    "ARABIC_CHARSET",
    "BALTIC_CHARSET",
    "RUSSIAN_CHARSET",
    "THAI_CHARSET",
    "EASTEUROPE_CHARSET",
    "OEM_CHARSET",
};

/// As it is where it is known, else as a further entry.
void ShowCharset(QComboBox& box, const QString& charset) {
    if (box.findText(charset, Qt::MatchFixedString) < 0) box.addItem(charset);
    box.setCurrentIndex(box.findText(charset, Qt::MatchFixedString));
}

}  // namespace

TLangComboView::TLangComboView(TfrmMlLangComboEditor& form, const TViewServices& services)
    : form_(form),
      runner_(services.Runner),
      ui_(std::make_unique<Ui::Langcomboview>()),
      binder_(services.Runner) {
    ui_->setupUi(this);
    FillLists();
    BindSettings();
    binder_.Click(ui_->btOK, [this] { form_.btnOKClick(); });
    binder_.Click(ui_->btCancel, [this] { form_.btnCancelClick(); });
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
}

TLangComboView::~TLangComboView() = default;

void TLangComboView::FillLists() {
    for (const TLanguageInfo& info : form_.lbLanguages)
        ui_->lbLanguages->addItem(ToQt(info.Language));
    ui_->lblReason->setText(ToQt(form_.lblReason));
    ui_->lblReason->setVisible(!form_.lblReason.empty());
    ui_->cbFont->addItem(QString());
    ui_->cbFont->addItems(QFontDatabase::families());
    for (const char* charset : kCharsets)
        ui_->cbCharset->addItem(charset);
}

void TLangComboView::Change(const std::function<void(TLanguageInfo&)>& change) {
    runner_.Run([&] {
        if (TLanguageInfo* info = form_.Current()) change(*info);
        form_.Changed();
    });
}

void TLangComboView::BindSettings() {
    connect(ui_->lbLanguages, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) runner_.Run([&] { form_.lbLanguagesClick(row); });
    });
    connect(ui_->edName, &QLineEdit::textEdited, this, [this](const QString& text) {
        Change([&](TLanguageInfo& info) { info.DisplayText = FromQt(text); });
    });
    connect(ui_->cbFont, &QComboBox::editTextChanged, this, [this](const QString& text) {
        Change([&](TLanguageInfo& info) { info.FontName = FromQt(text); });
    });
    connect(ui_->cbCharset, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        Change([&](TLanguageInfo& info) { info.Charset = FromQt(text); });
    });
    connect(ui_->edImage, &QSpinBox::valueChanged, this,
            [this](int image) { Change([&](TLanguageInfo& info) { info.ImageIndex = image; }); });
}

void TLangComboView::Refresh() {
    binder_.Refresh();
    const TLanguageInfo* current = form_.Current();
    ui_->settings->setEnabled(current != nullptr);
    const TLanguageInfo info = current == nullptr ? TLanguageInfo() : *current;
    const QSignalBlocker quiet[] = {QSignalBlocker(ui_->lbLanguages), QSignalBlocker(ui_->cbFont),
                                    QSignalBlocker(ui_->cbCharset), QSignalBlocker(ui_->edImage)};
    ui_->lbLanguages->setCurrentRow(form_.ItemIndex);
    // Setting the same text anew would move the cursor.
    if (ui_->edName->text() != ToQt(info.DisplayText)) ui_->edName->setText(ToQt(info.DisplayText));
    if (ui_->cbFont->currentText() != ToQt(info.FontName)) ui_->cbFont->setEditText(ToQt(info.FontName));
    ShowCharset(*ui_->cbCharset, ToQt(info.Charset));
    ui_->edImage->setValue(info.ImageIndex);
}

}  // namespace tml
