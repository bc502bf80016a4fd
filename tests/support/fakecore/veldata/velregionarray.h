#ifndef KDRDATA_TESTS_FAKECORE_VELREGIONARRAY_H
#define KDRDATA_TESTS_FAKECORE_VELREGIONARRAY_H

#include <veldata/velregion.h>

/// A core array of always three regions that does no work: it writes its calls into those of
/// VelRegion.
class VelRegionArray
{
public:
    VelRegionArray() = default;
    VelRegionArray(VelRegionArray const&) { note("array copy"); }
    VelRegionArray& operator=(VelRegionArray const&)
    {
        note("array operator=");
        return *this;
    }

    int Append(VelRegion const&) { return note("Append one"); }
    int Append(VelRegionArray const&) { return note("Append all"); }
    int Insert(int index, VelRegion const&) { return note("Insert", index); }
    int Remove(int index) { return note("Remove", index); }
    int Replace(int index, VelRegion const&) { return note("Replace", index); }
    int Swap(int first, int second) { return note("Swap", first, second); }
    int Clear() { return note("Clear"); }
    int Length() const { return 3; }
    int Select(int index, VelRegion* region) const
    {
        region->width = index;
        return note("Select", index);
    }
    VelRegion const& operator[](int index) const
    {
        note("operator[]", index);
        return element;
    }
    int Union(VelRegion* region) const
    {
        region->width = 77;
        return note("Union");
    }

private:
    template <class... Numbers>
    static int note(char const* name, Numbers... numbers)
    {
        std::string call = name;
        for (int const number : std::vector<int>{numbers...})
            call += ' ' + std::to_string(number);
        VelRegion::calls.push_back(call);
        return 0;
    }

    VelRegion element;
};

#endif
