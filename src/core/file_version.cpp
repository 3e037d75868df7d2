#include "core/file_version.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include "core/messages.h"

namespace quilla {

namespace {

// In the mode "COUN" base, separator and number together are cut to this many characters.
constexpr int kShortNameLength = 8;
constexpr char kSeparators[] = {'_', '-', 0};

// Devices and pipes take what is written and keep no earlier file.
bool keepsNothing(const char* name) {
  struct stat status;
  return stat(name, &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

bool fileExists(const char* name) {
  std::FILE* f = std::fopen(name, "rb");
  if (f) std::fclose(f);
  return f != nullptr;
}

int refuse(PlotState* s, int result, const char* text) {
  setCustomMessage(s, text);
  return result;
}

struct NameParts {
  int baseStart; // behind the last directory mark
  int extension; // position of the last point behind it, or the end of the name
};

NameParts splitName(const char* name) {
  NameParts parts{0, static_cast<int>(std::strlen(name))};
  for (int i = 0; name[i]; i++) {
    if (name[i] == '/' || name[i] == '\\') parts.baseStart = i + 1;
  }
  for (int i = parts.baseStart; name[i]; i++) {
    if (name[i] == '.') parts.extension = i;
  }
  return parts;
}

int versionNumberText(const DeviceSetup& d, int number, char out[16]) {
  char digits[16];
  int count = 0;
  for (int rest = number; rest > 0; rest /= 10) digits[count++] = static_cast<char>('0' + rest % 10);
  if (d.versionStyle == 1) {
    while (count < d.versionDigits) digits[count++] = '0';
  }
  for (int i = 0; i < count; i++) out[i] = digits[count - 1 - i];
  out[count] = 0;
  return count;
}

// The name with its version number; false if it does not fit.
bool numberedName(const DeviceSetup& d, const char* name, const NameParts& parts, int number, char* out) {
  char digits[16];
  int digitCount = versionNumberText(d, number, digits);
  char separator = kSeparators[d.versionSeparator];
  int base = parts.extension - parts.baseStart;
  if (d.fileMode == kFileCount) {
    int room = kShortNameLength - digitCount - (separator ? 1 : 0);
    if (base > room) base = room > 0 ? room : 0;
  }
  int keep = parts.baseStart + base;
  int extensionLength = static_cast<int>(std::strlen(name + parts.extension));
  if (keep + 1 + digitCount + extensionLength > kFileNameLength) return false;
  std::memcpy(out, name, static_cast<std::size_t>(keep));
  int n = keep;
  if (separator) out[n++] = separator;
  std::memcpy(out + n, digits, static_cast<std::size_t>(digitCount));
  std::memcpy(out + n + digitCount, name + parts.extension, static_cast<std::size_t>(extensionLength) + 1);
  return true;
}

} // namespace

int versionFileName(PlotState* s, char* name) {
  const DeviceSetup& d = s->deviceSetup;
  if (keepsNothing(name) || !fileExists(name)) return kVersionFine;
  if (d.fileMode == kFileDelete) {
    if (std::remove(name) == 0) return kVersionFine;
    return refuse(s, kVersionNotDeleted, "Plotfile cannot be deleted");
  }
  if (d.fileMode == kFileBreak) return refuse(s, kVersionExists, "Plotfile does exist");
  int limit = 1;
  for (int i = 0; i < d.versionDigits; i++) limit *= 10;
  NameParts parts = splitName(name);
  char candidate[kFileNameLength + 1];
  for (int i = 1; i < limit; i++) {
    if (!numberedName(d, name, parts, i, candidate)) break;
    if (fileExists(candidate)) continue;
    copyText(name, candidate, kFileNameLength);
    return kVersionFine;
  }
  return refuse(s, kVersionsTaken, "Too many file versions");
}

} // namespace quilla
