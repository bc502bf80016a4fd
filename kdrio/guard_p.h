#ifndef KDRIO_GUARD_P_H
#define KDRIO_GUARD_P_H

#include <kdrio/failure_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/kdrio.h>

#include <new>

namespace kdrio {

[[noreturn]] inline void fail(QString const& what) { throw Failure{what, QString(), -1}; }
[[noreturn]] inline void fail(char const* what) { fail(QString(QLatin1String(what))); }

inline void mustBeThere(void const* output)
{
    if (!output)
        fail("no output");
}

/// Where the library is entered: does the work, and answers false with @p error filled in where it
/// cannot be done. Nothing is thrown.
template <class Work>
bool guarded(Error* error, KDRString const* file, Work const& work)
{
    try {
        try {
            work();
            return true;
        } catch (Failure const& failure) {
            if (error) {
                Error made;
                made.what = inside::fromText(failure.what);
                if (file)
                    made.file = *file;
                made.path = inside::fromText(failure.path);
                made.offset = failure.offset;
                *error = made;
            }
        }
    } catch (std::bad_alloc const&) {
        // The words may be too much as well.
        try {
            if (error) {
                *error = Error();
                error->what = KDRString("out of memory");
            }
        } catch (std::bad_alloc const&) {
            return false;
        }
    }
    return false;
}

} // namespace kdrio

#endif
