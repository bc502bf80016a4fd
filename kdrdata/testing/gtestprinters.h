#ifndef KDRDATA_GTESTPRINTERS_H
#define KDRDATA_GTESTPRINTERS_H

/// @file
/// Lets a failing GoogleTest assertion show the values of the library's classes. To be included in
/// every source of a test program that compares such values, or in none. Includes nothing of
/// GoogleTest.

#include <kdrdata/debug/kdrdebugtext.h>

#include <ostream>

/// @cond
#define KDR_PRINT_TO(Class)                                                                        \
    inline void PrintTo(Class const& value, std::ostream* out) { *out << KDRDebug::text(value); }
KDR_PRINTED_CLASSES(KDR_PRINT_TO)
#undef KDR_PRINT_TO
/// @endcond

#endif
