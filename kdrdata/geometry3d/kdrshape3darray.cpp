#include <kdrdata/geometry3d/kdrshape3darray.h>

#include <kdrdata/internal/listarray_p.h>

KDRShape3DArray::KDRShape3DArray() : d(new QList<KDRShape3D>) {}
KDRShape3DArray::KDRShape3DArray(KDRShape3DArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRShape3DArray::~KDRShape3DArray()
{
    delete d;
    d = nullptr;
}

KDRShape3DArray& KDRShape3DArray::operator=(KDRShape3DArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRShape3DArray::length() const { return d->size(); }

void KDRShape3DArray::push_back(KDRShape3D const& value) { d->append(value); }
void KDRShape3DArray::push_back(KDRShape3DArray const& other) { *d += *other.d; }

bool KDRShape3DArray::insert(int index, KDRShape3D const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRShape3DArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRShape3DArray::replace(int index, KDRShape3D const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRShape3DArray::select(int index, KDRShape3D* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRShape3DArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRShape3DArray::clear() { d->clear(); }
KDRShape3D KDRShape3DArray::operator[](int index) const { return KDRListArray::at(d, index); }
