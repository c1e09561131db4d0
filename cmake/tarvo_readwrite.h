#ifndef TARVO_READWRITE_PREFIX_H
#define TARVO_READWRITE_PREFIX_H

// Installed as PREFIX/include/tarvo_readwrite.h: everything the library exports, for a
// consumer that has only PREFIX/include on its path.
#include "tarvo_readwrite/tarvo_readwrite.h"

#endif
