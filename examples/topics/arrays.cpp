// Positions run from 0 to length() - 1. What lies outside is refused, the end included.
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

void tell(char const* what, bool done) { std::printf("%-34s%s\n", what, done ? "yes" : "no"); }

} // namespace

int main()
{
    KDRNumberArray sizes;
    tell("insert(0) into an empty array:", sizes.insert(0, KDRNumber(1)));
    sizes.push_back(KDRNumber(10)); // this is how an array grows
    sizes.push_back(KDRNumber(30));
    tell("insert(1), before the last:", sizes.insert(1, KDRNumber(20)));
    tell("insert(3), the end:", sizes.insert(3, KDRNumber(40)));
    tell("insert(-1):", sizes.insert(-1, KDRNumber(0)));
    tell("replace(2):", sizes.replace(2, KDRNumber(33)));
    tell("swap(0, 2):", sizes.swap(0, 2));
    tell("removeAt(3):", sizes.removeAt(3));
    for (int i = 0; i < sizes.length(); ++i)
        std::printf("sizes[%d] is %d\n", i, sizes[i].toInt()); // unchecked: stay inside

    // select() is the reader that checks, and that leaves its output alone.
    KDRNumber size(-1);
    tell("select(5):", sizes.select(5, &size));
    std::printf("still %d\n", size.toInt());

    // An element is a copy: to change one, put it back.
    size = sizes[0];
    size.fromInt(99);
    std::printf("before %d, ", sizes[0].toInt());
    sizes.replace(0, size);
    std::printf("after %d\n", sizes[0].toInt());

    // Texts are the exception: their array takes the end position, too.
    KDRStringArray names;
    tell("insert(0) of a text:", names.insert(0, KDRString("left")));
    tell("insert(1), the end:", names.insert(1, KDRString("right")));
    names.push_back(names); // an array may be appended to itself
    std::printf("%s\n", names.join(KDRString(", ")).toUtf8().constData());

    KDRNumberArray copy(sizes); // shares the list until one of the two is changed
    copy.clear();
    std::printf("%d and %d elements\n", sizes.length(), copy.length());
    return 0;
}
