#include "images.h"

#include "page/failure.h"
#include "page/tree.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <cstring>

namespace kdrdump {

namespace {

KDRString textOf(QString const& text) { return KDRString(text.utf16(), text.size()); }

// "[3].image array[0]" is 3-0, and the value as a whole is "value".
QString nameOf(std::string const& path)
{
    QString name;
    for (char const each : path) {
        if (each >= '0' && each <= '9')
            name += QLatin1Char(each);
        else if (each == '[' && !name.isEmpty())
            name += '-';
    }
    return name.isEmpty() ? "value" : name;
}

bool fitsPng(KDRImage const& image)
{
    return image.channel() != 2 && (image.dataType() == KDRImage::DataTypeUInt8 ||
                                    image.dataType() == KDRImage::DataTypeUInt16);
}

bool fitsTiff(KDRImage const& image)
{
    return image.channel() == 1 ||
           (image.channel() != 2 && image.dataType() == KDRImage::DataTypeFloat32);
}

KDRImage channelOf(KDRImage const& image, int channel)
{
    constexpr int bytes[] = {1, 1, 2, 2, 4, 4, 8};
    auto const size = static_cast<std::size_t>(bytes[image.dataType()]);
    KDRImage plane(nullptr, image.width(), image.height(), 1, 0, image.dataType());
    for (int y = 0; y < plane.height(); ++y) {
        unsigned char const* const from = image.dataPtr() + std::ptrdiff_t(y) * image.step();
        unsigned char* const to = plane.dataPtr() + std::ptrdiff_t(y) * plane.step();
        for (int x = 0; x < plane.width(); ++x)
            std::memcpy(to + static_cast<std::size_t>(x) * size,
                        from + static_cast<std::size_t>(x * image.channel() + channel) * size,
                        size);
    }
    return plane;
}

class Writer
{
public:
    explicit Writer(QString const& path) : directory(path) {}

    std::vector<QString> names;

    void write(KDRImage image, QString const& name)
    {
        QString const path = directory.filePath(name);
        if (image.save(textOf(path)) == 0)
            throw page::Failure("cannot write '" + path.toStdString() +
                                "': no permission, or the disk is full");
        names.push_back(path);
    }

private:
    QDir directory;
};

} // namespace

std::vector<Picture> picturesIn(KDRVariant const& value, std::string const& path)
{
    std::vector<Picture> pictures;
    for (page::Entry const& entry : page::entriesOf(value, path)) {
        KDRImage image;
        KDRImageArray images;
        if (entry.value.toImage(&image) && image.dataPtr())
            pictures.push_back({entry.path, image});
        if (!entry.value.toImageArray(&images))
            continue;
        for (int i = 0; i < images.length(); ++i)
            if (images.select(i, &image) && image.dataPtr())
                pictures.push_back({entry.path + '[' + std::to_string(i) + ']', image});
    }
    return pictures;
}

std::vector<QString> writePictures(std::vector<Picture> const& pictures, QString const& directory)
{
    if (!QFileInfo(directory).isDir())
        throw page::Failure("cannot write pictures to '" + directory.toStdString() +
                            "': no such directory");
    Writer writer(directory);
    for (Picture const& picture : pictures) {
        QString const name = nameOf(picture.path);
        if (fitsPng(picture.image))
            writer.write(picture.image, name + ".png");
        else if (fitsTiff(picture.image))
            writer.write(picture.image, name + ".tif");
        else
            for (int channel = 0; channel < picture.image.channel(); ++channel)
                writer.write(channelOf(picture.image, channel),
                             name + ".channel" + QString::number(channel) + ".tif");
    }
    return writer.names;
}

} // namespace kdrdump
