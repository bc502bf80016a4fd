#ifndef KDRDATA_BENCHMARKS_ROWS_H
#define KDRDATA_BENCHMARKS_ROWS_H

#include "ratio.h"

/// The rows of the performance report, one function a family.
namespace rows {

void ofVariants(ratio::Table& table);
void ofHandOver(ratio::Table& table);
void ofArrays(ratio::Table& table);
void ofDescriptions(ratio::Table& table);
void ofTexts(ratio::Table& table);
void ofVision(ratio::Table& table);
void ofThreads(ratio::Table& table);
void ofLoading(ratio::Table& table);

} // namespace rows

#endif
