#include <kdrdata/vision/kdrregionarray.h>

#include <kdrdata/vision/corearray_p.h>

#include <veldata/velregion.h>
#include <veldata/velregionarray.h>

KDRRegionArray::KDRRegionArray() : d(new VelRegionArray) {}
KDRRegionArray::KDRRegionArray(KDRRegionArray const& other) : d(new VelRegionArray(*other.d)) {}

KDRRegionArray::~KDRRegionArray()
{
    delete d;
    d = nullptr;
}

KDRRegionArray& KDRRegionArray::operator=(KDRRegionArray const& other)
{
    *d = *other.d;
    return *this;
}

int KDRRegionArray::length() const { return d->Length(); }

void KDRRegionArray::push_back(KDRRegion const& value) { d->Append(KDRCoreArray::core(value)); }
void KDRRegionArray::push_back(KDRRegionArray const& other) { d->Append(*other.d); }

bool KDRRegionArray::removeAt(int index) { return KDRCoreArray::removeAt(*d, index); }

bool KDRRegionArray::select(int index, KDRRegion* out) const
{
    return KDRCoreArray::select(*d, index, out);
}

bool KDRRegionArray::replace(int index, KDRRegion const& value)
{
    return KDRCoreArray::replace(*d, index, KDRCoreArray::core(value));
}

bool KDRRegionArray::insert(int index, KDRRegion const& value)
{
    return KDRCoreArray::insert(*d, index, KDRCoreArray::core(value));
}

void KDRRegionArray::clear() { d->Clear(); }
bool KDRRegionArray::swap(int i, int j) { return KDRCoreArray::swap(*d, i, j); }

KDRRegion KDRRegionArray::operator[](int index) const
{
    return KDRCoreArray::at<KDRRegion>(d, index);
}

void KDRRegionArray::toUnionedRegion(KDRRegion* region)
{
    Q_ASSERT(region);
    d->Union(&KDRCoreArray::core(*region));
}
