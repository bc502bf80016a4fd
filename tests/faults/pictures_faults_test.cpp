// What reading and saving pictures does when memory runs out, in the picture libraries too.

#include "tour.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

// A file is what it shows: with less memory it may be packed in another way.
std::string pictureIn(KDRString const& name)
{
    KDRImage image;
    int const answer = image.read(name);
    return words::of(answer) + words::of(image);
}

std::string contentOf(KDRString const& name)
{
    std::ifstream file(name.toUtf8().constData(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// An image that is to be saved. The file that it is saved to belongs to the state.
struct Saving
{
    KDRString name;
    KDRImage image;
    int answer;

    friend std::string inWords(Saving const& saving)
    {
        return words::of(saving.answer) + pictureIn(saving.name);
    }
};

class PictureFaults : public testing::TestWithParam<char const*>
{
protected:
    PictureFaults() : directory(testing::TempDir() + "faults-XXXXXX")
    {
        EXPECT_TRUE(::mkdtemp(directory.data()));
    }
    ~PictureFaults() override { std::filesystem::remove_all(directory); }

    KDRString path(std::string const& name) const
    {
        return KDRString((directory + "/" + name + GetParam()).c_str());
    }

    static KDRImage picture()
    {
        constexpr int width = 19;
        constexpr int height = 7;
        std::vector<unsigned char> pixels(3 * width * height);
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = static_cast<unsigned char>(i * 7 % 251);
        return {pixels.data(), width, height, 3, 3 * width, KDRImage::DataTypeUInt8};
    }

    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(directory))
            names.push_back(entry.path().filename().string());
        return names;
    }

private:
    std::string directory;
};

TEST_P(PictureFaults, ReadingAnswersFailureAndKeepsThePixels)
{
    KDRString const file = path("picture");
    ASSERT_EQ(picture().save(file), 1);
    auto const image = [] {
        return std::make_tuple(KDRImage(nullptr, 2, 2, 1, 0, KDRImage::DataTypeUInt8), 0);
    };
    Tour tour;
    tour.visit("read", image,
               [&](auto& both) { std::get<1>(both) = std::get<0>(both).read(file); });
}

TEST_P(PictureFaults, AFileThatEndsTooEarlyLeavesNoMemoryBehind)
{
    KDRString const file = path("picture");
    ASSERT_EQ(picture().save(file), 1);
    std::string const whole = contentOf(file);
    KDRImage image;
    // From the second time on, what the picture libraries keep for themselves is there.
    for (int time = 0; time < 2; ++time) {
        long const before = memory::live();
        for (std::size_t missing : {std::size_t{3}, whole.size() / 4, whole.size() / 2}) {
            std::ofstream(file.toUtf8().constData(), std::ios::binary)
                << whole.substr(0, whole.size() - missing);
            EXPECT_EQ(image.read(file), 0) << missing;
        }
        if (time > 0) {
            EXPECT_EQ(memory::live(), before);
        }
    }
}

TEST_P(PictureFaults, SavingAnswersFailureAndKeepsTheOldFile)
{
    KDRString const name = path("picture");
    ASSERT_EQ(picture().save(name), 1);
    std::string const original = contentOf(name);
    auto const saving = [&] {
        std::ofstream(name.toUtf8().constData(), std::ios::binary) << original;
        return Saving{name, KDRImage(nullptr, 2, 2, 1, 0, KDRImage::DataTypeUInt8), 0};
    };
    Tour tour;
    tour.visitAlone("save", saving, [](Saving& s) { s.answer = s.image.save(s.name); });
    EXPECT_EQ(files().size(), 1U) << "half a file is left";
}

// TIFF is not on the tour: libtiff itself looks at small blocks that it could not get. The core
// library does not call it where memory is short, which one failing request among many does not
// show.
INSTANTIATE_TEST_SUITE_P(Formats, PictureFaults, testing::Values(".png", ".jpg", ".bmp", ".pnm"),
                         [](auto const& format) { return std::string(format.param + 1); });

} // namespace
