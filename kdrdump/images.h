#ifndef KDRDUMP_IMAGES_H
#define KDRDUMP_IMAGES_H

#include <QtCore/qstring.h>
#include <string>
#include <vector>

#include <kdrdata/kdrdata.h>

#include "page/tree.h"

namespace kdrdump {

/// An image in a value and where it is.
struct Picture
{
    std::string path;
    KDRImage image;
    std::size_t
        first; ///< which of the pictures shows the same pixels first; its own place if it does
};

/// The images among the values of a tree, those of image arrays among them and empty ones not, in
/// the order of the tree. An image array is looked into where it stands first.
std::vector<Picture> picturesIn(std::vector<page::Entry> const& entries);

/// A picture to be written, or one channel of it, and where.
struct PictureFile
{
    QString path;
    KDRImage image;
    int channel; ///< -1 for all
};

/// The files of @p pictures in a directory, each under a name made of its path and each block of
/// pixels once: PNG where the pixels fit, TIFF where they do not, and a TIFF for each channel where
/// they fit into neither. Throws page::Failure where there is no such directory.
std::vector<PictureFile> filesOf(std::vector<Picture> const& pictures, QString const& directory);

/// Writes @p file. Throws page::Failure where it cannot be written.
void write(PictureFile const& file);

} // namespace kdrdump

#endif
