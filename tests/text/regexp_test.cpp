#include <kdrdata/text/text.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

static_assert(sizeof(KDRRegExp) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRRegExp>);
static_assert(std::is_same_v<std::underlying_type_t<KDRRegExp::KDRCaseSensitivity>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KDRRegExp::KDRPatternSyntax>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KDRRegExp::KDRCaretMode>, int>);
static_assert(!std::is_same_v<KDRRegExp::KDRCaseSensitivity, KDRString::KDRCaseSensitivity>);
static_assert(!std::is_convertible_v<KDRString, KDRRegExp>);

KDRRegExp expression(char const* pattern,
                     KDRRegExp::KDRPatternSyntax syntax = KDRRegExp::KDRRegExpSyntax)
{
    return KDRRegExp(KDRString(pattern), KDRRegExp::KDRCaseSensitive, syntax);
}

void expectNoMatch(KDRRegExp const& rx)
{
    EXPECT_EQ(rx.matchedLength(), -1);
    EXPECT_EQ(rx.pos(), -1);
    EXPECT_EQ(rx.pos(1), -1);
    EXPECT_TRUE(rx.cap().isNull());
    EXPECT_TRUE(rx.cap(1).isNull());
    EXPECT_EQ(rx.capturedTexts().length(), rx.captureCount() + 1);
}

// The match of a(b+) in xabbb.
void expectTheMatchInXabbb(KDRRegExp const& rx)
{
    EXPECT_EQ(rx.matchedLength(), 4);
    EXPECT_EQ(rx.pos(), 1);
    EXPECT_EQ(rx.pos(1), 2);
    EXPECT_EQ(rx.cap(), KDRString("abbb"));
    EXPECT_EQ(rx.cap(1), KDRString("bbb"));
    KDRStringArray const texts = rx.capturedTexts();
    ASSERT_EQ(texts.length(), 2);
    EXPECT_EQ(texts[0], KDRString("abbb"));
    EXPECT_EQ(texts[1], KDRString("bbb"));
}

TEST(RegExp, DefaultIsEmptyAndValidAndHasNoMatch)
{
    KDRRegExp const rx;
    EXPECT_TRUE(rx.isEmpty());
    EXPECT_TRUE(rx.isValid());
    EXPECT_TRUE(rx.pattern().isEmpty());
    EXPECT_EQ(rx.caseSensitivity(), KDRRegExp::KDRCaseSensitive);
    EXPECT_EQ(rx.patternSyntax(), KDRRegExp::KDRRegExpSyntax);
    EXPECT_FALSE(rx.isMinimal());
    EXPECT_EQ(rx.captureCount(), 0);
    expectNoMatch(rx);
    EXPECT_EQ(rx.indexIn(KDRString("text")), 0) << "the empty text lies everywhere";
    EXPECT_EQ(rx.matchedLength(), 0);
}

TEST(RegExp, EnumerationsHaveQtsValues)
{
    EXPECT_EQ(KDRRegExp::KDRCaseInsensitive, 0);
    EXPECT_EQ(KDRRegExp::KDRCaseSensitive, 1);
    EXPECT_EQ(KDRRegExp::KDRRegExpSyntax, 0);
    EXPECT_EQ(KDRRegExp::KDRWildcardSyntax, 1);
    EXPECT_EQ(KDRRegExp::KDRFixedStringSyntax, 2);
    EXPECT_EQ(KDRRegExp::KDRRegExp2Syntax, 3);
    EXPECT_EQ(KDRRegExp::KDRWildcardUnixSyntax, 4);
    EXPECT_EQ(KDRRegExp::KDRW3CXmlSchema11Syntax, 5);
    EXPECT_EQ(KDRRegExp::KDRCaretAtZero, 0);
    EXPECT_EQ(KDRRegExp::KDRCaretAtOffset, 1);
    EXPECT_EQ(KDRRegExp::KDRCaretWontMatch, 2);
}

TEST(RegExp, SearchRecordsMatchAndCaptures)
{
    KDRRegExp const rx = expression("a(b+)");
    EXPECT_EQ(rx.captureCount(), 1);
    EXPECT_EQ(rx.indexIn(KDRString("xabbb"), 0), 1);
    expectTheMatchInXabbb(rx);
    EXPECT_EQ(rx.indexIn(KDRString("xabbb"), 2), -1);
    expectNoMatch(rx);
}

TEST(RegExp, MinimalMatchesAsLittleAsItCan)
{
    KDRRegExp rx = expression("a(b+)");
    rx.setMinimal(true);
    EXPECT_TRUE(rx.isMinimal());
    EXPECT_EQ(rx.indexIn(KDRString("xabbb")), 1);
    EXPECT_EQ(rx.matchedLength(), 2);
    rx.setMinimal(false);
    EXPECT_EQ(rx.matchedLength(), 2) << "the last match is kept";
    EXPECT_EQ(rx.indexIn(KDRString("xabbb")), 1);
    EXPECT_EQ(rx.matchedLength(), 4);
}

TEST(RegExp, LastIndexInSearchesBackwards)
{
    KDRRegExp const rx = expression("a(b?)");
    KDRString const text("ab ab a");
    EXPECT_EQ(rx.lastIndexIn(text), 6);
    EXPECT_EQ(rx.lastIndexIn(text, 5), 3);
    EXPECT_EQ(rx.cap(1), KDRString("b"));
    EXPECT_EQ(rx.lastIndexIn(text, -5), 0);
    EXPECT_EQ(rx.lastIndexIn(text, 8), -1);
    expectNoMatch(rx);
    KDRRegExp const empty;
    EXPECT_EQ(empty.lastIndexIn(text), 6) << "-1 begins at the last code unit";
    EXPECT_EQ(empty.lastIndexIn(text, 7), 7);
}

TEST(RegExp, OffsetsOutsideTheTextFindNothing)
{
    KDRRegExp const rx = expression("[ab]");
    KDRString const text("aba");
    EXPECT_EQ(rx.indexIn(text, -1), 2);
    EXPECT_EQ(rx.indexIn(text, -3), 0);
    for (int offset : {-4, -100, INT_MIN, 3, 4, INT_MAX}) {
        SCOPED_TRACE(offset);
        EXPECT_EQ(rx.indexIn(text, offset), -1);
    }
    for (int offset : {-4, -100, INT_MIN, 4, INT_MAX}) {
        SCOPED_TRACE(offset);
        EXPECT_EQ(rx.lastIndexIn(text, offset), -1);
    }
    EXPECT_EQ(expression("a").indexIn(text, -4), 2) << "a plain text counts from the end twice";
    EXPECT_EQ(KDRRegExp().indexIn(text, 3), 3);
    EXPECT_EQ(KDRRegExp().indexIn(text, 4), -1);
}

TEST(RegExp, ExactMatchTakesTheWholeTextOrTellsHowFarItCame)
{
    KDRRegExp const rx = expression("a(b+)c");
    EXPECT_TRUE(rx.exactMatch(KDRString("abbc")));
    EXPECT_EQ(rx.matchedLength(), 4);
    EXPECT_EQ(rx.cap(1), KDRString("bb"));
    EXPECT_FALSE(rx.exactMatch(KDRString("abbx")));
    EXPECT_EQ(rx.matchedLength(), 3);
    EXPECT_EQ(rx.pos(), 0);
    EXPECT_EQ(rx.cap(), KDRString("abb"));
    EXPECT_TRUE(rx.cap(1).isNull());
    EXPECT_FALSE(rx.exactMatch(KDRString("xabbc")));
    EXPECT_EQ(rx.matchedLength(), 0);
}

TEST(RegExp, CaretModesSayWhereACaretMatches)
{
    KDRRegExp const rx = expression("^a");
    KDRString const text("aba");
    EXPECT_EQ(rx.indexIn(text, 0, KDRRegExp::KDRCaretAtZero), 0);
    EXPECT_EQ(rx.indexIn(text, 2, KDRRegExp::KDRCaretAtZero), -1);
    EXPECT_EQ(rx.indexIn(text, 2, KDRRegExp::KDRCaretAtOffset), 2);
    EXPECT_EQ(rx.indexIn(text, 0, KDRRegExp::KDRCaretWontMatch), -1);
    EXPECT_EQ(rx.lastIndexIn(text, 2, KDRRegExp::KDRCaretAtOffset), 2);
    EXPECT_EQ(rx.lastIndexIn(text, 2, KDRRegExp::KDRCaretAtZero), 0);
    EXPECT_EQ(rx.lastIndexIn(text, 2, KDRRegExp::KDRCaretWontMatch), -1);
    for (int value : {-1, 3, INT_MIN, INT_MAX})
        EXPECT_EQ(rx.indexIn(text, 0, static_cast<KDRRegExp::KDRCaretMode>(value)), -1);
}

TEST(RegExp, SyntaxesReadThePatternTheirWay)
{
    EXPECT_TRUE(expression("a.b", KDRRegExp::KDRRegExpSyntax).exactMatch(KDRString("axb")));
    KDRRegExp const fixed = expression("a.b", KDRRegExp::KDRFixedStringSyntax);
    EXPECT_FALSE(fixed.exactMatch(KDRString("axb")));
    EXPECT_TRUE(fixed.exactMatch(KDRString("a.b")));
    EXPECT_TRUE(expression("a?b*", KDRRegExp::KDRWildcardSyntax).exactMatch(KDRString("axbyz")));
    KDRString const star("a\\*");
    EXPECT_TRUE(expression("a\\\\*", KDRRegExp::KDRWildcardUnixSyntax).exactMatch(star));
    EXPECT_TRUE(expression("a\\*", KDRRegExp::KDRWildcardUnixSyntax).exactMatch(KDRString("a*")));
    EXPECT_TRUE(expression("a\\*", KDRRegExp::KDRWildcardSyntax).exactMatch(KDRString("a\\*")));
    EXPECT_TRUE(
        expression("\\i\\c*", KDRRegExp::KDRW3CXmlSchema11Syntax).exactMatch(KDRString("_x1")));
}

TEST(RegExp, ASyntaxOutsideTheEnumerationCountsAsTheFirst)
{
    for (int value : {-1, 8, INT_MIN, INT_MAX}) {
        KDRRegExp const rx = expression("a+", static_cast<KDRRegExp::KDRPatternSyntax>(value));
        EXPECT_EQ(rx.patternSyntax(), KDRRegExp::KDRRegExpSyntax);
        EXPECT_TRUE(rx.exactMatch(KDRString("aaa")));
    }
}

TEST(RegExp, TheTwoSyntaxesWithoutANameAreKept)
{
    for (int value : {6, 7}) {
        auto const syntax = static_cast<KDRRegExp::KDRPatternSyntax>(value);
        KDRRegExp rx = expression("a+", syntax);
        EXPECT_EQ(int{rx.patternSyntax()}, value);
        EXPECT_TRUE(rx.exactMatch(KDRString("aaa")));
        EXPECT_TRUE(rx != expression("a+"));
        rx.setPatternSyntax(KDRRegExp::KDRRegExpSyntax);
        EXPECT_FALSE(rx != expression("a+"));
        rx.setPatternSyntax(syntax);
        EXPECT_EQ(int{rx.patternSyntax()}, value);
    }
}

TEST(RegExp, UnequalIsEachPartForItself)
{
    KDRRegExp const rx = expression("aB");
    EXPECT_FALSE(rx != expression("aB"));
    EXPECT_TRUE(rx != expression("ab")) << "the case of the pattern";
    EXPECT_TRUE(rx != expression("aB", KDRRegExp::KDRRegExp2Syntax)) << "the syntax";
    KDRRegExp const insensitive(KDRString("aB"), KDRRegExp::KDRCaseInsensitive);
    EXPECT_TRUE(rx != insensitive) << "the sensitivity to case";
    EXPECT_TRUE(insensitive != KDRRegExp(KDRString("ab"), KDRRegExp::KDRCaseInsensitive));
    KDRRegExp minimal = expression("aB");
    minimal.setMinimal(true);
    EXPECT_TRUE(rx != minimal) << "the minimality";
}

TEST(RegExp, APatternThatDiffersInCaseOnlyIsAnotherOne)
{
    KDRRegExp rx(KDRString("ab"), KDRRegExp::KDRCaseInsensitive);
    EXPECT_EQ(rx.indexIn(KDRString("xAB")), 1);
    rx.setPattern(KDRString("AB"));
    EXPECT_EQ(rx.pattern(), KDRString("AB"));
    EXPECT_EQ(rx.matchedLength(), -1) << "it forgets the last match";
}

TEST(RegExp, AnyCaseSensitivityButZeroIsSensitive)
{
    KDRString const pattern("AB");
    KDRRegExp rx(pattern, KDRRegExp::KDRCaseInsensitive);
    EXPECT_TRUE(rx.exactMatch(KDRString("ab")));
    for (int value : {-1, 1, 2, INT_MIN}) {
        rx.setCaseSensitivity(static_cast<KDRRegExp::KDRCaseSensitivity>(value));
        EXPECT_EQ(rx.caseSensitivity(), KDRRegExp::KDRCaseSensitive);
        EXPECT_FALSE(rx.exactMatch(KDRString("ab")));
    }
}

TEST(RegExp, AnInvalidPatternSaysWhyAndFindsNothing)
{
    KDRRegExp rx = expression("a(");
    EXPECT_FALSE(rx.isValid());
    EXPECT_FALSE(rx.isEmpty());
    EXPECT_FALSE(rx.errorString().isEmpty());
    EXPECT_NE(rx.errorString(), expression("a").errorString());
    EXPECT_EQ(rx.indexIn(KDRString("a(")), -1);
    EXPECT_EQ(rx.lastIndexIn(KDRString("a(")), -1);
    EXPECT_FALSE(rx.exactMatch(KDRString("a(")));
    rx.setPatternSyntax(KDRRegExp::KDRFixedStringSyntax);
    EXPECT_TRUE(rx.isValid());
    EXPECT_TRUE(rx.exactMatch(KDRString("a(")));
}

TEST(RegExp, AGroupThatCapturesNoCodeUnitTakesNoPart)
{
    KDRRegExp const rx = expression("(a*)(b)?(x)");
    EXPECT_EQ(rx.indexIn(KDRString("-x")), 1);
    EXPECT_EQ(rx.pos(3), 1);
    for (int nth : {1, 2, -1, 4, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(nth);
        EXPECT_TRUE(rx.cap(nth).isNull());
        EXPECT_EQ(rx.pos(nth), -1);
    }
    KDRRegExp const empty = expression("a*");
    EXPECT_EQ(empty.indexIn(KDRString("x")), 0);
    EXPECT_EQ(empty.pos(), 0);
    EXPECT_TRUE(empty.cap().isEmpty());
    EXPECT_FALSE(empty.cap().isNull());
}

TEST(RegExp, AChangeOfWhatIsCompiledForgetsTheMatch)
{
    KDRString const text("xabbb");
    KDRRegExp rx = expression("a(b+)");
    rx.indexIn(text);
    rx.setPattern(KDRString("x(a)"));
    EXPECT_EQ(rx.pattern(), KDRString("x(a)"));
    expectNoMatch(rx);
    rx.indexIn(text);
    EXPECT_EQ(rx.cap(1), KDRString("a"));
    rx.setPatternSyntax(KDRRegExp::KDRRegExp2Syntax);
    expectNoMatch(rx);
    rx.indexIn(text);
    EXPECT_EQ(rx.cap(1), KDRString("a"));
    rx.setCaseSensitivity(KDRRegExp::KDRCaseInsensitive);
    expectNoMatch(rx);
    EXPECT_EQ(rx.patternSyntax(), KDRRegExp::KDRRegExp2Syntax);
}

TEST(RegExp, SettingWhatIsSetKeepsTheMatch)
{
    KDRRegExp rx = expression("a(b+)");
    rx.setMinimal(false);
    rx.indexIn(KDRString("xabbb"));
    rx.setPattern(KDRString("a(b+)"));
    rx.setPatternSyntax(KDRRegExp::KDRRegExpSyntax);
    rx.setCaseSensitivity(KDRRegExp::KDRCaseSensitive);
    expectTheMatchInXabbb(rx);
}

TEST(RegExp, ChangesKeepMinimality)
{
    KDRRegExp rx = expression("a+");
    rx.setMinimal(true);
    rx.setPattern(KDRString("b+"));
    rx.setPatternSyntax(KDRRegExp::KDRRegExp2Syntax);
    rx.setCaseSensitivity(KDRRegExp::KDRCaseInsensitive);
    EXPECT_TRUE(rx.isMinimal());
}

TEST(RegExp, EqualityIsPatternSyntaxCaseAndMinimality)
{
    KDRRegExp const rx = expression("a(b+)");
    KDRRegExp other = expression("a(b+)");
    other.indexIn(KDRString("xabbb"));
    EXPECT_TRUE(rx == other) << "the match does not count";
    EXPECT_FALSE(rx != other);
    other.setMinimal(true);
    EXPECT_FALSE(rx == other);
    EXPECT_TRUE(rx != other);
    EXPECT_FALSE(rx == expression("a(b*)"));
    EXPECT_FALSE(rx == expression("a(b+)", KDRRegExp::KDRRegExp2Syntax));
    EXPECT_FALSE(rx == KDRRegExp(KDRString("a(b+)"), KDRRegExp::KDRCaseInsensitive));
}

TEST(RegExp, SwapExchangesExpressionsAndMatches)
{
    KDRRegExp a = expression("a(b+)");
    KDRRegExp b = expression("x", KDRRegExp::KDRFixedStringSyntax);
    a.indexIn(KDRString("xabbb"));
    QRegExp const* const holder = KDRInternal::pointer(a);
    a.swap(b);
    EXPECT_EQ(KDRInternal::pointer(a), holder) << "the handles keep their holders";
    expectTheMatchInXabbb(b);
    EXPECT_EQ(b.pattern(), KDRString("a(b+)"));
    expectNoMatch(a);
    EXPECT_EQ(a.patternSyntax(), KDRRegExp::KDRFixedStringSyntax);
    b.swap(b);
    expectTheMatchInXabbb(b);
}

} // namespace
