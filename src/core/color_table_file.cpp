// VLTFIL: the colour table as a file of 256 lines with three numbers from 0 to 1.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "core/colors.h"
#include "core/file_version.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "device/writers.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kFileError = 36;
constexpr int kDecimals = 6, kFieldWidth = 10;
constexpr int kLineLength = 256;

std::FILE* openTableFile(PlotState* s, char* name, const char* mode) {
  ProcessLock lock;
  if (mode[0] == 'w') {
    if (int number = versionFileName(s, name); number != kVersionFine) {
      warnPlain(s, number);
      return nullptr;
    }
  }
  std::FILE* file = std::fopen(name, mode);
  if (!file) warnWithString(s, kFileError, name);
  return file;
}

void saveTable(PlotState* s, char* name) {
  std::FILE* file = openTableFile(s, name, "w");
  if (!file) return;
  char field[kNumberTextSize];
  for (int entry : s->color.colorTable) {
    for (int shift : {16, 8, 0}) {
      qqfcha((entry >> shift & 255) / 255.0, kDecimals, field, kFieldWidth);
      std::fputs(field, file);
    }
    std::fputc('\n', file);
  }
  bool written = std::ferror(file) == 0;
  if (std::fclose(file) != 0 || !written) warnWithString(s, kFileError, name);
}

// Three numbers, parted by blanks, tabulators or commas.
bool readNumbers(const char* line, float values[3]) {
  const char* end = line + std::strlen(line);
  for (int i = 0; i < 3; i++) {
    while (line < end && std::strchr(" \t,", *line)) line++;
    auto [behind, error] = std::from_chars(line, end, values[i]);
    if (error != std::errc{}) return false;
    line = behind;
  }
  return true;
}

void loadTable(PlotState* s, char* name) {
  std::FILE* file = openTableFile(s, name, "r");
  if (!file) return;
  char line[kLineLength];
  for (int i = 0; i < kColorTableSize && std::fgets(line, sizeof line, file); i++) {
    float rgb[3];
    if (readNumbers(line, rgb)) SETIND(i, rgb[0], rgb[1], rgb[2]);
  }
  std::fclose(file);
  copyText(s->color.tableFile, name, kFileNameLength);
}

} // namespace

void VLTFIL(const char* file, const char* mode) {
  PlotState* s = strictCheck(1, 3, "vltfil");
  if (!s) return;
  char name[kFileNameLength + 1];
  copyText(name, file, kFileNameLength);
  switch (matchKeyword(s, "SAVE+LOAD", 2, mode)) {
  case 1: return saveTable(s, name);
  case 2: return loadTable(s, name);
  default: return;
  }
}
