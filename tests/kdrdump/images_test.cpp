#include "run.h"

#include <QtCore/qregularexpression.h>
#include <cstring>
#include <map>

namespace {

int const elementBytes[] = {1, 1, 2, 2, 4, 4, 8};

KDRImage imageOf(int type, int channels)
{
    KDRImage image(nullptr, 5, 3, channels, 0, static_cast<KDRImage::DataType>(type));
    int const count = image.width() * image.height() * channels;
    for (int i = 0; i < count; ++i) {
        double const value = i * 3.0 + type;
        float const single = static_cast<float>(value);
        unsigned char* const at = image.dataPtr() + i * elementBytes[type];
        if (type == KDRImage::DataTypeFloat64)
            std::memcpy(at, &value, sizeof value);
        else if (type == KDRImage::DataTypeFloat32)
            std::memcpy(at, &single, sizeof single);
        else
            at[0] = static_cast<unsigned char>(i * 37 + type);
    }
    return image;
}

class Images : public Dump
{
protected:
    KDRImage picture(QString const& name) const
    {
        QByteArray const path = file(name).toUtf8();
        KDRImage image;
        int const answer = image.read(KDRString().fromUtf8(path.constData()));
        // Of floating-point pixels, which are read all the same, read() answers failure.
        EXPECT_EQ(answer != 0, image.depth() < KDRImage::DataTypeFloat32) << name.toStdString();
        return image;
    }

    // Whether the channels of a picture from `first` on are those of another.
    static void expectSame(KDRImage const& found, KDRImage const& wanted, int first)
    {
        ASSERT_EQ(found.width(), wanted.width());
        ASSERT_EQ(found.height(), wanted.height());
        ASSERT_EQ(found.depth(), wanted.depth());
        auto const size = static_cast<std::size_t>(elementBytes[wanted.depth()]);
        for (int y = 0; y < wanted.height(); ++y)
            for (int x = 0; x < wanted.width(); ++x)
                for (int c = 0; c < found.channel(); ++c) {
                    auto const at = [&](KDRImage const& image, int channel) {
                        return image.dataPtr() + y * image.step() +
                               static_cast<std::size_t>(x * image.channel() + channel) * size;
                    };
                    ASSERT_EQ(std::memcmp(at(found, c), at(wanted, first + c), size), 0)
                        << x << ' ' << y << ' ' << c;
                }
    }
};

TEST_F(Images, ComeBackEqualWhateverTheirPixels)
{
    KDRVariantArray list;
    std::vector<KDRImage> images;
    for (int type = 0; type < 7; ++type)
        for (int channels = 1; channels <= 4; ++channels) {
            images.push_back(imageOf(type, channels));
            list.push_back(KDRVariant(images.back()));
        }
    save(KDRVariant(list));
    QStringList const names =
        QString::fromStdString(printed({"value.kdr", "--images", "."})).trimmed().split('\n');
    QRegularExpression const form("^\\./(\\d+)(\\.channel(\\d))?\\.(png|tif)$");
    std::map<int, int> channels;
    for (QString const& name : names) {
        SCOPED_TRACE(name.toStdString());
        QRegularExpressionMatch const parts = form.match(name);
        ASSERT_TRUE(parts.hasMatch());
        int const index = parts.captured(1).toInt();
        KDRImage const& wanted = images.at(static_cast<std::size_t>(index));
        KDRImage const found = picture(name);
        EXPECT_EQ(found.channel(), parts.captured(2).isEmpty() ? wanted.channel() : 1);
        expectSame(found, wanted, parts.captured(3).toInt());
        channels[index] += found.channel();
        bool const isPng = (wanted.depth() == 0 || wanted.depth() == 2) && wanted.channel() != 2;
        EXPECT_EQ(parts.captured(4), isPng ? "png" : "tif");
    }
    for (std::size_t i = 0; i < images.size(); ++i)
        EXPECT_EQ(channels[static_cast<int>(i)], images[i].channel()) << i;
    EXPECT_EQ(files().size(), names.size() + 1);
}

TEST_F(Images, HaveNamesMadeOfTheirPaths)
{
    KDRImageArray several;
    several.push_back(imageOf(0, 1));
    several.push_back(KDRImage());
    several.push_back(imageOf(0, 3));
    save(listOf({"image", imageOf(0, 1), "more", listOf({5, KDRVariant(several)}), "none",
                 KDRVariant(KDRImage())}));
    ASSERT_TRUE(QDir(file(".")).mkdir("out"));
    EXPECT_EQ(printed({"value.kdr", "--images", "out"}),
              "out/1.png\nout/3-1-0.png\nout/3-1-2.png\n");
    EXPECT_EQ(printed({"value.kdr", "--select", "[3]", "--images", "out"}),
              "out/3-1-0.png\nout/3-1-2.png\n");
    EXPECT_EQ(printed({"value.kdr", "--select", "[3][1][2]", "--images", "."}), "./3-1-2.png\n");
    expectSame(picture("3-1-2.png"), imageOf(0, 3), 0);
    save(imageOf(2, 1));
    EXPECT_EQ(printed({"value.kdr", "--images", "out"}), "out/value.png\n");
    save(listOf({1, 2, 3}));
    EXPECT_EQ(printed({"value.kdr", "--images", "out"}), "");
}

TEST_F(Images, NeedADirectory)
{
    save(imageOf(0, 1));
    EXPECT_EQ(refused({"value.kdr", "--images", "missing"}),
              "cannot write pictures to 'missing': no such directory");
    EXPECT_EQ(refused({"value.kdr", "--images", "value.kdr"}),
              "cannot write pictures to 'value.kdr': no such directory");
    ASSERT_TRUE(QDir(file(".")).mkdir("value.png"));
    EXPECT_EQ(refused({"value.kdr", "--images", "."}),
              "cannot write './value.png': no permission, or the disk is full");
}

} // namespace
