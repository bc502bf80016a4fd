#include <veldata/velimagefile_p.h>

#include <algorithm>

#include <veldata/velcodec_p.h>
#include <veldata/velinput_p.h>
#include <veldata/veloutput_p.h>

VelPixels* velimagefile::read(char const* path) noexcept
{
    if (!path)
        return nullptr;
    VelInput const input(path);
    if (!input.isOpen())
        return nullptr;
    velcodec::Format const* const format = velcodec::formatOf(input);
    return format ? format->read(input) : nullptr;
}

bool velimagefile::save(VelPixels const& pixels, char const* path, int effort) noexcept
{
    // What could not be read back is not written either.
    if (!path || !velcodec::isWithinLimits(pixels.geometry))
        return false;
    velcodec::Format const* const format = velcodec::formatNamed(path);
    if (!format || !format->holds(pixels.geometry))
        return false;
    VelOutput output;
    return output.open(path) && format->write(pixels, std::clamp(effort, 0, 9), output) &&
           output.commit();
}
