#include <kdrdata/text/kdrbuffer.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <new>
#include <string>

namespace {

TEST(BufferIndex, AnIntOutsideReadsASpaceAlsoInAnEmptyBuffer)
{
    KDRBuffer const two("ab");
    EXPECT_EQ(two[0], 'a');
    EXPECT_EQ(two[1], 'b');
    for (int const i : {2, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(two[i], ' ') << i;
        EXPECT_EQ(KDRBuffer()[i], ' ') << i;
        EXPECT_EQ(KDRBuffer("")[i], ' ') << i;
    }
    EXPECT_EQ(KDRBuffer()[0], ' ');
}

TEST(BufferIndex, AnUnsignedOutsideReadsASpaceButAZeroInAnEmptyBuffer)
{
    KDRBuffer const two("ab");
    EXPECT_EQ(two[0U], 'a');
    EXPECT_EQ(two[1U], 'b');
    for (unsigned int const i : {2U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_EQ(two[i], ' ') << i;
    for (unsigned int const i : {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(KDRBuffer()[i], '\0') << i;
        EXPECT_EQ(KDRBuffer("")[i], '\0') << i;
    }
}

TEST(BufferCapacity, IsZeroForTheNullBufferAndGrowsByReserve)
{
    EXPECT_EQ(KDRBuffer().capacity(), 0);
    KDRBuffer buffer("ab");
    buffer.reserve(100);
    EXPECT_GE(buffer.capacity(), 100);
    int const capacity = buffer.capacity();
    for (int const negative : {-1, -5, INT_MIN})
        buffer.reserve(negative);
    EXPECT_EQ(buffer.capacity(), capacity);
    buffer.squeeze();
    EXPECT_LT(buffer.capacity(), 100);
    EXPECT_EQ(bytesOf(buffer), "ab");
}

TEST(BufferCapacity, RoomForNothingMakesANullBufferEmptyAndAnyOneItsOwn)
{
    KDRBuffer null;
    null.reserve(-1);
    EXPECT_TRUE(null.isNull());
    null.reserve(0);
    EXPECT_FALSE(null.isNull());
    EXPECT_TRUE(null.isEmpty());
    KDRBuffer const source("ab");
    KDRBuffer copy(source);
    copy.reserve(0);
    EXPECT_NE(copy.constData(), source.constData());
    EXPECT_EQ(bytesOf(copy), "ab");
}

TEST(BufferConstants, MemorySequenceIsOne) { EXPECT_EQ(KDRBuffer::memorySequence(), 1); }

TEST(BufferConstants, Base64OptionsCombine)
{
    KDRBuffer::KDRBase64Option const both =
        KDRBuffer::KDRBase64Url | KDRBuffer::KDRBase64OmitTrailingEquals;
    EXPECT_EQ(both, 3);
    EXPECT_EQ(bytesOf(KDRBuffer("\xFB\xFF").toBase64(both)), "-_8");
    EXPECT_EQ(bytesOf(KDRBuffer("\xFB\xFF").toBase64()), "+/8=");
    EXPECT_EQ(bytesOf(KDRBuffer::fromBase64("-_8", both)), "\xFB\xFF");
    EXPECT_EQ(bytesOf(KDRBuffer::fromBase64("+/8=")), "\xFB\xFF");
}

TEST(BufferCount, OfAnEmptyNeedleIsOneMoreThanTheSize)
{
    EXPECT_EQ(KDRBuffer("abc").count(""), 4);
    EXPECT_EQ(KDRBuffer("abc").count(KDRBuffer()), 4);
    EXPECT_EQ(KDRBuffer("abc").count(KDRBuffer("")), 4);
    EXPECT_EQ(KDRBuffer("abc").count(static_cast<char const*>(nullptr)), 4);
    EXPECT_EQ(KDRBuffer().count(""), 1);
}

TEST(BufferCount, CountsOverlapsAndBytes)
{
    EXPECT_EQ(KDRBuffer("aaaa").count("aa"), 3);
    EXPECT_EQ(KDRBuffer("abab").count(KDRBuffer("ab")), 2);
    EXPECT_EQ(KDRBuffer("abab").count('b'), 2);
    EXPECT_EQ(KDRBuffer("abab").count(), 4);
}

TEST(BufferSearch, ANullNeedleCountsAsEmpty)
{
    KDRBuffer const buffer("abc");
    char const* const null = nullptr;
    EXPECT_TRUE(buffer.contains(null));
    EXPECT_TRUE(buffer.startsWith(null));
    EXPECT_TRUE(buffer.endsWith(null));
    EXPECT_EQ(buffer.indexOf(null), 0);
    EXPECT_EQ(buffer.lastIndexOf(null), buffer.lastIndexOf(""));
}

TEST(BufferReplace, OfAByteByANullTextRemovesIt)
{
    KDRBuffer buffer("banana");
    KDRBuffer& result = buffer.replace('a', static_cast<char const*>(nullptr));
    EXPECT_EQ(&result, &buffer);
    EXPECT_EQ(bytesOf(buffer), "bnn");
}

TEST(BufferReplace, OfAnEmptyTextPutsTheNewOneEverywhere)
{
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace("", "x")), "xaxbxcx");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(KDRBuffer(), KDRBuffer("x"))), "xaxbxcx");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace("", "")), "abc");
    EXPECT_TRUE(KDRBuffer().replace("", "x").isNull());
}

TEST(BufferReplace, OfARangeIsRemoveAndInsertForAbsurdPositionsToo)
{
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, "XYZ")), "aXYZc");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(-1, 2, "XY")), "abc");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(INT_MIN, 3, "XYZ")), "abc");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, -2, "XY")), "aXYbc");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, INT_MAX, "XY")), "aXY");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(5, 1, "X")), "abc  X");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, "XYZ", 2)), "aXYc");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, INT_MAX - 1, "XY")), "aXY");
    EXPECT_THROW(KDRBuffer("abc").replace(1, INT_MAX, "XY", INT_MAX), std::bad_alloc);
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, static_cast<char const*>(nullptr))), "ac");
}

TEST(BufferReplace, OfARangeByANegativeLengthInsertsNothing)
{
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, "XYZ", -1)), "ac");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, "XYZ", INT_MIN)), "ac");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, -1, "XYZ", -1)), "abc");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(-1, -2, "XYZ", -2)), "abc");
    EXPECT_TRUE(KDRBuffer().replace(0, -1, "x", -1).isNull());
    EXPECT_TRUE(KDRBuffer().replace(0, 0, "x", -1).isNull());
    // A null pointer counts as no bytes, whatever the length.
    char const* const null = nullptr;
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, null, 1)), "ac");
    EXPECT_EQ(bytesOf(KDRBuffer("abc").replace(1, 1, null, 2)), "ac");
}

TEST(BufferReplace, OfARangeThatReplacesNothingKeepsTheBufferNull)
{
    EXPECT_TRUE(KDRBuffer().replace(0, 1, "").isNull());
    EXPECT_TRUE(KDRBuffer().replace(0, 1, KDRBuffer()).isNull());
    EXPECT_TRUE(KDRBuffer().replace(0, -1, "x", 0).isNull());
    EXPECT_TRUE(KDRBuffer().replace(0, -1, "").isNull());
    EXPECT_TRUE(KDRBuffer().replace(1, 0, "").isNull());
    EXPECT_TRUE(KDRBuffer().replace(-1, 1, "x").isNull());
    // No bytes in the place of no bytes make a null one empty, as in QByteArray.
    EXPECT_FALSE(KDRBuffer().replace(0, 0, "").isNull());
    EXPECT_FALSE(KDRBuffer().replace(0, 0, KDRBuffer()).isNull());
    EXPECT_FALSE(KDRBuffer().replace(-1, 0, "").isNull());
}

TEST(BufferReplace, OfARangeTakesItsOwnBytesAndOwnsTheGap)
{
    KDRBuffer buffer("abcdef");
    buffer.replace(1, 2, buffer);
    EXPECT_EQ(bytesOf(buffer), "aabcdefdef");
    buffer = "abcdef";
    buffer.replace(0, 3, buffer.constData() + 1, 3);
    EXPECT_EQ(bytesOf(buffer), "bcddef");
    buffer = "ab";
    buffer.replace(5, 2, "xy");
    EXPECT_EQ(bytesOf(buffer), "ab   xy");
    KDRBuffer raw = KDRBuffer::fromRawData("abcdef", 6);
    EXPECT_EQ(bytesOf(raw.replace(1, 1, "XYZ")), "aXYZcdef");
}

TEST(BufferAppend, NullAndNegativeLengths)
{
    char const* const null = nullptr;
    EXPECT_TRUE(KDRBuffer().append(null).isNull());
    EXPECT_TRUE(KDRBuffer().prepend(null).isNull());
    EXPECT_EQ(bytesOf(KDRBuffer("a").append("bc", -1)), "abc");
    EXPECT_EQ(bytesOf(KDRBuffer("a").prepend("bc", -1)), "bca");
    EXPECT_EQ(bytesOf(KDRBuffer("a").prepend("bc", 1)), "ba");
    EXPECT_EQ(bytesOf(KDRBuffer("a").append(2, 'x')), "axx");
    EXPECT_EQ(bytesOf(KDRBuffer("a").prepend(2, 'x')), "xxa");
    EXPECT_EQ(bytesOf(KDRBuffer("a").append(-2, 'x')), "a");
    EXPECT_EQ(bytesOf(KDRBuffer("a").insert(1, "bc", -1)), "a");
}

TEST(BufferAppend, OfItselfAndOfItsOwnBytes)
{
    KDRBuffer buffer("abc");
    buffer.append(buffer);
    EXPECT_EQ(bytesOf(buffer), "abcabc");
    buffer.prepend(buffer);
    EXPECT_EQ(bytesOf(buffer), "abcabcabcabc");
    buffer = "abc";
    buffer.insert(1, buffer);
    EXPECT_EQ(bytesOf(buffer), "aabcbc");
    buffer = "abc";
    buffer.replace(KDRBuffer("b"), buffer);
    EXPECT_EQ(bytesOf(buffer), "aabcc");
    buffer = "abc";
    buffer.replace(buffer, KDRBuffer("x"));
    EXPECT_EQ(bytesOf(buffer), "x");
    for (int round = 0; round < 20; ++round) {
        buffer = "abc";
        for (int i = 0; i < round; ++i)
            buffer.append('c');
        QByteArray const before = bytesOf(buffer);
        EXPECT_EQ(bytesOf(KDRBuffer(buffer).append(buffer.constData())), before + before);
        buffer.append(buffer.constData() + 1);
        EXPECT_EQ(bytesOf(buffer), before + before.mid(1));
        buffer.prepend(buffer.constData() + 1, 2);
        EXPECT_EQ(bytesOf(buffer), before.mid(1, 2) + before + before.mid(1));
        QByteArray const grown = bytesOf(buffer);
        buffer.insert(1, buffer.constData() + 3, 2);
        EXPECT_EQ(bytesOf(buffer), grown.left(1) + grown.mid(3, 2) + grown.mid(1));
        buffer = KDRBuffer(grown.constData());
        buffer.replace(0, 1, buffer.constData() + 2);
        EXPECT_EQ(bytesOf(buffer), grown.mid(2) + grown.mid(1));
        buffer = buffer.constData() + 1;
        EXPECT_EQ(bytesOf(buffer), (grown.mid(2) + grown.mid(1)).mid(1));
    }
}

TEST(BufferAppend, OfItsOwnBytesSurvivesTheMoveToANewPlace)
{
    // So large that the old place is gone from the address space once the bytes have moved.
    constexpr int size = 4 * 1024 * 1024;
    KDRBuffer buffer(size, 'x');
    buffer.squeeze();
    buffer.append(buffer.constData(), size);
    EXPECT_EQ(bytesOf(buffer), QByteArray(2 * size, 'x'));
    buffer.squeeze();
    buffer.prepend(buffer.constData(), size);
    EXPECT_EQ(bytesOf(buffer), QByteArray(3 * size, 'x'));
}

TEST(BufferReplace, TakesItsOwnBytesForEitherPart)
{
    QByteArray const model = QByteArray("abc").repeated(300);
    KDRBuffer const start = KDRBuffer("abc").repeated(300);
    QByteArray const whole(model.constData(), model.size());
    auto const expectAll = [&](KDRBuffer const& got, QByteArray const& before,
                               QByteArray const& after) {
        QByteArray expected(model.constData(), model.size());
        expected.replace(before, after);
        EXPECT_EQ(bytesOf(got), expected);
    };
    KDRBuffer b(bytesOf(start).constData());
    expectAll(b.replace('b', b.constData()), "b", whole);
    b = bytesOf(start).constData();
    expectAll(b.replace('b', b), "b", whole);
    b = bytesOf(start).constData();
    expectAll(b.replace("b", b.constData()), "b", whole);
    b = bytesOf(start).constData();
    expectAll(b.replace("b", 1, b.constData() + 1, 9), "b", whole.mid(1, 9));
    b = bytesOf(start).constData();
    expectAll(b.replace(KDRBuffer("b"), b.constData()), "b", whole);
    b = bytesOf(start).constData();
    expectAll(b.replace("b", b), "b", whole);
    b = bytesOf(start).constData();
    expectAll(b.replace(b.constData(), 3, b.constData(), 4), "abc", "abca");
    b = bytesOf(start).constData();
    expectAll(b.replace(b.constData(), 3, b.constData(), 1), "abc", "a");
    b = bytesOf(start).constData();
    expectAll(b.replace(b.constData(), 3, b.constData() + 1, 3), "abc", "bca");
}

TEST(BufferReplace, OfAllByTooMuchThrowsAndChangesNothing)
{
    KDRBuffer const million(1 << 20, 'x');
    KDRBuffer buffer(8192, 'a');
    EXPECT_THROW(buffer.replace('a', million), std::bad_alloc);
    EXPECT_THROW(buffer.replace('a', million.constData()), std::bad_alloc);
    EXPECT_THROW(buffer.replace("a", million), std::bad_alloc);
    EXPECT_THROW(buffer.replace(KDRBuffer("a"), million), std::bad_alloc);
    EXPECT_THROW(buffer.replace(KDRBuffer("a"), million.constData()), std::bad_alloc);
    EXPECT_THROW(buffer.replace("a", 1, million.constData(), million.size()), std::bad_alloc);
    EXPECT_THROW(buffer.replace("", million), std::bad_alloc);
    EXPECT_EQ(bytesOf(buffer), QByteArray(8192, 'a'));
    // One occurrence among many bytes is no reason to refuse.
    buffer.append('b');
    EXPECT_EQ(buffer.replace('b', million).size(), 8192 + (1 << 20));
}

TEST(BufferReplace, OfNothingByAByteThrowsBeforeItReadsAByteWhereItIsTooMuch)
{
    static char const byte = 'x';
    KDRBuffer buffer = KDRBuffer::fromRawData(&byte, 1 << 30);
    EXPECT_THROW(buffer.replace("", "x"), std::bad_alloc);
    EXPECT_EQ(buffer.size(), 1 << 30);
}

TEST(BufferSearch, NeverLooksBeforeTheFirstByte)
{
    char const bytes[] = "xxabc";
    KDRBuffer const buffer = KDRBuffer::fromRawData(bytes + 2, 3);
    for (int from = -9; from < 0; ++from) {
        EXPECT_EQ(buffer.indexOf("xxa", from), -1) << from;
        EXPECT_EQ(buffer.indexOf(KDRBuffer("xxa"), from), -1) << from;
        EXPECT_EQ(buffer.indexOf("xa", from), -1) << from;
    }
    EXPECT_EQ(buffer.indexOf("abc", -4), 0);
    EXPECT_EQ(buffer.indexOf("ab", -3), 0);
}

TEST(BufferSearch, BackwardsFromANegativePositionDependsOnTheNeedlesLength)
{
    KDRBuffer const buffer("abcab");
    for (int const from : {-1, -3, -6})
        EXPECT_EQ(buffer.lastIndexOf("ab", from), 3) << from;
    EXPECT_EQ(buffer.lastIndexOf("ab", 6), -1);
    EXPECT_EQ(buffer.lastIndexOf("ab", 2), 0);
    EXPECT_EQ(buffer.lastIndexOf('b', -1), 4);
    EXPECT_EQ(buffer.lastIndexOf('b', -2), 1);
    EXPECT_EQ(buffer.lastIndexOf('b', 6), 4);
    EXPECT_EQ(buffer.lastIndexOf("b", -2), 1);
}

TEST(BufferSearch, OfAnEmptyNeedleAnswersWhereItStarts)
{
    KDRBuffer const buffer("abcab");
    EXPECT_EQ(buffer.indexOf(KDRBuffer(""), 7), 7);
    EXPECT_EQ(buffer.indexOf(KDRBuffer(""), 2), 2);
    EXPECT_EQ(buffer.indexOf("", 7), -1);
    EXPECT_EQ(buffer.indexOf("", 5), 5);
}

TEST(BufferParts, BeforeTheFirstByteGiveNothing)
{
    KDRBuffer const buffer("abcab");
    EXPECT_EQ(bytesOf(buffer.mid(-2, 3)), "a");
    EXPECT_TRUE(buffer.mid(-7, 3).isNull());
    EXPECT_TRUE(buffer.mid(6).isNull());
    EXPECT_EQ(bytesOf(buffer.mid(-2, -5)), "abcab");
    EXPECT_TRUE(buffer.repeated(0).isNull());
    EXPECT_TRUE(buffer.repeated(-1).isNull());
    EXPECT_FALSE(KDRBuffer("").repeated(0).isNull()) << "an empty one is itself any times over";
    EXPECT_FALSE(KDRBuffer("").repeated(-1).isNull());
    EXPECT_TRUE(KDRBuffer().repeated(3).isNull());
    EXPECT_FALSE(buffer.mid(5).isNull()) << "at the end it is empty";
    EXPECT_FALSE(buffer.mid(1, 0).isNull());
    EXPECT_TRUE(buffer.mid(-3, 3).isNull());
    KDRBuffer null;
    EXPECT_EQ(null.data()[0], '\0');
    EXPECT_FALSE(null.isNull()) << "to be written to, a null buffer becomes an empty one";
}

TEST(BufferCase, IsThatOfLatin1)
{
    EXPECT_EQ(bytesOf(KDRBuffer("aZ\xE9\xFF").toUpper()), QByteArray("aZ\xE9\xFF").toUpper());
    EXPECT_EQ(bytesOf(KDRBuffer("aZ\xC9\xFF").toLower()), QByteArray("aZ\xC9\xFF").toLower());
}

TEST(BufferAppend, PushesAreAppendAndPrepend)
{
    KDRBuffer buffer;
    buffer.push_back("cd");
    buffer.push_back('e');
    buffer.push_back(KDRBuffer("f"));
    buffer.push_front("b");
    buffer.push_front('a');
    buffer.push_front(KDRBuffer("_"));
    EXPECT_EQ(bytesOf(buffer), "_abcdef");
    buffer.resize(9);
    EXPECT_EQ(buffer.size(), 9);
    EXPECT_EQ(bytesOf(buffer.left(7)), "_abcdef");
    buffer.clear();
    EXPECT_TRUE(buffer.isNull());
    EXPECT_TRUE(KDRBuffer().append("x", 0).isNull());
    EXPECT_FALSE(KDRBuffer().prepend("x", 0).isNull());
}

TEST(BufferSizes, BeyondAnIntThrowAndChangeNothing)
{
    KDRBuffer buffer("abc");
    EXPECT_THROW(buffer.repeated(INT_MAX), std::bad_alloc);
    EXPECT_THROW(KDRBuffer("abcd").repeated(1 << 30), std::bad_alloc);
    EXPECT_THROW(buffer.insert(INT_MAX, "x"), std::bad_alloc);
    EXPECT_THROW(buffer.insert(INT_MAX, KDRBuffer("x")), std::bad_alloc);
    EXPECT_THROW(buffer.insert(INT_MAX, 1, 'x'), std::bad_alloc);
    EXPECT_THROW(buffer.insert(3, INT_MAX, 'x'), std::bad_alloc);
    EXPECT_THROW(buffer.append(INT_MAX, 'x'), std::bad_alloc);
    EXPECT_THROW(buffer.replace(INT_MAX, 1, "x"), std::bad_alloc);
    EXPECT_THROW(buffer.setRawData("x", 0x80000000U), std::bad_alloc);
    EXPECT_EQ(bytesOf(buffer), "abc");
    EXPECT_TRUE(KDRBuffer().repeated(INT_MAX).isEmpty());
    EXPECT_EQ(bytesOf(buffer.leftJustified(INT_MIN)), "abc");
    EXPECT_EQ(bytesOf(buffer.rightJustified(INT_MIN)), "abc");
    EXPECT_EQ(bytesOf(buffer.insert(-1, "x")), "abc");
    EXPECT_EQ(bytesOf(buffer.insert(-1, INT_MAX, 'x')), "abc");
    EXPECT_EQ(bytesOf(buffer.insert(INT_MAX, -1, 'x')), "abc");
    EXPECT_EQ(bytesOf(buffer.insert(5, 'x')), "abc  x");
}

TEST(BufferRawData, RefersToTheCallersBytesUntilItIsChanged)
{
    std::string bytes = "some bytes";
    KDRBuffer raw = KDRBuffer::fromRawData(bytes.data(), 4);
    KDRBuffer const copy(raw);
    EXPECT_EQ(raw.constData(), bytes.data());
    EXPECT_EQ(copy.constData(), bytes.data());
    EXPECT_EQ(raw.size(), 4);
    raw.append('!');
    EXPECT_NE(raw.constData(), bytes.data());
    EXPECT_EQ(bytesOf(raw), "some!");
    EXPECT_EQ(bytes, "some bytes");
    EXPECT_EQ(KDRBuffer::fromRawData("ab", -1).size(), 2);
    EXPECT_TRUE(KDRBuffer::fromRawData(nullptr, 3).isNull());
}

TEST(BufferRawData, SetRawDataAnswersTheBufferItself)
{
    std::string const bytes = "some bytes";
    KDRBuffer buffer("old");
    KDRBuffer const sharer(buffer);
    KDRBuffer& result = buffer.setRawData(bytes.data(), 4);
    EXPECT_EQ(&result, &buffer);
    EXPECT_EQ(buffer.constData(), bytes.data());
    EXPECT_EQ(bytesOf(sharer), "old");
}

TEST(BufferRawData, SetRawDataWithoutBytesMakesTheBufferEmpty)
{
    for (KDRBuffer buffer : {KDRBuffer(), KDRBuffer(""), KDRBuffer("owned")}) {
        buffer.setRawData("x", 0);
        EXPECT_TRUE(buffer.isEmpty());
        EXPECT_FALSE(buffer.isNull());
    }
    KDRBuffer raw = KDRBuffer::fromRawData("raw", 3);
    raw.setRawData("x", 0);
    EXPECT_TRUE(raw.isEmpty());
    EXPECT_FALSE(raw.isNull());
}

TEST(BufferRawData, SetRawDataWithoutAPointerMakesTheBufferNullUnlessItReferredToBytes)
{
    for (unsigned int const size : {0U, 4U, 0x80000000U, UINT_MAX}) {
        SCOPED_TRACE(size);
        for (KDRBuffer buffer : {KDRBuffer(), KDRBuffer(""), KDRBuffer("owned")})
            EXPECT_TRUE(buffer.setRawData(nullptr, size).isNull());
        KDRBuffer raw = KDRBuffer::fromRawData("raw", 3);
        QByteArray model = QByteArray::fromRawData("raw", 3);
        raw.setRawData(nullptr, size);
        model.setRawData(nullptr, size);
        EXPECT_EQ(raw.isNull(), model.isNull());
        EXPECT_FALSE(raw.isNull());
        EXPECT_TRUE(raw.isEmpty());
        EXPECT_EQ(raw.constData()[0], '\0');
        EXPECT_EQ(bytesOf(raw.append("after")), "after");
        KDRBuffer shared = KDRBuffer::fromRawData("raw", 3);
        KDRBuffer const sharer(shared);
        EXPECT_TRUE(shared.setRawData(nullptr, size).isNull());
        EXPECT_EQ(bytesOf(sharer), "raw");
    }
}

TEST(BufferRawData, WhatCutsBytesOffGoesOnReferringToThem)
{
    char const bytes[] = {'a', 'b', 'c', 'd', 'e'};
    KDRBuffer raw = KDRBuffer::fromRawData(bytes, 5);
    raw.truncate(4);
    EXPECT_EQ(raw.constData(), bytes);
    raw.chop(1);
    EXPECT_EQ(raw.constData(), bytes);
    raw.resize(2);
    EXPECT_EQ(raw.constData(), bytes);
    raw.squeeze();
    EXPECT_EQ(raw.constData(), bytes);
    EXPECT_EQ(raw.capacity(), 0);
    EXPECT_EQ(bytesOf(raw), "ab");
    // While a copy refers to them too, the bytes are copied.
    KDRBuffer const sharer(raw);
    raw.truncate(1);
    EXPECT_NE(raw.constData(), bytes);
    EXPECT_EQ(bytesOf(raw), "a");
    EXPECT_EQ(bytesOf(sharer), "ab");
}

TEST(BufferRawData, WhatWritesCopiesTheBytesFirst)
{
    char const bytes[] = {'a', 'b', 'c', 'd', 'e'};
    void (*const writes[])(KDRBuffer&) = {
        [](KDRBuffer& b) { b.fill('x', 2); },      [](KDRBuffer& b) { b.fill('x'); },
        [](KDRBuffer& b) { b.data()[0] = 'x'; },   [](KDRBuffer& b) { b.replace(0, 1, "x"); },
        [](KDRBuffer& b) { b.replace('a', 'x'); }, [](KDRBuffer& b) { b.replace("a", "x"); },
        [](KDRBuffer& b) { b.remove(0, 1); },      [](KDRBuffer& b) { b.insert(0, 'x'); },
        [](KDRBuffer& b) { b.append('x'); },       [](KDRBuffer& b) { b.prepend("x"); },
        [](KDRBuffer& b) { b.resize(5); },         [](KDRBuffer& b) { b.reserve(0); },
    };
    for (auto const write : writes) {
        KDRBuffer raw = KDRBuffer::fromRawData(bytes, 5);
        write(raw);
        EXPECT_NE(raw.constData(), bytes);
        EXPECT_EQ(QByteArray(bytes, 5), "abcde");
    }
}

TEST(BufferRawData, ADetachedBufferOutlivesTheBytes)
{
    auto bytes = std::make_unique<std::string>("some bytes that are long enough for the heap");
    KDRBuffer buffer = KDRBuffer::fromRawData(bytes->data(), static_cast<int>(bytes->size()));
    buffer.data();
    bytes.reset();
    EXPECT_TRUE(buffer.startsWith("some bytes"));
}

TEST(BufferNumbers, ToShortTellsWhetherItIsOne)
{
    bool ok = false;
    EXPECT_EQ(KDRBuffer("-12").toShort(&ok), -12);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRBuffer("7f").toShort(&ok, 16), 127);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRBuffer("40000").toShort(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(KDRBuffer("x").toShort(), 0);
    // In base 10 a leading zero is a digit as any other; only base 0 reads prefixes.
    EXPECT_EQ(KDRBuffer("010").toShort(&ok), 10);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRBuffer("010").toShort(&ok, 0), 8);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRBuffer("09").toShort(&ok, 10), 9);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRBuffer("0x10").toShort(&ok), 0);
    EXPECT_FALSE(ok);
}

TEST(BufferCodes, DecodeHexadecimalAndPercent)
{
    EXPECT_EQ(bytesOf(KDRBuffer::fromHex("6162 zz 63")), QByteArray::fromHex("6162 zz 63"));
    EXPECT_EQ(bytesOf(KDRBuffer::fromPercentEncoding("a%20b")), "a b");
    EXPECT_EQ(bytesOf(KDRBuffer::fromPercentEncoding("a_20b", '_')), "a b");
    EXPECT_EQ(bytesOf(KDRBuffer("a b/c").toPercentEncoding()), "a%20b%2Fc");
    EXPECT_EQ(bytesOf(KDRBuffer("a b/c").toPercentEncoding("/", "c", '_')), "a_20b/_63");
}

TEST(BufferSwap, ExchangesTheBytesOfTwoHandles)
{
    KDRBuffer first("a");
    KDRBuffer second;
    char const* const bytes = first.constData();
    QByteArray const* const holder = KDRInternal::pointer(first);
    first.swap(second);
    EXPECT_EQ(KDRInternal::pointer(first), holder) << "the handles keep their holders";
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(second.constData(), bytes);
    second.swap(second);
    EXPECT_EQ(bytesOf(second), "a");
}

} // namespace
