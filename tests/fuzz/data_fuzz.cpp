// Arbitrary bytes as a data file, as a format and as the input that it reads: the first two bytes say where the parts
// end. Build and run it as the target for scripts.
#include <unistd.h>

#include <csetjmp>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "script/interpreter.h"
#include "script/script_files.h"
#include "script/statements.h"
#include "script/variables.h"

namespace {

char folder[] = "/tmp/data_fuzzXXXXXX";
sigjmp_buf before_script;

void leave_script(int) { siglongjmp(before_script, 1); }

void write_file(const char* name, const std::string& text) {
  if (std::FILE* file = std::fopen(name, "wb")) {
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
  }
}

void define_text(const char* name, const std::string& text) {
  const int index = qsl::new_variable(name, 0);
  qsl::ScriptValue value{};
  if (index >= 0 && qsl::set_string(value, text.c_str())) qsl::move_value(qsl::variable(index), value);
}

constexpr char kScript[] =
    "DATFIL('d.qdf')\nDATHDR()\nX = DATVAR('NAME')\nA = DATMAT()\nB = DATRAY(1)\nB = DATRAY(2)\n"
    "X = DATCNT('BLO')\nDATBLK(2)\nA = DATMAT()\nDATCLS()\n"
    "CHAR C[40]\nV = {1.5, 2}\n"
    "PRINTF(F)\nPRINTF(F, 5)\nPRINTF(F, 2.5, 'text')\nPRINTF(F, 'text', -1, 1e300)\nSPRINTF(C, F, 7, 'a')\n"
    "SPRINTF(C, F, 1e300)\nX = SSCANF(T, F, I)\nX = SSCANF(T, F, C)\nX = SSCANF(T, F, P, Q, C)\n"
    "X = SSCANF(T, '%d%f%c', I, R, K)\nX = ATONUM(T)\nX = SUBSTR(T, 2, 5)\nX = NUMTOA(R, 3)\n";

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  std::signal(SIGFPE, leave_script);
  if (!mkdtemp(folder) || chdir(folder) != 0 || !std::freopen("/dev/null", "w", stdout)) return 1;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);
  const std::size_t format = data[0] % 64, input = data[1] % 64;
  qsl::reset_interpreter();
  define_text("F", text.substr(0, format));
  define_text("T", text.substr(std::min(format, text.size()), input));
  write_file("d.qdf", "%QSL-ASC" + text.substr(std::min(format + input, text.size())));
  std::string script = kScript;
  std::FILE* file = fmemopen(script.data(), script.size(), "r");
  if (!file) return 0;
  qsl::start_source(file, "fuzz");
  if (sigsetjmp(before_script, 1) == 0) qsl::run_statements();
  std::fclose(file);
  qsl::interp.reader.source_count = 0;
  qsl::reset_interpreter();
  return 0;
}
