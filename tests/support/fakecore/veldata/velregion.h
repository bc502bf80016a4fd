#ifndef KDRDATA_TESTS_FAKECORE_VELREGION_H
#define KDRDATA_TESTS_FAKECORE_VELREGION_H

#include <stdexcept>
#include <string>
#include <vector>

#include <veldata/velvar.h>
#include <veldata/velvararray.h>

/// A core region that does no work: it writes down each call with its arguments and gives the runs
/// that the test told it to. It has the operations that the library is built on and no others.
class VelRegion
{
public:
    VelRegion() { ++alive; }
    VelRegion(VelVarArray const& first, VelVarArray const& second, VelVarArray const& third)
        : VelRegion()
    {
        note("lists" + text(first) + text(second) + text(third));
    }
    VelRegion(int x, int y, VelVarArray const& first, VelVarArray const& second,
              VelVarArray const& third)
        : VelRegion()
    {
        note("sized " + std::to_string(x) + ' ' + std::to_string(y) + text(first) + text(second) +
             text(third));
    }
    VelRegion(VelRegion const&) = delete;
    ~VelRegion() { --alive; }

    VelRegion& operator=(VelRegion const& other)
    {
        note("operator=");
        width = other.width;
        return *this;
    }

    int Width() const { return width; }
    int Height() const { return 102; }
    int GetRegionRuns(VelVarArray* first, VelVarArray* second, VelVarArray* third) const
    {
        note("GetRegionRuns" + text(*first) + text(*second) + text(*third));
        for (long const run : runs) {
            first->Append(VelVar(run));
            second->Append(VelVar(run + 1));
            third->Append(VelVar(run + 2));
        }
        return 0;
    }

    static std::vector<std::string> calls;
    /// The first number of each run; the others follow it.
    static std::vector<long> runs;
    static bool failing;
    static int alive;

    int width = 101;

private:
    static void note(std::string const& call)
    {
        if (failing)
            throw std::runtime_error(call);
        calls.push_back(call);
    }
    static std::string text(VelVarArray const& list)
    {
        std::string all = " [";
        for (int i = 0; i < list.Length(); ++i)
            all += (i > 0 ? " " : "") + std::to_string(list[i].L());
        return all + ']';
    }
};

#endif
