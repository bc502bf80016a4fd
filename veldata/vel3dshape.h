#ifndef VELDATA_VEL3DSHAPE_H
#define VELDATA_VEL3DSHAPE_H

/// A figure in space, in name only: it holds nothing and has no operations.
///
/// The class exists so that interfaces that name it can be called. Objects are plain values without
/// state, which any number of threads may use.
class Vel3DShape
{
};

#endif
