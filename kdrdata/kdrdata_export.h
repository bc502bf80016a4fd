#ifndef KDRDATA_EXPORT_H
#define KDRDATA_EXPORT_H

/// @file
/// Marks what the library exports. One text for all compilers, so that headers installed on one
/// system serve another: on Windows a class is exported while the library itself is built and
/// imported everywhere else; elsewhere it is visible, and all that is not marked is hidden.
///
/// The build of the library defines `KDRData_EXPORTS`. Programs that link a static build define
/// `KDRDATA_STATIC_DEFINE`.

/// @def KDRDATA_EXPORT
/// A class or function that is part of the interface.
/// @def KDRDATA_NO_EXPORT
/// A member of an exported class that is not.
#if defined(KDRDATA_STATIC_DEFINE)
#define KDRDATA_EXPORT
#define KDRDATA_NO_EXPORT
#elif defined(_WIN32)
#if defined(KDRData_EXPORTS)
#define KDRDATA_EXPORT __declspec(dllexport)
#else
#define KDRDATA_EXPORT __declspec(dllimport)
#endif
#define KDRDATA_NO_EXPORT
#else
#define KDRDATA_EXPORT __attribute__((visibility("default")))
#define KDRDATA_NO_EXPORT __attribute__((visibility("hidden")))
#endif

#endif
