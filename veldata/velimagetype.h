#ifndef VELDATA_VELIMAGETYPE_H
#define VELDATA_VELIMAGETYPE_H

/// The code of a pixel element type: one of the values below. Every other value is refused.
typedef int VelImageType;

/// The element types of pixels and their codes.
enum VelImageTypeCode {
    VEL_8U = 0,  ///< unsigned 8-bit integer
    VEL_8S = 1,  ///< signed 8-bit integer
    VEL_16U = 2, ///< unsigned 16-bit integer
    VEL_16S = 3, ///< signed 16-bit integer
    VEL_32S = 4, ///< signed 32-bit integer
    VEL_32F = 5, ///< 32-bit floating point
    VEL_64F = 6  ///< 64-bit floating point
};

#endif
