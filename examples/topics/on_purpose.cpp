// Rules that surprise, and that callers rely on. Their comments end "Kept on purpose."
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

void tell(char const* what, bool answer) { std::printf("%-48s%s\n", what, answer ? "yes" : "no"); }

} // namespace

int main()
{
    KDRNumberArray numbers;
    tell("an empty array takes an element by insert():", numbers.insert(0, KDRNumber(1)));

    KDRChar const letter('A');
    tell("'A' equals 'A':", letter == KDRChar('A')); // compares addresses
    tell("their codes do:", letter.unicode() == KDRChar('A').unicode());

    KDRNumber number(1);
    number.setMinValue(-2.0);
    number.setStep(5.0);
    tell("step() answers the step:", number.step() == 5.0);

    KDRShape shape;
    KDRPoint corner(1.0, 2.0);
    shape.fromRect1(corner, corner); // use fromRect2(), at angle 0
    tell("fromRect1() makes a rectangle:", shape.shapeType() == KDRShape::Rect1);

    KDRBuffer const bytes("ab");
    tell("behind the last byte is a space:", bytes[2] == ' ');

    KDRVariant list(numbers);
    KDRNumberArray* stored = nullptr;
    tell("toNumberArrayPtr() finds a number array:", list.toNumberArrayPtr(stored));
    tell("toNumberArray() does:", list.toNumberArray(&numbers));

    KDRVariant cloud((KDRPointCloud()));
    KDRVariant copy = cloud.clone();
    KDRPointCloud out;
    tell("the clone of a point cloud keeps its kind:", copy.variantType() == KindPointCloud);
    tell("and its payload:", copy.toPointCloud(&out));

    KDRRegion region;
    KDRImage mask(nullptr, 4, 3, 1, 0, KDRImage::DataTypeUInt8);
    tell("a region can be drawn into an image:", region.toBinImage(&mask));
    return 0;
}
