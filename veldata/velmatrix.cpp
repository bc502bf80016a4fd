#include <veldata/velmatrix.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include <veldata/velimagetype.h>
#include <veldata/velvar.h>

namespace {

constexpr int integerValue = 0;
constexpr int floatingValue = 1;

template <class Integer>
Integer saturated(double value)
{
    if (std::isnan(value))
        return 0;
    using Limits = std::numeric_limits<Integer>;
    double const rounded = std::nearbyint(value);
    if (rounded <= static_cast<double>(Limits::min()))
        return Limits::min();
    if (rounded >= static_cast<double>(Limits::max()))
        return Limits::max();
    return static_cast<Integer>(rounded);
}

template <class Integer>
Integer saturated(long value)
{
    using Limits = std::numeric_limits<Integer>;
    if (value <= static_cast<long>(Limits::min()))
        return Limits::min();
    if (value >= static_cast<long>(Limits::max()))
        return Limits::max();
    return static_cast<Integer>(value);
}

template <class Integer>
VelVar readInteger(unsigned char const* element)
{
    Integer value;
    std::memcpy(&value, element, sizeof value);
    return VelVar(static_cast<long>(value));
}

template <class Integer>
void writeInteger(unsigned char* element, VelVar const& variable)
{
    Integer const value = variable.ValType() == integerValue ? saturated<Integer>(variable.L())
                                                             : saturated<Integer>(variable.D());
    std::memcpy(element, &value, sizeof value);
}

template <class Floating>
VelVar readFloating(unsigned char const* element)
{
    Floating value;
    std::memcpy(&value, element, sizeof value);
    return VelVar(static_cast<double>(value));
}

/// A double beyond the range of a float has no value there; it becomes the largest finite one.
float narrowed(double value)
{
    constexpr double largest = std::numeric_limits<float>::max();
    if (std::isfinite(value) && std::fabs(value) > largest)
        value = std::copysign(largest, value);
    return static_cast<float>(value);
}

void writeFloat(unsigned char* element, VelVar const& variable)
{
    // By way of a double a large integer would be rounded twice.
    float const value = variable.ValType() == integerValue ? static_cast<float>(variable.L())
                                                           : narrowed(variable.D());
    std::memcpy(element, &value, sizeof value);
}

void writeDouble(unsigned char* element, VelVar const& variable)
{
    double const value = variable.D();
    std::memcpy(element, &value, sizeof value);
}

/// How the elements of one type are read and written.
struct ElementType
{
    std::size_t bytes;
    VelVar (*read)(unsigned char const* element);
    void (*write)(unsigned char* element, VelVar const& variable);
};

/// By the code of the type.
constexpr ElementType elementTypes[] = {
    {sizeof(std::uint8_t), &readInteger<std::uint8_t>, &writeInteger<std::uint8_t>},
    {sizeof(std::int8_t), &readInteger<std::int8_t>, &writeInteger<std::int8_t>},
    {sizeof(std::uint16_t), &readInteger<std::uint16_t>, &writeInteger<std::uint16_t>},
    {sizeof(std::int16_t), &readInteger<std::int16_t>, &writeInteger<std::int16_t>},
    {sizeof(std::int32_t), &readInteger<std::int32_t>, &writeInteger<std::int32_t>},
    {sizeof(float), &readFloating<float>, &writeFloat},
    {sizeof(double), &readFloating<double>, &writeDouble},
};
static_assert(VEL_64F == 6, "the table ends with the last type");

bool isKnown(VelDataType type) { return type >= VEL_8U && type <= VEL_64F; }

std::size_t bytesOf(int rows, int columns, VelDataType type)
{
    return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns) *
           elementTypes[type].bytes;
}

/// Whether a matrix may have these sizes. Two sizes multiply to at most 2^62, and the division
/// keeps the size of an element out of the product.
bool isPossible(int rows, int columns, VelDataType type)
{
    return rows >= 0 && columns >= 0 && isKnown(type) &&
           std::int64_t{rows} * columns <=
               INT_MAX / static_cast<std::int64_t>(elementTypes[type].bytes);
}

} // namespace

VelMatrix::VelMatrix() noexcept
    : rowCount(0),
      columnCount(0),
      elementType(VEL_8U),
      elements(nullptr),
      releaseOwner(&std::free),
      owner(nullptr)
{
}

VelMatrix::VelMatrix(int rows, int columns, VelDataType type) noexcept : VelMatrix()
{
    SetMatrix(rows, columns, type);
}

VelMatrix::VelMatrix(VelMatrix const& other) : VelMatrix()
{
    if (!SetMatrix(other.rowCount, other.columnCount, other.elementType))
        throw std::bad_alloc();
    if (elements)
        std::memcpy(elements, other.elements, bytesOf(rowCount, columnCount, elementType));
}

VelMatrix::VelMatrix(VelMatrix&& other) noexcept : VelMatrix() { swap(other); }

VelMatrix::~VelMatrix() { releaseOwner(owner); }

VelMatrix& VelMatrix::operator=(VelMatrix const& other)
{
    VelMatrix copy(other);
    swap(copy);
    return *this;
}

VelMatrix& VelMatrix::operator=(VelMatrix&& other) noexcept
{
    VelMatrix taken(std::move(other));
    swap(taken);
    return *this;
}

VelMatrix VelMatrix::DeepCopy() const { return *this; }

int VelMatrix::SetMatrix(int rows, int columns, VelDataType type) noexcept
{
    if (!isPossible(rows, columns, type))
        return 0;
    void* zeroed = nullptr;
    if (std::size_t const bytes = bytesOf(rows, columns, type)) {
        zeroed = std::calloc(bytes, 1);
        if (!zeroed)
            return 0;
    }
    replaceBy(zeroed, rows, columns, type, &std::free, zeroed);
    return 1;
}

int VelMatrix::SetMatrixOver(void* data, int rows, int columns, VelDataType type,
                             void (*release)(void*), void* dataOwner) noexcept
{
    if (!data || !release || !isPossible(rows, columns, type) || bytesOf(rows, columns, type) == 0)
        return 0;
    replaceBy(data, rows, columns, type, release, dataOwner);
    return 1;
}

int VelMatrix::Rows() const noexcept { return rowCount; }
int VelMatrix::Cols() const noexcept { return columnCount; }
VelDataType VelMatrix::Type() const noexcept { return elementType; }
void* VelMatrix::MatrixData() const noexcept { return elements; }

unsigned char* VelMatrix::elementAt(int row, int column) const noexcept
{
    if (row < 0 || row >= rowCount || column < 0 || column >= columnCount)
        return nullptr;
    std::size_t const index =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(columnCount) +
        static_cast<std::size_t>(column);
    return elements + index * elementTypes[elementType].bytes;
}

int VelMatrix::Select(int row, int column, VelVar* value) const noexcept
{
    unsigned char const* const element = elementAt(row, column);
    if (!element || !value)
        return 0;
    *value = elementTypes[elementType].read(element);
    return 1;
}

int VelMatrix::Replace(int row, int column, VelVar const& value) noexcept
{
    unsigned char* const element = elementAt(row, column);
    if (!element || (value.ValType() != integerValue && value.ValType() != floatingValue))
        return 0;
    elementTypes[elementType].write(element, value);
    return 1;
}

void VelMatrix::replaceBy(void* data, int rows, int columns, VelDataType type,
                          void (*release)(void*), void* dataOwner) noexcept
{
    VelMatrix former;
    swap(former);
    rowCount = rows;
    columnCount = columns;
    elementType = type;
    elements = static_cast<unsigned char*>(data);
    releaseOwner = release;
    owner = dataOwner;
}

void VelMatrix::swap(VelMatrix& other) noexcept
{
    std::swap(rowCount, other.rowCount);
    std::swap(columnCount, other.columnCount);
    std::swap(elementType, other.elementType);
    std::swap(elements, other.elements);
    std::swap(releaseOwner, other.releaseOwner);
    std::swap(owner, other.owner);
}
