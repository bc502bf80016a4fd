// A plug-in: everything in it is hidden but one symbol.

#include "plugin.h"

#include <kdrdata/kdrdata.h>

#include <iterator>

#include "../variant/kindtable.h"

namespace {

KDRVariant* make(int row, int number) { return new KDRVariant(variantOf(kindTable[row], number)); }

void write(KDRVariant& variant, int row, int number) { kindTable[row].write(variant, number); }

bool reads(KDRVariant const& variant, int row, int number)
{
    KindEntry const& entry = kindTable[row];
    KDRVariant reader(variant);
    if (reader.variantType() != entry.kind)
        return false;
    // The reader of the three-dimensional contour reads another kind and answers false.
    Reading const expected = entry.reads == entry.kind ? entry.right(number) : entry.untouched();
    return entry.read(reader) == expected;
}

KDRVariant* share(KDRVariant const& variant) { return new KDRVariant(variant); }

KDRVariant* clone(KDRVariant const& variant) { return new KDRVariant(variant.clone()); }

KDRVariant* pair(KDRVariant const& first, KDRVariant const& second)
{
    KDRVariantArray array;
    array.push_back(first);
    array.push_back(second);
    return new KDRVariant(array);
}

KDRVariant* element(KDRVariant const& pair, int index)
{
    KDRVariantArray array;
    auto* const selected = new KDRVariant;
    if (pair.toVariantArray(&array))
        array.select(index, selected);
    return selected;
}

void destroy(KDRVariant* variant) { delete variant; }

#ifdef __clang__
constexpr char const* compiler = "clang++";
#else
constexpr char const* compiler = "g++";
#endif

constexpr Plugin interface = {
    compiler, std::size(kindTable), make, write, reads, share, clone, pair, element, destroy};

} // namespace

Plugin const* plugin() { return &interface; }
