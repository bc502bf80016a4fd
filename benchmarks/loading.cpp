// Prints how many seconds of processor time dlopen() of a library takes. A program of its own,
// which links none of what it loads.

#include <dlfcn.h>

#include <cstdio>
#include <ctime>

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 2;
    timespec start{};
    timespec end{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &start);
    void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &end);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    std::printf("%.9f\n", static_cast<double>(end.tv_sec - start.tv_sec) +
                              1e-9 * static_cast<double>(end.tv_nsec - start.tv_nsec));
    return 0;
}
