#ifndef KDRIO_KINDS_P_H
#define KDRIO_KINDS_P_H

#include <kdrdata/variant/kdrvariantkind.h>

class KDRVariant;
class KDRVariantPrivate;

namespace kdrio {

class Reader;
class Writer;

/// What the format knows of one kind.
struct Kind
{
    KDRVariantKind number;
    /// Its name in files.
    char const* name;
    /// Writes the contents of a store of this kind, or that it has none.
    void (*write)(Writer& writer, KDRVariantPrivate& store);
    /// Makes a variant one of this kind with the contents that come next.
    void (*read)(Reader& reader, KDRVariant& value);
};

/// The row of a kind; null for one that the format does not have.
Kind const* kindOf(KDRVariantKind number);
/// The row of the kind that a file names so; null where there is none.
Kind const* kindNamed(char const* name);

} // namespace kdrio

#endif
