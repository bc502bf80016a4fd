#ifndef KDRIO_KDRIO_H
#define KDRIO_KDRIO_H

/// @file
/// Values to bytes and back: files, buffers and devices, and a text to read and compare.

#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/variant/kdrvariant.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/kdrio_export.h>

class QIODevice;

/// Saved values.
///
/// A variant of any kind, with all that it holds, becomes bytes and comes back as it was: the kind,
/// every field that the kind carries, null and empty told apart, and what is shared. Handles that
/// share a store share one again after loading, and so do images that share their pixels. Other
/// sharing (of texts, bytes, lists and the records of shapes) shows in no operation and is not
/// kept.
///
/// The bytes are CBOR (RFC 8949); the page "The file format" describes them. Files of a version are
/// read by every later version of the library.
///
/// **Failure.** The functions answer true, or false with the error filled in, where one is given,
/// and with their outputs untouched. Where memory runs out they answer false with the error "out of
/// memory" and throw nothing; toJson() alone throws std::bad_alloc.
///
/// @code
/// kdrio::Error error;
/// if (!kdrio::save(recipe, "coins.kdr", &error))
///     qWarning("%s", error.line().toUtf8().constData());
/// @endcode
///
/// Threads: values may be written and read in several threads at once. A value that is being
/// written, and what it shares with others, must not be changed meanwhile.
namespace kdrio {

/// What went wrong, and where.
struct Error
{
    /// The reason, in words; empty while nothing went wrong.
    KDRString what;
    /// The name of the file; null where there is none.
    KDRString file;
    /// The piece of the value, such as `[3].shape.circle.radius`: elements of lists by their place
    /// counted from 0, contents by the names that the file has. Empty for the value as a whole.
    KDRString path;
    /// The place in the bytes; -1 where it is not the bytes that are wrong.
    long long offset = -1;

    /// All of it in one line without an end: `coins.kdr: byte 31, [3].shape: no such kind "helix"`.
    KDRIO_EXPORT KDRString line() const;
};

/// What loading accepts. What goes beyond is refused before anything is allocated for it.
struct Limits
{
    /// Variants inside of variants. Never more than 512, whatever is set here.
    int nesting = 256;
    /// Bytes of the input.
    long long bytes = 1LL << 31;
    /// Elements of lists, matrices and regions, all together: an element may weigh 200 bytes.
    long long elements = 1LL << 24;
    /// Pixels of images, all together.
    long long pixels = 1LL << 28;
};

/// How the pixels of images are written.
enum class Pixels {
    /// As they are: the fastest.
    Raw,
    /// As PNG where the core library holds an image of that type in PNG without loss and that is
    /// smaller. Takes a file in the directory for temporary files, as loading it does.
    Smaller
};

/// How a value is written.
struct SaveOptions
{
    /// How the pixels of images are written.
    Pixels pixels = Pixels::Raw;
};

/// What toJson() writes out.
struct JsonOptions
{
    /// Lists, texts of bytes and pixels up to so many elements are written out; longer ones appear
    /// as their size and a checksum. Negative: all are written out.
    int longest = 64;
    /// Everything in one line.
    bool compact = false;
};

/// Writes @p value to the file @p path. The file appears complete or not at all: it is written
/// under another name in the same directory and then renamed, with the permissions of the file that
/// it replaces. That the bytes have reached the disk is not waited for.
KDRIO_EXPORT bool save(KDRVariant const& value, KDRString const& path, Error* error = nullptr);
/// The same, as @p options say.
KDRIO_EXPORT bool save(KDRVariant const& value, KDRString const& path, SaveOptions const& options,
                       Error* error = nullptr);
/// Writes @p value to a device that is open for writing, from where it stands. Nothing is written
/// of a value that cannot be.
KDRIO_EXPORT bool save(KDRVariant const& value, QIODevice* device, Error* error = nullptr);
/// The same, as @p options say.
KDRIO_EXPORT bool save(KDRVariant const& value, QIODevice* device, SaveOptions const& options,
                       Error* error = nullptr);
/// Makes @p bytes, which must not be null, the bytes of @p value.
KDRIO_EXPORT bool toBytes(KDRVariant const& value, KDRBuffer* bytes, Error* error = nullptr);
/// The same, as @p options say.
KDRIO_EXPORT bool toBytes(KDRVariant const& value, KDRBuffer* bytes, SaveOptions const& options,
                          Error* error = nullptr);

/// Reads the file @p path into @p value, which must not be null.
KDRIO_EXPORT bool load(KDRString const& path, KDRVariant* value, Error* error = nullptr,
                       Limits const& limits = {});
/// Reads a device that is open for reading, from where it stands to its end.
KDRIO_EXPORT bool load(QIODevice* device, KDRVariant* value, Error* error = nullptr,
                       Limits const& limits = {});
/// Reads @p bytes, to the last one, into @p value, which must not be null.
KDRIO_EXPORT bool fromBytes(KDRBuffer const& bytes, KDRVariant* value, Error* error = nullptr,
                            Limits const& limits = {});

/// As toBytes(), but the pixels stay outside of the bytes: @p images, which must not be null,
/// becomes the list of the images that the bytes refer to, each block of pixels once. For
/// receivers in the same process or on the same machine, who take pixels without a copy.
KDRIO_EXPORT bool toParts(KDRVariant const& value, KDRBuffer* bytes, KDRImageArray* images,
                          Error* error = nullptr);
/// Puts together again what toParts() took apart; the images of @p value share the pixels of
/// @p images.
KDRIO_EXPORT bool fromParts(KDRBuffer const& bytes, KDRImageArray const& images, KDRVariant* value,
                            Error* error = nullptr, Limits const& limits = {});

/// The value as a JSON text, to be read and compared by eye and by `diff`: the tree of the file
/// format, where long lists and pixels appear as their size and checksum unless @p options ask for
/// more. What is shared has a number, `{"shared": 0, "value": ...}`, and is `{"shared": 0}`
/// wherever it stands again. Not to be read back: numbers that JSON does not have, and bytes,
/// become texts. Null for a value that cannot be written. Throws std::bad_alloc where memory runs
/// out.
KDRIO_EXPORT KDRString toJson(KDRVariant const& value, JsonOptions const& options = {});

} // namespace kdrio

#endif
