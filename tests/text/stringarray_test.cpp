#include <kdrdata/text/kdrstringarray.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrregexp.h>

#include <gtest/gtest.h>

#include <QtCore/QRegExp>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <type_traits>

#include "../contract/arraysuite.h"
#include "../contract/listarraysuite.h"
#include "../support/qtprinters.h"

namespace {

struct StringArrayTraits
{
    using Array = KDRStringArray;
    using Element = KDRString;
    static constexpr bool insertsAtEnd = true;
    static KDRString make(int number)
    {
        KDRString text;
        KDRInternal::wrapped(text) = QString::number(number);
        return text;
    }
    static bool isDefault(KDRString const& value) { return value.isNull(); }
    static int read(KDRString const& text) { return KDRInternal::wrapped(text).toInt(); }
};

using ListArrays = testing::Types<StringArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(StringArray, ArrayContract, ListArrays, );
INSTANTIATE_TYPED_TEST_SUITE_P(StringArray, ListArrayContract, ListArrays, );

KDRStringArray arrayOf(std::initializer_list<char const*> texts)
{
    KDRStringArray array;
    for (char const* const text : texts)
        array.push_back(KDRString(text));
    return array;
}

bool shareStorage(KDRStringArray const& a, KDRStringArray const& b)
{
    return KDRInternal::wrapped(a).isSharedWith(KDRInternal::wrapped(b));
}

QString const& textOf(KDRString const& string) { return KDRInternal::wrapped(string); }

int const smallest = -2147483647 - 1;
int const largest = 2147483647;

TEST(StringArray, InsertAtLengthAppends)
{
    KDRStringArray array;
    EXPECT_TRUE(array.insert(0, KDRString("a")));
    EXPECT_TRUE(array.insert(1, KDRString("b")));
    EXPECT_EQ(textOf(array.join(KDRChar(','))), QString("a,b"));
    for (int const index : {3, -1, smallest, largest})
        EXPECT_FALSE(array.insert(index, KDRString("c"))) << index;
    EXPECT_EQ(array.length(), 2);
}

TEST(StringArray, OnlyInsertTakesTheEndPosition)
{
    KDRStringArray array = arrayOf({"a", "b"});
    KDRString out("old");
    EXPECT_FALSE(array.removeAt(2));
    EXPECT_FALSE(array.replace(2, KDRString("c")));
    EXPECT_FALSE(array.select(2, &out));
    EXPECT_FALSE(array.swap(0, 2));
    EXPECT_EQ(textOf(out), QString("old"));
    EXPECT_EQ(textOf(array.join(KDRChar(','))), QString("a,b"));
}

TEST(StringArray, SelectOutsideDoesNotLookAtTheOutput)
{
    EXPECT_FALSE(arrayOf({"a"}).select(1, nullptr));
}

TEST(StringArray, KeepsNullAndEmptyElementsApart)
{
    KDRStringArray array;
    array.push_back(KDRString());
    array.push_back(KDRString(""));
    ASSERT_TRUE(array.insert(2, KDRString()));
    EXPECT_TRUE(array[0].isNull());
    EXPECT_FALSE(array[1].isNull());
    EXPECT_TRUE(array[2].isNull());
    ASSERT_TRUE(array.replace(0, KDRString("")));
    ASSERT_TRUE(array.replace(1, KDRString()));
    KDRString out("old");
    ASSERT_TRUE(array.select(0, &out));
    EXPECT_FALSE(out.isNull());
    ASSERT_TRUE(array.select(1, &out));
    EXPECT_TRUE(out.isNull());
}

TEST(StringArray, IndexOfFindsTheFirstEqualTextAtOrAfterAPosition)
{
    KDRStringArray const array = arrayOf({"a", "b", "a"});
    KDRString const a("a");
    EXPECT_EQ(array.indexOf(a), 0);
    EXPECT_EQ(array.indexOf(a, 1), 2);
    EXPECT_EQ(array.indexOf(a, 2), 2);
    EXPECT_EQ(array.indexOf(KDRString("b"), 2), -1);
    EXPECT_EQ(KDRStringArray().indexOf(a), -1);
}

TEST(StringArray, IndexOfCountsANegativePositionFromTheEnd)
{
    KDRStringArray const array = arrayOf({"a", "b", "a"});
    KDRString const a("a");
    EXPECT_EQ(array.indexOf(a, -1), 2);
    EXPECT_EQ(array.indexOf(a, -3), 0);
    EXPECT_EQ(array.indexOf(a, -5), 0);
    EXPECT_EQ(array.indexOf(a, smallest), 0);
    EXPECT_EQ(array.indexOf(a, 3), -1);
    EXPECT_EQ(array.indexOf(a, largest), -1);
}

TEST(StringArray, IndexOfIsExact)
{
    KDRStringArray const array = arrayOf({"ab", "A", " a", "a"});
    EXPECT_EQ(array.indexOf(KDRString("a")), 3);
    EXPECT_EQ(array.indexOf(KDRString("b")), -1);
}

TEST(StringArray, IndexOfTakesANullTextForAnEmptyOne)
{
    KDRStringArray array = arrayOf({"a", ""});
    EXPECT_EQ(array.indexOf(KDRString()), 1);
    ASSERT_TRUE(array.replace(1, KDRString()));
    EXPECT_EQ(array.indexOf(KDRString("")), 1);
}

TEST(StringArray, IndexOfAnExpressionMatchesWholeElements)
{
    KDRStringArray const array = arrayOf({"ab", "b", "bb"});
    KDRRegExp const constant(KDRString("b"));
    KDRRegExp expression(KDRString("b+"));
    EXPECT_EQ(array.indexOf(constant), 1);
    EXPECT_EQ(array.indexOf(expression), 1);
    EXPECT_EQ(array.indexOf(expression, 2), 2);
    EXPECT_EQ(array.indexOf(constant, 2), -1);
}

TEST(StringArray, IndexOfAnExpressionCountsPositionsLikeThatOfAString)
{
    KDRStringArray const array = arrayOf({"a", "b", "a"});
    KDRRegExp const a(KDRString("a"));
    EXPECT_EQ(array.indexOf(a, 1), 2);
    EXPECT_EQ(array.indexOf(a, -1), 2);
    EXPECT_EQ(array.indexOf(a, -5), 0);
    EXPECT_EQ(array.indexOf(a, smallest), 0);
    EXPECT_EQ(array.indexOf(a, 3), -1);
    EXPECT_EQ(array.indexOf(a, largest), -1);
    EXPECT_EQ(KDRStringArray().indexOf(a), -1);
}

TEST(StringArray, IndexOfAnInvalidExpressionFindsNothing)
{
    KDRRegExp const unbalanced(KDRString("a("));
    EXPECT_EQ(arrayOf({"a(", "a", ""}).indexOf(unbalanced), -1);
}

// Both overloads, the one for constant expressions and the other.
template <class RegExp>
void expectStateOfTheLastElementTried()
{
    KDRStringArray const array = arrayOf({"x=12", "y", "z=345"});
    RegExp expression(KDRString("([a-z])=(\\d+)"));
    EXPECT_EQ(array.indexOf(expression, 1), 2);
    EXPECT_EQ(expression.matchedLength(), 5);
    EXPECT_EQ(textOf(expression.cap(1)), QString("z"));
    EXPECT_EQ(textOf(expression.cap(2)), QString("345"));
    EXPECT_EQ(expression.pos(2), 2);

    EXPECT_EQ(array.indexOf(expression, 3), -1); // nothing tried, nothing changed
    EXPECT_EQ(textOf(expression.cap(2)), QString("345"));

    KDRStringArray const others = arrayOf({"a=1b", "c=23d"});
    QRegExp qts("([a-z])=(\\d+)");
    EXPECT_FALSE(qts.exactMatch("c=23d"));
    EXPECT_EQ(others.indexOf(expression), -1);
    EXPECT_EQ(expression.matchedLength(), qts.matchedLength());
    EXPECT_EQ(expression.matchedLength(), 4);
    EXPECT_EQ(textOf(expression.cap(0)), qts.cap(0));
}

TEST(StringArray, IndexOfLeavesTheStateOfTheLastElementTriedInTheExpression)
{
    expectStateOfTheLastElementTried<KDRRegExp>();
}

TEST(StringArray, IndexOfLeavesTheStateOfTheLastElementTriedInAConstantExpression)
{
    expectStateOfTheLastElementTried<KDRRegExp const>();
}

TEST(StringArray, JoinPutsTheSeparatorBetweenNeighbours)
{
    KDRStringArray array = arrayOf({"a", "", "b"});
    EXPECT_EQ(textOf(array.join(KDRChar(','))), QString("a,,b"));
    EXPECT_EQ(textOf(array.join(KDRString(", "))), QString("a, , b"));
    EXPECT_EQ(textOf(array.join(KDRString())), QString("ab"));
    EXPECT_EQ(textOf(arrayOf({"a"}).join(KDRChar(','))), QString("a"));
}

TEST(StringArray, JoinWithAZeroCharacterPutsNothingBetween)
{
    KDRStringArray array = arrayOf({"a", "b"});
    EXPECT_EQ(textOf(array.join(KDRChar())), QString("ab"));
    EXPECT_EQ(textOf(array.join(KDRChar(0))), QString("ab"));
    // A string that holds a zero is a separator like any other.
    EXPECT_EQ(textOf(array.join(KDRString(KDRChar(0)))), QString("a") + QChar(0) + QString("b"));
}

TEST(StringArray, JoinWithoutACodeUnitGivesANullString)
{
    for (KDRStringArray array : {KDRStringArray(), arrayOf({""}), arrayOf({nullptr})}) {
        EXPECT_TRUE(array.join(KDRChar(',')).isNull());
        EXPECT_TRUE(array.join(KDRChar(0)).isNull());
        EXPECT_TRUE(array.join(KDRString(",")).isNull());
        EXPECT_TRUE(array.join(KDRString()).isNull());
    }
    EXPECT_TRUE(arrayOf({"", nullptr}).join(KDRChar(0)).isNull());
    EXPECT_EQ(textOf(arrayOf({"", nullptr}).join(KDRChar(','))), QString(","));
}

// Whether some array of the given type can be joined.
template <class Array, class = void>
struct CanBeJoined : std::false_type
{
};
template <class Array>
struct CanBeJoined<Array, std::void_t<decltype(std::declval<Array&>().join(KDRChar()))>>
    : std::true_type
{
};

TEST(StringArray, ConstantArraysCannotBeJoined)
{
    EXPECT_TRUE(CanBeJoined<KDRStringArray>::value);
    EXPECT_FALSE(CanBeJoined<KDRStringArray const>::value);
}

class StringArraySharing : public testing::Test
{
protected:
    KDRString const text{"some text"};
    KDRStringArray array = arrayOf({"a", "b"});
};

TEST_F(StringArraySharing, ElementsShareTheTextThatEntersAndLeaves)
{
    array.push_back(text);
    ASSERT_TRUE(array.insert(0, text));
    ASSERT_TRUE(array.insert(array.length(), text));
    ASSERT_TRUE(array.replace(1, text));
    for (int const index : {0, 1, 3, 4}) {
        KDRString out;
        ASSERT_TRUE(array.select(index, &out));
        EXPECT_EQ(out.toUtf16(), text.toUtf16()) << index;
        EXPECT_EQ(array[index].toUtf16(), text.toUtf16()) << index;
    }
}

TEST_F(StringArraySharing, AStringTakenOutChangesWithoutTheArray)
{
    array.push_back(text);
    KDRString taken = array[2];
    taken.truncate(4);
    EXPECT_EQ(textOf(array[2]), QString("some text"));
    EXPECT_EQ(textOf(text), QString("some text"));
}

TEST_F(StringArraySharing, CopyAndAssignmentShareTheStorage)
{
    KDRStringArray const copy(array);
    KDRStringArray assigned;
    assigned = array;
    EXPECT_TRUE(shareStorage(array, copy));
    EXPECT_TRUE(shareStorage(array, assigned));
}

TEST_F(StringArraySharing, AppendingToAnEmptyArraySharesTheStorage)
{
    KDRStringArray empty;
    empty.push_back(array);
    EXPECT_TRUE(shareStorage(array, empty));
}

TEST_F(StringArraySharing, ReadingDoesNotDetach)
{
    KDRStringArray copy(array);
    KDRString out;
    KDRRegExp expression(KDRString("b"));
    EXPECT_EQ(copy.length(), 2);
    EXPECT_TRUE(copy.select(1, &out));
    EXPECT_EQ(copy.indexOf(KDRString("b")), 1);
    EXPECT_EQ(copy.indexOf(expression), 1);
    copy.join(KDRChar(','));
    copy.join(KDRString(","));
    EXPECT_TRUE(shareStorage(array, copy));
}

TEST_F(StringArraySharing, RefusedOperationsDoNotDetach)
{
    KDRStringArray copy(array);
    EXPECT_FALSE(copy.insert(3, text));
    EXPECT_FALSE(copy.removeAt(2));
    EXPECT_FALSE(copy.replace(-1, text));
    EXPECT_FALSE(copy.swap(0, 2));
    EXPECT_TRUE(shareStorage(array, copy));
}

TEST_F(StringArraySharing, IndexingAConstantArrayDetaches)
{
    KDRStringArray const copy(array);
    EXPECT_EQ(textOf(copy[0]), QString("a"));
    EXPECT_FALSE(shareStorage(array, copy));
}

TEST_F(StringArraySharing, ASharedArrayMayBeAppendedToItself)
{
    KDRStringArray const copy(array);
    array.push_back(array);
    EXPECT_EQ(textOf(array.join(KDRChar(','))), QString("a,b,a,b"));
    EXPECT_EQ(copy.length(), 2);
}

} // namespace
