#include <tuple>

#include "core/Formslist.h"

namespace tml {
namespace {

void Add(TFormsList& list, const char* form, const char* unit, int numLang) {
    TFormRow& row = list.FormNames.Add(form, unit, std::string("/p/") + unit + ".pas");
    UpdateItem(&row, {"lang", "TmlLang", numLang});
}

/// Those of all columns and of one that does not exist.
std::string Cells(const TFormRow& row) {
    std::string text;
    for (std::size_t column = 0; column <= fcCount; ++column)
        text += row.Cell(column) + "|";
    return text;
}

std::string Sorted(TFormsList& list, int column, int order) {
    list.FormNames.Sort(
        [&](const TFormRow& a, const TFormRow& b) { return CompareRows(a, b, column) * order; });
    std::string names;
    for (const auto& item : list.FormNames.Items())
        names += item->FormName + " ";
    return names;
}

TEST(Formslist, SortsByTextWithoutCaseAndByNumber) {
    TFormsList list;
    Add(list, "beta", "Z", 10);
    Add(list, "Alpha", "y", 9);
    Add(list, "gamma", "X", 0);
    EXPECT_EQ(Sorted(list, 0, 1), "Alpha beta gamma ");
    EXPECT_EQ(Sorted(list, 0, -1), "gamma beta Alpha ");
    EXPECT_EQ(Sorted(list, 1, 1), "gamma Alpha beta ");
    EXPECT_EQ(Sorted(list, 3, 1), "gamma Alpha beta ");
    EXPECT_EQ(Sorted(list, 77, 1), "Alpha beta gamma ") << "a column that does not exist is the first";
    const TFormRow& a = *list.FormNames.Items()[0];
    EXPECT_EQ(CompareRows(a, a, 3), -1) << "equal counts are never equal";
}

TEST(Formslist, CellsAndStatusFollowTheComponent) {
    TFormsList list;
    EXPECT_EQ(list.StatusPanels[2], "Forms translated: 0(0)");
    Add(list, "A", "A", 3);
    Add(list, "B", "B", 0);
    TFormRow& row = list.FormNames.Row(0);
    EXPECT_EQ(Cells(row), "A|A|/p/A.pas|3|lang||");
    EXPECT_EQ(Cells(list.FormNames.Row(1)), "B|B|/p/B.pas|0|||");
    EXPECT_EQ(row.StateIndex(), 1);
    row.InsertedName = "lang";
    EXPECT_EQ(Cells(row), "A|A|/p/A.pas|3|TmlLang||");
    UpdateStatusBar(list, 7);
    EXPECT_EQ(list.StatusPanels, (std::array<std::string, 4>{"Forms count: 2", "Units count: 7",
                                                             "Forms translated: 1 of 2", ""}));
    EXPECT_EQ(list.FormNames.FindFile("/P/b.PAS"), &list.FormNames.Row(1));
    EXPECT_EQ(list.FormNames.FindFile("/p/b.dfm"), nullptr);
    EXPECT_EQ(list.FormNames.FindUnitOrForm("/p/B.DFM"), std::vector{&list.FormNames.Row(1)});
    EXPECT_EQ(list.FormNames.FindForm("b"), nullptr);
    list.FormNames.Clear();
    EXPECT_EQ(list.FormNames.FindFile("/p/B.pas"), nullptr);
}

TEST(Formslist, WidthsTakeWhatIsANumber) {
    const std::tuple<const char*, const char*> rows[] = {
        {"", "76,75,145,70,315"}, {" 10, x ,30 ", "10,75,30,70,315"}, {"1,2,3,4,5,6", "1,2,3,4,5"}};
    for (const auto& [text, widths] : rows) {
        TFormsList list;
        SetColumnWidths(list.FormNames, text);
        EXPECT_EQ(ColumnWidthsText(list.FormNames), widths);
    }
}

}  // namespace
}  // namespace tml
