#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/Formrow.h"

namespace tml {

/// The pages of the main window.
enum class TFormsPage { ProjectForms, ExternalFiles };

/// The rows of one page, which can be found by their files.
class TFormRows : public TListOf<TFormRow> {
  public:
    /// Adds a row without a component.
    TFormRow& Add(const std::string& formName, const std::string& unitName, const std::string& fileName);
    void Clear();

    /// The row whose unit is this file (without regard to case), nullptr when there is none.
    TFormRow* FindFile(const std::string& fileName) const;
    /// The rows of a unit or of its form file (without regard to case).
    std::vector<TFormRow*> FindUnitOrForm(const std::string& fileName) const;
    /// The row of a form (with case), nullptr when there is none.
    TFormRow* FindForm(const std::string& formName) const;
    /// The rows of the forms of this name (without regard to case).
    std::vector<TFormRow*> FindForms(std::string_view formName) const;
    /// The form has another name.
    void Rename(TFormRow& row, const std::string& formName);

  private:
    using TIndex = std::unordered_multimap<std::string, TFormRow*>;
    static std::vector<TFormRow*> Rows(const TIndex& index, const std::string& key);

    TIndex byFile_;  ///< by path without extension, upper-cased
    TIndex byForm_;  ///< by name, upper-cased
};

/// What the main window lists: the forms of the project and the external files, and the counts below.
struct TFormsList {
    TFormsList();

    TFormRows FormNames;
    TFormRows ExternalFiles;
    TFormsPage Page = TFormsPage::ProjectForms;
    /// The row to bring into view, by id; who shows the list sets it back to 0, none.
    int ScrolledTo = 0;
    std::array<std::string, 4> StatusPanels;

    /// The lists of both pages.
    std::array<TFormRows*, 2> Both() { return {&FormNames, &ExternalFiles}; }
    /// The list on the page in front.
    TFormRows& Active() { return Page == TFormsPage::ProjectForms ? FormNames : ExternalFiles; }
};

/// The widths of the forms list's columns as comma text, and back; an entry that is no number keeps its
/// column's width, as do columns without an entry.
std::string ColumnWidthsText(const TFormRows& list);
void SetColumnWidths(TFormRows& list, std::string_view text);

/// Writes the counts of forms, units and translated forms into the status panels.
void UpdateStatusBar(TFormsList& list, int unitCount);

}  // namespace tml
