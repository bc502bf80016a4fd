#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrenumarray.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstringarray.h>

#include <gtest/gtest.h>

#include <QtCore/qlist.h>

#include "../contract/arraysuite.h"
#include "../contract/listarraysuite.h"
#include "../support/qtprinters.h"

namespace {

struct EnumArrayTraits
{
    using Array = KDREnumArray;
    using Element = KDREnum;
    static constexpr bool insertsAtEnd = false;
    static KDREnum make(int number)
    {
        KDREnum selection;
        selection.setCurrentVal(number);
        return selection;
    }
    static bool isDefault(KDREnum const& value) { return value.currentVal() == -1; }
    static int read(KDREnum const& selection) { return selection.currentVal(); }
};

using EnumArrays = testing::Types<EnumArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(EnumArrays, ArrayContract, EnumArrays, );
INSTANTIATE_TYPED_TEST_SUITE_P(EnumArrays, ListArrayContract, EnumArrays, );

bool shareStorage(KDREnumArray const& a, KDREnumArray const& b)
{
    return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
}

class EnumArray : public testing::Test
{
protected:
    void SetUp() override
    {
        KDRStringArray names;
        names.push_back(KDRString("a"));
        names.push_back(KDRString("b"));
        KDREnum selection(names, KDRNumberArray());
        selection.setCurrentVal(1);
        array.push_back(selection);
    }

    KDREnumArray array;
};

TEST_F(EnumArray, ElementsCarryTheirNames)
{
    KDREnum out;
    ASSERT_TRUE(array.select(0, &out));
    EXPECT_EQ(out.currentValStr(), KDRString("b"));
    EXPECT_EQ(array[0].currentValStr(), KDRString("b"));
}

TEST_F(EnumArray, ElementsDoNotFollowWhatWasSelected)
{
    KDREnum out;
    ASSERT_TRUE(array.select(0, &out));
    out.setCurrentVal(0);
    EXPECT_EQ(array[0].currentVal(), 1);
}

TEST_F(EnumArray, CopiesShareTheStorageAndDetachWhenIndexed)
{
    KDREnumArray const copy(array);
    EXPECT_TRUE(shareStorage(array, copy));
    KDREnum out;
    EXPECT_TRUE(copy.select(0, &out));
    EXPECT_FALSE(KDREnumArray(copy).insert(1, out));
    EXPECT_TRUE(shareStorage(array, copy));
    EXPECT_EQ(copy[0].currentVal(), 1);
    EXPECT_FALSE(shareStorage(array, copy));
}

} // namespace
