#ifndef VELDATA_EXPORT_H
#define VELDATA_EXPORT_H

/// @file
/// Marks what the library exports. One text for all compilers, so that headers installed on one
/// system serve another: on Windows a class is exported while the library itself is built and
/// imported everywhere else; elsewhere it is visible, and all that is not marked is hidden.
///
/// The build of the library defines `VelData_EXPORTS`. Programs that link a static build define
/// `VELDATA_STATIC_DEFINE`.

/// @def VELDATA_EXPORT
/// A class or function that is part of the interface.
/// @def VELDATA_NO_EXPORT
/// A member of an exported class that is not.
#if defined(VELDATA_STATIC_DEFINE)
#define VELDATA_EXPORT
#define VELDATA_NO_EXPORT
#elif defined(_WIN32)
#if defined(VelData_EXPORTS)
#define VELDATA_EXPORT __declspec(dllexport)
#else
#define VELDATA_EXPORT __declspec(dllimport)
#endif
#define VELDATA_NO_EXPORT
#else
#define VELDATA_EXPORT __attribute__((visibility("default")))
#define VELDATA_NO_EXPORT __attribute__((visibility("hidden")))
#endif

#endif
