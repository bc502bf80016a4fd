#include <kdrdata/vision/kdrimagearray.h>

#include <kdrdata/vision/corearray_p.h>

#include <veldata/velimagearray.h>

KDRImageArray::KDRImageArray() : d(new VelImageArray) {}
KDRImageArray::KDRImageArray(KDRImageArray const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRImageArray::~KDRImageArray()
{
    delete d;
    d = nullptr;
}

KDRImageArray& KDRImageArray::operator=(KDRImageArray const& other)
{
    KDRCoreArray::assign(d, other.d);
    return *this;
}

int KDRImageArray::length() const { return d->Length(); }

void KDRImageArray::push_back(KDRImage const& value) { d->Append(KDRCoreArray::core(value)); }
void KDRImageArray::push_back(KDRImageArray const& other) { d->Append(*other.d); }

bool KDRImageArray::removeAt(int index) { return KDRCoreArray::removeAt(*d, index); }

bool KDRImageArray::select(int index, KDRImage* out) const
{
    return KDRCoreArray::select(*d, index, out);
}

bool KDRImageArray::replace(int index, KDRImage const& value)
{
    return KDRCoreArray::replace(*d, index, KDRCoreArray::core(value));
}

bool KDRImageArray::insert(int index, KDRImage const& value)
{
    return KDRCoreArray::insert(*d, index, KDRCoreArray::core(value));
}

void KDRImageArray::clear() { d->Clear(); }
bool KDRImageArray::swap(int i, int j) { return KDRCoreArray::swap(*d, i, j); }

KDRImage KDRImageArray::operator[](int index) const { return KDRCoreArray::at<KDRImage>(d, index); }
