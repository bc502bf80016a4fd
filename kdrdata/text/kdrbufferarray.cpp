#include <kdrdata/text/kdrbufferarray.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/internal/listarray_p.h>

#include <QtCore/QByteArray>

#include <climits>
#include <new>

KDRBufferArray::KDRBufferArray() : d(new QList<KDRBuffer>) {}
KDRBufferArray::KDRBufferArray(KDRBufferArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRBufferArray::~KDRBufferArray()
{
    delete d;
    d = nullptr;
}

KDRBufferArray& KDRBufferArray::operator=(KDRBufferArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRBufferArray::length() const { return d->size(); }

void KDRBufferArray::push_back(KDRBuffer const& value) { d->append(value); }
void KDRBufferArray::push_back(KDRBufferArray const& other) { *d += *other.d; }

bool KDRBufferArray::insert(int index, KDRBuffer const& value)
{
    return KDRListArray::insert(*d, index, value);
}

bool KDRBufferArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRBufferArray::replace(int index, KDRBuffer const& value)
{
    return KDRListArray::replace(*d, index, value);
}

bool KDRBufferArray::select(int index, KDRBuffer* out) const
{
    return KDRListArray::select(*d, index, out);
}

bool KDRBufferArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRBufferArray::clear() { d->clear(); }
KDRBuffer KDRBufferArray::operator[](int index) const { return KDRListArray::at(d, index); }

KDRBuffer KDRBufferArray::join()
{
    d->detach();
    long long size = 0;
    for (KDRBuffer const& element : qAsConst(*d))
        size += element.size();
    if (size > INT_MAX)
        throw std::bad_alloc();
    KDRBuffer joined;
    // Room for nothing would make a null buffer an empty one.
    if (d->size() > 1 && size > 0)
        joined.reserve(static_cast<int>(size));
    for (KDRBuffer const& element : qAsConst(*d))
        joined.append(element);
    return joined;
}
