#include <veldata/velcontourarray.h>

#include <veldata/vellist_p.h>

VelContourArray::VelContourArray() noexcept : d(nullptr) {}

VelContourArray::VelContourArray(VelContourArray const& other) : d(vellist::copy(other.d)) {}

VelContourArray::VelContourArray(VelContourArray&& other) noexcept
    : d(std::exchange(other.d, nullptr))
{
}

VelContourArray::~VelContourArray() { delete d; }

VelContourArray& VelContourArray::operator=(VelContourArray const& other)
{
    vellist::assign(d, other.d);
    return *this;
}

VelContourArray& VelContourArray::operator=(VelContourArray&& other) noexcept
{
    vellist::take(d, other.d);
    return *this;
}

int VelContourArray::Append(VelContour const& element) { return vellist::append(d, element); }

int VelContourArray::Append(VelContourArray const& other) { return vellist::appendAll(d, other.d); }

int VelContourArray::Insert(int index, VelContour const& element)
{
    return vellist::insert(d, index, element);
}

int VelContourArray::Remove(int index) { return vellist::remove(d, index); }

int VelContourArray::Replace(int index, VelContour const& element)
{
    return vellist::replace(d, index, element);
}

int VelContourArray::Swap(int first, int second) { return vellist::swap(d, first, second); }

int VelContourArray::Clear() noexcept { return vellist::clear(d); }

int VelContourArray::Length() const noexcept { return vellist::length(d); }

int VelContourArray::Select(int index, VelContour* element) const
{
    return vellist::select(d, index, element);
}

VelContour VelContourArray::operator[](int index) const { return vellist::at(d, index); }
