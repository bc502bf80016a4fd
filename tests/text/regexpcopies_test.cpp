#include <kdrdata/text/text.h>

#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <utility>
#include <vector>

// Copies of an expression answer the match that their source had, whatever becomes of the source.
// What they would read by mistake is freed memory, inside Qt: Valgrind is the judge too.

namespace {

std::unique_ptr<KDRRegExp> searched()
{
    auto rx = std::make_unique<KDRRegExp>(KDRString("a(b+)"));
    rx->indexIn(KDRString("xabbb"));
    return rx;
}

// The match of a(b+) in xabbb.
void expectTheMatchInXabbb(KDRRegExp const& rx)
{
    EXPECT_EQ(rx.matchedLength(), 4);
    EXPECT_EQ(rx.pos(), 1);
    EXPECT_EQ(rx.pos(1), 2);
    EXPECT_EQ(rx.cap(), KDRString("abbb"));
    EXPECT_EQ(rx.cap(1), KDRString("bbb"));
    EXPECT_EQ(rx.capturedTexts().length(), 2);
}

void expectNoMatch(KDRRegExp const& rx)
{
    EXPECT_EQ(rx.matchedLength(), -1);
    EXPECT_EQ(rx.pos(1), -1);
    EXPECT_TRUE(rx.cap(1).isNull());
}

TEST(RegExpCopies, ACopyOutlivesItsSource)
{
    auto source = searched();
    KDRRegExp const constructed(*source);
    KDRRegExp assigned(KDRString("other"));
    EXPECT_EQ(&(assigned = *source), &assigned);
    KDRRegExp moved;
    EXPECT_EQ(&(moved = std::move(*source)), &moved);
    expectTheMatchInXabbb(*source);
    source.reset();
    expectTheMatchInXabbb(constructed);
    expectTheMatchInXabbb(assigned);
    expectTheMatchInXabbb(moved);
    EXPECT_EQ(constructed.pattern(), KDRString("a(b+)"));
    EXPECT_TRUE(constructed == assigned && assigned == moved);
}

TEST(RegExpCopies, ASearchOfTheSourceShowsInNoCopy)
{
    auto const source = searched();
    KDRRegExp const copy(*source);
    EXPECT_EQ(source->indexIn(KDRString("a much longer text abb")), 19);
    expectTheMatchInXabbb(copy);
    EXPECT_EQ(source->indexIn(KDRString("nothing")), -1);
    expectTheMatchInXabbb(copy);
    EXPECT_FALSE(source->exactMatch(KDRString("abx")));
    EXPECT_EQ(source->matchedLength(), 2);
    expectTheMatchInXabbb(copy);
}

TEST(RegExpCopies, ASearchOfACopyShowsNeitherInTheSourceNorInOthers)
{
    auto const source = searched();
    KDRRegExp const copy(*source);
    KDRRegExp const other(*source);
    KDRRegExp const ofCopy(copy);
    EXPECT_EQ(copy.indexIn(KDRString("ab")), 0);
    EXPECT_EQ(copy.cap(1), KDRString("b"));
    expectTheMatchInXabbb(*source);
    expectTheMatchInXabbb(other);
    expectTheMatchInXabbb(ofCopy);
    EXPECT_EQ(ofCopy.indexIn(KDRString("nothing")), -1);
    EXPECT_EQ(copy.cap(1), KDRString("b"));
    expectTheMatchInXabbb(other);
}

TEST(RegExpCopies, ACopyHasTheMatchOfItsTimeWhereOnlyItsPositionIsAnother)
{
    KDRString const text("aba");
    KDRRegExp const source(KDRString("a"));
    EXPECT_EQ(source.indexIn(text), 0);
    KDRRegExp const first(source);
    EXPECT_EQ(source.indexIn(text, 1), 2);
    KDRRegExp const second(source);
    EXPECT_EQ(first.pos(), 0);
    EXPECT_EQ(second.pos(), 2);
}

TEST(RegExpCopies, SearchesThroughStringsAndArraysLeaveTheCopiedMatchToo)
{
    auto source = searched();
    KDRRegExp const byString(*source);
    KDRRegExp const byArray(*source);
    KDRRegExp const byNothing(*source);
    source.reset();
    EXPECT_EQ(KDRString("..abb").indexOf(byString), 2);
    EXPECT_EQ(byString.cap(1), KDRString("bb"));
    KDRStringArray texts;
    EXPECT_EQ(texts.indexOf(byNothing), -1);
    expectTheMatchInXabbb(byNothing);
    texts.push_back(KDRString("ab"));
    EXPECT_EQ(texts.indexOf(byArray), 0);
    EXPECT_EQ(byArray.cap(1), KDRString("b"));
    EXPECT_EQ(KDRString("none").lastIndexOf(byString), -1);
    expectNoMatch(byString);
    EXPECT_FALSE(KDRString("none").contains(byArray));
    expectNoMatch(byArray);
}

TEST(RegExpCopies, ACopyTakesTheMatchOfTheMoment)
{
    auto source = searched();
    KDRRegExp const first(*source);
    source->indexIn(KDRString("ab"));
    KDRRegExp const second(*source);
    source->indexIn(KDRString("none"));
    KDRRegExp const third(*source);
    source->exactMatch(KDRString("abx"));
    KDRRegExp const fourth(*source);
    source.reset();
    expectTheMatchInXabbb(first);
    EXPECT_EQ(second.cap(1), KDRString("b"));
    EXPECT_EQ(second.matchedLength(), 2);
    expectNoMatch(third);
    EXPECT_EQ(fourth.matchedLength(), 2);
}

TEST(RegExpCopies, ASearchThatEndsAsTheLastOneDidIsCopiedToo)
{
    auto source = searched();
    KDRRegExp const first(*source);
    source->indexIn(KDRString("xabbb"));
    KDRRegExp const second(*source);
    source->indexIn(KDRString("yabbbz"));
    KDRRegExp const third(*source);
    source.reset();
    expectTheMatchInXabbb(first);
    expectTheMatchInXabbb(second);
    expectTheMatchInXabbb(third);
}

TEST(RegExpCopies, TextsThatDifferAtTheSamePositionsAreToldApart)
{
    KDRRegExp const source(KDRString("a(.)"));
    source.indexIn(KDRString("ax"));
    KDRRegExp const first(source);
    source.indexIn(KDRString("ay"));
    KDRRegExp const second(source);
    EXPECT_EQ(first.cap(1), KDRString("x"));
    EXPECT_EQ(second.cap(1), KDRString("y"));
    EXPECT_EQ(source.cap(1), KDRString("y"));
}

TEST(RegExpCopies, CopiesOfCopiesOutliveAllBeforeThem)
{
    auto newest = searched();
    for (int i = 0; i < 2000; ++i)
        newest = std::make_unique<KDRRegExp>(*newest);
    expectTheMatchInXabbb(*newest);
    KDRRegExp target;
    for (int i = 0; i < 2000; ++i) {
        target = *newest;
        *newest = target;
    }
    newest.reset();
    expectTheMatchInXabbb(target);
}

TEST(RegExpCopies, ACopyWithoutAMatchHasNone)
{
    KDRRegExp const source(KDRString("a(b+)"));
    KDRRegExp const copy(source);
    expectNoMatch(copy);
    KDRRegExp const empty{KDRRegExp()};
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(empty.matchedLength(), -1);
}

TEST(RegExpCopies, ChangesOfTheSourceOrACopyStayThere)
{
    auto const source = searched();
    KDRRegExp copy(*source);
    source->setPattern(KDRString("x"));
    expectNoMatch(*source);
    expectTheMatchInXabbb(copy);
    KDRRegExp other(copy);
    copy.setCaseSensitivity(KDRRegExp::KDRCaseInsensitive);
    expectNoMatch(copy);
    expectTheMatchInXabbb(other);
    *source = other;
    other.setMinimal(true);
    expectTheMatchInXabbb(other);
    EXPECT_FALSE(source->isMinimal());
    KDRRegExp const minimal(other);
    EXPECT_TRUE(minimal.isMinimal());
    expectTheMatchInXabbb(minimal);
    EXPECT_EQ(minimal.indexIn(KDRString("xabbb")), 1);
    EXPECT_EQ(minimal.matchedLength(), 2);
    EXPECT_EQ(other.matchedLength(), 4);
}

TEST(RegExpCopies, AssignmentToItselfKeepsTheMatch)
{
    auto const rx = searched();
    KDRRegExp& same = *rx;
    EXPECT_EQ(&(*rx = same), rx.get());
    expectTheMatchInXabbb(*rx);
    EXPECT_EQ(&(*rx = std::move(same)), rx.get());
    expectTheMatchInXabbb(*rx);
}

TEST(RegExpCopies, SwappedCopiesKeepTheirMatches)
{
    auto source = searched();
    KDRRegExp copy(*source);
    KDRRegExp other(KDRString("(o)"));
    other.indexIn(KDRString("other"));
    auto const third = std::make_unique<KDRRegExp>(other);
    copy.swap(other);
    third->swap(*source);
    expectTheMatchInXabbb(other);
    expectTheMatchInXabbb(*third);
    EXPECT_EQ(copy.cap(1), KDRString("o"));
    EXPECT_EQ(source->pos(1), 0);
    source.reset();
    EXPECT_EQ(copy.pos(1), 0);
    expectTheMatchInXabbb(other);
}

TEST(RegExpCopies, CopiesSearchInThreadsOfTheirOwn)
{
    auto source = searched();
    std::vector<KDRRegExp> copies(4, *source);
    std::vector<std::thread> threads;
    for (KDRRegExp& copy : copies)
        threads.emplace_back([&copy] {
            for (int i = 0; i < 200; ++i) {
                KDRRegExp const own(copy);
                expectTheMatchInXabbb(own);
                EXPECT_EQ(own.indexIn(KDRString("..abb")), 2);
                expectTheMatchInXabbb(copy);
            }
        });
    source.reset();
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
