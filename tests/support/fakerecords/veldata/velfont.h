#ifndef KDRDATA_TESTS_FAKERECORDS_VELFONT_H
#define KDRDATA_TESTS_FAKERECORDS_VELFONT_H

#include <cstdint>

#include <veldata/velvar.h>

#include "../fakecalls.h"

/// A core font with a default of its own in every field, neither copied nor assigned as a whole.
struct VelFont
{
    VelFont() = default;
    VelFont(VelFont const&) = delete;
    VelFont& operator=(VelFont const&) = delete;

    VelVar faceName = VelVar("core");
    std::int64_t size = 1;
    std::int64_t weight = 400;
    unsigned char bold = 1;
    unsigned char italic = 2;
    unsigned char underline = 3;
    unsigned char strikeOut = 4;
    FakeCalls::Alive alive;
};

#endif
