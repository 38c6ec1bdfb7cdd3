#include "desktop/Strreplaceview.h"

#include <QHeaderView>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QToolBar>

#include "desktop/Texts.h"
#include "ui_Strreplaceview.h"

namespace tml {
namespace {

/// Breaks a line behind the signs of a source, too: without a blank a call would be cut off at its ID.
class TSourceLineDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        static const QRegularExpression kSign("([(,._])");
        return value.toString().replace(kSign, QString("\\1") + QChar(0x200B));
    }
};

}  // namespace

TStrReplaceView::TStrReplaceView(TfrmStrReplace& form, const TViewServices& services)
    : form_(form),
      runner_(services.Runner),
      ui_(std::make_unique<Ui::Strreplaceview>()),
      binder_(services.Runner),
      lines_(form.lvSourceLines, {}) {
    ui_->setupUi(this);
    BindUnits();
    BindLines();
    binder_.Click(ui_->btReplace, [&form] { form.btReplaceClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Click(ui_->sbHelp, [&form] { form.sbHelpClick(); });
    binder_.Show([this] {
        ui_->pages->setCurrentIndex(form_.Panel == TfrmStrReplace::TPanel::UnitSelection ? 0 : 1);
        ui_->btReplace->setText(ToQt(form_.btReplaceCaption));
        ui_->lbUnitName->setText(ToQt(form_.lbUnitName).replace('\r', '\n'));
    });
}

TStrReplaceView::~TStrReplaceView() = default;

void TStrReplaceView::BindUnits() {
    const auto changed = [this] { form_.lbUnitsClick(); };
    binder_.Names(ui_->lbUnits, units_, form_.lbUnits.Selected, changed);
    binder_.Names(ui_->lbSelectedUnits, selectedUnits_, form_.lbSelectedUnits.Selected, changed);
    binder_.Click(ui_->btAdd, [this] { form_.btAddClick(); });
    binder_.Click(ui_->btAddAll, [this] { form_.btAddAllClick(); });
    binder_.Click(ui_->btRemove, [this] { form_.btRemoveClick(); });
    binder_.Click(ui_->btRemoveAll, [this] { form_.btRemoveAllClick(); });
    binder_.Show([this] {
        ui_->btAdd->setEnabled(form_.lbUnits.HasSelection());
        ui_->btAddAll->setEnabled(!form_.lbUnits.Items.Empty());
        ui_->btRemove->setEnabled(form_.lbSelectedUnits.HasSelection());
        ui_->btRemoveAll->setEnabled(!form_.lbSelectedUnits.Items.Empty());
    });
}

void TStrReplaceView::BindLines() {
    QTableView& table = *ui_->lvSourceLines;
    table.setModel(&lines_);
    SetUpTable(table);
    table.setColumnWidth(0, ShownWidth(*this, form_.lvSourceLines.Columns[0].Width));
    // The old line and the new one get what the window has to spare, and are read whole.
    table.setWordWrap(true);
    table.setItemDelegate(new TSourceLineDelegate(this));
    table.verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table.horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    table.horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &table] {
        runner_.Run([&] {
            SelectionToList(table, form_.lvSourceLines);
            form_.lvSourceLinesChange();
        });
    });
    auto* bar = new QToolBar(this);
    bar->hide();
    actions_ = std::make_unique<TActionBinding>(
        form_.Actions, *this, *bar, table,
        [this](const TAction& action) { runner_.Run([&] { action.Execute(); }); });
}

TStringList TStrReplaceView::ShownNames(const TNamesBox& box) const {
    TStringList names;
    for (const std::string& unit : box.Items)
        names.Add(form_.ShownName(unit));
    return names;
}

void TStrReplaceView::Refresh() {
    units_ = ShownNames(form_.lbUnits);
    selectedUnits_ = ShownNames(form_.lbSelectedUnits);
    binder_.Refresh();
    lines_.Refresh();
    SelectionFromList(*ui_->lvSourceLines, form_.lvSourceLines);
    actions_->Refresh();
}

}  // namespace tml
