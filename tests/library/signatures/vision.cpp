// Figures, points, outlines, pixels and the small records. See signatures.h.

#include <kdrdata/kdrdata.h>

#include "signatures.h"

MADE_FROM(DataConvert);
MEMBER(DataConvert, int, ShapeToROI, (KDRShape&, VelROI*));
MEMBER(DataConvert, int, ROIToShape, (VelROI&, KDRShape*));
MEMBER(DataConvert, int, ShapeToVel3DShape, (KDRShape&, Vel3DShape*));
MEMBER(DataConvert, int, Vel3dShapeToShape, (Vel3DShape&, KDRShape*));

MADE_FROM(KDRChunkData);
MADE_FROM(KDRChunkData, KDRChunkData const&);
MADE_FROM(KDRChunkData, unsigned char const*, unsigned long long);
MEMBER(KDRChunkData, KDRChunkData&, operator=, (KDRChunkData const&));
MEMBER(KDRChunkData, bool, operator==, (KDRChunkData const&) const);
MEMBER(KDRChunkData, bool, operator!=, (KDRChunkData const&) const);
MEMBER(KDRChunkData, unsigned char, operator[], (int) const);
MEMBER(KDRChunkData, unsigned char&, operator[], (int));
MEMBER(KDRChunkData, unsigned long long, getLength, () const);
MEMBER(KDRChunkData, unsigned char const*, getData, () const);
MEMBER(KDRChunkData, void, setData, (unsigned long long, unsigned char const*));

MADE_FROM(KDRContour);
MADE_FROM(KDRContour, KDRContour const&);
MEMBER(KDRContour, KDRContour&, operator=, (KDRContour const&));
MEMBER(KDRContour, void, ToPointArray, (KDRPointArray*) const);
MEMBER(KDRContour, void, FromPointArray, (KDRPointArray&));
MEMBER(KDRContour, int, length, () const);
MEMBER(KDRContour, double, perimeter, () const);
MEMBER(KDRContour, double, area, () const);

MADE_FROM(KDRContourArray);
MADE_FROM(KDRContourArray, KDRContourArray const&);
MEMBER(KDRContourArray, KDRContourArray&, operator=, (KDRContourArray const&));
MEMBER(KDRContourArray, int, length, () const);
MEMBER(KDRContourArray, void, push_back, (KDRContour const&));
MEMBER(KDRContourArray, void, push_back, (KDRContourArray const&));
MEMBER(KDRContourArray, bool, removeAt, (int));
MEMBER(KDRContourArray, bool, select, (int, KDRContour*) const);
MEMBER(KDRContourArray, bool, replace, (int, KDRContour const&));
MEMBER(KDRContourArray, bool, insert, (int, KDRContour const&));
MEMBER(KDRContourArray, void, clear, ());
MEMBER(KDRContourArray, bool, swap, (int, int));
MEMBER(KDRContourArray, KDRContour, operator[], (int) const);

MADE_FROM(KDRFont);
MADE_FROM(KDRFont, KDRFont const&);
MEMBER(KDRFont, KDRFont&, operator=, (KDRFont const&));
MEMBER(KDRFont, KDRString, faceName, ());
MEMBER(KDRFont, void, setFaceName, (KDRString const&));
MEMBER(KDRFont, long, size, ());
MEMBER(KDRFont, void, setSize, (long));
MEMBER(KDRFont, long, weight, ());
MEMBER(KDRFont, void, setWeight, (long));
MEMBER(KDRFont, bool, bold, ());
MEMBER(KDRFont, void, setBold, (bool));
MEMBER(KDRFont, unsigned char, italic, ());
MEMBER(KDRFont, void, setItalic, (unsigned char));
MEMBER(KDRFont, unsigned char, underline, ());
MEMBER(KDRFont, void, setUnderline, (unsigned char));
MEMBER(KDRFont, unsigned char, strikeOut, ());
MEMBER(KDRFont, void, setStrikeOut, (unsigned char));

MADE_FROM(KDRImage);
MADE_FROM(KDRImage, KDRImage const&);
MADE_FROM(KDRImage, void*, int, int, int, int, KDRImage::DataType);
MEMBER(KDRImage, KDRImage&, operator=, (KDRImage const&));
MEMBER(KDRImage, int, GenImageExt, (void*, int, int, int, int, KDRImage::DataType));
MEMBER(KDRImage, KDRImage, clone, ());
MEMBER(KDRImage, int, width, () const);
MEMBER(KDRImage, int, height, () const);
MEMBER(KDRImage, int, step, () const);
MEMBER(KDRImage, int, channel, () const);
MEMBER(KDRImage, int, depth, () const);
MEMBER(KDRImage, KDRImage::DataType, dataType, () const);
MEMBER(KDRImage, unsigned char*, dataPtr, () const);
MEMBER(KDRImage, int, read, (KDRString const&));
MEMBER(KDRImage, int, save, (KDRString const&));
MEMBER(KDRImage, int, save, (KDRString const&, int));

MADE_FROM(KDRImageArray);
MADE_FROM(KDRImageArray, KDRImageArray const&);
MEMBER(KDRImageArray, KDRImageArray&, operator=, (KDRImageArray const&));
MEMBER(KDRImageArray, int, length, () const);
MEMBER(KDRImageArray, void, push_back, (KDRImage const&));
MEMBER(KDRImageArray, void, push_back, (KDRImageArray const&));
MEMBER(KDRImageArray, bool, removeAt, (int));
MEMBER(KDRImageArray, bool, select, (int, KDRImage*) const);
MEMBER(KDRImageArray, bool, replace, (int, KDRImage const&));
MEMBER(KDRImageArray, bool, insert, (int, KDRImage const&));
MEMBER(KDRImageArray, void, clear, ());
MEMBER(KDRImageArray, bool, swap, (int, int));
MEMBER(KDRImageArray, KDRImage, operator[], (int) const);

MADE_FROM(KDRMatchModel);
MADE_FROM(KDRMatchModel, KDRMatchModel const&);
MEMBER(KDRMatchModel, KDRMatchModel&, operator=, (KDRMatchModel const&));
MEMBER(KDRMatchModel, KDRMatchModel&, operator=, (KDRMatchModel &&));
MEMBER(KDRMatchModel, int, ModelType, () const);
MEMBER(KDRMatchModel, unsigned long long, GetLenth, () const);
MEMBER(KDRMatchModel, int, GetData, (unsigned char*) const);
MEMBER(KDRMatchModel, int, SetData, (unsigned char*));

MADE_FROM(KDRMatrix);
MADE_FROM(KDRMatrix, int, int, KDRMatrix::KDRMatrixType);
MADE_FROM(KDRMatrix, KDRMatrix const&);
MEMBER(KDRMatrix, KDRMatrix&, operator=, (KDRMatrix const&));
MEMBER(KDRMatrix, int, setMatrix, (int, int, KDRMatrix::KDRMatrixType));
MEMBER(KDRMatrix, int, rows, () const);
MEMBER(KDRMatrix, int, cols, () const);
MEMBER(KDRMatrix, KDRMatrix::KDRMatrixType, type, () const);
MEMBER(KDRMatrix, void*, dataPtr, ());
MEMBER(KDRMatrix, bool, select, (int, int, KDRNumber*) const);
MEMBER(KDRMatrix, bool, replace, (int, int, KDRNumber&));
MEMBER(KDRMatrix, bool, getRowData, (int, KDRNumberArray*));
MEMBER(KDRMatrix, bool, getColData, (int, KDRNumberArray*));

MADE_FROM(KDRMatrixArray);
MADE_FROM(KDRMatrixArray, KDRMatrixArray const&);
MEMBER(KDRMatrixArray, KDRMatrixArray&, operator=, (KDRMatrixArray const&));
MEMBER(KDRMatrixArray, int, length, () const);
MEMBER(KDRMatrixArray, void, push_back, (KDRMatrix const&));
MEMBER(KDRMatrixArray, void, push_back, (KDRMatrixArray const&));
MEMBER(KDRMatrixArray, bool, removeAt, (int));
MEMBER(KDRMatrixArray, bool, select, (int, KDRMatrix*) const);
MEMBER(KDRMatrixArray, bool, replace, (int, KDRMatrix const&));
MEMBER(KDRMatrixArray, bool, insert, (int, KDRMatrix const&));
MEMBER(KDRMatrixArray, void, clear, ());
MEMBER(KDRMatrixArray, bool, swap, (int, int));
MEMBER(KDRMatrixArray, KDRMatrix, operator[], (int) const);

MADE_FROM(KDRPoint);
MADE_FROM(KDRPoint, double, double);
MADE_FROM(KDRPoint, KDRPoint const&);
MEMBER(KDRPoint, KDRPoint&, operator=, (KDRPoint const&));
MEMBER(KDRPoint, double, x, () const);
MEMBER(KDRPoint, double, y, () const);
MEMBER(KDRPoint, void, setX, (double));
MEMBER(KDRPoint, void, setY, (double));
MEMBER(KDRPoint, double, getXMaxVal, () const);
MEMBER(KDRPoint, void, setXMaxVal, (double));
MEMBER(KDRPoint, double, getXMinVal, () const);
MEMBER(KDRPoint, void, setXMinVal, (double));
MEMBER(KDRPoint, double, getXStepVal, () const);
MEMBER(KDRPoint, void, setXStepVal, (double));
MEMBER(KDRPoint, double, getYMaxVal, () const);
MEMBER(KDRPoint, void, setYMaxVal, (double));
MEMBER(KDRPoint, double, getYMinVal, () const);
MEMBER(KDRPoint, void, setYMinVal, (double));
MEMBER(KDRPoint, double, getYStepVal, () const);
MEMBER(KDRPoint, void, setYStepVal, (double));

MADE_FROM(KDRPointArray);
MADE_FROM(KDRPointArray, KDRPointArray const&);
MEMBER(KDRPointArray, KDRPointArray&, operator=, (KDRPointArray const&));
MEMBER(KDRPointArray, int, length, () const);
MEMBER(KDRPointArray, void, push_back, (KDRPoint const&));
MEMBER(KDRPointArray, void, push_back, (KDRPointArray const&));
MEMBER(KDRPointArray, bool, removeAt, (int));
MEMBER(KDRPointArray, bool, select, (int, KDRPoint*) const);
MEMBER(KDRPointArray, bool, replace, (int, KDRPoint const&));
MEMBER(KDRPointArray, bool, insert, (int, KDRPoint const&));
MEMBER(KDRPointArray, void, clear, ());
MEMBER(KDRPointArray, bool, swap, (int, int));
MEMBER(KDRPointArray, KDRPoint, operator[], (int) const);

MADE_FROM(KDRPointPrivate);
MADE_FROM(KDRPointPrivate, KDRPointPrivate const&);
MEMBER(KDRPointPrivate, KDRPointPrivate&, operator=, (KDRPointPrivate const&));
MEMBER(KDRPointPrivate, double, getXVal, () const);
MEMBER(KDRPointPrivate, void, setXVal, (double));
MEMBER(KDRPointPrivate, double, getYVal, () const);
MEMBER(KDRPointPrivate, void, setYVal, (double));
MEMBER(KDRPointPrivate, double, getXMaxVal, () const);
MEMBER(KDRPointPrivate, void, setXMaxVal, (double));
MEMBER(KDRPointPrivate, double, getXMinVal, () const);
MEMBER(KDRPointPrivate, void, setXMinVal, (double));
MEMBER(KDRPointPrivate, double, getXStepVal, () const);
MEMBER(KDRPointPrivate, void, setXStepVal, (double));
MEMBER(KDRPointPrivate, double, getYMaxVal, () const);
MEMBER(KDRPointPrivate, void, setYMaxVal, (double));
MEMBER(KDRPointPrivate, double, getYMinVal, () const);
MEMBER(KDRPointPrivate, void, setYMinVal, (double));
MEMBER(KDRPointPrivate, double, getYStepVal, () const);
MEMBER(KDRPointPrivate, void, setYStepVal, (double));

MADE_FROM(KDRRegion);
MADE_FROM(KDRRegion, KDRRegion const&);
MEMBER(KDRRegion, KDRRegion&, operator=, (KDRRegion const&));
MEMBER(KDRRegion, int, width, ());
MEMBER(KDRRegion, int, height, ());
MEMBER(KDRRegion, void, fromBinImage, (KDRImage&));
MEMBER(KDRRegion, bool, toBinImage, (KDRImage*));
MEMBER(KDRRegion, void, fromRunLengthEncodeing,
       (KDRNumberArray&, KDRNumberArray&, KDRNumberArray&, int, int));
MEMBER(KDRRegion, bool, toRunLengthEncodeing, (KDRNumberArray*, KDRNumberArray*, KDRNumberArray*));

MADE_FROM(KDRRegionArray);
MADE_FROM(KDRRegionArray, KDRRegionArray const&);
MEMBER(KDRRegionArray, KDRRegionArray&, operator=, (KDRRegionArray const&));
MEMBER(KDRRegionArray, int, length, () const);
MEMBER(KDRRegionArray, void, push_back, (KDRRegion const&));
MEMBER(KDRRegionArray, void, push_back, (KDRRegionArray const&));
MEMBER(KDRRegionArray, bool, removeAt, (int));
MEMBER(KDRRegionArray, bool, select, (int, KDRRegion*) const);
MEMBER(KDRRegionArray, bool, replace, (int, KDRRegion const&));
MEMBER(KDRRegionArray, bool, insert, (int, KDRRegion const&));
MEMBER(KDRRegionArray, void, clear, ());
MEMBER(KDRRegionArray, bool, swap, (int, int));
MEMBER(KDRRegionArray, KDRRegion, operator[], (int) const);
MEMBER(KDRRegionArray, void, toUnionedRegion, (KDRRegion*));

MADE_FROM(KDRROIAlignment);
MADE_FROM(KDRROIAlignment, KDRROIAlignment const&);
MEMBER(KDRROIAlignment, KDRROIAlignment&, operator=, (KDRROIAlignment const&));
MEMBER(KDRROIAlignment, bool, genAlignmentSequence,
       (KDRNumberArray&, KDRNumberArray&, KDRNumberArray&, KDRNumberArray&, KDRNumberArray&,
        KDRNumberArray&));
MEMBER(KDRROIAlignment, bool, genAlignmentSequence,
       (KDRPointArray&, KDRNumberArray&, KDRPointArray&, KDRNumberArray&));
MEMBER(KDRROIAlignment, void, toMatrixArray, (KDRMatrixArray*));
MEMBER(KDRROIAlignment, bool, fromMatrixArray, (KDRMatrixArray&));
MEMBER(KDRROIAlignment, bool, alignROI, (KDRShape&, KDRShapeArray*));

MADE_FROM(KDRShape);
MADE_FROM(KDRShape, KDRShape const&);
MEMBER(KDRShape, KDRShape&, operator=, (KDRShape const&));
MEMBER(KDRShape, unsigned int, shapeType, () const);
MEMBER(KDRShape, void, fromPoint, (KDRPoint&));
MEMBER(KDRShape, void, fromRect1, (KDRPoint&, KDRPoint&));
MEMBER(KDRShape, void, fromCircle, (KDRPoint&, double));
MEMBER(KDRShape, void, fromTorus, (KDRPoint&, double, double, double, double));
MEMBER(KDRShape, void, fromRect2, (KDRPoint&, double, double, double));
MEMBER(KDRShape, void, fromLine, (KDRPoint&, KDRPoint&));
MEMBER(KDRShape, void, fromEllipse, (KDRPoint&, double, double, double));
MEMBER(KDRShape, void, fromArc, (KDRPoint&, double, double, double));
MEMBER(KDRShape, void, fromPolygon, (KDRPointArray&));
MEMBER(KDRShape, void, fromIrregular, (KDRPointArray&));
MEMBER(KDRShape, void, fromIrregular, (KDRContour&));
MEMBER(KDRShape, void, fromRegion, (KDRRegion&));
MEMBER(KDRShape, void, fromText, (KDRPoint&, KDRString&, KDRFont&));
MEMBER(KDRShape, void, fromArrow, (KDRPoint&, KDRPoint&));
MEMBER(KDRShape, void, fromContours, (KDRContourArray&));
MEMBER(KDRShape, void, fromRect2Matrix, (KDRPointArray&, double, double, double, int));
MEMBER(KDRShape, void, fromCircleMatrix, (KDRPointArray&, double, double, int));
MEMBER(KDRShape, void, fromPolyLine, (KDRPointArray&));
MEMBER(KDRShape, void, fromCurveLine, (KDRPoint&, KDRPoint&, KDRPoint&));
MEMBER(KDRShape, void, fromAnyPolygon, (KDRPointArray&, KDRNumberArray&));
MEMBER(KDRShape, bool, toPoint, (KDRPoint*) const);
MEMBER(KDRShape, bool, toRect1, (KDRPoint*, KDRPoint*) const);
MEMBER(KDRShape, bool, toCircle, (KDRPoint*, double*) const);
MEMBER(KDRShape, bool, toTorus, (KDRPoint*, double*, double*, double*, double*) const);
MEMBER(KDRShape, bool, toRect2, (KDRPoint*, double*, double*, double*) const);
MEMBER(KDRShape, bool, toLine, (KDRPoint*, KDRPoint*) const);
MEMBER(KDRShape, bool, toEllipse, (KDRPoint*, double*, double*, double*) const);
MEMBER(KDRShape, bool, toArc, (KDRPoint*, double*, double*, double*) const);
MEMBER(KDRShape, bool, toPolygon, (KDRPointArray*) const);
MEMBER(KDRShape, bool, toIrregular, (KDRPointArray*) const);
MEMBER(KDRShape, bool, toIrregular, (KDRContour*) const);
MEMBER(KDRShape, bool, toRegion, (KDRRegion*) const);
MEMBER(KDRShape, bool, toText, (KDRPoint*, KDRString*, KDRFont*) const);
MEMBER(KDRShape, bool, toArrow, (KDRPoint*, KDRPoint*) const);
MEMBER(KDRShape, bool, toContours, (KDRContourArray*) const);
MEMBER(KDRShape, bool, toRect2Matrix,
       (KDRShapeArray*, KDRPointArray*, double*, double*, double*, int*) const);
MEMBER(KDRShape, bool, toCircleMatrix,
       (KDRShapeArray*, KDRPointArray*, double*, double*, int*) const);
MEMBER(KDRShape, bool, toPolyLine, (KDRPointArray*) const);
MEMBER(KDRShape, bool, toCurveLine, (KDRPoint*, KDRPoint*, KDRPoint*) const);
MEMBER(KDRShape, bool, toAnyPolygon, (KDRPointArray*, KDRNumberArray*) const);
MEMBER(KDRShape, void, from3DPoint, (KDRVector3d&));
MEMBER(KDRShape, void, from3DLine, (KDRVector3d&, KDRVector3d&));
MEMBER(KDRShape, void, from3DLineSegment, (KDRVector3d&, KDRVector3d&));
MEMBER(KDRShape, void, from3DCircle, (KDRVector3d&, KDRVector3d&, float));
MEMBER(KDRShape, void, from3DPlane, (KDRVector3d&, KDRVector3d&));
MEMBER(KDRShape, void, from3DEllipse, (KDRVector3d&, KDRVector3d&, float, float));
MEMBER(KDRShape, void, from3DRect, (KDRVector3d&, KDRVector3d&, float, float));
MEMBER(KDRShape, void, from3DAnnulus, (KDRVector3d&, KDRVector3d&, float, float, float, float));
MEMBER(KDRShape, void, from3DTorus, (KDRVector3d&, KDRVector3d&, float, float, float, float));
MEMBER(KDRShape, void, from3DArc, (KDRVector3d&, KDRVector3d&, float, float, float));
MEMBER(KDRShape, void, from3DTriangle, (KDRVector3d&, KDRVector3d&, KDRVector3d&));
MEMBER(KDRShape, void, from3DPolygon, (KDRVector3dArray&));
MEMBER(KDRShape, void, from3DBox, (KDRVector3d&, KDRVector3d&, KDRVector3d&));
MEMBER(KDRShape, void, from3DSphere, (KDRVector3d&, float));
MEMBER(KDRShape, void, from3DCylinder, (KDRVector3d&, KDRVector3d&, float, float));
MEMBER(KDRShape, void, from3DEllipsoid, (KDRVector3d&, KDRVector3d&, KDRVector3d&));
MEMBER(KDRShape, void, from3DTube, (KDRVector3d&, KDRVector3d&, float, float, float, float, float));
MEMBER(KDRShape, void, from3DCone, (KDRVector3d&, KDRVector3d&, float, float, float, float));
MEMBER(KDRShape, void, from3DEllipticCylinder, (KDRVector3d&, KDRVector3d&, float, float, float));
MEMBER(KDRShape, void, from3DLineSet, (KDR3DLineSet&));
MEMBER(KDRShape, void, from3DText, (KDRVector3d&, KDRString&, KDRFont&));
MEMBER(KDRShape, bool, to3DPoint, (KDRVector3d*));
MEMBER(KDRShape, bool, to3DLine, (KDRVector3d*, KDRVector3d*));
MEMBER(KDRShape, bool, to3DLineSegment, (KDRVector3d*, KDRVector3d*));
MEMBER(KDRShape, bool, to3DCircle, (KDRVector3d*, KDRVector3d*, float*));
MEMBER(KDRShape, bool, to3DPlane, (KDRVector3d*, KDRVector3d*));
MEMBER(KDRShape, bool, to3DEllipse, (KDRVector3d*, KDRVector3d*, float*, float*));
MEMBER(KDRShape, bool, to3DRect, (KDRVector3d*, KDRVector3d*, float*, float*));
MEMBER(KDRShape, bool, to3DAnnulus, (KDRVector3d*, KDRVector3d*, float*, float*, float*, float*));
MEMBER(KDRShape, bool, to3DTorus, (KDRVector3d*, KDRVector3d*, float*, float*, float*, float*));
MEMBER(KDRShape, bool, to3DArc, (KDRVector3d*, KDRVector3d*, float*, float*, float*));
MEMBER(KDRShape, bool, to3DTriangle, (KDRVector3d*, KDRVector3d*, KDRVector3d*));
MEMBER(KDRShape, bool, to3DPolygon, (KDRVector3dArray*));
MEMBER(KDRShape, bool, to3DBox, (KDRVector3d*, KDRVector3d*, KDRVector3d*));
MEMBER(KDRShape, bool, to3DSphere, (KDRVector3d*, float*));
MEMBER(KDRShape, bool, to3DCylinder, (KDRVector3d*, KDRVector3d*, float*, float*));
MEMBER(KDRShape, bool, to3DEllipsoid, (KDRVector3d*, KDRVector3d*, KDRVector3d*));
MEMBER(KDRShape, bool, to3DTube,
       (KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*));
MEMBER(KDRShape, bool, to3DEllipticCylinder, (KDRVector3d*, KDRVector3d*, float*, float*, float*));
MEMBER(KDRShape, bool, to3DLineSet, (KDR3DLineSet*));
MEMBER(KDRShape, bool, to3DText, (KDRVector3d*, KDRString*, KDRFont*) const);

MADE_FROM(KDRShapeArray);
MADE_FROM(KDRShapeArray, KDRShapeArray const&);
MEMBER(KDRShapeArray, KDRShapeArray&, operator=, (KDRShapeArray const&));
MEMBER(KDRShapeArray, int, length, () const);
MEMBER(KDRShapeArray, void, push_back, (KDRShape const&));
MEMBER(KDRShapeArray, void, push_back, (KDRShapeArray const&));
MEMBER(KDRShapeArray, bool, insert, (int, KDRShape const&));
MEMBER(KDRShapeArray, bool, removeAt, (int));
MEMBER(KDRShapeArray, bool, replace, (int, KDRShape const&));
MEMBER(KDRShapeArray, bool, select, (int, KDRShape*) const);
MEMBER(KDRShapeArray, bool, swap, (int, int));
MEMBER(KDRShapeArray, void, clear, ());
MEMBER(KDRShapeArray, KDRShape, operator[], (int) const);

MADE_FROM(KDRShapePrivate);
MADE_FROM(KDRShapePrivate, KDRShapePrivate const&);
MEMBER(KDRShapePrivate, KDRShapePrivate&, operator=, (KDRShapePrivate const&));
MEMBER(KDRShapePrivate, int, refCount, ());
MEMBER(KDRShapePrivate, int, addRef, ());
MEMBER(KDRShapePrivate, void, decRef, ());
MEMBER(KDRShapePrivate, unsigned int, shapeType, () const);
MEMBER(KDRShapePrivate, void, fromPoint, (KDRPoint&));
MEMBER(KDRShapePrivate, void, fromRect1, (KDRPoint&, KDRPoint&));
MEMBER(KDRShapePrivate, void, fromCircle, (KDRPoint&, double));
MEMBER(KDRShapePrivate, void, fromTorus, (KDRPoint&, double, double, double, double));
MEMBER(KDRShapePrivate, void, fromRect2, (KDRPoint&, double, double, double));
MEMBER(KDRShapePrivate, void, fromLine, (KDRPoint&, KDRPoint&));
MEMBER(KDRShapePrivate, void, fromEllipse, (KDRPoint&, double, double, double));
MEMBER(KDRShapePrivate, void, fromArc, (KDRPoint&, double, double, double));
MEMBER(KDRShapePrivate, void, fromPolygon, (KDRPointArray&));
MEMBER(KDRShapePrivate, void, fromIrregular, (KDRPointArray&));
MEMBER(KDRShapePrivate, void, fromIrregular, (KDRContour&));
MEMBER(KDRShapePrivate, void, fromRegion, (KDRRegion&));
MEMBER(KDRShapePrivate, void, fromText, (KDRPoint&, KDRString&, KDRFont&));
MEMBER(KDRShapePrivate, void, fromArrow, (KDRPoint&, KDRPoint&));
MEMBER(KDRShapePrivate, void, fromContours, (KDRContourArray&));
MEMBER(KDRShapePrivate, void, fromRect2Matrix, (KDRPointArray&, double, double, double, int));
MEMBER(KDRShapePrivate, void, fromCircleMatrix, (KDRPointArray&, double, double, int));
MEMBER(KDRShapePrivate, void, fromPolyLine, (KDRPointArray&));
MEMBER(KDRShapePrivate, void, fromCurveLine, (KDRPoint&, KDRPoint&, KDRPoint&));
MEMBER(KDRShapePrivate, void, fromAnyPolygon, (KDRPointArray&, KDRNumberArray&));
MEMBER(KDRShapePrivate, void, fromMatrix,
       (KDRPoint, double, double, double, int, int, int, double, double, bool, bool, double, double,
        bool));
MEMBER(KDRShapePrivate, bool, toPoint, (KDRPoint*) const);
MEMBER(KDRShapePrivate, bool, toRect1, (KDRPoint*, KDRPoint*) const);
MEMBER(KDRShapePrivate, bool, toCircle, (KDRPoint*, double*) const);
MEMBER(KDRShapePrivate, bool, toTorus, (KDRPoint*, double*, double*, double*, double*) const);
MEMBER(KDRShapePrivate, bool, toRect2, (KDRPoint*, double*, double*, double*) const);
MEMBER(KDRShapePrivate, bool, toLine, (KDRPoint*, KDRPoint*) const);
MEMBER(KDRShapePrivate, bool, toEllipse, (KDRPoint*, double*, double*, double*) const);
MEMBER(KDRShapePrivate, bool, toArc, (KDRPoint*, double*, double*, double*) const);
MEMBER(KDRShapePrivate, bool, toPolygon, (KDRPointArray*) const);
MEMBER(KDRShapePrivate, bool, toIrregular, (KDRPointArray*) const);
MEMBER(KDRShapePrivate, bool, toIrregular, (KDRContour*) const);
MEMBER(KDRShapePrivate, bool, toRegion, (KDRRegion*) const);
MEMBER(KDRShapePrivate, bool, toText, (KDRPoint*, KDRString*, KDRFont*) const);
MEMBER(KDRShapePrivate, bool, toArrow, (KDRPoint*, KDRPoint*) const);
MEMBER(KDRShapePrivate, bool, toContours, (KDRContourArray*) const);
MEMBER(KDRShapePrivate, bool, toRect2Matrix,
       (KDRShapeArray*, KDRPointArray*, double*, double*, double*, int*) const);
MEMBER(KDRShapePrivate, bool, toCircleMatrix,
       (KDRShapeArray*, KDRPointArray*, double*, double*, int*) const);
MEMBER(KDRShapePrivate, bool, toPolyLine, (KDRPointArray*) const);
MEMBER(KDRShapePrivate, bool, toCurveLine, (KDRPoint*, KDRPoint*, KDRPoint*) const);
MEMBER(KDRShapePrivate, bool, toAnyPolygon, (KDRPointArray*, KDRNumberArray*) const);
MEMBER(KDRShapePrivate, bool, toMatrix,
       (KDRShapeArray*, KDRPoint*, double*, double*, double*, int*, int*, int*, double*, double*,
        bool*, bool*, double*, double*, bool*));
MEMBER(KDRShapePrivate, void, from3DPoint, (KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DLine, (KDRVector3d&, KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DLineSegment, (KDRVector3d&, KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DCircle, (KDRVector3d&, KDRVector3d&, float));
MEMBER(KDRShapePrivate, void, from3DPlane, (KDRVector3d&, KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DEllipse, (KDRVector3d&, KDRVector3d&, float, float));
MEMBER(KDRShapePrivate, void, from3DRect, (KDRVector3d&, KDRVector3d&, float, float));
MEMBER(KDRShapePrivate, void, from3DAnnulus,
       (KDRVector3d&, KDRVector3d&, float, float, float, float));
MEMBER(KDRShapePrivate, void, from3DTorus,
       (KDRVector3d&, KDRVector3d&, float, float, float, float));
MEMBER(KDRShapePrivate, void, from3DArc, (KDRVector3d&, KDRVector3d&, float, float, float));
MEMBER(KDRShapePrivate, void, from3DTriangle, (KDRVector3d&, KDRVector3d&, KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DPolygon, (KDRVector3dArray&));
MEMBER(KDRShapePrivate, void, from3DBox, (KDRVector3d&, KDRVector3d&, KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DSphere, (KDRVector3d&, float));
MEMBER(KDRShapePrivate, void, from3DCylinder, (KDRVector3d&, KDRVector3d&, float, float));
MEMBER(KDRShapePrivate, void, from3DEllipsoid, (KDRVector3d&, KDRVector3d&, KDRVector3d&));
MEMBER(KDRShapePrivate, void, from3DTube,
       (KDRVector3d&, KDRVector3d&, float, float, float, float, float));
MEMBER(KDRShapePrivate, void, from3DCone, (KDRVector3d&, KDRVector3d&, float, float, float, float));
MEMBER(KDRShapePrivate, void, from3DEllipticCylinder,
       (KDRVector3d&, KDRVector3d&, float, float, float));
MEMBER(KDRShapePrivate, void, from3DLineSet, (KDR3DLineSet&));
MEMBER(KDRShapePrivate, void, from3DText, (KDRVector3d&, KDRString&, KDRFont&));
MEMBER(KDRShapePrivate, bool, to3DPoint, (KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DLine, (KDRVector3d*, KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DLineSegment, (KDRVector3d*, KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DCircle, (KDRVector3d*, KDRVector3d*, float*));
MEMBER(KDRShapePrivate, bool, to3DPlane, (KDRVector3d*, KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DEllipse, (KDRVector3d*, KDRVector3d*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DRect, (KDRVector3d*, KDRVector3d*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DAnnulus,
       (KDRVector3d*, KDRVector3d*, float*, float*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DTorus,
       (KDRVector3d*, KDRVector3d*, float*, float*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DArc, (KDRVector3d*, KDRVector3d*, float*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DTriangle, (KDRVector3d*, KDRVector3d*, KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DPolygon, (KDRVector3dArray*));
MEMBER(KDRShapePrivate, bool, to3DBox, (KDRVector3d*, KDRVector3d*, KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DSphere, (KDRVector3d*, float*));
MEMBER(KDRShapePrivate, bool, to3DCylinder, (KDRVector3d*, KDRVector3d*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DEllipsoid, (KDRVector3d*, KDRVector3d*, KDRVector3d*));
MEMBER(KDRShapePrivate, bool, to3DTube,
       (KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DEllipticCylinder,
       (KDRVector3d*, KDRVector3d*, float*, float*, float*));
MEMBER(KDRShapePrivate, bool, to3DLineSet, (KDR3DLineSet*));
MEMBER(KDRShapePrivate, bool, to3DText, (KDRVector3d*, KDRString*, KDRFont*) const);

// The kinds of figures in space that have a generator and no getter, or that only the record has.
LACKS(KDRShape, to3DCone);
LACKS(KDRShape, fromMatrix);
LACKS(KDRShape, toMatrix);
