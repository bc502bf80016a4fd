#ifndef KDRDATA_KDRENUMPRIVATE_H
#define KDRDATA_KDRENUMPRIVATE_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstringarray.h>

/// The record behind a KDREnum: the numbers and the names of the options, and which one is chosen.
///
/// The two lists stand side by side by convention only; nothing compares their lengths.
///
/// Threads: one record may be read from several threads while none changes it.
class KDRDATA_EXPORT KDREnumPrivate
{
public:
    /// Two empty lists and nothing chosen.
    KDREnumPrivate();
    /// Shares both lists of @p other and copies its choice.
    KDREnumPrivate(KDREnumPrivate const& other);
    /// Clears both lists, chooses nothing and destroys the lists.
    ~KDREnumPrivate();

    /// Takes the numbers, then the names, then the choice of @p other. Returns this record.
    KDREnumPrivate& operator=(KDREnumPrivate const& other);

    /// The numbers of the options.
    KDRNumberArray indexList;
    /// The names of the options.
    KDRStringArray stringList;
    /// The position of the chosen option among the names, -1 for none; any other number may stand
    /// here too.
    int currentValue;
};

#endif
