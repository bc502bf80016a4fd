#include "values.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "../support/everyvalue.h"
#include "../variant/kindtable.h"

namespace {

double fromBits(std::uint64_t bits)
{
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

double const strangeNumbers[] = {0.0,
                                 -0.0,
                                 1e-320,
                                 0.1,
                                 1e300,
                                 std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(),
                                 fromBits(0x7FF8000000000000U),
                                 fromBits(0xFFF8000000000001U),
                                 fromBits(0x7FFDEADBEEF00001U)};

KDRNumber ranged(double value, double maximum, double minimum, double step)
{
    KDRNumber number(value);
    number.setMaxValue(maximum);
    number.setMinValue(minimum);
    number.setStep(step);
    return number;
}

// A variant that has the number's range as well.
KDRVariant withRange(KDRNumber const& number)
{
    KDRVariant value(number);
    KDRNumber* stored = nullptr;
    value.toNumberPtr(stored);
    *stored = number;
    return value;
}

class Values
{
public:
    std::vector<NamedValue> take() { return std::move(m_values); }

    template <class Value>
    void add(std::string const& name, Value const& value)
    {
        if constexpr (std::is_same_v<Value, KDRVariant>)
            m_values.push_back({name, value});
        else if constexpr (std::is_constructible_v<KDRVariant, Value const&>)
            m_values.push_back({name, KDRVariant(value)});
    }

    void addNumbers()
    {
        for (long long const integer :
             {0LL, 1LL, -1LL, 23LL, 24LL, -25LL, 255LL, 65536LL, 1LL << 40,
              std::numeric_limits<long long>::max(), std::numeric_limits<long long>::min()})
            add("integer " + std::to_string(integer), KDRVariant(integer));
        KDRNumberArray reals;
        KDRNumberArray mixed;
        KDRNumberArray withRanges;
        KDRMatrix matrix(2, 5, KDRMatrix::MatrixTypeFloat64);
        int i = 0;
        for (double const number : strangeNumbers) {
            std::string const at = std::to_string(i);
            add("number " + at, KDRVariant(number));
            add("maximum " + at, withRange(ranged(7.5, number, 0.0, 0.0)));
            add("minimum " + at, withRange(ranged(7.5, 0.0, number, 0.0)));
            add("step " + at, withRange(ranged(7.5, 0.0, 0.0, number)));
            add("point " + at, KDRPoint(number, -number));
            KDRPoint point(1.0, 2.0);
            i % 2 == 0 ? point.setXStepVal(number) : point.setYMinVal(number);
            add("range of a point " + at, point);
            reals.push_back(KDRNumber(number));
            mixed.push_back(KDRNumber(number));
            mixed.push_back(KDRNumber(i));
            withRanges.push_back(KDRNumber(number));
            withRanges.replace(i, ranged(number, 3.0, -3.0, 0.5));
            static_cast<double*>(matrix.dataPtr())[i] = number;
            ++i;
        }
        add("real numbers", reals);
        add("mixed numbers", mixed);
        add("numbers with ranges", withRanges);
        add("matrix of strange numbers", matrix);
        KDRNumberArray integers;
        for (int n = 0; n < 300; ++n)
            integers.push_back(KDRNumber(n * 1000000007LL));
        add("integers", integers);
        add("new number", withRange(KDRNumber()));
    }

    void addTexts()
    {
        unsigned short const texts[][4] = {{0xD800, 'a', 'b', 'c'},     {'a', 'b', 'c', 0xD800},
                                           {0xDC00, 0xD800, 'x', 'y'},  {0xFEFF, 'a', 'b', 'c'},
                                           {'a', 0xFEFF, 'b', 'c'},     {0xD83D, 0xDE00, 'a', 0},
                                           {0xFFFE, 0xFFFF, 0, 0x20AC}, {0xFFFD, 0xE000, 0x7FF, 1}};
        KDRStringArray all;
        for (unsigned short const(&units)[4] : texts) {
            KDRString const text(units, 4);
            add("text " + std::to_string(all.length()), text);
            all.push_back(text);
        }
        all.push_back(KDRString());
        all.push_back(KDRString(""));
        add("texts", all);
        // The first mark tells the byte order and is no part of the text; the second one is.
        unsigned short const marked[] = {0xFEFF, 0xFEFF, 'a'};
        add("text after a mark", KDRString(marked, 3));
        add("mark alone", KDRString(marked, 2));
        for (int const unit : {0, 0xD800, 0xFFFF})
            add("char " + std::to_string(unit), KDRChar(static_cast<unsigned short>(unit)));
        KDRFont font;
        font.setFaceName(KDRString(texts[5], 3));
        font.setSize(-5);
        font.setWeight(1L << 40);
        font.setItalic(200);
        font.setUnderline(2);
        font.setStrikeOut(1);
        font.setBold(true);
        KDRPoint anchor(1.0, -1.0);
        anchor.setXMaxVal(5.0);
        KDRString label(texts[0], 4);
        KDRShape shape;
        shape.fromText(anchor, label, font);
        add("label that UTF-8 does not hold", shape);
    }

    void addPixels()
    {
        KDRImageArray all;
        for (int type = 0; type < 7; ++type) {
            for (int channels = 1; channels <= 4; ++channels) {
                KDRImage image(nullptr, 5, 3, channels, 0, static_cast<KDRImage::DataType>(type));
                for (int i = 0; i < image.step() * image.height(); ++i)
                    image.dataPtr()[i] = static_cast<unsigned char>(i * 37 + type);
                add("pixels of type " + std::to_string(type) + ", channels " +
                        std::to_string(channels),
                    image);
                all.push_back(image);
            }
            add("matrix of type " + std::to_string(type),
                KDRMatrix(3, 2, static_cast<KDRMatrix::KDRMatrixType>(type)));
            add("matrix without columns " + std::to_string(type),
                KDRMatrix(3, 0, static_cast<KDRMatrix::KDRMatrixType>(type)));
        }
        KDRImage first;
        all.select(0, &first);
        all.push_back(first);
        all.push_back(KDRImage());
        add("images", all);
        KDRVariantArray sharing;
        sharing.push_back(KDRVariant(first));
        sharing.push_back(KDRVariant(all));
        sharing.push_back(KDRVariant(first));
        add("images that share pixels", sharing);
    }

    void addRegions()
    {
        KDRNumberArray columns[3];
        long long const runs[][3] = {{-3, -9, -1}, {0, 5, 5}, {0, 8, 20}, {1LL << 40, 0, 1}};
        for (auto const& run : runs) {
            for (int i = 0; i < 3; ++i)
                columns[i].push_back(KDRNumber(run[i]));
        }
        for (int const width : {0, 640, -1}) {
            KDRRegion region;
            region.fromRunLengthEncodeing(columns[0], columns[1], columns[2], width, -7);
            KDRShape shape;
            shape.fromRegion(region);
            add("region of width " + std::to_string(width), shape);
        }
    }

    void addKinds()
    {
        for (KindEntry const& row : kindTable) {
            KDRVariant const value = variantOf(row, 7);
            add(std::string("kind ") + row.name, value);
            add(std::string("clone of ") + row.name, value.clone());
            KDRVariant cleared = variantOf(row, 7);
            VariantAccess::store(cleared).clear();
            add(std::string("cleared ") + row.name, cleared);
            KDRVariantArray twice;
            twice.push_back(value);
            twice.push_back(value);
            twice.push_back(variantOf(row, 7));
            add(std::string("twice ") + row.name, twice);
        }
        KDRVariantArray twice;
        KDRVariant const empty;
        twice.push_back(empty);
        twice.push_back(empty);
        twice.push_back(KDRVariant());
        add("twice empty", twice);
        add("empty list", KDRVariant(KDRVariantArray()));
    }

private:
    std::vector<NamedValue> m_values;
};

} // namespace

std::vector<NamedValue> everyNamedValue()
{
    Values values;
    EveryValue const every;
    every.visit([&values](char const* name, auto const& value) { values.add(name, value); });
    values.addNumbers();
    values.addTexts();
    values.addPixels();
    values.addRegions();
    values.addKinds();
    return values.take();
}

KDRVariant everyValueInOne()
{
    KDRVariantArray all;
    for (NamedValue const& named : everyNamedValue())
        all.push_back(named.value);
    return KDRVariant(all);
}
