#pragma once

#include <QString>
#include <functional>
#include <string>

#include "desktop/Runner.h"

class QLineEdit;
class QWidget;

namespace tml {

class TRowTable;

/// Down and Enter lead from a box to the list that it filters.
void LeaveByKeys(QLineEdit& box, QWidget& list);

/// Binds the box with the text that filters a table: apply takes what is typed, Ctrl+F in the view goes to
/// the box, and Down or Enter from there to the table.
void BindFilter(QWidget& view, QLineEdit& box, TRowTable& table, TRunner& runner,
                std::function<void(const std::string& text)> apply);

/// "3 of 20", rows shown of rows known.
QString FilterCount(const TRowTable& table);

}  // namespace tml
