#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrenum.h>
#include <kdrdata/scalars/kdrenumprivate.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstringarray.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "../support/handleplace.h"
#include "../support/qtprinters.h"
#include "../support/withoutobject.h"

namespace {

using Names = std::vector<std::string>;
using Numbers = std::vector<int>;

KDRStringArray arrayOf(Names const& names)
{
    KDRStringArray array;
    for (std::string const& name : names)
        array.push_back(KDRString(name.c_str()));
    return array;
}

KDRNumberArray arrayOf(Numbers const& numbers)
{
    KDRNumberArray array;
    for (int const number : numbers)
        array.push_back(KDRNumber(number));
    return array;
}

Names listOf(KDRStringArray const& array)
{
    Names names;
    for (int i = 0; i < array.length(); ++i)
        names.push_back(KDRInternal::wrapped(array[i]).toStdString());
    return names;
}

Numbers listOf(KDRNumberArray const& array)
{
    Numbers numbers;
    for (int i = 0; i < array.length(); ++i)
        numbers.push_back(array[i].toInt());
    return numbers;
}

Names namesOf(KDREnum& selection)
{
    KDRStringArray out = arrayOf(Names{"replaced"});
    selection.getEnumStringList(out);
    return listOf(out);
}

Numbers numbersOf(KDREnum& selection)
{
    KDRNumberArray out = arrayOf(Numbers{99});
    selection.getEnumIndexList(out);
    return listOf(out);
}

KDREnum twoOptions() { return {arrayOf(Names{"a", "b"}), arrayOf(Numbers{10, 20})}; }

TEST(Enum, IsOnePointerWide) { EXPECT_EQ(sizeof(KDREnum), sizeof(void*)); }

TEST(Enum, StartsWithoutOptionsAndNothingChosen)
{
    KDREnum selection;
    EXPECT_EQ(selection.currentVal(), -1);
    EXPECT_EQ(namesOf(selection), Names{});
    EXPECT_EQ(numbersOf(selection), Numbers{});
}

TEST(Enum, ConstructorTakesNamesFirstAndChoosesNothing)
{
    KDREnum selection(arrayOf(Names{"a", "b"}), arrayOf(Numbers{10, 20}));
    EXPECT_EQ(selection.currentVal(), -1);
    EXPECT_EQ(namesOf(selection), (Names{"a", "b"}));
    EXPECT_EQ(numbersOf(selection), (Numbers{10, 20}));
}

TEST(Enum, SetEnumInfTakesNumbersFirstAndGivesTheSameLists)
{
    KDREnum selection;
    selection.setEnumInf(arrayOf(Numbers{10, 20}), arrayOf(Names{"a", "b"}));
    EXPECT_EQ(namesOf(selection), (Names{"a", "b"}));
    EXPECT_EQ(numbersOf(selection), (Numbers{10, 20}));
}

TEST(Enum, ListsOfUnequalLengthAreAccepted)
{
    KDREnum selection(arrayOf(Names{"a"}), arrayOf(Numbers{1, 2, 3}));
    EXPECT_EQ(namesOf(selection), (Names{"a"}));
    EXPECT_EQ(numbersOf(selection), (Numbers{1, 2, 3}));
    selection.setEnumInf(arrayOf(Numbers{}), arrayOf(Names{"a", "b"}));
    EXPECT_EQ(namesOf(selection), (Names{"a", "b"}));
    EXPECT_EQ(numbersOf(selection), Numbers{});
}

TEST(Enum, SetEnumInfKeepsTheChoiceEvenWhereItNoLongerFits)
{
    KDREnum selection = twoOptions();
    selection.setCurrentVal(1);
    selection.setEnumInf(arrayOf(Numbers{}), arrayOf(Names{"only"}));
    EXPECT_EQ(selection.currentVal(), 1);
    EXPECT_EQ(selection.currentValStr(), KDRString(""));
    selection.setEnumInf(arrayOf(Numbers{}), arrayOf(Names{"x", "y", "z"}));
    EXPECT_EQ(selection.currentVal(), 1);
    EXPECT_EQ(selection.currentValStr(), KDRString("y"));
}

TEST(Enum, IsChosenByName)
{
    KDREnum selection = twoOptions();
    selection.setCurrentValStr(KDRString("b"));
    EXPECT_EQ(selection.currentVal(), 1);
    EXPECT_EQ(selection.currentValStr(), KDRString("b"));
    selection.setCurrentValStr(KDRString("a"));
    EXPECT_EQ(selection.currentVal(), 0);
}

TEST(Enum, UnknownNameChoosesNothing)
{
    KDREnum selection = twoOptions();
    for (char const* const name : {"c", "B", "", "ab"}) {
        selection.setCurrentVal(1);
        selection.setCurrentValStr(KDRString(name));
        EXPECT_EQ(selection.currentVal(), -1) << name;
    }
}

TEST(Enum, FirstOfEqualNamesIsChosen)
{
    KDREnum selection(arrayOf(Names{"x", "same", "same"}), KDRNumberArray());
    selection.setCurrentVal(2);
    selection.setCurrentValStr(KDRString("same"));
    EXPECT_EQ(selection.currentVal(), 1);
}

TEST(Enum, ChoiceIsAPositionAmongTheNamesNotANumberOfTheList)
{
    KDREnum selection = twoOptions();
    selection.setCurrentVal(20);
    EXPECT_EQ(selection.currentValStr(), KDRString(""));
    selection.setCurrentVal(0);
    EXPECT_EQ(selection.currentValStr(), KDRString("a"));
}

TEST(Enum, AnyPositionIsStoredAndHasTheEmptyNameOutsideTheNames)
{
    KDREnum selection = twoOptions();
    for (int const position :
         {5, 2, -1, -2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        SCOPED_TRACE(position);
        selection.setCurrentVal(position);
        EXPECT_EQ(selection.currentVal(), position);
        KDRString const name = selection.currentValStr();
        EXPECT_TRUE(name.isEmpty());
        EXPECT_FALSE(name.isNull());
    }
    EXPECT_TRUE(KDREnum().currentValStr().isEmpty());
}

TEST(Enum, CopyCarriesChoiceNamesAndNumbers)
{
    KDREnum selection = twoOptions();
    selection.setCurrentVal(1);
    KDREnum copy(selection);
    EXPECT_EQ(copy.currentVal(), 1);
    EXPECT_EQ(namesOf(copy), (Names{"a", "b"}));
    EXPECT_EQ(numbersOf(copy), (Numbers{10, 20}));
}

TEST(Enum, AssignmentCarriesChoiceNamesAndNumbers)
{
    KDREnum selection = twoOptions();
    selection.setCurrentVal(1);
    KDREnum assigned(arrayOf(Names{"old"}), arrayOf(Numbers{1}));
    EXPECT_EQ(&(assigned = selection), &assigned);
    EXPECT_EQ(assigned.currentVal(), 1);
    EXPECT_EQ(namesOf(assigned), (Names{"a", "b"}));
    EXPECT_EQ(numbersOf(assigned), (Numbers{10, 20}));
    KDREnum const& alias = assigned;
    assigned = alias;
    EXPECT_EQ(namesOf(assigned), (Names{"a", "b"}));
}

TEST(Enum, CopiesDoNotFollowTheOriginal)
{
    KDREnum selection = twoOptions();
    selection.setCurrentVal(1);
    KDREnum copy(selection);
    KDREnum assigned;
    assigned = selection;
    selection.setCurrentVal(0);
    selection.setEnumInf(arrayOf(Numbers{7}), arrayOf(Names{"new"}));
    for (KDREnum* const other : {&copy, &assigned}) {
        EXPECT_EQ(other->currentVal(), 1);
        EXPECT_EQ(namesOf(*other), (Names{"a", "b"}));
        EXPECT_EQ(numbersOf(*other), (Numbers{10, 20}));
    }
}

TEST(Enum, ListsThatWereGivenOrGotDoNotFollow)
{
    KDRStringArray names = arrayOf(Names{"a"});
    KDREnum selection(names, KDRNumberArray());
    names.clear();
    EXPECT_EQ(namesOf(selection), (Names{"a"}));
    KDRStringArray out;
    selection.getEnumStringList(out);
    out.clear();
    EXPECT_EQ(namesOf(selection), (Names{"a"}));
}

// The maxima of the numbers' ranges, as they come out.
std::vector<double> maximaOf(KDREnum& selection)
{
    KDRNumberArray numbers;
    selection.getEnumIndexList(numbers);
    std::vector<double> maxima;
    for (int i = 0; i < numbers.length(); ++i) {
        KDRNumber number;
        EXPECT_TRUE(numbers.select(i, &number));
        maxima.push_back(number.maxValue());
    }
    return maxima;
}

TEST(Enum, NumbersKeepTheirRanges)
{
    KDRNumber ranged(10);
    ranged.setMaxValue(99.0);
    KDRNumberArray numbers = arrayOf(Numbers{1, 2});
    ASSERT_TRUE(numbers.replace(1, ranged));
    std::vector<double> const maxima{0.0, 99.0};

    KDREnum made(arrayOf(Names{"a", "b"}), numbers);
    EXPECT_EQ(maximaOf(made), maxima);
    KDREnum copy(made);
    EXPECT_EQ(maximaOf(copy), maxima);
    KDREnum assigned;
    assigned = copy;
    EXPECT_EQ(maximaOf(assigned), maxima);
    KDREnum set;
    set.setEnumInf(numbers, KDRStringArray());
    EXPECT_EQ(maximaOf(set), maxima);
}

TEST(EnumPrivate, NumbersKeepTheirRanges)
{
    KDRNumber ranged(10);
    ranged.setMaxValue(99.0);
    KDREnumPrivate record;
    record.indexList = arrayOf(Numbers{1});
    ASSERT_TRUE(record.indexList.replace(0, ranged));
    KDREnumPrivate const copy(record);
    KDREnumPrivate assigned;
    assigned = record;
    for (KDREnumPrivate const* const other :
         {&copy, static_cast<KDREnumPrivate const*>(&assigned)}) {
        KDRNumber out;
        ASSERT_TRUE(other->indexList.select(0, &out));
        EXPECT_EQ(out.maxValue(), 99.0);
    }
}

TEST(Enum, HandlesWithoutARecordAreSkippedByAssignmentAndCopiedAsDefaults)
{
    WithoutObject<KDREnum> bare;
    auto& empty = bare.handle;

    KDREnum selection = twoOptions();
    selection = empty;
    EXPECT_EQ(namesOf(selection), (Names{"a", "b"}));
    EXPECT_EQ(&(empty = selection), &empty);
    EXPECT_EQ(KDRInternal::pointer(empty), nullptr);
    KDREnum copy(empty);
    EXPECT_EQ(copy.currentVal(), -1);
    EXPECT_EQ(namesOf(copy), Names{});
}

TEST(EnumPrivate, StartsWithoutOptionsAndNothingChosen)
{
    KDREnumPrivate const record;
    EXPECT_EQ(record.indexList.length(), 0);
    EXPECT_EQ(record.stringList.length(), 0);
    EXPECT_EQ(record.currentValue, -1);
}

TEST(EnumPrivate, AssignmentAndCopyCarryEveryField)
{
    KDREnumPrivate record;
    record.indexList = arrayOf(Numbers{10, 20});
    record.stringList = arrayOf(Names{"a"});
    record.currentValue = 7;
    KDREnumPrivate assigned;
    EXPECT_EQ(&(assigned = record), &assigned);
    KDREnumPrivate const copy(record);
    for (KDREnumPrivate const* const other :
         {&copy, static_cast<KDREnumPrivate const*>(&assigned)}) {
        EXPECT_EQ(listOf(other->indexList), (Numbers{10, 20}));
        EXPECT_EQ(listOf(other->stringList), (Names{"a"}));
        EXPECT_EQ(other->currentValue, 7);
    }
}

TEST(EnumPrivate, DestructionLeavesNothingChosenBehind)
{
    Place<KDREnumPrivate> place;
    KDREnumPrivate& record = place.create();
    record.currentValue = 7;
    auto const offset = place.offsetOf(record.currentValue);
    record.~KDREnumPrivate();
    EXPECT_EQ(place.left<int>(offset), -1);
}

TEST(EnumPrivate, DestructionLeavesOtherHoldersTheirLists)
{
    KDREnumPrivate other;
    {
        KDREnumPrivate record;
        record.indexList = arrayOf(Numbers{1});
        record.stringList = arrayOf(Names{"a"});
        other = record;
    }
    EXPECT_EQ(listOf(other.indexList), (Numbers{1}));
    EXPECT_EQ(listOf(other.stringList), (Names{"a"}));
}

} // namespace
