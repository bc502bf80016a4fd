#include <kdrdata/text/text.h>

#include "../support/allocations.h"
#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <climits>
#include <new>
#include <utility>

// The address sanitizer is to fail an allocation as malloc does, not to stop the program.
extern "C" char const* __asan_default_options();
extern "C" char const* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

// Text and bytes come from malloc inside Qt, so that the operators count the holders alone.
template <class Operation>
long holdersOf(Operation operation)
{
    long const before = allocations::made();
    operation();
    return allocations::made() - before;
}

template <class Operation>
void expectThrowsAndLeaksNothing(Operation operation)
{
    long const before = allocations::live();
    EXPECT_THROW(operation(), std::bad_alloc);
    EXPECT_EQ(allocations::live(), before);
}

TEST(TextAllocations, EveryStringCostsOneHolder)
{
    unsigned short const units[] = {0x41, 0x42, 0};
    KDRBuffer const bytes("bytes");
    KDRString const text("text");
    KDRChar const character('c');
    EXPECT_EQ(holdersOf([] { KDRString s; }), 1);
    EXPECT_EQ(holdersOf([&] { KDRString s(text); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRString s(bytes); }), 1);
    EXPECT_EQ(holdersOf([] { KDRString s("text"); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRString s(units); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRString s(character); }), 2) << "the argument is a character too";
}

TEST(TextAllocations, EveryBufferCostsOneHolder)
{
    KDRBuffer bytes("bytes");
    EXPECT_EQ(holdersOf([] { KDRBuffer b; }), 1);
    EXPECT_EQ(holdersOf([] { KDRBuffer b("bytes"); }), 1);
    EXPECT_EQ(holdersOf([] { KDRBuffer b(5, 'x'); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRBuffer b(bytes); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRBuffer b(std::move(bytes)); }), 1);
}

TEST(TextAllocations, AssignmentsAndSwapCostNothing)
{
    KDRString text("text");
    KDRString target;
    EXPECT_EQ(holdersOf([&] { target = text; }), 0);
    EXPECT_EQ(holdersOf([&] { target = "text"; }), 0);
    EXPECT_EQ(holdersOf([&] { target.swap(text); }), 0);
    KDRBuffer bytes("bytes");
    KDRBuffer other;
    EXPECT_EQ(holdersOf([&] { other = bytes; }), 0);
    EXPECT_EQ(holdersOf([&] { other = std::move(bytes); }), 0);
}

TEST(TextAllocations, EveryResultCostsOneHolder)
{
    KDRString const text("text %1");
    text.toLocal8Bit(); // has Qt make its codecs
    EXPECT_EQ(holdersOf([&] { text.toLatin1(); }), 1);
    EXPECT_EQ(holdersOf([&] { text.toUtf8(); }), 1);
    EXPECT_EQ(holdersOf([&] { text.toLocal8Bit(); }), 1);
    EXPECT_EQ(holdersOf([&] { text.at(0); }), 1);
    EXPECT_EQ(holdersOf([&] { text.toUtf16(); }), 0);
    EXPECT_EQ(holdersOf([&] { text.arg(1); }), 1);
    EXPECT_EQ(holdersOf([&] { text.arg(1.5); }), 1);
    EXPECT_EQ(holdersOf([] { KDRChar(0xE9).decomposition(); }), 2) << "one is the character's own";
}

TEST(TextAllocations, EveryCharacterCostsOneCellCopiesIncluded)
{
    KDRChar letter('A');
    KDRChar other;
    EXPECT_EQ(holdersOf([] { KDRChar c; }), 1);
    EXPECT_EQ(holdersOf([] { KDRChar c('A'); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRChar c(letter); }), 1);
    EXPECT_EQ(holdersOf([&] { KDRChar c(std::move(other)); }), 1);
    EXPECT_EQ(holdersOf([&] { letter.toLower(); }), 1);
    EXPECT_EQ(holdersOf([&] { letter.fromLatin1('b'); }), 1);
    EXPECT_EQ(holdersOf([&] { other = letter; }), 0);
    bool smaller = false;
    EXPECT_EQ(holdersOf([&] { smaller = letter < other; }), 1)
        << "the copy that it is held against";
    EXPECT_EQ(holdersOf([&] { smaller = letter.isLower('a'); }), 0);
    EXPECT_TRUE(smaller);
}

TEST(TextAllocations, NothingIsLeftBehind)
{
    long const before = allocations::live();
    {
        KDRString text("text %1");
        KDRString copy(text.arg(7));
        copy.swap(text);
        text = copy.toUtf8();
        KDRBuffer bytes(text.toLatin1());
        bytes.data()[0] = 'T';
        KDRChar letter(text.at(0));
        letter = letter.toUpper();
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(TextAllocations, AHolderThatCannotBeMadePassesTheException)
{
    KDRString const text("text");
    KDRBuffer const bytes("bytes");
    KDRChar const letter('A');
    expectThrowsAndLeaksNothing([&] {
        allocations::FailAfter none(0);
        KDRString copy(text);
    });
    expectThrowsAndLeaksNothing([&] {
        allocations::FailAfter none(0);
        text.toUtf8();
    });
    expectThrowsAndLeaksNothing([&] {
        allocations::FailAfter none(0);
        KDRBuffer copy(bytes);
    });
    expectThrowsAndLeaksNothing([&] {
        allocations::FailAfter none(0);
        KDRChar copy(letter);
    });
    expectThrowsAndLeaksNothing([&] {
        allocations::FailAfter one(1);
        text.arg(1);
    });
    EXPECT_TRUE(text == KDRString("text"));
}

TEST(TextAllocations, TheHolderIsFreedWhenTheContentCannotBeMade)
{
    // More than the two gigabytes that Qt's containers can address, so that it refuses at once.
    unsigned short const units[] = {0x41, 0x42};
    expectThrowsAndLeaksNothing([&] { KDRString text(units, INT_MAX / 2); });
    expectThrowsAndLeaksNothing([] { KDRBuffer bytes(INT_MAX, 'x'); });
}

TEST(TextAllocations, AFailedReplacementLeavesTheText)
{
    unsigned short const units[] = {0x41, 0x42};
    KDRString text("text");
    EXPECT_THROW(text.fromUtf16(units, INT_MAX / 2), std::bad_alloc);
    EXPECT_EQ(text, KDRString("text"));
}

TEST(BufferSizes, TwoThatFitMayBeTooMuchTogether)
{
    KDRBuffer buffer;
    buffer.resize((1 << 30) + 1); // takes no memory till written
    for (int const at : {0, 1})
        EXPECT_THROW(buffer.insert(at, buffer), std::bad_alloc) << at;
    EXPECT_THROW(buffer.append(buffer), std::bad_alloc);
    EXPECT_THROW(buffer.prepend(buffer), std::bad_alloc);
    EXPECT_EQ(buffer.size(), (1 << 30) + 1);
}

} // namespace
