#include <kdrdata/geometry3d/kdrmatrix3array.h>

#include <kdrdata/internal/listarray_p.h>

KDRMatrix3Array::KDRMatrix3Array() : d(new QList<KDRMatrix3>) {}
KDRMatrix3Array::KDRMatrix3Array(KDRMatrix3Array const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRMatrix3Array::~KDRMatrix3Array()
{
    delete d;
    d = nullptr;
}

KDRMatrix3Array& KDRMatrix3Array::operator=(KDRMatrix3Array const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRMatrix3Array::length() const { return d->size(); }

void KDRMatrix3Array::push_back(KDRMatrix3 const& value) { d->append(value); }
void KDRMatrix3Array::push_back(KDRMatrix3Array const& other) { *d += *other.d; }

bool KDRMatrix3Array::insert(int index, KDRMatrix3 const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRMatrix3Array::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRMatrix3Array::replace(int index, KDRMatrix3 const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRMatrix3Array::select(int index, KDRMatrix3* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRMatrix3Array::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRMatrix3Array::clear() { d->clear(); }
KDRMatrix3 KDRMatrix3Array::operator[](int index) const { return KDRListArray::at(d, index); }
