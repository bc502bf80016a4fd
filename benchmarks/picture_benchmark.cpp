// Reading and saving pictures of 12 megapixels against OpenCV, which decodes and encodes with the
// same libraries: the same pixels, the same files, in memory where the machine has a file system
// there. JPEGs have the same quality on both sides. The sizes of the saved PNGs are compared with
// those that the usual filters and the same compression level make.

#include "ratio.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrimage.h>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <unistd.h>

namespace {

constexpr int width = 4000;
constexpr int height = 3000;

[[noreturn]] void fail(char const* what, std::string const& path)
{
    std::fprintf(stderr, "%s: %s\n", path.c_str(), what);
    std::exit(1);
}

/// A directory of its own, in memory if possible, that is gone with the object.
class Directory
{
public:
    Directory()
    {
        std::string const root = ::access("/dev/shm", W_OK) == 0
                                     ? std::string("/dev/shm")
                                     : std::filesystem::temp_directory_path().string();
        name = root + "/kdr-pictures-XXXXXX";
        if (!::mkdtemp(&name[0]))
            fail("cannot be created", name);
    }

    Directory(Directory const&) = delete;
    Directory& operator=(Directory const&) = delete;
    ~Directory() { std::filesystem::remove_all(name); }

    std::string path(std::string const& file) const { return name + "/" + file; }

private:
    std::string name;
};

/// Soft shapes of many sizes with the noise of a sensor on them.
cv::Mat photograph(int type)
{
    cv::RNG random(7);
    cv::Mat sum(height, width, CV_MAKETYPE(CV_32F, CV_MAT_CN(type)), cv::Scalar::all(110));
    for (int side : {5, 23, 101, 487}) {
        cv::Mat coarse(side * 3 / 4 + 1, side, sum.type()), fine;
        random.fill(coarse, cv::RNG::NORMAL, 0, 22);
        cv::resize(coarse, fine, sum.size(), 0, 0, cv::INTER_CUBIC);
        sum += fine;
    }
    cv::Mat noise(sum.size(), sum.type());
    random.fill(noise, cv::RNG::NORMAL, 0, 1.5);
    sum += noise;
    cv::Mat picture;
    sum.convertTo(picture, type, CV_MAT_DEPTH(type) == CV_16U ? 257 : 1);
    return picture;
}

/// The parts that a segmentation found: white on black.
cv::Mat mask()
{
    cv::RNG random(8);
    cv::Mat picture(height, width, CV_8UC1, cv::Scalar::all(0));
    for (int i = 0; i < 60; ++i) {
        cv::ellipse(picture, {random.uniform(0, width), random.uniform(0, height)},
                    {random.uniform(20, 300), random.uniform(20, 200)}, random.uniform(0, 180), 0,
                    360, cv::Scalar::all(255), cv::FILLED);
    }
    return picture;
}

/// Lines and letters on paper.
cv::Mat drawing()
{
    cv::RNG random(9);
    cv::Mat picture(height, width, CV_8UC3, cv::Scalar::all(255));
    for (int i = 0; i < 250; ++i) {
        cv::Point const at(random.uniform(0, width), random.uniform(0, height));
        cv::Scalar const colour(random.uniform(0, 255), random.uniform(0, 255), 0);
        cv::line(picture, at, {random.uniform(0, width), random.uniform(0, height)}, colour, 3,
                 cv::LINE_AA);
        cv::putText(picture, "R 12.5", at, cv::FONT_HERSHEY_SIMPLEX, 1.5, colour, 2, cv::LINE_AA);
    }
    return picture;
}

bool isSame(KDRImage const& image, cv::Mat const& mat)
{
    return image.width() == mat.cols && image.height() == mat.rows &&
           image.channel() == mat.channels() && image.depth() == mat.depth() &&
           static_cast<std::size_t>(image.step()) == mat.step &&
           std::memcmp(image.dataPtr(), mat.data, mat.step * static_cast<std::size_t>(mat.rows)) ==
               0;
}

/// Depends on pixels all over the picture, and takes no time beside reading it.
ratio::Checksum sumOf(void const* pixels, std::size_t size)
{
    constexpr std::size_t stride = 65521;
    ratio::Checksum sum = size;
    for (std::size_t i = 0; i < size; i += stride)
        sum = ratio::mixed(sum, static_cast<unsigned char const*>(pixels)[i]);
    return sum;
}

ratio::Checksum sumOf(cv::Mat const& mat)
{
    return sumOf(mat.data, mat.step * static_cast<std::size_t>(mat.rows));
}

ratio::Checksum sumOf(KDRImage const& image)
{
    return sumOf(image.dataPtr(),
                 static_cast<std::size_t>(image.step()) * static_cast<std::size_t>(image.height()));
}

constexpr int turns = 9;

void compareReading(ratio::Table& table, Directory const& directory, char const* name,
                    char const* extension, cv::Mat const& picture, double goal)
{
    std::string const path = directory.path(std::string("read") + extension);
    if (!cv::imwrite(path, picture))
        fail("cannot be written", path);
    KDRString const kdrPath(path.c_str());
    KDRImage whole;
    if (whole.read(kdrPath) == 0 || !isSame(whole, cv::imread(path, cv::IMREAD_UNCHANGED)))
        fail("is read differently", path);
    table.row("read", name)
        .ours([&kdrPath](std::size_t times) {
            ratio::Checksum sum = 0;
            for (; times > 0; --times) {
                KDRImage image;
                image.read(kdrPath);
                sum += sumOf(image);
            }
            return sum;
        })
        .peer("imread",
              [&path](std::size_t times) {
                  ratio::Checksum sum = 0;
                  for (; times > 0; --times)
                      sum += sumOf(cv::imread(path, cv::IMREAD_UNCHANGED));
                  return sum;
              })
        .units(1, "picture")
        .turns(turns)
        .reach(ratio::againstPeer, ratio::atMost, goal)
        .run();
    std::filesystem::remove(path);
}

/// How much larger a PNG is than with the usual filters and the same compression level.
void compareSizes(ratio::Table& table, char const* name, std::string const& path,
                  cv::Mat const& picture, int effort)
{
    std::vector<unsigned char> usual;
    cv::imencode(".png", picture, usual, {cv::IMWRITE_PNG_COMPRESSION, effort});
    ratio::Figures figures;
    figures.family = "size, bytes";
    figures.name = name;
    figures.unit = "byte";
    figures.peerName = "the usual filters";
    figures.hasPeer = true;
    figures.ours = static_cast<double>(std::filesystem::file_size(path));
    figures.peer = static_cast<double>(usual.size());
    figures.toPeer = figures.ours / figures.peer;
    figures.goals = {{ratio::againstPeer, ratio::atMost, 1.05}};
    table.add(figures);
}

void compareSaving(ratio::Table& table, Directory const& directory, char const* name,
                   char const* extension, cv::Mat const& picture, double goal)
{
    constexpr int effort = 6;
    bool const isJpeg = std::strcmp(extension, ".jpg") == 0;
    std::vector<int> how;
    if (isJpeg)
        how = {cv::IMWRITE_JPEG_QUALITY, 100 - 5 * effort};
    std::string const ourPath = directory.path(std::string("ours") + extension);
    std::string const theirPath = directory.path(std::string("theirs") + extension);
    KDRString const kdrPath(ourPath.c_str());
    KDRImage image(picture.data, picture.cols, picture.rows, picture.channels(),
                   static_cast<int>(picture.step),
                   static_cast<KDRImage::DataType>(picture.depth()));
    // The files differ where the formats leave room, so each side's is removed before it is made:
    // what is there afterwards was made by it, and is looked into behind the last turn.
    table.row("save", name)
        .ours([&](std::size_t times) {
            ratio::Checksum saved = 0;
            for (; times > 0; --times) {
                ::unlink(ourPath.c_str());
                saved += image.save(kdrPath, effort) != 0 && ::access(ourPath.c_str(), F_OK) == 0;
            }
            return saved;
        })
        .peer("imwrite",
              [&](std::size_t times) {
                  ratio::Checksum saved = 0;
                  for (; times > 0; --times) {
                      ::unlink(theirPath.c_str());
                      saved += cv::imwrite(theirPath, picture, how) &&
                               ::access(theirPath.c_str(), F_OK) == 0;
                  }
                  return saved;
              })
        .units(1, "picture")
        .turns(turns)
        .reach(ratio::againstPeer, ratio::atMost, goal)
        .run();
    if (::access(ourPath.c_str(), F_OK) != 0)
        return; // the row was not asked for
    cv::Mat const ours = cv::imread(ourPath, cv::IMREAD_UNCHANGED);
    if (ours.empty() ||
        cv::norm(ours, cv::imread(theirPath, cv::IMREAD_UNCHANGED), cv::NORM_INF) > 0)
        fail("is saved differently", ourPath);
    if (!isJpeg && !isSame(image, ours))
        fail("is not what was saved", ourPath);
    if (std::strcmp(extension, ".png") == 0)
        compareSizes(table, name, ourPath, picture, effort);
    std::filesystem::remove(ourPath);
    std::filesystem::remove(theirPath);
}

} // namespace

int main(int argc, char* argv[])
try {
    cv::setNumThreads(1);
    ratio::Table table(argc, argv);
    Directory const directory;
    cv::Mat const grey = photograph(CV_8UC1);
    cv::Mat const deep = photograph(CV_16UC1);
    cv::Mat const colour = photograph(CV_8UC3);

    compareReading(table, directory, "PNG grey", ".png", grey, 1.1);
    compareReading(table, directory, "PNG colour", ".png", colour, 1.1);
    compareReading(table, directory, "JPEG colour", ".jpg", colour, 1.1);
    compareReading(table, directory, "TIFF colour", ".tif", colour, 1.1);
    compareReading(table, directory, "TIFF grey of 16 bits", ".tif", deep, 1.1);
    compareReading(table, directory, "BMP colour", ".bmp", colour, 1.0);
    compareReading(table, directory, "PGM", ".pgm", grey, 1.0);

    compareSaving(table, directory, "PNG photograph", ".png", colour, 2.0);
    compareSaving(table, directory, "PNG grey photograph", ".png", grey, 2.0);
    compareSaving(table, directory, "PNG mask", ".png", mask(), 3.0);
    compareSaving(table, directory, "PNG drawing", ".png", drawing(), 3.0);
    compareSaving(table, directory, "JPEG photograph", ".jpg", colour, 1.1);
    compareSaving(table, directory, "TIFF photograph", ".tif", colour, 1.1);
    compareSaving(table, directory, "BMP photograph", ".bmp", colour, 1.1);
    return table.finish();
} catch (std::exception const& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
