#include <veldata/velvararray.h>

#include <veldata/vellist_p.h>

VelVarArray::VelVarArray() noexcept : d(nullptr) {}

VelVarArray::VelVarArray(VelVarArray const& other) : d(vellist::copy(other.d)) {}

VelVarArray::VelVarArray(VelVarArray&& other) noexcept : d(std::exchange(other.d, nullptr)) {}

VelVarArray::~VelVarArray() { delete d; }

VelVarArray& VelVarArray::operator=(VelVarArray const& other)
{
    vellist::assign(d, other.d);
    return *this;
}

VelVarArray& VelVarArray::operator=(VelVarArray&& other) noexcept
{
    vellist::take(d, other.d);
    return *this;
}

int VelVarArray::Append(VelVar const& element) { return vellist::append(d, element); }

int VelVarArray::Append(VelVarArray const& other) { return vellist::appendAll(d, other.d); }

int VelVarArray::Insert(int index, VelVar const& element)
{
    return vellist::insert(d, index, element);
}

int VelVarArray::Remove(int index) { return vellist::remove(d, index); }

int VelVarArray::Replace(int index, VelVar const& element)
{
    return vellist::replace(d, index, element);
}

int VelVarArray::Swap(int first, int second) { return vellist::swap(d, first, second); }

int VelVarArray::Clear() noexcept { return vellist::clear(d); }

int VelVarArray::Length() const noexcept { return vellist::length(d); }

int VelVarArray::Select(int index, VelVar* element) const
{
    return vellist::select(d, index, element);
}

VelVar VelVarArray::operator[](int index) const { return vellist::at(d, index); }
