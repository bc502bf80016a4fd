#ifndef KDRDATA_TESTS_LOCALCODEC_H
#define KDRDATA_TESTS_LOCALCODEC_H

#include <QtCore/QTextCodec>

/// While it lives a test may choose the process's local codec; then the environment's comes back.
class LocalCodecGuard
{
public:
    LocalCodecGuard() = default;
    ~LocalCodecGuard() { QTextCodec::setCodecForLocale(nullptr); }
    LocalCodecGuard(LocalCodecGuard const&) = delete;
    LocalCodecGuard& operator=(LocalCodecGuard const&) = delete;
};

#endif
