#include <kdrdata/text/text.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/qtprinters.h"

#include <QtCore/QChar>

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

namespace {

static_assert(sizeof(KDRChar) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRChar>);
// A reference to write through for a character, a value for a constant one.
static_assert(std::is_same_v<decltype(std::declval<KDRChar&>().unicode()), unsigned short&>);
static_assert(std::is_same_v<decltype(std::declval<KDRChar const&>().unicode()), unsigned short>);
// Enumeration-valued properties are plain integers.
static_assert(std::is_same_v<decltype(std::declval<KDRChar const&>().category()), int>);

TEST(Char, DefaultIsTheNullCharacter)
{
    KDRChar const character;
    EXPECT_EQ(character.unicode(), 0);
    EXPECT_TRUE(character.isNull());
    EXPECT_FALSE(KDRChar('0').isNull());
}

TEST(Char, ConstructorsTakeTheirArgumentAsACode)
{
    EXPECT_EQ(KDRChar('A').unicode(), 0x41);
    EXPECT_EQ(KDRChar('\xE9').unicode(), 0xE9) << "an unsigned byte";
    EXPECT_EQ(KDRChar(static_cast<unsigned char>(0xE9)).unicode(), 0xE9);
    EXPECT_EQ(KDRChar(static_cast<unsigned short>(0xFFFF)).unicode(), 0xFFFF);
    EXPECT_EQ(KDRChar(static_cast<short>(-2)).unicode(), 0xFFFE);
    EXPECT_EQ(KDRChar(0x12345).unicode(), 0x2345) << "the low 16 bits";
    EXPECT_EQ(KDRChar(-1).unicode(), 0xFFFF);
    EXPECT_EQ(KDRChar(0xFFFF1234U).unicode(), 0x1234);
    EXPECT_EQ(KDRChar(0x34, 0x12).unicode(), 0x1234) << "cell, then row";
}

TEST(Char, SpecialCharactersAreTheirCodes)
{
    EXPECT_EQ(KDRChar(KDRChar::KDRNull).unicode(), QChar::Null);
    EXPECT_EQ(KDRChar(KDRChar::KDRTabulation).unicode(), QChar::Tabulation);
    EXPECT_EQ(KDRChar(KDRChar::KDRLineFeed).unicode(), QChar::LineFeed);
    EXPECT_EQ(KDRChar(KDRChar::KDRFormFeed).unicode(), QChar::FormFeed);
    EXPECT_EQ(KDRChar(KDRChar::KDRCarriageReturn).unicode(), QChar::CarriageReturn);
    EXPECT_EQ(KDRChar(KDRChar::KDRSpace).unicode(), QChar::Space);
    EXPECT_EQ(KDRChar(KDRChar::KDRNbsp).unicode(), QChar::Nbsp);
    EXPECT_EQ(KDRChar(KDRChar::KDRSoftHyphen).unicode(), QChar::SoftHyphen);
    EXPECT_EQ(KDRChar(KDRChar::KDRLineSeparator).unicode(), QChar::LineSeparator);
    EXPECT_EQ(KDRChar(KDRChar::KDRParagraphSeparator).unicode(), QChar::ParagraphSeparator);
    EXPECT_EQ(KDRChar(KDRChar::KDRByteOrderMark).unicode(), QChar::ByteOrderMark);
    EXPECT_EQ(KDRChar(KDRChar::KDRObjectReplacementCharacter).unicode(),
              QChar::ObjectReplacementCharacter);
    EXPECT_EQ(KDRChar(KDRChar::KDRReplacementCharacter).unicode(), QChar::ReplacementCharacter);
    EXPECT_EQ(KDRChar(KDRChar::KDRByteOrderSwapped).unicode(), QChar::ByteOrderSwapped);
    EXPECT_EQ(int(KDRChar::KDRLastValidCodePoint), int(QChar::LastValidCodePoint));
    EXPECT_EQ(KDRChar(KDRChar::KDRLastValidCodePoint).unicode(), 0xFFFF);
}

TEST(Char, CopiesNeverShare)
{
    KDRChar original('A');
    KDRChar copy(original);
    EXPECT_NE(KDRInternal::pointer(copy), KDRInternal::pointer(original));
    copy.unicode() = 'B';
    EXPECT_EQ(original.unicode(), 'A');

    KDRChar assigned('C');
    QChar const* const cell = KDRInternal::pointer(assigned);
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(KDRInternal::pointer(assigned), cell) << "the code goes into its own cell";
    original.unicode() = 'D';
    EXPECT_EQ(assigned.unicode(), 'A');
}

TEST(Char, SelfAssignmentKeepsTheCode)
{
    KDRChar character('A');
    KDRChar& same = character;
    character = same;
    EXPECT_EQ(character.unicode(), 'A');
}

TEST(Char, WritingThroughUnicodeChangesThisCharacter)
{
    KDRChar character('A');
    character.unicode() = 0x20AC;
    EXPECT_EQ(character.unicode(), 0x20AC);
    EXPECT_EQ(character.cell(), 0xAC);
    EXPECT_EQ(character.row(), 0x20);
}

TEST(Char, Latin1IsZeroAbove255)
{
    EXPECT_EQ(KDRChar(0x0101).toLatin1(), '\0');
    EXPECT_EQ(KDRChar(0x00E9).toLatin1(), '\xE9');
    EXPECT_EQ(KDRChar(0x00FF).toLatin1(), '\xFF');
    EXPECT_EQ(KDRChar('x').fromLatin1('\xE9').unicode(), 0xE9);
}

TEST(Char, EqualityAndInequalityAreFalseForEveryPair)
{
    KDRChar const a('A');
    KDRChar const same('A');
    KDRChar const b('B');
    EXPECT_FALSE(KDRChar('A') == KDRChar('A'));
    EXPECT_FALSE(KDRChar('A') != KDRChar('A'));
    EXPECT_FALSE(a == same);
    EXPECT_FALSE(a != same);
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a != b);
    EXPECT_FALSE(a == a) << "the argument is a copy";
    EXPECT_FALSE(a != a);
}

QChar lowCell('B'); // static storage lies below the heap, the stack above

// Compares the character in @p cell with a copy, which is on the heap.
struct Order
{
    Order(QChar* cell, KDRChar const& other)
    {
        KDRChar character;
        QChar* const own = KDRInternal::pointer(character);
        KDRInternal::pointer(character) = cell;
        less = character < other;
        lessOrEqual = character <= other;
        greater = character > other;
        greaterOrEqual = character >= other;
        KDRInternal::pointer(character) = own;
    }
    bool less, lessOrEqual, greater, greaterOrEqual;
};

TEST(Char, ALowerCellIsLessWhateverTheCodes)
{
    QChar highCell('A');
    KDRChar const other('A');
    auto const address = [](QChar const* cell) { return reinterpret_cast<std::uintptr_t>(cell); };
    ASSERT_LT(address(&lowCell), address(KDRInternal::pointer(other)));
    ASSERT_GT(address(&highCell), address(KDRInternal::pointer(other)));

    Order const low(&lowCell, other);
    EXPECT_TRUE(low.less);
    EXPECT_TRUE(low.lessOrEqual);
    EXPECT_FALSE(low.greater);
    EXPECT_FALSE(low.greaterOrEqual);

    Order const high(&highCell, other);
    EXPECT_FALSE(high.less);
    EXPECT_FALSE(high.lessOrEqual);
    EXPECT_TRUE(high.greater);
    EXPECT_TRUE(high.greaterOrEqual);
}

TEST(Char, RequiresSurrogatesIsTrueForAllButZero)
{
    KDRChar const any('x');
    EXPECT_FALSE(any.requiresSurrogates(0));
    EXPECT_TRUE(any.requiresSurrogates(0x41));
    EXPECT_TRUE(any.requiresSurrogates('('));
    EXPECT_TRUE(any.requiresSurrogates(0xFFFF));
    EXPECT_TRUE(any.requiresSurrogates(0x10000));
    EXPECT_TRUE(any.requiresSurrogates(0xFFFFFFFF));
}

TEST(Char, DecompositionTagOfACodePointIgnoresIt)
{
    EXPECT_EQ(KDRChar(0x00E9).decompositionTag(0x41), QChar::Canonical);
    EXPECT_EQ(KDRChar('A').decompositionTag(0x00E9), QChar::NoDecomposition);
    EXPECT_EQ(KDRChar(0x00E9).decompositionTag(0xFFFFFFFF), QChar::Canonical);
    EXPECT_EQ(KDRChar(0x00BD).decompositionTag(), QChar::Fraction);
}

TEST(Char, CodePointFormsIgnoreTheCharacter)
{
    KDRChar const letter('a');
    EXPECT_TRUE(letter.isDigit('7'));
    EXPECT_FALSE(letter.isLetter('7'));
    EXPECT_EQ(letter.digitValue('7'), 7);
    EXPECT_EQ(letter.toUpper(0x10428U), 0x10400U) << "beyond the 16 bits of a character";
    EXPECT_EQ(letter.unicode(), 'a');
}

TEST(Char, SurrogateFormulasHoldAtTheirEnds)
{
    KDRChar const any;
    EXPECT_EQ(any.highSurrogate(0x10000), 0xD800);
    EXPECT_EQ(any.lowSurrogate(0x10000), 0xDC00);
    EXPECT_EQ(any.highSurrogate(0x10FFFF), 0xDBFF);
    EXPECT_EQ(any.lowSurrogate(0x10FFFF), 0xDFFF);
    EXPECT_EQ(any.surrogateToUcs4(0xD800, 0xDC00), 0x10000U);
    EXPECT_EQ(any.surrogateToUcs4(0xDBFF, 0xDFFF), 0x10FFFFU);
    EXPECT_EQ(any.surrogateToUcs4(KDRChar(0xDBFF), KDRChar(0xDFFF)), 0x10FFFFU);
    // Neither tells whether a pair is needed, nor whether it is one.
    EXPECT_EQ(any.highSurrogate(0), 0xD7C0);
    EXPECT_EQ(any.lowSurrogate(0), 0xDC00);
    EXPECT_EQ(any.highSurrogate(0xFFFFFFFF), 0xD7BF) << "its low 16 bits";
    EXPECT_EQ(any.lowSurrogate(0xFFFFFFFF), 0xDFFF);
    EXPECT_EQ(any.surrogateToUcs4(0, 0), 0xFCA02400U) << "in 32 bits";
    EXPECT_EQ(any.surrogateToUcs4(0xFFFF, 0xFFFF), 0xA11FFFU);
}

TEST(Char, BeyondTheLastCodePointNothingIsAssigned)
{
    KDRChar const any;
    for (unsigned int const u : {0x110000U, 0x11FFFEU, 0x200041U, 0x80000000U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(u);
        EXPECT_EQ(any.category(u), QChar::Other_NotAssigned);
        EXPECT_EQ(any.direction(u), QChar::direction(u));
        EXPECT_EQ(any.script(u), QChar::Script_Unknown);
        EXPECT_EQ(any.unicodeVersion(u), QChar::Unicode_Unassigned);
        EXPECT_EQ(any.digitValue(u), -1);
        EXPECT_EQ(any.combiningClass(u), 0);
        EXPECT_EQ(any.joining(u), 0);
        EXPECT_EQ(any.toUpper(u), u);
        EXPECT_EQ(any.toLower(u), u);
        EXPECT_EQ(any.toTitleCase(u), u);
        EXPECT_EQ(any.toCaseFolded(u), u);
        EXPECT_EQ(any.mirroredChar(u), u);
        EXPECT_TRUE(any.decomposition(u).isEmpty());
        EXPECT_FALSE(any.isPrint(u) || any.isLetter(u) || any.isSpace(u) || any.isSurrogate(u));
        // The one question that goes by the low bits alone.
        EXPECT_EQ(any.isNonCharacter(u), (u & 0xFFFE) == 0xFFFE);
    }
}

TEST(Char, SurrogatePairsGoThereAndBack)
{
    KDRChar const any;
    EXPECT_EQ(any.highSurrogate(0x1F600), 0xD83D);
    EXPECT_EQ(any.lowSurrogate(0x1F600), 0xDE00);
    EXPECT_EQ(any.surrogateToUcs4(0xD83D, 0xDE00), 0x1F600U);
    EXPECT_EQ(any.surrogateToUcs4(KDRChar(0xD83D), KDRChar(0xDE00)), 0x1F600U);
    EXPECT_EQ(any.highSurrogate(0x10FFFF), 0xDBFF);
    EXPECT_EQ(any.lowSurrogate(0x10FFFF), 0xDFFF);
}

TEST(Char, SurrogateFormulasHoldForAnyArgument)
{
    KDRChar const any;
    EXPECT_EQ(any.highSurrogate(0x41), 0xD7C0);
    EXPECT_EQ(any.lowSurrogate(0x41), 0xDC41);
    EXPECT_EQ(any.highSurrogate(0xFFFFFFFF), 0xD7BF) << "in 16 bits";
    EXPECT_EQ(any.lowSurrogate(0xFFFFFFFF), 0xDFFF);
    EXPECT_EQ(any.surrogateToUcs4(0, 0), 0U - 0x35FDC00U);
}

TEST(Char, JoiningFollowsTheFixedTable)
{
    EXPECT_EQ(KDRChar(0x0640).joining(), 3) << "tatweel causes joining";
    EXPECT_EQ(KDRChar(0x0628).joining(), 1) << "beh joins on both sides";
    EXPECT_EQ(KDRChar(0x0627).joining(), 2) << "alef joins on its right";
    EXPECT_EQ(KDRChar(0x064B).joining(), 0) << "fathatan is transparent";
    EXPECT_EQ(KDRChar(0xA872).joining(), 0) << "superfixed ra joins on its left";
    EXPECT_EQ(KDRChar('A').joining(), 0);
    EXPECT_EQ(KDRChar().joining(0x0640), 3);
}

TEST(Char, WithoutADecompositionTheTextIsEmptyNotNull)
{
    KDRString const text = KDRChar('A').decomposition();
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(text.isNull());
    EXPECT_FALSE(KDRChar('A').decomposition(0xFFFFFFFF).isNull());
}

TEST(Char, MappingsGiveNewCharacters)
{
    KDRChar const letter(0x01C6); // dz with caron, which has three cases
    EXPECT_EQ(letter.toUpper().unicode(), 0x01C4);
    EXPECT_EQ(letter.toTitleCase().unicode(), 0x01C5);
    EXPECT_EQ(letter.toLower().unicode(), 0x01C6);
    EXPECT_EQ(KDRChar('(').mirroredChar().unicode(), ')');
    EXPECT_EQ(KDRChar(0x03C2).toCaseFolded().unicode(), 0x03C3) << "final sigma";
}

} // namespace
