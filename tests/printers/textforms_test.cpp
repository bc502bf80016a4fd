#include <kdrdata/debug/kdrdebugtext.h>

#include "../support/everyvalue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <string>

namespace {

// The texts of all values by their names.
std::map<std::string, std::string> const& texts()
{
    static std::map<std::string, std::string> const all = [] {
        EveryValue const values;
        std::map<std::string, std::string> made;
        values.visit(
            [&made](char const* name, auto const& value) { made[name] = KDRDebug::text(value); });
        return made;
    }();
    return all;
}

std::string text(std::string const& name) { return texts().at(name); }

std::string const tenTens = "0123456789012345678901234567890123456789"
                            "0123456789012345678901234567890123456789";

} // namespace

TEST(TextForm, TellsNullFromEmpty)
{
    EXPECT_EQ(text("nullString"), "null");
    EXPECT_EQ(text("emptyString"), "\"\"");
    EXPECT_EQ(text("nullBuffer"), "null");
    EXPECT_EQ(text("emptyBuffer"), "0 bytes");
    EXPECT_EQ(text("strings"), "[\"left\", \"\", null]");
    EXPECT_EQ(text("buffers"), "[3 bytes: 01 7f ff, null, 0 bytes]");
    EXPECT_EQ(text("nullStringVariant"), "string null");
}

TEST(TextForm, OfATextIsQuotedAndInUtf8)
{
    EXPECT_EQ(text("string"), "\"one two\"");
    EXPECT_EQ(text("quotesString"), R"("a \"quoted\" back\\slash\n\tline")");
    EXPECT_EQ(text("foreignString"), u8"\"Gr\u00fc\u00dfe \u4e2d \U0001f642\"");
    EXPECT_EQ(text("character"), "'x' (U+0078)");
    EXPECT_EQ(text("apostrophe"), "'\\'' (U+0027)");
}

TEST(TextForm, OfATextShowsByNumberWhatCannotBeSeen)
{
    EXPECT_EQ(text("hiddenString"), R"("a\u0000\u001b\u0085\u00ad\u200b\u202e\ud800b")");
    EXPECT_EQ(text("nullCharacter"), "'\\u0000' (U+0000)");
}

TEST(TextForm, OfALongValueIsCutAndNamesTheLength)
{
    EXPECT_EQ(text("stringOf80"), '"' + tenTens + '"');
    EXPECT_EQ(text("longString"), '"' + tenTens + "\"... (length 200)");
    EXPECT_EQ(text("longBuffer"), "200 bytes: 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 ...");
    EXPECT_EQ(text("manyNumbers"), "[0, 1, 2, 3, 4, 5, 6, 7, 8, 9, ...] (length 200)");
    EXPECT_EQ(text("largeMatrix"), "100x200 s16");
}

TEST(TextForm, IsNeverCutInsideOfASurrogatePair)
{
    EXPECT_EQ(text("pairAtTheCutString"), '"' + std::string(79, 'x') + "\"... (length 81)");
}

TEST(TextForm, OfAListInAListInAListNamesTheLengthAlone)
{
    EXPECT_EQ(text("nestedVariants"), "[number 3, variant array [number 2, variant array "
                                      "[number 1, variant array [...] (length 2)]]]");
}

TEST(TextForm, OfAPatternHasSyntaxAndFlags)
{
    EXPECT_EQ(text("newPattern"), "null, regular expression");
    EXPECT_EQ(text("pattern"), "\"a+b\", regular expression");
    EXPECT_EQ(text("minimalPattern"), "\"*.png\", wildcard, any case, minimal");
}

TEST(TextForm, OfANumberHasKindAndRange)
{
    EXPECT_EQ(text("newNumber"), "0 (int, range -999999..999999)");
    EXPECT_EQ(text("rangedNumber"), "5 (int, range -10..10)");
    EXPECT_EQ(text("plainNumber"), "7 (int)");
    EXPECT_EQ(text("wholeNumber"), "5.0 (double)");
    EXPECT_EQ(text("rangedFraction"), "0.30000000000000004 (double, range -0.5..inf)");
    EXPECT_EQ(text("notANumber"), "nan (double, range -999999..999999)");
}

TEST(TextForm, OfANumberInAnArrayIsItsValue)
{
    EXPECT_EQ(text("noNumbers"), "[]");
    EXPECT_EQ(text("numbers"), "[1, 2.5, 3.0]");
    EXPECT_EQ(text("removedNumbers"), "[1, 2]");
    EXPECT_EQ(text("flags"), "[true, false]");
}

TEST(TextForm, OfASelectionNamesTheChosenOption)
{
    EXPECT_EQ(text("noChoice"), "none of []");
    EXPECT_EQ(text("choice"), "1 \"bright\" of [\"dark\", \"bright\"], numbers [10, 20]");
    EXPECT_EQ(text("choiceOfNothing"), "7 of []");
    EXPECT_EQ(text("choiceRecord"), "0 \"dark\" of [\"dark\", \"bright\"]");
}

TEST(TextForm, OfAPointHasRangesThatWereSet)
{
    EXPECT_EQ(text("point"), "(1.5, -2)");
    EXPECT_EQ(text("rangedPoint"), "(3, 4) in x 0..640 by 1, y -999999..999999 by 0.5");
    EXPECT_EQ(text("pointRecord"), "(6, 7)");
    EXPECT_EQ(text("points"), "[(3, 4), (5, 6), (7.25, -8)]");
    EXPECT_EQ(text("contours"), "[[(3, 4), (5, 6), (7.25, -8)], []]");
}

TEST(TextForm, OfPixelsHasSizeAndType)
{
    EXPECT_EQ(text("emptyImage"), "empty");
    EXPECT_EQ(text("image"), "640x480x3 u8");
    EXPECT_EQ(text("images"), "[2x1x1 f32, empty]");
    EXPECT_EQ(text("emptyRegion"), "0 pixels in 0 runs of 0x0");
    EXPECT_EQ(text("region"), "16 pixels in 2 runs of 640x480");
    EXPECT_EQ(text("loneRegion"), "1 pixel in 1 run of 1x1");
}

TEST(TextForm, OfAMatrixHasSizeTypeAndFewElements)
{
    EXPECT_EQ(text("emptyMatrix"), "0x0 u8");
    EXPECT_EQ(text("matrixU8"), "2x3 u8 [0, 255, 0; 0, 0, 0]");
    EXPECT_EQ(text("matrixS8"), "1x2 s8 [-128, 127]");
    EXPECT_EQ(text("matrixU16"), "1x2 u16 [1, 65535]");
    EXPECT_EQ(text("matrixS16"), "1x2 s16 [-32768, 1]");
    EXPECT_EQ(text("matrixS32"), "1x2 s32 [-2147483648, 1]");
    EXPECT_EQ(text("matrixF32"), "1x2 f32 [0.10000000149011612, -2.0]");
    EXPECT_EQ(text("matrixF64"), "2x2 f64 [0.1, -2.0; 0.0, 0.0]");
    EXPECT_EQ(text("alignment"), text("matrices"));
}

TEST(TextForm, OfASmallRecordSaysWhatItsOperationsTell)
{
    EXPECT_EQ(text("model"), "type 3, record of 18 bytes");
    EXPECT_EQ(text("chunk"), "chunk");
    EXPECT_EQ(text("newFont"), "\"\", size 24, weight 400");
    EXPECT_EQ(text("font"), "\"Sans\", size 12, weight 700, bold, italic, underlined, struck out");
    EXPECT_EQ(text("lock"), "lock");
}

TEST(TextForm, OfAShapeHasKindAndParameters)
{
    EXPECT_EQ(text("emptyShape"), "empty");
    EXPECT_EQ(text("circle"), "circle centre (10, 20), radius 5");
    EXPECT_EQ(text("torus"), "torus centre (10, 20), inner radius 5, outer radius 8, "
                             "start angle 0, end angle 90");
    EXPECT_EQ(text("rect2"), "rect2 centre (10, 20), half length 4, half width 3, angle 45");
    EXPECT_EQ(text("line"), "line start (10, 20), end (30.5, 40)");
    EXPECT_EQ(text("ellipse"),
              "ellipse centre (10, 20), half axis along 4, half axis across 3, angle 45");
    EXPECT_EQ(text("arc"), "arc centre (10, 20), radius 5, start angle 0, end angle 90");
    EXPECT_EQ(text("polygon"), "polygon [(3, 4), (5, 6), (7.25, -8)]");
    EXPECT_EQ(text("irregular"), "irregular [(3, 4), (5, 6), (7.25, -8)]");
    EXPECT_EQ(text("regionShape"), "region 16 pixels in 2 runs of 640x480");
    EXPECT_EQ(text("label"), "text \"part 7\", anchor (10, 20), font " + text("font"));
    EXPECT_EQ(text("arrow"), "arrow tail (10, 20), head (30.5, 40)");
    EXPECT_EQ(text("contoursShape"), "contours [[(3, 4), (5, 6), (7.25, -8)], []]");
    EXPECT_EQ(text("rect2Matrix"), "rect2 matrix centres [(3, 4), (5, 6), (7.25, -8)], "
                                   "half length 4, half width 3, angle 45, count -1");
    EXPECT_EQ(text("circleMatrix"), "circle matrix centres [(3, 4), (5, 6), (7.25, -8)], "
                                    "inner radius 5, outer radius 8, count 2");
    EXPECT_EQ(text("polyLine"), "polyline [(3, 4), (5, 6), (7.25, -8)]");
    EXPECT_EQ(text("curveLine"), "curve line [(10, 20), (30.5, 40), (10, 20)]");
    EXPECT_EQ(text("anyPolygon"),
              "any polygon [(3, 4), (5, 6), (7.25, -8)], numbers [1, 2.5, 3.0]");
    EXPECT_EQ(text("label3D"), "3D text \"part 7\", font " + text("font"));
    EXPECT_EQ(text("shapeRecord"), "circle centre (10, 20), radius 6");
}

TEST(TextForm, OfAPoseHasPositionAndTurn)
{
    EXPECT_EQ(text("pose2D"), "(1, 2.5), Rz 30");
    EXPECT_EQ(text("pose3D"), "(1, 2, 3), Rx 4, Ry 5, Rz 6.5");
}

TEST(TextForm, OfAPlaceholderSaysThatItCarriesNothing)
{
    for (char const* const name :
         {"cloud", "matrix3", "vectors3D", "rangeImage", "colors", "converter", "log"})
        EXPECT_EQ(text(name), "no data") << name;
    EXPECT_EQ(text("matrices3"), "[no data]");
}

TEST(TextForm, OfAVariantIsTheKindAndThePayload)
{
    EXPECT_EQ(text("emptyVariant"), "empty");
    EXPECT_EQ(text("boolVariant"), "bool true");
    EXPECT_EQ(text("numberVariant"), "number 5 (int, range -10..10)");
    EXPECT_EQ(text("stringVariant"), "string \"one two\"");
    EXPECT_EQ(text("imageVariant"), "image 640x480x3 u8");
    EXPECT_EQ(text("shapeVariant"), "shape circle centre (10, 20), radius 5");
    EXPECT_EQ(text("cloudVariant"), "point cloud no data");
    EXPECT_EQ(text("lostCloudVariant"), "point cloud no data");
    EXPECT_EQ(text("arrayVariant"), "variant array [number 5, string \"one two\", empty, "
                                    "number 2.0, number array [1, 2.5, 3.0]]");
    EXPECT_EQ(text("store"), "number 3 (int)");
}

TEST(TextForm, OfEveryKindOfVariantStartsWithItsOwnWords)
{
    std::map<std::string, KDRVariantKind> words;
    EveryValue const values;
    values.visit([&words](char const* name, auto const& value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, KDRVariant>) {
            KDRVariantKind const kind = value.variantType();
            char const* const word = KDRDebug::kindName(kind);
            ASSERT_TRUE(word) << name;
            EXPECT_EQ(KDRDebug::text(value).rfind(word, 0), 0U) << name;
            EXPECT_EQ(words.emplace(word, kind).first->second, kind) << name;
        }
    });
    EXPECT_EQ(words.size(), 42U);
}

TEST(TextForm, LeavesWhatIsSharedShared)
{
    KDRImage const image(nullptr, 2, 2, 1, 0, KDRImage::DataTypeUInt8);
    KDRImage const copy(image);
    KDRVariant const variant(image);
    KDRDebug::text(image);
    KDRDebug::text(variant);
    EXPECT_EQ(image.dataPtr(), copy.dataPtr());

    KDRBufferArray buffers;
    buffers.push_back(KDRBuffer("ab"));
    KDRBufferArray const constant(buffers);
    KDRBuffer before;
    constant.select(0, &before);
    KDRDebug::text(constant);
    KDRBuffer after;
    constant.select(0, &after);
    EXPECT_EQ(before.constData(), after.constData());
}

TEST(TextForm, OfADecimalNumberGivesTheNumberBack)
{
    std::mt19937_64 random(20240607);
    std::uniform_real_distribution<double> plain(-1e6, 1e6);
    for (int i = 0; i < 10000; ++i) {
        double const value = std::ldexp(plain(random), static_cast<int>(random() % 400) - 200);
        EXPECT_EQ(std::strtod(KDRDebug::decimal(value).c_str(), nullptr), value);
    }
    EXPECT_EQ(KDRDebug::decimal(0.1), "0.1");
    EXPECT_EQ(KDRDebug::decimal(1000000), "1000000");
    EXPECT_EQ(KDRDebug::decimal(1e20), "1e+20");
    EXPECT_EQ(KDRDebug::decimal(1e-7), "1e-07");
    EXPECT_EQ(KDRDebug::decimal(-0.0), "-0");
    EXPECT_EQ(KDRDebug::decimal(-std::numeric_limits<double>::infinity()), "-inf");
}
