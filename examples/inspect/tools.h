#ifndef EXAMPLES_INSPECT_TOOLS_H
#define EXAMPLES_INSPECT_TOOLS_H

#include <map>
#include <stdexcept>
#include <string>

#include <kdrdata/kdrdata.h>

namespace inspect {

/// The values of a flow by name. Copying them copies handles: every store is shared.
using Values = std::map<std::string, KDRVariant>;

/// A tool reads the values it needs by name and answers all it was given with its results added.
/// It throws Failure where it cannot do its work.
using Tool = Values (*)(Values const& given);

/// Why a tool could not do its work, in one line for the user.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// "path" (string): read the picture. Adds "image" (image).
Values loadImage(Values const& given);

/// "image": take the uneven ground away. Adds "relief" (image, one 8-bit channel): by how many grey
/// values each pixel stands out of the ground around it.
Values flattenGround(Values const& given);

/// "relief": propose what the user has not given. Adds "level" (number): the grey value of the
/// relief above which a pixel belongs to a part; and "smallest" (number): the area in square pixels
/// below which a part counts as dirt.
Values proposeParameters(Values const& given);

/// "relief", "level": tell parts from ground. Adds "mask" (image, one 8-bit channel, 255 and 0).
Values threshold(Values const& given);

/// "mask", "smallest": find the parts, in reading order. Adds "outlines" (contour array) and
/// "cut" (number): how many parts were left out because the picture's edge cuts them.
Values findParts(Values const& given);

/// "outlines": measure the parts. Adds "centres" (point array) and "areas" (number array), in the
/// order of the outlines.
Values measureParts(Values const& given);

/// "image", "outlines", "centres": draw what was found. Adds "drawing" (image, three 8-bit
/// channels).
Values drawParts(Values const& given);

/// The value called @p name, read with the variant's reader of its type. Throws Failure where there
/// is none or it has another kind.
template <typename Value>
Value valueOf(Values const& values, char const* name, bool (KDRVariant::*reader)(Value*) const)
{
    Value value;
    auto const found = values.find(name);
    if (found == values.end() || !(found->second.*reader)(&value))
        throw Failure(std::string("a tool misses the value '") + name + "'");
    return value;
}

} // namespace inspect

#endif
