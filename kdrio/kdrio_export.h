#ifndef KDRIO_EXPORT_H
#define KDRIO_EXPORT_H

/// @file
/// Marks what the library of saved values exports, by the rules of kdrdata_export.h. The build of
/// the library defines `KDRDataIO_EXPORTS`.

/// @def KDRIO_EXPORT
/// A function that is part of the interface.
#if defined(KDRDATA_STATIC_DEFINE)
#define KDRIO_EXPORT
#elif defined(_WIN32)
#if defined(KDRDataIO_EXPORTS)
#define KDRIO_EXPORT __declspec(dllexport)
#else
#define KDRIO_EXPORT __declspec(dllimport)
#endif
#else
#define KDRIO_EXPORT __attribute__((visibility("default")))
#endif

#endif
