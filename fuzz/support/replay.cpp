// Runs a fuzzing target over the files of the directories named on the command line, as an ordinary
// test and without a fuzzer.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesIn(std::filesystem::path const& directory)
{
    std::vector<std::filesystem::path> files;
    for (auto const& entry : std::filesystem::directory_iterator(directory))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

void replay(std::filesystem::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<char> const bytes{std::istreambuf_iterator<char>(file),
                                  std::istreambuf_iterator<char>()};
    // Named before it runs: an input that breaks a rule ends the process.
    std::printf("%s, %zu bytes\n", path.c_str(), bytes.size());
    std::fflush(stdout);
    // Bytes of their own, so that a sanitizer sees what is read behind the last.
    std::vector<std::uint8_t> const input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

} // namespace

int main(int argc, char* argv[])
{
    std::size_t count = 0;
    try {
        // The empty input is the first that a fuzzer tries.
        LLVMFuzzerTestOneInput(nullptr, 0);
        for (int i = 1; i < argc; ++i) {
            if (!std::filesystem::exists(argv[i]))
                continue;
            for (std::filesystem::path const& path : filesIn(argv[i])) {
                replay(path);
                ++count;
            }
        }
    } catch (std::exception const& exception) {
        std::fprintf(stderr, "broken: an exception left the target: %s\n", exception.what());
        return 1;
    }
    std::printf("%zu inputs\n", count);
    return count > 0 ? 0 : 1;
}
