#pragma once

#include <QAbstractItemModel>
#include <functional>

#include "setup/Exclude.h"

namespace tml {

/// The tree of forms, classes, components and properties with the boxes that exclude them. An index holds its
/// node.
class TExclusionModel : public QAbstractItemModel {
  public:
    explicit TExclusionModel(TfrmExclude& form) : form_(form) {}

    /// A click on a box goes to the state through it.
    std::function<void(const std::function<void()>& work)> Run;

    /// To be called after each change; true when other nodes are shown.
    bool Refresh();
    static int NodeOf(const QModelIndex& index) { return static_cast<int>(index.internalId()); }
    /// Of the first column; invalid for a node that is not shown.
    QModelIndex IndexOf(int node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    const std::vector<int>& ChildrenOf(const QModelIndex& parent) const;

    TfrmExclude& form_;
    unsigned shown_ = 0;  ///< revision of the tree
};

}  // namespace tml
