#ifndef KDRDATA_TESTS_FAKERECORDS_VELIMAGEARRAY_H
#define KDRDATA_TESTS_FAKERECORDS_VELIMAGEARRAY_H

#include <veldata/velimage.h>

#include "../fakearray.h"

inline int numberOf(VelImage const& image) { return image.depth; }
inline void setNumber(VelImage& image, int number) { image.depth = number; }

class VelImageArray : public FakeArray<VelImage, VelImage const>
{
};

#endif
