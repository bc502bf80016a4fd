#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrbufferarray.h>

#include "../contract/arraysuite.h"
#include "../contract/listarraysuite.h"
#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

#include <QtCore/QList>

#include <new>
#include <string>

namespace {

struct BufferArrayTraits
{
    using Array = KDRBufferArray;
    using Element = KDRBuffer;
    static constexpr bool insertsAtEnd = false;
    static KDRBuffer make(int number) { return {std::to_string(number).c_str(), -1}; }
    static bool isDefault(KDRBuffer const& value) { return value.isNull(); }
    static int read(KDRBuffer const& buffer) { return std::stoi(buffer.constData()); }
};

using BufferArrays = testing::Types<BufferArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(BufferArray, ArrayContract, BufferArrays, );
INSTANTIATE_TYPED_TEST_SUITE_P(BufferArray, ListArrayContract, BufferArrays, );

KDRBufferArray arrayOf(std::initializer_list<KDRBuffer> elements)
{
    KDRBufferArray array;
    for (KDRBuffer const& element : elements)
        array.push_back(element);
    return array;
}

TEST(BufferArray, ElementsShareTheirBytesOnTheWayInAndOut)
{
    KDRBuffer const element("some bytes");
    KDRBufferArray array;
    array.push_back(KDRBuffer("old"));
    array.push_back(element);
    ASSERT_TRUE(array.replace(0, element));
    ASSERT_TRUE(array.insert(0, element));
    for (int i = 0; i < 3; ++i) {
        KDRBuffer out;
        ASSERT_TRUE(array.select(i, &out));
        EXPECT_EQ(out.constData(), element.constData());
        EXPECT_EQ(array[i].constData(), element.constData());
    }
}

TEST(BufferArray, AChangedElementLeavesItsSourceAlone)
{
    KDRBuffer element("ab");
    KDRBufferArray const array = arrayOf({element});
    element.append('c');
    KDRBuffer out = array[0];
    out.append('d');
    EXPECT_EQ(bytesOf(array[0]), "ab");
}

TEST(BufferArray, JoinsItsElementsWithNothingBetweenThem)
{
    EXPECT_EQ(bytesOf(arrayOf({"ab", "cd"}).join()), "abcd");
    EXPECT_EQ(bytesOf(arrayOf({"", KDRBuffer("\0x", 2), "cd"}).join()), QByteArray("\0xcd", 4));
}

TEST(BufferArray, JoinsToNullWithoutElementsOrWithNullOnesOnly)
{
    EXPECT_TRUE(KDRBufferArray().join().isNull());
    EXPECT_TRUE(arrayOf({KDRBuffer(), KDRBuffer()}).join().isNull());
    KDRBuffer const empty = arrayOf({KDRBuffer(), KDRBuffer("")}).join();
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_FALSE(empty.isNull());
}

TEST(BufferArray, JoinOfOneElementSharesItsBytes)
{
    KDRBuffer const element("some bytes");
    EXPECT_EQ(arrayOf({element}).join().constData(), element.constData());
}

TEST(BufferArray, JoinDetachesASharedList)
{
    KDRBufferArray array = arrayOf({"ab", "cd"});
    KDRBufferArray const copy(array);
    auto const shared = [&] {
        return KDRInternal::wrapped(array).isSharedWith(KDRInternal::wrapped(copy));
    };
    ASSERT_TRUE(shared());
    EXPECT_EQ(bytesOf(array.join()), "abcd");
    EXPECT_FALSE(shared());
    EXPECT_EQ(copy.length(), 2);
}

TEST(BufferArray, JoinBeyondAnIntThrowsBeforeItReadsAByte)
{
    static char const byte = 'x';
    KDRBufferArray array;
    for (int i = 0; i < 3; ++i)
        array.push_back(KDRBuffer::fromRawData(&byte, 1 << 30));
    EXPECT_THROW(array.join(), std::bad_alloc);
}

TEST(BufferArrayJoin, OfNullBuffersIsNullAndOfAnEmptyOneEmpty)
{
    KDRBufferArray buffers;
    buffers.push_back(KDRBuffer());
    buffers.push_back(KDRBuffer());
    EXPECT_TRUE(buffers.join().isNull());
    buffers.push_back(KDRBuffer(""));
    EXPECT_FALSE(buffers.join().isNull());
    EXPECT_TRUE(buffers.join().isEmpty());
}

} // namespace
