#include "platform/window_system.h"

#include <dlfcn.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace quilla {

namespace {

constexpr char kModuleName[] = "quilla_windows.so";
constexpr int kPathLength = PATH_MAX;

struct Choice {
  bool looked = false;
  const WindowSystem* system = nullptr;
};
Choice& choice() {
  static Choice c;
  return c;
}

const WindowSystem* openModule(const char* path) {
  void* module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (!module) return nullptr;
  const auto entry = reinterpret_cast<WindowSystemEntry>(dlsym(module, kWindowSystemSymbol));
  return entry ? entry() : nullptr;
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

bool hasDisplay() { return std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY"); }

// Beside the program, as in a build folder, then where it was installed.
const WindowSystem* findSystem() {
  if (!hasDisplay()) return nullptr;
  char path[2 * kPathLength], folder[kPathLength];
  if (ownFolder(folder)) {
    std::snprintf(path, sizeof path, "%s%s", folder, kModuleName);
    if (const WindowSystem* system = openModule(path)) return system;
  }
  std::snprintf(path, sizeof path, "%s/%s", QUILLA_MODULE_DIR, kModuleName);
  return openModule(path);
}

} // namespace

const WindowSystem* windowSystem() {
  Choice& c = choice();
  if (!c.looked) {
    c.looked = true;
    c.system = findSystem();
  }
  return c.system;
}

void useWindowSystem(const WindowSystem* system) { choice() = {true, system}; }

} // namespace quilla
