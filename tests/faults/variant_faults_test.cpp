// What variants do when memory runs out.

#include "tour.h"

#include "../variant/kindtable.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

namespace {

// Whether making a payload already swallows a failure: where there is no memory for them, an image
// is made without pixels and a matrix without elements.
bool isMadeWithoutFailing(KindEntry const& row)
{
    constexpr KDRVariantKind kinds[] = {4, 8, 10, 1004, 1009};
    return std::find(std::begin(kinds), std::end(kinds), row.kind) != std::end(kinds);
}

// Copies share the store, so that what changes one changes the other: no copies beside the state.
TEST(VariantFaults, EveryKind)
{
    Tour tour;
    for (KindEntry const& row : kindTable) {
        SCOPED_TRACE(row.name);
        auto const variant = [&] { return variantOf(row, 3); };
        auto const text = [] { return KDRVariant("a text"); };
        KDRVariant const other = variant();
        if (row.construct && !isMadeWithoutFailing(row))
            tour.visitAlone("constructor", text, [&](KDRVariant&) { return row.construct(5); });
        if (!isMadeWithoutFailing(row)) {
            tour.visitAlone("from, over the same kind", variant,
                            [&](KDRVariant& v) { row.write(v, 5); });
            tour.visitAlone("from, over another kind", text,
                            [&](KDRVariant& v) { row.write(v, 5); });
        }
        tour.visitAlone("to", variant, [&](KDRVariant& v) {
            Reading const reading = row.read(v);
            return std::make_tuple(reading.answer, reading.number);
        });
        tour.visitAlone("copy constructor", variant, [](KDRVariant& v) { return KDRVariant(v); });
        tour.visitAlone("clone", variant, [](KDRVariant& v) { return v.clone(); });
        tour.visitAlone("=", text, [&](KDRVariant& v) { v = other; });
        tour.visitAlone("attribute", variant, [](KDRVariant& v) { return v.attribute(); });
    }
}

template <class Payload, class Write>
void visitKind(Payload const& payload, Write const& write)
{
    auto const text = [] { return KDRVariant("a text"); };
    Tour tour;
    tour.visitAlone("constructor", text, [&](KDRVariant&) { return KDRVariant(payload); });
    tour.visitAlone("from", text, [&](KDRVariant& v) { (v.*write)(payload); });
}

TEST(VariantFaults, ImagesAndMatrices)
{
    visitKind(PayloadOf<KDRImage>::make(5), &KDRVariant::fromImage);
    visitKind(PayloadOf<KDRImageArray>::make(5), &KDRVariant::fromImageArray);
    visitKind(PayloadOf<KDRMatrix>::make(5), &KDRVariant::fromMatrix);
    visitKind(PayloadOf<KDRMatrixArray>::make(5), &KDRVariant::fromMatrixArray);
    visitKind(PayloadOf<KDRROIAlignment>::make(5), &KDRVariant::fromROIAlignment);
}

/// A store, which has no handle.
struct Store
{
    std::unique_ptr<KDRVariantPrivate> store;

    friend std::string inWords(Store const& state)
    {
        std::string text = words::of(state.store->variantType());
        for (KindEntry const& row : kindTable) {
            if (row.kind == state.store->variantType()) {
                Reading const reading = row.readStore(*state.store);
                text += words::of(reading.answer) + words::of(reading.number);
            }
        }
        return text;
    }
};

// Assignment is not on the tour: where it fails, a store is left without a payload on purpose.
TEST(VariantFaults, Stores)
{
    Tour tour;
    for (KindEntry const& row : kindTable) {
        SCOPED_TRACE(row.name);
        auto const store = [&] {
            auto made = std::make_unique<KDRVariantPrivate>();
            row.writeStore(*made, 3);
            return Store{std::move(made)};
        };
        tour.visitAlone("copy constructor", store, [](Store& s) {
            return Store{std::make_unique<KDRVariantPrivate>(*s.store)};
        });
    }
}

TEST(VariantFaults, PlainNumbers)
{
    auto const text = [] { return KDRVariant("a text"); };
    Tour tour;
    tour.visitAlone("KDRVariant()", text, [](KDRVariant&) { return KDRVariant(); });
    tour.visitAlone("KDRVariant(int)", text, [](KDRVariant&) { return KDRVariant(1); });
    tour.visitAlone("KDRVariant(long)", text, [](KDRVariant&) { return KDRVariant(1L); });
    tour.visitAlone("KDRVariant(long long)", text, [](KDRVariant&) { return KDRVariant(1LL); });
    tour.visitAlone("KDRVariant(float)", text, [](KDRVariant&) { return KDRVariant(1.5F); });
    tour.visitAlone("KDRVariant(double)", text, [](KDRVariant&) { return KDRVariant(1.5); });
    tour.visitAlone("KDRVariant(bool)", text, [](KDRVariant&) { return KDRVariant(true); });
    tour.visitAlone("KDRVariant(C text)", text, [](KDRVariant&) { return KDRVariant("text"); });
    tour.visitAlone("fromInt", text, [](KDRVariant& v) { v.fromInt(1); });
    tour.visitAlone("fromLong", text, [](KDRVariant& v) { v.fromLong(1); });
    tour.visitAlone("fromLongLong", text, [](KDRVariant& v) { v.fromLongLong(1); });
    tour.visitAlone("fromFloat", text, [](KDRVariant& v) { v.fromFloat(1.5F); });
    tour.visitAlone("fromDouble", text, [](KDRVariant& v) { v.fromDouble(1.5); });
    tour.visitAlone("fromBool", text, [](KDRVariant& v) { v.fromBool(true); });
}

} // namespace
