#include <kdrdata/scalars/kdrenumarray.h>

#include <kdrdata/internal/listarray_p.h>

KDREnumArray::KDREnumArray() : d(new QList<KDREnum>) {}
KDREnumArray::KDREnumArray(KDREnumArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDREnumArray::~KDREnumArray()
{
    delete d;
    d = nullptr;
}

KDREnumArray& KDREnumArray::operator=(KDREnumArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDREnumArray::length() const { return d->size(); }

void KDREnumArray::push_back(KDREnum const& value) { d->append(value); }
void KDREnumArray::push_back(KDREnumArray const& other)
{
    KDRListArray::appendByInstalling(*d, *other.d);
}

bool KDREnumArray::insert(int index, KDREnum const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDREnumArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDREnumArray::replace(int index, KDREnum const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDREnumArray::select(int index, KDREnum* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDREnumArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDREnumArray::clear() { d->clear(); }
KDREnum KDREnumArray::operator[](int index) const { return KDRListArray::at(d, index); }
