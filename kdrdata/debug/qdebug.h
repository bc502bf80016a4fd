#ifndef KDRDATA_QDEBUG_H
#define KDRDATA_QDEBUG_H

/// @file
/// Lets qDebug() and its kin take the values of the library's classes.
///
/// @code
/// #include <kdrdata/debug/qdebug.h>
/// qDebug() << "threshold" << threshold; // threshold 128 (int, range 0..255)
/// @endcode

#include <kdrdata/debug/kdrdebugtext.h>

#include <QtCore/qdebug.h>
#include <QtCore/qstring.h>

/// @cond
namespace KDRDebug {

/// Answers a QDebug for every class with a text form, and nothing for any other: so that values
/// that merely convert to such a class are not taken for one.
template <class Class>
struct Stream
{
};

#define KDR_STREAM(Class)                                                                          \
    template <>                                                                                    \
    struct Stream<Class>                                                                           \
    {                                                                                              \
        typedef QDebug Type;                                                                       \
    };
KDR_PRINTED_CLASSES(KDR_STREAM)
#undef KDR_STREAM

} // namespace KDRDebug
/// @endcond

/// Writes the text form of @p value, without quotes around it.
template <class Class>
typename KDRDebug::Stream<Class>::Type operator<<(QDebug debug, Class const& value)
{
    QDebugStateSaver const saver(debug);
    debug.noquote() << QString::fromStdString(KDRDebug::text(value));
    return debug;
}

#endif
