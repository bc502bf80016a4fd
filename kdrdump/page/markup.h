#ifndef KDRDUMP_PAGE_MARKUP_H
#define KDRDUMP_PAGE_MARKUP_H

#include <string>

// The grains of a page.

namespace page {

/// @p text with everything replaced that means something to a browser, and what XML cannot hold.
std::string escaped(std::string const& text);

/// An attribute, with the blank before it.
std::string attribute(char const* name, std::string const& value);
/// The same of a number.
std::string attribute(char const* name, double value);

/// An element of what stands in its start tag, name first, and its content.
std::string element(std::string const& start, std::string const& content);

/// @p value in plain notation with @p digits after the point.
std::string fixedText(double value, int digits);

/// @p value in as few words as six digits allow.
std::string generalText(double value);

} // namespace page

#endif
