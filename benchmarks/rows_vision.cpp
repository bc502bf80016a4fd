// Matrices, regions, outlines and images: against OpenCV, QVariantList, masks of bytes and plain
// copies.

#include "bare.h"
#include "rows.h"

#include <QtCore/qlist.h>
#include <QtCore/qvariant.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <kdrdata/kdrdata.h>
#include <veldata/veldata.h>

Q_DECLARE_TYPEINFO(bare::Number, Q_MOVABLE_TYPE);

namespace {

using ratio::bitsOf;
using ratio::Checksum;
using ratio::escape;
using ratio::Side;

// --- matrices
// -------------------------------------------------------------------------------------

constexpr int side = 4096;

float elementAt(int row, int col) { return static_cast<float>((row * 31 + col) % 1000) + 0.5F; }

// One matrix for all rows, and OpenCV's view of the same elements: what one side leaves in the
// caches serves the next one, whichever it is.
struct Matrices
{
    Matrices()
        : ours(side, side, KDRMatrix::MatrixTypeFloat32), cv(side, side, CV_32F, ours.dataPtr())
    {
        for (int row = 0; row < side; ++row) {
            for (int col = 0; col < side; ++col)
                cv.at<float>(row, col) = elementAt(row, col);
        }
    }

    KDRMatrix ours;
    cv::Mat cv;
};

// Reads line after line; the sum is that of the last elements.
template <class Read>
Side readingLines(Read const& read)
{
    return [read = Read(read)](std::size_t times) mutable {
        double sum = 0.0;
        for (std::size_t i = 0; i < times; ++i)
            sum += read(static_cast<int>(i % side));
        return bitsOf(sum);
    };
}

Side ourLines(std::shared_ptr<Matrices> const& of, bool columns)
{
    return readingLines([of, columns, line = KDRNumberArray()](int i) mutable {
        if (columns)
            of->ours.getColData(i, &line);
        else
            of->ours.getRowData(i, &line);
        KDRNumber last;
        line.select(side - 1, &last);
        return last.toDouble();
    });
}

Side filledLines(std::shared_ptr<Matrices> const& of, bool columns)
{
    return readingLines([of, columns](int i) {
        QVariantList line;
        auto const* const elements = of->cv.ptr<float>();
        std::size_t const apart = columns ? side : 1;
        float const* const first = elements + static_cast<std::size_t>(i) * (columns ? 1 : side);
        for (std::size_t at = 0; at < side; ++at)
            line.append(QVariant(static_cast<double>(first[at * apart])));
        return line.at(side - 1).toDouble();
    });
}

Side bareLines(std::shared_ptr<Matrices> const& of, bool columns)
{
    return readingLines([of, columns](int i) {
        QList<bare::Number> line;
        line.reserve(side);
        auto const* const elements = of->cv.ptr<float>();
        std::size_t const apart = columns ? side : 1;
        float const* const first = elements + static_cast<std::size_t>(i) * (columns ? 1 : side);
        bare::Number number(0.0);
        for (std::size_t at = 0; at < side; ++at) {
            number.set(static_cast<double>(first[at * apart]));
            line.append(number);
        }
        return line.at(side - 1).toDouble();
    });
}

Side cvLines(std::shared_ptr<Matrices> const& of, bool columns)
{
    return readingLines([of, columns](int i) {
        std::vector<float> line;
        (columns ? of->cv.col(i).clone() : of->cv.row(i)).copyTo(line);
        return static_cast<double>(line.back());
    });
}

void matrices(ratio::Table& table)
{
    std::shared_ptr<Matrices> of;
    for (bool const columns : {false, true}) {
        std::string const name = columns ? "column of 4096" : "row of 4096";
        std::string const againstMat = name + ", against cv::Mat";
        if (!table.wants("matrix", name) && !table.wants("matrix", againstMat))
            continue;
        if (!of)
            of = std::make_shared<Matrices>();
        table.row("matrix", name)
            .ours(ourLines(of, columns))
            .peer("QVariantList", filledLines(of, columns))
            .floor(bareLines(of, columns))
            .units(side, "element")
            .reach(ratio::againstPeer, ratio::atMost, 0.8)
            .run();
        table.row("matrix", againstMat)
            .ours(ourLines(of, columns))
            .peer("cv::Mat to std::vector", cvLines(of, columns))
            .units(side, "element")
            .run();
    }
    table.row("matrix", "copy of 1024 x 1024, against cv::Mat::clone")
        .ours([matrix = KDRMatrix(1024, 1024, KDRMatrix::MatrixTypeFloat32)](std::size_t times) {
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                KDRMatrix copy(matrix);
                escape(copy);
                sum += static_cast<Checksum>(copy.rows()) * static_cast<Checksum>(copy.cols());
            }
            return sum;
        })
        .peer("cv::Mat::clone",
              [matrix = cv::Mat(cv::Mat::zeros(1024, 1024, CV_32F))](std::size_t times) {
                  Checksum sum = 0;
                  for (std::size_t i = 0; i < times; ++i) {
                      cv::Mat copy = matrix.clone();
                      escape(copy);
                      sum += static_cast<Checksum>(copy.rows) * static_cast<Checksum>(copy.cols);
                  }
                  return sum;
              })
        .run();
}

// --- regions
// --------------------------------------------------------------------------------------

struct Runs
{
    void add(long row, long first, long last)
    {
        columns[0].push_back(row);
        columns[1].push_back(first);
        columns[2].push_back(last);
    }
    KDRNumberArray list(int column) const
    {
        KDRNumberArray numbers;
        for (long const value : columns[column])
            numbers.push_back(KDRNumber(value));
        return numbers;
    }
    KDRRegion region() const
    {
        KDRNumberArray lists[] = {list(0), list(1), list(2)};
        KDRRegion made;
        made.fromRunLengthEncodeing(lists[0], lists[1], lists[2], side, side);
        return made;
    }
    VelRegion coreRegion() const
    {
        VelVarArray values[3];
        for (int column = 0; column < 3; ++column) {
            for (long const value : columns[column])
                values[column].Append(VelVar(value));
        }
        return VelRegion(side, side, values[0], values[1], values[2]);
    }

    std::vector<long> columns[3];
};

// Runs as a segmentation gives them: in order, 16 in a row, apart from each other.
Runs sortedRuns(long count)
{
    Runs runs;
    for (long i = 0; i < count; ++i)
        runs.add(i / 16, i % 16 * 256, i % 16 * 256 + 99);
    return runs;
}

Side filledRuns(Runs const& runs)
{
    return [runs](std::size_t times) {
        Checksum sum = 0;
        for (std::size_t i = 0; i < times; ++i) {
            QVariantList lists[3];
            for (int column = 0; column < 3; ++column) {
                for (long const value : runs.columns[column])
                    lists[column].append(QVariant(static_cast<qlonglong>(value)));
            }
            escape(lists);
            sum += static_cast<Checksum>(lists[2].last().toLongLong());
        }
        return sum;
    };
}

void runLists(ratio::Table& table)
{
    constexpr long count = 10000;
    Runs const runs = sortedRuns(count);
    KDRRegion region = runs.region();
    auto const last = static_cast<Checksum>(runs.columns[2].back());
    table.row("region", "run lists of 10^4 runs out of a region")
        .ours([region](std::size_t times) mutable {
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                KDRNumberArray lists[3];
                region.toRunLengthEncodeing(&lists[0], &lists[1], &lists[2]);
                escape(lists);
                KDRNumber number;
                lists[2].select(lists[2].length() - 1, &number);
                sum += static_cast<Checksum>(number.toLongLong());
            }
            return sum;
        })
        .peer("QVariantList", filledRuns(runs))
        .floor([core = runs.coreRegion()](std::size_t times) {
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                VelVarArray values[3];
                core.GetRegionRuns(&values[0], &values[1], &values[2]);
                QList<bare::Number> lists[3];
                int const length = values[0].Length();
                for (int column = 0; column < 3; ++column) {
                    lists[column].reserve(length);
                    for (int at = 0; at < length; ++at)
                        lists[column].append(
                            bare::Number(static_cast<long long>(values[column][at].L())));
                }
                escape(lists);
                sum += static_cast<Checksum>(lists[2].last().toInt());
            }
            return sum;
        })
        .units(3.0 * count, "number")
        .reach(ratio::againstPeer, ratio::atMost, 1.0)
        .run();
    table.row("region", "run lists of 10^4 runs into a region")
        .ours([rows = runs.list(0), firsts = runs.list(1), lasts = runs.list(2),
               last](std::size_t times) mutable {
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                KDRRegion made;
                made.fromRunLengthEncodeing(rows, firsts, lasts, side, side);
                escape(made);
                sum += last;
            }
            return sum;
        })
        .peer("QVariantList", filledRuns(runs))
        .floor([runs, last](std::size_t times) {
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                VelRegion made = runs.coreRegion();
                escape(made);
                sum += last;
            }
            return sum;
        })
        .units(3.0 * count, "number")
        .reach(ratio::againstPeer, ratio::atMost, 0.65)
        .run();
}

using Mask = std::vector<unsigned char>;

void draw(Mask& mask, Runs const& runs)
{
    for (std::size_t i = 0; i < runs.columns[0].size(); ++i) {
        auto const row = static_cast<std::size_t>(runs.columns[0][i]) * side;
        std::fill(mask.begin() + static_cast<std::ptrdiff_t>(row) + runs.columns[1][i],
                  mask.begin() + static_cast<std::ptrdiff_t>(row) + runs.columns[2][i] + 1, 1);
    }
}

void unite(Mask& all, Mask const& mask)
{
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = static_cast<unsigned char>(all[i] | mask[i]);
}

KDRRegion united(KDRRegionArray& regions)
{
    KDRRegion all;
    regions.toUnionedRegion(&all);
    return all;
}

Mask maskOf(KDRRegion region)
{
    KDRNumberArray lists[3];
    region.toRunLengthEncodeing(&lists[0], &lists[1], &lists[2]);
    Runs runs;
    KDRNumber numbers[3];
    for (int i = 0; i < lists[0].length(); ++i) {
        for (int column = 0; column < 3; ++column)
            lists[column].select(i, &numbers[column]);
        runs.add(numbers[0].toLong(), numbers[1].toLong(), numbers[2].toLong());
    }
    Mask mask(static_cast<std::size_t>(side) * side);
    draw(mask, runs);
    return mask;
}

// A thousand regions of a thousand runs, strewn over the picture. The masks are few and taken in
// turn, and only every twentieth is united: a thousand would not fit into memory, and take long;
// that the union is right is seen before.
void unions(ratio::Table& table)
{
    std::string const name = "union of 10^3 regions of 10^3 runs";
    if (!table.wants("region", name))
        return;
    constexpr int count = 1000;
    constexpr int distinctMasks = 4;
    constexpr int masksAPart = 20;
    std::mt19937 random(42);
    std::uniform_int_distribution<long> place(0, side - 1024);
    KDRRegionArray few;
    KDRRegionArray regions;
    std::vector<Mask> masks;
    for (int i = 0; i < count; ++i) {
        Runs runs;
        long const top = place(random);
        long const left = place(random);
        for (long row = 0; row < 1000; ++row)
            runs.add(top + row, left + row % 7, left + 900);
        KDRRegion const region = runs.region();
        regions.push_back(region);
        if (i < distinctMasks) {
            few.push_back(region);
            masks.emplace_back(static_cast<std::size_t>(side) * side);
            draw(masks.back(), runs);
        }
    }
    Mask all(static_cast<std::size_t>(side) * side);
    for (Mask const& mask : masks)
        unite(all, mask);
    if (maskOf(united(few)) != all)
        throw std::logic_error("the union of regions differs from that of masks");
    table.row("region", name)
        .ours([regions](std::size_t times) mutable {
            for (std::size_t i = 0; i < times; ++i) {
                KDRRegion made = united(regions);
                escape(made);
            }
            return Checksum(0);
        })
        .peer("OR of byte masks",
              [masks, all](std::size_t times) {
                  for (std::size_t i = 0; i < times; ++i) {
                      Mask sum(all.size());
                      for (int mask = 0; mask < count / masksAPart; ++mask)
                          unite(sum, masks[static_cast<std::size_t>(mask % distinctMasks)]);
                      escape(sum);
                  }
                  return Checksum(0);
              })
        .peerShare(1.0 / masksAPart)
        .turns(5)
        .reach(ratio::againstPeer, ratio::atMost, 0.04)
        .run();
}

// --- outlines
// -------------------------------------------------------------------------------------

// Short enough that a copy of it is no block of its own to the allocator, which such blocks would
// make a test of.
constexpr int outlineLength = 4000;

VelPointArray outlinePoints()
{
    VelPointArray points;
    for (int i = 0; i < outlineLength; ++i) {
        int const row = i / 100;
        points.Append(VelPoint(i % 100, row));
    }
    return points;
}

void outlines(ratio::Table& table)
{
    KDRPointArray corners;
    VelPointArray const points = outlinePoints();
    KDRContour contour;
    std::vector<cv::Point2f> cvPoints;
    for (int i = 0; i < outlineLength; ++i) {
        int const row = i / 100;
        corners.push_back(KDRPoint(i % 100, row));
        cvPoints.emplace_back(static_cast<float>(i % 100), static_cast<float>(row));
    }
    contour.FromPointArray(corners);
    KDRShape shape;
    shape.fromPolygon(corners);
    table.row("outline", "polygon to a ROI and back")
        .ours([shape](std::size_t times) mutable {
            DataConvert convert;
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                VelROI roi;
                KDRShape back;
                convert.ShapeToROI(shape, &roi);
                convert.ROIToShape(roi, &back);
                escape(back);
                sum += back.shapeType() == KDRShape::Polygon ? 1 : 0;
            }
            return sum;
        })
        .peer("copies of the two point lists",
              [points](std::size_t times) {
                  Checksum sum = 0;
                  for (std::size_t i = 0; i < times; ++i) {
                      VelPointArray there(points);
                      escape(there);
                      VelPointArray back(there);
                      escape(back);
                      sum += back.Length() == outlineLength ? 1 : 0;
                  }
                  return sum;
              })
        .units(outlineLength, "point")
        .reach(ratio::againstPeer, ratio::atMost, 1.2)
        .run();
    table.row("outline", "area, against OpenCV")
        .ours([contour](std::size_t times) mutable {
            double area = 0.0;
            for (std::size_t i = 0; i < times; ++i) {
                escape(contour);
                area = contour.area();
                escape(area);
            }
            return static_cast<Checksum>(area);
        })
        .peer("cv::contourArea",
              [cvPoints](std::size_t times) mutable {
                  double area = 0.0;
                  for (std::size_t i = 0; i < times; ++i) {
                      escape(cvPoints);
                      area = cv::contourArea(cvPoints);
                      escape(area);
                  }
                  return static_cast<Checksum>(area);
              })
        .units(outlineLength, "point")
        .run();
}

// --- images
// ---------------------------------------------------------------------------------------

struct Freed
{
    void operator()(void* block) const { std::free(block); }
};

void images(ratio::Table& table)
{
    constexpr std::size_t size = std::size_t{side} * side;
    KDRImage image(nullptr, side, side, 1, 0, KDRImage::DataTypeUInt8);
    // Pages that were never written are all one and the same, and cheaper to read than pixels.
    std::memset(image.dataPtr(), 1, size);
    auto const last = [](unsigned char const* pixels) { return Checksum(pixels[size - 1]); };
    table.row("image", "clone of 16 megapixels")
        .ours([image, last](std::size_t times) mutable {
            Checksum sum = 0;
            for (std::size_t i = 0; i < times; ++i) {
                KDRImage copy = image.clone();
                escape(copy);
                sum += last(copy.dataPtr());
            }
            return sum;
        })
        .peer("malloc + memcpy",
              [image, last](std::size_t times) {
                  Checksum sum = 0;
                  for (std::size_t i = 0; i < times; ++i) {
                      std::unique_ptr<unsigned char, Freed> copy(
                          static_cast<unsigned char*>(std::malloc(size)));
                      std::memcpy(copy.get(), image.dataPtr(), size);
                      escape(copy);
                      sum += last(copy.get());
                  }
                  return sum;
              })
        .reach(ratio::againstPeer, ratio::atMost, 1.05)
        .note("0.95 of memcpy's bandwidth is 1.05 of its time")
        .run();
    table.row("image", "assignment")
        .ours([image](std::size_t times) {
            KDRImage copy;
            for (std::size_t i = 0; i < times; ++i) {
                copy = image;
                escape(copy);
            }
            return Checksum(copy.width());
        })
        .peer("cv::Mat",
              [image = cv::Mat(side, side, CV_8U)](std::size_t times) {
                  cv::Mat copy;
                  cv::Mat const other(side, side, CV_8U);
                  for (std::size_t i = 0; i < times; ++i) {
                      copy = i % 2 == 0 ? other : image;
                      escape(copy);
                  }
                  return Checksum(copy.cols);
              })
        .reach(ratio::asTime, ratio::atMost, 16.0)
        .run();
}

} // namespace

void rows::ofVision(ratio::Table& table)
{
    matrices(table);
    runLists(table);
    unions(table);
    outlines(table);
    images(table);
}
