// Reading never detaches: two handles that share still share when one of them has been read,
// through every operation that only reads. The few that detach on purpose are named last.

#include "samples.h"

#include "../support/malloc.h"
#include "../support/shapeaccess.h"

#include <kdrdata/internal/kdrinternal_p.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <utility>
#include <vector>

namespace {

template <class Value>
using Reads = std::vector<std::pair<char const*, void (*)(Value&)>>;

template <class Value>
bool share(Value const& a, Value const& b)
{
    return KDRInternal::wrapped(a).constData() == KDRInternal::wrapped(b).constData();
}

bool share(KDRShape const& a, KDRShape const& b) { return ShapeAccess::shareRecord(a, b); }

template <class Element>
bool shareLists(QList<Element> const& a, QList<Element> const& b)
{
    return a.isSharedWith(b);
}

#define KDR_SHARE_LISTS(Array)                                                                     \
    bool share(Array const& a, Array const& b)                                                     \
    {                                                                                              \
        return shareLists(KDRInternal::wrapped(a), KDRInternal::wrapped(b));                       \
    }
KDR_SHARE_LISTS(KDRStringArray)
KDR_SHARE_LISTS(KDRBufferArray)
KDR_SHARE_LISTS(KDRBoolArray)
KDR_SHARE_LISTS(KDRNumberArray)
KDR_SHARE_LISTS(KDREnumArray)
KDR_SHARE_LISTS(KDRShapeArray)
KDR_SHARE_LISTS(KDRVariantArray)
#undef KDR_SHARE_LISTS

template <class Value>
void expectSharing(Value (*make)(), Reads<Value> const& reads)
{
    for (auto const& [name, read] : reads) {
        SCOPED_TRACE(name);
        Value value = make();
        Value const sharer(value);
        ASSERT_TRUE(share(value, sharer));
        read(value);
        EXPECT_TRUE(share(value, sharer));
    }
}

KDRString const part("o");

TEST(Reads, OfStringsNeverDetach)
{
    Reads<KDRString> const reads = {
        {"length", [](KDRString& s) { s.length(); }},
        {"size", [](KDRString& s) { s.size(); }},
        {"isEmpty", [](KDRString& s) { s.isEmpty(); }},
        {"isNull", [](KDRString& s) { s.isNull(); }},
        {"at", [](KDRString& s) { s.at(1); }},
        {"toUtf16", [](KDRString& s) { s.toUtf16(); }},
        {"toUtf8", [](KDRString& s) { s.toUtf8(); }},
        {"toLatin1", [](KDRString& s) { s.toLatin1(); }},
        {"toLocal8Bit", [](KDRString& s) { s.toLocal8Bit(); }},
        {"==", [](KDRString& s) { EXPECT_FALSE(s == part); }},
        {"!=", [](KDRString& s) { EXPECT_TRUE(s != part && s != "o" && s != KDRBuffer("o")); }},
        {"contains", [](KDRString& s) { s.contains(part); }},
        {"indexOf", [](KDRString& s) { s.indexOf(part); }},
        {"indexOf an expression", [](KDRString& s) { s.indexOf(KDRRegExp(part)); }},
        {"lastIndexOf", [](KDRString& s) { s.lastIndexOf(part); }},
        {"lastIndexOf an expression", [](KDRString& s) { s.lastIndexOf(KDRRegExp(part)); }},
        {"startsWith", [](KDRString& s) { s.startsWith(part); }},
        {"endsWith", [](KDRString& s) { s.endsWith(part); }},
        {"left", [](KDRString& s) { s.left(100); }},
        {"right", [](KDRString& s) { s.right(2); }},
        {"mid", [](KDRString& s) { s.mid(1, 2); }},
        {"repeated", [](KDRString& s) { s.repeated(2); }},
        {"trimmed", [](KDRString& s) { s.trimmed(); }},
        {"simplified", [](KDRString& s) { s.simplified(); }},
        {"toLower", [](KDRString& s) { s.toLower(); }},
        {"toUpper", [](KDRString& s) { s.toUpper(); }},
        {"split", [](KDRString& s) { s.split(part); }},
        {"arg", [](KDRString& s) { s.arg(part); }},
        {"toDouble", [](KDRString& s) { s.toDouble(); }},
        {"toLongLong", [](KDRString& s) { s.toLongLong(); }},
    };
    expectSharing(samples::strings.make, reads);
}

TEST(Reads, OfBuffersNeverDetach)
{
    Reads<KDRBuffer> const reads = {
        {"size", [](KDRBuffer& b) { b.size(); }},
        {"length", [](KDRBuffer& b) { b.length(); }},
        {"count", [](KDRBuffer& b) { b.count(); }},
        {"capacity", [](KDRBuffer& b) { b.capacity(); }},
        {"isEmpty", [](KDRBuffer& b) { b.isEmpty(); }},
        {"isNull", [](KDRBuffer& b) { b.isNull(); }},
        {"at", [](KDRBuffer& b) { b.at(1); }},
        {"[int]", [](KDRBuffer& b) { EXPECT_EQ(b[1], 'o'); }},
        {"[unsigned]", [](KDRBuffer& b) { EXPECT_EQ(b[1U], 'o'); }},
        {"constData", [](KDRBuffer& b) { b.constData(); }},
        {"contains", [](KDRBuffer& b) { b.contains("o"); }},
        {"count a byte", [](KDRBuffer& b) { b.count('o'); }},
        {"indexOf", [](KDRBuffer& b) { b.indexOf("o"); }},
        {"lastIndexOf", [](KDRBuffer& b) { b.lastIndexOf('o'); }},
        {"startsWith", [](KDRBuffer& b) { b.startsWith("so"); }},
        {"endsWith", [](KDRBuffer& b) { b.endsWith('s'); }},
        {"left", [](KDRBuffer& b) { b.left(100); }},
        {"right", [](KDRBuffer& b) { b.right(2); }},
        {"mid", [](KDRBuffer& b) { b.mid(1, 2); }},
        {"repeated", [](KDRBuffer& b) { b.repeated(2); }},
        {"trimmed", [](KDRBuffer& b) { b.trimmed(); }},
        {"simplified", [](KDRBuffer& b) { b.simplified(); }},
        {"toLower", [](KDRBuffer& b) { b.toLower(); }},
        {"toUpper", [](KDRBuffer& b) { b.toUpper(); }},
        {"leftJustified", [](KDRBuffer& b) { b.leftJustified(3); }},
        {"rightJustified", [](KDRBuffer& b) { b.rightJustified(50); }},
        {"toBase64", [](KDRBuffer& b) { b.toBase64(); }},
        {"toPercentEncoding", [](KDRBuffer& b) { b.toPercentEncoding(); }},
        {"toShort", [](KDRBuffer& b) { b.toShort(); }},
        {"fromHex", [](KDRBuffer& b) { KDRBuffer::fromHex(b); }},
        {"fromBase64", [](KDRBuffer& b) { KDRBuffer::fromBase64(b); }},
    };
    expectSharing(samples::buffers.make, reads);
}

template <class Array, class Element>
void expectSharingOfArray()
{
    Sample<Array> const sample = samples::ofArray<Array, Element>("array");
    Reads<Array> const reads = {
        {"length", [](Array& a) { a.length(); }},
        {"select",
         [](Array& a) {
             Element element{};
             EXPECT_TRUE(a.select(1, &element));
             EXPECT_FALSE(a.select(9, &element));
         }},
        {"copying", [](Array& a) { Array const copy(a); }},
        {"being appended", [](Array& a) { Array().push_back(a); }},
        {"refused changes",
         [](Array& a) {
             EXPECT_FALSE(a.removeAt(9));
             EXPECT_FALSE(a.swap(0, 9));
             EXPECT_FALSE(a.replace(-1, PayloadOf<Element>::make(1)));
             EXPECT_FALSE(a.insert(-1, PayloadOf<Element>::make(1)));
         }},
    };
    expectSharing(sample.make, reads);
}

TEST(Reads, OfArraysNeverDetach)
{
    expectSharingOfArray<KDRStringArray, KDRString>();
    expectSharingOfArray<KDRBufferArray, KDRBuffer>();
    expectSharingOfArray<KDRBoolArray, bool>();
    expectSharingOfArray<KDRNumberArray, KDRNumber>();
    expectSharingOfArray<KDREnumArray, KDREnum>();
    expectSharingOfArray<KDRShapeArray, KDRShape>();
    expectSharingOfArray<KDRVariantArray, KDRVariant>();
    Reads<KDRStringArray> const searches = {
        {"indexOf", [](KDRStringArray& a) { a.indexOf(part); }},
        {"indexOf an expression", [](KDRStringArray& a) { a.indexOf(KDRRegExp(part)); }},
        {"join", [](KDRStringArray& a) { a.join(part); }},
    };
    expectSharing(samples::ofArray<KDRStringArray, KDRString>("").make, searches);
}

TEST(Reads, OfFiguresNeverDetach)
{
    for (auto const& generator : shapeGenerators<KDRShape>) {
        SCOPED_TRACE(generator.name);
        KDRShape shape;
        ShapeValues values = shapeValues(11);
        generator.generate(shape, values);
        KDRShape const sharer(shape);
        EXPECT_EQ(shape.shapeType(), sharer.shapeType());
        for (auto const& getter : shapeGetters<KDRShape>) {
            ShapeValues out;
            getter.read(shape, out);
        }
        EXPECT_TRUE(share(shape, sharer));
    }
}

TEST(Reads, ThatDetachOnPurpose)
{
    KDRBuffer const bytes("bytes");
    KDRBuffer const sharer(bytes);
    EXPECT_EQ(bytes.data()[0], 'b');
    EXPECT_FALSE(share(bytes, sharer));

    KDRStringArray const texts = samples::texts(1);
    KDRStringArray const textSharer(texts);
    EXPECT_EQ(texts[0], samples::text(1));
    EXPECT_FALSE(share(texts, textSharer));

    KDRBufferArray buffers;
    buffers.push_back(bytes);
    buffers.push_back(bytes);
    KDRBufferArray const bufferSharer(buffers);
    EXPECT_EQ(buffers.join().size(), 10);
    EXPECT_FALSE(share(buffers, bufferSharer));
}

} // namespace
