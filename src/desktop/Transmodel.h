#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "runtime/Mltranseditor.h"

namespace tml {

/// The rows that the translation editor shows as a table: the key, then a column a language.
class TTransModel : public QAbstractTableModel {
  public:
    explicit TTransModel(TfrmTransEditor& form) : form_(form) {}

    /// What has been typed goes to the editor through it.
    std::function<void(const std::function<void()>& work)> Run;

    /// To be called after each change.
    void Refresh();
    TfrmTransEditor& Form() const { return form_; }
    bool IsRightToLeft(int column) const;
    /// True for a text of several lines, and for one that translates such a text.
    bool HasLines(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    QVariant StateOf(const QModelIndex& index, int role) const;

    TfrmTransEditor& form_;
    unsigned revision_ = 0;
    int rows_ = 0;
};

/// "Missing", "Stale, was: ..."; "" where a text has no state. place and column as those of the editor.
QString StateText(const TfrmTransEditor& form, int place, int column);

}  // namespace tml
