#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <veldata/veldata.h>

namespace {

constexpr unsigned int emptyType = 3;
constexpr int typeCount = 12;

/// What a getter may write: as many of these as it has outputs.
struct Outputs
{
    VelPoint points[2] = {VelPoint(-91.0, -92.0), VelPoint(-93.0, -94.0)};
    double numbers[4] = {-95.0, -96.0, -97.0, -98.0};
    VelPointArray list;
    VelRegion region;

    Outputs() { list.Append(VelPoint(-99.0, -100.0)); }
};

VelRegion regionOfOneRow(long row)
{
    VelVarArray rows, firsts, lasts;
    rows.Append(VelVar(row));
    firsts.Append(VelVar(2L));
    lasts.Append(VelVar(5L));
    return VelRegion(20, 10, rows, firsts, lasts);
}

VelPointArray listOf(std::vector<VelPoint> const& points)
{
    VelPointArray list;
    for (VelPoint const& point : points)
        list.Append(point);
    return list;
}

bool same(VelPoint const& a, VelPoint const& b) { return a.x == b.x && a.y == b.y; }

bool same(VelPointArray const& a, VelPointArray const& b)
{
    if (a.Length() != b.Length())
        return false;
    for (int i = 0; i < a.Length(); ++i) {
        if (!same(a[i], b[i]))
            return false;
    }
    return true;
}

bool same(VelRegion const& a, VelRegion const& b)
{
    VelVarArray lists[6];
    a.GetRegionRuns(&lists[0], &lists[1], &lists[2]);
    b.GetRegionRuns(&lists[3], &lists[4], &lists[5]);
    for (int list = 0; list < 3; ++list) {
        if (lists[list].Length() != lists[list + 3].Length())
            return false;
        for (int i = 0; i < lists[list].Length(); ++i) {
            if (lists[list][i].L() != lists[list + 3][i].L())
                return false;
        }
    }
    return a.Width() == b.Width() && a.Height() == b.Height();
}

void expectSame(Outputs const& a, Outputs const& b)
{
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(same(a.points[i], b.points[i])) << "point " << i;
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(a.numbers[i], b.numbers[i]) << "number " << i;
    EXPECT_TRUE(same(a.list, b.list));
    EXPECT_TRUE(same(a.region, b.region));
}

/// One type: its generator over the arguments in an Outputs, and its getter, which leaves the
/// output of the number @p without null; the outputs are counted points first.
struct Figure
{
    unsigned int type;
    char const* name;
    int points;
    int numbers;
    std::function<int(VelROI&, Outputs&)> generate;
    std::function<int(VelROI&, Outputs&, int without)> get;
};

constexpr int nothing = -1;

/// The output @p number, or null if it is the one to leave out.
template <class Output>
Output* unless(int without, int number, Output& output)
{
    return number == without ? nullptr : &output;
}

template <class Get>
std::function<int(VelROI&, Outputs&, int)> twoPoints(Get get)
{
    return [get](VelROI& roi, Outputs& out, int without) {
        return (roi.*get)(unless(without, 0, out.points[0]), unless(without, 1, out.points[1]));
    };
}

template <class Get>
std::function<int(VelROI&, Outputs&, int)> threeNumbers(Get get)
{
    return [get](VelROI& roi, Outputs& out, int without) {
        return (roi.*get)(unless(without, 0, out.points[0]), unless(without, 1, out.numbers[0]),
                          unless(without, 2, out.numbers[1]), unless(without, 3, out.numbers[2]));
    };
}

template <class Get>
std::function<int(VelROI&, Outputs&, int)> list(Get get)
{
    return [get](VelROI& roi, Outputs& out, int without) {
        return (roi.*get)(unless(without, 0, out.list));
    };
}

std::vector<Figure> figures()
{
    std::vector<Figure> all;
    all.push_back(
        {0, "rect1", 2, 0,
         [](VelROI& roi, Outputs& in) { return roi.GenRect1(in.points[0], in.points[1]); },
         twoPoints(&VelROI::GetRect1)});
    all.push_back(
        {1, "circle", 1, 1,
         [](VelROI& roi, Outputs& in) { return roi.GenCircle(in.points[0], in.numbers[0]); },
         [](VelROI& roi, Outputs& out, int without) {
             return roi.GetCircle(unless(without, 0, out.points[0]),
                                  unless(without, 1, out.numbers[0]));
         }});
    all.push_back({2, "torus", 1, 4,
                   [](VelROI& roi, Outputs& in) {
                       return roi.GenTorus(in.points[0], in.numbers[0], in.numbers[1],
                                           in.numbers[2], in.numbers[3]);
                   },
                   [](VelROI& roi, Outputs& out, int without) {
                       return roi.GetTorus(
                           unless(without, 0, out.points[0]), unless(without, 1, out.numbers[0]),
                           unless(without, 2, out.numbers[1]), unless(without, 3, out.numbers[2]),
                           unless(without, 4, out.numbers[3]));
                   }});
    all.push_back({4, "polygon", 0, 0,
                   [](VelROI& roi, Outputs& in) { return roi.GenPolygon(in.list); },
                   list(&VelROI::GetPolygon)});
    all.push_back({5, "irregular", 0, 0,
                   [](VelROI& roi, Outputs& in) { return roi.GenIrregular(in.list); },
                   list(&VelROI::GetIrregular)});
    all.push_back({6, "rect2", 1, 3,
                   [](VelROI& roi, Outputs& in) {
                       return roi.GenRect2(in.points[0], in.numbers[0], in.numbers[1],
                                           in.numbers[2]);
                   },
                   threeNumbers(&VelROI::GetRect2)});
    all.push_back({7, "line", 2, 0,
                   [](VelROI& roi, Outputs& in) { return roi.GenLine(in.points[0], in.points[1]); },
                   twoPoints(&VelROI::GetLine)});
    all.push_back({8, "ellipse", 1, 3,
                   [](VelROI& roi, Outputs& in) {
                       return roi.GenEllipse(in.points[0], in.numbers[0], in.numbers[1],
                                             in.numbers[2]);
                   },
                   threeNumbers(&VelROI::GetEllipse)});
    all.push_back({9, "arc", 1, 3,
                   [](VelROI& roi, Outputs& in) {
                       return roi.GenArc(in.points[0], in.numbers[0], in.numbers[1], in.numbers[2]);
                   },
                   threeNumbers(&VelROI::GetArc)});
    all.push_back({10, "point", 1, 0,
                   [](VelROI& roi, Outputs& in) { return roi.GenPoint(in.points[0]); },
                   [](VelROI& roi, Outputs& out, int without) {
                       return roi.GetPoint(unless(without, 0, out.points[0]));
                   }});
    all.push_back({11, "region", 0, 0,
                   [](VelROI& roi, Outputs& in) { return roi.GenRegion(in.region); },
                   [](VelROI& roi, Outputs& out, int without) {
                       return roi.GetRegion(unless(without, 0, out.region));
                   }});
    return all;
}

/// Arguments that tell each other apart, and those of one @p seed from those of another.
Outputs arguments(int seed)
{
    Outputs in;
    for (int i = 0; i < 2; ++i)
        in.points[i] = VelPoint(100.0 * seed + i + 0.25, -100.0 * seed - i - 0.5);
    for (int i = 0; i < 4; ++i)
        in.numbers[i] = 100.0 * seed + 10.0 * (i + 1);
    in.list = listOf({in.points[0], in.points[1], VelPoint(seed, seed)});
    in.region = regionOfOneRow(seed);
    return in;
}

/// What the getter of @p figure is to write where @p in was given and @p before stood.
Outputs expected(Figure const& figure, Outputs const& in, Outputs const& before)
{
    Outputs out = before;
    for (int i = 0; i < figure.points; ++i)
        out.points[i] = in.points[i];
    for (int i = 0; i < figure.numbers; ++i)
        out.numbers[i] = in.numbers[i];
    if (figure.type == 4 || figure.type == 5)
        out.list = in.list;
    if (figure.type == 11)
        out.region = in.region;
    return out;
}

int outputCount(Figure const& figure) { return std::max(1, figure.points + figure.numbers); }

/// That @p roi is the figure of @p in and answers to no getter but its own.
void expectFigure(VelROI& roi, Figure const& figure, Outputs const& in)
{
    EXPECT_EQ(roi.ROIType(), figure.type);
    for (Figure const& other : figures()) {
        SCOPED_TRACE(std::string("read as ") + other.name);
        Outputs out;
        bool const own = other.type == figure.type;
        EXPECT_EQ(other.get(roi, out, nothing), own ? 1 : 0);
        expectSame(out, own ? expected(figure, in, Outputs()) : Outputs());
    }
}

TEST(VelROI, TheDefaultIsTheEmptyTypeAndAnswersToNoGetter)
{
    VelROI roi;
    EXPECT_EQ(roi.ROIType(), emptyType);
    EXPECT_TRUE((std::is_same<decltype(roi.ROIType()), unsigned int>::value));
    for (Figure const& figure : figures()) {
        SCOPED_TRACE(figure.name);
        Outputs out;
        EXPECT_EQ(figure.get(roi, out, nothing), 0);
        expectSame(out, Outputs());
    }
}

TEST(VelROI, EachFigureHasItsTypeAndIsReadByItsOwnGetterAlone)
{
    EXPECT_EQ(figures().size(), static_cast<std::size_t>(typeCount - 1));
    for (Figure const& figure : figures()) {
        SCOPED_TRACE(figure.name);
        Outputs in = arguments(1);
        VelROI roi;
        EXPECT_EQ(figure.generate(roi, in), 1);
        expectFigure(roi, figure, in);
        expectSame(in, arguments(1));
    }
}

TEST(VelROI, ANullOutputIsRefusedAndTheOthersAreLeftAlone)
{
    for (Figure const& figure : figures()) {
        Outputs in = arguments(1);
        VelROI roi;
        figure.generate(roi, in);
        for (int without = 0; without < outputCount(figure); ++without) {
            SCOPED_TRACE(std::string(figure.name) + " without output " + std::to_string(without));
            Outputs out;
            EXPECT_EQ(figure.get(roi, out, without), 0);
            expectSame(out, Outputs());
        }
    }
}

TEST(VelROI, EachFigureReplacesEachOther)
{
    for (Figure const& before : figures()) {
        for (Figure const& after : figures()) {
            SCOPED_TRACE(std::string(before.name) + ", then " + after.name);
            Outputs first = arguments(1);
            Outputs second = arguments(2);
            VelROI roi;
            before.generate(roi, first);
            after.generate(roi, second);
            expectFigure(roi, after, second);
        }
    }
}

TEST(VelROI, AssigningTheDefaultEmptiesIt)
{
    for (Figure const& figure : figures()) {
        SCOPED_TRACE(figure.name);
        Outputs in = arguments(1);
        Outputs out;
        VelROI roi;
        figure.generate(roi, in);
        roi = VelROI();
        EXPECT_EQ(roi.ROIType(), emptyType);
        EXPECT_EQ(figure.get(roi, out, nothing), 0);
    }
}

TEST(VelROI, CopiesAreValuesOfTheirOwn)
{
    for (Figure const& figure : figures()) {
        SCOPED_TRACE(figure.name);
        Outputs first = arguments(1);
        Outputs second = arguments(2);
        VelROI original;
        figure.generate(original, first);
        VelROI copy(original);
        VelROI assigned;
        Outputs other = arguments(3);
        assigned.GenTorus(other.points[0], 1.0, 2.0, 3.0, 4.0);
        EXPECT_EQ(&(assigned = original), &assigned);
        figure.generate(original, second);
        expectFigure(copy, figure, first);
        expectFigure(assigned, figure, first);
        expectFigure(original, figure, second);
        VelROI const& alias = copy;
        copy = alias;
        expectFigure(copy, figure, first);
    }
}

TEST(VelROI, AMovedFromRecordIsEmpty)
{
    for (Figure const& figure : figures()) {
        SCOPED_TRACE(figure.name);
        Outputs in = arguments(1);
        Outputs out;
        VelROI original;
        figure.generate(original, in);
        VelROI moved(std::move(original));
        expectFigure(moved, figure, in);
        EXPECT_EQ(original.ROIType(), emptyType);
        VelROI assigned;
        EXPECT_EQ(&(assigned = std::move(moved)), &assigned);
        expectFigure(assigned, figure, in);
        EXPECT_EQ(moved.ROIType(), emptyType);
        EXPECT_EQ(figure.get(moved, out, nothing), 0);
        VelROI& alias = assigned;
        assigned = std::move(alias);
        expectFigure(assigned, figure, in);
    }
    EXPECT_TRUE(std::is_nothrow_move_constructible<VelROI>::value);
    EXPECT_TRUE(std::is_nothrow_move_assignable<VelROI>::value);
}

TEST(VelROI, NumbersAreKeptAsTheyAre)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    VelPoint center(-infinity, std::numeric_limits<double>::quiet_NaN());
    VelROI roi;
    EXPECT_EQ(roi.GenTorus(center, -1.0, 1e308, -720.5, infinity), 1);
    VelPoint point;
    double numbers[4];
    EXPECT_EQ(roi.GetTorus(&point, &numbers[0], &numbers[1], &numbers[2], &numbers[3]), 1);
    EXPECT_EQ(point.x, -infinity);
    EXPECT_TRUE(std::isnan(point.y));
    EXPECT_EQ(numbers[0], -1.0);
    EXPECT_EQ(numbers[1], 1e308);
    EXPECT_EQ(numbers[2], -720.5);
    EXPECT_EQ(numbers[3], infinity);
}

TEST(VelROI, ListsMayBeEmptyAndReplaceWhatTheOutputHeld)
{
    VelPointArray none;
    VelROI roi;
    EXPECT_EQ(roi.GenPolygon(none), 1);
    EXPECT_EQ(roi.ROIType(), 4u);
    VelPointArray out = listOf({VelPoint(1, 2), VelPoint(3, 4)});
    EXPECT_EQ(roi.GetPolygon(&out), 1);
    EXPECT_EQ(out.Length(), 0);
}

TEST(VelROI, ListsAreCopiedInAndOut)
{
    VelPointArray corners = listOf({VelPoint(1, 2), VelPoint(3, 4)});
    VelROI roi;
    roi.GenIrregular(corners);
    corners.Clear();
    VelPointArray out;
    EXPECT_EQ(roi.GetIrregular(&out), 1);
    ASSERT_EQ(out.Length(), 2);
    out.Clear();
    EXPECT_EQ(roi.GetIrregular(&out), 1);
    EXPECT_TRUE(same(out, listOf({VelPoint(1, 2), VelPoint(3, 4)})));
}

TEST(VelROI, ArgumentsAreTakenByReferenceAndThePointGetterAloneIsNotForConstants)
{
    int (VelROI::*const generate)(VelPoint&, VelPoint&) = &VelROI::GenRect1;
    int (VelROI::*const generateList)(VelPointArray&) = &VelROI::GenPolygon;
    int (VelROI::*const get)(VelPoint*, VelPoint*) const = &VelROI::GetRect1;
    int (VelROI::*const getPoint)(VelPoint*) = &VelROI::GetPoint;
    EXPECT_TRUE(generate && generateList && get && getPoint);
}

TEST(VelROI, AnyRowOfFiguresLeavesTheLastOne)
{
    unsigned int const seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::vector<Figure> const all = figures();
    VelROI roi;
    for (int step = 1; step <= 300; ++step) {
        Figure const& figure = all[random() % all.size()];
        Outputs in = arguments(step);
        figure.generate(roi, in);
        VelROI copy = roi;
        if (random() % 2)
            roi = std::move(copy);
        Outputs out;
        ASSERT_EQ(roi.ROIType(), figure.type);
        ASSERT_EQ(figure.get(roi, out, nothing), 1);
        expectSame(out, expected(figure, in, Outputs()));
    }
}

} // namespace
