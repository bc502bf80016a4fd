#include <kdrdata/vision/kdrpointarray.h>

#include <kdrdata/vision/corearray_p.h>

#include <veldata/velpointarray.h>

namespace {

// The coordinates as a core point of its own, which a core array may take by a reference that is
// not constant. Made from the two numbers: core points need not be copyable by construction.
VelPoint ownPoint(KDRPoint const& value) { return VelPoint(value.x(), value.y()); }

} // namespace

KDRPointArray::KDRPointArray() : d(new VelPointArray) {}
KDRPointArray::KDRPointArray(KDRPointArray const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRPointArray::~KDRPointArray()
{
    delete d;
    d = nullptr;
}

KDRPointArray& KDRPointArray::operator=(KDRPointArray const& other)
{
    KDRCoreArray::assign(d, other.d);
    return *this;
}

int KDRPointArray::length() const { return d->Length(); }

void KDRPointArray::push_back(KDRPoint const& value)
{
    VelPoint point = ownPoint(value);
    d->Append(point);
}
void KDRPointArray::push_back(KDRPointArray const& other) { d->Append(*other.d); }

bool KDRPointArray::removeAt(int index) { return KDRCoreArray::removeAt(*d, index); }

bool KDRPointArray::select(int index, KDRPoint* out) const
{
    return KDRCoreArray::select(*d, index, out);
}

bool KDRPointArray::replace(int index, KDRPoint const& value)
{
    VelPoint point = ownPoint(value);
    return KDRCoreArray::replace(*d, index, point);
}

bool KDRPointArray::insert(int index, KDRPoint const& value)
{
    VelPoint point = ownPoint(value);
    return KDRCoreArray::insert(*d, index, point);
}

void KDRPointArray::clear() { d->Clear(); }
bool KDRPointArray::swap(int i, int j) { return KDRCoreArray::swap(*d, i, j); }

KDRPoint KDRPointArray::operator[](int index) const { return KDRCoreArray::at<KDRPoint>(d, index); }
