#include <veldata/velmatrixarray.h>

#include <veldata/vellist_p.h>

VelMatrixArray::VelMatrixArray() noexcept : d(nullptr) {}

VelMatrixArray::VelMatrixArray(VelMatrixArray const& other) : d(vellist::copy(other.d)) {}

VelMatrixArray::VelMatrixArray(VelMatrixArray&& other) noexcept : d(std::exchange(other.d, nullptr))
{
}

VelMatrixArray::~VelMatrixArray() { delete d; }

VelMatrixArray& VelMatrixArray::operator=(VelMatrixArray const& other)
{
    vellist::assign(d, other.d);
    return *this;
}

VelMatrixArray& VelMatrixArray::operator=(VelMatrixArray&& other) noexcept
{
    vellist::take(d, other.d);
    return *this;
}

int VelMatrixArray::Append(VelMatrix const& element) { return vellist::append(d, element); }

int VelMatrixArray::Append(VelMatrixArray const& other) { return vellist::appendAll(d, other.d); }

int VelMatrixArray::Insert(int index, VelMatrix const& element)
{
    return vellist::insert(d, index, element);
}

int VelMatrixArray::Remove(int index) { return vellist::remove(d, index); }

int VelMatrixArray::Replace(int index, VelMatrix const& element)
{
    return vellist::replace(d, index, element);
}

int VelMatrixArray::Swap(int first, int second) { return vellist::swap(d, first, second); }

int VelMatrixArray::Clear() noexcept { return vellist::clear(d); }

int VelMatrixArray::Length() const noexcept { return vellist::length(d); }

int VelMatrixArray::Select(int index, VelMatrix* element) const
{
    return vellist::select(d, index, element);
}

VelMatrix VelMatrixArray::operator[](int index) const { return vellist::at(d, index); }
