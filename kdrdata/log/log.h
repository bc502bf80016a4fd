#ifndef KDRDATA_LOG_H
#define KDRDATA_LOG_H

/// @file
/// The log sink.

#include <kdrdata/log/logoutput.h>

#endif
