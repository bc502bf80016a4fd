#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/writer_p.h>

#include <kdrdata/text/kdrchar.h>

namespace kdrio {

namespace {

// A range of -0.0 or of NaN is one too.
bool isPlainZero(double number) { return inside::sameBits(number, 0.0); }

// Whether UTF-8 gives a text back: it has no half of a pair.
bool isGivenBackByUtf8(QString const& text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        if (!text.at(i).isHighSurrogate() || i + 1 == text.size() ||
            !text.at(i + 1).isLowSurrogate())
            return false;
        ++i;
    }
    return true;
}

void readValueOf(Reader& reader, KDRNumber& number)
{
    if (reader.isInteger())
        number.fromLongLong(reader.integer());
    else
        number.fromDouble(reader.number());
}

} // namespace

void write(Writer& writer, bool const& value) { writer.flag(value); }

bool hasRange(KDRNumber const& value)
{
    KDRNumberPrivate const& number = inside::record(value);
    return !isPlainZero(number.maxValue) || !isPlainZero(number.minValue) ||
           !isPlainZero(number.step);
}

void writeValueOf(Writer& writer, KDRNumber const& value)
{
    KDRNumberPrivate const& number = inside::record(value);
    number.kind == KDRNumberPrivate::Integer ? writer.integer(number.value.integer)
                                             : writer.number(number.value.floating);
}

void write(Writer& writer, KDRNumber const& value)
{
    if (!hasRange(value))
        return writeValueOf(writer, value);
    KDRNumberPrivate const& number = inside::record(value);
    writer.map(4);
    writer.name("value");
    writeValueOf(writer, value);
    writer.field("maximum", number.maxValue);
    writer.field("minimum", number.minValue);
    writer.field("step", number.step);
    writer.endMap();
}

void read(Reader& reader, KDRNumber& value)
{
    KDRNumber made(0);
    if (!reader.isMap()) {
        readValueOf(reader, made);
    } else {
        reader.fields({{"value", true, [&] { readValueOf(reader, made); }},
                       {"maximum", true, [&] { made.setMaxValue(reader.number()); }},
                       {"minimum", true, [&] { made.setMinValue(reader.number()); }},
                       {"step", true, [&] { made.setStep(reader.number()); }}});
    }
    value = made;
}

void write(Writer& writer, KDRString const& value)
{
    QString const& text = inside::text(value);
    if (text.isNull())
        return writer.null();
    if (isGivenBackByUtf8(text))
        return writer.text(text);
    writer.tag(format::uint16s);
    writer.bytes(text.constData(), 2LL * text.size());
}

void read(Reader& reader, KDRString& value)
{
    if (reader.isNull())
        return reader.null();
    value = inside::fromText(reader.text());
}

void write(Writer& writer, KDRBuffer const& value)
{
    if (value.isNull())
        return writer.null();
    writer.bytes(value.constData(), value.size());
}

void read(Reader& reader, KDRBuffer& value)
{
    if (reader.isNull())
        return reader.null();
    value = inside::fromBytes(reader.bytes());
}

void write(Writer& writer, KDRChar const& value) { writer.integer(value.unicode()); }

void read(Reader& reader, KDRChar& value)
{
    value = KDRChar(static_cast<unsigned short>(reader.integer(0, 0xFFFF)));
}

} // namespace kdrio
