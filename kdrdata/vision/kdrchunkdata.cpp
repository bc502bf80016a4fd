#include <kdrdata/vision/kdrchunkdata.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <veldata/velchunkdata.h>

KDRChunkData::KDRChunkData() : d(new VelChunkData) {}

KDRChunkData::KDRChunkData(KDRChunkData const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRChunkData::KDRChunkData(unsigned char const* data, unsigned long long length)
    : d(new VelChunkData(data, length))
{
}

KDRChunkData::~KDRChunkData()
{
    delete d;
    d = nullptr;
}

KDRChunkData& KDRChunkData::operator=(KDRChunkData const&) { return *this; }

bool KDRChunkData::operator==(KDRChunkData const&) const { return false; }
bool KDRChunkData::operator!=(KDRChunkData const&) const { return false; }

unsigned char KDRChunkData::operator[](int) const { return 0; }

unsigned char& KDRChunkData::operator[](int)
{
    // Of the thread's own, so that no caller's writing disturbs another's.
    thread_local unsigned char byte;
    byte = 0;
    return byte;
}

unsigned long long KDRChunkData::getLength() const { return 0; }
unsigned char const* KDRChunkData::getData() const { return nullptr; }
void KDRChunkData::setData(unsigned long long, unsigned char const*) {}
