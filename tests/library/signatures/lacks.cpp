// That the line LACKS fails for one operation of the name and for several of them. See
// signatures.h.

#include "signatures.h"

namespace {

struct WithNone
{
    void other();
};

struct WithOne
{
    void operation() const;
};

struct WithTwo
{
    void operation(int);
    void operation(double) const;
};

} // namespace

LACKS(WithNone, operation);

JOINED(WithOne, operation);
static_assert(HAS(WithOne, operation), "one operation");

JOINED(WithTwo, operation);
static_assert(HAS(WithTwo, operation), "two overloads");
