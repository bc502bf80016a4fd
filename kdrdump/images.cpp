#include "images.h"

#include "page/failure.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <cstring>
#include <map>
#include <tuple>

namespace kdrdump {

namespace {

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

// What tells a block of pixels, as a file shares it.
using Pixels = std::tuple<unsigned char const*, int, int, int, int>;

Pixels pixelsOf(KDRImage const& image)
{
    return {image.dataPtr(), image.width(), image.height(), image.channel(), image.depth()};
}

} // namespace

std::vector<Picture> picturesIn(std::vector<page::Entry> const& entries)
{
    std::vector<Picture> pictures;
    std::map<Pixels, std::size_t> firstOf;
    auto const add = [&](std::string const& path, KDRImage const& image) {
        if (!image.dataPtr())
            return;
        auto const first = firstOf.insert({pixelsOf(image), pictures.size()}).first;
        pictures.push_back({path, image, first->second});
    };
    for (std::size_t at = 0; at < entries.size(); ++at) {
        page::Entry const& entry = entries[at];
        KDRImage image;
        KDRImageArray images;
        if (entry.value.toImage(&image))
            add(entry.path, image);
        if (entry.first == at && entry.value.toImageArray(&images))
            for (int i = 0; i < images.length(); ++i)
                if (images.select(i, &image))
                    add(entry.path + '[' + std::to_string(i) + ']', image);
    }
    return pictures;
}

std::vector<PictureFile> filesOf(std::vector<Picture> const& pictures, QString const& directory)
{
    if (!QFileInfo(directory).isDir())
        throw page::Failure("cannot write pictures to '" + directory.toStdString() +
                            "': no such directory");
    std::vector<PictureFile> files;
    for (std::size_t at = 0; at < pictures.size(); ++at) {
        Picture const& picture = pictures[at];
        if (picture.first != at)
            continue;
        QString const path = QDir(directory).filePath(nameOf(picture.path));
        if (fitsPng(picture.image))
            files.push_back({path + ".png", picture.image, -1});
        else if (fitsTiff(picture.image))
            files.push_back({path + ".tif", picture.image, -1});
        else
            for (int channel = 0; channel < picture.image.channel(); ++channel)
                files.push_back({path + ".channel" + QString::number(channel) + ".tif",
                                 picture.image, channel});
    }
    return files;
}

void write(PictureFile const& file)
{
    KDRImage image = file.channel < 0 ? file.image : channelOf(file.image, file.channel);
    if (image.save(KDRString(file.path.utf16(), file.path.size())) == 0)
        throw page::Failure("cannot write '" + file.path.toStdString() +
                            "': no permission, or the disk is full");
}

} // namespace kdrdump
