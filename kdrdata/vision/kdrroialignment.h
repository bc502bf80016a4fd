#ifndef KDRDATA_KDRROIALIGNMENT_H
#define KDRDATA_KDRROIALIGNMENT_H

#include <kdrdata/kdrdata_export.h>

class KDRMatrixArray;
class KDRNumberArray;
class KDRPointArray;
class KDRShape;
class KDRShapeArray;
class VelMatrixArray;
struct KDRInternal;

/// How regions of interest are moved onto an object that was found: a sequence of alignment
/// matrices.
///
/// This version keeps and hands over the sequence and checks the shape of what it is given, but
/// computes no matrices and no aligned shapes. Kept on purpose.
///
/// The handle owns one core-library array (`VelMatrixArray`). Copies are deep.
///
/// Out of memory is std::bad_alloc and leaves the alignment as it was.
///
/// Threads: one alignment may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRROIAlignment
{
public:
    /// An alignment with an empty sequence.
    KDRROIAlignment();
    /// Copies the sequence of @p other through the core array's assignment.
    KDRROIAlignment(KDRROIAlignment const& other);
    /// Destroys the core array.
    ~KDRROIAlignment();

    /// Copies the sequence of @p other through the core array's assignment. Returns this alignment.
    KDRROIAlignment& operator=(KDRROIAlignment const& other);

    /// Clears the sequence and answers whether all six lists have the same length. Computes no
    /// matrices: the sequence stays empty. The lists are not changed. Kept on purpose.
    bool genAlignmentSequence(KDRNumberArray& referenceX, KDRNumberArray& referenceY,
                              KDRNumberArray& referenceAngles, KDRNumberArray& foundX,
                              KDRNumberArray& foundY, KDRNumberArray& foundAngles);
    /// The same with the positions in point lists: answers whether all four lists have the same
    /// length.
    bool genAlignmentSequence(KDRPointArray& references, KDRNumberArray& referenceAngles,
                              KDRPointArray& found, KDRNumberArray& foundAngles);

    /// Replaces the contents of @p matrices, which must not be null, by a copy of the sequence.
    /// Not for constant alignments. Kept on purpose.
    void toMatrixArray(KDRMatrixArray* matrices);
    /// Replaces the sequence by a copy of @p matrices, and answers false all the same. Kept on
    /// purpose.
    bool fromMatrixArray(KDRMatrixArray& matrices);

    /// Clears @p aligned, which must not be null, and answers whether shapes of the kind of
    /// @p shape can be aligned: false for kinds 10 (region), 11 (text), 12 (arrow), 99 (empty) and
    /// 300, true for all others. Produces no aligned shapes. Kept on purpose.
    bool alignROI(KDRShape& shape, KDRShapeArray* aligned);

private:
    friend struct KDRInternal;
    VelMatrixArray* d;
};

#endif
