#ifndef KDRDATA_TESTS_FAKERECORDS_VELPOINTARRAY_H
#define KDRDATA_TESTS_FAKERECORDS_VELPOINTARRAY_H

#include <veldata/velpoint.h>

#include "../fakearray.h"

/// Takes its points by a reference that is not constant.
class VelPointArray : public FakeArray<VelPoint, VelPoint>
{
};

#endif
