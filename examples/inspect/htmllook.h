#ifndef EXAMPLES_INSPECT_HTMLLOOK_H
#define EXAMPLES_INSPECT_HTMLLOOK_H

namespace inspect {

/// The style sheet of a page.
char const* pageStyle();

/// The script of a page: lights up parts and their rows, sorts, and switches kinds of figures. It
/// has no '<' and no '&', which XML would read.
char const* pageScript();

} // namespace inspect

#endif
