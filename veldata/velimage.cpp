#include <veldata/velimage.h>

#include <utility>

#include <veldata/velimagefile_p.h>
#include <veldata/velpixels_p.h>

VelImage::VelImage() noexcept : d(nullptr) {}

VelImage::VelImage(unsigned char* data, int width, int height, int channels, int step,
                   VelImageType type) noexcept
    : d(VelPixels::create(data, {width, height, channels, type}, step))
{
}

VelImage::VelImage(VelImage const& other) noexcept : d(VelPixels::acquire(other.d)) {}

VelImage::VelImage(VelImage&& other) noexcept : d(std::exchange(other.d, nullptr)) {}

VelImage::~VelImage() { VelPixels::release(d); }

VelImage& VelImage::operator=(VelImage const& other) noexcept
{
    VelPixels* const shared = VelPixels::acquire(other.d);
    VelPixels::release(std::exchange(d, shared));
    return *this;
}

VelImage& VelImage::operator=(VelImage&& other) noexcept
{
    VelPixels* const taken = std::exchange(other.d, nullptr);
    VelPixels::release(std::exchange(d, taken));
    return *this;
}

int VelImage::CreateImage(unsigned char* data, int width, int height, int channels, int step,
                          VelImageType type) noexcept
{
    return replaceBy(VelPixels::create(data, {width, height, channels, type}, step));
}

int VelImage::CreateImageOver(unsigned char* data, int width, int height, int channels,
                              VelImageType type, void (*release)(void*), void* owner) noexcept
{
    return replaceBy(VelPixels::over(data, {width, height, channels, type}, release, owner));
}

VelImage VelImage::DeepCopy() const noexcept
{
    VelImage copy;
    if (d)
        copy.d = VelPixels::create(d->data, d->geometry, 0);
    return copy;
}

int VelImage::Width() const noexcept { return d ? d->geometry.width : 0; }

int VelImage::Height() const noexcept { return d ? d->geometry.height : 0; }

int VelImage::Step() const noexcept { return d ? d->geometry.rowBytes() : 0; }

int VelImage::Channels() const noexcept { return d ? d->geometry.channels : 0; }

int VelImage::BitDepth() const noexcept { return d ? d->geometry.type : 0; }

unsigned char* VelImage::ImageData() const noexcept { return d ? d->data : nullptr; }

int VelImage::ReadImage(char const* path) noexcept { return replaceBy(velimagefile::read(path)); }

int VelImage::SaveImage(char const* path, int effort) const noexcept
{
    return d && velimagefile::save(*d, path, effort) ? 1 : 0;
}

int VelImage::replaceBy(VelPixels* fresh) noexcept
{
    if (!fresh)
        return 0;
    VelPixels::release(std::exchange(d, fresh));
    return 1;
}
