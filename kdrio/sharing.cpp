#include <kdrio/sharing_p.h>

#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/inside_p.h>
#include <kdrio/kdrio.h>

namespace kdrio {

namespace {

Sharing::Shared* find(QHash<void const*, Sharing::Shared>& seen, void const* address)
{
    if (seen.isEmpty())
        return nullptr;
    auto const found = seen.find(address);
    return found != seen.end() ? &*found : nullptr;
}

void forgetSingle(QHash<void const*, Sharing::Shared>& seen)
{
    for (auto at = seen.begin(); at != seen.end();)
        at = at->times > 1 ? ++at : seen.erase(at);
}

} // namespace

void Sharing::survey(KDRVariant const& value, Path& path)
{
    visit(value, path);
    forgetSingle(m_stores);
    forgetSingle(m_pixels);
}

void Sharing::visit(KDRVariant const& value, Path& path)
{
    // Nobody else has a store of one holder, unless that is in a list that several arrays share.
    KDRVariantPrivate& store = inside::store(value);
    bool const mayBeShared = store.refCount() > 1;
    if (mayBeShared) {
        Shared& shared = m_stores[&store];
        if (shared.isOpen)
            throw Failure{QStringLiteral("the value holds itself"), path.text(), -1};
        if (++shared.times > 1)
            return;
        shared.isOpen = true;
    }
    surveyPayload(value, path);
    if (mayBeShared)
        m_stores[&store].isOpen = false;
}

void Sharing::visitList(QList<KDRVariant> const& elements, Path& path)
{
    // Arrays that share a list have the same handles in it. Whoever else shares it does not matter
    // until it comes a second time; what is in it was surveyed then.
    if (!elements.isDetached() && !elements.isEmpty() && ++m_lists[&elements.first()] > 1) {
        for (KDRVariant const& element : elements)
            m_stores[&inside::store(element)].times += 2;
        return;
    }
    if (++m_nesting > Limits().nesting)
        throw Failure{
            QStringLiteral("more than %1 values inside of each other").arg(Limits().nesting),
            path.text(), -1};
    Path::Step step(path, 0);
    for (KDRVariant const& element : elements) {
        visit(element, path);
        step.next();
    }
    --m_nesting;
}

void Sharing::surveyPayload(KDRVariant const& value, Path& path)
{
    KDRVariantPrivate& store = inside::store(value);
    KDRImage* image = nullptr;
    KDRImageArray* images = nullptr;
    KDRVariantArray* array = nullptr;
    if (store.variantType() == KindImage && store.toImagePtr(image) && image) {
        surveyPixels(*image);
    } else if (store.variantType() == KindImageArray && store.toImageArrayPtr(images) && images) {
        KDRImage element;
        for (int i = 0; i < images->length(); ++i) {
            images->select(i, &element);
            surveyPixels(element);
        }
    } else if (store.variantType() == KindVariantArray && store.toVariantArrayPtr(array) && array) {
        visitList(inside::elements(static_cast<KDRVariantArray const&>(*array)), path);
    }
}

void Sharing::surveyPixels(KDRImage const& image)
{
    if (image.dataPtr())
        ++m_pixels[image.dataPtr()].times;
}

Sharing::Shared* Sharing::ofStore(KDRVariant const& value)
{
    return find(m_stores, &inside::store(value));
}

Sharing::Shared* Sharing::ofPixels(KDRImage const& image)
{
    return find(m_pixels, image.dataPtr());
}

} // namespace kdrio
