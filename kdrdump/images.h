#ifndef KDRDUMP_IMAGES_H
#define KDRDUMP_IMAGES_H

#include <QtCore/qstring.h>
#include <string>
#include <vector>

#include <kdrdata/kdrdata.h>

namespace kdrdump {

/// An image in a value and where it is.
struct Picture
{
    std::string path;
    KDRImage image;
};

/// The images in @p value, those of image arrays among them and empty ones not, in the order of the
/// tree. @p path is that of the value.
std::vector<Picture> picturesIn(KDRVariant const& value, std::string const& path);

/// Writes @p pictures into a directory, each under a name made of its path: PNG where the pixels
/// fit, TIFF where they do not, and a TIFF for each channel where they fit into neither. Answers
/// the names of the files. Throws page::Failure where one cannot be written.
std::vector<QString> writePictures(std::vector<Picture> const& pictures, QString const& directory);

} // namespace kdrdump

#endif
