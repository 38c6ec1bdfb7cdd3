#include <gtest/gtest.h>

#include "tables/Languageplaces.h"

namespace tml {
namespace {

using TNames = std::vector<std::string>;

TEST(Languageplaces, AreFoundByNameElseByPlace) {
    const struct {
        TNames Present, Wanted;
        std::vector<int> Places;
        TNames Lost;
    } rows[] = {
        {{"A", "B", "C"}, {"A", "B", "C"}, {1, 2, 3}, {}},
        {{"A", "B", "C"}, {"a", "c"}, {1, 3}, {"B"}},
        {{"A", "B", "C"}, {"C", "A", "B", "D"}, {3, 1, 2, 0}, {}},
        {{"A", "B"}, {"X", "Y"}, {1, 2}, {}},
        {{"A", "B"}, {"A", ""}, {1, 0}, {"B"}},
        {{"A", "B", "C"}, {"A", "X", "B"}, {1, 0, 2}, {"C"}},
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
