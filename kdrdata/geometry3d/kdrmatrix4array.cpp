#include <kdrdata/geometry3d/kdrmatrix4array.h>

#include <kdrdata/internal/listarray_p.h>

KDRMatrix4Array::KDRMatrix4Array() : d(new QList<KDRMatrix4>) {}
KDRMatrix4Array::KDRMatrix4Array(KDRMatrix4Array const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRMatrix4Array::~KDRMatrix4Array()
{
    delete d;
    d = nullptr;
}

KDRMatrix4Array& KDRMatrix4Array::operator=(KDRMatrix4Array const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRMatrix4Array::length() const { return d->size(); }

void KDRMatrix4Array::push_back(KDRMatrix4 const& value) { d->append(value); }
void KDRMatrix4Array::push_back(KDRMatrix4Array const& other) { *d += *other.d; }

bool KDRMatrix4Array::insert(int index, KDRMatrix4 const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRMatrix4Array::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRMatrix4Array::replace(int index, KDRMatrix4 const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRMatrix4Array::select(int index, KDRMatrix4* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRMatrix4Array::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRMatrix4Array::clear() { d->clear(); }
KDRMatrix4 KDRMatrix4Array::operator[](int index) const { return KDRListArray::at(d, index); }
