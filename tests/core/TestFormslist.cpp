#include <tuple>

#include "core/Formslist.h"

namespace tml {
namespace {

void Add(TFormsList& list, const char* form, const char* unit, int numLang) {
    TListItem& item = AddRow(list.FormNames, form, unit, std::string("/p/") + unit + ".pas");
    UpdateItem(&item, "lang", numLang, "TmlLang");
}

std::string Sorted(TFormsList& list, int column, int order) {
    list.FormNames.Sort(
        [&](const TListItem& a, const TListItem& b) { return CompareRows(a, b, column) * order; });
    std::string names;
    for (const auto& item : list.FormNames.Items())
        names += item->Caption + " ";
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
    const TListItem& a = *list.FormNames.Items()[0];
    EXPECT_EQ(CompareRows(a, a, 3), -1) << "equal counts are never equal";
}

TEST(Formslist, CellsAndStatusFollowTheComponent) {
    TFormsList list;
    EXPECT_EQ(list.StatusPanels[2], "Forms translated: 0(0)");
    Add(list, "A", "A", 3);
    Add(list, "B", "B", 0);
    EXPECT_EQ(list.FormNames.Items()[0]->SubItems,
              (std::vector<std::string>{"A", "/p/A.pas", "3", "lang", "TmlLang", "/P/A.PAS"}));
    EXPECT_EQ(list.FormNames.Items()[1]->SubItems,
              (std::vector<std::string>{"B", "/p/B.pas", "0", "", "", "/P/B.PAS"}));
    EXPECT_EQ(list.FormNames.Items()[0]->StateIndex, 1);
    UpdateStatusBar(list, 7);
    EXPECT_EQ(list.StatusPanels, (std::array<std::string, 4>{"Forms count: 2", "Units count: 7",
                                                             "Forms translated: 1 of 2", ""}));
    EXPECT_EQ(FindRowOfFile(list.FormNames, "/P/b.PAS"), list.FormNames.Items()[1].get());
    EXPECT_EQ(FindRowOfForm(list.FormNames, "b"), nullptr);
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
