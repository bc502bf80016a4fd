#include <veldata/velpointarray.h>

#include <veldata/vellist_p.h>

VelPointArray::VelPointArray() noexcept : d(nullptr) {}

VelPointArray::VelPointArray(VelPointArray const& other) : d(vellist::copy(other.d)) {}

VelPointArray::VelPointArray(VelPointArray&& other) noexcept : d(std::exchange(other.d, nullptr)) {}

VelPointArray::~VelPointArray() { delete d; }

VelPointArray& VelPointArray::operator=(VelPointArray const& other)
{
    vellist::assign(d, other.d);
    return *this;
}

VelPointArray& VelPointArray::operator=(VelPointArray&& other) noexcept
{
    vellist::take(d, other.d);
    return *this;
}

int VelPointArray::Append(VelPoint const& element) { return vellist::append(d, element); }

int VelPointArray::Append(VelPointArray const& other) { return vellist::appendAll(d, other.d); }

int VelPointArray::Insert(int index, VelPoint const& element)
{
    return vellist::insert(d, index, element);
}

int VelPointArray::Remove(int index) { return vellist::remove(d, index); }

int VelPointArray::Replace(int index, VelPoint const& element)
{
    return vellist::replace(d, index, element);
}

int VelPointArray::Swap(int first, int second) { return vellist::swap(d, first, second); }

int VelPointArray::Clear() noexcept { return vellist::clear(d); }

int VelPointArray::Length() const noexcept { return vellist::length(d); }

int VelPointArray::Select(int index, VelPoint* element) const
{
    return vellist::select(d, index, element);
}

VelPoint VelPointArray::operator[](int index) const { return vellist::at(d, index); }
