// Inquiry of variables, the script's environment, and the DAT functions.
#include <ctime>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "core/clock.h"
#include "script/builtin_rows.h"
#include "script/data_file.h"
#include "script/operand_stack.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/user_routines.h"
#include "script/user_statements.h"

namespace qsl {
namespace {

constexpr int kPathLength = 1024;

// Text of an argument with an end mark, cut to a path's length. A name that does not exist gives an empty text.
struct PathText {
  char text[kPathLength + 1];
};

PathText path_at(int position) {
  PathText path{};
  if (const ScriptValue* v = resolve_operand(position)) {
    const int n = v->count < kPathLength ? v->count : kPathLength;
    std::memcpy(path.text, v->value.data, static_cast<std::size_t>(n));
  }
  return path;
}

int int_at(int position) {
  const ScriptValue* v = resolve_operand(position);
  return v ? v->value.i : 0;
}

void replace_by_text(int first, const char* text) {
  replace_by_string(first, text, static_cast<std::int64_t>(std::strlen(text)));
}

// The value of a DAT function, or -1 if it has none.
void replace_by_result(int first, bool good, ScriptValue& result) {
  if (!good) return replace_by_int(first, -1);
  replace_operands(first, result);
}

} // namespace

void fn_varcnt(int first) {
  const ScriptValue* v = peek_operand(first);
  replace_by_int(first, v ? v->count : -1);
}

void fn_vardef(int first) { replace_by_int(first, peek_operand(first) != nullptr); }

void fn_vartyp(int first) {
  const ScriptValue* v = peek_operand(first);
  replace_by_text(first, v ? type_name(v->type) : "NONE");
}

void fn_vardim(int first) {
  const ScriptValue* v = peek_operand(first);
  const int k = int_at(first + 1);
  if (k < 1) return report_error("Parameter 2 in vardim must be greater than 0");
  if (!v) return replace_by_int(first, -1);
  const int extent = k > v->ndim ? 0 : v->ndim > 1 ? v->dims[k - 1] : v->count;
  replace_by_int(first, extent);
}

void fn_argcnt(int first) { replace_by_int(first, current_frame().passed); }
void fn_keycnt(int first) { replace_by_int(first, current_frame().keywords); }

void fn_getarg(int first) {
  const int n = int_at(first);
  if (n < 1) return report_error("Non positive parameter in GETARG");
  char name[kNameLength + 1];
  std::snprintf(name, sizeof name, "%%ARG%d", n);
  const int index = find_variable(name);
  const bool text = index >= 0 && variable(index).type == kString;
  const char* value = text ? text_of(variable(index)) : "";
  ScriptValue result{};
  if (set_string(result, value)) replace_operands(first, result);
}

void fn_getenv(int first) {
  const char* value = std::getenv(path_at(first).text);
  replace_by_text(first, value ? value : "");
}

void fn_getpid(int first) { replace_by_int(first, static_cast<std::int32_t>(getpid())); }

void fn_system(int first) {
  const PathText command = path_at(first);
  replace_by_int(first, run_processor(command.text));
}

void fn_inquire(int first) {
  std::FILE* file = open_file(path_at(first).text, "r");
  if (file) std::fclose(file);
  replace_by_int(first, file != nullptr);
}

void fn_remove(int first) {
  const PathText name = path_at(first);
  const int result = interp.driver.harmless ? -1 : std::remove(name.text);
  if (result != 0) report_error_text("Cannot remove file", name.text);
  replace_by_int(first, result);
}

void fn_rename(int first) {
  const PathText from = path_at(first), to = path_at(first + 1);
  const int result = interp.driver.harmless ? -1 : std::rename(from.text, to.text);
  if (result != 0) report_error_text("Cannot rename file", from.text);
  replace_by_int(first, result);
}

void fn_clock(int first) {
  FunctionState& f = interp.functions;
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  const long milliseconds = now.tv_sec * 1000 + now.tv_nsec / 1000000;
  const double seconds = f.clock_called ? (static_cast<double>(milliseconds) - f.clock_last) / 1000.0 : 0.0;
  f.clock_called = true;
  f.clock_last = static_cast<double>(milliseconds);
  replace_by_double(first, seconds);
}

void fn_date(int first) {
  char text[11];
  quilla::formatDate(quilla::readClock(), text);
  replace_by_text(first, text);
}

void fn_time(int first) {
  char text[9];
  quilla::formatTime(quilla::readClock(), text);
  replace_by_text(first, text);
}

// The generator that the C standard gives as an example: 15 bits, the same numbers on every platform.
void fn_rand(int first) {
  constexpr std::uint32_t kFactor = 1103515245, kSummand = 12345;
  constexpr double kLargest = 32767.0;
  std::uint32_t& state = interp.functions.random;
  state = state * kFactor + kSummand;
  replace_by_double(first, static_cast<double>((state >> 16) & 0x7FFFU) / kLargest);
}

void fn_srand(int first) {
  interp.functions.random = static_cast<std::uint32_t>(int_at(first));
  replace_by_int(first, 0);
}

void fn_datfil(int first) { replace_by_int(first, open_data_file(path_at(first).text)); }
void fn_datcls(int first) { replace_by_int(first, close_data_file()); }
void fn_datblk(int first) { replace_by_int(first, select_data_block(int_at(first))); }
void fn_datcnt(int first) { replace_by_int(first, count_data(path_at(first).text)); }
void fn_dathdr(int first) { replace_by_int(first, print_data_header()); }

void fn_datvar(int first) {
  ScriptValue result{};
  const PathText name = path_at(first);
  replace_by_result(first, read_data_variable(name.text, result), result);
}

void fn_datmat(int first) {
  ScriptValue result{};
  replace_by_result(first, read_data_matrix(result), result);
}

void fn_datray(int first) {
  ScriptValue result{};
  replace_by_result(first, read_data_column(int_at(first), result), result);
}

} // namespace qsl
