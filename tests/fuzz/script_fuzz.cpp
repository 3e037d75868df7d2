// Arbitrary text as a script; CALL finds the routines of tests/scripts by QSL_PATH. No outside command runs and no file
// is changed. Run it with -handle_fpe=0: a division that faults ends the process by a signal on purpose, which is
// caught here.
//
//   clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -Isrc -Iinclude -DQUILLA_SHARE_DIR='""' \
//     tests/fuzz/script_fuzz.cpp src/script/*.cpp <sources of the library> -lz -o script_fuzz
#include <csetjmp>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/levels.h"
#include "script/interpreter.h"
#include "script/script_files.h"
#include "script/statements.h"

namespace {

// What a text may not do here: choose the files of a plot, or ask for more memory or time than a test has.
bool is_harmless(const std::string& text) {
  std::string upper;
  for (char c : text) upper += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  // Continuations could join a word from its parts.
  std::string joined;
  for (char c : upper)
    if (c != '@' && c != '\n' && c != ' ') joined += c;
  for (const char* word :
       {"SETFIL", "ERRFIL", "ERRDEV", "ERRMOD", "QUIINI", "PLOT", "SCATTR", "UNIT", "SYMFIL", "FILMOD"})
    if (joined.find(word) != std::string::npos) return false;
  int digits = 0;
  for (char c : joined) {
    digits = c >= '0' && c <= '9' ? digits + 1 : c == 'E' || c == 'X' ? digits + 3 : 0;
    if (digits > 5) return false;
  }
  return true;
}

sigjmp_buf before_script;

void leave_script(int) { siglongjmp(before_script, 1); }

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  std::signal(SIGFPE, leave_script);
  // All output goes nowhere.
  if (!std::freopen("/dev/null", "w", stdout)) return 1;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  if (size == 0 || !is_harmless(text)) return 0;
  qsl::reset_interpreter();
  qsl::interp.driver.harmless = true;
  qsl::interp.driver.replays_left = 2000;
  std::FILE* file = fmemopen(text.data(), text.size(), "r");
  if (!file) return 0;
  qsl::start_source(file, "fuzz");
  if (sigsetjmp(before_script, 1) == 0) qsl::run_statements();
  std::fclose(file);
  qsl::interp.reader.source_count = 0;
  qsl::reset_interpreter();
  return 0;
}
