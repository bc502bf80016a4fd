#include <kdrdata/text/text.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <QtCore/QRegExp>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <climits>

// KDRRegExp beside QRegExp: every pattern of the corpus in every syntax on every text.

namespace {

QStringList patterns()
{
    return {"",
            "a",
            "abc",
            ".",
            ".*",
            "a*",
            "a+",
            "a?",
            "a{2}",
            "a{2,}",
            "a{1,3}",
            "a{0}",
            "^a",
            "a$",
            "^$",
            "^a*$",
            "(a)",
            "(a)(b)",
            "(a(b(c)))",
            "(a)|(b)",
            "(a|ab)(c|bcd)(d*)",
            "(?:a)(b)",
            "(a*)(b*)",
            "(a+)+b",
            "(.)\\1",
            "(.)(.)\\2\\1",
            "(?=a)",
            "(?!a)",
            "x(?=y)",
            "x(?!y)",
            "[abc]",
            "[^abc]",
            "[a-z]+",
            "[^\\s]+",
            "\\d+",
            "\\D+",
            "\\w+",
            "\\W+",
            "\\s+",
            "\\S+",
            "\\bword\\b",
            "\\Bo",
            "\\x0041",
            "\\.",
            "a.b",
            "a\\*b",
            "*.txt",
            "?bc",
            "[ab]*",
            "a(",
            "a)",
            "[a",
            "a{2",
            "*",
            "+",
            "\\",
            "\\i\\c*",
            "\\p{Lu}",
            "[a-z-[aeiou]]",
            "(\\d+)-(\\d+)",
            "(\\w+)\\s(\\w+)",
            "\u00e9",
            "[\u00e0-\u00ff]",
            QString(QChar(0xD83D)),
            "\u20ac*",
            QString(QChar()),
            "a" + QString(QChar()) + "b",
            "\\0101",
            "(a)?b",
            "(|a)b"};
}

QStringList texts()
{
    QString const high(QChar(0xD83D));
    QString const low(QChar(0xDE00));
    QString const zero{QChar()};
    return {QString(),
            "",
            "a",
            "b",
            "ab",
            "abc",
            "abcd",
            "aa",
            "aaa",
            "aaaa",
            "aab",
            "aaab",
            "ba",
            "bab",
            "xabbb",
            "abab",
            "abba",
            "abcabc",
            "A",
            "ABC",
            "aBc",
            "xy",
            "xz",
            "xyxz",
            "word",
            "a word",
            "words",
            "foo",
            "foo bar",
            " lead",
            "trail ",
            " ",
            "\t\n",
            "1",
            "12-34",
            "a1b22c333",
            "12-34-56",
            "a.b",
            "axb",
            "a*b",
            "file.txt",
            "file.TXT",
            "?bc",
            "[ab]",
            "a(",
            "a)",
            "a{2",
            "*",
            "\\",
            "_x1",
            "Lu",
            "bcd",
            "\u00e9t\u00e9",
            "\u00c9T\u00c9",
            "\u20ac\u20ac",
            high + low,
            high,
            low,
            low + high,
            "a" + zero + "b",
            zero,
            zero + zero,
            "line\nline",
            "aeiou xyz"};
}

void expectSame(KDRString const& ours, QString const& qts)
{
    ASSERT_EQ(KDRInternal::wrapped(ours), qts);
    ASSERT_EQ(ours.isNull(), qts.isNull());
}

void expectSameMatch(KDRRegExp const& ours, QRegExp const& qts)
{
    ASSERT_EQ(ours.matchedLength(), qts.matchedLength());
    ASSERT_EQ(ours.captureCount(), qts.captureCount());
    for (int nth = -1; nth <= qts.captureCount() + 1; ++nth) {
        SCOPED_TRACE(nth);
        ASSERT_EQ(ours.pos(nth), qts.pos(nth));
        ASSERT_NO_FATAL_FAILURE(expectSame(ours.cap(nth), qts.cap(nth)));
    }
    QList<QString> const& texts = qts.capturedTexts();
    KDRStringArray const captured = ours.capturedTexts();
    ASSERT_EQ(KDRInternal::wrapped(captured), texts);
}

void expectSameExpression(KDRRegExp const& ours, QRegExp const& qts)
{
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.pattern(), qts.pattern()));
    ASSERT_EQ(ours.isValid(), qts.isValid());
    ASSERT_EQ(ours.isEmpty(), qts.isEmpty());
    ASSERT_EQ(ours.isMinimal(), qts.isMinimal());
    ASSERT_EQ(int{ours.patternSyntax()}, int{qts.patternSyntax()});
    ASSERT_EQ(int{ours.caseSensitivity()}, int{qts.caseSensitivity()});
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.errorString(), qts.errorString()));
}

class RegExpDifferential : public testing::TestWithParam<int>
{
protected:
    static void compare(KDRRegExp const& ours, QRegExp const& qts, QString const& text)
    {
        KDRString const handle = handleOf(text);
        ASSERT_EQ(ours.exactMatch(handle), qts.exactMatch(text));
        ASSERT_NO_FATAL_FAILURE(expectSameMatch(ours, qts));
        // Two copies of a match: one to answer it, one to leave it at once.
        KDRRegExp const copy(ours);
        ASSERT_EQ(ours.indexIn(handle), qts.indexIn(text));
        ASSERT_NO_FATAL_FAILURE(expectSameMatch(ours, qts));
        ASSERT_EQ(ours.lastIndexIn(handle), qts.lastIndexIn(text));
        ASSERT_NO_FATAL_FAILURE(expectSameMatch(ours, qts));
        qts.exactMatch(text);
        ASSERT_NO_FATAL_FAILURE(expectSameMatch(copy, qts));
        int const size = text.size();
        for (int offset : {1, -1, size, size + 1, -size, -size - 1, -2 * size, INT_MAX, INT_MIN})
            for (int caret = 0; caret <= 2; ++caret) {
                SCOPED_TRACE(testing::Message() << "offset " << offset << ", caret " << caret);
                auto const ourCaret = static_cast<KDRRegExp::KDRCaretMode>(caret);
                auto const qtsCaret = static_cast<QRegExp::CaretMode>(caret);
                ASSERT_EQ(ours.indexIn(handle, offset, ourCaret),
                          qts.indexIn(text, offset, qtsCaret));
                ASSERT_EQ(ours.matchedLength(), qts.matchedLength());
                ASSERT_EQ(ours.pos(1), qts.pos(1));
                ASSERT_EQ(ours.lastIndexIn(handle, offset, ourCaret),
                          qts.lastIndexIn(text, offset, qtsCaret));
                ASSERT_EQ(ours.matchedLength(), qts.matchedLength());
                ASSERT_EQ(ours.pos(1), qts.pos(1));
            }
    }

    static void compareCorpus(int syntax, bool sensitive, bool minimal)
    {
        auto const ourCase =
            sensitive ? KDRRegExp::KDRCaseSensitive : KDRRegExp::KDRCaseInsensitive;
        auto const qtsCase = sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
        for (QString const& pattern : patterns()) {
            SCOPED_TRACE(testing::PrintToString(pattern));
            KDRRegExp ours(handleOf(pattern), ourCase,
                           static_cast<KDRRegExp::KDRPatternSyntax>(syntax));
            QRegExp qts(pattern, qtsCase, static_cast<QRegExp::PatternSyntax>(syntax));
            ours.setMinimal(minimal);
            qts.setMinimal(minimal);
            ASSERT_NO_FATAL_FAILURE(expectSameExpression(ours, qts));
            for (QString const& text : texts()) {
                SCOPED_TRACE(testing::PrintToString(text));
                ASSERT_NO_FATAL_FAILURE(compare(ours, qts, text));
            }
        }
    }
};

TEST(RegExpCorpus, IsLargeEnough)
{
    EXPECT_GE(patterns().size(), 60);
    EXPECT_GE(texts().size(), 60);
}

TEST_P(RegExpDifferential, SensitiveSearchesAreQts) { compareCorpus(GetParam(), true, false); }
TEST_P(RegExpDifferential, InsensitiveMinimalSearchesAreQts)
{
    compareCorpus(GetParam(), false, true);
}

INSTANTIATE_TEST_SUITE_P(EverySyntax, RegExpDifferential, testing::Range(0, 8));

} // namespace
