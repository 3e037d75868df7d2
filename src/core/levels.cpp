#include "core/levels.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>
#include <thread>

#include "core/messages.h"

namespace quilla {

namespace {

// Before THRINI one state serves the process. After it each thread takes a slot, written under the lock: the owner
// stands before `used` tells the readers, who do not lock.
struct ThreadSlot {
  std::atomic<bool> used{false};
  std::thread::id owner;
  PlotState* state = nullptr;
};

PlotState* processState = nullptr;
std::recursive_mutex processMutex;
std::atomic<bool> severalThreads{false};
ThreadSlot* slots = nullptr;
int slotCount = 0;

ThreadSlot* slotOfThread() {
  const std::thread::id self = std::this_thread::get_id();
  for (int i = 0; i < slotCount; i++) {
    if (slots[i].used.load(std::memory_order_acquire) && slots[i].owner == self) return &slots[i];
  }
  return nullptr;
}

ThreadSlot* takeSlot() {
  ProcessLock lock;
  for (int i = 0; i < slotCount; i++) {
    if (slots[i].used.load(std::memory_order_relaxed)) continue;
    slots[i].owner = std::this_thread::get_id();
    slots[i].used.store(true, std::memory_order_release);
    return &slots[i];
  }
  std::fputs(">>>> Too many threads!\n", stdout);
  std::exit(1);
}

// Where the state of the calling thread is kept.
PlotState*& statePlace() {
  if (!severalThreads.load(std::memory_order_acquire)) return processState;
  ThreadSlot* slot = slotOfThread();
  return (slot ? slot : takeSlot())->state;
}

void releaseState(PlotState*& s) {
  if (!s) return;
  if (s->device.freeDrivers) s->device.freeDrivers(s);
  if (s->widgetSetup.freeWidgets) s->widgetSetup.freeWidgets(s);
  if (s->streams.errorFileOpen) std::fclose(s->streams.errorFileStream);
  std::free(s->deviceSetup.psInfoText);
  delete[] s->horizon.largest;
  if (s->depthState.freeList) s->depthState.freeList(s);
  delete s;
  s = nullptr;
}

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

ProcessLock::ProcessLock() : held(severalThreads.load(std::memory_order_acquire)) {
  if (held) processMutex.lock();
}

ProcessLock::~ProcessLock() {
  if (held) processMutex.unlock();
}

PlotState* plotState() {
  PlotState*& s = statePlace();
  if (s) return s;
  s = new (std::nothrow) PlotState{};
  if (!s) {
    std::fputs("Not enough memory for global variables!\n", stdout);
    std::exit(1);
  }
  return s;
}

PlotState* existingPlotState() {
  if (!severalThreads.load(std::memory_order_acquire)) return processState;
  ThreadSlot* slot = slotOfThread();
  return slot ? slot->state : nullptr;
}

void freePlotState() {
  if (!severalThreads.load(std::memory_order_acquire)) return releaseState(processState);
  ThreadSlot* slot = slotOfThread();
  if (!slot) return;
  releaseState(slot->state);
  ProcessLock lock;
  slot->used.store(false, std::memory_order_release);
}

PlotState* strictCheck(int low, int high, const char* name) { return checkedState(low, high, name, false); }

PlotState* setterCheck(const char* name) { return checkedState(kLevelPlot, kLevelAxis3D, name, true); }

void prepareThreads(int n) {
  if (severalThreads) {
    std::fputs(">>>> thrini is already called before!\n", stdout);
    return;
  }
  if (n < 1) {
    std::fputs(">>>> Invalid parameter in thrini!\n", stdout);
    return;
  }
  if (processState) {
    std::fputs(">>>> A QUILLA routine is called before thrini!\n", stdout);
    return;
  }
  slots = new (std::nothrow) ThreadSlot[static_cast<std::size_t>(n)];
  if (!slots) {
    std::fputs(">>>> Not enough memory in thrini!\n", stdout);
    std::exit(0);
  }
  slotCount = n;
  severalThreads.store(true, std::memory_order_release);
}

void finishThreads() {
  if (!severalThreads) {
    std::fputs(">>>> thrini is not called before!\n", stdout);
    return;
  }
  for (int i = 0; i < slotCount; i++) releaseState(slots[i].state);
  severalThreads.store(false, std::memory_order_release);
  delete[] slots;
  slots = nullptr;
  slotCount = 0;
}

} // namespace quilla
