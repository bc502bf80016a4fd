#ifndef KDRIO_CONTENTS_P_H
#define KDRIO_CONTENTS_P_H

#include <kdrdata/variant/kdrvariantpayloads.h>

class KDRFont;
class KDRRegion;

/// @file
/// The contents of each class, written and read: what the rows of the kinds, and classes that hold
/// others, are made of. A reader fills a new object.

namespace kdrio {

class Reader;
class Writer;

#define KDRIO_CONTENTS(Class)                                                                      \
    void write(Writer& writer, Class const& value);                                                \
    void read(Reader& reader, Class& value);

// scalars.cpp
void write(Writer& writer, bool const& value);
KDRIO_CONTENTS(KDRNumber)
KDRIO_CONTENTS(KDRString)
KDRIO_CONTENTS(KDRBuffer)
KDRIO_CONTENTS(KDRChar)

// vision.cpp
KDRIO_CONTENTS(KDRPoint)
KDRIO_CONTENTS(KDRImage)
KDRIO_CONTENTS(KDRRegion)
KDRIO_CONTENTS(KDRMatrix)
KDRIO_CONTENTS(KDRContour)
KDRIO_CONTENTS(KDRROIAlignment)
KDRIO_CONTENTS(KDRFont)

// shapes.cpp
KDRIO_CONTENTS(KDRShape)

// geometry3d.cpp
KDRIO_CONTENTS(KDRPose2D)
KDRIO_CONTENTS(KDRPose3D)
KDRIO_CONTENTS(KDRShape3DArray)

// arrays.cpp
KDRIO_CONTENTS(KDRBoolArray)
KDRIO_CONTENTS(KDRNumberArray)
KDRIO_CONTENTS(KDRStringArray)
KDRIO_CONTENTS(KDRBufferArray)
KDRIO_CONTENTS(KDRPointArray)
KDRIO_CONTENTS(KDRImageArray)
KDRIO_CONTENTS(KDRShapeArray)
KDRIO_CONTENTS(KDRContourArray)
KDRIO_CONTENTS(KDRMatrixArray)
KDRIO_CONTENTS(KDRVariantArray)

#undef KDRIO_CONTENTS

/// A number without a range is its value alone.
bool hasRange(KDRNumber const& value);
/// A number's value, an integer or a floating-point number, without its range.
void writeValueOf(Writer& writer, KDRNumber const& value);

} // namespace kdrio

#endif
