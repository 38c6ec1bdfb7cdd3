#include "desktop/Exclusionmodel.h"

#include <QApplication>
#include <QPalette>
#include <array>

#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr std::array kExclusionColumns = {"Excluded", "Text", "Excluded by"};

Qt::CheckState BoxOf(TExclusionCheck check) {
    if (check == TExclusionCheck::Partly) return Qt::PartiallyChecked;
    return check == TExclusionCheck::Excluded ? Qt::Checked : Qt::Unchecked;
}

}  // namespace

bool TExclusionModel::Refresh() {
    if (shown_ == form_.Tree().Revision()) return false;
    beginResetModel();
    shown_ = form_.Tree().Revision();
    endResetModel();
    return true;
}

const std::vector<int>& TExclusionModel::ChildrenOf(const QModelIndex& parent) const {
    return parent.isValid() ? form_.Tree().Node(NodeOf(parent)).Children : form_.Tree().Roots();
}

QModelIndex TExclusionModel::IndexOf(int node) const {
    const TExclusionTree& tree = form_.Tree();
    for (int shown = node; shown >= 0; shown = tree.Node(shown).Parent) {
        const int parent = tree.Node(shown).Parent;
        const std::vector<int>& siblings = parent < 0 ? tree.Roots() : tree.Node(parent).Children;
        const auto place = static_cast<std::size_t>(tree.Node(shown).Place);
        if (place >= siblings.size() || siblings[place] != shown) return {};
    }
    return createIndex(tree.Node(node).Place, 0, static_cast<quintptr>(node));
}

QModelIndex TExclusionModel::index(int row, int column, const QModelIndex& parent) const {
    const std::vector<int>& children = ChildrenOf(parent);
    if (row < 0 || row >= static_cast<int>(children.size())) return {};
    return createIndex(row, column, static_cast<quintptr>(children[static_cast<std::size_t>(row)]));
}

QModelIndex TExclusionModel::parent(const QModelIndex& index) const {
    const int parent = index.isValid() ? form_.Tree().Node(NodeOf(index)).Parent : -1;
    if (parent < 0) return {};
    return createIndex(form_.Tree().Node(parent).Place, 0, static_cast<quintptr>(parent));
}

int TExclusionModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(ChildrenOf(parent).size());
}

int TExclusionModel::columnCount(const QModelIndex&) const {
    return static_cast<int>(kExclusionColumns.size());
}

QVariant TExclusionModel::data(const QModelIndex& index, int role) const {
    const int node = NodeOf(index);
    const TExclusionCheck check = form_.Tree().Node(node).Check();
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return ToQt(form_.Cell(node, index.column()));
    if (role == Qt::CheckStateRole && index.column() == 0) return BoxOf(check);
    if (role == Qt::ForegroundRole && check == TExclusionCheck::Excluded)
        return QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    return {};
}

bool TExclusionModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole) return false;
    const bool excludes = value.toInt() == Qt::Checked;
    Run([this, node = NodeOf(index), excludes] { form_.BoxClick(node, excludes); });
    return true;
}

QVariant TExclusionModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return kExclusionColumns.at(static_cast<std::size_t>(section));
}

Qt::ItemFlags TExclusionModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

}  // namespace tml
