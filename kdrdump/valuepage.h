#ifndef KDRDUMP_VALUEPAGE_H
#define KDRDUMP_VALUEPAGE_H

#include <string>
#include <vector>

#include "images.h"
#include "page/tree.h"

namespace kdrdump {

/// A page that shows the values in @p entries, which stand at @p path in the file called @p title:
/// each of @p pictures, those among them, with the figures that stand beside it over it, other
/// figures on a ground of their own, tables of numbers, and the whole as a tree that unfolds. What
/// stands more than once is on the page once, as far as it is long. Throws page::Failure where a
/// picture cannot be made.
std::string pageOf(std::vector<page::Entry> const& entries, std::vector<Picture> const& pictures,
                   std::string const& path, std::string const& title);

} // namespace kdrdump

#endif
