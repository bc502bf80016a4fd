#include <kdrdata/text/kdrstring.h>

#include "../support/localcodec.h"
#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

namespace {

TEST(StringEncoding, DecodersReplaceTheTextAndReturnTheString)
{
    unsigned short const units[] = {0x43, 0};
    KDRString text("before");
    EXPECT_EQ(&text.fromLatin1("\xE4"), &text);
    EXPECT_EQ(text, KDRString("\xC3\xA4"));
    EXPECT_EQ(&text.fromUtf8("A"), &text);
    EXPECT_EQ(text, KDRString("A"));
    EXPECT_EQ(&text.fromLocal8Bit("B"), &text);
    EXPECT_EQ(text, KDRString("B"));
    EXPECT_EQ(&text.fromUtf16(units), &text);
    EXPECT_EQ(text, KDRString("C"));
}

TEST(StringEncoding, DecodersTakeCountedBytesWithZerosOrThoseUpToTheZero)
{
    unsigned short const units[] = {'a', 0, 'b', 0};
    KDRString text;
    EXPECT_EQ(text.fromLatin1("a\0b", 3).size(), 3);
    EXPECT_EQ(text.fromLatin1("a\0b", -1).size(), 1);
    EXPECT_EQ(text.fromLocal8Bit("a\0b", 3).size(), 3);
    EXPECT_EQ(text.fromLocal8Bit("a\0b", -1).size(), 1);
    EXPECT_EQ(text.fromUtf8("a\0b", 3).size(), 3);
    EXPECT_EQ(text.fromUtf8("a\0b", -1).size(), 1);
    EXPECT_EQ(text.fromUtf16(units, 3).size(), 3);
    EXPECT_EQ(text.fromUtf16(units, -1).size(), 1);
}

TEST(StringEncoding, DecodersMakeTheStringNullForANullPointer)
{
    char const* const bytes = nullptr;
    unsigned short const* const units = nullptr;
    for (int size : {-1, 0, 3}) {
        SCOPED_TRACE(size);
        EXPECT_TRUE(KDRString("before").fromLatin1(bytes, size).isNull());
        EXPECT_TRUE(KDRString("before").fromUtf8(bytes, size).isNull());
        EXPECT_TRUE(KDRString("before").fromLocal8Bit(bytes, size).isNull());
        EXPECT_TRUE(KDRString("before").fromUtf16(units, size).isNull());
    }
}

TEST(StringEncoding, DecodersMakeTheStringEmptyNotNullForNoBytes)
{
    unsigned short const units[] = {0};
    EXPECT_FALSE(KDRString("before").fromLatin1("", -1).isNull());
    EXPECT_FALSE(KDRString("before").fromUtf8("x", 0).isNull());
    EXPECT_FALSE(KDRString("before").fromUtf16(units, -1).isNull());
    EXPECT_TRUE(KDRString("before").fromUtf8("x", 0).isEmpty());
}

TEST(StringEncoding, AByteOrderMarkSetsTheByteOrderOfUtf16)
{
    unsigned short const marked[] = {0xFEFF, 0x41, 0};
    unsigned short const swapped[] = {0xFFFE, 0x4100, 0};
    EXPECT_EQ(KDRString(marked), KDRString("A"));
    EXPECT_EQ(KDRString(swapped), KDRString("A"));
    KDRString text;
    EXPECT_EQ(text.fromUtf16(swapped), KDRString("A"));
}

TEST(StringEncoding, AByteOrderMarkIsNoPartOfTextReadAsUtf8)
{
    KDRString const text("a");
    EXPECT_EQ(KDRString("\xEF\xBB\xBF"
                        "a"),
              text);
    EXPECT_EQ(KDRString(KDRBuffer("\xEF\xBB\xBF"
                                  "a")),
              text);
    EXPECT_FALSE(text != "\xEF\xBB\xBF"
                         "a");
    EXPECT_FALSE(text != KDRBuffer("\xEF\xBB\xBF"
                                   "a"));
    EXPECT_EQ(KDRString("a\xEF\xBB\xBF").size(), 2) << "not a mark where it does not lead";
}

TEST(StringEncoding, EncodersGiveTheBytes)
{
    KDRString const text("a\xC3\xA4");
    EXPECT_EQ(bytesOf(text.toLatin1()), QByteArray("a\xE4"));
    EXPECT_EQ(bytesOf(text.toUtf8()), QByteArray("a\xC3\xA4"));
    LocalCodecGuard const guard;
    KDRString::setLocalTextCodec(KDRString::EncodingUTF8);
    EXPECT_EQ(bytesOf(text.toLocal8Bit()), QByteArray("a\xC3\xA4"));
}

TEST(StringEncoding, EncodersReplaceWhatTheyCannotEncode)
{
    unsigned short const units[] = {'a', 0xD83D, 'b', 0};
    EXPECT_EQ(bytesOf(KDRString("\xE2\x82\xAC").toLatin1()), QByteArray("?"));
    EXPECT_EQ(bytesOf(KDRString(units).toUtf8()), QByteArray("a?b"));
}

TEST(StringEncoding, EncodersKeepZeros)
{
    unsigned short const units[] = {'a', 0, 'b'};
    KDRString const text(units, 3);
    EXPECT_EQ(bytesOf(text.toLatin1()), QByteArray("a\0b", 3));
    EXPECT_EQ(bytesOf(text.toUtf8()), QByteArray("a\0b", 3));
}

TEST(StringEncoding, Utf16IsTheStringsOwnStorage)
{
    KDRString const text("AB");
    unsigned short const* const units = text.toUtf16();
    EXPECT_EQ(units[0], 0x41);
    EXPECT_EQ(units[1], 0x42);
    EXPECT_EQ(units[2], 0);
    EXPECT_EQ(text.toUtf16(), units);
}

TEST(StringEncoding, InvalidUtf8BecomesReplacementCharacters)
{
    KDRString const text("a\xFF");
    ASSERT_EQ(text.size(), 2);
    EXPECT_EQ(text.at(1).unicode(), 0xFFFD);
}

} // namespace
