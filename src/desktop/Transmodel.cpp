#include "desktop/Transmodel.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <array>

#include "desktop/Texts.h"
#include "windows/Markedblanks.h"

namespace tml {
namespace {

struct TStateLook {
    const char* Name;
    QRgb Tint;  ///< 0 for none
};

/// By the order of TTextState. The tints are seen on light and on dark paper.
constexpr std::array<TStateLook, 4> kStateLooks{
    TStateLook{"Missing", qRgba(220, 60, 60, 60)},
    TStateLook{"Stale", qRgba(230, 140, 20, 70)},
    TStateLook{"Touched", qRgba(210, 190, 20, 60)},
    TStateLook{"Done", 0},
};

const TStateLook& LookOf(TTextState state) {
    return kStateLooks.at(static_cast<std::size_t>(state));
}

}  // namespace

QString StateText(const TfrmTransEditor& form, int place, int column) {
    const auto state = form.State(place, column);
    return state ? QString(LookOf(*state).Name) : QString();
}

void TTransModel::Refresh() {
    const TTransGrid& grid = form_.Grid();
    if (revision_ != grid.Revision()) {
        beginResetModel();
        revision_ = grid.Revision();
        rows_ = grid.Count();
        endResetModel();
    } else if (rows_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, form_.ColumnCount() - 1));
    }
    emit headerDataChanged(Qt::Horizontal, 0, form_.ColumnCount() - 1);
}

bool TTransModel::IsRightToLeft(int column) const {
    return column > 0 && form_.Texts().Languages()[static_cast<std::size_t>(column) - 1].IsRightToLeft;
}

bool TTransModel::HasLines(const QModelIndex& index) const {
    const auto hasLines = [](const std::string& text) { return text.find('\n') != std::string::npos; };
    return hasLines(form_.Text(index.row(), index.column())) ||
           (index.column() > 0 && hasLines(form_.Base(index.row())));
}

int TTransModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int TTransModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : form_.ColumnCount();
}

QVariant TTransModel::StateOf(const QModelIndex& index, int role) const {
    const auto state = form_.State(index.row(), index.column());
    if (role == Qt::BackgroundRole) {
        const QRgb tint = state ? LookOf(*state).Tint : 0;
        return tint == 0 ? QVariant() : QColor::fromRgba(tint);
    }
    if (!state) return {};
    const QString former = ToQt(form_.FormerBase(index.row(), index.column()));
    return former.isEmpty() ? StateText(form_, index.row(), index.column())
                            : StateText(form_, index.row(), index.column()) + ": was made for\n" + former;
}

QVariant TTransModel::data(const QModelIndex& index, int role) const {
    // Between two refreshes the editor may have lost rows.
    if (!index.isValid() || index.row() >= form_.Grid().Count()) return {};
    const std::string& text = form_.Text(index.row(), index.column());
    switch (role) {
        case Qt::DisplayRole:
            return index.column() > 0 || !form_.ShowsForms()
                       ? ToQt(WithMarkedBlanks(text))
                       : ToQt(form_.FormName(index.row())) + "  " + ToQt(text);
        case Qt::EditRole:
            return ToQt(text);
        case Qt::TextAlignmentRole:
            return int(Qt::AlignVCenter | Qt::AlignLeft);
        case Qt::ForegroundRole:
            if (form_.IsEditable(index.row(), index.column())) return {};
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        case Qt::BackgroundRole:
        case Qt::ToolTipRole:
            return StateOf(index, role);
        default:
            return {};
    }
}

QVariant TTransModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    const QString caption = ToQt(form_.ColumnCaption(section));
    const TTransProgress progress = form_.NodeProgress(form_.Node(), section);
    return progress.Texts == 0 ? caption : QString("%1  %2 %").arg(caption).arg(progress.Percent());
}

bool TTransModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || value == data(index, Qt::EditRole)) return false;
    Run([&] { form_.SetText(index.row(), index.column(), FromQt(value.toString())); });
    return true;
}

Qt::ItemFlags TTransModel::flags(const QModelIndex& index) const {
    const bool editable = index.isValid() && index.row() < form_.Grid().Count() &&
                          form_.IsEditable(index.row(), index.column());
    return QAbstractTableModel::flags(index) | (editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

}  // namespace tml
