#ifndef KDRDATA_TESTS_QTVALUES_H
#define KDRDATA_TESTS_QTVALUES_H

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/text.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

// Between the handles and the Qt values that tests compare them with.

/// A copy of the bytes.
inline QByteArray bytesOf(KDRBuffer const& buffer)
{
    return QByteArray(buffer.constData(), buffer.size());
}

/// A handle on the text, null or not.
inline KDRString handleOf(QString const& text)
{
    KDRString handle;
    KDRInternal::wrapped(handle) = text;
    return handle;
}

#endif
