#ifndef KDRDATA_KDRVARIANTARRAY_H
#define KDRDATA_KDRVARIANTARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/variant/kdrvariant.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of variants of any kinds over Qt's `QList`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, makes a
/// storage of its own. Indexes are `int`, counted from 0.
///
/// Each element is a KDRVariant of its own that shares its store with the variant it came from: no
/// payload is copied when a value enters, leaves or moves, nor when the list detaches. Writing
/// through a variant that was put in or taken out detaches that variant (see KDRVariant) and leaves
/// the element as it was. What a pointer reader hands out is the element's payload too.
///
/// An array may be an element of another. If an array is reached through
/// KDRVariant::toVariantArrayPtr() and the variant that holds it is pushed into it, the store holds
/// itself and is not freed before the element is removed again. Freeing goes as deep as arrays are
/// nested and takes about 180 bytes of the thread's stack a level in an optimised build, 460 in a
/// debug build (g++, 64 bits): 512 KiB hold about 2,900 levels (debug 1,100), 1 MiB 5,900 (2,300)
/// and 8 MiB 47,000 (18,000). Deeper nests overrun the stack.
///
/// Out of memory is std::bad_alloc and leaves the array as it was.
///
/// @code
/// KDRVariantArray recipe;
/// recipe.push_back(KDRVariant(128));
/// recipe.push_back(KDRVariant("threshold"));
/// KDRVariant level;
/// bool const found = recipe.select(0, &level);
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and operator[]()
/// counts as a change. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDRVariantArray
{
public:
    /// An empty array.
    KDRVariantArray();
    /// Shares the storage of @p other; a copy of an empty array has none to share.
    KDRVariantArray(KDRVariantArray const& other);
    /// Gives up this array's share of the storage, and with the last one each element's share of
    /// its store.
    ~KDRVariantArray();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDRVariantArray& operator=(KDRVariantArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends a variant that shares the store of @p value.
    void push_back(KDRVariant const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself. A new list is
    /// built and installed, whose elements share the stores of the old ones; appending to an array
    /// that never held storage, or was cleared, shares the storage of @p other instead, and
    /// appending an empty array changes nothing.
    void push_back(KDRVariantArray const& other);

    /// Inserts a variant that shares the store of @p value before @p index. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing. The end position is
    /// refused, so an empty array takes no element this way; append with push_back(). Kept on
    /// purpose.
    bool insert(int index, KDRVariant const& value);
    /// Removes the element at @p index, which gives up its share of its store. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns @p value to the element at @p index, which then shares its store. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRVariant const& value);
    /// Assigns the element at @p index to @p out, which must not be null and then shares its store;
    /// @p out may be the variant that holds this array. Answers true when 0 <= @p index < length();
    /// otherwise answers false and leaves @p out untouched. Never detaches.
    bool select(int index, KDRVariant* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// A variant that shares the store of the element at @p index, which the caller guarantees to
    /// lie in the array (asserted in debug builds). Detaches a shared list although the array is
    /// constant. Kept on purpose.
    KDRVariant operator[](int index) const;

private:
    friend struct KDRInternal;
    QList<KDRVariant>* d;
};

#endif
