// Files of every version of the format load for ever. They are never written again; kdrio_maker
// made them when the version was new.

#include <filesystem>
#include <fstream>
#include <iterator>

#include "facts.h"
#include "support.h"

namespace {

std::string read(std::filesystem::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Versions, CommittedFilesLoadAsWhatTheyWere)
{
    int count = 0;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(KDRDATA_SAVED_FILES)) {
        std::filesystem::path path = entry.path();
        if (path.extension() != ".kdr")
            continue;
        ++count;
        KDRVariant value;
        kdrio::Error error;
        ASSERT_TRUE(kdrio::load(KDRString(path.c_str()), &value, &error)) << words(error);
        std::string const facts = factsOf(value);
        EXPECT_TRUE(facts == read(path.replace_extension(".facts"))) << path;
    }
    EXPECT_GE(count, 4);
}

} // namespace
