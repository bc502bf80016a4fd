#include <kdrdata/vision/kdrmatrixarray.h>

#include <kdrdata/vision/corearray_p.h>

#include <veldata/velmatrix.h>
#include <veldata/velmatrixarray.h>

KDRMatrixArray::KDRMatrixArray() : d(new VelMatrixArray) {}
KDRMatrixArray::KDRMatrixArray(KDRMatrixArray const& other) : d(KDRInternal::assignedCopy(other.d))
{
}

KDRMatrixArray::~KDRMatrixArray()
{
    delete d;
    d = nullptr;
}

KDRMatrixArray& KDRMatrixArray::operator=(KDRMatrixArray const& other)
{
    *d = *other.d;
    return *this;
}

int KDRMatrixArray::length() const { return d->Length(); }

void KDRMatrixArray::push_back(KDRMatrix const& value) { d->Append(KDRCoreArray::core(value)); }
void KDRMatrixArray::push_back(KDRMatrixArray const& other) { d->Append(*other.d); }

bool KDRMatrixArray::removeAt(int index) { return KDRCoreArray::removeAt(*d, index); }

bool KDRMatrixArray::select(int index, KDRMatrix* out) const
{
    return KDRCoreArray::select(*d, index, out);
}

bool KDRMatrixArray::replace(int index, KDRMatrix const& value)
{
    return KDRCoreArray::replace(*d, index, KDRCoreArray::core(value));
}

bool KDRMatrixArray::insert(int index, KDRMatrix const& value)
{
    return KDRCoreArray::insert(*d, index, KDRCoreArray::core(value));
}

void KDRMatrixArray::clear() { d->Clear(); }
bool KDRMatrixArray::swap(int i, int j) { return KDRCoreArray::swap(*d, i, j); }

KDRMatrix KDRMatrixArray::operator[](int index) const
{
    return KDRCoreArray::at<KDRMatrix>(d, index);
}
