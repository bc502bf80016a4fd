#include <kdrdata/text/text.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/allocations.h"
#include "../support/qtprinters.h"

#include <QtCore/QString>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <functional>
#include <new>
#include <vector>

// What the operations of KDRString allocate, and what they do when there is not enough memory.

namespace {

KDRString const marker("%1");

// Text comes from malloc inside Qt, so that the operators count the holders alone.
template <class Operation>
long holdersOf(Operation operation)
{
    long const before = allocations::made();
    operation();
    return allocations::made() - before;
}

TEST(StringLimits, InsertBeyondWhatAStringCanHoldThrowsAndChangesNothing)
{
    KDRString text("text");
    for (int i : {INT_MAX, INT_MAX - 1}) {
        EXPECT_THROW(text.insert(i, KDRString("ab")), std::bad_alloc);
        EXPECT_THROW(text.insert(i, "ab"), std::bad_alloc);
        EXPECT_THROW(text.insert(i, KDRBuffer("ab")), std::bad_alloc);
    }
    EXPECT_EQ(text, KDRString("text"));
}

TEST(StringLimits, RepeatedBeyondWhatAStringCanHoldThrows)
{
    KDRString const text("abcdefgh");
    for (int times : {INT_MAX, 1 << 29, 1 << 30, INT_MAX / 8})
        EXPECT_THROW(text.repeated(times), std::bad_alloc) << times;
    EXPECT_THROW(KDRString("ab").repeated(INT_MAX), std::bad_alloc);
    EXPECT_TRUE(KDRString("").repeated(INT_MAX).isEmpty());
}

TEST(StringLimits, ImpossiblePrecisionsThrow)
{
    for (int precision : {INT_MAX, INT_MAX - 400, INT_MAX / 2 + 1}) {
        EXPECT_THROW(marker.arg(2.5, 0, KDRString::KDRFormatFixed, precision), std::bad_alloc);
        KDRString text("text");
        EXPECT_THROW(text.setNum(2.5, KDRString::KDRFormatFixed, precision), std::bad_alloc);
        EXPECT_THROW(text.setNum(2.5F, KDRString::KDRFormatFixed, precision), std::bad_alloc);
        // Without a marker nothing is written.
        EXPECT_EQ(text.arg(2.5, 0, KDRString::KDRFormatFixed, precision), text);
        EXPECT_EQ(text, KDRString("text"));
    }
}

TEST(StringLimits, ImpossibleWidthsThrow)
{
    for (int width : {INT_MAX, -INT_MAX}) {
        EXPECT_THROW(marker.arg(KDRString("x"), width), std::bad_alloc);
        EXPECT_THROW(marker.arg(1, width), std::bad_alloc);
        EXPECT_THROW(marker.arg(2.5, width), std::bad_alloc);
        EXPECT_THROW(marker.arg('x', width), std::bad_alloc);
        EXPECT_THROW(marker.arg(KDRChar(), width), std::bad_alloc);
    }
}

TEST(StringLimits, WidthsThatManyMarkersMakeImpossibleThrow)
{
    struct
    {
        char const* text;
        int width;
    } const cases[] = {{"%1%1%1", 1431655766}, {"%1%1%1%1%1", 858993460}, {"%L1%1", 1 << 30}};
    for (auto const& [text, width] : cases) {
        KDRString const pattern(text);
        EXPECT_THROW(pattern.arg(KDRString("x"), width), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg(KDRString("x"), -width, KDRChar('_')), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg(1, width), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg(1U, width, 10, KDRChar('_')), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg(2.5, width), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg('x', width), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg(KDRChar('x'), width), std::bad_alloc) << text;
        EXPECT_THROW(pattern.arg(KDRChar(), width), std::bad_alloc) << text;
    }
    KDRString const markers = marker.repeated(4100);
    EXPECT_THROW(markers.arg(KDRString("x").repeated(1 << 20)), std::bad_alloc);
    EXPECT_THROW(KDRString("%1%1").arg(2.5, 0, KDRString::KDRFormatFixed, INT_MAX / 2),
                 std::bad_alloc);
}

TEST(StringLimits, AReplacementOfARangeThatRepeatsTooMuchThrowsAndChangesNothing)
{
    // Text, new text and what is repeated pass an int together, so that Qt's sum turns negative.
    constexpr int size = 716000000;
    KDRString text;
    KDRInternal::wrapped(text) = QString(size, Qt::Uninitialized); // takes no memory till written
    EXPECT_THROW(text.replace(size, -size, text), std::bad_alloc);
    EXPECT_EQ(text.size(), size);
}

TEST(StringLimits, ManyMarkersAreNoReasonToRefuse)
{
    // A floating-point number could be much longer than the three units that this one is.
    constexpr int count = 1200000;
    KDRString const pattern = KDRString("%1").repeated(count);
    EXPECT_EQ(pattern.arg(2.5, 0, KDRString::KDRFormatFixed, 1).size(), count * 3);
}

TEST(StringLimits, BackslashesAreNoReasonToRefuse)
{
    KDRString text = KDRString("x").repeated(1 << 22);
    text.push_back(KDRString("b"));
    KDRString const backslashes = KDRString("\\").repeated(1 << 11);
    EXPECT_EQ(text.replace(KDRRegExp(KDRString("b")), backslashes).size(), (1 << 22) + (1 << 11));
}

TEST(StringLimits, OnlyTheMarkersThatAreReplacedCount)
{
    KDRString const pattern = KDRString("%2%% ").repeated(3000).insert(0, "%1");
    KDRString const value = KDRString("x").repeated(1 << 20);
    EXPECT_EQ(pattern.arg(value).size(), pattern.size() - 2 + (1 << 20));
}

TEST(StringLimits, OnlyTheMarkersThatAreReplacedCountWhateverIsWritten)
{
    constexpr int width = 1 << 19;
    constexpr auto fixed = KDRString::KDRFormatFixed;
    KDRChar const fill('_');
    KDRChar const zero('0');
    std::vector<std::function<KDRString(KDRString const&)>> const forms = {
        [](auto const& text) { return text.arg(KDRString("x"), width); },
        [&](auto const& text) { return text.arg(KDRString("x"), width, fill); },
        [](auto const& text) { return text.arg('x', width); },
        [&](auto const& text) { return text.arg('x', width, fill); },
        [](auto const& text) { return text.arg(KDRChar('x'), width); },
        [&](auto const& text) { return text.arg(KDRChar('x'), width, fill); },
        [](auto const& text) { return text.arg(KDRChar(), width); },
        [&](auto const& text) { return text.arg(KDRChar(), width, fill); },
        [](auto const& text) { return text.arg(5, width); },
        [&](auto const& text) { return text.arg(5L, width, 10, fill); },
        [&](auto const& text) { return text.arg(5LL, width, 10, zero); },
        [&](auto const& text) { return text.arg(5UL, width, 10, zero); },
        [](auto const& text) { return text.arg(2.5, width); },
        [&](auto const& text) { return text.arg(2.5, width, fixed, 1, fill); },
        [&](auto const& text) { return text.arg(2.5, width, fixed, 1, zero); },
        [](auto const& text) { return text.arg(2.5, 0, fixed, width - 2); },
        [&](auto const& text) { return text.arg(2.5, 0, fixed, width - 2, zero); },
    };
    // Of the markers behind, each as wide as the first ones, there are too many.
    KDRString const rest = KDRString("%9 ").repeated(5000);
    for (std::size_t i = 0; i < forms.size(); ++i) {
        SCOPED_TRACE(i);
        for (char const* const first : {"%1", "%L1"})
            EXPECT_EQ(forms[i](KDRString(rest).insert(0, first)).size(), width + rest.size());
        EXPECT_EQ(forms[i](KDRString(rest).insert(0, "%L1%1")).size(), 2 * width + rest.size());
        EXPECT_THROW(forms[i](rest), std::bad_alloc);
    }
}

TEST(StringLimits, ReplacingAllByTooMuchThrowsAndChangesNothing)
{
    KDRString const million = KDRString("x").repeated(1 << 20);
    KDRString const original = KDRString("a").repeated(8192);
    KDRString text(original);
    EXPECT_THROW(text.replace(KDRString("a"), million), std::bad_alloc);
    EXPECT_THROW(text.replace(KDRString("A"), million, KDRString::KDRCaseInsensitive),
                 std::bad_alloc);
    EXPECT_THROW(text.replace(KDRRegExp(KDRString("a")), million), std::bad_alloc);
    EXPECT_THROW(text.replace(KDRRegExp(KDRString("(a)")), million), std::bad_alloc);
    EXPECT_THROW(text.replace(KDRRegExp(KDRString("x*")), million), std::bad_alloc);
    EXPECT_EQ(text, original);
    // Few occurrences are no reason to refuse.
    text.insert(0, "b");
    EXPECT_EQ(text.replace(KDRRegExp(KDRString("b")), million).size(), 8192 + (1 << 20));
    text = KDRString("b");
    EXPECT_EQ(text.replace(KDRRegExp(KDRString("(b)")), million).size(), 1 << 20);
}

TEST(StringLimits, OneOccurrenceTooManyThrows)
{
    // The text would be as long as the number after the largest int, where Qt's sum turns negative.
    KDRString const part = KDRString("x").repeated(1 << 22);
    KDRString const original = KDRString("a").repeated(1 << 9);
    KDRString text(original);
    EXPECT_THROW(text.replace(KDRString("a"), part), std::bad_alloc);
    EXPECT_THROW(text.replace(KDRRegExp(KDRString("a")), part), std::bad_alloc);
    EXPECT_THROW(text.replace(KDRRegExp(KDRString("(a)")), part), std::bad_alloc);
    EXPECT_EQ(text, original);
}

TEST(StringLimits, AFewLongOccurrencesThatGrowTooMuchThrow)
{
    KDRString const before = KDRString("a").repeated(26755);
    KDRString const original = before.repeated(3);
    KDRString after;
    KDRInternal::wrapped(after) =
        QString(716000000, Qt::Uninitialized); // takes no memory till read
    KDRString text(original);
    EXPECT_THROW(text.replace(before, after), std::bad_alloc);
    EXPECT_EQ(text, original);
}

TEST(StringLimits, MarkersOfEitherKindAloneCanBeTooMany)
{
    // Qt's sum passes all of an int's numbers and is small and positive again.
    constexpr int width = 1 << 22;
    for (char const* const each : {"%1", "%L1"}) {
        KDRString const pattern = KDRString(each).repeated(1025);
        EXPECT_THROW(pattern.arg(KDRString("x"), width), std::bad_alloc) << each;
        EXPECT_THROW(pattern.arg(5, width), std::bad_alloc) << each;
        EXPECT_THROW(pattern.arg(2.5, width), std::bad_alloc) << each;
    }
}

TEST(StringLimits, APrecisionOfMoreThanANumberHasIsNoReasonToRefuse)
{
    // So many numbers of so many decimals would be too long; these have one each.
    constexpr int count = 1960000;
    constexpr int precision = 1100;
    KDRString const pattern = KDRString("%1").repeated(count);
    EXPECT_EQ(pattern.arg(2.5, 0, KDRString::KDRFormatGeneral, precision).size(), count * 3);
}

TEST(StringLimits, NegativeSizesMeanUpToTheZero)
{
    unsigned short const units[] = {'a', 'b', 0, 'c'};
    for (int const size : {-1, -2, -5, INT_MIN}) {
        EXPECT_EQ(KDRString().fromUtf8("ab\0c", size), KDRString("ab")) << size;
        EXPECT_EQ(KDRString().fromLatin1("ab\0c", size), KDRString("ab")) << size;
        EXPECT_EQ(KDRString().fromLocal8Bit("ab\0c", size), KDRString("ab")) << size;
        EXPECT_EQ(KDRString().fromUtf16(units, size), KDRString("ab")) << size;
        EXPECT_EQ(KDRString(units, size), KDRString("ab")) << size;
    }
}

TEST(StringAllocations, EveryDerivedTextCostsOneHolder)
{
    KDRString const text(" Some Text ");
    EXPECT_EQ(holdersOf([&] { text.left(3); }), 1);
    EXPECT_EQ(holdersOf([&] { text.right(3); }), 1);
    EXPECT_EQ(holdersOf([&] { text.mid(1, 3); }), 1);
    EXPECT_EQ(holdersOf([&] { text.repeated(3); }), 1);
    EXPECT_EQ(holdersOf([&] { text.trimmed(); }), 1);
    EXPECT_EQ(holdersOf([&] { text.simplified(); }), 1);
    EXPECT_EQ(holdersOf([&] { text.toLower(); }), 1);
    EXPECT_EQ(holdersOf([&] { text.toUpper(); }), 1);
}

TEST(StringAllocations, EveryFormattedTextCostsOneHolderBesideItsCharacters)
{
    KDRChar const letter('a');
    EXPECT_EQ(holdersOf([] { marker.arg(marker); }), 1);
    EXPECT_EQ(holdersOf([] { marker.arg(1UL); }), 1);
    EXPECT_EQ(holdersOf([] { marker.arg('a'); }), 1);
    EXPECT_EQ(holdersOf([&] { marker.arg(letter); }), 2) << "the character is passed by value";
    EXPECT_EQ(holdersOf([&] { marker.arg(1, 5, 10, letter); }), 2) << "so is the one to fill with";
}

TEST(StringAllocations, ASearchedTextCostsNothing)
{
    KDRString const text("some text");
    KDRString const part("text");
    KDRChar const separator(' ');
    bool found = false;
    EXPECT_EQ(holdersOf([&] { found = text.contains(part) && text.endsWith(part); }), 0);
    EXPECT_EQ(holdersOf([&] { found = found && text.indexOf(part) == text.lastIndexOf(part); }), 0);
    EXPECT_TRUE(found);
    EXPECT_EQ(holdersOf([&] { text.toDouble(); }), 0);
}

TEST(StringAllocations, EditingCostsNoHolder)
{
    KDRString text("some text");
    KDRString const part("text");
    EXPECT_EQ(holdersOf([&] { text.insert(0, part).remove(0, 4).replace(0, 4, part); }), 0);
    EXPECT_EQ(holdersOf([&] { text.insert(0, "text"); }), 0);
    EXPECT_EQ(holdersOf([&] { text.push_back(part); }), 0);
    EXPECT_EQ(holdersOf([&] { text.remove(part); }), 0);
    EXPECT_EQ(holdersOf([&] { text.setNum(5).setNum(2.5); }), 0);
}

TEST(StringAllocations, WhatComesOutOfAnArrayCostsOneHolder)
{
    KDRStringArray texts;
    KDRBufferArray buffers;
    for (int i = 0; i < 3; ++i) {
        texts.push_back(marker);
        buffers.push_back(KDRBuffer("bytes"));
    }
    EXPECT_EQ(holdersOf([&] { texts[1]; }), 1);
    EXPECT_EQ(holdersOf([&] { texts.join(marker); }), 1);
    EXPECT_EQ(holdersOf([&] { buffers[1]; }), 1);
    EXPECT_EQ(holdersOf([&] { buffers.join(); }), 1);
}

TEST(StringAllocations, AHolderThatCannotBeMadePassesTheException)
{
    KDRString const text("some text");
    long const before = allocations::live();
    {
        allocations::FailAfter none(0);
        EXPECT_THROW(text.left(3), std::bad_alloc);
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(StringAllocations, AnExpressionThatCannotBeCopiedKeepsItsMatch)
{
    KDRString const text("some text");
    KDRRegExp const rx(KDRString("(t)e"));
    EXPECT_TRUE(text.contains(rx));
    for (int successes = 0; successes < 4; ++successes) {
        allocations::FailAfter few(successes);
        EXPECT_THROW(KDRRegExp copy(rx), std::bad_alloc) << successes;
    }
    EXPECT_EQ(rx.cap(1), KDRString("t"));
    EXPECT_EQ(rx.pos(1), 5);
    KDRRegExp const copy(rx);
    EXPECT_EQ(copy.pos(1), 5);
}

} // namespace
