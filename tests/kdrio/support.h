#ifndef KDRDATA_TESTS_KDRIO_SUPPORT_H
#define KDRDATA_TESTS_KDRIO_SUPPORT_H

#include <gtest/gtest.h>

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include <initializer_list>
#include <string>

inline std::string words(kdrio::Error const& error) { return error.line().toUtf8().constData(); }

inline std::string contents(KDRBuffer const& bytes)
{
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

inline KDRBuffer bufferOf(std::string const& bytes)
{
    return KDRBuffer(bytes.data(), static_cast<int>(bytes.size()));
}

inline KDRBuffer bytesOf(KDRVariant const& value, kdrio::Pixels pixels = kdrio::Pixels::Raw)
{
    KDRBuffer bytes;
    kdrio::Error error;
    kdrio::SaveOptions options;
    options.pixels = pixels;
    EXPECT_TRUE(kdrio::toBytes(value, &bytes, options, &error)) << words(error);
    return bytes;
}

inline KDRVariant valueOf(KDRBuffer const& bytes)
{
    KDRVariant value("untouched");
    kdrio::Error error;
    EXPECT_TRUE(kdrio::fromBytes(bytes, &value, &error)) << words(error);
    return value;
}

/// A file with a value that is written by hand.
inline std::string fileOf(std::string const& value)
{
    return "\xd9\xd9\xf7\x83\x67KDRData\x01" + value;
}

/// What is said of bytes that are refused; the output must be untouched.
inline std::string refusal(std::string const& bytes, kdrio::Limits const& limits = {})
{
    KDRVariant value("untouched");
    kdrio::Error error;
    EXPECT_FALSE(kdrio::fromBytes(bufferOf(bytes), &value, &error, limits));
    KDRString text;
    EXPECT_TRUE(value.toString(&text) && text == KDRString("untouched"));
    EXPECT_FALSE(error.what.isEmpty());
    return words(error);
}

/// A directory of a test's own, removed with all that is in it.
class OwnDirectory
{
public:
    OwnDirectory()
    {
        char name[] = "/tmp/kdrio_test_XXXXXX";
        m_path = mkdtemp(name);
    }
    ~OwnDirectory();
    OwnDirectory(OwnDirectory const&) = delete;
    OwnDirectory& operator=(OwnDirectory const&) = delete;

    std::string file(std::string const& name) const { return m_path + '/' + name; }
    /// The names of the files in it, sorted, with a blank between them.
    std::string names() const;

private:
    std::string m_path;
};

#endif
