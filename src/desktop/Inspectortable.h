#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "ide/Inspector.h"

namespace tml {

/// The rows of a property inspector: names, values, and an ellipsis where there is a dialog.
class TInspectorModel : public QAbstractTableModel {
  public:
    explicit TInspectorModel(TInspector& inspector) : inspector_(inspector) {}

    enum TColumn { clName, clValue, clDialog, clCount };
    /// A value has been typed or chosen.
    std::function<void(const std::string& property, const std::string& text)> OnSet;

    const TInspectedProperty& Row(const QModelIndex& index) const;
    QStringList Values(const QModelIndex& index) const;
    /// To be called after each change; false where the rows are others than before.
    bool Refresh();

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    TInspector& inspector_;
    std::vector<TInspectedProperty> rows_;
};

/// Shows the properties and edits them where they stand: typing, F2 or a click into the value begins, Enter
/// ends, Esc gives up. Ctrl+Enter, Enter on what cannot be typed, and a click on the ellipsis open the
/// dialog.
class TInspectorTable : public QTableView {
  public:
    explicit TInspectorTable(TInspector& inspector);

    std::function<void(const std::string& property, const std::string& text)> OnSet;
    std::function<void(const std::string& property)> OnEdit;
    std::function<void(const std::string& property)> OnReset;

    void Refresh();
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void OpenDialog(const QModelIndex& index);
    void ShowMenu(const QModelIndex& index, const QPoint& at);
    void ShareWidth();

    TInspector& inspector_;
    TInspectorModel model_;
};

}  // namespace tml
