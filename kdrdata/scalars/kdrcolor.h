#ifndef KDRDATA_KDRCOLOR_H
#define KDRDATA_KDRCOLOR_H

#include <kdrdata/kdrdata_export.h>

/// A colour: red, green, blue and alpha.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRColor
{
public:
    /// A colour that holds nothing, like every other.
    KDRColor();
    /// Ignores the four components.
    KDRColor(int, int, int, int);
    /// Copies nothing.
    KDRColor(KDRColor const&);
    /// Does nothing.
    ~KDRColor();

    /// Copies nothing. Returns this colour.
    KDRColor& operator=(KDRColor const&);

    /// Answers -1. Kept on purpose.
    int getRed() const;
    /// Answers -1. Kept on purpose.
    int getGreen() const;
    /// Answers -1. Kept on purpose.
    int getBlue() const;
    /// Answers -1. Kept on purpose.
    int getAlpha() const;
};

#endif
