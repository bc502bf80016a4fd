#ifndef KDRDATA_QTESTPRINTERS_H
#define KDRDATA_QTESTPRINTERS_H

/// @file
/// Lets a failing QCOMPARE of Qt Test show the values of the library's classes. To be included in
/// every source of a test program that compares such values, or in none. Includes nothing of Qt
/// Test, which finds these functions beside the classes and frees what they answer with delete[].

#include <kdrdata/debug/kdrdebugtext.h>

#include <QtCore/qbytearray.h>

/// @cond
#define KDR_TO_STRING(Class)                                                                       \
    inline char* toString(Class const& value) { return qstrdup(KDRDebug::text(value).c_str()); }
KDR_PRINTED_CLASSES(KDR_TO_STRING)
#undef KDR_TO_STRING
/// @endcond

#endif
