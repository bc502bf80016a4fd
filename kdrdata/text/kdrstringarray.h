#ifndef KDRDATA_KDRSTRINGARRAY_H
#define KDRDATA_KDRSTRINGARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrstring.h>

class KDRRegExp;
class QString;
template <typename T>
class QList;
struct KDRInternal;

/// A list of strings over Qt's `QList<QString>`.
///
/// The handle owns one list. Copying and assigning an array costs one small allocation at most and
/// shares the list's storage (Qt's implicit sharing, an atomic count); the first change on either
/// side detaches, that is, copies the storage but not the texts. Indexes are `int`, counted from 0.
///
/// The list holds the texts themselves, not KDRString handles: a string enters the list by sharing
/// its text and leaves it as a new KDRString that shares the text. Null and empty strings stay what
/// they are.
///
/// Failure: a position outside the array makes an operation answer false and change nothing;
/// operator[]() alone does not check. An allocation that fails throws std::bad_alloc.
///
/// @code
/// KDRStringArray names;
/// names.push_back(KDRString("left"));
/// names.push_back(KDRString("right"));
/// KDRString const both = names.join(KDRString(", ")); // "left, right"
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and operator[]()
/// counts as a change. Arrays that share storage may be used from different threads. A search with
/// a KDRRegExp changes the expression.
class KDRDATA_EXPORT KDRStringArray
{
public:
    /// An empty array.
    KDRStringArray();
    /// Shares the storage of @p other.
    KDRStringArray(KDRStringArray const& other);
    /// Gives up this array's share of the storage.
    ~KDRStringArray();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDRStringArray& operator=(KDRStringArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends @p value, sharing its text.
    void push_back(KDRString const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRStringArray const& other);

    /// Inserts @p value, sharing its text, before @p index. Answers true when
    /// 0 <= @p index <= length(); otherwise answers false and changes nothing. Unlike the other
    /// arrays this one takes the end position, which appends. Kept on purpose.
    bool insert(int index, KDRString const& value);
    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Makes the element at @p index the text of @p value, shared. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRString const& value);
    /// Makes @p out, which must not be null, share the text of the element at @p index. Answers
    /// true when 0 <= @p index < length(); otherwise answers false and leaves @p out untouched.
    /// Never detaches.
    bool select(int index, KDRString* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// The element at @p index, which the caller guarantees to lie in the array (asserted in debug
    /// builds), as a string that shares its text. Detaches a shared list although the array is
    /// constant. Kept on purpose.
    KDRString operator[](int index) const;

    /// The index of the first element at or after @p from that is the same text as @p value, code
    /// unit by code unit (a null and an empty string are the same), or -1. A negative @p from
    /// counts from the end, and from the start if it reaches beyond it; one at or past length()
    /// finds nothing. Never detaches (QList::indexOf).
    int indexOf(KDRString const& value, int from = 0) const;
    /// The index of the first element at or after @p from that @p rx matches from its first to its
    /// last code unit, or -1. @p from counts as in the search for a string.
    ///
    /// The search runs on @p rx itself, although it is constant: afterwards its positions, lengths
    /// and captures are those of the last element tried, which is the one found or else the last of
    /// the array. Where no element was tried they stay as they were (QStringList::indexOf,
    /// QRegExp::exactMatch).
    int indexOf(KDRRegExp const& rx, int from = 0) const;
    /// @copydoc indexOf(KDRRegExp const&, int) const
    int indexOf(KDRRegExp& rx, int from = 0) const;

    /// All elements in order as one string, with @p separator between neighbours. A separator of
    /// code 0 puts nothing between them, never a zero character. Kept on purpose.
    ///
    /// A result without a code unit is null: that of an empty array, and that of empty elements
    /// joined with nothing. The array is not changed, yet constant arrays cannot be joined. Kept on
    /// purpose. (QStringList::join)
    KDRString join(KDRChar separator);
    /// All elements in order as one string, with @p separator, which may be empty and may hold
    /// zeros, between neighbours.
    ///
    /// A result without a code unit is null: that of an empty array, and that of empty elements
    /// joined with nothing. The array is not changed, yet constant arrays cannot be joined. Kept on
    /// purpose. (QStringList::join)
    KDRString join(KDRString const& separator);

private:
    friend struct KDRInternal;
    QList<QString>* d;
};

#endif
