#include <veldata/velfont.h>

VelFont::VelFont() noexcept
    : faceName(L""), size(12), weight(400), bold(0), italic(0), underline(0), strikeOut(0)
{
}

VelFont::VelFont(VelFont const& other) = default;

VelFont::VelFont(VelFont&& other) noexcept = default;

VelFont::~VelFont() = default;

// The name comes first: it alone can fail.
VelFont& VelFont::operator=(VelFont const& other) = default;

VelFont& VelFont::operator=(VelFont&& other) noexcept = default;
