#include <veldata/velregionarray.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include <veldata/vellist_p.h>
#include <veldata/velruns_p.h>

VelRegionArray::VelRegionArray() noexcept : d(nullptr) {}

VelRegionArray::VelRegionArray(VelRegionArray const& other) : d(vellist::copy(other.d)) {}

VelRegionArray::VelRegionArray(VelRegionArray&& other) noexcept : d(std::exchange(other.d, nullptr))
{
}

VelRegionArray::~VelRegionArray() { delete d; }

VelRegionArray& VelRegionArray::operator=(VelRegionArray const& other)
{
    vellist::assign(d, other.d);
    return *this;
}

VelRegionArray& VelRegionArray::operator=(VelRegionArray&& other) noexcept
{
    vellist::take(d, other.d);
    return *this;
}

int VelRegionArray::Append(VelRegion const& element) { return vellist::append(d, element); }

int VelRegionArray::Append(VelRegionArray const& other) { return vellist::appendAll(d, other.d); }

int VelRegionArray::Insert(int index, VelRegion const& element)
{
    return vellist::insert(d, index, element);
}

int VelRegionArray::Remove(int index) { return vellist::remove(d, index); }

int VelRegionArray::Replace(int index, VelRegion const& element)
{
    return vellist::replace(d, index, element);
}

int VelRegionArray::Swap(int first, int second) { return vellist::swap(d, first, second); }

int VelRegionArray::Clear() noexcept { return vellist::clear(d); }

int VelRegionArray::Length() const noexcept { return vellist::length(d); }

int VelRegionArray::Select(int index, VelRegion* element) const
{
    return vellist::select(d, index, element);
}

VelRegion VelRegionArray::operator[](int index) const { return vellist::at(d, index); }

int VelRegionArray::Union(VelRegion* region) const
{
    if (!region)
        return 0;
    VelRegion all;
    if (d && !d->items.empty()) {
        all.extentWidth = d->items.front().extentWidth;
        all.extentHeight = d->items.front().extentHeight;
        std::size_t count = 0;
        for (VelRegion const& element : d->items) {
            all.extentWidth = std::max(all.extentWidth, element.extentWidth);
            all.extentHeight = std::max(all.extentHeight, element.extentHeight);
            count += element.runs ? element.runs->items.size() : 0;
        }
        std::vector<VelRun> gathered;
        gathered.reserve(count);
        for (VelRegion const& element : d->items) {
            if (element.runs)
                gathered.insert(gathered.end(), element.runs->items.begin(),
                                element.runs->items.end());
        }
        all.runs = VelRuns::of(std::move(gathered));
    }
    *region = std::move(all);
    return 1;
}
