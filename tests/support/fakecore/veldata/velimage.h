#ifndef KDRDATA_TESTS_FAKECORE_VELIMAGE_H
#define KDRDATA_TESTS_FAKECORE_VELIMAGE_H

#include <string>
#include <vector>

/// As narrow as a core library may make it: no plain number becomes one by itself.
enum class VelImageType : int {};

/// A core image that does no work: it writes down each call with its arguments and answers what the
/// test told it to. It has the operations that the library is built on and no others.
class VelImage
{
public:
    VelImage& operator=(VelImage const& other)
    {
        note("operator=");
        depth = other.depth;
        return *this;
    }
    VelImage() = default;
    VelImage(VelImage const&) = delete;

    int CreateImage(unsigned char* data, int width, int height, int channels, int step,
                    VelImageType type)
    {
        note("CreateImage " + std::string(data ? "data" : "null"));
        for (int const argument : {width, height, channels, step, static_cast<int>(type)})
            calls.back() += ' ' + std::to_string(argument);
        return answer;
    }
    VelImage const& DeepCopy() const
    {
        note("DeepCopy");
        return *this;
    }
    int Width() const { return 101; }
    int Height() const { return 102; }
    int Step() const { return 103; }
    int Channels() const { return 104; }
    int BitDepth() const { return depth; }
    unsigned char* ImageData() const { return reinterpret_cast<unsigned char*>(pixel); }
    int ReadImage(char const* path)
    {
        note("ReadImage " + std::string(path));
        depth = depthAfterReading;
        return answer;
    }
    int SaveImage(char const* path, int effort) const
    {
        note("SaveImage " + std::string(path) + ' ' + std::to_string(effort));
        return answer;
    }

    static std::vector<std::string> calls;
    static int answer;
    static int depthAfterReading;

    int depth = 0;
    static char pixel[1];

private:
    static void note(std::string const& call) { calls.push_back(call); }
};

#endif
