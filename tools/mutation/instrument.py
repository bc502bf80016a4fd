"""Writes all mutants of a file into it, each behind a switch that is thrown when a test runs.

So everything is compiled once, and breaking a rule costs a run of the tests that reach it and no
more. Line breaks stay where they are, so that what the compiler says of a line holds for the
original; what it read stands two lines further down.
"""

MOST = 10000  # mutants

HEADER = f"""#ifndef KDR_MUTATION_H
#define KDR_MUTATION_H

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

// Notes a mutant that is reached: its byte in the file that is named. The file lies in memory, so
// that a test that counts calls or limits the sizes of files is not disturbed; only where memory
// itself is limited it is written to.
inline void kdrReached(char const* path, int number)
{{
    static int const file =
        static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC, 0));
    static void* const bytes =
        mmap(nullptr, {MOST}, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    static bool noted[{MOST}];
    if (bytes != MAP_FAILED)
        static_cast<char*>(bytes)[number] = 1;
    else if (!noted[number] && syscall(SYS_pwrite64, file, "\1", 1, static_cast<long>(number)) != 1)
        std::abort();
    noted[number] = true;
}}

// Whether the mutant of this number is the one that is tried.
inline bool kdrMutant(int number)
{{
    static int const active = std::getenv("KDR_MUTANT") ? std::atoi(std::getenv("KDR_MUTANT")) : 0;
    static char const* const path = std::getenv("KDR_MUTANTS_REACHED");
    if (path)
        kdrReached(path, number);
    return number == active;
}}

#endif
"""


def instrumented(text, mutants, header, path):
    """The text of a source (bytes) with the mutants (of that source) in it, under two lines more."""
    ordered = sorted(mutants, key=lambda m: (m.begin, -m.end))
    head = f'#include "{header}"\n#line 1 "{path}"\n'.encode()
    return head + _render(text, 0, len(text), ordered)


def _render(text, begin, end, mutants):
    pieces = []
    at = begin
    while mutants:
        first = mutants[0]
        span = (first.begin, first.end)
        here = [m for m in mutants if (m.begin, m.end) == span]
        inside = [m for m in mutants if span[0] <= m.begin and m.end <= span[1] and m not in here]
        mutants = [m for m in mutants if m.begin >= span[1]]
        pieces.append(text[at : span[0]])
        pieces.append(_wrapped(_render(text, span[0], span[1], inside), here))
        at = span[1]
    pieces.append(text[at:end])
    return b"".join(pieces)


def _wrapped(inner, mutants):
    for mutant in sorted(mutants, key=lambda m: m.kind == "condition"):
        switch = b"kdrMutant(%d)" % mutant.number
        replacement = mutant.replacement.encode()
        if mutant.kind == "expression":
            inner = b"(%s ? (%s) : (%s))" % (switch, replacement, inner)
        elif mutant.kind == "condition":
            inner = b"(%s ? (%s) : static_cast<bool>(%s))" % (switch, replacement, inner)
        elif mutant.kind == "removal":
            inner = b"{ if (!%s) { %s } }" % (switch, inner)
        else:
            inner = b"{ if (%s) { %s } %s }" % (switch, replacement, inner)
    return inner
