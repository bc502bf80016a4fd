#ifndef KDRDATA_TESTS_KDRIO_VALUES_H
#define KDRDATA_TESTS_KDRIO_VALUES_H

#include <kdrdata/kdrdata.h>

#include <string>
#include <vector>

/// A value with a name.
struct NamedValue
{
    std::string name;
    KDRVariant value;
};

/// Values of every kind with contents of every sort: nulls and empties, numbers of all ranges and
/// bits, texts that UTF-8 does not hold, figures of every kind, pixels of every type, things that
/// are shared, and kinds that lost their payload.
std::vector<NamedValue> everyNamedValue();

/// A recipe as a program has it: all of them in one list.
KDRVariant everyValueInOne();

#endif
