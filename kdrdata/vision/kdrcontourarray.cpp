#include <kdrdata/vision/kdrcontourarray.h>

#include <kdrdata/vision/corearray_p.h>

#include <veldata/velcontourarray.h>

KDRContourArray::KDRContourArray() : d(new VelContourArray) {}
KDRContourArray::KDRContourArray(KDRContourArray const& other)
    : d(KDRInternal::assignedCopy(other.d))
{
}

KDRContourArray::~KDRContourArray()
{
    delete d;
    d = nullptr;
}

KDRContourArray& KDRContourArray::operator=(KDRContourArray const& other)
{
    KDRCoreArray::assign(d, other.d);
    return *this;
}

int KDRContourArray::length() const { return d->Length(); }

void KDRContourArray::push_back(KDRContour const& value) { d->Append(KDRCoreArray::core(value)); }
void KDRContourArray::push_back(KDRContourArray const& other) { d->Append(*other.d); }

bool KDRContourArray::removeAt(int index) { return KDRCoreArray::removeAt(*d, index); }

bool KDRContourArray::select(int index, KDRContour* out) const
{
    return KDRCoreArray::select(*d, index, out);
}

bool KDRContourArray::replace(int index, KDRContour const& value)
{
    return KDRCoreArray::replace(*d, index, KDRCoreArray::core(value));
}

bool KDRContourArray::insert(int index, KDRContour const& value)
{
    return KDRCoreArray::insert(*d, index, KDRCoreArray::core(value));
}

void KDRContourArray::clear() { d->Clear(); }
bool KDRContourArray::swap(int i, int j) { return KDRCoreArray::swap(*d, i, j); }

KDRContour KDRContourArray::operator[](int index) const
{
    return KDRCoreArray::at<KDRContour>(d, index);
}
