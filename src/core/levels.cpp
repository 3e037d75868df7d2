#include "core/levels.h"

#include <cstdio>
#include <cstdlib>
#include <new>

#include "core/messages.h"

namespace quilla {

namespace {

PlotState* processState = nullptr;

bool levelFits(int level, int low, int high) { return level >= low && level <= high; }

PlotState* checkedState(int low, int high, const char* name, bool storeAnyway) {
  PlotState* s = plotState();
  copyText(s->level.routineName, name, kRoutineNameLength);
  if (levelFits(s->level.plotLevel, low, high)) return s;
  if (s->level.plotLevel == kLevelNone) s->message.messageUnit = kUnitConsole;
  warnWithNumber(s, 3, s->level.plotLevel);
  return storeAnyway ? s : nullptr;
}

} // namespace

PlotState* plotState() {
  if (processState) return processState;
  processState = new (std::nothrow) PlotState{};
  if (!processState) {
    std::fputs("Not enough memory for global variables!\n", stdout);
    std::exit(1);
  }
  return processState;
}

PlotState* existingPlotState() { return processState; }

void freePlotState() {
  if (processState && processState->device.freeDrivers) processState->device.freeDrivers(processState);
  if (processState) std::free(processState->deviceSetup.psInfoText);
  delete processState;
  processState = nullptr;
}

PlotState* strictCheck(int low, int high, const char* name) { return checkedState(low, high, name, false); }

PlotState* setterCheck(const char* name) { return checkedState(kLevelPlot, kLevelAxis3D, name, true); }

} // namespace quilla
