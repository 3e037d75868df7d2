#include "platform/window_system.h"

#include <dlfcn.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/widget_system.h"

namespace quilla {

namespace {

constexpr char kModuleName[] = "quilla_windows.so";
constexpr int kPathLength = PATH_MAX;

template <typename System> struct Choice {
  bool looked = false;
  const System* system = nullptr;
};
template <typename System> Choice<System>& choice() {
  static Choice<System> c;
  return c;
}

// The folder of the program or library that holds this code, with a separator behind it.
bool ownFolder(char folder[kPathLength]) {
  Dl_info info;
  if (!dladdr(reinterpret_cast<const void*>(&kModuleName), &info) || !info.dli_fname) return false;
  char real[kPathLength];
  if (!realpath(info.dli_fname, real)) return false;
  char* slash = std::strrchr(real, '/');
  if (!slash) return false;
  const std::size_t length = static_cast<std::size_t>(slash - real) + 1;
  std::memcpy(folder, real, length);
  folder[length] = 0;
  return true;
}

bool hasDisplay() {
  const char* display = std::getenv("DISPLAY");
  return display && display[0];
}

// Beside the program, as in a build folder, then where it was installed.
void* openModule() {
  char path[2 * kPathLength], folder[kPathLength];
  if (ownFolder(folder)) {
    std::snprintf(path, sizeof path, "%s%s", folder, kModuleName);
    if (void* module = dlopen(path, RTLD_NOW | RTLD_LOCAL)) return module;
  }
  std::snprintf(path, sizeof path, "%s/%s", QUILLA_MODULE_DIR, kModuleName);
  return dlopen(path, RTLD_NOW | RTLD_LOCAL);
}

template <typename System> const System* findSystem(const char* symbol) {
  static void* const module = hasDisplay() ? openModule() : nullptr;
  if (!module) return nullptr;
  const auto entry = reinterpret_cast<const System* (*)()>(dlsym(module, symbol));
  return entry ? entry() : nullptr;
}

template <typename System> const System* chosenSystem(const char* symbol) {
  Choice<System>& c = choice<System>();
  if (!c.looked) c = {true, findSystem<System>(symbol)};
  return c.system;
}

} // namespace

const WindowSystem* windowSystem() { return chosenSystem<WindowSystem>(kWindowSystemSymbol); }
const WidgetSystem* widgetSystem() { return chosenSystem<WidgetSystem>(kWidgetSystemSymbol); }

void useWindowSystem(const WindowSystem* system) { choice<WindowSystem>() = {true, system}; }
void useWidgetSystem(const WidgetSystem* system) { choice<WidgetSystem>() = {true, system}; }

} // namespace quilla
