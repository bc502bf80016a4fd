#include <kdrdata/vision/kdrregion.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>

#include <QtCore/qlist.h>

#include <memory>

#include <veldata/velregion.h>
#include <veldata/velvar.h>
#include <veldata/velvararray.h>

namespace {

/// Fills @p values with the first @p length numbers of a list, with 0 for those that it does not
/// have. Reads in place: the numbers are not copied and a shared list stays shared.
void fill(VelVarArray& values, KDRNumberArray const& column, int length)
{
    QList<KDRNumber> const& numbers = KDRInternal::wrapped(column);
    for (int i = 0; i < length; ++i)
        values.Append(VelVar(i < numbers.size() ? numbers.at(i).toLong() : 0L));
}

} // namespace

KDRRegion::KDRRegion() : d(new VelRegion) {}

KDRRegion::KDRRegion(KDRRegion const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRRegion::~KDRRegion()
{
    delete d;
    d = nullptr;
}

KDRRegion& KDRRegion::operator=(KDRRegion const& other)
{
    *d = *other.d;
    return *this;
}

int KDRRegion::width() { return d->Width(); }
int KDRRegion::height() { return d->Height(); }

void KDRRegion::fromBinImage(KDRImage&) {}
bool KDRRegion::toBinImage(KDRImage*) { return false; }

void KDRRegion::fromRunLengthEncodeing(KDRNumberArray& rows, KDRNumberArray& firstColumns,
                                       KDRNumberArray& lastColumns, int width, int height)
{
    int const length = rows.length();
    Q_ASSERT(firstColumns.length() >= length);
    Q_ASSERT(lastColumns.length() >= length);
    VelVarArray first;
    VelVarArray second;
    VelVarArray third;
    fill(first, rows, length);
    fill(second, firstColumns, length);
    fill(third, lastColumns, length);
    auto region = width >= 0 ? std::make_unique<VelRegion>(width, height, first, second, third)
                             : std::make_unique<VelRegion>(first, second, third);
    delete d;
    d = region.release();
}

bool KDRRegion::toRunLengthEncodeing(KDRNumberArray* rows, KDRNumberArray* firstColumns,
                                     KDRNumberArray* lastColumns)
{
    Q_ASSERT(rows);
    Q_ASSERT(firstColumns);
    Q_ASSERT(lastColumns);
    QList<KDRNumber>* const columns[] = {&KDRInternal::wrapped(*rows),
                                         &KDRInternal::wrapped(*firstColumns),
                                         &KDRInternal::wrapped(*lastColumns)};
    auto const clear = [&columns] {
        for (auto* column : columns)
            column->clear();
    };
    clear();
    try {
        VelVarArray values[3];
        d->GetRegionRuns(&values[0], &values[1], &values[2]);
        int const length = values[0].Length();
        for (auto* column : columns)
            column->reserve(length);
        KDRNumber number(0);
        for (int i = 0; i < length; ++i) {
            for (int column = 0; column < 3; ++column) {
                number.fromLong(values[column][i].L());
                columns[column]->append(number);
            }
        }
    } catch (...) {
        clear();
        throw;
    }
    return true;
}
