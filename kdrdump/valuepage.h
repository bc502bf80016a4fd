#ifndef KDRDUMP_VALUEPAGE_H
#define KDRDUMP_VALUEPAGE_H

#include <string>

#include <kdrdata/kdrdata.h>

namespace kdrdump {

/// A page that shows @p value, which stands at @p path in the file called @p title: each image with
/// the figures that stand beside it over it, other figures on a ground of their own, tables of
/// numbers, and the whole as a tree that unfolds. Throws page::Failure where a picture cannot be
/// made.
std::string pageOf(KDRVariant const& value, std::string const& path, std::string const& title);

} // namespace kdrdump

#endif
