#ifndef KDRIO_SHARING_P_H
#define KDRIO_SHARING_P_H

#include <kdrio/failure_p.h>

#include <QtCore/qhash.h>
#include <QtCore/qlist.h>

class KDRImage;
class KDRVariant;

namespace kdrio {

/// What of a value is there more than once: stores that several handles share and blocks of pixels
/// that several images share. Found before anything is written, so that what nothing else in the
/// value shares is written plainly, whoever else holds it.
class Sharing
{
public:
    struct Shared
    {
        int times = 0;
        int index = -1; ///< the place among the shared values of the file; -1 until it is written
        bool isOpen = false;
    };

    /// Looks through @p value. Throws Failure where it holds itself or is nested too deep.
    void survey(KDRVariant const& value, Path& path);

    /// What is known of the store of @p value; null where nothing else in the file shares it.
    Shared* ofStore(KDRVariant const& value);
    /// What is known of the pixels of @p image; null where nothing else in the file shares them.
    Shared* ofPixels(KDRImage const& image);

    /// The next place among the shared values of the file.
    int nextIndex() { return m_count++; }

private:
    void visit(KDRVariant const& value, Path& path);
    void visitList(QList<KDRVariant> const& elements, Path& path);
    void surveyPixels(KDRImage const& image);
    void surveyPayload(KDRVariant const& value, Path& path);

    QHash<void const*, Shared> m_stores;
    QHash<void const*, Shared> m_pixels;
    QHash<void const*, int> m_lists;
    int m_count = 0;
    int m_nesting = 0;
};

} // namespace kdrio

#endif
