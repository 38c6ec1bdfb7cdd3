#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "setup/Exclusionlists.h"

namespace tml {
namespace {

using testing::ElementsAre;

TEST(ExclusionLists, HoldAnEntryOnceAndLoseEveryLineOfIt) {
    constexpr auto kList = TExclusionList::ExcludedProperties;
    TExclusionLists lists;
    EXPECT_TRUE(AddExclusion(lists, kList, " !btnOK "));
    EXPECT_TRUE(AddExclusion(lists, kList, "TEdit"));
    EXPECT_FALSE(AddExclusion(lists, kList, "tedit"));
    EXPECT_FALSE(AddExclusion(lists, kList, " "));
    EXPECT_THAT(lists[kList].Items(), ElementsAre("!btnOK", "TEdit"));

    lists[kList].Add(" tEdit ");
    EXPECT_TRUE(RemoveExclusion(lists, kList, "TEDIT"));
    EXPECT_FALSE(RemoveExclusion(lists, kList, "TEdit"));
    EXPECT_THAT(lists[kList].Items(), ElementsAre("!btnOK"));
    EXPECT_EQ(lists[TExclusionList::DoNotTranslate], TStringList());
}

}  // namespace
}  // namespace tml
