#include <kdrdata/text/kdrbuffer.h>

#include <QtCore/QByteArray>

KDRBuffer::KDRBuffer() : d(new QByteArray) {}
KDRBuffer::KDRBuffer(char const* data, int size) : d(new QByteArray(data, size)) {}
KDRBuffer::KDRBuffer(int size, char ch) : d(new QByteArray(size, ch)) {}
KDRBuffer::KDRBuffer(KDRBuffer const& other) : d(new QByteArray(*other.d)) {}
KDRBuffer::KDRBuffer(KDRBuffer&& other) : d(new QByteArray(*other.d)) {}

KDRBuffer::~KDRBuffer()
{
    delete d;
    d = nullptr;
}

KDRBuffer& KDRBuffer::operator=(KDRBuffer const& other)
{
    *d = *other.d;
    return *this;
}

KDRBuffer& KDRBuffer::operator=(KDRBuffer&& other)
{
    *d = *other.d;
    return *this;
}

KDRBuffer& KDRBuffer::operator=(char const* str)
{
    *d = QByteArray(str, -1);
    return *this;
}

int KDRBuffer::size() const { return d->size(); }
int KDRBuffer::length() const { return d->size(); }
bool KDRBuffer::isEmpty() const { return d->isEmpty(); }
bool KDRBuffer::isNull() const { return d->isNull(); }
char KDRBuffer::at(int i) const { return d->at(i); }

char const* KDRBuffer::constData() const { return d->constData(); }
char* KDRBuffer::data() { return d->data(); }
char* KDRBuffer::data() const { return d->data(); }
