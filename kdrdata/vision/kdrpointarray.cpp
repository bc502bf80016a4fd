#include <kdrdata/vision/kdrpointarray.h>

#include <kdrdata/vision/corearray_p.h>

#include <veldata/velpointarray.h>

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
    VelPoint point = KDRCoreArray::core(value);
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
    return KDRCoreArray::replace(*d, index, value);
}

bool KDRPointArray::insert(int index, KDRPoint const& value)
{
    return KDRCoreArray::insert(*d, index, value);
}

void KDRPointArray::clear() { d->Clear(); }
bool KDRPointArray::swap(int i, int j) { return KDRCoreArray::swap(*d, i, j); }

KDRPoint KDRPointArray::operator[](int index) const { return KDRCoreArray::at<KDRPoint>(d, index); }
