#include "progress.h"

#include <iostream>
#include <unistd.h>

namespace inspect {

namespace {

// Goes to the start of the line and empties it.
char const freshLine[] = "\r\033[K";

} // namespace

Progress::Progress(std::size_t steps) : all(steps), seen(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress()
{
    if (seen)
        std::cerr << freshLine << std::flush;
}

void Progress::next(char const* name)
{
    ++done;
    if (seen)
        std::cerr << freshLine << done << " of " << all << ": " << name << std::flush;
}

} // namespace inspect
