// From QVariant and back: by the kind, with nothing converted on the way.
#include <QtCore/qbytearray.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

KDRVariant ours(QVariant const& theirs)
{
    QString const text = theirs.toString(); // QVariant converts; a KDRVariant does not
    QByteArray const bytes = theirs.toByteArray();
    KDRVariantArray list;
    switch (theirs.userType()) {
    case QMetaType::Bool:
        return KDRVariant(theirs.toBool());
    case QMetaType::Int:
        return KDRVariant(theirs.toInt());
    case QMetaType::Double:
        return KDRVariant(theirs.toDouble());
    case QMetaType::QString:
        return KDRVariant(KDRString(text.utf16(), text.size()));
    case QMetaType::QByteArray:
        return KDRVariant(KDRBuffer(bytes.constData(), bytes.size()));
    case QMetaType::QVariantList:
        for (QVariant const& element : theirs.toList())
            list.push_back(ours(element));
        return KDRVariant(list);
    default:
        return KDRVariant(); // no kind for it
    }
}

} // namespace

int main()
{
    QVariantList const parameters = {128, 0.5, true, QStringLiteral("dark"), QByteArray("\0\1", 2)};
    KDRVariantArray list;
    ours(parameters).toVariantArray(&list);
    for (int i = 0; i < list.length(); ++i)
        std::printf("%s -> kind %d\n", parameters[i].typeName(), list[i].variantType());

    KDRString text;
    int number = 0;
    std::printf("128 as a text: QVariant '%s', ", qPrintable(parameters[0].toString()));
    std::printf("KDRVariant %s\n", list[0].toString(&text) ? "yes" : "no");
    list[3].toString(&text);
    QString const back = QString::fromUtf16(text.toUtf16(), text.size());
    std::printf("back: '%s', %s\n", qPrintable(back), list[0].toInt(&number) ? "128" : "no");
    return 0;
}
