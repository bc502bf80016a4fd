// Two plug-ins, built by different compilers where there are two, exchange variants of every kind.

#include <kdrdata/variant/kdrvariant.h>

#include <gtest/gtest.h>

#include <dlfcn.h>

#include "plugin.h"

namespace {

/// A plug-in, loaded until it is unloaded or destroyed.
class Loaded
{
public:
    explicit Loaded(char const* path) : m_handle(::dlopen(path, RTLD_NOW | RTLD_LOCAL))
    {
        EXPECT_NE(m_handle, nullptr) << ::dlerror();
        auto const entry = reinterpret_cast<Plugin const* (*)()>(::dlsym(m_handle, "plugin"));
        m_plugin = entry();
    }

    Loaded(Loaded const&) = delete;
    Loaded& operator=(Loaded const&) = delete;

    ~Loaded() { unload(); }

    void unload()
    {
        if (m_handle) {
            EXPECT_EQ(::dlclose(m_handle), 0);
        }
        m_handle = nullptr;
    }

    Plugin const* operator->() const { return m_plugin; }

private:
    void* m_handle;
    Plugin const* m_plugin = nullptr;
};

class Plugins : public testing::Test
{
protected:
    Loaded first{FIRST_PLUGIN};
    Loaded second{SECOND_PLUGIN};
};

TEST_F(Plugins, AreBuiltByTheCompilersThatThereAre)
{
    EXPECT_STREQ(first->compiler, FIRST_COMPILER);
    EXPECT_STREQ(second->compiler, SECOND_COMPILER);
    EXPECT_EQ(first->rows, 41);
    EXPECT_EQ(second->rows, 41);
}

TEST_F(Plugins, ReadWriteAndDestroyWhatTheOtherMade)
{
    for (int row = 0; row < first->rows; ++row) {
        SCOPED_TRACE(testing::Message() << "row " << row);
        KDRVariant* const made = first->make(row, 7);
        EXPECT_TRUE(second->reads(*made, row, 7));
        KDRVariant* const copy = second->share(*made);
        int const other = (row + 1) % first->rows;
        second->write(*made, other, 5);
        EXPECT_TRUE(first->reads(*made, other, 5));
        EXPECT_TRUE(first->reads(*copy, row, 7)) << "a copy keeps the value of before";
        second->destroy(made);
        first->destroy(copy);
    }
}

TEST_F(Plugins, NestWhatTheOtherMade)
{
    for (int row = 0; row < first->rows; ++row) {
        SCOPED_TRACE(testing::Message() << "row " << row);
        KDRVariant* const one = first->make(row, 3);
        KDRVariant* const two = second->make(row, 4);
        KDRVariant* const pair = second->pair(*one, *two);
        first->destroy(two);
        second->destroy(one);
        KDRVariant* const back = first->element(*pair, 0);
        KDRVariant* const last = second->element(*pair, 1);
        first->destroy(pair);
        EXPECT_TRUE(first->reads(*back, row, 3));
        EXPECT_TRUE(first->reads(*last, row, 4));
        second->destroy(back);
        first->destroy(last);
    }
}

// No code of a plug-in is needed to read or destroy a variant.
TEST_F(Plugins, LeaveTheirVariantsBehindWhenTheyAreUnloaded)
{
    for (int row = 0; row < second->rows; ++row) {
        SCOPED_TRACE(testing::Message() << "row " << row);
        Loaded passing(FIRST_PLUGIN);
        KDRVariant* const theirs = passing->make(row, 7);
        KDRVariant const kept(*theirs);
        passing->destroy(theirs);
        passing.unload();
        first.unload();
        EXPECT_EQ(::dlopen(FIRST_PLUGIN, RTLD_NOW | RTLD_NOLOAD), nullptr) << "it is unloaded";
        EXPECT_TRUE(second->reads(kept, row, 7));
        KDRVariant* const copy = second->clone(kept);
        EXPECT_EQ(copy->variantType(), kept.variantType());
        second->destroy(copy);
    }
}

} // namespace
