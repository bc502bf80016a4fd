#include <kdrdata/vision/kdrmatrix.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>

#include <QtCore/qlist.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <type_traits>

#include <veldata/velmatrix.h>
#include <veldata/velvar.h>

namespace {

constexpr int integerValue = 0;
constexpr int floatingValue = 1;

// Appends count elements that lie the given count of elements apart. They are copied out of the
// storage byte by byte, whatever that is aligned to, and many before the first becomes a number:
// the processor waits for the memory of all at once then, where making a number would stand between
// one and the next. They go into the list by way of one number, which spares a number for each.
template <class Element>
void appendElements(QList<KDRNumber>& numbers, unsigned char const* elements, std::size_t apart,
                    int count)
{
    constexpr std::size_t atATime = 64;
    auto const all = static_cast<std::size_t>(count);
    numbers.reserve(count);
    KDRNumber number;
    for (std::size_t first = 0; first < all; first += atATime) {
        Element gathered[atATime];
        std::size_t const size = std::min(atATime, all - first);
        for (std::size_t i = 0; i < size; ++i)
            std::memcpy(&gathered[i], elements + (first + i) * apart * sizeof(Element),
                        sizeof(Element));
        for (std::size_t i = 0; i < size; ++i) {
            if constexpr (std::is_integral_v<Element>)
                number.fromInt(gathered[i]);
            else
                number.fromDouble(gathered[i]);
            numbers.append(number);
        }
    }
}

// How the raw elements of one type are decoded.
struct ElementType
{
    std::size_t bytes;
    void (*append)(QList<KDRNumber>& numbers, unsigned char const* elements, std::size_t apart,
                   int count);
};

template <class Element>
constexpr ElementType elementType = {sizeof(Element), &appendElements<Element>};

// By the code of the type.
constexpr ElementType elementTypes[] = {
    elementType<std::uint8_t>, elementType<std::int8_t>,  elementType<std::uint16_t>,
    elementType<std::int16_t>, elementType<std::int32_t>, elementType<float>,
    elementType<double>,
};
static_assert(std::size(elementTypes) == KDRMatrix::MatrixTypeFloat64 + 1);

// Reads count elements from the index first on, which lie apart elements from each other. Elements
// of an unknown type are none. The output, which is empty, stays so where memory runs out.
void read(VelMatrix const& matrix, std::size_t first, std::size_t apart, int count,
          KDRNumberArray& out)
{
    // Compared unsigned, so that a negative code counts as one beyond the last.
    auto const type = static_cast<unsigned int>(matrix.Type());
    auto const* const data = static_cast<unsigned char const*>(matrix.MatrixData());
    if (type >= std::size(elementTypes) || !data)
        return;
    ElementType const& element = elementTypes[type];
    QList<KDRNumber> numbers;
    element.append(numbers, data + first * element.bytes, apart, count);
    KDRInternal::wrapped(out).swap(numbers);
}

bool contains(VelMatrix const& matrix, int row, int col)
{
    return row >= 0 && col >= 0 && row < matrix.Rows() && col < matrix.Cols();
}

} // namespace

KDRMatrix::KDRMatrix() : d(new VelMatrix) {}
KDRMatrix::KDRMatrix(int rows, int cols, KDRMatrixType type)
    : d(new VelMatrix(rows, cols, static_cast<VelDataType>(type)))
{
}

KDRMatrix::KDRMatrix(KDRMatrix const& other) : d(nullptr)
{
    auto copy = std::make_unique<VelMatrix>();
    *copy = other.d->DeepCopy();
    d = copy.release();
}

KDRMatrix::~KDRMatrix()
{
    delete d;
    d = nullptr;
}

KDRMatrix& KDRMatrix::operator=(KDRMatrix const& other)
{
    *d = other.d->DeepCopy();
    return *this;
}

int KDRMatrix::setMatrix(int rows, int cols, KDRMatrixType type)
{
    return d->SetMatrix(rows, cols, static_cast<VelDataType>(type));
}

int KDRMatrix::rows() const { return d->Rows(); }
int KDRMatrix::cols() const { return d->Cols(); }
KDRMatrix::KDRMatrixType KDRMatrix::type() const { return static_cast<KDRMatrixType>(d->Type()); }
void* KDRMatrix::dataPtr() { return d->MatrixData(); }

bool KDRMatrix::select(int row, int col, KDRNumber* out) const
{
    if (!contains(*d, row, col))
        return false;
    Q_ASSERT(out);
    VelVar value;
    d->Select(row, col, &value);
    switch (value.ValType()) {
    case integerValue:
        out->fromLongLong(value.L());
        return true;
    case floatingValue:
        out->fromDouble(value.D());
        return true;
    default:
        return false;
    }
}

bool KDRMatrix::replace(int row, int col, KDRNumber& value)
{
    if (!contains(*d, row, col))
        return false;
    switch (value.numType()) {
    case integerValue: {
        VelVar integer(value.toLong());
        d->Replace(row, col, integer);
        return true;
    }
    case floatingValue: {
        VelVar floating(value.toDouble());
        d->Replace(row, col, floating);
        return true;
    }
    default:
        return false;
    }
}

bool KDRMatrix::getRowData(int row, KDRNumberArray* out)
{
    Q_ASSERT(out);
    out->clear();
    if (row < 0 || row >= d->Rows())
        return false;
    int const cols = d->Cols();
    // The product may lie beyond an int, where the core library holds that many elements.
    read(*d, static_cast<std::size_t>(row) * static_cast<std::size_t>(cols), 1, cols, *out);
    return true;
}

bool KDRMatrix::getColData(int col, KDRNumberArray* out)
{
    Q_ASSERT(out);
    out->clear();
    if (col < 0 || col >= d->Cols())
        return false;
    read(*d, static_cast<std::size_t>(col), static_cast<std::size_t>(d->Cols()), d->Rows(), *out);
    return true;
}
