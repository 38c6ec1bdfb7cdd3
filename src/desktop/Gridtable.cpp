#include "desktop/Gridtable.h"

#include <QHeaderView>

#include "desktop/Listmodel.h"

namespace tml {

void SetUpGrid(const QWidget& view, TRowTable& table, TGridModel& model, TRunner& runner) {
    model.Run = [&runner](const std::function<void()>& work) { runner.Run(work); };
    table.setModel(&model);
    SetUpTable(table);
    const auto& columns = model.Grid().Columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        table.setColumnWidth(static_cast<int>(i), ShownWidth(view, columns[i].Width));
    table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table.setSortingEnabled(true);
}

}  // namespace tml
