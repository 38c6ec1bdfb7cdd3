#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "desktop/Actionbinding.h"
#include "desktop/Binder.h"
#include "desktop/Transmodel.h"
#include "desktop/View.h"
#include "desktop/Watchedfiles.h"

class QLabel;
class QPlainTextEdit;
class QSplitter;
class QTreeWidgetItem;

namespace Ui {
class Transeditorview;
}

namespace tml {

class TTransFormPane;

/// The translation editor: forms and tables in a tree, their texts in a grid, the current one in boxes below
/// and on its form.
class TTransEditorView : public TView {
  public:
    TTransEditorView(TfrmTransEditor& form, const TViewServices& services);
    ~TTransEditorView() override;

    void Refresh() override;
    void BeforeClose() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void BindTree();
    void BindFilters();
    void BindCells();
    void BindButtons();
    void BindForm();
    void DrawForm();
    void Run(const std::function<void()>& work) { services_.Runner.Run(work); }
    /// Runs a command on what has been typed.
    void Execute(const TAction& action);
    /// What stands in a cell's editor or in the box goes to the editor.
    void TakeTyped();
    void EditBelow(QEvent* event);
    void ChangeFilter(const std::function<void(TTransFilter&)>& change);
    void BindSearch();
    /// What is typed in the search is looked for once the person pauses, or leaves it.
    void Search();

    /// Gives the grid the height that the boxes leave, and its columns the width.
    void LayOut();
    void LayOutColumns();
    void SizeBoxes();
    /// Stored is only what the person has sized.
    void BindSizes();
    void StoreBoxes();
    void StoreSize(const char* name, const QSplitter& splitter, int size);
    /// Of the forms and their units.
    std::vector<std::string> FilesOfForms() const;
    void RefreshTree();
    void RefreshFilters();
    void RefreshTexts();
    /// Shows a text in a box, in the direction of its column.
    void ShowText(QPlainTextEdit& box, const QString& text, int column);
    void RefreshStatus();
    /// The column of the language whose progress is shown.
    int ProgressColumn() const;

    TfrmTransEditor& form_;
    const TViewServices& services_;
    std::unique_ptr<Ui::Transeditorview> ui_;
    TBinder binder_;
    TTransModel model_;
    std::unique_ptr<TActionBinding> actions_;
    std::vector<QTreeWidgetItem*> nodes_;
    TTransFormPane* pane_;
    TWatchedFiles onDisk_;
    std::vector<int> widths_;           ///< of the columns, as designed; 0 for one that nobody has sized
    bool areSized_ = false;             ///< since the window was opened
    std::set<const QSplitter*> moved_;  ///< the same
    bool layingOut_ = false;
    QLabel* progress_;
    QLabel* changed_;
    QLabel* notice_;
    std::optional<QString> typed_;  ///< in a cell, while that is edited
    QTimer typing_;                 ///< runs while what is typed in the search is not looked for yet
    bool refreshing_ = false;
};

}  // namespace tml
