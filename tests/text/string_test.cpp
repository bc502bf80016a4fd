#include <kdrdata/text/kdrstring.h>

#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

static_assert(sizeof(KDRString) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRString>);
// length() takes no constant string, size() does.
static_assert(std::is_same_v<decltype(&KDRString::length), int (KDRString::*)()>);
static_assert(std::is_same_v<decltype(&KDRString::size), int (KDRString::*)() const>);
static_assert(std::is_same_v<std::underlying_type_t<KDRString::KDREncoding>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KDRString::KDRConversionFormat>, int>);

template <class Text, class = void>
struct HasOrder : std::false_type
{
};
template <class Text>
struct HasOrder<Text, std::void_t<decltype(std::declval<Text>() < std::declval<Text>())>>
    : std::true_type
{
};
static_assert(HasOrder<QString>::value && !HasOrder<KDRString>::value);

char const* const nullBytes = nullptr;
unsigned short const* const nullUnits = nullptr;

TEST(String, DefaultIsNullAndEmpty)
{
    KDRString text;
    EXPECT_TRUE(text.isNull());
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(text.length(), 0);
    EXPECT_EQ(text.size(), 0);
    ASSERT_NE(text.toUtf16(), nullptr);
    EXPECT_EQ(text.toUtf16()[0], 0);
}

TEST(String, NullAndEmptyAreDistinctYetEqual)
{
    KDRString const null;
    KDRString const empty("");
    EXPECT_FALSE(empty.isNull());
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_TRUE(null == empty);
    EXPECT_FALSE(null != empty);
    EXPECT_FALSE(null != "");
    EXPECT_FALSE(null != nullBytes);
    EXPECT_FALSE(empty != nullBytes);
    EXPECT_FALSE(empty != KDRBuffer());
}

TEST(String, NullPointersMakeNullStrings)
{
    EXPECT_TRUE(KDRString(nullBytes).isNull());
    EXPECT_TRUE(KDRString(nullUnits).isNull());
    EXPECT_TRUE(KDRString(nullUnits, 3).isNull());
    KDRString text("text");
    text = nullBytes;
    EXPECT_TRUE(text.isNull());
    text = "text";
    text = nullUnits;
    EXPECT_TRUE(text.isNull());
}

TEST(String, HoldsOneCharacterAlsoAZero)
{
    KDRString letter(KDRChar(0x20AC));
    EXPECT_EQ(letter.length(), 1);
    EXPECT_EQ(letter.toUtf16()[0], 0x20AC);
    KDRString zero{KDRChar()};
    EXPECT_EQ(zero.length(), 1);
    EXPECT_EQ(zero.at(0).unicode(), 0);
}

TEST(String, ReadsCStringsAsUtf8UpToTheZero)
{
    KDRString text("a\xC3\xA4\0b");
    EXPECT_EQ(text.length(), 2);
    EXPECT_EQ(text.at(0).unicode(), 'a');
    EXPECT_EQ(text.at(1).unicode(), 0xE4);
}

TEST(String, ReadsUtf16CountedOrUpToTheZero)
{
    unsigned short const units[] = {0x41, 0x42, 0, 0x43};
    EXPECT_EQ(KDRString(units).size(), 2);
    EXPECT_EQ(KDRString(units, -1).size(), 2);
    EXPECT_EQ(KDRString(units, 4).size(), 4);
    EXPECT_EQ(KDRString(units, 4).at(3).unicode(), 0x43);
    KDRString const none(units, 0);
    EXPECT_TRUE(none.isEmpty());
    EXPECT_FALSE(none.isNull());
    KDRString text;
    EXPECT_EQ(&(text = units), &text);
    EXPECT_TRUE(text == KDRString("AB"));
}

TEST(String, ReadsBuffersUpToTheFirstZeroByte)
{
    KDRBuffer const bytes("ab\0cd", 5);
    KDRString const constructed(bytes);
    EXPECT_EQ(constructed.size(), 2);
    EXPECT_TRUE(constructed == KDRString("ab"));
    KDRString assigned("before");
    EXPECT_EQ(&(assigned = bytes), &assigned);
    EXPECT_EQ(assigned.size(), 2);
    EXPECT_FALSE(KDRString("ab") != bytes);
    EXPECT_TRUE(KDRString("abcd") != bytes);
    unsigned short const units[] = {'a', 'b', 0, 'c', 'd'};
    EXPECT_TRUE(KDRString(units, 5) != bytes);
}

TEST(String, ANullBufferConstructsAnEmptyStringButAssignsANullOne)
{
    KDRString const constructed{KDRBuffer()};
    EXPECT_FALSE(constructed.isNull());
    EXPECT_TRUE(constructed.isEmpty());
    KDRString assigned("before");
    assigned = KDRBuffer();
    EXPECT_TRUE(assigned.isNull());
    assigned = KDRBuffer("");
    EXPECT_FALSE(assigned.isNull());
    EXPECT_TRUE(assigned.isEmpty());
}

TEST(String, ComparesCodeUnitsWithCase)
{
    KDRString const text("\xC3\xA4x");
    EXPECT_TRUE(text == KDRString("\xC3\xA4x"));
    EXPECT_FALSE(text != KDRString("\xC3\xA4x"));
    EXPECT_FALSE(text == KDRString("\xC3\x84x"));
    EXPECT_TRUE(text != KDRString("\xC3\xA4X"));
    EXPECT_FALSE(KDRString("\xC3\xA4") == KDRString("a\xCC\x88")) << "composed and decomposed";

    unsigned short const units[] = {'a', 0, 'b'};
    unsigned short const others[] = {'a', 0, 'c'};
    EXPECT_FALSE(KDRString(units, 3) == KDRString(others, 3)) << "they differ behind the zero";
    EXPECT_FALSE(KDRString(units, 3) == KDRString(units, 2));
}

TEST(String, DiffersFromCStringsAndBuffersReadAsUtf8)
{
    KDRString const text("\xC3\xA4");
    EXPECT_FALSE(text != "\xC3\xA4");
    EXPECT_TRUE(text != "\xE4");
    EXPECT_TRUE(text != "");
    EXPECT_TRUE(text != nullBytes);
    EXPECT_FALSE(text != KDRBuffer("\xC3\xA4"));
    EXPECT_TRUE(text != KDRBuffer("\xE4"));
    EXPECT_TRUE(text != KDRBuffer());
}

TEST(String, CountsUtf16CodeUnits)
{
    KDRString text("\xF0\x9F\x98\x80z"); // U+1F600
    EXPECT_EQ(text.length(), 3);
    EXPECT_EQ(text.size(), 3);
    EXPECT_EQ(text.at(0).unicode(), 0xD83D);
    EXPECT_EQ(text.at(1).unicode(), 0xDE00);
    EXPECT_EQ(text.at(2).unicode(), 'z');
}

TEST(String, AtGivesACharacterOfItsOwn)
{
    KDRString text("ab");
    KDRChar letter = text.at(0);
    letter.unicode() = 'X';
    EXPECT_TRUE(text == KDRString("ab"));
}

#ifndef QT_NO_DEBUG
TEST(StringDeathTest, AtBeyondTheTextIsCaughtByAssertions)
{
    KDRString const text("ab");
    EXPECT_DEATH(text.at(2), "ASSERT");
    EXPECT_DEATH(text.at(-1), "ASSERT");
}
#endif

TEST(String, TruncateCutsOffAndNeverGrows)
{
    KDRString text("abcd");
    text.truncate(9);
    EXPECT_TRUE(text == KDRString("abcd"));
    text.truncate(2);
    EXPECT_TRUE(text == KDRString("ab"));
    text.truncate(-1);
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(text.isNull());
}

TEST(String, ArgFormatsIntegersInABaseAndAField)
{
    KDRString const text("<%1>");
    EXPECT_EQ(text.arg(-5), KDRString("<-5>"));
    EXPECT_EQ(text.arg(255, 0, 16), KDRString("<ff>"));
    EXPECT_EQ(text.arg(7, 3), KDRString("<  7>"));
    EXPECT_EQ(text.arg(7, -3), KDRString("<7  >"));
    EXPECT_EQ(text.arg(7, 3, 10, KDRChar('.')), KDRString("<..7>"));
    EXPECT_EQ(text, KDRString("<%1>"));
    EXPECT_EQ(KDRString("%2 %1 %2").arg(1).arg(2), KDRString("2 1 2"));
}

TEST(String, ArgFormatsFloatingPointAndAnyFormatButZeroIsFixed)
{
    KDRString const text("%1");
    EXPECT_EQ(text.arg(2.5), KDRString("2.5"));
    EXPECT_EQ(text.arg(999999.0), KDRString("999999"));
    EXPECT_EQ(text.arg(1.0 / 3.0), KDRString("0.333333"));
    EXPECT_EQ(text.arg(1e20), KDRString("1e+20"));
    EXPECT_EQ(text.arg(2.5, 0, KDRString::KDRFormatFixed, 2), KDRString("2.50"));
    EXPECT_EQ(text.arg(2.5, 0, KDRString::KDRFormatFixed), KDRString("2.500000"));
    for (int value : {2, -1, 101})
        EXPECT_EQ(text.arg(2.5, 0, static_cast<KDRString::KDRConversionFormat>(value), 2),
                  KDRString("2.50"));
    EXPECT_EQ(text.arg(2.5, 5, KDRString::KDRFormatGeneral, -1, KDRChar('*')), KDRString("**2.5"));
    EXPECT_EQ(text.arg(2.5F), KDRString("2.5"));
}

TEST(String, ArgWithoutAMarkerGivesTheTextAsItIs)
{
    EXPECT_EQ(KDRString("none").arg(1), KDRString("none"));
    EXPECT_EQ(KDRString("none").arg(1.5), KDRString("none"));
}

TEST(StringComparison, UnequalTellsCasesApartInEveryForm)
{
    KDRString const text("part");
    EXPECT_TRUE(text != KDRString("Part"));
    EXPECT_TRUE(text != "Part");
    EXPECT_TRUE(text != KDRBuffer("Part"));
    EXPECT_FALSE(text == KDRString("Part"));
    EXPECT_FALSE(text != KDRString("part"));
    EXPECT_FALSE(text != "part");
    EXPECT_FALSE(text != KDRBuffer("part"));
}

} // namespace
