// Searches with an expression from far before the text. Qt counts a negative offset from the end
// once, and for patterns that are plain texts twice; further back it leaves the text.

#include <kdrdata/text/text.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <QtCore/QRegExp>

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace {

struct Pattern
{
    QString text;
    QRegExp::PatternSyntax syntax;
    bool plain; ///< Qt takes it for a plain text
};

std::vector<Pattern> patterns()
{
    QString const zero{QChar()};
    return {{"c", QRegExp::FixedString, true},
            {"c", QRegExp::RegExp, true},
            {"bc", QRegExp::FixedString, true},
            {"abc", QRegExp::RegExp, true},
            {zero, QRegExp::FixedString, true},
            {zero + "a", QRegExp::FixedString, true},
            {zero + "ab", QRegExp::RegExp, true},
            {zero + zero + "a", QRegExp::FixedString, true},
            {"aaaaaaaa", QRegExp::FixedString, true},
            {"", QRegExp::FixedString, true},
            {"", QRegExp::RegExp, true},
            {"c*", QRegExp::RegExp, false},
            {"(c)", QRegExp::RegExp, false},
            {"^a", QRegExp::RegExp, false},
            {"[abc]", QRegExp::RegExp, false},
            {"*c", QRegExp::Wildcard, false},
            {"(?!x)", QRegExp::RegExp, false},
            {"a(", QRegExp::RegExp, false}};
}

std::vector<QString> texts()
{
    QString const zero{QChar()};
    return {QString(), "", "c", "abc", "abcabc", zero + "ab", QString("a").repeated(600) + "bc"};
}

std::vector<int> offsetsAround(int size)
{
    std::vector<int> offsets = {INT_MIN, INT_MIN + 1, -100000, INT_MAX};
    for (int const middle : {0, -size, -2 * size, -3 * size, size})
        for (int i = -10; i <= 10; ++i)
            offsets.push_back(middle + i);
    return offsets;
}

void expectSameMatch(KDRRegExp const& ours, QRegExp const& qts)
{
    ASSERT_EQ(ours.matchedLength(), qts.matchedLength());
    ASSERT_EQ(ours.pos(0), qts.pos(0));
    ASSERT_EQ(ours.cap(0), handleOf(qts.cap(0)));
    ASSERT_EQ(ours.pos(1), qts.pos(1));
}

// Whether Qt reads what lies before the text.
bool leavesTheText(Pattern const& pattern, int size, int offset)
{
    return pattern.plain && pattern.text.size() > 1 && size > 0 && offset + 2LL * size < 0;
}

template <class Search>
void expectQtsWhereQtStaysInBounds(Search const& search)
{
    for (Pattern const& pattern : patterns())
        for (QString const& text : texts()) {
            KDRRegExp ours(handleOf(pattern.text), KDRRegExp::KDRCaseSensitive,
                           static_cast<KDRRegExp::KDRPatternSyntax>(pattern.syntax));
            QRegExp qts(pattern.text, Qt::CaseSensitive, pattern.syntax);
            KDRString const handle = handleOf(text);
            for (int const offset : offsetsAround(text.size())) {
                SCOPED_TRACE(testing::Message() << testing::PrintToString(pattern.text) << " in "
                                                << text.size() << " units from " << offset);
                bool const outside = leavesTheText(pattern, text.size(), offset);
                // What finds nothing in Qt either.
                int const inside = outside ? text.size() + 1 : offset;
                ours.indexIn(handle); // leaves a match that has to go
                ASSERT_EQ(search(ours, handle, offset), qts.indexIn(text, inside));
                ASSERT_NO_FATAL_FAILURE(expectSameMatch(ours, qts));
                if (outside) {
                    ASSERT_EQ(ours.matchedLength(), -1);
                }
            }
        }
}

TEST(RegExpOffsets, IndexInIsQtsAsFarAsQtStaysInTheText)
{
    expectQtsWhereQtStaysInBounds(
        [](KDRRegExp& rx, KDRString const& text, int from) { return rx.indexIn(text, from); });
}

TEST(RegExpOffsets, IndexOfIsQtsAsFarAsQtStaysInTheText)
{
    expectQtsWhereQtStaysInBounds(
        [](KDRRegExp& rx, KDRString const& text, int from) { return text.indexOf(rx, from); });
    expectQtsWhereQtStaysInBounds([](KDRRegExp& rx, KDRString const& text, int from) {
        KDRRegExp const& constant = rx;
        return text.indexOf(constant, from);
    });
}

TEST(RegExpOffsets, BackwardsTheyAreQts)
{
    for (Pattern const& pattern : patterns())
        for (QString const& text : texts()) {
            KDRRegExp ours(handleOf(pattern.text), KDRRegExp::KDRCaseSensitive,
                           static_cast<KDRRegExp::KDRPatternSyntax>(pattern.syntax));
            KDRRegExp const& constant = ours;
            QRegExp qts(pattern.text, Qt::CaseSensitive, pattern.syntax);
            KDRString const handle = handleOf(text);
            for (int const offset : offsetsAround(text.size())) {
                SCOPED_TRACE(testing::Message() << testing::PrintToString(pattern.text) << " in "
                                                << text.size() << " units from " << offset);
                int const expected = qts.lastIndexIn(text, offset);
                ASSERT_EQ(ours.lastIndexIn(handle, offset), expected);
                ASSERT_NO_FATAL_FAILURE(expectSameMatch(ours, qts));
                ASSERT_EQ(handle.lastIndexOf(ours, offset), expected);
                ASSERT_EQ(handle.lastIndexOf(constant, offset), expected);
                ASSERT_NO_FATAL_FAILURE(expectSameMatch(ours, qts));
            }
        }
}

TEST(RegExpOffsets, APlainTextOfOneUnitIsFoundAtTheEndFromOnePlace)
{
    KDRRegExp const rx(KDRString("c"), KDRRegExp::KDRCaseSensitive,
                       KDRRegExp::KDRFixedStringSyntax);
    EXPECT_EQ(rx.indexIn(KDRString("abc"), -7), 2);
    EXPECT_EQ(rx.indexIn(KDRString("abc"), -8), -1);
}

} // namespace
