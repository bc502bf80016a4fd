#ifndef KDRDATA_TESTS_SAMPLES_H
#define KDRDATA_TESTS_SAMPLES_H

#include <kdrdata/kdrdata.h>

#include <array>
#include <functional>
#include <tuple>
#include <utility>
#include <vector>

#include "../variant/payloads.h"
#include "../vision/shapetable.h"

/// For each class whose copies are independent: a value to start from, and every kind of change.
/// A change takes a number, so that the same one can be made with different outcomes.
template <class Value>
struct Sample
{
    char const* name;
    Value (*make)();
    std::vector<std::pair<char const*, void (*)(Value&, int)>> changes;
};

namespace samples {

inline KDRString text(int n) { return KDRString("text number %1").arg(n); }
inline KDRBuffer bytes(int n) { return text(n).toUtf8(); }

inline KDRNumberArray numbers(int n)
{
    KDRNumberArray made;
    for (int i = 0; i < 3; ++i)
        made.push_back(KDRNumber(n + i));
    return made;
}

inline KDRStringArray texts(int n)
{
    KDRStringArray made;
    for (int i = 0; i < 3; ++i)
        made.push_back(text(n + i));
    return made;
}

inline KDRPointArray points(int n)
{
    KDRPointArray made;
    for (int i = 0; i < 3; ++i)
        made.push_back(KDRPoint(n + i, n * i));
    return made;
}

inline KDRRegion region(int n)
{
    KDRNumberArray rows = numbers(n);
    KDRRegion made;
    made.fromRunLengthEncodeing(rows, rows, rows, n + 10, n + 20);
    return made;
}

inline KDREnum enumeration(int n)
{
    KDREnum made(texts(n), numbers(n));
    made.setCurrentVal(n + 1);
    return made;
}

} // namespace samples

template <>
struct PayloadOf<KDRVariant>
{
    static KDRVariant make(int n) { return KDRVariant(n); }
};

template <>
struct PayloadOf<KDREnum>
{
    static KDREnum make(int n) { return samples::enumeration(n); }
};

template <>
struct PayloadOf<KDRRegion>
{
    static KDRRegion make(int n) { return samples::region(n); }
};

namespace samples {

/// The changes that all arrays have.
template <class Array, class Element>
Sample<Array> ofArray(char const* name)
{
    return {name,
            [] {
                Array made;
                for (int i = 1; i <= 4; ++i)
                    made.push_back(PayloadOf<Element>::make(i));
                return made;
            },
            {{"push_back", [](Array& a, int n) { a.push_back(PayloadOf<Element>::make(n)); }},
             {"push_back of an array", [](Array& a, int) { a.push_back(a); }},
             {"insert", [](Array& a, int n) { a.insert(0, PayloadOf<Element>::make(n)); }},
             {"replace", [](Array& a, int n) { a.replace(0, PayloadOf<Element>::make(n)); }},
             {"removeAt", [](Array& a, int) { a.removeAt(0); }},
             {"swap", [](Array& a, int) { a.swap(0, a.length() - 1); }},
             {"clear", [](Array& a, int) { a.clear(); }}}};
}

inline Sample<KDRString> const strings{
    "KDRString",
    [] { return KDRString("some text of words"); },
    {{"= C text", [](KDRString& s, int) { s = "other"; }},
     {"= buffer", [](KDRString& s, int n) { s = bytes(n); }},
     {"fromLatin1", [](KDRString& s, int) { s.fromLatin1("latin"); }},
     {"fromUtf8", [](KDRString& s, int) { s.fromUtf8("utf"); }},
     {"truncate", [](KDRString& s, int n) { s.truncate(n % 4); }},
     {"insert", [](KDRString& s, int n) { s.insert(n % 3, text(n)); }},
     {"push_back", [](KDRString& s, int n) { s.push_back(text(n)); }},
     {"push_front", [](KDRString& s, int n) { s.push_front(text(n)); }},
     {"remove", [](KDRString& s, int) { s.remove(1, 3); }},
     {"remove a text", [](KDRString& s, int) { s.remove(KDRString("e")); }},
     {"remove an expression", [](KDRString& s, int) { s.remove(KDRRegExp(KDRString("[aeou]"))); }},
     {"replace", [](KDRString& s, int n) { s.replace(0, 2, text(n)); }},
     {"replace all", [](KDRString& s, int) { s.replace(KDRString("t"), KDRString("T")); }},
     {"replace an expression",
      [](KDRString& s, int) { s.replace(KDRRegExp(KDRString("[aeou]")), KDRString("_")); }},
     {"setNum", [](KDRString& s, int n) { s.setNum(n); }},
     {"swap", [](KDRString& s, int n) {
          KDRString other = text(n);
          s.swap(other);
      }}}};

inline Sample<KDRBuffer> const buffers{
    "KDRBuffer",
    [] { return KDRBuffer("some bytes of words"); },
    {{"= C text", [](KDRBuffer& b, int) { b = "other"; }},
     {"setRawData",
      [](KDRBuffer& b, int n) { b.setRawData("raw bytes", static_cast<unsigned int>(n % 5 + 1)); }},
     {"data", [](KDRBuffer& b, int n) { b.data()[0] = static_cast<char>('a' + n % 26); }},
     {"append", [](KDRBuffer& b, int n) { b.append(bytes(n)); }},
     {"append own bytes", [](KDRBuffer& b, int) { b.append(b.constData(), b.size() / 2); }},
     {"append many", [](KDRBuffer& b, int n) { b.append(n % 5 + 1, 'x'); }},
     {"prepend", [](KDRBuffer& b, int n) { b.prepend(bytes(n)); }},
     {"prepend a byte", [](KDRBuffer& b, int) { b.prepend('x'); }},
     {"insert", [](KDRBuffer& b, int n) { b.insert(0, bytes(n)); }},
     {"remove", [](KDRBuffer& b, int) { b.remove(0, 2); }},
     {"replace", [](KDRBuffer& b, int n) { b.replace(0, 2, bytes(n)); }},
     {"replace a byte", [](KDRBuffer& b, int) { b.replace('e', 'E'); }},
     {"replace all", [](KDRBuffer& b, int) { b.replace("s", "SS"); }},
     {"fill", [](KDRBuffer& b, int) { b.fill('f'); }},
     {"chop", [](KDRBuffer& b, int) { b.chop(2); }},
     {"truncate", [](KDRBuffer& b, int) { b.truncate(2); }},
     {"resize", [](KDRBuffer& b, int) { b.resize(1); }},
     {"clear", [](KDRBuffer& b, int) { b.clear(); }},
     {"swap", [](KDRBuffer& b, int n) {
          KDRBuffer other = bytes(n);
          b.swap(other);
      }}}};

inline Sample<KDRChar> const characters{
    "KDRChar", [] { return KDRChar('a'); }, {{"unicode", [](KDRChar& c, int n) {
                                                  c.unicode() =
                                                      static_cast<unsigned short>('b' + n % 20);
                                              }}}};

inline Sample<KDRRegExp> const expressions{
    "KDRRegExp",
    [] {
        KDRRegExp made(KDRString("(t[a-z]+)|([0-9]+)"));
        made.indexIn(KDRString("some text, 12 words"));
        return made;
    },
    {{"setPattern",
      [](KDRRegExp& r, int n) {
          r.setPattern(text(n));
          r.indexIn(text(n));
      }},
     {"setMinimal", [](KDRRegExp& r, int) { r.setMinimal(!r.isMinimal()); }},
     {"setCaseSensitivity",
      [](KDRRegExp& r, int) {
          r.setCaseSensitivity(KDRRegExp::KDRCaseInsensitive);
          r.indexIn(KDRString("TEXT"));
      }},
     {"setPatternSyntax",
      [](KDRRegExp& r, int) {
          r.setPatternSyntax(KDRRegExp::KDRFixedStringSyntax);
          r.indexIn(KDRString("nothing"));
      }},
     {"indexIn", [](KDRRegExp& r, int n) { r.indexIn(text(n)); }},
     {"lastIndexIn", [](KDRRegExp& r, int n) { r.lastIndexIn(text(n)); }},
     {"exactMatch", [](KDRRegExp& r, int n) { r.exactMatch(text(n)); }},
     {"swap", [](KDRRegExp& r, int n) {
          KDRRegExp other(text(n));
          other.indexIn(text(n));
          r.swap(other);
      }}}};

inline Sample<KDRNumber> const singleNumbers{
    "KDRNumber",
    [] { return KDRNumber(2.5); },
    {{"fromInt", [](KDRNumber& value, int n) { value.fromInt(n); }},
     {"fromLong", [](KDRNumber& value, int n) { value.fromLong(n); }},
     {"fromLongLong", [](KDRNumber& value, int n) { value.fromLongLong(n); }},
     {"fromFloat", [](KDRNumber& value, int n) { value.fromFloat(static_cast<float>(n)); }},
     {"fromDouble", [](KDRNumber& value, int n) { value.fromDouble(n + 0.5); }},
     {"setMaxValue", [](KDRNumber& value, int n) { value.setMaxValue(n + 1000.0); }},
     {"setMinValue", [](KDRNumber& value, int n) { value.setMinValue(n - 1000.0); }}}};

inline Sample<KDREnum> const enumerations{
    "KDREnum",
    [] { return enumeration(1); },
    {{"setCurrentVal", [](KDREnum& e, int n) { e.setCurrentVal(n); }},
     {"setCurrentValStr", [](KDREnum& e, int) { e.setCurrentValStr(text(1)); }},
     {"setEnumInf", [](KDREnum& e, int n) { e.setEnumInf(numbers(n), texts(n)); }}}};

inline Sample<KDRPoint> const singlePoints{
    "KDRPoint",
    [] { return KDRPoint(1.0, 2.0); },
    {{"setX", [](KDRPoint& p, int n) { p.setX(n); }},
     {"setY", [](KDRPoint& p, int n) { p.setY(n); }},
     {"setXMaxVal", [](KDRPoint& p, int n) { p.setXMaxVal(n); }},
     {"setXMinVal", [](KDRPoint& p, int n) { p.setXMinVal(n); }},
     {"setXStepVal", [](KDRPoint& p, int n) { p.setXStepVal(n); }},
     {"setYMaxVal", [](KDRPoint& p, int n) { p.setYMaxVal(n); }},
     {"setYMinVal", [](KDRPoint& p, int n) { p.setYMinVal(n); }},
     {"setYStepVal", [](KDRPoint& p, int n) { p.setYStepVal(n); }}}};

inline Sample<KDRFont> const fonts{
    "KDRFont",
    [] { return KDRFont(); },
    {{"setFaceName", [](KDRFont& f, int n) { f.setFaceName(text(n)); }},
     {"setSize", [](KDRFont& f, int n) { f.setSize(n); }},
     {"setWeight", [](KDRFont& f, int n) { f.setWeight(n); }},
     {"setBold", [](KDRFont& f, int) { f.setBold(!f.bold()); }},
     {"setItalic", [](KDRFont& f, int n) { f.setItalic(static_cast<unsigned char>(n)); }},
     {"setUnderline", [](KDRFont& f, int n) { f.setUnderline(static_cast<unsigned char>(n)); }},
     {"setStrikeOut", [](KDRFont& f, int n) { f.setStrikeOut(static_cast<unsigned char>(n)); }}}};

inline Sample<KDRContour> const contours{"KDRContour",
                                         [] { return PayloadOf<KDRContour>::make(1); },
                                         {{"FromPointArray", [](KDRContour& c, int n) {
                                               KDRPointArray list = points(n);
                                               c.FromPointArray(list);
                                           }}}};

inline Sample<KDRMatrix> const matrices{
    "KDRMatrix",
    [] { return KDRMatrix(2, 2, KDRMatrix::MatrixTypeFloat64); },
    {{"replace",
      [](KDRMatrix& m, int n) {
          KDRNumber value(n);
          m.replace(0, 0, value);
      }},
     {"setMatrix", [](KDRMatrix& m, int n) { m.setMatrix(n % 5 + 1, 2, m.MatrixTypeInt32); }},
     {"dataPtr", [](KDRMatrix& m, int n) {
          if (m.rows() > 0)
              *static_cast<unsigned char*>(m.dataPtr()) = static_cast<unsigned char>(n + 1);
      }}}};

inline Sample<KDRRegion> const regions{"KDRRegion",
                                       [] { return region(1); },
                                       {{"fromRunLengthEncodeing", [](KDRRegion& r, int n) {
                                             KDRNumberArray rows = numbers(n + 1);
                                             r.fromRunLengthEncodeing(rows, rows, rows, n + 30, 5);
                                         }}}};

inline Sample<KDRROIAlignment> const alignments{"KDRROIAlignment",
                                                [] { return PayloadOf<KDRROIAlignment>::make(1); },
                                                {{"fromMatrixArray", [](KDRROIAlignment& a, int n) {
                                                      KDRMatrixArray list =
                                                          PayloadOf<KDRMatrixArray>::make(n + 2);
                                                      a.fromMatrixArray(list);
                                                  }}}};

inline Sample<KDRMatchModel> const models{"KDRMatchModel",
                                          [] { return KDRMatchModel(); },
                                          {{"SetData", [](KDRMatchModel& m, int n) {
                                                std::array<unsigned char, 17> record{
                                                    'V', 'M', 'M', '1', 7, 0, 0, 0, 1};
                                                record[4] = static_cast<unsigned char>(n + 1);
                                                m.SetData(record.data());
                                            }}}};

/// All samples.
inline auto all()
{
    return std::make_tuple(strings, buffers, characters, expressions, singleNumbers, enumerations,
                           singlePoints, fonts, contours, matrices, regions, alignments, models,
                           ofArray<KDRStringArray, KDRString>("KDRStringArray"),
                           ofArray<KDRBufferArray, KDRBuffer>("KDRBufferArray"),
                           ofArray<KDRBoolArray, bool>("KDRBoolArray"),
                           ofArray<KDRNumberArray, KDRNumber>("KDRNumberArray"),
                           ofArray<KDREnumArray, KDREnum>("KDREnumArray"),
                           ofArray<KDRPointArray, KDRPoint>("KDRPointArray"),
                           ofArray<KDRContourArray, KDRContour>("KDRContourArray"),
                           ofArray<KDRImageArray, KDRImage>("KDRImageArray"),
                           ofArray<KDRMatrixArray, KDRMatrix>("KDRMatrixArray"),
                           ofArray<KDRRegionArray, KDRRegion>("KDRRegionArray"),
                           ofArray<KDRShapeArray, KDRShape>("KDRShapeArray"),
                           ofArray<KDRVariantArray, KDRVariant>("KDRVariantArray"));
}

} // namespace samples

#endif
