// Every operation that takes a size, a position, a count or a width, with the ends of int and with
// more than memory holds: it answers or throws std::bad_alloc, soon, and where it throws the value
// is what it was. Each runs in a process of its own with little memory and little processor time.

#include "../support/words.h"
#include "../variant/payloads.h"

#include <veldata/veldata.h>

#include <gtest/gtest.h>

#include <climits>
#include <csignal>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <new>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int hostileValues[] = {INT_MIN, INT_MIN + 1, -(1 << 30), -1000000, -2,          -1,     0,
                                 1,       2,           1000000,    1 << 30,  INT_MAX - 1, INT_MAX};

constexpr rlim_t someMemory = rlim_t{1} << 30;
constexpr rlim_t someSeconds = 20;

/// What a process that tries an operation leaves behind for the one that waits.
struct Note
{
    char text[400];
};

void write(Note& note, std::string const& text)
{
    std::strncpy(note.text, text.c_str(), sizeof note.text - 1);
}

void limit(int resource, rlim_t value)
{
    rlimit const both{value, value};
    if (setrlimit(resource, &both) != 0)
        std::abort();
}

// Runs the operation with all the values in a child process, and answers what went wrong, or
// nothing.
template <class Make, class Operation>
std::string complaintOf(Make const& make, Operation const& operation)
{
    auto* const note = static_cast<Note*>(
        mmap(nullptr, sizeof(Note), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (note == MAP_FAILED)
        return "no memory for the note";
    pid_t const child = fork();
    if (child < 0)
        return "no process";
    if (child == 0) {
        limit(RLIMIT_CORE, 0);
        limit(RLIMIT_AS, someMemory);
        limit(RLIMIT_CPU, someSeconds);
        int result = 0;
        for (int const value : hostileValues) {
            write(*note, "with " + std::to_string(value));
            auto state = make();
            std::string const before = words::of(state);
            try {
                operation(state, value);
            } catch (std::bad_alloc const&) {
                if (words::of(state) != before) {
                    write(*note, "changed, with " + std::to_string(value));
                    result = 1;
                }
            } catch (...) {
                write(*note, "another exception, with " + std::to_string(value));
                result = 1;
            }
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    std::string const text = note->text;
    munmap(note, sizeof(Note));
    if (WIFSIGNALED(status))
        return std::string(strsignal(WTERMSIG(status))) + ", " + text;
    return WEXITSTATUS(status) == 0 ? std::string() : text;
}

template <class State>
struct Hostile
{
    char const* name;
    void (*operation)(State&, int);
};

template <class State, class Make>
void expectNoComplaint(Make const& make, std::vector<Hostile<State>> const& operations)
{
    for (auto const& [name, operation] : operations)
        EXPECT_EQ(complaintOf(make, operation), "") << name;
}

KDRString const part("part of a text");
KDRChar const zero('0');

TEST(HostileSizes, OfStrings)
{
    auto const make = [] { return KDRString("some %1 text %L1"); };
    expectNoComplaint<KDRString>(
        make,
        {{"negative sizes, fromLatin1",
          [](KDRString& s, int n) { s.fromLatin1("abc", n < 0 ? n : 2); }},
         {"negative sizes, fromLocal8Bit",
          [](KDRString& s, int n) { s.fromLocal8Bit("abc", n < 0 ? n : 2); }},
         {"negative sizes, fromUtf8",
          [](KDRString& s, int n) { s.fromUtf8("abc", n < 0 ? n : 2); }},
         {"no bytes at all", [](KDRString& s, int n) { s.fromUtf8(nullptr, n); }},
         {"no units at all", [](KDRString& s, int n) { s.fromUtf16(nullptr, n); }},
         {"truncate", [](KDRString& s, int n) { s.truncate(n); }},
         {"indexOf", [](KDRString& s, int n) { s.indexOf(part, n); }},
         {"indexOf an expression", [](KDRString& s, int n) { s.indexOf(KDRRegExp(part), n); }},
         {"lastIndexOf", [](KDRString& s, int n) { s.lastIndexOf(part, n); }},
         {"lastIndexOf an expression",
          [](KDRString& s, int n) { s.lastIndexOf(KDRRegExp(part), n); }},
         {"insert", [](KDRString& s, int n) { s.insert(n, part); }},
         {"insert a C text", [](KDRString& s, int n) { s.insert(n, "part"); }},
         {"insert a buffer", [](KDRString& s, int n) { s.insert(n, KDRBuffer("part")); }},
         {"remove at", [](KDRString& s, int n) { s.remove(n, 2); }},
         {"remove as many", [](KDRString& s, int n) { s.remove(2, n); }},
         {"remove both", [](KDRString& s, int n) { s.remove(n, n); }},
         {"replace at", [](KDRString& s, int n) { s.replace(n, 2, part); }},
         {"replace as many", [](KDRString& s, int n) { s.replace(2, n, part); }},
         {"replace both", [](KDRString& s, int n) { s.replace(n, n, part); }},
         {"left", [](KDRString& s, int n) { s.left(n); }},
         {"right", [](KDRString& s, int n) { s.right(n); }},
         {"mid at", [](KDRString& s, int n) { s.mid(n, 2); }},
         {"mid as many", [](KDRString& s, int n) { s.mid(2, n); }},
         {"mid both", [](KDRString& s, int n) { s.mid(n, n); }},
         {"repeated", [](KDRString& s, int n) { s.repeated(n); }},
         {"setNum in a base", [](KDRString& s, int n) { s.setNum(77, n); }},
         {"setNum, precisely",
          [](KDRString& s, int n) { s.setNum(0.1, KDRString::KDRFormatFixed, n); }},
         {"setNum, generally",
          [](KDRString& s, int n) { s.setNum(0.1, KDRString::KDRFormatGeneral, n); }},
         {"toLong in a base", [](KDRString& s, int n) { s.toLong(nullptr, n); }},
         {"toUShort in a base", [](KDRString& s, int n) { s.toUShort(nullptr, n); }}});
}

TEST(HostileSizes, OfFormattedStrings)
{
    constexpr auto fixed = KDRString::KDRFormatFixed;
    constexpr auto general = KDRString::KDRFormatGeneral;
    auto const make = [] { return KDRString("some %1 text %L1"); };
    expectNoComplaint<KDRString>(
        make, {{"text", [](KDRString& s, int n) { s.arg(part, n); }},
               {"text, filled", [](KDRString& s, int n) { s.arg(part, n, zero); }},
               {"int", [](KDRString& s, int n) { s.arg(5, n); }},
               {"int, zeros", [](KDRString& s, int n) { s.arg(-5, n, 10, zero); }},
               {"int, base", [](KDRString& s, int n) { s.arg(5, 3, n); }},
               {"unsigned long, zeros", [](KDRString& s, int n) { s.arg(5UL, n, 2, zero); }},
               {"short, zeros", [](KDRString& s, int n) { s.arg(short{5}, n, 16, zero); }},
               {"double", [](KDRString& s, int n) { s.arg(0.5, n); }},
               {"double, zeros", [](KDRString& s, int n) { s.arg(-0.5, n, fixed, 2, zero); }},
               {"double, fixed", [](KDRString& s, int n) { s.arg(0.5, 3, fixed, n); }},
               {"double, general", [](KDRString& s, int n) { s.arg(0.5, 3, general, n); }},
               {"double, both", [](KDRString& s, int n) { s.arg(0.5, n, fixed, n, zero); }},
               {"char", [](KDRString& s, int n) { s.arg('x', n, zero); }},
               {"character", [](KDRString& s, int n) { s.arg(KDRChar('x'), n); }},
               {"null character", [](KDRString& s, int n) { s.arg(KDRChar(), n, zero); }}});
}

TEST(HostileSizes, OfBuffers)
{
    auto const make = [] { return KDRBuffer("some bytes"); };
    expectNoComplaint<KDRBuffer>(
        make, {{"KDRBuffer(size)", [](KDRBuffer&, int n) { KDRBuffer(n, 'x'); }},
               {"KDRBuffer(nothing)",
                [](KDRBuffer&, int n) { KDRBuffer(static_cast<char const*>(nullptr), n); }},
               {"[]", [](KDRBuffer& b, int n) { static_cast<void>(b[n]); }},
               {"indexOf", [](KDRBuffer& b, int n) { b.indexOf(KDRBuffer("by"), n); }},
               {"indexOf nothing", [](KDRBuffer& b, int n) { b.indexOf("", n); }},
               {"indexOf a byte", [](KDRBuffer& b, int n) { b.indexOf('b', n); }},
               {"lastIndexOf", [](KDRBuffer& b, int n) { b.lastIndexOf("by", n); }},
               {"lastIndexOf nothing", [](KDRBuffer& b, int n) { b.lastIndexOf("", n); }},
               {"lastIndexOf a byte", [](KDRBuffer& b, int n) { b.lastIndexOf('b', n); }},
               {"left", [](KDRBuffer& b, int n) { b.left(n); }},
               {"right", [](KDRBuffer& b, int n) { b.right(n); }},
               {"mid at", [](KDRBuffer& b, int n) { b.mid(n, 2); }},
               {"mid as many", [](KDRBuffer& b, int n) { b.mid(2, n); }},
               {"mid both", [](KDRBuffer& b, int n) { b.mid(n, n); }},
               {"repeated", [](KDRBuffer& b, int n) { b.repeated(n); }},
               {"leftJustified", [](KDRBuffer& b, int n) { b.leftJustified(n); }},
               {"leftJustified, cut", [](KDRBuffer& b, int n) { b.leftJustified(n, '_', true); }},
               {"rightJustified", [](KDRBuffer& b, int n) { b.rightJustified(n); }},
               {"rightJustified, cut", [](KDRBuffer& b, int n) { b.rightJustified(n, '_', true); }},
               {"toShort", [](KDRBuffer& b, int n) { b.toShort(nullptr, n); }},
               {"append many", [](KDRBuffer& b, int n) { b.append(n, 'x'); }},
               {"append no bytes", [](KDRBuffer& b, int n) { b.append(nullptr, n); }},
               {"prepend many", [](KDRBuffer& b, int n) { b.prepend(n, 'x'); }},
               {"prepend no bytes", [](KDRBuffer& b, int n) { b.prepend(nullptr, n); }},
               {"insert at", [](KDRBuffer& b, int n) { b.insert(n, KDRBuffer("bytes")); }},
               {"insert a C text at", [](KDRBuffer& b, int n) { b.insert(n, "bytes"); }},
               {"insert a byte at", [](KDRBuffer& b, int n) { b.insert(n, 'x'); }},
               {"insert many", [](KDRBuffer& b, int n) { b.insert(2, n, 'x'); }},
               {"insert many far away", [](KDRBuffer& b, int n) { b.insert(n, n, 'x'); }},
               {"remove at", [](KDRBuffer& b, int n) { b.remove(n, 2); }},
               {"remove as many", [](KDRBuffer& b, int n) { b.remove(2, n); }},
               {"remove both", [](KDRBuffer& b, int n) { b.remove(n, n); }},
               {"replace at", [](KDRBuffer& b, int n) { b.replace(n, 2, KDRBuffer("bytes")); }},
               {"replace as many", [](KDRBuffer& b, int n) { b.replace(2, n, "bytes"); }},
               {"replace both", [](KDRBuffer& b, int n) { b.replace(n, n, "bytes"); }},
               {"replace by no bytes", [](KDRBuffer& b, int n) { b.replace(1, 2, nullptr, n); }},
               {"fill", [](KDRBuffer& b, int n) { b.fill('x', n); }},
               {"chop", [](KDRBuffer& b, int n) { b.chop(n); }},
               {"truncate", [](KDRBuffer& b, int n) { b.truncate(n); }},
               {"resize", [](KDRBuffer& b, int n) { b.resize(n); }},
               {"reserve", [](KDRBuffer& b, int n) { b.reserve(n); }},
               {"setRawData",
                [](KDRBuffer& b, int n) { b.setRawData(nullptr, static_cast<unsigned>(n)); }}});
}

TEST(HostileSizes, OfExpressions)
{
    auto const make = [] {
        KDRRegExp made(KDRString("(t.x)(t)"));
        made.indexIn(part);
        return made;
    };
    expectNoComplaint<KDRRegExp>(
        make, {{"indexIn", [](KDRRegExp& r, int n) { r.indexIn(part, n); }},
               {"lastIndexIn", [](KDRRegExp& r, int n) { r.lastIndexIn(part, n); }},
               {"cap", [](KDRRegExp& r, int n) { r.cap(n); }},
               {"pos", [](KDRRegExp& r, int n) { r.pos(n); }}});
}

template <class Array, class Element>
void expectNoComplaintOfArray()
{
    auto const make = [] {
        Array made;
        for (int i = 0; i < 3; ++i)
            made.push_back(PayloadOf<Element>::make(i));
        return made;
    };
    expectNoComplaint<Array>(
        make, {{"insert", [](Array& a, int n) { a.insert(n, PayloadOf<Element>::make(5)); }},
               {"replace", [](Array& a, int n) { a.replace(n, PayloadOf<Element>::make(5)); }},
               {"removeAt", [](Array& a, int n) { a.removeAt(n); }},
               {"select",
                [](Array& a, int n) {
                    Element element{};
                    a.select(n, &element);
                }},
               {"swap", [](Array& a, int n) { a.swap(n, 1) || a.swap(1, n) || a.swap(n, n); }}});
}

TEST(HostileSizes, OfArrays)
{
    expectNoComplaintOfArray<KDRStringArray, KDRString>();
    expectNoComplaintOfArray<KDRBufferArray, KDRBuffer>();
    expectNoComplaintOfArray<KDRBoolArray, bool>();
    expectNoComplaintOfArray<KDRNumberArray, KDRNumber>();
    expectNoComplaintOfArray<KDREnumArray, KDREnum>();
    expectNoComplaintOfArray<KDRPointArray, KDRPoint>();
    expectNoComplaintOfArray<KDRContourArray, KDRContour>();
    expectNoComplaintOfArray<KDRImageArray, KDRImage>();
    expectNoComplaintOfArray<KDRMatrixArray, KDRMatrix>();
    expectNoComplaintOfArray<KDRRegionArray, KDRRegion>();
    expectNoComplaintOfArray<KDRShapeArray, KDRShape>();
    expectNoComplaintOfArray<KDRVariantArray, KDRVariant>();
    auto const texts = [] { return PayloadOf<KDRStringArray>::make(3); };
    expectNoComplaint<KDRStringArray>(
        texts, {{"indexOf", [](KDRStringArray& a, int n) { a.indexOf(part, n); }},
                {"indexOf an expression",
                 [](KDRStringArray& a, int n) { a.indexOf(KDRRegExp(part), n); }}});
}

TEST(HostileSizes, OfImages)
{
    constexpr auto u8 = KDRImage::DataTypeUInt8;
    constexpr auto f64 = KDRImage::DataTypeFloat64;
    auto const make = [] { return PayloadOf<KDRImage>::make(3); };
    expectNoComplaint<KDRImage>(
        make, {{"width", [](KDRImage& i, int n) { i.GenImageExt(nullptr, n, 2, 1, 0, u8); }},
               {"height", [](KDRImage& i, int n) { i.GenImageExt(nullptr, 2, n, 3, 0, f64); }},
               {"both", [](KDRImage& i, int n) { i.GenImageExt(nullptr, n, n, 4, 0, f64); }},
               {"channels", [](KDRImage& i, int n) { i.GenImageExt(nullptr, 2, 2, n, 0, u8); }},
               {"step", [](KDRImage& i, int n) { i.GenImageExt(nullptr, 2, 2, 1, n, u8); }},
               {"all", [](KDRImage& i, int n) { i.GenImageExt(nullptr, n, n, n, n, u8); }},
               {"type",
                [](KDRImage& i, int n) {
                    i.GenImageExt(nullptr, 2, 2, 1, 0, static_cast<KDRImage::DataType>(n));
                }},
               {"constructor",
                [](KDRImage&, int n) { KDRImage(nullptr, n, n, 1, 0, KDRImage::DataTypeUInt8); }},
               {"save", [](KDRImage& i, int n) { i.save(KDRString("/nowhere/at/all.png"), n); }}});
}

TEST(HostileSizes, OfMatrices)
{
    constexpr auto f64 = KDRMatrix::MatrixTypeFloat64;
    auto const make = [] { return PayloadOf<KDRMatrix>::make(3); };
    expectNoComplaint<KDRMatrix>(
        make, {{"constructor", [](KDRMatrix&, int n) { KDRMatrix(n, n, f64); }},
               {"rows", [](KDRMatrix& m, int n) { m.setMatrix(n, 2, f64); }},
               {"columns", [](KDRMatrix& m, int n) { m.setMatrix(2, n, f64); }},
               {"both", [](KDRMatrix& m, int n) { m.setMatrix(n, n, f64); }},
               {"type", [](KDRMatrix& m,
                           int n) { m.setMatrix(2, 2, static_cast<KDRMatrix::KDRMatrixType>(n)); }},
               {"select",
                [](KDRMatrix& m, int n) {
                    KDRNumber number;
                    m.select(n, 0, &number);
                    m.select(0, n, &number);
                    m.select(n, n, &number);
                }},
               {"replace",
                [](KDRMatrix& m, int n) {
                    KDRNumber number(5);
                    m.replace(n, 0, number);
                    m.replace(0, n, number);
                }},
               {"getRowData", [](KDRMatrix& m, int n) {
                    KDRNumberArray numbers;
                    m.getRowData(n, &numbers);
                    m.getColData(n, &numbers);
                }}});
}

TEST(HostileSizes, OfRegionsAndFigures)
{
    auto const numbers = [](std::initializer_list<int> values) {
        KDRNumberArray made;
        for (int const value : values)
            made.push_back(KDRNumber(value));
        return made;
    };
    static KDRNumberArray const plain = numbers({1, 2, 3});
    auto const region = [] {
        KDRNumberArray rows(plain);
        KDRRegion made;
        made.fromRunLengthEncodeing(rows, rows, rows, 5, 5);
        return made;
    };
    expectNoComplaint<KDRRegion>(region, {{"width",
                                           [](KDRRegion& r, int n) {
                                               KDRNumberArray rows(plain);
                                               r.fromRunLengthEncodeing(rows, rows, rows, n, 5);
                                           }},
                                          {"height",
                                           [](KDRRegion& r, int n) {
                                               KDRNumberArray rows(plain);
                                               r.fromRunLengthEncodeing(rows, rows, rows, 5, n);
                                           }},
                                          {"runs", [](KDRRegion& r, int n) {
                                               KDRNumberArray rows(plain);
                                               KDRNumberArray ends(plain);
                                               rows.push_back(KDRNumber(n));
                                               ends.push_back(KDRNumber(INT_MAX));
                                               r.fromRunLengthEncodeing(rows, rows, ends, n, n);
                                               KDRRegionArray both;
                                               both.push_back(r);
                                               both.push_back(r);
                                               both.toUnionedRegion(&r);
                                           }}});

    auto const figure = [] { return PayloadOf<KDRShape>::make(3); };
    expectNoComplaint<KDRShape>(
        figure, {{"cells of rectangles",
                  [](KDRShape& s, int n) {
                      KDRPointArray centres = PayloadOf<KDRPointArray>::make(3);
                      s.fromRect2Matrix(centres, 1.0, 2.0, 3.0, n);
                      ShapeValues out;
                      s.toRect2Matrix(&out.cells, &out.points, &out.a, &out.b, &out.c, &out.count);
                  }},
                 {"cells of circles", [](KDRShape& s, int n) {
                      KDRPointArray centres = PayloadOf<KDRPointArray>::make(3);
                      s.fromCircleMatrix(centres, 1.0, 2.0, n);
                      ShapeValues out;
                      s.toCircleMatrix(&out.cells, &out.points, &out.a, &out.b, &out.count);
                  }}});
}

// A record tells its own length; this one has no more bytes than the header.
TEST(HostileSizes, OfModelRecords)
{
    auto const make = [] { return KDRMatchModel(); };
    expectNoComplaint<KDRMatchModel>(make, {{"SetData", [](KDRMatchModel& m, int n) {
                                                 unsigned char record[16] = {'V', 'M', 'M', '1'};
                                                 // Only what is refused before it is read.
                                                 long long const length =
                                                     n > 0 ? (1LL << 31) + n : 0;
                                                 std::memcpy(record + 8, &length, sizeof length);
                                                 m.SetData(record);
                                             }}});
}

TEST(HostileSizes, OfChunksAndEnumerations)
{
    auto const value = [] { return KDREnum(); };
    expectNoComplaint<KDREnum>(value, {{"setCurrentVal", [](KDREnum& e, int n) {
                                            e.setCurrentVal(n);
                                            e.currentValStr();
                                        }}});
    EXPECT_EQ(
        complaintOf([] { return 0; },
                    [](int, int n) { KDRChunkData(nullptr, static_cast<unsigned long long>(n)); }),
        "");
}

// The witness: the watch sees what it is there to see.
TEST(HostileSizes, AreWatchedFor)
{
    auto const make = [] { return KDRString("text"); };
    EXPECT_NE(complaintOf(make, [](KDRString&, int n) { n == 2 ? std::abort() : void(); }), "");
    EXPECT_NE(complaintOf(make, [](KDRString&, int) { throw 5; }), "");
    EXPECT_NE(complaintOf(make,
                          [](KDRString& s, int) {
                              s = "other";
                              throw std::bad_alloc();
                          }),
              "");
    EXPECT_EQ(complaintOf(make, [](KDRString&, int) { throw std::bad_alloc(); }), "");
    EXPECT_EQ(
        complaintOf(make, [](KDRString&, int) { static_cast<void>(std::string(1UL << 31, 'x')); }),
        "");
}

} // namespace
