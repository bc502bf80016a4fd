#include <veldata/velruns_p.h>

#include <algorithm>
#include <utility>

namespace {

bool isEmpty(VelRun const& run) noexcept { return run.last < run.first; }

bool precedes(VelRun const& left, VelRun const& right) noexcept
{
    return left.row != right.row ? left.row < right.row : left.first < right.first;
}

/// Whether @p next, which does not precede @p run, overlaps it or begins right behind it. The
/// subtraction cannot overflow: there is a column before the one that lies behind the run's last.
bool continues(VelRun const& run, VelRun const& next) noexcept
{
    return next.row == run.row && (next.first <= run.last || next.first - 1 == run.last);
}

} // namespace

VelRuns::VelRuns(std::vector<VelRun> normalised) noexcept : items(std::move(normalised)) {}

std::shared_ptr<VelRuns const> VelRuns::of(std::vector<VelRun> runs)
{
    runs.erase(std::remove_if(runs.begin(), runs.end(), isEmpty), runs.end());
    if (runs.empty())
        return nullptr;
    // What was read out of a region comes back in order, and looking is cheaper than sorting.
    if (!std::is_sorted(runs.begin(), runs.end(), precedes))
        std::sort(runs.begin(), runs.end(), precedes);

    auto merged = runs.begin();
    for (auto next = merged + 1; next != runs.end(); ++next) {
        if (continues(*merged, *next))
            merged->last = std::max(merged->last, next->last);
        else
            *++merged = *next;
    }
    runs.erase(merged + 1, runs.end());
    runs.shrink_to_fit();
    return std::make_shared<VelRuns const>(std::move(runs));
}
