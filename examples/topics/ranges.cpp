// The range of a number is what a user interface offers. It is carried by assignment, not by
// copies.
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

void tell(char const* what, KDRVariant& value)
{
    std::printf("%-26s%s\n", what, value.attribute().toUtf8().constData());
}

} // namespace

int main()
{
    KDRNumber level(128);
    level.setMinValue(0.0);
    level.setMaxValue(255.0);
    level.setStep(5.0);

    KDRVariant copied(level); // a copy, without the range
    tell("made from a number:", copied);

    KDRVariant ranged(level);
    KDRNumber* stored = nullptr;
    if (ranged.toNumberPtr(stored)) // the stored number itself
        *stored = level;            // assigned, with the range
    tell("assigned to the stored:", ranged);

    KDRNumber read;
    ranged.toNumber(&read); // reading assigns
    std::printf("read back: %d in %g..%g\n", read.toInt(), read.minValue(), read.maxValue());
    std::printf("step() answers the minimum: %g\n", read.step());

    read.fromInt(900); // nothing is tested against the range
    std::printf("beyond its range: %d\n", read.toInt());

    KDRVariant next(ranged); // shares the store, and with it the range
    tell("a variant's copy:", next);
    next.fromInt(7); // a fresh store, without a range
    tell("written to:", next);
    tell("the first one still:", ranged);

    KDRNumberArray levels;
    levels.push_back(level); // a copy
    levels.select(0, &read);
    std::printf("pushed into an array: up to %g\n", read.maxValue());
    levels.replace(0, level); // an assignment
    levels.select(0, &read);
    std::printf("replaced in it: up to %g\n", read.maxValue());

    KDRPoint corner(3.0, 4.0); // a point has a range an axis and keeps both in copies
    corner.setXMaxVal(639.0);
    KDRVariant place(corner);
    tell("a point:", place);
    return 0;
}
