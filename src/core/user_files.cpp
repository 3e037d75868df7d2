// Public routines that read and write files of the user as bytes.
#include <cstdio>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kFailed = -1;
enum OpenMode : int { kReadMode = 0, kWriteMode = 1, kAppendMode = 2 };

// The open file of a number, or null after warning 2.
std::FILE* openFile(PlotState* s, int number) {
  if (!s || checkRange(s, number, 1, kUserFiles)) return nullptr;
  std::FILE* file = s->userFiles.stream[number];
  if (!file) warnWithNumber(s, 2, number);
  return file;
}

} // namespace

int OPENFL(const char* name, int number, int mode) {
  PlotState* s = strictCheck(0, 3, "openfl");
  if (!s || checkRange(s, number, 1, kUserFiles) || checkRange(s, mode, kReadMode, kAppendMode)) return kFailed;
  std::FILE*& file = s->userFiles.stream[number];
  if (file) {
    warnWithNumber(s, 2, number);
    return kFailed;
  }
  file = std::fopen(name ? name : "", mode == kReadMode ? "rb" : mode == kWriteMode ? "w+b" : "a+b");
  if (file) return 0;
  warnWithString(s, 36, name ? name : "");
  return kFailed;
}

int CLOSFL(int number) {
  PlotState* s = strictCheck(0, 3, "closfl");
  std::FILE* file = openFile(s, number);
  if (!file) return kFailed;
  s->userFiles.stream[number] = nullptr;
  if (std::fclose(file) == 0) return 0;
  warnWithNumber(s, 36, number);
  return kFailed;
}

int READFL(int number, void* bytes, int n) {
  std::FILE* file = openFile(strictCheck(0, 3, "readfl"), number);
  if (!file) return kFailed;
  std::fseek(file, 0, SEEK_CUR); // between writing and reading
  return n < 1 ? 0 : static_cast<int>(std::fread(bytes, 1, static_cast<std::size_t>(n), file));
}

int WRITFL(int number, const void* bytes, int n) {
  std::FILE* file = openFile(strictCheck(0, 3, "writfl"), number);
  if (!file) return kFailed;
  std::fseek(file, 0, SEEK_CUR);
  return n < 1 ? 0 : static_cast<int>(std::fwrite(bytes, 1, static_cast<std::size_t>(n), file));
}

int SKIPFL(int number, int n) {
  std::FILE* file = openFile(strictCheck(0, 3, "skipfl"), number);
  return file && std::fseek(file, n, SEEK_CUR) == 0 ? 0 : kFailed;
}

int TELLFL(int number) {
  std::FILE* file = openFile(strictCheck(0, 3, "tellfl"), number);
  return file ? static_cast<int>(std::ftell(file)) : kFailed;
}

int POSIFL(int number, int position) {
  PlotState* s = strictCheck(0, 3, "posifl");
  std::FILE* file = openFile(s, number);
  if (!file || checkRange(s, position, 0, -1)) return kFailed;
  return std::fseek(file, position, SEEK_SET) == 0 ? 0 : kFailed;
}
