// What values weigh: bytes of the heap, as the C library's allocator accounts for them, blocks'
// heads and rounding included, and the handle itself. `memory FILE` writes the rows as JSON.

#include "bare.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

#include <malloc.h>

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <string>
#include <vector>

#include <kdrdata/kdrdata.h>

Q_DECLARE_METATYPE(KDRShape)
Q_DECLARE_TYPEINFO(bare::Number, Q_MOVABLE_TYPE);

namespace {

constexpr std::size_t many = 20000;

double heapInUse()
{
    struct mallinfo2 const info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

// Bytes each of many values, in a vector that grew beforehand.
template <class Make>
double bytesEach(Make const& make)
{
    using Value = decltype(make());
    std::vector<Value> values;
    values.reserve(many);
    double const before = heapInUse();
    for (std::size_t i = 0; i < many; ++i)
        values.push_back(make());
    return sizeof(Value) + (heapInUse() - before) / static_cast<double>(many);
}

// Bytes that each unit adds to what is made of that many units.
template <class Make>
double bytesPerUnit(double units, Make const& make)
{
    double const before = heapInUse();
    auto const value = make();
    return (heapInUse() - before) / units;
}

KDRShape circle()
{
    KDRPoint centre(3.0, 4.0);
    KDRShape shape;
    shape.fromCircle(centre, 5.0);
    return shape;
}

KDRRegion regionOf(int runs)
{
    KDRNumberArray lists[3];
    for (int i = 0; i < runs; ++i) {
        lists[0].push_back(KDRNumber(i / 16));
        lists[1].push_back(KDRNumber(i % 16 * 256));
        lists[2].push_back(KDRNumber(i % 16 * 256 + 99));
    }
    KDRRegion region;
    region.fromRunLengthEncodeing(lists[0], lists[1], lists[2], 4096, 4096);
    return region;
}

struct Row
{
    std::string name;
    double ours;
    std::string peerName;
    double peer;
    double floor;
};

std::vector<Row> measure()
{
    KDRVariant const shared(128);
    KDRShape const sharedShape = circle();
    QString const text(40, QLatin1Char('x'));
    KDRString const ourText(text.toUtf8().constData());
    constexpr int runs = 100000;
    return {
        {"variant of an int", bytesEach([] { return KDRVariant(1); }), "QVariant",
         bytesEach([] { return QVariant(1); }),
         bytesEach([] { return bare::Variant<bare::Number>(1); })},
        {"variant of a flag", bytesEach([] { return KDRVariant(true); }), "QVariant",
         bytesEach([] { return QVariant(true); }),
         bytesEach([] { return bare::Variant<bool>(true); })},
        {"variant of a text that is shared", bytesEach([&] { return KDRVariant(ourText); }),
         "QVariant", bytesEach([&] { return QVariant(text); }),
         bytesEach([&] { return bare::Variant<bare::Held<QString>>(text); })},
        {"variant of a shape that is shared", bytesEach([&] { return KDRVariant(sharedShape); }),
         "QVariant", bytesEach([&] { return QVariant::fromValue(sharedShape); }),
         bytesEach([&] { return bare::Variant<KDRShape>(sharedShape); })},
        {"variant that shares its store", bytesEach([&] { return KDRVariant(shared); }), "QVariant",
         bytesEach([] { return QVariant(1); }), 0.0},
        {"number", bytesEach([] { return KDRNumber(1); }), "double", sizeof(double),
         bytesEach([] { return bare::Number(1); })},
        {"number in an array",
         bytesPerUnit(many,
                      [] {
                          KDRNumberArray array;
                          for (std::size_t i = 0; i < many; ++i)
                              array.push_back(KDRNumber(0.5));
                          return array;
                      }),
         "QVariantList of doubles",
         bytesPerUnit(many,
                      [] {
                          QVariantList list;
                          for (std::size_t i = 0; i < many; ++i)
                              list.append(QVariant(0.5));
                          return list;
                      }),
         bytesPerUnit(many,
                      [] {
                          QList<bare::Number> list;
                          for (std::size_t i = 0; i < many; ++i)
                              list.append(bare::Number(0.5));
                          return list;
                      })},
        {"text of 40 characters", bytesEach([] {
             return KDRString("the quick brown fox jumps over "
                              "lazy dogs");
         }),
         "QString", bytesEach([] { return QString("the quick brown fox jumps over lazy dogs"); }),
         0.0},
        {"point", bytesEach([] { return KDRPoint(1.0, 2.0); }), "two doubles", 2 * sizeof(double),
         0.0},
        {"shape", bytesEach([] { return circle(); }), "", 0.0, 0.0},
        {"shape that shares its record in an array",
         bytesPerUnit(many,
                      [&] {
                          KDRShapeArray array;
                          for (std::size_t i = 0; i < many; ++i)
                              array.push_back(sharedShape);
                          return array;
                      }),
         "", 0.0, 0.0},
        {"matrix of 3 x 3 doubles",
         bytesEach([] { return KDRMatrix(3, 3, KDRMatrix::MatrixTypeFloat64); }), "nine doubles",
         9 * sizeof(double), 0.0},
        {"run of a region", bytesPerUnit(runs, [] { return regionOf(runs); }), "three longs",
         3 * sizeof(long), 0.0},
    };
}

} // namespace

int main(int argc, char* argv[])
{
    std::vector<Row> const rows = measure();
    std::printf("%-42s %8s %8s %8s\n", "bytes of", "ours", "peer", "floor");
    for (Row const& row : rows)
        std::printf("%-42s %8.1f %8.1f %8.1f\n", row.name.c_str(), row.ours, row.peer, row.floor);
    if (argc < 2)
        return 0;
    std::ofstream file(argv[1]);
    file << "[\n" << std::fixed << std::setprecision(1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Row const& row = rows[i];
        file << R"({"name": ")" << row.name << R"(", "ours": )" << row.ours << R"(, "peerName": ")"
             << row.peerName << R"(", "peer": )" << row.peer << R"(, "floor": )" << row.floor
             << (i + 1 < rows.size() ? "},\n" : "}\n");
    }
    file << "]\n";
    file.close();
    return file ? 0 : 1;
}
