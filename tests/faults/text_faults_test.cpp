// What texts, buffers, characters and expressions do when memory runs out.

#include "tour.h"

namespace {

constexpr char const* longEnough = "  Some text, 12 words or so:  %1 and %2  ";

KDRString text() { return {longEnough}; }
KDRBuffer bytes() { return {longEnough}; }
KDRRegExp expression() { return KDRRegExp(KDRString("(t[a-z]+)|([0-9]+)")); }

KDRStringArray texts()
{
    KDRStringArray made;
    for (char const* const each : {"first", "second", "third", "second"})
        made.push_back(KDRString(each));
    return made;
}

KDRBufferArray buffers()
{
    KDRBufferArray made;
    for (char const* const each : {"first", "second", "third", "second"})
        made.push_back(KDRBuffer(each));
    return made;
}

TEST(TextFaults, MakingStrings)
{
    unsigned short const units[] = {0xFEFF, 'a', 'b', 'c', 0};
    KDRBuffer const source("grün und blau");
    auto const none = [] { return 0; };
    Tour tour;
    tour.visit("KDRString()", none, [](int) { return KDRString(); });
    tour.visit("KDRString(char)", none, [](int) { return KDRString(KDRChar('x')); });
    tour.visit("KDRString(char const*)", none, [](int) { return KDRString("grün"); });
    tour.visit("KDRString(units)", none, [&](int) { return KDRString(units); });
    tour.visit("KDRString(buffer)", none, [&](int) { return KDRString(source); });
    tour.visit("KDRString(other)", text, [](KDRString& s) { return KDRString(s); });
    tour.visit("=", text, [&](KDRString& s) { s = KDRString("other"); });
    tour.visit("= buffer", text, [&](KDRString& s) { s = source; });
    tour.visit("= char const*", text, [](KDRString& s) { s = "grün"; });
    tour.visit("= units", text, [&](KDRString& s) { s = units; });
    tour.visit("fromLatin1", text, [](KDRString& s) { s.fromLatin1("text"); });
    tour.visit("fromLocal8Bit", text, [](KDRString& s) { s.fromLocal8Bit("text"); });
    tour.visit("fromUtf8", text, [](KDRString& s) { s.fromUtf8("grün"); });
    tour.visit("fromUtf16", text, [&](KDRString& s) { s.fromUtf16(units); });
}

TEST(TextFaults, ReadingStrings)
{
    KDRString const part("12 words");
    KDRRegExp const rx = expression();
    Tour tour;
    tour.visit("toLatin1", text, [](KDRString& s) { return s.toLatin1(); });
    tour.visit("toUtf8", text, [](KDRString& s) { return s.toUtf8(); });
    tour.visit("toLocal8Bit", text, [](KDRString& s) { return s.toLocal8Bit(); });
    tour.visit("toUtf16", text, [](KDRString& s) { return s.toUtf16()[2]; });
    tour.visit("==", text, [&](KDRString& s) { return s == part; });
    tour.visit("!=", text, [&](KDRString& s) { return s != part; });
    tour.visit("!= char const*", text, [](KDRString& s) { return s != "grün"; });
    tour.visit("!= buffer", text, [](KDRString& s) { return s != bytes(); });
    tour.visit("at", text, [](KDRString& s) { return s.at(3); });
    tour.visit("contains", text, [&](KDRString& s) { return s.contains(part); });
    tour.visit("contains, any case", text,
               [&](KDRString& s) { return s.contains(part, KDRString::KDRCaseInsensitive); });
    tour.visit("contains an expression", text, [&](KDRString& s) { return s.contains(rx); });
    tour.visit("indexOf", text, [&](KDRString& s) { return s.indexOf(part, 2); });
    tour.visit("indexOf an expression", text, [&](KDRString& s) { return s.indexOf(rx, 2); });
    tour.visit("lastIndexOf", text, [&](KDRString& s) { return s.lastIndexOf(part); });
    tour.visit("lastIndexOf an expression", text, [&](KDRString& s) { return s.lastIndexOf(rx); });
    tour.visit("startsWith", text, [&](KDRString& s) { return s.startsWith(part); });
    tour.visit("endsWith", text, [&](KDRString& s) { return s.endsWith(part); });
    tour.visit("left", text, [](KDRString& s) { return s.left(5); });
    tour.visit("right", text, [](KDRString& s) { return s.right(5); });
    tour.visit("mid", text, [](KDRString& s) { return s.mid(5, 5); });
    tour.visit("repeated", text, [](KDRString& s) { return s.repeated(50); });
    tour.visit("trimmed", text, [](KDRString& s) { return s.trimmed(); });
    tour.visit("simplified", text, [](KDRString& s) { return s.simplified(); });
    tour.visit("toLower", text, [](KDRString& s) { return s.toLower(); });
    tour.visit("toUpper", text, [](KDRString& s) { return s.toUpper(); });
    tour.visit("toDouble", text, [](KDRString& s) { return s.toDouble(); });
    tour.visit("toFloat", text, [](KDRString& s) { return s.toFloat(); });
    tour.visit("toLongLong", text, [](KDRString& s) { return s.toLongLong(nullptr, 16); });
    tour.visit("toUShort", text, [](KDRString& s) { return s.toUShort(); });
    auto const number = [] { return KDRString("  -1234.5e12345 "); };
    tour.visit("toDouble", number, [](KDRString& s) { return s.toDouble(); });
    tour.visit("split at a character", text, [](KDRString& s) { return s.split(KDRChar(' ')); });
    tour.visit("split at a text", text, [](KDRString& s) { return s.split(KDRString("o")); });
}

TEST(TextFaults, StringsAndCopiesOfExpressions)
{
    KDRString const other("something else that is longer");
    KDRRegExp const rx = expression();
    Tour tour(Tour::Losses::OfQtExpressions);
    tour.visit("split", text, [&](KDRString& s) { return s.split(rx); });
    tour.visit("remove", text, [&](KDRString& s) { s.remove(rx); });
    tour.visit("replace", text, [&](KDRString& s) { s.replace(rx, other); });
    tour.visit("replace by captures", text,
               [&](KDRString& s) { s.replace(rx, KDRString("<\\1|\\2>")); });
}

TEST(TextFaults, FormattingStrings)
{
    KDRString const value("a value that is long enough to need memory");
    KDRChar const fill('_');
    constexpr auto fixed = KDRString::KDRFormatFixed;
    Tour tour;
    tour.visit("arg of a text", text, [&](KDRString& s) { return s.arg(value, 60); });
    tour.visit("arg of a text, filled", text, [&](KDRString& s) { return s.arg(value, 60, fill); });
    tour.visit("arg of an int", text, [](KDRString& s) { return s.arg(-12); });
    tour.visit("arg of an int, filled", text, [&](KDRString& s) { return s.arg(1, 60, 2, fill); });
    tour.visit("arg of a short", text, [](KDRString& s) { return s.arg(short{12}, 4); });
    tour.visit("arg of a long", text, [](KDRString& s) { return s.arg(12L, 4, 36); });
    tour.visit("arg of a long long", text, [](KDRString& s) { return s.arg(12LL, 4); });
    tour.visit("arg of an unsigned", text, [](KDRString& s) { return s.arg(12U, 4); });
    tour.visit("arg of an unsigned long", text,
               [&](KDRString& s) { return s.arg(12UL, 4, 10, KDRChar('0')); });
    tour.visit("arg of a double", text, [](KDRString& s) { return s.arg(1e300, 0, fixed, 20); });
    tour.visit("arg of a double, filled", text,
               [&](KDRString& s) { return s.arg(0.1, 300, fixed, 200, fill); });
    tour.visit("arg of a char", text, [](KDRString& s) { return s.arg('x', 10); });
    tour.visit("arg of a character", text, [](KDRString& s) { return s.arg(KDRChar('x')); });
    tour.visit("arg of a null one", text, [&](KDRString& s) { return s.arg(KDRChar(), 3, fill); });
    tour.visit("setNum of an int", text, [](KDRString& s) { s.setNum(-123456, 3); });
    tour.visit("setNum of a long long", text, [](KDRString& s) { s.setNum(1LL << 60, 2); });
    tour.visit("setNum of an unsigned", text, [](KDRString& s) { s.setNum(~0U); });
    tour.visit("setNum of a double", text, [](KDRString& s) { s.setNum(1e300, fixed, 50); });
    tour.visit("setNum of a float", text, [](KDRString& s) { s.setNum(0.1F); });
}

TEST(TextFaults, ChangingStrings)
{
    KDRString const part("o");
    KDRString const other("something else that is longer");
    Tour tour;
    tour.visit("insert", text, [&](KDRString& s) { s.insert(3, other); });
    tour.visit("insert beyond the end", text, [&](KDRString& s) { s.insert(300, other); });
    tour.visit("insert itself", text, [](KDRString& s) { s.insert(3, s); });
    tour.visit("insert a C text", text, [](KDRString& s) { s.insert(3, "grün"); });
    tour.visit("insert a buffer", text, [](KDRString& s) { s.insert(3, bytes()); });
    tour.visit("push_back", text, [&](KDRString& s) { s.push_back(other); });
    tour.visit("push_front", text, [&](KDRString& s) { s.push_front(other); });
    tour.visit("push_front itself", text, [](KDRString& s) { s.push_front(s); });
    tour.visit("remove", text, [](KDRString& s) { s.remove(3, 4); });
    tour.visit("remove a text", text, [&](KDRString& s) { s.remove(part); });
    tour.visit("replace a part", text, [&](KDRString& s) { s.replace(3, 4, other); });
    tour.visit("replace all", text, [&](KDRString& s) { s.replace(part, other); });
    tour.visit("replace all, any case", text, [&](KDRString& s) {
        s.replace(KDRString("O"), other, KDRString::KDRCaseInsensitive);
    });
    tour.visit("truncate", text, [](KDRString& s) { s.truncate(4); });
    tour.visit(
        "swap", [] { return std::make_tuple(text(), KDRString("other")); },
        [](auto& both) { std::get<0>(both).swap(std::get<1>(both)); });
}

TEST(TextFaults, Characters)
{
    auto const letter = [] { return KDRChar(0x00C4); };
    Tour tour;
    tour.visit("KDRChar()", letter, [](KDRChar&) { return KDRChar(); });
    tour.visit("KDRChar(other)", letter, [](KDRChar& c) { return KDRChar(c); });
    tour.visit("=", letter, [](KDRChar& c) { c = KDRChar('x'); });
    tour.visit("toLower", letter, [](KDRChar& c) { return c.toLower(); });
    tour.visit("toUpper", letter, [](KDRChar& c) { return c.toUpper(); });
    tour.visit("toTitleCase", letter, [](KDRChar& c) { return c.toTitleCase(); });
    tour.visit("toCaseFolded", letter, [](KDRChar& c) { return c.toCaseFolded(); });
    tour.visit("fromLatin1", letter, [](KDRChar& c) { return c.fromLatin1('y'); });
    tour.visit("decomposition", letter, [](KDRChar& c) { return c.decomposition(); });
    tour.visit("unicode", letter, [](KDRChar& c) { c.unicode() = 5; });
    tour.visit("isLetter", letter, [](KDRChar& c) { return c.isLetter(); });
}

TEST(TextFaults, Expressions)
{
    KDRString const subject = text();
    auto const matched = [&] {
        KDRRegExp rx = expression();
        rx.indexIn(subject);
        return rx;
    };
    Tour tour(Tour::Losses::OfQtExpressions);
    tour.visit("KDRRegExp()", matched, [](KDRRegExp&) { return KDRRegExp(); });
    tour.visit("KDRRegExp(pattern)", matched,
               [](KDRRegExp&) { return KDRRegExp(KDRString("[abc]{2,5}(x|y)*")); });
    tour.visit("KDRRegExp(wildcard)", matched, [](KDRRegExp&) {
        return KDRRegExp(KDRString("*.p?g"), KDRRegExp::KDRCaseInsensitive,
                         KDRRegExp::KDRWildcardSyntax);
    });
    tour.visit("KDRRegExp(nothing valid)", matched,
               [](KDRRegExp&) { return KDRRegExp(KDRString("(")); });
    tour.visit("errorString", matched,
               [](KDRRegExp&) { return KDRRegExp(KDRString("(")).errorString(); });
    tour.visit("KDRRegExp(other)", matched, [](KDRRegExp& rx) { return KDRRegExp(rx); });
    tour.visit("=", matched, [](KDRRegExp& rx) { rx = KDRRegExp(KDRString("a.c")); });
    tour.visit("== itself", matched, [](KDRRegExp& rx) { return rx == expression(); });
    tour.visit("setPattern", matched, [](KDRRegExp& rx) { rx.setPattern(KDRString("x[0-9]")); });
    tour.visit("setPatternSyntax", matched,
               [](KDRRegExp& rx) { rx.setPatternSyntax(KDRRegExp::KDRFixedStringSyntax); });
    tour.visit("setCaseSensitivity", matched,
               [](KDRRegExp& rx) { rx.setCaseSensitivity(KDRRegExp::KDRCaseInsensitive); });
    tour.visit("setMinimal", matched, [](KDRRegExp& rx) { rx.setMinimal(true); });
    tour.visit("exactMatch", matched, [&](KDRRegExp& rx) { return rx.exactMatch(subject); });
    tour.visit("indexIn", matched, [&](KDRRegExp& rx) { return rx.indexIn(subject, 9); });
    tour.visit("lastIndexIn", matched, [&](KDRRegExp& rx) { return rx.lastIndexIn(subject); });
    tour.visit("pattern", matched, [](KDRRegExp& rx) { return rx.pattern(); });
    tour.visit("cap", matched, [](KDRRegExp& rx) { return rx.cap(1); });
    tour.visit("capturedTexts", matched, [](KDRRegExp& rx) { return rx.capturedTexts(); });
    tour.visit(
        "swap", [] { return std::make_tuple(expression(), KDRRegExp(KDRString("other"))); },
        [](auto& both) { std::get<0>(both).swap(std::get<1>(both)); });
}

TEST(TextFaults, MakingAndReadingBuffers)
{
    KDRBuffer const part("o");
    constexpr auto url = KDRBuffer::KDRBase64Url;
    Tour tour;
    tour.visit("KDRBuffer()", bytes, [](KDRBuffer&) { return KDRBuffer(); });
    tour.visit("KDRBuffer(bytes)", bytes, [](KDRBuffer&) { return KDRBuffer("a\0b", 3); });
    tour.visit("KDRBuffer(size)", bytes, [](KDRBuffer&) { return KDRBuffer(500, 'x'); });
    tour.visit("KDRBuffer(other)", bytes, [](KDRBuffer& b) { return KDRBuffer(b); });
    tour.visit("KDRBuffer(rvalue)", bytes, [](KDRBuffer& b) { return KDRBuffer(std::move(b)); });
    tour.visit("=", bytes, [](KDRBuffer& b) { b = KDRBuffer("other"); });
    tour.visit("= C text", bytes, [](KDRBuffer& b) { b = "other"; });
    tour.visit("fromRawData", bytes, [](KDRBuffer&) { return KDRBuffer::fromRawData("abc", 2); });
    tour.visit("setRawData", bytes, [](KDRBuffer& b) { b.setRawData("abc", 2); });
    tour.visit("data", bytes, [](KDRBuffer& b) { b.data()[1] = 'x'; });
    tour.visit("data, constant", bytes,
               [](KDRBuffer const& b) { return static_cast<int>(b.data()[2]); });
    tour.visit("contains", bytes, [&](KDRBuffer& b) { return b.contains(part); });
    tour.visit("count", bytes, [&](KDRBuffer& b) { return b.count(part) + b.count("t"); });
    tour.visit("indexOf", bytes, [&](KDRBuffer& b) { return b.indexOf(part) + b.indexOf("t"); });
    tour.visit("lastIndexOf", bytes, [&](KDRBuffer& b) { return b.lastIndexOf("text"); });
    tour.visit("startsWith", bytes, [&](KDRBuffer& b) { return b.startsWith(part); });
    tour.visit("endsWith", bytes, [&](KDRBuffer& b) { return b.endsWith("  "); });
    tour.visit("left", bytes, [](KDRBuffer& b) { return b.left(5); });
    tour.visit("right", bytes, [](KDRBuffer& b) { return b.right(5); });
    tour.visit("mid", bytes, [](KDRBuffer& b) { return b.mid(5, 5); });
    tour.visit("repeated", bytes, [](KDRBuffer& b) { return b.repeated(50); });
    tour.visit("trimmed", bytes, [](KDRBuffer& b) { return b.trimmed(); });
    tour.visit("simplified", bytes, [](KDRBuffer& b) { return b.simplified(); });
    tour.visit("toLower", bytes, [](KDRBuffer& b) { return b.toLower(); });
    tour.visit("toUpper", bytes, [](KDRBuffer& b) { return b.toUpper(); });
    tour.visit("leftJustified", bytes, [](KDRBuffer& b) { return b.leftJustified(99); });
    tour.visit("rightJustified", bytes, [](KDRBuffer& b) { return b.rightJustified(9, ' ', 1); });
    tour.visit("toBase64", bytes, [](KDRBuffer& b) { return b.toBase64(); });
    tour.visit("toBase64, for a URL", bytes, [](KDRBuffer& b) { return b.toBase64(url); });
    tour.visit("toPercentEncoding", bytes,
               [&](KDRBuffer& b) { return b.toPercentEncoding(part, part); });
    tour.visit("toShort", bytes, [](KDRBuffer& b) { return b.toShort(nullptr, 16); });
    tour.visit("fromBase64", bytes, [](KDRBuffer& b) { return KDRBuffer::fromBase64(b); });
    tour.visit("fromBase64, of a URL", bytes,
               [](KDRBuffer& b) { return KDRBuffer::fromBase64(b, url); });
    tour.visit("fromHex", bytes, [](KDRBuffer& b) { return KDRBuffer::fromHex(b); });
    tour.visit("fromPercentEncoding", bytes,
               [](KDRBuffer& b) { return KDRBuffer::fromPercentEncoding(b); });
}

TEST(TextFaults, ChangingBuffers)
{
    KDRBuffer const part("o");
    KDRBuffer const other("something else that is longer");
    Tour tour;
    tour.visit("append", bytes, [&](KDRBuffer& b) { b.append(other); });
    tour.visit("append itself", bytes, [](KDRBuffer& b) { b.append(b); });
    tour.visit("append a C text", bytes, [](KDRBuffer& b) { b.append("text"); });
    tour.visit("append own bytes", bytes, [](KDRBuffer& b) { b.append(b.constData() + 3, 9); });
    tour.visit("append a byte", bytes, [](KDRBuffer& b) { b.append('x'); });
    tour.visit("append many", bytes, [](KDRBuffer& b) { b.append(500, 'x'); });
    tour.visit("prepend", bytes, [&](KDRBuffer& b) { b.prepend(other); });
    tour.visit("prepend a C text", bytes, [](KDRBuffer& b) { b.prepend("text"); });
    tour.visit("prepend own bytes", bytes, [](KDRBuffer& b) { b.prepend(b.constData() + 3, 9); });
    tour.visit("prepend a byte", bytes, [](KDRBuffer& b) { b.prepend('x'); });
    tour.visit("prepend many", bytes, [](KDRBuffer& b) { b.prepend(500, 'x'); });
    tour.visit("insert", bytes, [&](KDRBuffer& b) { b.insert(3, other); });
    tour.visit("insert beyond the end", bytes, [&](KDRBuffer& b) { b.insert(300, other); });
    tour.visit("insert many", bytes, [](KDRBuffer& b) { b.insert(3, 500, 'x'); });
    tour.visit("insert own bytes", bytes, [](KDRBuffer& b) { b.insert(3, b.constData() + 1, 9); });
    tour.visit("insert a C text", bytes, [](KDRBuffer& b) { b.insert(3, "text"); });
    tour.visit("insert a byte", bytes, [](KDRBuffer& b) { b.insert(3, 'x'); });
    tour.visit("push_back", bytes, [&](KDRBuffer& b) { b.push_back(other); });
    tour.visit("push_front", bytes, [&](KDRBuffer& b) { b.push_front(other); });
    tour.visit("remove", bytes, [](KDRBuffer& b) { b.remove(3, 4); });
    tour.visit("replace a part", bytes, [&](KDRBuffer& b) { b.replace(3, 4, other); });
    tour.visit("replace a part by own bytes", bytes,
               [](KDRBuffer& b) { b.replace(3, 4, b.constData() + 1, 30); });
    tour.visit("replace a byte", bytes, [](KDRBuffer& b) { b.replace('o', 'x'); });
    tour.visit("replace a byte by bytes", bytes, [&](KDRBuffer& b) { b.replace('o', other); });
    tour.visit("replace all", bytes, [&](KDRBuffer& b) { b.replace(part, other); });
    tour.visit("replace C texts", bytes, [](KDRBuffer& b) { b.replace("t", "something"); });
    tour.visit("replace by nothing", bytes, [&](KDRBuffer& b) { b.replace(part, ""); });
    tour.visit("fill", bytes, [](KDRBuffer& b) { b.fill('x', 500); });
    tour.visit("chop", bytes, [](KDRBuffer& b) { b.chop(3); });
    tour.visit("truncate", bytes, [](KDRBuffer& b) { b.truncate(3); });
    tour.visit("clear", bytes, [](KDRBuffer& b) { b.clear(); });
    tour.visit("resize", bytes, [](KDRBuffer& b) { b.resize(3); });
    tour.visit("reserve", bytes, [](KDRBuffer& b) { b.reserve(3000); });
    tour.visit("squeeze", bytes, [](KDRBuffer& b) { b.squeeze(); });
    tour.visit(
        "swap", [] { return std::make_tuple(bytes(), KDRBuffer("other")); },
        [](auto& both) { std::get<0>(both).swap(std::get<1>(both)); });
}

TEST(TextFaults, ArraysOfTexts)
{
    KDRString const value("second");
    KDRRegExp const rx(KDRString("th.*"));
    Tour tour;
    tour.visit("indexOf", texts, [&](KDRStringArray& a) { return a.indexOf(value, 2); });
    tour.visit("indexOf an expression", texts, [&](KDRStringArray& a) { return a.indexOf(rx); });
    tour.visit("join by a character", texts,
               [](KDRStringArray& a) { return a.join(KDRChar(',')); });
    tour.visit("join", texts, [&](KDRStringArray& a) { return a.join(value); });
    tour.visit("join buffers", buffers, [](KDRBufferArray& a) { return a.join(); });
}

} // namespace
