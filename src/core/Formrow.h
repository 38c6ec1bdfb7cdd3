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
};

/// The columns of the forms list.
enum TFormsColumn { fcFormName, fcUnitName, fcFileName, fcLanguages, fcComponent, fcCount };

/// A form of the project with what is known of its localization component, or an external file.
class TFormRow : public TListRow {
  public:
    TFormRow(std::string formName, std::string unitName, std::string fileName)
        : FormName(std::move(formName)), UnitName(std::move(unitName)), FileName(std::move(fileName)) {}

    std::string FormName;
    const std::string UnitName;
    const std::string FileName;  ///< of the unit
    TFormAnalysis Component;
    /// The column shows the component's class in place of its name.
    bool ShowsClass = false;
    /// Of the form's module where that was open when the row was made.
    std::shared_ptr<TmlModuleNotifier> Notifier;

    bool HasComponent() const { return Component.NumLang > 0; }
    std::string Cell(std::size_t column) const override;
    int StateIndex() const override { return HasComponent() ? 1 : 0; }
};

/// Sets what is known of the row's component; nothing for a missing row. Below 1 language it has none.
void UpdateItem(TFormRow* row, const TFormAnalysis& found);

/// Gives a row what it knew of its component back when it goes, unless the row is kept: for a command that
/// may be taken back.
class TRowGuard {
  public:
    explicit TRowGuard(TFormRow& row) : row_(row), component_(row.Component), showsClass_(row.ShowsClass) {}
    ~TRowGuard();
    TRowGuard(const TRowGuard&) = delete;
    TRowGuard& operator=(const TRowGuard&) = delete;
    void Keep() { kept_ = true; }

  private:
    TFormRow& row_;
    TFormAnalysis component_;
    bool showsClass_;
    bool kept_ = false;
};

/// Compares two rows by a column: below 0, 0 or above 0.
int CompareRows(const TFormRow& a, const TFormRow& b, int column);

}  // namespace tml
