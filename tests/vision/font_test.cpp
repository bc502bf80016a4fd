#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrfont.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <type_traits>
#include <utility>

#include <veldata/velfont.h>
#include <veldata/velvar.h>

namespace {

static_assert(sizeof(KDRFont) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRFont>);
// No reader is for constant fonts.
static_assert(std::is_same_v<decltype(&KDRFont::faceName), KDRString (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setFaceName), void (KDRFont::*)(KDRString const&)>);
static_assert(std::is_same_v<decltype(&KDRFont::size), long (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setSize), void (KDRFont::*)(long)>);
static_assert(std::is_same_v<decltype(&KDRFont::weight), long (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setWeight), void (KDRFont::*)(long)>);
static_assert(std::is_same_v<decltype(&KDRFont::bold), bool (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setBold), void (KDRFont::*)(bool)>);
static_assert(std::is_same_v<decltype(&KDRFont::italic), unsigned char (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setItalic), void (KDRFont::*)(unsigned char)>);
static_assert(std::is_same_v<decltype(&KDRFont::underline), unsigned char (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setUnderline), void (KDRFont::*)(unsigned char)>);
static_assert(std::is_same_v<decltype(&KDRFont::strikeOut), unsigned char (KDRFont::*)()>);
static_assert(std::is_same_v<decltype(&KDRFont::setStrikeOut), void (KDRFont::*)(unsigned char)>);

KDRString stringOf(std::u16string const& text)
{
    return KDRString(reinterpret_cast<unsigned short const*>(text.data()),
                     static_cast<int>(text.size()));
}

std::u16string nameOf(KDRFont& font)
{
    KDRString const name = font.faceName();
    return std::u16string(reinterpret_cast<char16_t const*>(name.toUtf16()),
                          static_cast<std::size_t>(name.size()));
}

/// The name that comes back where @p text is set.
std::u16string throughAFont(std::u16string const& text)
{
    KDRFont font;
    font.setFaceName(stringOf(text));
    return nameOf(font);
}

/// @p count characters beyond the Basic Multilingual Plane, two code units each.
std::u16string pairs(int count)
{
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += u"\U0001F600";
    return text;
}

void fill(KDRFont& font)
{
    font.setFaceName(KDRString("Liberation"));
    font.setSize(-7);
    font.setWeight(901);
    font.setBold(true);
    font.setItalic(2);
    font.setUnderline(3);
    font.setStrikeOut(4);
}

void expectFilled(KDRFont& font)
{
    EXPECT_EQ(nameOf(font), u"Liberation");
    EXPECT_EQ(font.size(), -7);
    EXPECT_EQ(font.weight(), 901);
    EXPECT_TRUE(font.bold());
    EXPECT_EQ(font.italic(), 2);
    EXPECT_EQ(font.underline(), 3);
    EXPECT_EQ(font.strikeOut(), 4);
}

TEST(Font, ANewFontIsTheCoreLibrarysDefaultButOfSize24)
{
    VelFont const core;
    KDRFont font;
    EXPECT_EQ(font.size(), 24);
    EXPECT_NE(core.size, 24);
    EXPECT_TRUE(font.faceName().isEmpty());
    EXPECT_FALSE(font.faceName().isNull());
    EXPECT_EQ(font.weight(), core.weight);
    EXPECT_FALSE(font.bold());
    EXPECT_EQ(font.italic(), 0);
    EXPECT_EQ(font.underline(), 0);
    EXPECT_EQ(font.strikeOut(), 0);
}

TEST(Font, EachAccessorReadsAndWritesItsOwnField)
{
    KDRFont font;
    fill(font);
    expectFilled(font);
    VelFont const& core = KDRInternal::wrapped(font);
    EXPECT_EQ(core.faceName.ValType(), 3);
    EXPECT_STREQ(core.faceName.WS(), L"Liberation");
    EXPECT_EQ(core.size, -7);
    EXPECT_EQ(core.weight, 901);
    EXPECT_EQ(core.bold, 1);
    EXPECT_EQ(core.italic, 2);
    EXPECT_EQ(core.underline, 3);
    EXPECT_EQ(core.strikeOut, 4);
}

TEST(Font, NumbersKeepAll64Bits)
{
    KDRFont font;
    for (long const number : {LONG_MIN, -1L, 0L, 1L << 40, LONG_MAX}) {
        font.setSize(number);
        font.setWeight(-1 - number);
        EXPECT_EQ(font.size(), number);
        EXPECT_EQ(font.weight(), -1 - number);
    }
}

TEST(Font, FlagsAreBytesOfWhichBoldIsReadAsABool)
{
    KDRFont font;
    for (int value = 0; value < 256; ++value) {
        auto const byte = static_cast<unsigned char>(value);
        font.setItalic(byte);
        font.setUnderline(byte);
        font.setStrikeOut(byte);
        KDRInternal::wrapped(font).bold = byte;
        EXPECT_EQ(font.italic(), value);
        EXPECT_EQ(font.underline(), value);
        EXPECT_EQ(font.strikeOut(), value);
        EXPECT_EQ(font.bold(), value != 0);
    }
    font.setBold(false);
    EXPECT_FALSE(font.bold());
}

TEST(Font, CopiesAreDeepAndTakeEveryField)
{
    KDRFont original;
    fill(original);
    KDRFont copy(original);
    KDRFont assigned;
    EXPECT_EQ(&(assigned = original), &assigned);
    original.setFaceName(KDRString("other"));
    original.setSize(1);
    original.setWeight(1);
    original.setBold(false);
    original.setItalic(0);
    original.setUnderline(0);
    original.setStrikeOut(0);
    expectFilled(copy);
    expectFilled(assigned);
    KDRFont const& alias = assigned;
    assigned = alias;
    expectFilled(assigned);
}

TEST(Font, CopiesKeepTheByteOfTheBoldFlagAndTheTypeOfTheName)
{
    KDRFont original;
    KDRInternal::wrapped(original).bold = 9;
    KDRInternal::wrapped(original).faceName = VelVar("narrow");
    KDRFont copy(original);
    KDRFont assigned;
    assigned = original;
    for (KDRFont* const font : {&copy, &assigned}) {
        EXPECT_EQ(KDRInternal::wrapped(*font).bold, 9);
        EXPECT_EQ(KDRInternal::wrapped(*font).faceName.ValType(), 2);
        EXPECT_EQ(nameOf(*font), u"narrow");
    }
}

TEST(FontName, ComesBackAsItWasSet)
{
    for (std::u16string const& name :
         {std::u16string(u"Liberation 1"), std::u16string(u"x"), std::u16string(u"Größe µ"),
          std::u16string(u"\u6587\u6CC9\u9A7F\u6B63\u9ED1"),
          std::u16string(u"a\U0001F600b\U0010FFFF"), std::u16string(u"\uFFFF\uFFFD"),
          std::u16string(u"a\uFEFFb")}) {
        EXPECT_EQ(throughAFont(name), name);
    }
}

TEST(FontName, AnEmptyNameIsEmptyAndNotNull)
{
    for (KDRString const& name : {KDRString(), KDRString("")}) {
        KDRFont font;
        font.setFaceName(KDRString("old"));
        font.setFaceName(name);
        EXPECT_TRUE(font.faceName().isEmpty());
        EXPECT_FALSE(font.faceName().isNull());
    }
}

TEST(FontName, IsCutAfter199Characters)
{
    for (int const length : {198, 199, 200, 201, 397, 398, 399, 100000}) {
        SCOPED_TRACE(length);
        std::u16string name;
        for (int i = 0; i < length; ++i)
            name += static_cast<char16_t>(u'a' + i % 26);
        EXPECT_EQ(throughAFont(name), name.substr(0, 199));
    }
}

TEST(FontName, APairOfSurrogatesIsOneCharacterAndIsNeverCutApart)
{
    EXPECT_EQ(throughAFont(pairs(199)), pairs(199));
    EXPECT_EQ(throughAFont(pairs(200)), pairs(199));
    EXPECT_EQ(throughAFont(pairs(5000)), pairs(199));
    for (int before = 0; before <= 200; ++before) {
        SCOPED_TRACE(before);
        std::u16string const plain(static_cast<std::size_t>(before), u'x');
        EXPECT_EQ(throughAFont(plain + pairs(300)),
                  before < 199 ? plain + pairs(199 - before) : plain.substr(0, 199));
    }
}

TEST(FontName, EndsAtAZero)
{
    using namespace std::string_literals;
    EXPECT_EQ(throughAFont(u"one\0two"s), u"one");
    EXPECT_EQ(throughAFont(u"\0two"s), u"");
}

TEST(FontName, AnUnpairedSurrogateBecomesTheReplacementCharacter)
{
    std::u16string const high(1, char16_t(0xD83D));
    std::u16string const low(1, char16_t(0xDE00));
    EXPECT_EQ(throughAFont(high), u"\uFFFD");
    EXPECT_EQ(throughAFont(low), u"\uFFFD");
    EXPECT_EQ(throughAFont(u"a" + low + high + u"b"), u"a\uFFFD\uFFFDb");
    EXPECT_EQ(throughAFont(high + high + low), u"\uFFFD\U0001F600");
    std::u16string const plain(198, u'x');
    EXPECT_EQ(throughAFont(plain + high + u"y"), plain + u"\uFFFD");
}

TEST(FontName, ALeadingByteOrderMarkIsLeftOut)
{
    KDRString marked(KDRChar(static_cast<unsigned short>(0xFEFF)));
    marked.push_back(KDRString("ab"));
    ASSERT_EQ(marked.size(), 3);
    KDRFont font;
    font.setFaceName(marked);
    EXPECT_EQ(nameOf(font), u"ab");
    KDRInternal::wrapped(font).faceName = VelVar(L"\uFEFFab");
    EXPECT_EQ(nameOf(font), u"ab");
    KDRInternal::wrapped(font).faceName = VelVar("\xEF\xBB\xBF"
                                                 "ab");
    EXPECT_EQ(nameOf(font), u"ab");
}

TEST(FontName, ANarrowNameIsReadAsUtf8)
{
    KDRFont font;
    KDRInternal::wrapped(font).faceName = VelVar("Gr\xC3\xB6\xC3\x9F"
                                                 "e \xF0\x9F\x98\x80");
    EXPECT_EQ(nameOf(font), u"Größe \U0001F600");
    KDRInternal::wrapped(font).faceName = VelVar(std::string(1000, 'n').c_str());
    EXPECT_EQ(nameOf(font), std::u16string(1000, u'n'));
    KDRInternal::wrapped(font).faceName = VelVar("a\xFF");
    EXPECT_EQ(nameOf(font), u"a\uFFFD");
    KDRInternal::wrapped(font).faceName = VelVar("");
    EXPECT_TRUE(font.faceName().isEmpty());
    EXPECT_FALSE(font.faceName().isNull());
}

TEST(FontName, AWideNameOfAnyLengthIsReadWhole)
{
    KDRFont font;
    KDRInternal::wrapped(font).faceName = VelVar(std::wstring(1000, L'w').c_str());
    EXPECT_EQ(nameOf(font), std::u16string(1000, u'w'));
}

TEST(FontName, WhatIsNoTextIsReadAsEmptyAndNotNull)
{
    KDRFont font;
    for (VelVar const& value : {VelVar(12L), VelVar(1.5), VelVar()}) {
        KDRInternal::wrapped(font).faceName = value;
        EXPECT_TRUE(font.faceName().isEmpty());
        EXPECT_FALSE(font.faceName().isNull());
    }
    font.setFaceName(KDRString("again"));
    EXPECT_EQ(nameOf(font), u"again");
}

TEST(FontName, AnyNameComesBackUpTo199Characters)
{
    unsigned int const seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    KDRFont font;
    for (int step = 0; step < 1000; ++step) {
        std::u16string name;
        std::u16string kept;
        int const characters = static_cast<int>(random() % 260);
        for (int i = 0; i < characters; ++i) {
            if (random() % 3 == 0) {
                unsigned int const beyond = static_cast<unsigned int>(random() % 0x100000);
                name += static_cast<char16_t>(0xD800 + (beyond >> 10));
                name += static_cast<char16_t>(0xDC00 + (beyond & 0x3FF));
            } else {
                name += static_cast<char16_t>(0x20 + random() % 0xD7E0);
            }
            if (i < 199)
                kept = name;
        }
        font.setFaceName(stringOf(name));
        ASSERT_EQ(nameOf(font), kept);
    }
}

} // namespace
