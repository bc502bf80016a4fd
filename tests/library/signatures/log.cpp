// The log sink. See signatures.h.

#include <kdrdata/kdrdata.h>

#include "signatures.h"

MADE_FROM(LogOutput, QObject*);
STATIC(LogOutput, LogOutput*, getInstance, ());
MEMBER(LogOutput, void, outPutMsg, (QString));
