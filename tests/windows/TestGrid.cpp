#include <gtest/gtest.h>

#include "windows/Grid.h"

namespace tml {
namespace {

const std::vector<std::array<std::string, 3>> kCells{
    {"10", " one", "or"}, {"9", "Two\r\n", "or"}, {"30", "ONE two", "or"}, {"10", "", "or"}};

TGrid MakeGrid() {
    TGrid grid;
    grid.Columns = {{.Caption = "Line", .IsNumber = true, .IsNumbered = true},
                    {.Caption = "Text", .MarksBlanks = true},
                    {.Caption = "Call", .IsSearched = false}};
    grid.Cell = [](int id, int column) {
        return kCells[static_cast<std::size_t>(id)][static_cast<std::size_t>(column)];
    };
    grid.Assign({0, 1, 2, 3});
    return grid;
}

std::string Dump(const TGrid& grid) {
    std::string dump;
    for (const int id : grid.Shown())
        dump +=
            std::to_string(id) + (grid.IsSelected(id) ? "*" : "") + (id == grid.Current() ? "<" : "") + " ";
    return dump;
}

/// What is done to a grid of four rows, and its rows as shown: "*" selected, "<" current.
struct TGridCase {
    void (*Do)(TGrid&);
    const char* Expected;
};

TEST(Grid, ShowsRowsByOrderAndFilterWithACurrentRowAndASelection) {
    const TGridCase cases[] = {
        {[](TGrid&) {}, "0< 1 2 3 "},
        {[](TGrid& grid) { grid.SortBy(0); }, "1 0< 3 2 "},
        {[](TGrid& grid) { grid.SortBy(0, true); }, "2 0< 3 1 "},
        {[](TGrid& grid) { grid.SortBy(1); }, "3 0< 2 1 "},
        {[](TGrid& grid) { grid.SetFilter("or"); }, ""},
        {[](TGrid& grid) { grid.SetFilter("tWO"); }, "1< 2 "},
        {[](TGrid& grid) {
             grid.SetCurrent(3);
             grid.Select({0, 1, 2}, {});
             grid.Select({3}, {0});
             grid.SetFilter("one");
             grid.SetFilter("");
         },
         "0 1 2*< 3 "},
        {[](TGrid& grid) {
             grid.SortBy(0, true);
             grid.Assign({1, 3});
         },
         "3< 1 "},
        {[](TGrid& grid) {
             grid.SetCurrent(2);
             grid.SetFilter("no such");
             grid.SetFilter("");
         },
         "0 1 2< 3 "},
        {[](TGrid& grid) {
             grid.SelectOnly([](int id) { return id % 2 == 1; });
             grid.SetCurrent(77);
             grid.SetCurrent(3);
             grid.Assign({0, 1});
             grid.Assign({0, 1, 3});
         },
         "0 1*< 3 "},
    };
    for (const TGridCase& each : cases) {
        TGrid grid = MakeGrid();
        each.Do(grid);
        EXPECT_EQ(Dump(grid), each.Expected) << "case " << &each - cases;
    }
}

TEST(Grid, RowsAreNumberedAndBlanksSeen) {
    TGrid grid = MakeGrid();
    grid.SortBy(0);
    EXPECT_EQ(grid.Text(1, 0), "2 (10)");
    EXPECT_EQ(grid.Text(1, 1), "\u00B7one");
    EXPECT_EQ(grid.Text(0, 1), "Two\u21B5");
    EXPECT_EQ(grid.Text(3, 1), "ONE two");
    EXPECT_EQ(grid.FromCurrentOn(), (std::vector<int>{0, 3, 2}));
    EXPECT_EQ(grid.Affected(), (std::vector<int>{0}));
    grid.Select({1, 2});
    EXPECT_EQ(grid.Affected(), (std::vector<int>{1, 2}));
}

}  // namespace
}  // namespace tml
