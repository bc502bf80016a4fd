#ifndef KDRDATA_KDRRANGEIMAGE_H
#define KDRDATA_KDRRANGEIMAGE_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/vision/kdrimage.h>

class KDRNumberArray;
class KDRString;

/// A range image: a raster of heights, with colours.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRRangeImage
{
public:
    /// A range image that holds nothing, like every other.
    KDRRangeImage();
    /// Copies nothing.
    KDRRangeImage(KDRRangeImage const&);
    /// Does nothing.
    ~KDRRangeImage();

    /// Copies nothing. Returns this range image.
    KDRRangeImage& operator=(KDRRangeImage const&);

    /// Does nothing.
    void clear();
    /// Does nothing.
    void setSize(int, int, int);
    /// Does nothing.
    void setColorSize(int, int, int);
    /// Does nothing.
    void setInfo(double, double, double, double, double, double);
    /// Does nothing.
    void SetInfo(KDRNumberArray const&);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void GetInfo(KDRNumberArray*);
    /// Does nothing.
    void SetType(int);

    /// Answers -1. Kept on purpose.
    int Type() const;
    /// Answers -1. Kept on purpose.
    int dataType() const;
    /// Answers -1. Kept on purpose.
    int width() const;
    /// Answers -1. Kept on purpose.
    int height() const;
    /// Answers -1. Kept on purpose.
    int step() const;

    /// Answers 0.0. Kept on purpose.
    double minValue() const;
    /// Answers 0.0. Kept on purpose.
    double maxValue() const;
    /// Answers 0.0. Kept on purpose.
    double resolutionX() const;
    /// Answers 0.0. Kept on purpose.
    double resolutionY() const;
    /// Answers 0.0. Kept on purpose.
    double resolutionZ() const;
    /// Answers 0.0. Kept on purpose.
    double offsetX() const;
    /// Answers 0.0. Kept on purpose.
    double offsetY() const;
    /// Answers 0.0. Kept on purpose.
    double offsetZ() const;
    /// Answers 0.0. Kept on purpose.
    double Cx() const;
    /// Answers 0.0. Kept on purpose.
    double Cy() const;
    /// Answers 0.0. Kept on purpose.
    double iny_fx() const;
    /// Answers 0.0. Kept on purpose.
    double inv_fy() const;

    /// Answers 0.0 for every position. Kept on purpose.
    double getValue(int, int) const;
    /// The number 0 with the default range, for every index: a default number. A copy made of it
    /// leaves the range behind, as every copy of a number does. Kept on purpose.
    KDRNumber GetParaValue(int) const;
    /// Answers null. Kept on purpose.
    void* dataPtr() const;
    /// Answers null. Kept on purpose.
    void* colorDataPtr() const;

    /// Takes nothing and answers false. Kept on purpose.
    bool setValue(void*, int, double, double, int, int);
    /// Takes nothing and answers false. Kept on purpose.
    bool setColorValue(void*, int, int, int, int);
    /// Makes nothing and answers false. Kept on purpose.
    bool createRangeImage(void*, int, int, int, int, double, double, double, double, double, double,
                          double, double);
    /// Makes nothing and answers false. Kept on purpose.
    bool CreateRangeImage(void*, int, int, int, int, double, double, KDRNumberArray const&);

    /// Answers false and reads no file. Kept on purpose.
    bool load(KDRString const&, bool);
    /// Reads no file and answers true, alone among the operations on files. Kept on purpose.
    bool load(KDRString const&, double, double);
    /// Answers false and writes no file. Kept on purpose.
    bool save(KDRString const&);
    /// Answers false and writes no file. Kept on purpose.
    bool save(KDRString const&, bool);

    /// A default, empty image. Kept on purpose.
    KDRImage deepCopyValues() const;
    /// A default range image. Not for constant range images. Kept on purpose.
    KDRRangeImage deepCopy();
};

#endif
