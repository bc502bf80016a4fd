#ifndef VELDATA_VELDATATYPE_H
#define VELDATA_VELDATATYPE_H

/// The code of a matrix element type: one of the values of VelImageTypeCode, which pixels and
/// matrix elements share. Every other value is refused.
typedef int VelDataType;

#endif
