#include <kdrdata/variant/kdrvariantarray.h>

#include <kdrdata/internal/listarray_p.h>

KDRVariantArray::KDRVariantArray() : d(new QList<KDRVariant>) {}
KDRVariantArray::KDRVariantArray(KDRVariantArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRVariantArray::~KDRVariantArray()
{
    delete d;
    d = nullptr;
}

KDRVariantArray& KDRVariantArray::operator=(KDRVariantArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRVariantArray::length() const { return d->size(); }

void KDRVariantArray::push_back(KDRVariant const& value) { d->append(value); }
void KDRVariantArray::push_back(KDRVariantArray const& other)
{
    KDRListArray::appendByInstalling(*d, *other.d);
}

bool KDRVariantArray::insert(int index, KDRVariant const& value)
{
    return KDRListArray::insert(*d, index, value);
}

// The element that goes may own the store that this array lives in; it is kept until the list is
// done with.

bool KDRVariantArray::removeAt(int index)
{
    if (!KDRListArray::contains(*d, index))
        return false;
    KDRVariant const last(d->at(index));
    return KDRListArray::removeAt(*d, index);
}

bool KDRVariantArray::replace(int index, KDRVariant const& value)
{
    if (!KDRListArray::contains(*d, index))
        return false;
    KDRVariant const last(d->at(index));
    return KDRListArray::replace(*d, index, value);
}

bool KDRVariantArray::select(int index, KDRVariant* out) const
{
    if (!KDRListArray::contains(*d, index))
        return false;
    Q_ASSERT(out);
    // The output may hold this array, which then dies in the assignment, the element with it.
    KDRVariant const element(d->at(index));
    *out = element;
    return true;
}

bool KDRVariantArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRVariantArray::clear() { d->clear(); }
KDRVariant KDRVariantArray::operator[](int index) const { return KDRListArray::at(d, index); }
