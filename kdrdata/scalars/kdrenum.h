#ifndef KDRDATA_KDRENUM_H
#define KDRDATA_KDRENUM_H

#include <QtCore/qglobal.h>

#include <kdrdata/kdrdata_export.h>

class KDREnumPrivate;
class KDRNumberArray;
class KDRString;
class KDRStringArray;
struct KDRInternal;

/// A selection: the names of the options, their numbers, and which one is chosen.
///
/// The chosen option is a position among the names, counted from 0; -1 means none. It is never
/// looked up among the numbers, which are carried beside the names for whoever needs them. Nothing
/// is checked: the two lists may differ in length, and the position may lie outside both.
///
/// Each handle owns its record alone. A copy costs a few small allocations; it shares the elements
/// of the lists until one side changes them. Out of memory is std::bad_alloc.
///
/// @code
/// KDRStringArray names;
/// names.push_back(KDRString("dark"));
/// names.push_back(KDRString("bright"));
/// KDREnum edge(names, KDRNumberArray());
/// edge.setCurrentValStr(KDRString("bright")); // edge.currentVal() is 1
/// @endcode
///
/// Threads: one selection may be read from several threads while none changes it. Selections that
/// share lists may be used from different threads.
class KDRDATA_EXPORT KDREnum
{
public:
    /// No options; nothing chosen (-1).
    KDREnum();
    /// The options @p names with @p numbers; nothing chosen (-1). The names come first here, the
    /// numbers in setEnumInf(). Kept on purpose.
    KDREnum(KDRStringArray const& names, KDRNumberArray const& numbers);
    /// Copies the choice, the numbers and the names of @p other.
    KDREnum(KDREnum const& other);
    /// Frees the record.
    ~KDREnum();

    /// Copies the choice, the numbers and the names of @p other. Returns this selection.
    KDREnum& operator=(KDREnum const& other);

    /// Chooses the option at position @p index. Any `int` is taken, also one without an option.
    void setCurrentVal(int index);
    /// The position of the chosen option, as it was set.
    int currentVal() const;
    /// Chooses the first option of the name @p name (KDRStringArray::indexOf); none, -1, where no
    /// name is the same text.
    void setCurrentValStr(KDRString const& name);
    /// The name of the chosen option. For every position without a name, -1 included, the empty
    /// string, which is not null.
    KDRString currentValStr() const;

    /// Replaces the options; the position of the chosen one is kept, even where it no longer fits.
    /// The numbers come first here, the names in the constructor. Kept on purpose.
    void setEnumInf(KDRNumberArray const& numbers, KDRStringArray const& names);
    /// Makes @p out the names. Not for constant selections. Kept on purpose.
    void getEnumStringList(KDRStringArray& out);
    /// Makes @p out the numbers. Not for constant selections. Kept on purpose.
    void getEnumIndexList(KDRNumberArray& out);

private:
    friend struct KDRInternal;
    KDREnumPrivate* d;
};

/// An enumeration may be moved in memory byte by byte, and a QList keeps it in its slots.
Q_DECLARE_TYPEINFO(KDREnum, Q_MOVABLE_TYPE);

#endif
