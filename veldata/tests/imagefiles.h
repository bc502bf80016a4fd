#ifndef VELDATA_TESTS_IMAGEFILES_H
#define VELDATA_TESTS_IMAGEFILES_H

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>

#include <veldata/velimage.h>

using Bytes = std::vector<unsigned char>;

/// A directory that is gone with the object.
class TemporaryDirectory
{
public:
    TemporaryDirectory() : name(testing::TempDir() + "vel-XXXXXX")
    {
        if (!::mkdtemp(&name[0]))
            throw std::runtime_error("cannot create " + name);
    }

    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;

    ~TemporaryDirectory() { std::filesystem::remove_all(name); }

    std::string path(std::string const& file) const { return name + "/" + file; }

    /// The names of what lies in the directory.
    std::vector<std::string> entries() const
    {
        std::vector<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(name))
            names.push_back(entry.path().filename().string());
        return names;
    }

private:
    std::string name;
};

inline void writeFile(std::string const& path, Bytes const& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<char const*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.flush());
}

inline Bytes readFile(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline Bytes bytesOf(std::string const& text) { return Bytes(text.begin(), text.end()); }

/// A picture of smooth gradients, different in every channel, with finite values of any type.
inline cv::Mat picture(int type, int width = 37, int height = 23)
{
    cv::Mat values(height, width, CV_MAKETYPE(CV_64F, CV_MAT_CN(type)));
    for (int y = 0; y < height; ++y) {
        double* const row = values.ptr<double>(y);
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < values.channels(); ++c)
                row[x * values.channels() + c] = x * 2.0 + y * 3.0 * c + 20.0 * c;
    }
    cv::Mat converted;
    values.convertTo(converted, type);
    return converted;
}

inline VelImage imageOf(cv::Mat const& mat)
{
    return VelImage(mat.data, mat.cols, mat.rows, mat.channels(), static_cast<int>(mat.step),
                    mat.depth());
}

/// A view of the image's pixels.
inline cv::Mat viewOf(VelImage const& image)
{
    if (!image.ImageData())
        return cv::Mat();
    return cv::Mat(image.Height(), image.Width(), CV_MAKETYPE(image.BitDepth(), image.Channels()),
                   image.ImageData(), static_cast<std::size_t>(image.Step()));
}

/// Whether two pictures are equal in size, type and every byte.
inline bool same(cv::Mat const& one, cv::Mat const& other)
{
    if (one.size() != other.size() || one.type() != other.type())
        return false;
    for (int y = 0; y < one.rows; ++y) {
        if (std::memcmp(one.ptr(y), other.ptr(y),
                        static_cast<std::size_t>(one.cols) * one.elemSize()) != 0)
            return false;
    }
    return true;
}

inline Bytes encoded(char const* extension, cv::Mat const& mat, std::vector<int> const& how = {})
{
    Bytes bytes;
    cv::imencode(extension, mat, bytes, how);
    return bytes;
}

inline cv::Mat decoded(Bytes const& bytes) { return cv::imdecode(bytes, cv::IMREAD_UNCHANGED); }

#endif
