// Who shares what after a copy, and who notices a change.
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

void tell(char const* what, bool shared) { std::printf("%-46s%s\n", what, shared ? "yes" : "no"); }

// The variants hand out the address of their payload: one address, one payload.
bool isShared(KDRVariant& a, KDRVariant& b)
{
    KDRImage* first = nullptr;
    KDRImage* second = nullptr;
    return a.toImagePtr(first) && b.toImagePtr(second) && first == second;
}

} // namespace

int main()
{
    KDRImage image(nullptr, 640, 480, 1, 0, KDRImage::DataTypeUInt8);
    KDRImage shared(image);
    KDRImage own = image.clone();
    tell("a copied image shares its pixels:", shared.dataPtr() == image.dataPtr());
    tell("a cloned image shares its pixels:", own.dataPtr() == image.dataPtr());
    shared.dataPtr()[0] = 255;
    tell("writing to shared pixels shows in both:", image.dataPtr()[0] == 255);

    KDRVariant first(image);
    KDRVariant second(first);
    KDRVariant third = first.clone();
    tell("a copied variant shares its payload:", isShared(first, second));
    tell("a cloned variant shares its payload:", isShared(first, third));
    KDRImage* cloned = nullptr;
    third.toImagePtr(cloned);
    tell("and yet the pixels of its image:", cloned->dataPtr() == image.dataPtr());
    second.fromImage(own);
    tell("after a write the variants share:", isShared(first, second));

    KDRBuffer bytes("abc");
    KDRBuffer copy(bytes);
    tell("copied bytes share their storage:", copy.constData() == bytes.constData());
    copy.data()[0] = 'A';
    tell("after a write through data() they do:", copy.constData() == bytes.constData());

    KDRMatrix matrix(2, 2, KDRMatrix::MatrixTypeFloat64);
    KDRMatrix deep(matrix);
    tell("a copied matrix shares its elements:", deep.dataPtr() == matrix.dataPtr());
    return 0;
}
