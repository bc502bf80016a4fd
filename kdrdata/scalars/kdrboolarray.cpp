#include <kdrdata/scalars/kdrboolarray.h>

#include <kdrdata/internal/listarray_p.h>

KDRBoolArray::KDRBoolArray() : d(new QList<bool>) {}
KDRBoolArray::KDRBoolArray(KDRBoolArray const& other)
    : d(new QList<bool>(KDRListArray::sharedUnlessEmpty(*other.d)))
{
}

KDRBoolArray::~KDRBoolArray()
{
    delete d;
    d = nullptr;
}

KDRBoolArray& KDRBoolArray::operator=(KDRBoolArray const& other)
{
    *d = *other.d;
    return *this;
}

int KDRBoolArray::length() const { return d->size(); }

void KDRBoolArray::push_back(bool const& value) { d->append(value); }
void KDRBoolArray::push_back(KDRBoolArray const& other)
{
    KDRListArray::appendByInstalling(*d, *other.d);
}

bool KDRBoolArray::insert(int index, bool const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRBoolArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRBoolArray::replace(int index, bool const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRBoolArray::select(int index, bool* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRBoolArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRBoolArray::clear() { d->clear(); }
bool& KDRBoolArray::operator[](int index) { return (*d)[index]; }
bool KDRBoolArray::operator[](int index) const { return (*d)[index]; }
