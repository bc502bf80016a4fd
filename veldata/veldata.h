#ifndef VELDATA_VELDATA_H
#define VELDATA_VELDATA_H

#include <veldata/velcontour.h>
#include <veldata/velcontourarray.h>
#include <veldata/velimage.h>
#include <veldata/velimagearray.h>
#include <veldata/velimagetype.h>
#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>
#include <veldata/velvar.h>
#include <veldata/velvararray.h>

#endif
