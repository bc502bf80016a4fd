#include <kdrdata/text/text.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/qtprinters.h"

#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <type_traits>

namespace {

static_assert(std::is_same_v<std::underlying_type_t<KDRString::KDRCaseSensitivity>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KDRString::KDRSplitBehavior>, int>);

char const* const nullBytes = nullptr;
auto const insensitive = KDRString::KDRCaseInsensitive;
auto const sensitive = KDRString::KDRCaseSensitive;

KDRString::KDRCaseSensitivity caseOf(int value)
{
    return static_cast<KDRString::KDRCaseSensitivity>(value);
}

KDRRegExp expression(char const* pattern) { return KDRRegExp(KDRString(pattern)); }

void expectTexts(KDRStringArray const& array, std::initializer_list<char const*> texts)
{
    QStringList expected;
    for (char const* text : texts)
        expected.append(QString(text));
    EXPECT_EQ(KDRInternal::wrapped(array), expected);
}

TEST(StringSearch, EnumerationsHaveQtsValues)
{
    EXPECT_EQ(KDRString::KDRCaseInsensitive, 0);
    EXPECT_EQ(KDRString::KDRCaseSensitive, 1);
    EXPECT_EQ(KDRString::KDRKeepEmptyParts, 0);
    EXPECT_EQ(KDRString::KDRSkipEmptyParts, 1);
    EXPECT_EQ(KDRString::KDRFormatGeneral, 0);
    EXPECT_EQ(KDRString::KDRFormatFixed, 1);
}

TEST(StringSearch, ContainsWithAndWithoutCase)
{
    KDRString const text("xaby");
    EXPECT_TRUE(text.contains(KDRString("AB"), insensitive));
    EXPECT_FALSE(text.contains(KDRString("AB"), sensitive));
    EXPECT_FALSE(text.contains(KDRString("AB"))) << "with case unless told otherwise";
    EXPECT_TRUE(text.contains(KDRString("ab")));
    EXPECT_TRUE(text.contains(KDRString()));
    EXPECT_TRUE(KDRString().contains(KDRString("")));
    EXPECT_FALSE(KDRString().contains(KDRString("a")));
}

TEST(StringSearch, AnyCaseSensitivityButOneIsInsensitive)
{
    KDRString const text("xaby");
    for (int value : {-1, 0, 2, INT_MIN, INT_MAX}) {
        EXPECT_TRUE(text.contains(KDRString("AB"), caseOf(value)));
        EXPECT_EQ(text.indexOf(KDRString("AB"), 0, caseOf(value)), 1);
        EXPECT_EQ(text.lastIndexOf(KDRString("AB"), -1, caseOf(value)), 1);
        EXPECT_TRUE(text.startsWith(KDRString("XA"), caseOf(value)));
        EXPECT_TRUE(text.endsWith(KDRString("BY"), caseOf(value)));
        EXPECT_EQ(KDRString(text).remove(KDRString("AB"), caseOf(value)), KDRString("xy"));
        EXPECT_EQ(KDRString(text).replace(KDRString("AB"), KDRString("-"), caseOf(value)),
                  KDRString("x-y"));
        expectTexts(text.split(KDRChar('A'), KDRString::KDRKeepEmptyParts, caseOf(value)),
                    {"x", "by"});
    }
}

TEST(StringSearch, PositionsBothWays)
{
    KDRString const text("abcab");
    KDRString const ab("ab");
    EXPECT_EQ(text.indexOf(ab), 0);
    EXPECT_EQ(text.indexOf(ab, 1), 3);
    EXPECT_EQ(text.indexOf(ab, 4), -1);
    EXPECT_EQ(text.indexOf(ab, -2), 3);
    EXPECT_EQ(text.indexOf(ab, -5), 0);
    EXPECT_EQ(text.indexOf(ab, -8), -1);
    EXPECT_EQ(text.indexOf(ab, INT_MIN), -1);
    EXPECT_EQ(text.indexOf(ab, INT_MAX), -1);
    EXPECT_EQ(text.lastIndexOf(ab), 3);
    EXPECT_EQ(text.lastIndexOf(ab, 2), 0);
    EXPECT_EQ(text.lastIndexOf(ab, -3), 0);
    EXPECT_EQ(text.lastIndexOf(ab, -6), -1);
    EXPECT_EQ(text.lastIndexOf(ab, 6), -1);
    EXPECT_EQ(text.lastIndexOf(ab, INT_MIN), -1);
}

TEST(StringSearch, JustBeforeTheStartIsTheStartButForSingleCodeUnitsTheEnd)
{
    KDRString const text("abcab");
    EXPECT_EQ(text.indexOf(KDRString("ab"), -6), 0);
    EXPECT_EQ(text.indexOf(KDRString("ab"), -7), 0);
    EXPECT_EQ(text.indexOf(KDRString("a"), -6), -1);
    EXPECT_EQ(text.indexOf(KDRString("b"), -6), 4);
    // The memory before a text holds zeros; they are no part of it.
    unsigned short const units[] = {0, 0, 'a', 'b'};
    KDRString const zeros(units, 4);
    EXPECT_EQ(text.indexOf(zeros, -7), -1);
    EXPECT_EQ(text.indexOf(KDRString(units, 3), -7), -1);
}

TEST(StringSearch, AnEmptyTextIsFoundWhereTheSearchStarts)
{
    KDRString const text("abc");
    for (KDRString const& empty : {KDRString(), KDRString("")}) {
        EXPECT_EQ(text.indexOf(empty), 0);
        EXPECT_EQ(text.indexOf(empty, 3), 3);
        EXPECT_EQ(text.indexOf(empty, 4), -1);
        EXPECT_EQ(text.lastIndexOf(empty), 2);
        EXPECT_EQ(text.lastIndexOf(empty, 3), 3);
        EXPECT_EQ(text.lastIndexOf(empty, 4), -1);
    }
}

TEST(StringSearch, NullTextsStartAndEndWithNullOnesOnly)
{
    KDRString const null;
    KDRString const empty("");
    KDRString const text("text");
    EXPECT_TRUE(text.startsWith(null) && text.startsWith(empty) && text.endsWith(null));
    EXPECT_TRUE(empty.startsWith(null) && empty.startsWith(empty) && empty.endsWith(null));
    EXPECT_TRUE(null.startsWith(null) && null.endsWith(null));
    EXPECT_FALSE(null.startsWith(empty) || null.endsWith(empty));
    EXPECT_TRUE(text.startsWith(KDRString("te")) && text.endsWith(KDRString("xt")));
    EXPECT_FALSE(text.startsWith(KDRString("Te")) || text.endsWith(KDRString("xT")));
    EXPECT_TRUE(text.startsWith(KDRString("Te"), insensitive));
    EXPECT_TRUE(text.endsWith(KDRString("xT"), insensitive));
}

TEST(StringSearch, SearchesLeaveTheMatchInTheExpressionAlsoAConstantOne)
{
    KDRString const text("xabbb ab");
    KDRRegExp const constant = expression("a(b+)");
    KDRRegExp rx = expression("a(b+)");
    EXPECT_TRUE(text.contains(constant));
    EXPECT_EQ(constant.cap(1), KDRString("bbb"));
    EXPECT_EQ(text.indexOf(constant, 2), 6);
    EXPECT_EQ(constant.cap(1), KDRString("b"));
    EXPECT_EQ(constant.matchedLength(), 2);
    EXPECT_EQ(text.lastIndexOf(constant, 5), 1);
    EXPECT_EQ(constant.cap(1), KDRString("bbb"));
    EXPECT_EQ(text.indexOf(rx), 1);
    EXPECT_EQ(rx.pos(1), 2);
    EXPECT_EQ(text.lastIndexOf(rx), 6);
    EXPECT_EQ(rx.pos(1), 7);
    EXPECT_EQ(text.indexOf(constant, 7), -1);
    EXPECT_EQ(constant.matchedLength(), -1);
    EXPECT_FALSE(KDRString("none").contains(rx));
    EXPECT_EQ(rx.matchedLength(), -1);
}

TEST(StringEditing, InsertShiftsAndReturnsTheString)
{
    KDRString text("ad");
    EXPECT_EQ(&text.insert(1, KDRString("b")), &text);
    EXPECT_EQ(&text.insert(2, "\xC3\xA4"), &text);
    EXPECT_EQ(&text.insert(4, KDRBuffer("e\0f", 3)), &text);
    EXPECT_EQ(text, KDRString("ab\xC3\xA4"
                              "de"));
    text.insert(7, KDRString("x"));
    EXPECT_EQ(text, KDRString("ab\xC3\xA4"
                              "de  x"))
        << "spaces fill the gap";
}

TEST(StringEditing, NullsAndNegativePositionsInsertNothing)
{
    KDRString text("text");
    text.insert(0, KDRBuffer());
    text.insert(9, KDRBuffer());
    text.insert(9, nullBytes);
    text.insert(9, "");
    text.insert(9, KDRString());
    text.insert(INT_MAX, KDRString(""));
    for (int i : {-1, -4, INT_MIN}) {
        text.insert(i, KDRString("x"));
        text.insert(i, "x");
        text.insert(i, KDRBuffer("x"));
    }
    EXPECT_EQ(text, KDRString("text"));
    KDRString null;
    null.insert(0, "");
    null.insert(0, KDRString(""));
    EXPECT_TRUE(null.isNull());
}

TEST(StringEditing, PushesAtBothEnds)
{
    static_assert(std::is_void_v<decltype(std::declval<KDRString>().push_back(KDRString()))>);
    static_assert(std::is_void_v<decltype(std::declval<KDRString>().push_front(KDRString()))>);
    KDRString text("b");
    text.push_back(KDRString("c"));
    text.push_front(KDRString("a"));
    text.push_back(KDRString());
    text.push_front(KDRString());
    EXPECT_EQ(text, KDRString("abc"));
    KDRString null;
    null.push_back(KDRString());
    EXPECT_TRUE(null.isNull());
    null.push_back(KDRString(""));
    EXPECT_TRUE(null.isEmpty());
}

TEST(StringEditing, RemovesStretches)
{
    KDRString const text("abcab");
    EXPECT_EQ(KDRString(text).remove(1, 2), KDRString("aab"));
    EXPECT_EQ(KDRString(text).remove(1, INT_MAX), KDRString("a"));
    EXPECT_EQ(KDRString(text).remove(-2, 1), KDRString("abcb"));
    for (int position : {5, 6, -6, INT_MAX, INT_MIN})
        EXPECT_EQ(KDRString(text).remove(position, 1), text);
    for (int n : {0, -1, INT_MIN})
        EXPECT_EQ(KDRString(text).remove(1, n), text);
    KDRString changed(text);
    EXPECT_EQ(&changed.remove(0, 1), &changed);
}

TEST(StringEditing, RemovesTextsAndMatches)
{
    KDRString text("abcab");
    EXPECT_EQ(&text.remove(KDRString("ab")), &text);
    EXPECT_EQ(text, KDRString("c"));
    text.remove(KDRString());
    EXPECT_EQ(text, KDRString("c"));
    EXPECT_EQ(text.remove(KDRString("C")), KDRString("c"));
    EXPECT_EQ(text.remove(KDRString("C"), insensitive), KDRString(""));
    EXPECT_EQ(KDRString("a1b2").remove(expression("\\d")), KDRString("ab"));
    EXPECT_EQ(KDRString("a1b2").remove(expression("")), KDRString("a1b2"));
    EXPECT_EQ(KDRString("a1b2").remove(expression("a(")), KDRString("a1b2"));
}

TEST(StringEditing, ReplacesStretches)
{
    KDRString const text("abcab");
    KDRString const after("XY");
    EXPECT_EQ(KDRString(text).replace(1, 2, after), KDRString("aXYab"));
    EXPECT_EQ(KDRString(text).replace(2, INT_MAX, after), KDRString("abXY"));
    EXPECT_EQ(KDRString(text).replace(5, 1, after), KDRString("abcabXY"));
    EXPECT_EQ(KDRString(text).replace(1, 0, after), KDRString("aXYbcab"));
    for (int position : {6, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(KDRString(text).replace(position, 1, after), text);
    KDRString changed(text);
    EXPECT_EQ(&changed.replace(0, 1, after), &changed);
}

TEST(StringEditing, ReplaceWithANegativeCountRepeatsWhatLiesBefore)
{
    KDRString const text("abcab");
    KDRString const after("X");
    EXPECT_EQ(KDRString(text).replace(2, -1, after), KDRString("abXbcab"));
    for (int n : {-2, -3, -1000, INT_MIN})
        EXPECT_EQ(KDRString(text).replace(2, n, after), KDRString("abXabcab"));
    EXPECT_EQ(KDRString(text).replace(0, INT_MIN, after), KDRString("Xabcab"));
    for (int position : {-1, 6, INT_MIN, INT_MAX})
        EXPECT_EQ(KDRString(text).replace(position, INT_MIN, after), text);
}

TEST(StringEditing, ReplacesTextsAndMatches)
{
    KDRString text("abcab");
    EXPECT_EQ(&text.replace(KDRString("ab"), KDRString("-")), &text);
    EXPECT_EQ(text, KDRString("-c-"));
    text.replace(KDRString("C"), KDRString("d"), sensitive);
    EXPECT_EQ(text, KDRString("-c-"));
    text.replace(KDRString("C"), KDRString("d"), insensitive);
    EXPECT_EQ(text, KDRString("-d-"));
    EXPECT_EQ(KDRString("abc").replace(KDRString(""), KDRString("-")), KDRString("-a-b-c-"));
    EXPECT_EQ(KDRString().replace(KDRString(), KDRString("-")), KDRString("-"));
    EXPECT_EQ(KDRString("abc").replace(expression("x*"), KDRString("-")), KDRString("-a-b-c-"));
    EXPECT_EQ(KDRString("a1b22").replace(expression("(\\d+)"), KDRString("<\\1\\2>")),
              KDRString("a<1\\2>b<22\\2>"));
}

TEST(StringEditing, WhatEditsOrSplitsWithAnExpressionLeavesItsMatchAlone)
{
    KDRRegExp const rx = expression("a(b+)");
    rx.indexIn(KDRString("xabbb"));
    KDRString("ab abb").replace(rx, KDRString("-\\1"));
    KDRString("ab abb").remove(rx);
    KDRString("ab abb").split(rx);
    KDRString("none").split(rx);
    EXPECT_EQ(rx.matchedLength(), 4);
    EXPECT_EQ(rx.pos(1), 2);
    EXPECT_EQ(rx.cap(1), KDRString("bbb"));
}

TEST(StringEditing, AStringCanBeEditedWithItself)
{
    auto const edited = [](auto operation) {
        KDRString text("abcab");
        operation(text);
        return text;
    };
    using S = KDRString;
    EXPECT_EQ(edited([](S& s) { s.insert(2, s); }), S("ababcabcab"));
    EXPECT_EQ(edited([](S& s) { s.insert(7, s); }), S("abcab  abcab"));
    EXPECT_EQ(edited([](S& s) { s.push_back(s); }), S("abcababcab"));
    EXPECT_EQ(edited([](S& s) { s.push_front(s); }), S("abcababcab"));
    EXPECT_EQ(edited([](S& s) { s.remove(s); }), S(""));
    EXPECT_EQ(edited([](S& s) { s.remove(s, insensitive); }), S(""));
    EXPECT_EQ(edited([](S& s) { s.replace(1, 2, s); }), S("aabcabab"));
    EXPECT_EQ(edited([](S& s) { s.replace(1, -1, s); }), S("aabcababcab"));
    EXPECT_EQ(edited([](S& s) { s.replace(s, S("x")); }), S("x"));
    EXPECT_EQ(edited([](S& s) { s.replace(S("b"), s); }), S("aabcabcaabcab"));
    EXPECT_EQ(edited([](S& s) { s.replace(S("B"), s, insensitive); }), S("aabcabcaabcab"));
    EXPECT_EQ(edited([](S& s) { s.replace(s, s); }), S("abcab"));
    EXPECT_EQ(edited([](S& s) { s.replace(expression("b"), s); }), S("aabcabcaabcab"));
    EXPECT_EQ(edited([](S& s) { s = s.arg(s); }), S("abcab"));
    EXPECT_EQ(edited([](S& s) { s = s.mid(1).split(s)[0]; }), S("bcab"));
    S const text("abc");
    EXPECT_TRUE(text.startsWith(text) && text.endsWith(text) && text.contains(text));
    EXPECT_EQ(text.indexOf(text), 0);
}

TEST(StringCopies, PartsOfTheText)
{
    KDRString const text("abcab");
    EXPECT_EQ(text.left(2), KDRString("ab"));
    EXPECT_EQ(text.right(2), KDRString("ab"));
    EXPECT_EQ(text.mid(1, 3), KDRString("bca"));
    EXPECT_EQ(text.mid(2), KDRString("cab"));
    EXPECT_EQ(text.mid(-1, 2), KDRString("a")) << "what lies before the start counts";
    EXPECT_EQ(text.mid(-3, -1), text);
    EXPECT_TRUE(text.left(0).isEmpty());
    EXPECT_TRUE(text.mid(5, 1).isEmpty());
    EXPECT_FALSE(text.mid(5, 1).isNull());
    EXPECT_TRUE(text.mid(6, 1).isNull());
    EXPECT_TRUE(text.mid(INT_MIN, INT_MAX).isNull());
    EXPECT_EQ(text, KDRString("abcab"));
}

TEST(StringCopies, WholeTextsAreShared)
{
    KDRString const text("abcab");
    for (int n : {5, 6, INT_MAX, -1, INT_MIN}) {
        EXPECT_EQ(text.left(n).toUtf16(), text.toUtf16());
        EXPECT_EQ(text.right(n).toUtf16(), text.toUtf16());
        EXPECT_EQ(text.mid(0, n).toUtf16(), text.toUtf16());
    }
    EXPECT_EQ(text.repeated(1).toUtf16(), text.toUtf16());
    EXPECT_EQ(text.trimmed().toUtf16(), text.toUtf16());
    EXPECT_EQ(text.toLower().toUtf16(), text.toUtf16());
    EXPECT_EQ(text.split(KDRChar(','))[0].toUtf16(), text.toUtf16());
    EXPECT_EQ(text.arg(1).toUtf16(), text.toUtf16());
    KDRString same(text);
    same.insert(9, KDRString()).remove(9, 1).replace(KDRString("x"), KDRString("y"));
    same.remove(KDRString("x"));
    EXPECT_EQ(KDRString(same).toUtf16(), text.toUtf16());
}

TEST(StringCopies, RepeatsNothingForNegativeCounts)
{
    KDRString const text("abcdefgh");
    EXPECT_EQ(KDRString("ab").repeated(3), KDRString("ababab"));
    for (int times : {0, -1, INT_MIN})
        EXPECT_TRUE(text.repeated(times).isNull());
    EXPECT_TRUE(KDRString().repeated(INT_MAX).isNull());
    EXPECT_TRUE(KDRString("").repeated(INT_MAX).isEmpty());
}

TEST(StringCopies, WhiteSpaceAndCase)
{
    KDRString const text(" \t\xC3\x84 b\n\n C ");
    EXPECT_EQ(text.trimmed(), KDRString("\xC3\x84 b\n\n C"));
    EXPECT_EQ(text.simplified(), KDRString("\xC3\x84 b C"));
    EXPECT_EQ(text.toLower(), KDRString(" \t\xC3\xA4 b\n\n c "));
    EXPECT_EQ(text.toUpper(), KDRString(" \t\xC3\x84 B\n\n C "));
    EXPECT_EQ(KDRString("\xC3\x9F").toUpper(), KDRString("SS"));
    EXPECT_TRUE(KDRString().trimmed().isNull() && KDRString().toUpper().isNull());
}

TEST(StringSplit, KeepsOrSkipsEmptyParts)
{
    KDRString const text("a,,b");
    auto const skip = KDRString::KDRSkipEmptyParts;
    expectTexts(text.split(KDRChar(',')), {"a", "", "b"});
    expectTexts(text.split(KDRChar(','), skip), {"a", "b"});
    expectTexts(text.split(KDRString(",")), {"a", "", "b"});
    expectTexts(text.split(KDRString(","), skip), {"a", "b"});
    expectTexts(text.split(expression(",")), {"a", "", "b"});
    expectTexts(text.split(expression(","), skip), {"a", "b"});
    for (int value : {2, -1, INT_MIN}) {
        auto const behavior = static_cast<KDRString::KDRSplitBehavior>(value);
        expectTexts(text.split(KDRChar(','), behavior), {"a", "b"});
        expectTexts(text.split(KDRString(","), behavior), {"a", "b"});
        expectTexts(text.split(expression(","), behavior), {"a", "b"});
    }
}

TEST(StringSplit, TakesCaseIntoAccountUnlessToldOtherwise)
{
    KDRString const text("aXb");
    auto const keep = KDRString::KDRKeepEmptyParts;
    expectTexts(text.split(KDRChar('x')), {"aXb"});
    expectTexts(text.split(KDRChar('x'), keep, insensitive), {"a", "b"});
    expectTexts(text.split(KDRString("x"), keep, insensitive), {"a", "b"});
    expectTexts(text.split(KDRString("x"), keep, sensitive), {"aXb"});
}

TEST(StringSplit, EmptyTextsAndEmptySeparators)
{
    auto const skip = KDRString::KDRSkipEmptyParts;
    for (KDRString const& empty : {KDRString(), KDRString("")}) {
        expectTexts(empty.split(KDRChar(',')), {""});
        expectTexts(empty.split(KDRString(","), skip), {});
        expectTexts(empty.split(KDRString()), {"", ""});
        expectTexts(KDRString("ab").split(empty), {"", "a", "b", ""});
        expectTexts(KDRString("ab").split(empty, skip), {"a", "b"});
    }
    expectTexts(KDRString("ab").split(expression("")), {"", "a", "b", ""});
    expectTexts(KDRString("ab").split(expression("x*")), {"", "a", "b", ""});
    expectTexts(KDRString("ab").split(expression("a(")), {"ab"});
    expectTexts(KDRString("ab").split(KDRChar()), {"ab"});
}

} // namespace
