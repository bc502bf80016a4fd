#ifndef KDRDATA_KDRFONT_H
#define KDRDATA_KDRFONT_H

#include <kdrdata/kdrdata_export.h>

class KDRString;
struct KDRInternal;
struct VelFont;

/// A font: the face name, size, weight and style of a text that is drawn as a shape.
///
/// The handle owns one core-library font record (`VelFont`) and reads and writes its fields; no
/// value is checked. Copies are deep.
///
/// @code
/// KDRFont font;
/// font.setFaceName(KDRString("DejaVu Sans"));
/// font.setBold(true);
/// @endcode
///
/// Out of memory is std::bad_alloc; the font is then as it was.
///
/// Readers and writers alike are not for constant fonts. Kept on purpose.
///
/// Threads: one font may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRFont
{
public:
    /// The core library's default font (with the bundled one: no face name, weight 400, plain), but
    /// of size 24.
    KDRFont();
    /// Copies face name, size, weight and flags of @p other.
    KDRFont(KDRFont const& other);
    /// Destroys the core record.
    ~KDRFont();

    /// Copies face name, size, weight and flags of @p other. Returns this font.
    KDRFont& operator=(KDRFont const& other);

    /// The face name: a wide one read as UCS-4 (QString::fromUcs4), a narrow one as UTF-8
    /// (QString::fromUtf8), each up to its terminating zero and without a leading byte order mark.
    /// Empty, but not null, where the record holds none or something else than a text.
    KDRString faceName();
    /// Sets the face name, as a wide text. It ends at the first zero of @p name and is cut after
    /// 199 characters, of which one beyond the Basic Multilingual Plane counts as one; unpaired
    /// surrogates become U+FFFD (QString::toUcs4).
    void setFaceName(KDRString const& name);

    /// The size of the letters, in units of whoever draws them.
    long size();
    /// Sets the size; any number will do.
    void setSize(long size);

    /// The thickness of the strokes, in the core library's units.
    long weight();
    /// Sets the thickness of the strokes; any number will do.
    void setWeight(long weight);

    /// Whether the type is bold: whether the record's flag is not 0.
    bool bold();
    /// Sets the bold flag to 1 or 0.
    void setBold(bool bold);

    /// The italic flag as it is kept; any value but 0 is italic.
    unsigned char italic();
    /// Sets the italic flag to @p italic, unchanged.
    void setItalic(unsigned char italic);

    /// The underline flag as it is kept; any value but 0 is underlined.
    unsigned char underline();
    /// Sets the underline flag to @p underline, unchanged.
    void setUnderline(unsigned char underline);

    /// The strike-out flag as it is kept; any value but 0 is struck out.
    unsigned char strikeOut();
    /// Sets the strike-out flag to @p strikeOut, unchanged.
    void setStrikeOut(unsigned char strikeOut);

private:
    friend struct KDRInternal;
    VelFont* d;
};

#endif
