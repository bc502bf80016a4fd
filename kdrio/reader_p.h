#ifndef KDRIO_READER_P_H
#define KDRIO_READER_P_H

#include <kdrdata/variant/kdrvariant.h>
#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/failure_p.h>
#include <kdrio/format_p.h>
#include <kdrio/kdrio.h>

#include <QtCore/qcborstreamreader.h>

#include <initializer_list>
#include <vector>

namespace kdrio {

/// Reads one value, from the signature to the last byte. Nothing is allocated that the length of
/// the rest of the input cannot justify, and nothing beyond the limits.
class Reader
{
public:
    /// What reads the contents of one field; lives as long as the call that it is given to.
    class FieldReader
    {
    public:
        template <class Read>
        FieldReader(Read const& read)
            : m_read(&read), m_call([](void const* read_) { (*static_cast<Read const*>(read_))(); })
        {
        }
        void operator()() const { m_call(m_read); }

    private:
        void const* m_read;
        void (*m_call)(void const*);
    };

    struct Field
    {
        char const* name;
        bool isRequired;
        FieldReader read;
    };

    /// One level of values inside of values, until the end of the scope.
    class Nesting
    {
    public:
        explicit Nesting(Reader& reader) : m_reader(reader) { reader.nest(); }
        ~Nesting() { --m_reader.m_nesting; }
        Nesting(Nesting const&) = delete;
        Nesting& operator=(Nesting const&) = delete;

    private:
        Reader& m_reader;
    };

    /// Reads @p length bytes of @p device, or of what Qt's reader has, into which pixels that are
    /// referred to outside come from @p outside.
    Reader(QIODevice& device, long long length, Limits const& limits, KDRImageArray const* outside);
    Reader(QByteArray const& bytes, Limits const& limits, KDRImageArray const* outside);

    /// Reads all. Throws Failure for what is not a value of this format.
    void file(KDRVariant& value);

    /// A variant, in any form. Its store afterwards is one of its own or one that the file shares.
    void value(KDRVariant& value);
    /// The pixels of an image, or a reference to them.
    void pixels(KDRImage& image);

    /// Enters a list and answers its length.
    int list();
    /// Enters a list of @p length elements.
    void list(int length);
    void endList() { leave(); }
    /// A map of the given fields, in any order, each once.
    void fields(std::initializer_list<Field> fields)
    {
        this->fields(fields.begin(), static_cast<int>(fields.size()));
    }
    void fields(Field const* fields, int count);
    /// A map of one entry: hands its name to @p choose, which reads the contents, or answers false
    /// where it knows no such name.
    template <class Choose>
    void choice(char const* what, Choose const& choose)
    {
        map(1, what);
        Name const chosen = name(what);
        Path::Step const step(m_path, chosen.text);
        if (!choose(chosen.text))
            failUnknown(what, chosen);
        leave();
    }

    bool isNull() const { return m_cbor.isNull(); }
    bool isAbsent() const { return m_cbor.isUndefined(); }
    bool isTag() const { return m_cbor.isTag(); }
    bool isMap() const { return m_cbor.isMap(); }
    bool isArray() const { return m_cbor.isArray(); }
    bool isInteger() const { return m_cbor.isInteger(); }
    /// The null that stands for contents without anything in them.
    void null();
    /// The mark of a store without contents.
    void absent();
    bool flag();
    long long integer();
    /// An integer from @p least to @p most.
    long long integer(long long least, long long most);
    double number();
    QString text();
    QByteArray bytes();
    /// A tag, which is read over.
    QCborTag tag();
    void tag(QCborTag expected, char const* what);

    /// The length of a string of bytes, which comes next.
    long long byteLength();
    /// A string of bytes of that length, to be written to @p to.
    void bytes(void* to, long long length);

    /// Counts elements before they are read.
    void countElements(long long count);

    Path& path() { return m_path; }
    [[noreturn]] void fail(QString const& what) const;
    [[noreturn]] void fail(char const* what) const { fail(QString(QLatin1String(what))); }
    /// Says that something else comes next than @p what, or that the input is damaged there.
    [[noreturn]] void failExpected(char const* what);

private:
    /// A name as it is compared with those of the format.
    struct Name
    {
        char text[32];
    };

    enum class State { Open, Value, Pixels };

    /// What the file shares, by the order in which it is begun.
    struct Shared
    {
        State state = State::Open;
        std::size_t place = 0;
    };

    void nest();
    void leave();
    void map(int length, char const* what);
    int containerLength();
    Name name(char const* what);
    [[noreturn]] void failUnknown(char const* what, Name const& name) const;
    void expect(bool holds, char const* what);
    /// Qt's reader counts from the start of the device.
    long long offset() const { return m_cbor.currentOffset() - m_start; }
    long long left() const { return m_length - offset(); }
    void tagged(KDRVariant& value);
    void block(KDRImage& image);
    void pixelArray(KDRImage& image);
    Shared const& shared(State state, char const* what);

    QCborStreamReader m_cbor;
    long long m_start;
    long long m_length;
    Limits m_limits;
    KDRImageArray const* m_outside;
    long long m_elements = 0;
    long long m_pixels = 0;
    int m_nesting = 0;
    std::vector<Shared> m_shared;
    std::vector<KDRVariant> m_values;
    std::vector<KDRImage> m_images;
    Path m_path;
};

} // namespace kdrio

#endif
