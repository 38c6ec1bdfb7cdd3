#pragma once

#include <QLabel>
#include <array>
#include <memory>
#include <vector>

#include "desktop/Listmodel.h"
#include "desktop/Menubinding.h"
#include "desktop/View.h"
#include "expert/Mlmainform.h"

class QKeyEvent;
class QTableView;

namespace Ui {
class Formslistview;
}

namespace tml {

/// The expert's main window.
class TFormsListView : public TView {
  public:
    TFormsListView(TfrmmlLang& form, const TViewServices& services);
    ~TFormsListView() override;
    TFormsListView(const TFormsListView&) = delete;
    TFormsListView& operator=(const TFormsListView&) = delete;

    void Refresh() override;
    const TfrmmlLang& Form() const { return form_; }

  protected:
    /// The keys of either list: Enter, its ends, and what is typed goes to the filter.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BindMenus();
    void BindList(QTableView& table, TListRows& list, TListModel& model);
    void BindHeader();
    void RefreshList(QTableView& table, TListRows& list, TListModel& model);
    void RefreshHeader();
    void RefreshFilter();
    /// While nobody has chosen widths, those that the cells need; the last column takes what is left.
    void LayOutColumns();
    /// Once for each filling of the list.
    void MeasureColumns();
    void NoteWidth(int column, int width);
    bool KeyPressed(QTableView& table, const QKeyEvent& key);

    TfrmmlLang& form_;
    TRunner& runner_;
    std::unique_ptr<Ui::Formslistview> ui_;
    TListModel forms_;
    TListModel files_;
    std::vector<std::unique_ptr<TMenuBinding>> menus_;
    std::array<QLabel*, 4> panels_{};
    bool layingOut_ = false;
    std::vector<int> contentWidths_;  ///< by column; empty when they are to be measured
};

}  // namespace tml
