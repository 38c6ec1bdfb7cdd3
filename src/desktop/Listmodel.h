#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "windows/Listview.h"

class QTableView;

namespace tml {

/// A list as a table. The first column shows the state's picture.
class TListModel : public QAbstractTableModel {
  public:
    /// pictures: by StateIndex, names of resources.
    TListModel(TListRows& list, QStringList pictures) : list_(list), pictures_(std::move(pictures)) {}

    /// To be called when the list has changed.
    void Refresh();

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    TListRows& list_;
    QStringList pictures_;
    std::vector<int> shown_;  ///< IDs of the rows, in order
};

/// Looks and behaviour that all tables share: whole rows, no cell grid, keys that move as in a list.
void SetUpTable(QTableView& table);
/// Column widths are those of a design with its small font; on the screen they grow with the widget's font.
int ShownWidth(const QWidget& widget, int designWidth);
int DesignWidth(const QWidget& widget, int shownWidth);
/// What a column needs for its heading and its longest texts, in pixels.
int ContentWidth(const QTableView& table, int column);
/// Takes the selection of the table over into the rows, or shows that of the rows.
void SelectionToList(const QTableView& table, TListRows& list);
void SelectionFromList(QTableView& table, const TListRows& list);

}  // namespace tml
