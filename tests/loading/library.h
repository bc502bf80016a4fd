#ifndef KDRDATA_TESTS_LIBRARY_H
#define KDRDATA_TESTS_LIBRARY_H

#include <dlfcn.h>

#include <stdexcept>
#include <string>

/// The library, opened at run time by a program that is linked to neither it nor Qt, and a few of
/// its operations by their symbols. A handle of any class is one pointer.
class Library
{
public:
    using Handle = void*;

    explicit Library(char const* path) : m_handle(::dlopen(path, RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_handle)
            throw std::runtime_error(::dlerror());
        find(makeString, "_ZN9KDRStringC1EPKc");
        find(destroyString, "_ZN9KDRStringD1Ev");
        find(makeExpression,
             "_ZN9KDRRegExpC1ERK9KDRStringNS_18KDRCaseSensitivityENS_16KDRPatternSyntaxE");
        find(destroyExpression, "_ZN9KDRRegExpD1Ev");
        find(indexIn, "_ZNK9KDRRegExp7indexInERK9KDRStringiNS_12KDRCaretModeE");
        find(makeImage, "_ZN8KDRImageC1Ev");
        find(destroyImage, "_ZN8KDRImageD1Ev");
        find(createImage, "_ZN8KDRImage11GenImageExtEPviiiiNS_8DataTypeE");
        find(makeVariantOfString, "_ZN10KDRVariantC1ERK9KDRString");
        find(makeVariantOfImage, "_ZN10KDRVariantC1ERK8KDRImage");
        find(copyVariant, "_ZN10KDRVariantC1ERKS_");
        find(assignVariant, "_ZN10KDRVariantaSERKS_");
        find(destroyVariant, "_ZN10KDRVariantD1Ev");
        find(fromInt, "_ZN10KDRVariant7fromIntEi");
        find(toInt, "_ZNK10KDRVariant5toIntEPi");
        find(variantType, "_ZNK10KDRVariant11variantTypeEv");
    }

    Library(Library const&) = delete;
    Library& operator=(Library const&) = delete;

    /// Leaves the library open.
    ~Library() = default;

    void close()
    {
        if (::dlclose(m_handle) != 0)
            throw std::runtime_error(::dlerror());
    }

    static bool isOpen(char const* path)
    {
        void* const handle = ::dlopen(path, RTLD_NOW | RTLD_NOLOAD);
        if (handle)
            ::dlclose(handle);
        return handle != nullptr;
    }

    void (*makeString)(Handle*, char const*);
    void (*destroyString)(Handle*);
    void (*makeExpression)(Handle*, Handle const*, int, int);
    void (*destroyExpression)(Handle*);
    int (*indexIn)(Handle const*, Handle const*, int, int);
    void (*makeImage)(Handle*);
    void (*destroyImage)(Handle*);
    int (*createImage)(Handle*, void*, int, int, int, int, int);
    void (*makeVariantOfString)(Handle*, Handle const*);
    void (*makeVariantOfImage)(Handle*, Handle const*);
    void (*copyVariant)(Handle*, Handle const*);
    void* (*assignVariant)(Handle*, Handle const*);
    void (*destroyVariant)(Handle*);
    void (*fromInt)(Handle*, int);
    bool (*toInt)(Handle const*, int*);
    int (*variantType)(Handle const*);

private:
    template <class Function>
    void find(Function& function, char const* symbol)
    {
        function = reinterpret_cast<Function>(::dlsym(m_handle, symbol));
        if (!function)
            throw std::runtime_error(std::string("there is no ") + symbol);
    }

    void* m_handle;
};

#endif
