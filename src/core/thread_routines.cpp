// Public routines for hosts that plot in several threads.
#include "core/levels.h"
#include "quilla/quilla.h"

void THRINI(int n) { quilla::prepareThreads(n); }

void THRFIN(void) { quilla::finishThreads(); }
