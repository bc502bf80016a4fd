// Arrays of every class that keeps its elements, driven by a script against std::vector.

#include <kdrdata/kdrdata.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "../../tests/variant/payloads.h"
#include "../support/check.h"
#include "../support/script.h"

template <>
struct PayloadOf<KDREnum>
{
    static KDREnum make(int n)
    {
        KDREnum selection;
        selection.setCurrentVal(n);
        return selection;
    }
    static int number(KDREnum const& value) { return value.currentVal(); }
};

template <>
struct PayloadOf<KDRRegion>
{
    static KDRRegion make(int n)
    {
        KDRNumberArray rows = PayloadOf<KDRNumberArray>::make(n);
        KDRRegion region;
        region.fromRunLengthEncodeing(rows, rows, rows, 1, 1);
        return region;
    }
    static int number(KDRRegion value)
    {
        KDRNumberArray rows;
        KDRNumberArray columns;
        KDRNumberArray lastColumns;
        value.toRunLengthEncodeing(&rows, &columns, &lastColumns);
        return PayloadOf<KDRNumberArray>::number(rows);
    }
};

template <>
struct PayloadOf<KDRVariant>
{
    static KDRVariant make(int n) { return KDRVariant(n); }
    static int number(KDRVariant const& value)
    {
        int n = -1;
        value.toInt(&n);
        return n;
    }
};

namespace {

/// Two arrays of one class beside their models.
template <class Array, class Element, bool insertsAtEnd = false>
class Pair
{
public:
    static void run(Script& script)
    {
        Pair pair;
        for (int step = 0; step < 200 && !script.atEnd(); ++step) {
            pair.step(script);
            if (step % 4 == 0)
                pair.expectAgreement();
        }
        pair.expectAgreement();
    }

private:
    using Payload = PayloadOf<Element>;
    using Model = std::vector<int>;

    static int canonical(int number) { return Payload::number(Payload::make(number)); }

    /// A position inside or just outside, often at the end, where the classes differ.
    static int position(Script& script, int length)
    {
        return script.below(4) == 0 ? length : script.between(-2, length + 2);
    }

    void step(Script& script)
    {
        int const length = static_cast<int>(m_model.size());
        int const index = position(script, length);
        int const other = position(script, length);
        int const number = static_cast<int>(script.below(90));
        bool const inside = index >= 0 && index < length;
        bool const otherInside = other >= 0 && other < length;
        auto const at = [](int position) { return static_cast<std::size_t>(position); };
        switch (script.below(12)) {
        case 0:
        case 1:
            m_array.push_back(Payload::make(number));
            m_model.push_back(canonical(number));
            break;
        case 2: {
            bool const insertable = inside || (insertsAtEnd && index == length);
            check(m_array.insert(index, Payload::make(number)) == insertable,
                  "an element is inserted exactly before another");
            if (insertable)
                m_model.insert(m_model.begin() + index, canonical(number));
            break;
        }
        case 3:
            check(m_array.removeAt(index) == inside,
                  "an element is removed exactly if it is there");
            if (inside)
                m_model.erase(m_model.begin() + index);
            break;
        case 4:
            check(m_array.replace(index, Payload::make(number)) == inside,
                  "an element is replaced exactly if it is there");
            if (inside)
                m_model[at(index)] = canonical(number);
            break;
        case 5:
            check(m_array.swap(index, other) == (inside && otherInside),
                  "two elements are exchanged exactly if they are there");
            if (inside && otherInside)
                std::swap(m_model[at(index)], m_model[at(other)]);
            break;
        case 6:
            appendOther();
            break;
        case 7:
            if (length < 24) {
                m_array.push_back(m_array);
                m_model.reserve(2 * m_model.size());
                std::copy_n(m_model.begin(), length, std::back_inserter(m_model));
            }
            break;
        case 8:
            m_other = m_array;
            m_otherModel = m_model;
            break;
        case 9:
            m_array = Array(m_other);
            m_model = m_otherModel;
            break;
        case 10:
            std::swap(m_model, m_otherModel);
            {
                Array const held(m_array);
                m_array = m_other;
                m_other = held;
            }
            break;
        default:
            if (number < 8) {
                m_array.clear();
                m_model.clear();
            } else if (inside) {
                // An element taken out is the caller's, whatever happens to the array.
                Element const taken = std::as_const(m_array)[index];
                check(m_array.replace(index, Payload::make(0)), "an element is replaced");
                check(Payload::number(taken) == m_model[at(index)], "an element is a copy");
                m_model[at(index)] = canonical(0);
            }
            break;
        }
    }

    void expectAgreement() const
    {
        expectAgreement(m_array, m_model);
        expectAgreement(m_other, m_otherModel);
    }

    void appendOther()
    {
        if (m_model.size() + m_otherModel.size() > 48)
            return;
        m_array.push_back(m_other);
        m_model.insert(m_model.end(), m_otherModel.begin(), m_otherModel.end());
    }

    static void expectAgreement(Array const& array, Model const& model)
    {
        int const length = static_cast<int>(model.size());
        check(array.length() == length, "an array is as long as its model");
        for (int i = 0; i < length; ++i) {
            int const expected = model[static_cast<std::size_t>(i)];
            Element element = Payload::make(89);
            check(array.select(i, &element), "an element inside is selected");
            check(Payload::number(element) == expected, "a selected element is its model's");
            check(Payload::number(array[i]) == expected, "an indexed element is its model's");
        }
        for (int const outside : {-1, length}) {
            Element element = Payload::make(7);
            check(!array.select(outside, &element), "no element outside is selected");
            check(Payload::number(element) == canonical(7), "an output is then untouched");
        }
    }

    Array m_array;
    Array m_other;
    Model m_model;
    Model m_otherModel;
};

constexpr void (*runs[])(Script&) = {
    Pair<KDRBoolArray, bool>::run,          Pair<KDRNumberArray, KDRNumber>::run,
    Pair<KDREnumArray, KDREnum>::run,       Pair<KDRStringArray, KDRString, true>::run,
    Pair<KDRBufferArray, KDRBuffer>::run,   Pair<KDRPointArray, KDRPoint>::run,
    Pair<KDRImageArray, KDRImage>::run,     Pair<KDRShapeArray, KDRShape>::run,
    Pair<KDRContourArray, KDRContour>::run, Pair<KDRRegionArray, KDRRegion>::run,
    Pair<KDRMatrixArray, KDRMatrix>::run,   Pair<KDRMatrix3Array, KDRMatrix3>::run,
    Pair<KDRMatrix4Array, KDRMatrix4>::run, Pair<KDRShape3DArray, KDRShape3D>::run,
    Pair<KDRVariantArray, KDRVariant>::run,
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Script script(data, size);
    runs[script.below(static_cast<unsigned>(std::size(runs)))](script);
    return 0;
}
