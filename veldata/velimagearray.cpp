#include <veldata/velimagearray.h>

#include <veldata/vellist_p.h>

VelImageArray::VelImageArray() noexcept : d(nullptr) {}

VelImageArray::VelImageArray(VelImageArray const& other) : d(vellist::copy(other.d)) {}

VelImageArray::VelImageArray(VelImageArray&& other) noexcept : d(std::exchange(other.d, nullptr)) {}

VelImageArray::~VelImageArray() { delete d; }

VelImageArray& VelImageArray::operator=(VelImageArray const& other)
{
    vellist::assign(d, other.d);
    return *this;
}

VelImageArray& VelImageArray::operator=(VelImageArray&& other) noexcept
{
    vellist::take(d, other.d);
    return *this;
}

int VelImageArray::Append(VelImage const& element) { return vellist::append(d, element); }

int VelImageArray::Append(VelImageArray const& other) { return vellist::appendAll(d, other.d); }

int VelImageArray::Insert(int index, VelImage const& element)
{
    return vellist::insert(d, index, element);
}

int VelImageArray::Remove(int index) { return vellist::remove(d, index); }

int VelImageArray::Replace(int index, VelImage const& element)
{
    return vellist::replace(d, index, element);
}

int VelImageArray::Swap(int first, int second) { return vellist::swap(d, first, second); }

int VelImageArray::Clear() noexcept { return vellist::clear(d); }

int VelImageArray::Length() const noexcept { return vellist::length(d); }

int VelImageArray::Select(int index, VelImage* element) const
{
    return vellist::select(d, index, element);
}

VelImage VelImageArray::operator[](int index) const { return vellist::at(d, index); }
