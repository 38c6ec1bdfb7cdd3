#include <gtest/gtest.h>

#include "tables/Languageplaces.h"

namespace tml {
namespace {

using TNames = std::vector<std::string>;

TEST(Languageplaces, AreFoundByNameAndByPlaceWhereThereIsNoName) {
    const struct {
        TNames Present, Wanted;
        std::vector<int> Places;
        TNames Lost;
    } rows[] = {
        {{"A", "B", "C"}, {"A", "B", "C"}, {1, 2, 3}, {}},
        {{"A", "B", "C"}, {"a", "c"}, {1, 3}, {"B"}},
        {{"A", "B", "C"}, {"C", "A", "B", "D"}, {3, 1, 2, 0}, {}},
        {{"A", "B"}, {"A", "Y"}, {1, 0}, {"B"}},
        {{"A", "language n2"}, {"X", "Y"}, {0, 2}, {"A"}},
        {{"", "Language N1"}, {"X", "Y"}, {1, 0}, {"Language N1"}},
        {{"A", "Language N2"}, {"Language N2", "A"}, {2, 1}, {}},
        {{"A", "B"}, {"A", ""}, {1, 0}, {"B"}},
        {{"A", "Language N2", "C"}, {"A", "X", "Language N2"}, {1, 0, 2}, {"C"}},
        {{"A", "A"}, {"A", "A"}, {1, 2}, {}},
        {{}, {"A"}, {0}, {}},
    };
    for (const auto& row : rows) {
        const TStringList present(row.Present);
        const std::vector<int> places = PlacesOfLanguages(present, TStringList(row.Wanted));
        EXPECT_EQ(places, row.Places) << TStringList(row.Wanted).CommaText();
        EXPECT_EQ(LostLanguages(present, places).Items(), row.Lost);
    }
}

}  // namespace
}  // namespace tml
