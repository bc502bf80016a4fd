#include <climits>
#include <cstddef>

#include <gtest/gtest.h>

#include <veldata/vellist_p.h>

namespace {

TEST(VelList, LengthsEndAtIntMax)
{
    std::size_t const most = INT_MAX;
    EXPECT_TRUE(vellist::mayGrow(0, most));
    EXPECT_TRUE(vellist::mayGrow(most - 1, 1));
    EXPECT_TRUE(vellist::mayGrow(most, 0));
    EXPECT_FALSE(vellist::mayGrow(most, 1));
    EXPECT_FALSE(vellist::mayGrow(most - 1, 2));
    EXPECT_FALSE(vellist::mayGrow(most, most));
    EXPECT_FALSE(vellist::mayGrow(1, static_cast<std::size_t>(-1)));
}

} // namespace
