#include <kdrdata/scalars/kdrnumberarray.h>

#include <kdrdata/internal/listarray_p.h>

KDRNumberArray::KDRNumberArray() : d(new QList<KDRNumber>) {}
KDRNumberArray::KDRNumberArray(KDRNumberArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRNumberArray::~KDRNumberArray()
{
    delete d;
    d = nullptr;
}

KDRNumberArray& KDRNumberArray::operator=(KDRNumberArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRNumberArray::length() const { return d->size(); }

void KDRNumberArray::push_back(KDRNumber const& value) { KDRListArray::append(*d, value); }
void KDRNumberArray::push_back(KDRNumberArray const& other)
{
    KDRListArray::appendByInstalling(*d, *other.d);
}

bool KDRNumberArray::insert(int index, KDRNumber const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRNumberArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRNumberArray::replace(int index, KDRNumber const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRNumberArray::select(int index, KDRNumber* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRNumberArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRNumberArray::clear() { d->clear(); }
KDRNumber KDRNumberArray::operator[](int index) const { return KDRListArray::at(d, index); }
