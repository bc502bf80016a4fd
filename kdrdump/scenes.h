#ifndef KDRDUMP_SCENES_H
#define KDRDUMP_SCENES_H

#include <string>
#include <vector>

#include "images.h"
#include "page/page.h"
#include "page/tree.h"

namespace kdrdump {

/// An image, or an empty ground, and the figures over it.
struct Scene
{
    std::string path;
    Picture const* picture; ///< null for an empty ground
    std::vector<page::PagePart> parts;
    std::vector<std::vector<std::string>> rows; ///< number, place, name and brief of each part
};

/// The figures among @p entries over @p pictures, which are in them and stay where they are.
/// Figures belong to the image that stands before them in their list, or else to the first in it.
/// Those of a list without images belong where the list stands. Figures that stand more than once
/// are drawn again until that becomes too much; then a row tells where they stand.
std::vector<Scene> scenesOf(std::vector<page::Entry> const& entries,
                            std::vector<Picture> const& pictures);

} // namespace kdrdump

#endif
