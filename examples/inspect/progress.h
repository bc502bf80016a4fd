#ifndef EXAMPLES_INSPECT_PROGRESS_H
#define EXAMPLES_INSPECT_PROGRESS_H

#include <cstddef>

namespace inspect {

/// Where standard error is a terminal, tells in one line there which step of several is at work;
/// the line goes with this object. Anywhere else it says nothing.
class Progress
{
public:
    explicit Progress(std::size_t steps);
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;
    ~Progress();

    /// The next step, called @p name, begins.
    void next(char const* name);

private:
    std::size_t done = 0;
    std::size_t all;
    bool seen; // whether there is somebody to look at it
};

} // namespace inspect

#endif
