#include <kdrdata/debug/kdrdebugtext.h>

#include "equal.h"
#include "support.h"
#include "values.h"

namespace {

TEST(RoundTrip, EveryValueComesBackAsItWas)
{
    for (NamedValue const& named : everyNamedValue()) {
        SCOPED_TRACE(named.name);
        EXPECT_EQ(Difference::between(named.value, valueOf(bytesOf(named.value))), "");
    }
}

TEST(RoundTrip, EveryValueComesBackAsItWasWithPixelsAsPictures)
{
    for (NamedValue const& named : everyNamedValue()) {
        SCOPED_TRACE(named.name);
        EXPECT_EQ(
            Difference::between(named.value, valueOf(bytesOf(named.value, kdrio::Pixels::Smaller))),
            "");
    }
}

TEST(RoundTrip, AllValuesInOneListComeBackAsTheyWere)
{
    KDRVariant const all = everyValueInOne();
    EXPECT_EQ(Difference::between(all, valueOf(bytesOf(all))), "");
}

// The second witness: the text forms that programs print.
TEST(RoundTrip, EveryValuePrintsTheSame)
{
    for (NamedValue const& named : everyNamedValue())
        EXPECT_EQ(KDRDebug::text(valueOf(bytesOf(named.value))), KDRDebug::text(named.value))
            << named.name;
}

TEST(RoundTrip, TheBytesAreTheSameWhoeverElseHoldsTheValue)
{
    for (NamedValue const& named : everyNamedValue()) {
        KDRBuffer const bytes = bytesOf(named.value);
        KDRVariant const held = named.value;
        KDRVariant const loaded = valueOf(bytes);
        KDRVariant const copy = loaded;
        EXPECT_EQ(contents(bytesOf(loaded)), contents(bytes)) << named.name;
        EXPECT_EQ(contents(bytesOf(held)), contents(bytes)) << named.name;
    }
}

TEST(RoundTrip, PartsShareThePixelsOfTheImagesTheyCameWith)
{
    KDRVariant const all = everyValueInOne();
    KDRBuffer bytes;
    KDRImageArray images;
    ASSERT_TRUE(kdrio::toParts(all, &bytes, &images));
    KDRVariant back;
    kdrio::Error error;
    ASSERT_TRUE(kdrio::fromParts(bytes, images, &back, &error)) << words(error);
    EXPECT_EQ(Difference::between(all, back), "");

    KDRImage const image(nullptr, 4, 4, 1, 0, KDRImage::DataTypeUInt8);
    ASSERT_TRUE(kdrio::toParts(KDRVariant(image), &bytes, &images));
    ASSERT_EQ(images.length(), 1);
    EXPECT_EQ(images[0].dataPtr(), image.dataPtr());
    ASSERT_TRUE(kdrio::fromParts(bytes, images, &back));
    KDRImage loaded;
    ASSERT_TRUE(back.toImage(&loaded));
    EXPECT_EQ(loaded.dataPtr(), image.dataPtr());
}

TEST(RoundTrip, PixelsOutsideAreNoPartOfAFile)
{
    KDRBuffer bytes;
    KDRImageArray images;
    KDRVariant const image(KDRImage(nullptr, 4, 4, 1, 0, KDRImage::DataTypeUInt8));
    ASSERT_TRUE(kdrio::toParts(image, &bytes, &images));
    KDRVariant value(5);
    kdrio::Error error;
    EXPECT_FALSE(kdrio::fromBytes(bytes, &value, &error));
    EXPECT_NE(words(error).find("no such form of pixels: \"outside\""), std::string::npos);
    images.clear();
    EXPECT_FALSE(kdrio::fromParts(bytes, images, &value, &error));
    EXPECT_EQ(value.variantType(), KindNumber);
}

} // namespace
