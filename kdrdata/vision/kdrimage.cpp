#include <kdrdata/vision/kdrimage.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>

#include <veldata/velimage.h>

namespace {

constexpr int defaultEffort = 6;

} // namespace

KDRImage::KDRImage() : d(new VelImage) {}

KDRImage::KDRImage(KDRImage const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRImage::KDRImage(void* data, int width, int height, int channels, int step,
                   KDRImage::DataType type)
    : KDRImage()
{
    GenImageExt(data, width, height, channels, step, type);
}

KDRImage::~KDRImage()
{
    delete d;
    d = nullptr;
}

KDRImage& KDRImage::operator=(KDRImage const& other)
{
    if (d && other.d)
        *d = *other.d;
    return *this;
}

int KDRImage::GenImageExt(void* data, int width, int height, int channels, int step,
                          KDRImage::DataType type)
{
    return d->CreateImage(static_cast<unsigned char*>(data), width, height, channels, step,
                          static_cast<VelImageType>(type));
}

KDRImage KDRImage::clone()
{
    KDRImage copy;
    *copy.d = d->DeepCopy();
    return copy;
}

int KDRImage::width() const { return d->Width(); }
int KDRImage::height() const { return d->Height(); }
int KDRImage::step() const { return d->Step(); }
int KDRImage::channel() const { return d->Channels(); }
int KDRImage::depth() const { return d->BitDepth(); }

KDRImage::DataType KDRImage::dataType() const
{
    if (!d)
        return DataTypeUInt8;
    // Compared unsigned, so that a negative code counts as one beyond the last.
    auto const code = static_cast<unsigned int>(d->BitDepth());
    return code >= DataTypeFloat64 ? DataTypeFloat64 : static_cast<DataType>(code);
}

unsigned char* KDRImage::dataPtr() const { return d->ImageData(); }

int KDRImage::read(KDRString const& path)
{
    int const result = d->ReadImage(path.toLocal8Bit().constData());
    int const depth = d->BitDepth();
    return depth == DataTypeFloat32 || depth == DataTypeFloat64 ? 0 : result;
}

int KDRImage::save(KDRString const& path) { return save(path, defaultEffort); }

int KDRImage::save(KDRString const& path, int effort)
{
    return d->SaveImage(path.toLocal8Bit().constData(), effort);
}
