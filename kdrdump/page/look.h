#ifndef KDRDUMP_PAGE_LOOK_H
#define KDRDUMP_PAGE_LOOK_H

namespace page {

/// The style sheet of a page.
char const* pageStyle();

/// The script of a page: lights up parts and their rows, sorts, and switches kinds of figures. It
/// has no '<' and no '&', which XML would read.
char const* pageScript();

} // namespace page

#endif
