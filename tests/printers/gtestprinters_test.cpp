#include <kdrdata/testing/gtestprinters.h>

#include "../support/everyvalue.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

// The classes of all exported operations, `Class::operation(...)`.
std::set<std::string> exportedClasses()
{
    std::set<std::string> classes;
    std::ifstream symbols(KDRDATA_EXPORTED_SYMBOLS);
    for (std::string line; std::getline(symbols, line);) {
        std::string const head = line.substr(0, line.find('('));
        std::string::size_type const end = head.find("::");
        if (end == std::string::npos)
            continue;
        std::string::size_type const first = head.rfind(' ', end) + 1; // 0 where there is none
        classes.insert(head.substr(first, end - first));
    }
    return classes;
}

std::set<std::string> printedClasses()
{
#define NAME(Class) #Class,
    return {KDR_PRINTED_CLASSES(NAME)};
#undef NAME
}

} // namespace

TEST(GTestPrinters, ShowTheTextFormOfEveryClass)
{
    EveryValue const values;
    values.visit([](char const* name, auto const& value) {
        EXPECT_EQ(testing::PrintToString(value), KDRDebug::text(value)) << name;
    });
}

TEST(GTestPrinters, ShowValuesInAFailure)
{
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(KDRString("left"), KDRString("right")), "\"left\"");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(KDRString("left"), KDRString("right")), "\"right\"");
}

TEST(GTestPrinters, ShowValuesInContainers)
{
    EXPECT_EQ(testing::PrintToString(std::vector<KDRPoint>{KDRPoint(1, 2)}), "{ (1, 2) }");
}

TEST(PrintedClasses, AreAllThatTheLibraryExports)
{
    std::set<std::string> const exported = exportedClasses();
    EXPECT_GT(exported.size(), 60U);
    EXPECT_EQ(printedClasses(), exported);
}

TEST(PrintedClasses, EachHaveAValueThatTheTestsLookAt)
{
    std::set<std::string> held;
#define HOLD(Class, name, arguments) held.insert(#Class);
    EVERY_VALUE(HOLD)
#undef HOLD
    EXPECT_EQ(held, printedClasses());
}
