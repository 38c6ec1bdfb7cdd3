#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "windows/Controls.h"

namespace tml {

/// The sub-items of a row of the forms list. The last two are in no column: the class of the component
/// whose name the row shows, and the file name in upper case, by which rows are found.
enum TFormsListCell { fcUnitName, fcFileName, fcLanguages, fcComponent, fcClass, fcFileKey, fcCount };

/// The pages of the main window.
enum class TFormsPage { ProjectForms, ExternalFiles };

/// What the main window lists: the forms of the project and the external files, and the counts below.
struct TFormsList {
    TFormsList();

    TListView FormNames;
    TListView ExternalFiles;
    TFormsPage Page = TFormsPage::ProjectForms;
    /// The row to bring into view, by id; who shows the list sets it back to 0, none.
    int ScrolledTo = 0;
    std::array<std::string, 4> StatusPanels;

    /// The list on the page in front.
    TListView& Active() { return Page == TFormsPage::ProjectForms ? FormNames : ExternalFiles; }
};

/// The widths of the forms list's columns as comma text, and back; an entry that is no number keeps its
/// column's width, as do columns without an entry.
std::string ColumnWidthsText(const TListView& list);
void SetColumnWidths(TListView& list, std::string_view text);

/// Sets the localization cells of a row; nothing for a missing one. Below 1 language the row has no
/// component.
void UpdateItem(TListItem* item, const std::string& componentName, int numLang,
                const std::string& className = {});

/// Adds a row without a component.
TListItem& AddRow(TListView& list, const std::string& formName, const std::string& unitName,
                  const std::string& fileName);

/// Gives a row its cells back when it goes, unless they are kept: for a command that may be taken back.
class TRowGuard {
  public:
    explicit TRowGuard(TListItem& item) : item_(item), cells_(item.SubItems), stateIndex_(item.StateIndex) {}
    ~TRowGuard();
    TRowGuard(const TRowGuard&) = delete;
    TRowGuard& operator=(const TRowGuard&) = delete;
    void Keep() { kept_ = true; }

  private:
    TListItem& item_;
    std::vector<std::string> cells_;
    int stateIndex_;
    bool kept_ = false;
};

/// The row whose unit is this file (without regard to case), nullptr when there is none.
TListItem* FindRowOfFile(TListView& list, const std::string& fileName);
/// The row of a form (with case), nullptr when there is none.
TListItem* FindRowOfForm(TListView& list, const std::string& formName);

/// Compares two rows by a column: below 0, 0 or above 0.
int CompareRows(const TListItem& a, const TListItem& b, int column);

/// Writes the counts of forms, units and translated forms into the status panels.
void UpdateStatusBar(TFormsList& list, int unitCount);

}  // namespace tml
