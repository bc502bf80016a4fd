// What is no value of the format, or more than a reader accepts, is refused: with a reason, a
// place, and nothing changed.

#include <QtCore/qbuffer.h>

#include <random>

#include <sys/resource.h>
#include <unistd.h>

#include "equal.h"
#include "support.h"
#include "values.h"

namespace {

// The address sanitizer takes more of the address space than a limit could leave it.
#if defined(KDR_UNDER_ADDRESS_SANITIZER)
constexpr bool canLimitMemory = false;
#else
constexpr bool canLimitMemory = true;
#endif

std::string text(char const* words)
{
    std::string const length(1, static_cast<char>(0x60 + std::string(words).size()));
    return length + words;
}

std::string record(char const* kind, std::string const& contents_)
{
    return "\xa1" + text(kind) + contents_;
}

TEST(Hostile, EveryPrefixIsRefused)
{
    for (NamedValue const& named : everyNamedValue()) {
        std::string const whole = contents(bytesOf(named.value, kdrio::Pixels::Smaller));
        std::size_t const step = 1 + whole.size() / 150;
        for (std::size_t length = 0; length < whole.size(); length += step)
            EXPECT_NE(refusal(whole.substr(0, length)), "") << named.name << ' ' << length;
        EXPECT_NE(refusal(whole.substr(0, whole.size() - 1)), "") << named.name;
    }
}

TEST(Hostile, EveryPrefixOnADeviceIsRefused)
{
    for (NamedValue const& named : everyNamedValue()) {
        std::string const whole = contents(bytesOf(named.value));
        std::size_t const step = 1 + whole.size() / 100;
        for (std::size_t length = 0; length < whole.size(); length += step) {
            QByteArray bytes(whole.data(), static_cast<int>(length));
            QBuffer device(&bytes);
            device.open(QIODevice::ReadOnly);
            KDRVariant value;
            EXPECT_FALSE(kdrio::load(&device, &value)) << named.name << ' ' << length;
        }
    }
}

// A value that a damaged file still gives can be used like any other: it is written again.
TEST(Hostile, EveryFlippedByteIsRefusedOrAValue)
{
    std::mt19937 random(20260214);
    int values = 0;
    for (NamedValue const& named : everyNamedValue()) {
        std::string const whole = contents(bytesOf(named.value, kdrio::Pixels::Smaller));
        std::size_t const step = 1 + whole.size() / 80;
        for (std::size_t at = 0; at < whole.size(); at += step) {
            for (int const bits : {0x01, 0x80, 0xFF, static_cast<int>(random() % 255) + 1}) {
                std::string flipped = whole;
                flipped[at] = static_cast<char>(flipped[at] ^ bits);
                KDRVariant value("untouched");
                kdrio::Error error;
                if (kdrio::fromBytes(bufferOf(flipped), &value, &error)) {
                    ++values;
                    KDRVariant const again = valueOf(bytesOf(value));
                    EXPECT_EQ(Difference::between(value, again), "") << named.name << ' ' << at;
                } else {
                    EXPECT_FALSE(error.what.isEmpty());
                    EXPECT_GE(error.offset, 0);
                    EXPECT_LE(error.offset, static_cast<long long>(flipped.size()))
                        << named.name << ": " << words(error);
                    KDRString untouched;
                    EXPECT_TRUE(value.toString(&untouched) && untouched == KDRString("untouched"));
                }
            }
        }
    }
    EXPECT_GT(values, 1000);
}

TEST(Hostile, OtherFilesAreRefused)
{
    EXPECT_EQ(refusal(""), "byte 0: the input ends too early");
    EXPECT_NE(refusal("not this format at all"), "");
    EXPECT_NE(refusal(std::string(1000, '\0')), "");
    EXPECT_EQ(refusal("\xd9\xd9\xf7\x83\x67KDRDatb\x01\x07"),
              "byte 12: a value of this format is expected");
    EXPECT_NE(refusal("\x83\x67KDRData\x01\x07").find("is expected"), std::string::npos);
    EXPECT_NE(refusal("\xd9\xd9\xf7\x82\x67KDRData\x01"), "");
    EXPECT_EQ(refusal("\xd9\xd9\xf7\x83\x67KDRData\x02\x07"),
              "byte 13: version 2 of the format is not known");
}

TEST(Hostile, WhatFollowsTheValueIsRefused)
{
    EXPECT_EQ(refusal(fileOf("\x07") + "\x07"), "byte 14: more bytes behind the value");
    EXPECT_EQ(refusal(fileOf("\x07") + std::string(1, '\0')),
              "byte 14: more bytes behind the value");
}

TEST(Hostile, UnknownKindsAreRefusedByName)
{
    EXPECT_NE(refusal(fileOf(record("helix", "\xf6"))).find("helix: no such kind: \"helix\""),
              std::string::npos);
    std::string const shape = refusal(fileOf(record("shape", record("helix", "\xf6"))));
    EXPECT_NE(shape.find("shape.helix: no such shape: \"helix\""), std::string::npos);
    EXPECT_NE(refusal(fileOf(record("a\"b\n\x01", "\xf6"))).find("\"a\"b??\""), std::string::npos);
    EXPECT_NE(
        refusal(fileOf("\xa1\x78\x28" + std::string(40, 'x') + "\xf6")).find("longer than any"),
        std::string::npos);
}

TEST(Hostile, FieldsAreThereOnceAndNoOthers)
{
    std::string const x = text("x") + "\xf9\x3c" + std::string(1, '\0');
    std::string const y = text("y") + "\xf9\x3c" + std::string(1, '\0');
    KDRVariant value;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(fileOf(record("point", "\xa2" + y + x))), &value));
    EXPECT_NE(refusal(fileOf(record("point", "\xa2" + x + x))).find("a second field \"x\""),
              std::string::npos);
    EXPECT_NE(refusal(fileOf(record("point", "\xa3" + x + y + x))).find("a second field \"x\""),
              std::string::npos);
    EXPECT_NE(refusal(fileOf(record("point", "\xa1" + x))).find("point: no field \"y\""),
              std::string::npos);
    EXPECT_NE(refusal(fileOf(record("point", "\xa3" + x + y + text("z") + "\x07")))
                  .find("no such field: \"z\""),
              std::string::npos);
    EXPECT_NE(refusal(fileOf("\xa2" + text("bool") + "\xf5" + text("bool") + "\xf5")), "");
    EXPECT_NE(refusal(fileOf("\xa0")), "");
}

TEST(Hostile, ThePlaceOfAnErrorIsTold)
{
    std::string const circle =
        record("shape", record("circle", "\xa1" + text("radius") + text("wide")));
    EXPECT_NE(refusal(fileOf("\x82\x07\x81" + circle))
                  .find("[1][0].shape.circle.radius: a floating-point number is expected"),
              std::string::npos);
}

TEST(Hostile, NestingIsLimited)
{
    auto const nested = [](int depth) {
        return fileOf(std::string(static_cast<std::size_t>(depth), '\x81') + "\x07");
    };
    KDRVariant value;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(nested(256)), &value));
    EXPECT_NE(refusal(nested(257)).find("more than 256 values inside of each other"),
              std::string::npos);
    EXPECT_NE(refusal(nested(2000000)).find("inside of each other"), std::string::npos);
    kdrio::Limits limits;
    limits.nesting = 3;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(nested(3)), &value, nullptr, limits));
    EXPECT_NE(refusal(nested(4), limits).find("more than 3 values"), std::string::npos);
    limits.nesting = 1 << 30;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(nested(512)), &value, nullptr, limits));
    EXPECT_NE(refusal(nested(513), limits).find("more than 512 values"), std::string::npos);
    // The long form, and shared values, are levels like any other.
    std::string deep = "\x07";
    for (int i = 0; i < 300; ++i)
        deep = "\xd8\x1c" + record("variant array", "\x81" + deep);
    EXPECT_NE(refusal(fileOf(deep)).find("inside of each other"), std::string::npos);
    std::string const tags(100000, '\xc1');
    EXPECT_NE(refusal(fileOf(tags + "\x07")), "");
    std::string shared;
    for (int i = 0; i < 100000; ++i)
        shared += "\xd8\x1c";
    EXPECT_NE(refusal(fileOf(shared + "\x07")), "");
}

TEST(Hostile, AValueThatIsNestedTooDeepIsNotWritten)
{
    KDRVariant value(7);
    for (int i = 0; i < 256; ++i) {
        KDRVariantArray array;
        array.push_back(value);
        value = KDRVariant(array);
    }
    KDRVariant const loaded = valueOf(bytesOf(value));
    EXPECT_EQ(loaded.variantType(), KindVariantArray);
    KDRVariantArray array;
    array.push_back(value);
    KDRBuffer bytes;
    kdrio::Error error;
    EXPECT_FALSE(kdrio::toBytes(KDRVariant(array), &bytes, &error));
    EXPECT_NE(words(error).find("more than 256 values inside of each other"), std::string::npos);
}

TEST(Hostile, BytesElementsAndPixelsAreLimited)
{
    kdrio::Limits limits;
    limits.bytes = 14;
    KDRVariant value;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(fileOf("\x07")), &value, nullptr, limits));
    EXPECT_EQ(refusal(fileOf("\x18\x20"), limits), "byte 0: more than 14 bytes");

    limits = kdrio::Limits();
    limits.elements = 10;
    KDRNumberArray numbers;
    for (int i = 0; i < 11; ++i)
        numbers.push_back(KDRNumber(i));
    std::string const tooMany = contents(bytesOf(KDRVariant(numbers)));
    EXPECT_NE(refusal(tooMany, limits).find("more than 10 elements"), std::string::npos);
    limits.elements = 11;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(tooMany), &value, nullptr, limits));
    // All together, of all sorts.
    limits.elements = 10;
    EXPECT_NE(refusal(fileOf("\x82\x84\x01\x02\x03\x04\x85\x01\x02\x03\x04\x05"), limits), "");
    KDRMatrix const matrix(4, 3, KDRMatrix::MatrixTypeUInt8);
    EXPECT_NE(refusal(contents(bytesOf(KDRVariant(matrix))), limits), "");
    KDRBoolArray flags;
    for (int i = 0; i < 11; ++i)
        flags.push_back(true);
    EXPECT_NE(refusal(contents(bytesOf(KDRVariant(flags))), limits), "");

    limits = kdrio::Limits();
    limits.pixels = 99;
    for (kdrio::Pixels const pixels : {kdrio::Pixels::Raw, kdrio::Pixels::Smaller}) {
        KDRImage const image(nullptr, 50, 1, 4, 0, KDRImage::DataTypeUInt16);
        std::string const one = contents(bytesOf(KDRVariant(image), pixels));
        EXPECT_TRUE(kdrio::fromBytes(bufferOf(one), &value, nullptr, limits));
        KDRImageArray two;
        two.push_back(image);
        two.push_back(KDRImage(nullptr, 1, 50, 1, 0, KDRImage::DataTypeUInt8));
        EXPECT_NE(refusal(contents(bytesOf(KDRVariant(two), pixels)), limits), "");
    }
}

TEST(Hostile, ValuesThatHoldThemselvesAreRefused)
{
    EXPECT_NE(
        refusal(fileOf("\xd8\x1c" + record("variant array", "\x81\xd8\x1d" + std::string(1, '\0'))))
            .find("the value holds itself"),
        std::string::npos);
    EXPECT_NE(refusal(fileOf("\xd8\x1d" + std::string(1, '\0'))).find("does not come before"),
              std::string::npos);
    EXPECT_NE(refusal(fileOf("\x82\xd8\x1d" + std::string(1, '\0') + "\xd8\x1c" +
                             record("number", "\x07")))
                  .find("does not come before"),
              std::string::npos);
    EXPECT_NE(refusal(fileOf("\xd8\x1d\x20")).find("does not come before"), std::string::npos);
}

TEST(Hostile, AReferenceIsToWhatItStandsFor)
{
    std::string const pixels = "\xd8\x28\x82\x83\x01\x01\x01\xd8\x40\x41\x05";
    std::string const reference = "\xd8\x1d" + std::string(1, '\0');
    std::string const image = record("image", "\xd8\x1c" + pixels);
    KDRVariant value;
    kdrio::Error error;
    EXPECT_TRUE(kdrio::fromBytes(bufferOf(fileOf("\x82" + image + record("image", reference))),
                                 &value, &error))
        << words(error);
    EXPECT_NE(refusal(fileOf("\x82" + image + reference)).find("something else than a value"),
              std::string::npos);
    EXPECT_NE(
        refusal(fileOf("\x82\xd8\x1c" + record("number", "\x07") + record("image", reference)))
            .find("something else than pixels"),
        std::string::npos);
}

// In memory a value can hold itself, through the pointer that a reader hands out.
TEST(Hostile, AValueThatHoldsItselfIsNotWritten)
{
    KDRVariant value{KDRVariantArray()};
    KDRVariantArray* stored = nullptr;
    ASSERT_TRUE(value.toVariantArrayPtr(stored));
    stored->push_back(KDRVariant(7));
    stored->push_back(value);
    KDRBuffer bytes;
    kdrio::Error error;
    EXPECT_FALSE(kdrio::toBytes(value, &bytes, &error));
    EXPECT_EQ(words(error), "[1]: the value holds itself");
    EXPECT_TRUE(kdrio::toJson(value).isNull());
    stored->clear();
}

// Lengths that are absurd, with bytes that are not there.
std::vector<std::string> absurdities()
{
    std::string const huge("\x3f\xff\xff\xff", 4);
    std::string const vast("\x7f\xff\xff\xff\xff\xff\xff\xff", 8);
    std::string const most("\xff\xff\xff\xff\xff\xff\xff\xff", 8);
    std::vector<std::string> values;
    for (char const major : {'\x40', '\x60', '\x80', '\xa0'}) {
        for (auto const& [code, length] : {std::pair{'\x1a', huge}, {'\x1b', vast}, {'\x1b', most}})
            values.push_back(std::string(1, static_cast<char>(major | code)) + length + "abc");
    }
    std::string const side = "\x1a\x7f\xff\xff\xff";
    values.push_back(record("image", "\xd8\x28\x82\x83" + side + side + "\x04\xd8\x56\x40"));
    values.push_back(record("image", "\xd8\x28\x82\x83\x19\x3f\xff\x19\x3f\xff\x01\xd8\x40\x40"));
    values.push_back(record("matrix", "\xd8\x28\x82\x82" + side + side + "\xd8\x56\x40"));
    values.push_back(record("matrix", "\xd8\x28\x82\x82\x19\xff\xff\x19\xff\xff\xd8\x40\x40"));
    values.push_back(record("contour", "\xd8\x28\x82\x82" + side + "\x02\xd8\x56\x40"));
    values.push_back(record("shape", record("region", "\xa1" + text("runs") + "\xd8\x28\x82\x82" +
                                                          side + "\x03\xd8\x4f\x40")));
    for (char const* const kind : {"bool array", "string array", "image array", "3D shape array"})
        values.push_back(record(kind, "\x9a" + huge + "\xf6\xf6"));
    values.push_back(record("number array", "\xd8\x56\x5a" + huge));
    // Within the limits, and yet not there.
    std::string const million("\x00\x80\x00\x00", 4);
    values.push_back("\x9a" + million + "\x07");
    values.push_back(record("number array", "\xd8\x56\x5a\x04" + std::string(3, '\0')));
    return values;
}

// Leaves the process what it has, and so many bytes.
void leaveMemory(long bytes)
{
    long pages = 0;
    FILE* const file = fopen("/proc/self/statm", "r");
    if (!file || fscanf(file, "%ld", &pages) != 1)
        _exit(3);
    fclose(file);
    rlimit little = {};
    little.rlim_cur = little.rlim_max = static_cast<rlim_t>(pages * sysconf(_SC_PAGESIZE) + bytes);
    if (setrlimit(RLIMIT_AS, &little) != 0)
        _exit(4);
}

[[noreturn]] void refuseInLittleMemory()
{
    leaveMemory(32L << 20);
    for (std::string const& value : absurdities()) {
        KDRVariant loaded;
        kdrio::Error error;
        if (kdrio::fromBytes(bufferOf(fileOf(value)), &loaded, &error))
            _exit(1);
        if (error.what == KDRString("out of memory"))
            _exit(2);
        // A device tells Qt's reader less than bytes in memory do.
        QByteArray bytes = QByteArray::fromStdString(fileOf(value));
        QBuffer device(&bytes);
        device.open(QIODevice::ReadOnly);
        if (kdrio::load(&device, &loaded, &error))
            _exit(1);
        if (error.what == KDRString("out of memory"))
            _exit(2);
    }
    _exit(0);
}

TEST(Hostile, AbsurdLengthsAreRefusedInLittleMemory)
{
    for (std::string const& value : absurdities())
        EXPECT_NE(refusal(fileOf(value)), "");
    if (canLimitMemory) {
        EXPECT_EXIT(refuseInLittleMemory(), testing::ExitedWithCode(0), "");
    }
}

[[noreturn]] void loadInTooLittleMemory(std::string const& bytes)
{
    KDRBuffer const buffer = bufferOf(bytes);
    leaveMemory(4L << 20);
    KDRVariant value(5);
    kdrio::Error error;
    bool const isLoaded = kdrio::fromBytes(buffer, &value, &error);
    fprintf(stderr, "%s\n", error.what.toUtf8().constData());
    _exit(isLoaded || value.variantType() != KindNumber ? 1 : 0);
}

TEST(Hostile, WhereMemoryRunsOutTheAnswerIsFalse)
{
    std::string const numbers =
        fileOf("\x9a" + std::string("\x00\x10\x00\x00", 4) + std::string(1 << 20, '\x07'));
    if (canLimitMemory) {
        EXPECT_EXIT(loadInTooLittleMemory(numbers), testing::ExitedWithCode(0), "out of memory");
    }
}

TEST(Hostile, LengthsThatAreNotSaidBeforeAreRefused)
{
    for (std::string const& value :
         {std::string("\x9f\x07\xff"), std::string("\x5f\x41x\xff"), std::string("\x7f\x61x\xff"),
          std::string("\xbf\x64") + "bool\xf5\xff"})
        EXPECT_NE(refusal(fileOf(value)).find("is not said before"), std::string::npos);
}

TEST(Hostile, NumbersOutsideOfTheirRangeAreRefused)
{
    EXPECT_NE(refusal(fileOf("\x1b" + std::string(8, '\xff'))).find("beyond 64 bits"),
              std::string::npos);
    EXPECT_NE(refusal(fileOf("\x3b" + std::string(8, '\xff'))).find("beyond 64 bits"),
              std::string::npos);
    EXPECT_NE(refusal(fileOf("\x3b\x80" + std::string(7, '\0'))).find("beyond 64 bits"),
              std::string::npos);
    EXPECT_NE(refusal(fileOf(record("char", "\x1a" + std::string("\0\1\0\0", 4)))), "");
    EXPECT_NE(refusal(fileOf(record("char", "\x20"))), "");
    std::string const dimensions = "\xd8\x28\x82\x83\x01\x01\x05\xd8\x40\x45xxxxx";
    EXPECT_NE(refusal(fileOf(record("image", dimensions))), "");
    EXPECT_NE(refusal(fileOf("\xfb")), "");
    EXPECT_NE(refusal(fileOf("\x62\xc3\x28")), "");
}

// Floating-point numbers of less than 64 bits are taken for what they are.
TEST(Hostile, ShorterFloatingPointNumbersAreTaken)
{
    double number = 0.0;
    KDRVariant value = valueOf(bufferOf(fileOf("\xfa\x3f\xc0" + std::string(2, '\0'))));
    ASSERT_TRUE(value.toDouble(&number));
    EXPECT_EQ(number, 1.5);
    value = valueOf(bufferOf(fileOf("\xf9\x3e" + std::string(1, '\0'))));
    ASSERT_TRUE(value.toDouble(&number));
    EXPECT_EQ(number, 1.5);
}

TEST(Hostile, DamagedPicturesAreRefused)
{
    KDRImage image(nullptr, 20, 10, 3, 0, KDRImage::DataTypeUInt8);
    std::string const whole = contents(bytesOf(KDRVariant(image), kdrio::Pixels::Smaller));
    std::size_t const picture = whole.find("\x89PNG");
    ASSERT_NE(picture, std::string::npos);
    for (std::size_t at = picture; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
        EXPECT_NE(refusal(damaged).find("image.png: "), std::string::npos) << at;
    }
}

} // namespace
