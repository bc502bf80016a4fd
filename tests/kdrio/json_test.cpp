#include "support.h"
#include "values.h"

#include <QtCore/qjsondocument.h>

#include <cmath>

namespace {

std::string compact(KDRVariant const& value, int longest = 64)
{
    kdrio::JsonOptions options;
    options.compact = true;
    options.longest = longest;
    return kdrio::toJson(value, options).toUtf8().constData();
}

TEST(Json, ScalarsStandForThemselves)
{
    EXPECT_EQ(compact(KDRVariant()), "null");
    EXPECT_EQ(compact(KDRVariant(true)), "true");
    EXPECT_EQ(compact(KDRVariant(-9007199254740992LL)), "-9007199254740992");
    EXPECT_EQ(compact(KDRVariant(9007199254740993LL)), "\"9007199254740993\"");
    EXPECT_EQ(compact(KDRVariant(1.5)), "1.5");
    EXPECT_EQ(compact(KDRVariant(NAN)), "\"nan\"");
    EXPECT_EQ(compact(KDRVariant(-INFINITY)), "\"-inf\"");
    EXPECT_EQ(compact(KDRVariant("a \"text\"")), "\"a \\\"text\\\"\"");
    EXPECT_EQ(compact(KDRVariant(KDRString())), "{\"string\":null}");
    EXPECT_EQ(compact(KDRVariant(KDRBuffer("ab"))), "{\"bytes\":2,\"hex\":\"6162\"}");
}

TEST(Json, AFigureShowsItsFields)
{
    KDRPoint centre(192.0, 151.5);
    KDRShape shape;
    shape.fromCircle(centre, 24.0);
    EXPECT_EQ(compact(KDRVariant(shape)),
              "{\"shape\":{\"circle\":{\"centre\":{\"x\":192,\"y\":151.5},\"radius\":24}}}");
}

TEST(Json, LongListsAndPixelsAreSizeAndChecksum)
{
    KDRImage const image(nullptr, 3, 2, 1, 0, KDRImage::DataTypeUInt8);
    EXPECT_EQ(compact(KDRVariant(image)),
              "{\"image\":{\"size\":[2,3,1],\"type\":\"u8\",\"values\":[0,0,0,0,0,0]}}");
    // The checksum of six zeros, as sha1sum gives it.
    EXPECT_EQ(compact(KDRVariant(image), 5),
              "{\"image\":{\"sha1\":\"7722745105e9e02e8f1aaf17f7b3aac5c56cd805\","
              "\"size\":[2,3,1],\"type\":\"u8\"}}");
    EXPECT_EQ(compact(KDRVariant(image), -1), compact(KDRVariant(image)));

    KDRNumberArray numbers;
    for (int i = 0; i < 3; ++i)
        numbers.push_back(KDRNumber(i * 0.5));
    EXPECT_EQ(compact(KDRVariant(numbers)),
              "{\"number array\":{\"size\":[3],\"type\":\"f64\",\"values\":[0,0.5,1]}}");
    EXPECT_NE(compact(KDRVariant(numbers), 2).find("\"sha1\""), std::string::npos);

    KDRBoolArray flags;
    for (int i = 0; i < 3; ++i)
        flags.push_back(i == 1);
    EXPECT_EQ(compact(KDRVariant(flags)), "{\"bool array\":[false,true,false]}");
    EXPECT_EQ(compact(KDRVariant(flags), 2).find("{\"bool array\":{\"length\":3,\"sha1\":"), 0U);
}

TEST(Json, AChangeOfOnePixelShows)
{
    KDRImage image(nullptr, 300, 200, 1, 0, KDRImage::DataTypeUInt8);
    std::string const before = compact(KDRVariant(image));
    image.dataPtr()[59999] = 1;
    EXPECT_NE(compact(KDRVariant(image)), before);
    EXPECT_LT(before.size(), 200U);
}

TEST(Json, ListsOfVariantsAreWrittenOutWhateverTheirLength)
{
    KDRVariantArray array;
    for (int i = 0; i < 100; ++i)
        array.push_back(KDRVariant(i));
    EXPECT_EQ(compact(KDRVariant(array)).substr(0, 8), "[0,1,2,3");
}

TEST(Json, WhatIsSharedIsWrittenOnce)
{
    KDRVariant const number(7);
    KDRImage const image(nullptr, 1, 1, 1, 0, KDRImage::DataTypeUInt8);
    KDRVariantArray array;
    array.push_back(number);
    array.push_back(KDRVariant(image));
    array.push_back(number);
    array.push_back(KDRVariant(image));
    EXPECT_EQ(compact(KDRVariant(array)),
              "[{\"shared\":0,\"value\":{\"number\":7}},"
              "{\"image\":{\"pixels\":{\"size\":[1,1,1],\"type\":\"u8\",\"values\":[0]},"
              "\"shared\":1}},{\"shared\":0},{\"image\":{\"shared\":1}}]");
}

// Forty lists of two that hold each other are a tree of 2^40 flags.
TEST(Json, WhatIsSharedManyTimesOverIsWrittenOnce)
{
    KDRVariant byStore(true);
    KDRVariantArray byList;
    byList.push_back(KDRVariant(true));
    for (int i = 0; i < 40; ++i) {
        KDRVariantArray ofStores;
        ofStores.push_back(byStore);
        ofStores.push_back(byStore);
        byStore = KDRVariant(ofStores);
        // Stores of their own, which share the list alone.
        KDRVariantArray ofLists;
        ofLists.push_back(KDRVariant(byList));
        ofLists.push_back(KDRVariant(byList));
        byList = ofLists;
    }
    std::string const shared = compact(byStore);
    EXPECT_EQ(shared.find("[{\"shared\":0,\"value\":{\"variant array\":[{\"shared\":1,"), 0U);
    EXPECT_EQ(shared.rfind("{\"shared\":0}]"), shared.size() - 13);
    EXPECT_LT(shared.size(), 3000U);
    std::string const alike = compact(KDRVariant(byList));
    EXPECT_NE(alike.find("true"), std::string::npos);
    EXPECT_LT(alike.size(), 6000U);
}

TEST(Json, EveryValueHasAText)
{
    for (NamedValue const& named : everyNamedValue()) {
        KDRString const text = kdrio::toJson(named.value);
        EXPECT_FALSE(text.isEmpty()) << named.name;
        // What is no list and no object is no document of its own.
        QByteArray const document = '[' + QByteArray(text.toUtf8().constData()) + ']';
        EXPECT_FALSE(QJsonDocument::fromJson(document).isNull())
            << named.name << ": " << document.left(200).toStdString();
    }
}

} // namespace
