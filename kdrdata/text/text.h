#ifndef KDRDATA_TEXT_H
#define KDRDATA_TEXT_H

/// @file
/// The text and byte types: strings, characters and buffers.

#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrbufferarray.h>
#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrregexp.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/text/kdrstringarray.h>

#endif
