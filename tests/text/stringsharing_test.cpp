#include <kdrdata/text/kdrstring.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(StringSharing, CopiesShareTheCharacters)
{
    KDRString const original("shared text");
    KDRString const constructed(original);
    KDRString assigned("other");
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(constructed.toUtf16(), original.toUtf16());
    EXPECT_EQ(assigned.toUtf16(), original.toUtf16());
}

TEST(StringSharing, CopiesKeepNullAndEmptyApart)
{
    KDRString const null;
    KDRString const empty("");
    EXPECT_TRUE(KDRString(null).isNull());
    EXPECT_FALSE(KDRString(empty).isNull());
    KDRString text("text");
    text = null;
    EXPECT_TRUE(text.isNull());
}

TEST(StringSharing, HandlesNeverShareTheHolder)
{
    KDRString original("text");
    KDRString copy(original);
    EXPECT_NE(KDRInternal::pointer(copy), KDRInternal::pointer(original));
    copy = original;
    EXPECT_NE(KDRInternal::pointer(copy), KDRInternal::pointer(original));
}

TEST(StringSharing, AChangeShowsInNoCopy)
{
    KDRString const a("text");
    KDRString b = a;
    b.truncate(0);
    EXPECT_EQ(a, KDRString("text"));
    EXPECT_EQ(b.size(), 0);

    KDRString c = a;
    c.fromUtf8("other");
    EXPECT_EQ(a, KDRString("text"));
}

TEST(StringSharing, ReadingDoesNotDetach)
{
    KDRString const original("text");
    KDRString copy(original);
    copy.length();
    copy.at(0);
    copy.toUtf8();
    copy.arg(1);
    EXPECT_FALSE(copy != original);
    EXPECT_EQ(copy.toUtf16(), original.toUtf16());
}

TEST(StringSharing, ResultsOfUnchangedTextShareIt)
{
    KDRString const original("no marker");
    EXPECT_EQ(original.arg(1).toUtf16(), original.toUtf16());
}

TEST(StringSharing, SelfAssignmentKeepsTheText)
{
    KDRString text("text");
    KDRString& same = text;
    unsigned short const* const characters = text.toUtf16();
    text = same;
    EXPECT_EQ(text.toUtf16(), characters);
    EXPECT_EQ(text, KDRString("text"));
    text = text.toUtf16() + 1;
    EXPECT_EQ(text, KDRString("ext"));
}

TEST(StringSharing, AMovedFromStringKeepsItsText)
{
    KDRString original("text");
    KDRString const constructed(std::move(original));
    EXPECT_EQ(original, KDRString("text"));
    KDRString assigned;
    assigned = std::move(original);
    EXPECT_EQ(original, KDRString("text"));
    EXPECT_EQ(constructed.toUtf16(), original.toUtf16());
    EXPECT_EQ(assigned.toUtf16(), original.toUtf16());
}

TEST(StringSharing, SwapExchangesTheTextsNotTheHolders)
{
    KDRString a("first");
    KDRString b;
    QString const* const holderA = KDRInternal::pointer(a);
    QString const* const holderB = KDRInternal::pointer(b);
    unsigned short const* const characters = a.toUtf16();
    QString const* const holder = KDRInternal::pointer(a);
    a.swap(b);
    EXPECT_EQ(KDRInternal::pointer(a), holder) << "the handles keep their holders";
    EXPECT_TRUE(a.isNull());
    EXPECT_EQ(b, KDRString("first"));
    EXPECT_EQ(b.toUtf16(), characters);
    EXPECT_EQ(KDRInternal::pointer(a), holderA);
    EXPECT_EQ(KDRInternal::pointer(b), holderB);
    b.swap(b);
    EXPECT_EQ(b, KDRString("first"));
}

} // namespace
