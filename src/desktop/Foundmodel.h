#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <functional>

#include "scan/Found.h"

namespace tml {

/// The grid in front of the review as a table; reads the rows where they are.
class TFoundModel : public QAbstractTableModel {
  public:
    explicit TFoundModel(TfrmFound& form);

    /// Called with the row and the ID that has been typed for it.
    std::function<void(int row, const std::string& id)> OnEdit;

    /// To be called after each change. True when the rows are others than at the last call.
    bool Refresh();

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Takes a typed ID.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    enum TColumn { fcLine, fcID, fcText, fcReplacement };

  private:
    QVariant CellOf(int row, int column) const;

    TfrmFound& form_;
    int rows_ = 0;
    /// Sorting and filtering ask for each cell many times: a row's are made when the first is asked for.
    mutable std::vector<QStringList> cells_;
    bool showsDeleted_ = false;
    QIcon adviceIcon_;
    QIcon ignoreIcon_;
};

}  // namespace tml
