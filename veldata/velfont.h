#ifndef VELDATA_VELFONT_H
#define VELDATA_VELFONT_H

#include <cstdint>

#include <veldata/veldata_export.h>
#include <veldata/velvar.h>

/// A font, as an open record: whoever uses it reads and writes the fields. Nothing is checked.
///
/// Copies are deep; a moved-from record has a face name that is the integer 0 and keeps the other
/// fields. Copying throws std::bad_alloc when memory runs out. One record may be read from several
/// threads at once, but not while one of them changes it.
struct VELDATA_EXPORT VelFont
{
    /// An empty wide face name, size 12, weight 400, every flag off.
    VelFont() noexcept;

    /// A deep copy. Throws std::bad_alloc.
    VelFont(VelFont const& other);

    /// Takes the face name over and copies the other fields.
    VelFont(VelFont&& other) noexcept;

    /// Destroys the face name.
    ~VelFont();

    /// Becomes a deep copy. Throws std::bad_alloc and is then unchanged.
    VelFont& operator=(VelFont const& other);

    /// Takes the face name over and copies the other fields. Assigning a record to itself does
    /// nothing.
    VelFont& operator=(VelFont&& other) noexcept;

    /// The name of the type face: a wide text, or a narrow one in UTF-8.
    VelVar faceName;

    /// The size of the letters, in units of whoever draws them.
    std::int64_t size;

    /// The thickness of the strokes, 400 for plain and 700 for bold type.
    std::int64_t weight;

    /// Bold type if not 0.
    unsigned char bold;

    /// Slanted type if not 0.
    unsigned char italic;

    /// Underlined type if not 0.
    unsigned char underline;

    /// Type that is struck out if not 0.
    unsigned char strikeOut;
};

#endif
