#ifndef VELDATA_VELRUNS_P_H
#define VELDATA_VELRUNS_P_H

#include <memory>
#include <vector>

/// Neighbouring pixels of one row; both columns are inclusive.
struct VelRun
{
    long row;
    long first;
    long last;
};

/// The pixels of a region, in one form only: runs sorted by row, then column, of which no two
/// overlap or touch. Never empty, never changed: regions share it.
class VelRuns
{
public:
    /// The pixels of any runs, or null if they have none. Throws std::bad_alloc.
    static std::shared_ptr<VelRuns const> of(std::vector<VelRun> runs);

    explicit VelRuns(std::vector<VelRun> normalised) noexcept;

    std::vector<VelRun> const items;
};

#endif
