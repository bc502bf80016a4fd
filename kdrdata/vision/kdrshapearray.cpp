#include <kdrdata/vision/kdrshapearray.h>

#include <kdrdata/internal/listarray_p.h>

KDRShapeArray::KDRShapeArray() : d(new QList<KDRShape>) {}
KDRShapeArray::KDRShapeArray(KDRShapeArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRShapeArray::~KDRShapeArray()
{
    delete d;
    d = nullptr;
}

KDRShapeArray& KDRShapeArray::operator=(KDRShapeArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRShapeArray::length() const { return d->size(); }

void KDRShapeArray::push_back(KDRShape const& value) { d->append(value); }
void KDRShapeArray::push_back(KDRShapeArray const& other) { d->append(*other.d); }

bool KDRShapeArray::insert(int index, KDRShape const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRShapeArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRShapeArray::replace(int index, KDRShape const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRShapeArray::select(int index, KDRShape* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRShapeArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRShapeArray::clear() { d->clear(); }
KDRShape KDRShapeArray::operator[](int index) const { return KDRListArray::at(d, index); }
