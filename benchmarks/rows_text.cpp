// Descriptions, texts, bytes and expressions against plain QString, QByteArray and QRegExp, by the
// same code on both sides. A handle may cost a tenth more than Qt's value, and one small allocation
// for each handle that an operation makes.

#include "rows.h"

#include <QtCore/qbytearray.h>
#include <QtCore/qregexp.h>
#include <QtCore/qstring.h>
#include <QtCore/qstringlist.h>

#include <cstring>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <kdrdata/kdrdata.h>

namespace {

using ratio::Checksum;
using ratio::escape;
using ratio::Side;

constexpr int fieldCount = 1000;
constexpr int mebibyte = 1 << 20;
constexpr double share = 1.1;
char const* const words = "the quick brown fox jumps over lazy dogs";

// The two sides. Their classes share the names of the operations measured.
struct Kdr
{
    using Text = KDRString;
    using Character = KDRChar;
    using Texts = KDRStringArray;
    using Bytes = KDRBuffer;
    using Expression = KDRRegExp;
};

struct Qt5
{
    using Text = QString;
    using Character = QChar;
    using Texts = QStringList;
    using Bytes = QByteArray;
    using Expression = QRegExp;
};

std::string fields()
{
    std::string text;
    for (int i = 0; i < fieldCount; ++i)
        text += (i == 0 ? "field" : ",field") + std::to_string(i);
    return text;
}

Checksum sumOf(int value) { return static_cast<Checksum>(value); }
Checksum sumOf(bool value) { return value ? 1 : 2; }
Checksum sumOf(long long value) { return static_cast<Checksum>(value); }
Checksum sumOf(double value) { return ratio::bitsOf(value); }
Checksum sumOf(char const* bytes, int size)
{
    Checksum sum = static_cast<Checksum>(size);
    for (int i = 0; i < size; ++i)
        sum = ratio::mixed(sum, static_cast<unsigned char>(bytes[i]));
    return sum;
}
Checksum sumOf(QByteArray const& bytes) { return sumOf(bytes.constData(), bytes.size()); }
Checksum sumOf(KDRBuffer const& bytes) { return sumOf(bytes.constData(), bytes.size()); }
Checksum sumOf(QString const& text) { return sumOf(text.toUtf8()); }
Checksum sumOf(KDRString const& text) { return sumOf(text.toUtf8()); }
Checksum sumOf(QStringList const& texts) { return sumOf(texts.join(QLatin1Char('|'))); }
Checksum sumOf(KDRStringArray texts) { return sumOf(texts.join(KDRChar('|'))); }

// Takes a result that depends on the values given, which pass through escape() each time.
template <class Operation, class... Values>
Side repeating(Operation const& operation, Values const&... values)
{
    return [operation, of = std::tuple<Values...>(values...)](std::size_t times) mutable {
        Checksum sum = 0;
        for (std::size_t i = 0; i < times; ++i) {
            escape(of);
            auto result = std::apply(operation, of);
            escape(result);
            if (i + 1 == times)
                sum = sumOf(result);
        }
        return sum;
    };
}

// As repeating(), for operations that change their first value and put it back.
template <class Operation, class Changed, class... Values>
Side changing(Operation const& operation, Changed const& initial, Values const&... values)
{
    return [operation, initial, of = std::tuple<Values...>(values...)](std::size_t times) mutable {
        Changed changed(initial);
        int size = 0;
        for (std::size_t i = 0; i < times; ++i) {
            escape(of);
            size = std::apply([&](auto const&... each) { return operation(changed, each...); }, of);
            escape(changed);
        }
        return ratio::mixed(sumOf(changed), static_cast<Checksum>(size));
    };
}

double nanosecondsAnAllocation()
{
    Side const allocate = [](std::size_t times) {
        for (std::size_t i = 0; i < times; ++i) {
            auto holder = std::make_unique<void*>();
            escape(holder);
        }
        return Checksum(0);
    };
    std::vector<std::size_t> times;
    auto const seconds =
        ratio::takeTurns("allocation", {allocate}, 21, ratio::Clock::Processor, 1e-3, times);
    return 1e9 * ratio::median(seconds[0]) / static_cast<double>(times[0]);
}

// One operation, written once for both sides. Handles is how many handles of ours it makes.
class Rows
{
public:
    explicit Rows(ratio::Table& table)
        : m_table(table), m_allocation(table.side().empty() ? nanosecondsAnAllocation() : 0.0)
    {
    }

    template <class Make>
    void operator()(std::string const& name, int handles, Make const& make)
    {
        m_table.row("text", name)
            .ours(make(Kdr()))
            .peer("Qt", make(Qt5()))
            .floorOfPeer(share, handles * m_allocation)
            .reach(ratio::againstFloor, ratio::atMost, 1.0)
            .run();
    }

private:
    ratio::Table& m_table;
    double m_allocation;
};

void texts(Rows& row)
{
    row("construct from a C string", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](char const* source) { return Text(source); }, words);
    });
    row("copy", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& text) { return Text(text); }, Text(words));
    });
    row("append 16 characters", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return changing(
            [](Text& text, Text const& part) {
                text.push_back(part);
                int const size = text.size();
                text.truncate(size - 16);
                return size;
            },
            Text(words), Text("0123456789abcdef"));
    });
    row("find in 9 KB", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& text, Text const& part) { return text.indexOf(part); },
                         Text(fields().c_str()), Text("field999"));
    });
    row("split into 1000 fields", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        using Character = typename decltype(side)::Character;
        return repeating([](Text const& text) { return text.split(Character(',')); },
                         Text(fields().c_str()));
    });
    row("join 1000 fields", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        using Character = typename decltype(side)::Character;
        using Texts = typename decltype(side)::Texts;
        return repeating([](Texts& list, Text const& comma) { return list.join(comma); },
                         Texts(Text(fields().c_str()).split(Character(','))), Text(","));
    });
    row("replace in 9 KB", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating(
            [](Text const& text, Text const& before, Text const& after) {
                Text copy(text);
                copy.replace(before, after);
                return copy;
            },
            Text(fields().c_str()), Text("field"), Text("cell"));
    });
    row("mid", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& text) { return text.mid(4, 20); }, Text(words));
    });
    row("compare", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& a, Text const& b) { return a == b; }, Text(words),
                         Text(words));
    });
}

void numbers(Rows& row)
{
    row("arg, number", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& pattern, int number) { return pattern.arg(number); },
                         Text("width %1, height %2"), 1024);
    });
    row("arg, text", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& pattern, Text const& text) { return pattern.arg(text); },
                         Text("width %1, height %2"), Text(words));
    });
    row("text to double", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& text) { return text.toDouble(); }, Text("3.14159"));
    });
    row("text to integer", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return repeating([](Text const& text) -> long long { return text.toLongLong(); },
                         Text("-1234567890"));
    });
    row("integer to text", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return changing(
            [](Text& text, int number) {
                text.setNum(number);
                return text.size();
            },
            Text(), 1234567890);
    });
    row("double to text", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        return changing(
            [](Text& text, double number) {
                text.setNum(number);
                return text.size();
            },
            Text(), 3.14159);
    });
}

void buffers(Rows& row)
{
    for (int const size : {16, mebibyte}) {
        row(size == 16 ? "buffer append 16 bytes" : "buffer append 1 MiB", 0, [size](auto side) {
            using Bytes = typename decltype(side)::Bytes;
            return changing(
                [](Bytes& bytes, Bytes const& part) {
                    bytes.append(part);
                    int const grown = bytes.size();
                    bytes.truncate(16);
                    return grown;
                },
                Bytes(16, 'y'), Bytes(size, 'x'));
        });
    }
    row("buffer replace in 9 KB", 1, [](auto side) {
        using Bytes = typename decltype(side)::Bytes;
        return repeating(
            [](Bytes const& bytes, Bytes const& before, Bytes const& after) {
                Bytes copy(bytes);
                copy.replace(before, after);
                return copy;
            },
            Bytes(fields().c_str()), Bytes("field"), Bytes("cell"));
    });
    row("buffer replace in 40 bytes", 1, [](auto side) {
        using Bytes = typename decltype(side)::Bytes;
        return repeating(
            [](Bytes const& bytes, Bytes const& before, Bytes const& after) {
                Bytes copy(bytes);
                copy.replace(before, after);
                return copy;
            },
            Bytes(words), Bytes("fox"), Bytes("cat"));
    });
    row("buffer find in 9 KB", 0, [](auto side) {
        using Bytes = typename decltype(side)::Bytes;
        return repeating([](Bytes const& bytes, Bytes const& part) { return bytes.indexOf(part); },
                         Bytes(fields().c_str()), Bytes("field999"));
    });
    row("buffer to base64, 1 MiB", 1, [](auto side) {
        using Bytes = typename decltype(side)::Bytes;
        return repeating([](Bytes const& bytes) { return bytes.toBase64(); }, Bytes(mebibyte, 'x'));
    });
    row("buffer from base64, 1 MiB", 1, [](auto side) {
        using Bytes = typename decltype(side)::Bytes;
        return repeating([](Bytes const& bytes) { return Bytes::fromBase64(bytes); },
                         Bytes(Bytes(mebibyte, 'x').toBase64()));
    });
}

void expressions(Rows& row)
{
    row("expression, find in 9 KB", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        using Expression = typename decltype(side)::Expression;
        return repeating(
            [](Expression const& expression, Text const& text) { return expression.indexIn(text); },
            Expression(Text("field99[89]")), Text(fields().c_str()));
    });
    row("expression, exact match", 0, [](auto side) {
        using Text = typename decltype(side)::Text;
        using Expression = typename decltype(side)::Expression;
        return repeating([](Expression const& expression,
                            Text const& text) -> bool { return expression.exactMatch(text); },
                         Expression(Text("[a-z ]+")), Text(words));
    });
    row("expression, replace in 40 characters", 1, [](auto side) {
        using Text = typename decltype(side)::Text;
        using Expression = typename decltype(side)::Expression;
        return repeating(
            [](Text const& text, Expression const& expression, Text const& after) {
                Text copy(text);
                copy.replace(expression, after);
                return copy;
            },
            Text(words), Expression(Text("o[vx]")), Text("0"));
    });
}

// --- descriptions
// ---------------------------------------------------------------------------------

void describe(ratio::Table& table, std::string const& name, KDRVariant const& variant,
              Side const& peer)
{
    table.row("description", "attribute() of a " + name)
        .ours(repeating([](KDRVariant& v) { return v.attribute(); }, variant))
        .peer("QString::arg", peer)
        .reach(ratio::againstPeer, ratio::atMost, 1.2)
        .run();
}

} // namespace

void rows::ofTexts(ratio::Table& table)
{
    Rows row(table);
    texts(row);
    numbers(row);
    buffers(row);
    expressions(row);
}

void rows::ofDescriptions(ratio::Table& table)
{
    // The range of a number is carried by the variant's array alone, so that of a fresh number is
    // what a variant holds: zeros.
    describe(table, "number", KDRVariant(0.5),
             repeating(
                 [](double max, double min, double step) {
                     return QString("iType:%1,Max:%2,Min:%3,"
                                    "step:%4")
                         .arg(1)
                         .arg(max)
                         .arg(min)
                         .arg(step);
                 },
                 0.0, 0.0, 0.0));
    describe(table, "text", KDRVariant(KDRString(words)),
             repeating(
                 [](QString const& text) {
                     return QString("iType:%1,length:%2").arg(2).arg(text.size());
                 },
                 QString(words)));
    KDRPoint const point(3.0, 4.0);
    describe(table, "point", KDRVariant(point),
             repeating(
                 [](double max, double min, double step) {
                     return QString("iType:%1,XMax:%2,XMin:%3,XStep:%4,YMax:%5,YMin:%6,YStep:%7")
                         .arg(3)
                         .arg(max)
                         .arg(min)
                         .arg(step)
                         .arg(max)
                         .arg(min)
                         .arg(step);
                 },
                 point.getXMaxVal(), point.getXMinVal(), point.getXStepVal()));
}
