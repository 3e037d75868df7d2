// SYMFIL: hands the finished plot file to an outside program that shows or prints it.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kFirstFormat = 151; // devices below it have no file
constexpr int kNoMetafile = 20, kNotFinished = 21, kDeleted = 22;
constexpr int kVectorEnd = 601, kRasterEnd = 701, kTextEnd = 801;
constexpr int kFinished = 1, kFileGone = -1; // values of runFinished

constexpr const char* kTableWords[] = {"smal", "rain", "spec", "grey", "rrai", "rspe", "rgre", "vga", "temp"};

struct CommandLine {
  char text[4 * kFileNameLength];
  std::size_t length = 0;

  void add(const char* piece) {
    for (; *piece && length + 1 < sizeof text; piece++) text[length++] = *piece;
    text[length] = 0;
  }
  // A word that the command processor would read as more than a name is quoted for it.
  void addWord(const char* word) {
    constexpr const char* kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._-/+=:,@%";
    if (word[std::strspn(word, kPlain)] == 0) return add(word);
    add("'");
    for (; *word; word++) {
      char one[2] = {*word, 0};
      add(*word == '\'' ? "'\\''" : one);
    }
    add("'");
  }
};

const char* programOf(int device) {
  if (device < kVectorEnd) return "quidrv ";
  if (device < kRasterEnd) return "quihpj ";
  return device < kTextEnd ? "quidot " : nullptr;
}

void trimBlanks(char* key) {
  for (std::size_t n = std::strlen(key); n > 0 && key[n - 1] == ' '; n--) key[n - 1] = 0;
}

void runProgram(PlotState* s, const char* device, const char* status) {
  int number = s->deviceSetup.deviceNumber;
  const char* program = programOf(number);
  if (!program) return;
  CommandLine line;
  line.add(program);
  line.addWord(s->deviceSetup.plotFileName);
  line.add(" ");
  line.addWord(device);
  line.add(" ");
  line.add(status);
  line.add(" ");
  line.add(kTableWords[s->color.tableKind]);
  if (s->colorState.backgroundMode == kBackgroundReverse) line.add(" REVERS");
  if (number < kVectorEnd) line.add(s->windowSetup.backingStore == 0 ? " -Q -BS" : " -Q -NB");
  if (s->color.tableFile[0]) {
    line.add(" V=\"");
    // Inside double quotes four characters keep a meaning.
    for (const char* c = s->color.tableFile; *c; c++) {
      char one[3] = {'\\', *c, 0};
      line.add(std::strchr("\"\\$`", *c) ? one : one + 1);
    }
    line.add("\"");
  }
  std::fflush(stdout);
  // What the program does or fails to do is its own affair.
  [[maybe_unused]] int result = std::system(line.text);
}

} // namespace

void SYMFIL(const char* device, const char* status) {
  PlotState* s = strictCheck(0, 0, "symfil");
  if (!s) return;
  if (s->deviceSetup.deviceNumber < kFirstFormat) return warnPlain(s, kNoMetafile);
  if (s->counters.runFinished == kFileGone) return warnPlain(s, kDeleted);
  if (s->counters.runFinished != kFinished) return warnPlain(s, kNotFinished);
  char what[5], then[5];
  keyOf(device, what);
  keyOf(status, then);
  trimBlanks(what);
  if (std::strcmp(then, "NODE") == 0) copyText(then, "KEEP", 4);
  if (std::strcmp(then, "DELE") != 0 && std::strcmp(then, "KEEP") != 0) {
    warnWithString(s, 2, status);
    copyText(then, "KEEP", 4);
  }
  bool remove = std::strcmp(then, "DELE") == 0, toProgram = std::strcmp(what, "NONE") != 0;
  if (toProgram) {
    runProgram(s, what, then);
  } else if (remove) {
    std::remove(s->deviceSetup.plotFileName);
  }
  if (remove) s->counters.runFinished = kFileGone;
}
