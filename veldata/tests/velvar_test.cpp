#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <veldata/velvar.h>

#include "guarded.h"

namespace {

static_assert(std::is_nothrow_move_constructible<VelVar>::value, "arrays move variables");
static_assert(std::is_nothrow_move_assignable<VelVar>::value, "arrays move variables");
static_assert(!std::is_polymorphic<VelVar>::value, "a variable is a plain value");

TEST(VelVar, DefaultIsTheIntegerZero)
{
    VelVar const var;
    EXPECT_EQ(var.ValType(), 0);
    EXPECT_EQ(var.L(), 0);
}

TEST(VelVar, EveryConstructorGivesItsTypeAndValue)
{
    EXPECT_EQ(VelVar(LONG_MIN).ValType(), 0);
    EXPECT_EQ(VelVar(LONG_MIN).L(), LONG_MIN);
    EXPECT_EQ(VelVar(-0.25).ValType(), 1);
    EXPECT_EQ(VelVar(-0.25).D(), -0.25);
    EXPECT_EQ(VelVar("narrow").ValType(), 2);
    EXPECT_STREQ(VelVar("narrow").S(), "narrow");
    EXPECT_EQ(VelVar(L"wide \u00e9").ValType(), 3);
    EXPECT_STREQ(VelVar(L"wide \u00e9").WS(), L"wide \u00e9");
}

TEST(VelVar, NullTextIsTheEmptyTextOfItsType)
{
    VelVar const narrow(static_cast<char const*>(nullptr));
    EXPECT_EQ(narrow.ValType(), 2);
    EXPECT_STREQ(narrow.S(), "");

    VelVar const wide(static_cast<wchar_t const*>(nullptr));
    EXPECT_EQ(wide.ValType(), 3);
    EXPECT_STREQ(wide.WS(), L"");
}

TEST(VelVar, EmptyTextKeepsItsType)
{
    EXPECT_EQ(VelVar("").ValType(), 2);
    EXPECT_STREQ(VelVar("").S(), "");
    EXPECT_EQ(VelVar(L"").ValType(), 3);
    EXPECT_STREQ(VelVar(L"").WS(), L"");
}

TEST(VelVar, KeepsBytesThatAreNoValidUtf8)
{
    EXPECT_STREQ(VelVar("\xff\xc0 \x80").S(), "\xff\xc0 \x80");
}

TEST(VelVar, TextIsCopiedFromTheCaller)
{
    std::string narrow = "before";
    std::wstring wide = L"before";
    VelVar const narrowVar(narrow.c_str());
    VelVar const wideVar(wide.c_str());
    narrow = "after!";
    wide = L"after!";
    EXPECT_STREQ(narrowVar.S(), "before");
    EXPECT_STREQ(wideVar.WS(), L"before");
}

TEST(VelVar, NothingBehindATextIsRead)
{
    Guarded<char> const narrow("text", 5);
    EXPECT_STREQ(VelVar(narrow.data()).S(), "text");
    Guarded<wchar_t> const wide(L"text", 5);
    EXPECT_STREQ(VelVar(wide.data()).WS(), L"text");
}

TEST(VelVar, IntegerReadAsFloatingIsConverted)
{
    EXPECT_EQ(VelVar(-7L).D(), -7.0);
    EXPECT_EQ(VelVar(LONG_MAX).D(), static_cast<double>(LONG_MAX));
}

TEST(VelVar, FloatingReadAsIntegerIsCutTowardsZero)
{
    EXPECT_EQ(VelVar(2.9).L(), 2);
    EXPECT_EQ(VelVar(-2.9).L(), -2);
    EXPECT_EQ(VelVar(-0.5).L(), 0);
}

TEST(VelVar, FloatingReadAsIntegerSaturates)
{
    double const infinity = std::numeric_limits<double>::infinity();
    double const end = std::ldexp(1.0, sizeof(long) * CHAR_BIT - 1);
    EXPECT_EQ(VelVar(infinity).L(), LONG_MAX);
    EXPECT_EQ(VelVar(-infinity).L(), LONG_MIN);
    EXPECT_EQ(VelVar(end).L(), LONG_MAX);
    EXPECT_EQ(VelVar(-end).L(), LONG_MIN);
    EXPECT_EQ(VelVar(std::nextafter(-end, -infinity)).L(), LONG_MIN);
    double const last = std::nextafter(end, 0.0);
    EXPECT_EQ(VelVar(last).L(), static_cast<long>(last));
}

TEST(VelVar, NanReadAsIntegerIsZero)
{
    VelVar const var(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(var.L(), 0);
    EXPECT_TRUE(std::isnan(var.D()));
}

TEST(VelVar, NumbersOfTextsAreZero)
{
    EXPECT_EQ(VelVar("12").L(), 0);
    EXPECT_EQ(VelVar("12").D(), 0.0);
    EXPECT_EQ(VelVar(L"12").L(), 0);
    EXPECT_EQ(VelVar(L"12").D(), 0.0);
}

TEST(VelVar, TextsOfOtherTypesAreEmptyAndNeverNull)
{
    for (VelVar const& var : {VelVar(5L), VelVar(5.0), VelVar(L"wide")})
        EXPECT_STREQ(var.S(), "");
    for (VelVar const& var : {VelVar(5L), VelVar(5.0), VelVar("narrow")})
        EXPECT_STREQ(var.WS(), L"");
}

TEST(VelVar, CopiesAreDeep)
{
    VelVar const source("text");
    VelVar const copy(source);
    EXPECT_STREQ(copy.S(), "text");
    EXPECT_NE(copy.S(), source.S());

    VelVar const wideSource(L"text");
    VelVar const wideCopy(wideSource);
    EXPECT_STREQ(wideCopy.WS(), L"text");
    EXPECT_NE(wideCopy.WS(), wideSource.WS());
}

TEST(VelVar, AssignmentReplacesAnyTypeByAnyOther)
{
    VelVar const values[] = {VelVar(3L), VelVar(1.5), VelVar("narrow"), VelVar(L"wide")};
    for (VelVar const& from : values) {
        for (VelVar const& to : values) {
            VelVar var(from);
            var = to;
            EXPECT_EQ(var.ValType(), to.ValType());
            EXPECT_EQ(var.L(), to.L());
            EXPECT_EQ(var.D(), to.D());
            EXPECT_STREQ(var.S(), to.S());
            EXPECT_STREQ(var.WS(), to.WS());
        }
    }
}

TEST(VelVar, AssignmentToItselfChangesNothing)
{
    VelVar var("text");
    VelVar& same = var;
    var = same;
    EXPECT_STREQ(var.S(), "text");
    var = std::move(same);
    EXPECT_STREQ(var.S(), "text");
}

TEST(VelVar, MovingTakesTheTextAndLeavesTheIntegerZero)
{
    VelVar source(L"text");
    wchar_t const* const text = source.WS();
    VelVar target(std::move(source));
    EXPECT_EQ(target.WS(), text);
    EXPECT_EQ(source.ValType(), 0);
    EXPECT_EQ(source.L(), 0);

    VelVar assigned(1.5);
    assigned = std::move(target);
    EXPECT_EQ(assigned.WS(), text);
    EXPECT_EQ(target.ValType(), 0);
}

} // namespace
