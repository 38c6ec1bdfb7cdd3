#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "windows/Grid.h"

namespace tml {

/// A grid as a table: its rows as shown, in their order. Asks the grid for all else.
class TGridModel : public QAbstractTableModel {
  public:
    /// grid gives the one that is in front.
    explicit TGridModel(std::function<TGrid&()> grid) : grid_(std::move(grid)) {}

    /// What has been typed or clicked goes to the grid through it.
    std::function<void(const std::function<void()>& work)> Run;

    /// To be called after each change.
    void Refresh();
    TGrid& Grid() const { return grid_(); }

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    QVariant LookAt(int place, int column, int role) const;

    std::function<TGrid&()> grid_;
    const TGrid* shown_ = nullptr;
    unsigned revision_ = 0;
    int rows_ = 0;
};

}  // namespace tml
