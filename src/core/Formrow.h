#pragma once

#include <memory>
#include <string>

#include "windows/Listview.h"

namespace tml {

class TmlModuleNotifier;

/// The localization component of a form; NumLang 0 where it has none.
struct TFormAnalysis {
    std::string ComponentName;
    std::string ClassName;
    int NumLang = 0;
    std::string FormName = {};  ///< as the form itself has it, "" where that is not known
    std::string Ancestor =
        {};  ///< the form that it inherits the component from, "" for a component of its own
    std::string DerivesFrom =
        {};  ///< the form of the project that it derives from; of one with its own component "" will do
};

/// The columns of the forms list.
enum TFormsColumn { fcFormName, fcUnitName, fcFileName, fcLanguages, fcComponent, fcCount };

/// A form of the project with what is known of its localization component, or an external file.
class TFormRow : public TListRow {
  public:
    TFormRow(std::string formName, std::string unitName, std::string fileName)
        : FormName(std::move(formName)), UnitName(std::move(unitName)), FileName(std::move(fileName)) {}

    std::string FormName;  ///< its list renames it
    const std::string UnitName;
    const std::string FileName;  ///< of the unit
    TFormAnalysis Component;
    /// The component that was inserted since the list was made: the column shows its class in place of its
    /// name until the list is made anew.
    std::string InsertedName;
    /// Of the form's module where that was open when the row was made.
    std::shared_ptr<TmlModuleNotifier> Notifier;

    bool HasComponent() const { return Component.NumLang > 0; }
    std::string Cell(std::size_t column) const override;
    int StateIndex() const override { return HasComponent() ? 1 : 0; }
};

/// Sets what is known of the row's component; nothing for a missing row. Below 1 language it has none, and
/// only the form that it derives from is kept.
void UpdateItem(TFormRow* row, const TFormAnalysis& found);

/// Compares two rows by a column: below 0, 0 or above 0.
int CompareRows(const TFormRow& a, const TFormRow& b, int column);

}  // namespace tml
