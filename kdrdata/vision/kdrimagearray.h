#ifndef KDRDATA_KDRIMAGEARRAY_H
#define KDRDATA_KDRIMAGEARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/vision/kdrimage.h>

class VelImageArray;
struct KDRInternal;

/// An ordered list of images.
///
/// An image enters and leaves the list through the core image's assignment, which shares its pixels
/// (see KDRImage::clone() for an independent copy).
///
/// The handle owns one core-library array (`VelImageArray`) and forwards to its operations of the
/// same names. Copies copy the elements, which again share their pixels. Indexes are `int`, counted
/// from 0.
///
/// Out of memory is std::bad_alloc and leaves the array as it was.
///
/// Threads: one array may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRImageArray
{
public:
    /// An empty array.
    KDRImageArray();
    /// Copies the elements of @p other through the core array's assignment.
    KDRImageArray(KDRImageArray const& other);
    /// Destroys the core array.
    ~KDRImageArray();

    /// Copies the elements of @p other through the core array's assignment. Returns this array.
    KDRImageArray& operator=(KDRImageArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends an image sharing the pixels of @p value.
    void push_back(KDRImage const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRImageArray const& other);

    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns the element at @p index to @p out, which must not be null and then shares its
    /// pixels. Answers true when 0 <= @p index < length(); otherwise answers false and leaves @p
    /// out untouched.
    bool select(int index, KDRImage* out) const;
    /// Replaces the element at @p index by an image sharing the pixels of @p value. Answers true
    /// when 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRImage const& value);
    /// Inserts an image sharing the pixels of @p value before @p index. Answers true when 0 <= @p
    /// index < length(); otherwise answers false and changes nothing. The end position is refused,
    /// so an empty array takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRImage const& value);
    /// Removes all elements.
    void clear();
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);

    /// A new image sharing the pixels of the element at @p index. The index is not checked here:
    /// one outside the array goes to the core library as it is, and what comes back is that
    /// library's choice.
    KDRImage operator[](int index) const;

private:
    friend struct KDRInternal;
    VelImageArray* d;
};

#endif
