#ifndef KDRDATA_TESTS_FAKECALLS_H
#define KDRDATA_TESTS_FAKECALLS_H

#include <sstream>
#include <string>
#include <vector>

/// What the core records of this directory take down: their calls, in order, and how many of them
/// are alive. They do no work, have the operations that the library is built on and no others, and
/// take their arguments as narrowly as a core library may.
namespace FakeCalls {

inline std::vector<std::string> calls;
inline int alive = 0;

/// A member of every record that is counted.
struct Alive
{
    Alive() { ++alive; }
    Alive(Alive const&) = delete;
    Alive& operator=(Alive const&) { return *this; }
    ~Alive() { --alive; }
};

template <class... Arguments>
void note(char const* name, Arguments const&... arguments)
{
    std::ostringstream call;
    call << name;
    ((call << ' ' << arguments), ...);
    calls.push_back(call.str());
}

} // namespace FakeCalls

#endif
