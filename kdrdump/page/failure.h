#ifndef KDRDUMP_PAGE_FAILURE_H
#define KDRDUMP_PAGE_FAILURE_H

#include <stdexcept>

namespace page {

/// Why something could not be done, in one line for the user.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace page

#endif
