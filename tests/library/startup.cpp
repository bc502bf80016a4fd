// A program that makes one variant: how many shared libraries does it load?

#include <cstddef>
#include <cstdio>
#include <cstring>

#include <link.h>

#include <kdrdata/variant/kdrvariant.h>

namespace {

int countNamed(dl_phdr_info* info, std::size_t, void* count)
{
    // The program itself has no name, and the kernel's object no file.
    if (std::strchr(info->dlpi_name, '/')) {
        ++*static_cast<int*>(count);
        std::puts(info->dlpi_name);
    }
    return 0;
}

} // namespace

int main()
{
    constexpr int most = 30;
    KDRVariant const variant(7);
    int value = 0;
    int libraries = 0;
    dl_iterate_phdr(countNamed, &libraries);
    std::printf("%d shared libraries, of which %d are allowed\n", libraries, most);
    return variant.toInt(&value) && value == 7 && libraries > 0 && libraries <= most ? 0 : 1;
}
