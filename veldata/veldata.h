#ifndef VELDATA_VELDATA_H
#define VELDATA_VELDATA_H

#include <veldata/vel3dshape.h>
#include <veldata/velchunkdata.h>
#include <veldata/velcontour.h>
#include <veldata/velcontourarray.h>
#include <veldata/veldatatype.h>
#include <veldata/velfont.h>
#include <veldata/velimage.h>
#include <veldata/velimagearray.h>
#include <veldata/velimagetype.h>
#include <veldata/velmatchmodel.h>
#include <veldata/velmatrix.h>
#include <veldata/velmatrixarray.h>
#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>
#include <veldata/velregion.h>
#include <veldata/velregionarray.h>
#include <veldata/velroi.h>
#include <veldata/velvar.h>
#include <veldata/velvararray.h>

#endif
