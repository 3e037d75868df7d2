#include "script/own_routines.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "core/levels.h"
#include "graph2d/legend.h"
#include "quilla/quilla.h"
#include "script/array_rows.h"
#include "script/bound_routine.h"
#include "script/interpreter.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/system_variables.h"

namespace qsl {

namespace {
constexpr int kFitsText = 81; // a string of a card is shorter
} // namespace

bool is_array_to_fill(int k, std::int64_t wanted, const char* kind, const char* routine) {
  const bool is_variable = operand_variable(k) >= 0;
  if (is_variable && operand_value(k).count >= wanted) return true;
  char text[80];
  std::snprintf(text, sizeof text, is_variable ? "%s array too small in %s" : "%s array in %s must be a variable", kind,
                routine);
  report_error(text);
  return false;
}

namespace {

// Text of operand k as a legend buffer, null after a message if it is shorter than LEGINI made it.
char* legend_buffer(const Call& call, int k) {
  const ScriptValue& v = operand_value(k);
  const bool text = v.type == kString || v.type == kCharArray;
  if (text && v.count >= quilla::legendBufferLength()) return elements<char>(v);
  report_error_text("Not enough array elements in", call.name);
  return nullptr;
}

} // namespace

void run_quiini(const Call&) {
  DriverState& d = interp.driver;
  if (d.device_override_given) {
    METAFL(d.device_override);
    d.device_chosen = true;
  }
  QUIINI();
  apply_all_system_variables();
}

// The arrays of SPLINE have 201 elements until a script has called SPLMOD, and never fewer than the library fills.
void run_splmod(const Call&) {
  interp.driver.spline_points = operand_value(1).value.i;
  SPLMOD(operand_value(0).value.i, operand_value(1).value.i);
}

void run_spline(const Call&) {
  constexpr int kUsualPoints = 201;
  const int told = interp.driver.spline_points, filled = quilla::plotState()->curve.splinePoints;
  const int size = std::max(told > 0 && told == filled ? told : kUsualPoints, filled);
  float* arrays[2];
  for (float*& array : arrays) array = static_cast<float*>(output_memory(size, 1, sizeof(float)));
  int count = 0;
  if (arrays[0] && arrays[1]) {
    SPLINE(elements<float>(operand_value(0)), elements<float>(operand_value(1)), operand_value(2).value.i, arrays[0],
           arrays[1], &count);
    for (int k = 0; k < 2; ++k) write_array_output(operand_variable(3 + k), kFloatArray, arrays[k], size);
    write_int_output(operand_variable(5), count);
    return;
  }
  for (float* array : arrays) std::free(array);
}

// Variables that stand for the position receive it.
void run_csrpos(const Call& call) {
  int place[] = {operand_value(0).value.i, operand_value(1).value.i};
  set_int(*call.result, CSRPOS(&place[0], &place[1]));
  for (int k = 0; k < 2; ++k)
    if (operand_variable(k) >= 0) write_int_output(operand_variable(k), place[k]);
}

// The statements of the file come next, as after INCLUDE.
void run_incqsl(const Call&) {
  char name[kFileNameLength + 1];
  std::snprintf(name, sizeof name, "%s", text_of(operand_value(0)));
  if (!interp.driver.harmless) include_file(name);
}

// Where arbitrary texts run, no file is touched.
void run_openfl(const Call& call) {
  if (interp.driver.harmless) return set_int(*call.result, -1);
  run_bound<OPENFL, "S,I,I">(call);
}

// Not in the middle of a routine that draws.
void run_quifin(const Call& call) {
  if (interp.callbacks.drawing > 0) return report_error_text("Routine not allowed in a callback:", call.name);
  QUIFIN();
}

void run_metafl(const Call& call) {
  interp.driver.device_chosen = true;
  run_bound<METAFL, "S">(call);
}

void run_unit(const Call&) { UNIT(operand_value(0).value.i != 0 ? stdout : nullptr); }

// The buffer is a STRING of the script. The library keeps no pointer to it, so that the script may do with it what it
// likes.
void run_legini(const Call&) {
  const std::int32_t lines = operand_value(1).value.i, length = operand_value(2).value.i;
  char* buffer = static_cast<char*>(output_memory(lines, length, 1));
  if (!buffer) return;
  LEGINI(buffer, lines, length);
  write_array_output(operand_variable(0), kString, buffer, lines * length);
}

void run_leglin(const Call& call) {
  char* buffer = legend_buffer(call, 0);
  if (!buffer) return;
  Argument<const char*> text(call, 1);
  LEGLIN(buffer, text.get(), operand_value(2).value.i);
  text.finish();
}

void run_legend(const Call& call) {
  if (const char* buffer = legend_buffer(call, 0)) LEGEND(buffer, operand_value(1).value.i);
}

void run_nxlegn(const Call& call) {
  if (const char* buffer = legend_buffer(call, 0)) set_int(*call.result, NXLEGN(buffer));
}

void run_piegrf(const Call& call) {
  const bool lines = operand_value(1).value.i > 0; // without any, the text does not matter
  const char* buffer = lines ? legend_buffer(call, 0) : "";
  if (!buffer) return;
  PIEGRF(buffer, operand_value(1).value.i, elements<float>(operand_value(2)), operand_value(3).value.i);
}

void run_nylegn(const Call& call) {
  if (const char* buffer = legend_buffer(call, 0)) set_int(*call.result, NYLEGN(buffer));
}

void run_grafr(const Call&) {
  const int n = operand_value(2).value.i;
  GRAFR(elements<float>(operand_value(0)), n, elements<float>(operand_value(1)), n);
}

// Streams are numbers to a script: 0 none, 6 the standard output, 17 the error file.
void run_fitsstr(const Call& call) {
  char text[kFitsText] = "";
  FITSSTR(text_of(operand_value(0)), text, kFitsText);
  set_string(*call.result, text);
}

void run_getuni(const Call& call) {
  constexpr int kConsole = 6, kErrorFile = 17;
  const FILE* stream = GETUNI();
  set_int(*call.result, !stream ? 0 : stream == stdout ? kConsole : kErrorFile);
}

} // namespace qsl
