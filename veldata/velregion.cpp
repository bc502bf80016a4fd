#include <veldata/velregion.h>

#include <climits>
#include <cstddef>
#include <utility>
#include <vector>

#include <veldata/vellist_p.h>
#include <veldata/velruns_p.h>
#include <veldata/velvararray.h>

namespace {

std::shared_ptr<VelRuns const> runsOf(VelVarArray const& rows, VelVarArray const& firstColumns,
                                      VelVarArray const& lastColumns)
{
    int const length = rows.Length();
    std::vector<VelRun> runs;
    runs.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i)
        runs.push_back({rows[i].L(), firstColumns[i].L(), lastColumns[i].L()});
    return VelRuns::of(std::move(runs));
}

/// Makes a list of one number of each run, where there is none yet.
void fill(VelList<VelVar>*& list, std::vector<VelRun> const& runs, long VelRun::*number)
{
    list = new VelList<VelVar>;
    list->items.reserve(runs.size());
    for (VelRun const& run : runs)
        list->items.emplace_back(run.*number);
}

} // namespace

VelRegion::VelRegion() noexcept : extentWidth(0), extentHeight(0) {}

VelRegion::VelRegion(VelVarArray const& rows, VelVarArray const& firstColumns,
                     VelVarArray const& lastColumns)
    : VelRegion(0, 0, rows, firstColumns, lastColumns)
{
}

VelRegion::VelRegion(int width, int height, VelVarArray const& rows,
                     VelVarArray const& firstColumns, VelVarArray const& lastColumns)
    : runs(runsOf(rows, firstColumns, lastColumns)),
      extentWidth(width < 0 ? 0 : width),
      extentHeight(width < 0 ? 0 : height)
{
}

VelRegion::VelRegion(VelRegion const& other) noexcept = default;

VelRegion::VelRegion(VelRegion&& other) noexcept
    : runs(std::move(other.runs)),
      extentWidth(std::exchange(other.extentWidth, 0)),
      extentHeight(std::exchange(other.extentHeight, 0))
{
}

VelRegion::~VelRegion() = default;

VelRegion& VelRegion::operator=(VelRegion const& other) noexcept = default;

VelRegion& VelRegion::operator=(VelRegion&& other) noexcept
{
    VelRegion taken(std::move(other));
    std::swap(runs, taken.runs);
    extentWidth = taken.extentWidth;
    extentHeight = taken.extentHeight;
    return *this;
}

int VelRegion::Width() const noexcept { return extentWidth; }

int VelRegion::Height() const noexcept { return extentHeight; }

int VelRegion::GetRegionRuns(VelVarArray* rows, VelVarArray* firstColumns,
                             VelVarArray* lastColumns) const
{
    if (!rows || !firstColumns || !lastColumns)
        return 0;
    if (rows == firstColumns || rows == lastColumns || firstColumns == lastColumns)
        return 0;
    if (runs && runs->items.size() > static_cast<std::size_t>(INT_MAX))
        return 0;

    VelVarArray columns[3];
    if (runs) {
        fill(columns[0].d, runs->items, &VelRun::row);
        fill(columns[1].d, runs->items, &VelRun::first);
        fill(columns[2].d, runs->items, &VelRun::last);
    }
    *rows = std::move(columns[0]);
    *firstColumns = std::move(columns[1]);
    *lastColumns = std::move(columns[2]);
    return 1;
}

int VelRegion::SetRuns(int width, int height, long const* numbers, long count)
{
    if (count < 0 || (!numbers && count > 0))
        return 0;
    std::vector<VelRun> given;
    given.reserve(static_cast<std::size_t>(count));
    for (long i = 0; i < count; ++i)
        given.push_back({numbers[3 * i], numbers[3 * i + 1], numbers[3 * i + 2]});
    runs = VelRuns::of(std::move(given));
    extentWidth = width < 0 ? 0 : width;
    extentHeight = width < 0 ? 0 : height;
    return 1;
}

long VelRegion::RunCount() const noexcept
{
    return runs ? static_cast<long>(runs->items.size()) : 0;
}

void VelRegion::CopyRuns(long* numbers) const noexcept
{
    if (!runs)
        return;
    for (VelRun const& run : runs->items) {
        *numbers++ = run.row;
        *numbers++ = run.first;
        *numbers++ = run.last;
    }
}
