#ifndef EXAMPLES_INSPECT_FLOW_H
#define EXAMPLES_INSPECT_FLOW_H

#include <map>
#include <string>

#include <kdrdata/kdrdata.h>

#include "page/failure.h"

namespace inspect {

/// The values of a flow by name. Copying them copies handles: every store is shared.
using Values = std::map<std::string, KDRVariant>;

/// A tool reads the values it needs by name and answers all it was given with its results added.
/// It throws Failure where it cannot do its work.
using Tool = Values (*)(Values const& given);

/// Why a tool could not do its work, in one line for the user.
using Failure = page::Failure;

/// The value called @p name, read with the variant's reader of its type. Throws Failure where there
/// is none or it has another kind.
template <typename Value>
Value valueOf(Values const& values, char const* name, bool (KDRVariant::*reader)(Value*) const)
{
    Value value;
    auto const found = values.find(name);
    if (found == values.end() || !(found->second.*reader)(&value))
        throw Failure(std::string("a tool misses the value '") + name + "'");
    return value;
}

/// The region called @p name. Regions have no kind of their own: they travel as shapes.
inline KDRRegion regionOf(Values const& values, char const* name)
{
    KDRRegion region;
    if (!valueOf(values, name, &KDRVariant::toShape).toRegion(&region))
        throw Failure(std::string("the value '") + name + "' is no region");
    return region;
}

/// A variant that holds @p number with its range. Putting a number into a variant leaves its range
/// behind; assigning it to the stored number takes the range along.
inline KDRVariant withRange(KDRNumber const& number)
{
    KDRVariant value(number);
    KDRNumber* stored = nullptr;
    if (value.toNumberPtr(stored))
        *stored = number;
    return value;
}

} // namespace inspect

#endif
