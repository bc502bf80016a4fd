#ifndef KDRDATA_TESTS_FAKERECORDS_VELCONTOURARRAY_H
#define KDRDATA_TESTS_FAKERECORDS_VELCONTOURARRAY_H

#include <veldata/velcontour.h>

#include "../fakearray.h"

class VelContourArray : public FakeArray<VelContour, VelContour const>
{
};

#endif
