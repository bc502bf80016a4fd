// usage: kdrio_maker DIRECTORY [committed]
// Writes files for witnesses: each value of the tests' collection as a file, and beside it the
// facts of the value. With `committed`, the few files that are kept for each version of the format.

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include <cstdio>
#include <cstring>
#include <fstream>

#include "facts.h"
#include "values.h"

namespace {

bool make(std::string const& stem, KDRVariant const& value, kdrio::Pixels pixels)
{
    kdrio::SaveOptions options;
    options.pixels = pixels;
    kdrio::Error error;
    if (!kdrio::save(value, KDRString((stem + ".kdr").c_str()), options, &error)) {
        std::fprintf(stderr, "%s\n", error.line().toUtf8().constData());
        return false;
    }
    std::ofstream facts(stem + ".facts");
    facts << factsOf(value);
    return facts.good();
}

// All small values of the collection in one list.
KDRVariant smallValues()
{
    constexpr int small = 700;
    KDRVariantArray values;
    KDRBuffer bytes;
    for (NamedValue const& named : everyNamedValue()) {
        if (kdrio::toBytes(named.value, &bytes) && bytes.size() <= small)
            values.push_back(named.value);
    }
    return KDRVariant(values);
}

// Images of every form that fits into PNG, large enough to be smaller there.
KDRVariant pictures()
{
    KDRImageArray images;
    for (KDRImage::DataType const type : {KDRImage::DataTypeUInt8, KDRImage::DataTypeUInt16}) {
        for (int channels = 1; channels <= 4; ++channels) {
            KDRImage image(nullptr, 24, 16, channels, 0, type);
            for (int i = 0; i < image.step() * image.height(); ++i)
                image.dataPtr()[i] = static_cast<unsigned char>(i % image.step() / 4 + channels);
            images.push_back(image);
        }
    }
    return KDRVariant(images);
}

bool makeCommitted(std::string const& directory)
{
    KDRVariant const small = smallValues();
    return make(directory + "/everything", small, kdrio::Pixels::Raw) &&
           make(directory + "/pictures", pictures(), kdrio::Pixels::Smaller) &&
           make(directory + "/number", KDRVariant(7), kdrio::Pixels::Raw) &&
           make(directory + "/nothing", KDRVariant(), kdrio::Pixels::Raw);
}

} // namespace

int main(int argc, char* argv[])
{
    std::string const directory = argv[1];
    if (argc > 2 && std::strcmp(argv[2], "committed") == 0)
        return makeCommitted(directory) ? 0 : 1;
    int count = 0;
    for (NamedValue const& named : everyNamedValue()) {
        for (auto const pixels : {kdrio::Pixels::Raw, kdrio::Pixels::Smaller}) {
            if (!make(directory + '/' + std::to_string(count++), named.value, pixels))
                return 1;
        }
    }
    bool const isMade = make(directory + "/all", everyValueInOne(), kdrio::Pixels::Raw);
    std::printf("%d files\n", count + 1);
    return isMade ? 0 : 1;
}
