#ifndef KDRDATA_TESTS_REGIONS_H
#define KDRDATA_TESTS_REGIONS_H

#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/kdrregion.h>

#include <gtest/gtest.h>

#include <veldata/tests/pixelset.h>

/// The three lists that a region is exchanged as.
struct RunLists
{
    RunLists() = default;

    explicit RunLists(Runs const& runs)
    {
        for (auto const& [row, first, last] : runs) {
            rows.push_back(KDRNumber(row));
            firsts.push_back(KDRNumber(first));
            lasts.push_back(KDRNumber(last));
        }
    }

    Runs runs() const
    {
        EXPECT_EQ(firsts.length(), rows.length());
        EXPECT_EQ(lasts.length(), rows.length());
        Runs found;
        for (int i = 0; i < rows.length(); ++i)
            found.push_back({rows[i].toLong(), firsts[i].toLong(), lasts[i].toLong()});
        return found;
    }

    KDRNumberArray rows, firsts, lasts;
};

inline KDRRegion regionOf(Runs const& runs, int width = -1, int height = -1)
{
    RunLists lists(runs);
    KDRRegion region;
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, width, height);
    return region;
}

inline Runs runsOf(KDRRegion region)
{
    RunLists lists;
    EXPECT_TRUE(region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
    return lists.runs();
}

#endif
