#include <kdrdata/text/kdrstringarray.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/internal/listarray_p.h>
#include <kdrdata/text/kdrregexp.h>

#include <QtCore/QChar>
#include <QtCore/QRegExp>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace {

// The string list shares the elements; only it has this search, and it leaves the match state in
// the expression.
int indexOfMatch(QList<QString> const& list, QRegExp& rx, int from)
{
    return QStringList(list).indexOf(rx, from);
}

} // namespace

KDRStringArray::KDRStringArray() : d(new QList<QString>) {}
KDRStringArray::KDRStringArray(KDRStringArray const& other) : d(KDRListArray::copyOf(other.d)) {}

KDRStringArray::~KDRStringArray()
{
    delete d;
    d = nullptr;
}

KDRStringArray& KDRStringArray::operator=(KDRStringArray const& other)
{
    KDRListArray::assign(d, other.d);
    return *this;
}

int KDRStringArray::length() const { return d->size(); }

void KDRStringArray::push_back(KDRString const& value) { d->append(KDRInternal::wrapped(value)); }
void KDRStringArray::push_back(KDRStringArray const& other) { *d += *other.d; }

bool KDRStringArray::insert(int index, KDRString const& value)
{
    if (index != d->size())
        return KDRListArray::insert(*d, index, KDRInternal::wrapped(value));
    push_back(value);
    return true;
}

bool KDRStringArray::removeAt(int index) { return KDRListArray::removeAt(*d, index); }

bool KDRStringArray::replace(int index, KDRString const& value)
{
    return KDRListArray::replace(*d, index, KDRInternal::wrapped(value));
}

bool KDRStringArray::select(int index, KDRString* out) const
{
    return KDRListArray::contains(*d, index) &&
           KDRListArray::select(*d, index, &KDRInternal::wrapped(*out));
}

bool KDRStringArray::swap(int i, int j) { return KDRListArray::swap(*d, i, j); }
void KDRStringArray::clear() { d->clear(); }

KDRString KDRStringArray::operator[](int index) const
{
    return KDRInternal::taking<KDRString>(KDRListArray::at(d, index));
}

int KDRStringArray::indexOf(KDRString const& value, int from) const
{
    return d->indexOf(KDRInternal::wrapped(value), from);
}

int KDRStringArray::indexOf(KDRRegExp const& rx, int from) const
{
    return indexOfMatch(*d, *KDRInternal::pointer(rx), from);
}

int KDRStringArray::indexOf(KDRRegExp& rx, int from) const
{
    return indexOfMatch(*d, KDRInternal::wrapped(rx), from);
}

KDRString KDRStringArray::join(KDRChar separator)
{
    QChar const character = KDRInternal::wrapped(separator);
    return KDRInternal::taking<KDRString>(character.isNull() ? d->join(QString())
                                                             : d->join(character));
}

KDRString KDRStringArray::join(KDRString const& separator)
{
    return KDRInternal::taking<KDRString>(d->join(KDRInternal::wrapped(separator)));
}
