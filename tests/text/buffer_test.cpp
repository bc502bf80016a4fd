#include <kdrdata/text/kdrbuffer.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

static_assert(sizeof(KDRBuffer) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRBuffer>);
static_assert(std::is_same_v<decltype(static_cast<char* (KDRBuffer::*)() const>(&KDRBuffer::data)),
                             char* (KDRBuffer::*)() const>);

TEST(Buffer, DefaultIsNullAndEmpty)
{
    KDRBuffer const buffer;
    EXPECT_TRUE(buffer.isNull());
    EXPECT_TRUE(buffer.isEmpty());
    EXPECT_EQ(buffer.size(), 0);
    EXPECT_EQ(buffer.length(), 0);
    ASSERT_NE(buffer.constData(), nullptr);
    EXPECT_EQ(*buffer.constData(), '\0');
}

TEST(Buffer, TakesTheBytesCountedOrUpToTheZero)
{
    EXPECT_EQ(bytesOf(KDRBuffer("ab\0cd", 5)), QByteArray("ab\0cd", 5));
    EXPECT_EQ(bytesOf(KDRBuffer("ab\0cd")), QByteArray("ab"));
    EXPECT_EQ(bytesOf(KDRBuffer("ab\0cd", -7)), QByteArray("ab"));
    EXPECT_EQ(KDRBuffer("ab\0cd", 5).length(), 5);
}

TEST(Buffer, NullAndEmptyAreDistinct)
{
    EXPECT_TRUE(KDRBuffer(nullptr, 5).isNull());
    EXPECT_TRUE(KDRBuffer(nullptr).isNull());
    for (KDRBuffer const& empty :
         {KDRBuffer(""), KDRBuffer("ab", 0), KDRBuffer(0, 'x'), KDRBuffer(-3, 'x')}) {
        EXPECT_TRUE(empty.isEmpty());
        EXPECT_FALSE(empty.isNull());
    }
}

TEST(Buffer, RepeatsAByte)
{
    EXPECT_EQ(bytesOf(KDRBuffer(3, 'x')), QByteArray("xxx"));
    EXPECT_EQ(bytesOf(KDRBuffer(2, '\0')), QByteArray("\0\0", 2));
}

TEST(Buffer, AtReadsOneByte)
{
    KDRBuffer const buffer("a\xFF\0", 3);
    EXPECT_EQ(buffer.at(0), 'a');
    EXPECT_EQ(buffer.at(1), '\xFF');
    EXPECT_EQ(buffer.at(2), '\0');
}

#ifndef QT_NO_DEBUG
TEST(BufferDeathTest, AtBeyondTheBytesIsCaughtByAssertions)
{
    KDRBuffer const buffer("ab");
    EXPECT_DEATH(buffer.at(2), "ASSERT");
    EXPECT_DEATH(buffer.at(-1), "ASSERT");
}
#endif

TEST(Buffer, CopiesShareTheBytes)
{
    KDRBuffer const original("abc");
    KDRBuffer const copy(original);
    KDRBuffer assigned;
    assigned = original;
    EXPECT_EQ(copy.constData(), original.constData());
    EXPECT_EQ(assigned.constData(), original.constData());
}

TEST(Buffer, CopiesKeepNullAndEmptyApart)
{
    EXPECT_TRUE(KDRBuffer(KDRBuffer()).isNull());
    EXPECT_FALSE(KDRBuffer(KDRBuffer("")).isNull());
    KDRBuffer buffer("abc");
    buffer = KDRBuffer();
    EXPECT_TRUE(buffer.isNull());
}

TEST(Buffer, AMovedFromBufferKeepsItsBytes)
{
    KDRBuffer original("abc");
    KDRBuffer const constructed(std::move(original));
    EXPECT_EQ(bytesOf(original), QByteArray("abc"));
    EXPECT_EQ(constructed.constData(), original.constData());

    KDRBuffer assigned("xyz");
    assigned = std::move(original);
    EXPECT_EQ(bytesOf(original), QByteArray("abc"));
    EXPECT_EQ(assigned.constData(), original.constData());
}

TEST(Buffer, SelfAssignmentKeepsTheBytes)
{
    KDRBuffer buffer("abc");
    KDRBuffer& same = buffer;
    buffer = same;
    EXPECT_EQ(bytesOf(buffer), QByteArray("abc"));
    buffer = std::move(same);
    EXPECT_EQ(bytesOf(buffer), QByteArray("abc"));
    buffer = buffer.constData() + 1;
    EXPECT_EQ(bytesOf(buffer), QByteArray("bc"));
}

TEST(Buffer, AssignsACStringUpToItsZero)
{
    KDRBuffer buffer("before");
    EXPECT_EQ(&(buffer = "ab\0cd"), &buffer);
    EXPECT_EQ(bytesOf(buffer), QByteArray("ab"));
    buffer = "";
    EXPECT_TRUE(buffer.isEmpty());
    EXPECT_FALSE(buffer.isNull());
    buffer = static_cast<char const*>(nullptr);
    EXPECT_TRUE(buffer.isNull());
}

TEST(Buffer, AssignmentsReturnTheBuffer)
{
    KDRBuffer buffer;
    KDRBuffer other("abc");
    EXPECT_EQ(&(buffer = other), &buffer);
    EXPECT_EQ(&(buffer = std::move(other)), &buffer);
}

TEST(Buffer, WritingThroughDataLeavesCopiesAlone)
{
    KDRBuffer original("abc");
    KDRBuffer const copy(original);
    original.data()[0] = 'X';
    EXPECT_EQ(bytesOf(original), QByteArray("Xbc"));
    EXPECT_EQ(bytesOf(copy), QByteArray("abc"));
}

TEST(Buffer, ConstantDataDetachesAndIsWritable)
{
    KDRBuffer const original("abc");
    KDRBuffer const copy(original);
    char* const bytes = original.data();
    EXPECT_NE(bytes, copy.constData());
    EXPECT_EQ(original.constData(), bytes);
    bytes[0] = 'X';
    EXPECT_EQ(bytesOf(original), QByteArray("Xbc"));
    EXPECT_EQ(bytesOf(copy), QByteArray("abc"));
}

TEST(Buffer, ConstDataAndAtDoNotDetach)
{
    KDRBuffer original("abc");
    KDRBuffer const copy(original);
    EXPECT_EQ(original.at(0), 'a');
    EXPECT_EQ(original.constData(), copy.constData());
}

} // namespace
