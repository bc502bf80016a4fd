// Numbers, choices, flags and colours. See signatures.h.

#include <kdrdata/kdrdata.h>

#include "signatures.h"

MADE_FROM(KDRBoolArray);
MADE_FROM(KDRBoolArray, KDRBoolArray const&);
MEMBER(KDRBoolArray, KDRBoolArray&, operator=, (KDRBoolArray const&));
MEMBER(KDRBoolArray, int, length, () const);
MEMBER(KDRBoolArray, void, push_back, (bool const&));
MEMBER(KDRBoolArray, void, push_back, (KDRBoolArray const&));
MEMBER(KDRBoolArray, bool, insert, (int, bool const&));
MEMBER(KDRBoolArray, bool, removeAt, (int));
MEMBER(KDRBoolArray, bool, replace, (int, bool const&));
MEMBER(KDRBoolArray, bool, select, (int, bool*) const);
MEMBER(KDRBoolArray, bool, swap, (int, int));
MEMBER(KDRBoolArray, void, clear, ());
MEMBER(KDRBoolArray, bool&, operator[], (int));
MEMBER(KDRBoolArray, bool, operator[], (int) const);

MADE_FROM(KDRColor);
MADE_FROM(KDRColor, int, int, int, int);
MADE_FROM(KDRColor, KDRColor const&);
MEMBER(KDRColor, KDRColor&, operator=, (KDRColor const&));
MEMBER(KDRColor, int, getRed, () const);
MEMBER(KDRColor, int, getGreen, () const);
MEMBER(KDRColor, int, getBlue, () const);
MEMBER(KDRColor, int, getAlpha, () const);

MADE_FROM(KDRColorArray);
MADE_FROM(KDRColorArray, void*, int, int);
MADE_FROM(KDRColorArray, void*, int, int, int);
MADE_FROM(KDRColorArray, KDRColorArray const&);
MEMBER(KDRColorArray, KDRColorArray&, operator=, (KDRColorArray const&));
MEMBER(KDRColorArray, void, setSize, (int, int, int));
MEMBER(KDRColorArray, void, setColor, (int));
MEMBER(KDRColorArray, void, append, (KDRColorArray const&));
MEMBER(KDRColorArray, void, create, (int, int));
MEMBER(KDRColorArray, void, clear, ());
MEMBER(KDRColorArray, bool, setValue, (void*, int, int, int));
MEMBER(KDRColorArray, bool, createColorArray, (void*, int, int, int));
MEMBER(KDRColorArray, int, width, () const);
MEMBER(KDRColorArray, int, height, () const);
MEMBER(KDRColorArray, int, length, () const);
MEMBER(KDRColorArray, int, channel, () const);
MEMBER(KDRColorArray, void*, Data, () const);
MEMBER(KDRColorArray, bool, replace, (int, KDRColor&));
MEMBER(KDRColorArray, bool, select, (int, KDRColor*) const);
MEMBER(KDRColorArray, KDRColor, operator[], (int) const);
MEMBER(KDRColorArray, KDRColorArray, deepCopy, ());

MADE_FROM(KDREnum);
MADE_FROM(KDREnum, KDRStringArray const&, KDRNumberArray const&);
MADE_FROM(KDREnum, KDREnum const&);
MEMBER(KDREnum, KDREnum&, operator=, (KDREnum const&));
MEMBER(KDREnum, void, setCurrentVal, (int));
MEMBER(KDREnum, int, currentVal, () const);
MEMBER(KDREnum, void, setCurrentValStr, (KDRString const&));
MEMBER(KDREnum, KDRString, currentValStr, () const);
MEMBER(KDREnum, void, setEnumInf, (KDRNumberArray const&, KDRStringArray const&));
MEMBER(KDREnum, void, getEnumStringList, (KDRStringArray&));
MEMBER(KDREnum, void, getEnumIndexList, (KDRNumberArray&));

MADE_FROM(KDREnumArray);
MADE_FROM(KDREnumArray, KDREnumArray const&);
MEMBER(KDREnumArray, KDREnumArray&, operator=, (KDREnumArray const&));
MEMBER(KDREnumArray, int, length, () const);
MEMBER(KDREnumArray, void, push_back, (KDREnum const&));
MEMBER(KDREnumArray, void, push_back, (KDREnumArray const&));
MEMBER(KDREnumArray, bool, insert, (int, KDREnum const&));
MEMBER(KDREnumArray, bool, removeAt, (int));
MEMBER(KDREnumArray, bool, replace, (int, KDREnum const&));
MEMBER(KDREnumArray, bool, select, (int, KDREnum*) const);
MEMBER(KDREnumArray, bool, swap, (int, int));
MEMBER(KDREnumArray, void, clear, ());
MEMBER(KDREnumArray, KDREnum, operator[], (int) const);

MADE_FROM(KDREnumPrivate);
MADE_FROM(KDREnumPrivate, KDREnumPrivate const&);
MEMBER(KDREnumPrivate, KDREnumPrivate&, operator=, (KDREnumPrivate const&));

MADE_FROM(KDRNumber);
MADE_FROM(KDRNumber, int);
MADE_FROM(KDRNumber, long);
MADE_FROM(KDRNumber, long long);
MADE_FROM(KDRNumber, float);
MADE_FROM(KDRNumber, double);
MADE_FROM(KDRNumber, KDRNumber const&);
MEMBER(KDRNumber, KDRNumber&, operator=, (KDRNumber const&));
MEMBER(KDRNumber, void, fromInt, (int));
MEMBER(KDRNumber, void, fromLong, (long));
MEMBER(KDRNumber, void, fromLongLong, (long long));
MEMBER(KDRNumber, void, fromFloat, (float));
MEMBER(KDRNumber, void, fromDouble, (double));
MEMBER(KDRNumber, int, toInt, () const);
MEMBER(KDRNumber, long, toLong, () const);
MEMBER(KDRNumber, long long, toLongLong, () const);
MEMBER(KDRNumber, float, toFloat, () const);
MEMBER(KDRNumber, double, toDouble, () const);
MEMBER(KDRNumber, int, numType, ());
MEMBER(KDRNumber, void, setMaxValue, (double));
MEMBER(KDRNumber, double, maxValue, () const);
MEMBER(KDRNumber, void, setMinValue, (double));
MEMBER(KDRNumber, double, minValue, () const);
MEMBER(KDRNumber, void, setStep, (double));
MEMBER(KDRNumber, double, step, () const);

MADE_FROM(KDRNumberArray);
MADE_FROM(KDRNumberArray, KDRNumberArray const&);
MEMBER(KDRNumberArray, KDRNumberArray&, operator=, (KDRNumberArray const&));
MEMBER(KDRNumberArray, int, length, () const);
MEMBER(KDRNumberArray, void, push_back, (KDRNumber const&));
MEMBER(KDRNumberArray, void, push_back, (KDRNumberArray const&));
MEMBER(KDRNumberArray, bool, insert, (int, KDRNumber const&));
MEMBER(KDRNumberArray, bool, removeAt, (int));
MEMBER(KDRNumberArray, bool, replace, (int, KDRNumber const&));
MEMBER(KDRNumberArray, bool, select, (int, KDRNumber*) const);
MEMBER(KDRNumberArray, bool, swap, (int, int));
MEMBER(KDRNumberArray, void, clear, ());
MEMBER(KDRNumberArray, KDRNumber, operator[], (int) const);
