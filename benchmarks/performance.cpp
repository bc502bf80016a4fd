// What the library's operations cost, against what a user would write with Qt, the standard library
// or OpenCV, and against the floor. `./dev bench --report` makes docs/performance.md of it.

#include "rows.h"

#include <cstdio>
#include <exception>

int main(int argc, char* argv[])
{
    try {
        ratio::Table table(argc, argv);
        rows::ofVariants(table);
        rows::ofHandOver(table);
        rows::ofArrays(table);
        rows::ofDescriptions(table);
        rows::ofTexts(table);
        rows::ofVision(table);
        rows::ofThreads(table);
        rows::ofLoading(table);
        return table.finish();
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
