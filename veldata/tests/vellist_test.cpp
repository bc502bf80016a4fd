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

/// What a list of as many elements as there can be would hold.
struct Grain
{
};

/// As many elements as there can be, of which there is nothing but the number.
struct Full
{
    static std::size_t size() noexcept { return INT_MAX; }
    static Grain* begin() noexcept { return nullptr; }
    static Grain* end() noexcept { return nullptr; }
    void push_back(Grain const&) noexcept { ++changes; }
    template <class... Position>
    void insert(Position&&...) noexcept
    {
        ++changes;
    }

    int changes = 0;
};

} // namespace

template <>
class VelList<Grain>
{
public:
    Full items;
};

namespace {

TEST(VelList, AFullOneTakesNoMore)
{
    VelList<Grain> full;
    VelList<Grain>* list = &full;
    EXPECT_EQ(vellist::length(list), INT_MAX);
    EXPECT_EQ(vellist::append(list, Grain()), 0);
    EXPECT_EQ(vellist::insert(list, 0, Grain()), 0);
    EXPECT_EQ(vellist::insert(list, INT_MAX, Grain()), 0);
    EXPECT_EQ(list, &full);
    EXPECT_EQ(full.items.changes, 0);
}

} // namespace
