#include "script/own_routines.h"

#include <limits>

#include "graph2d/legend.h"
#include "quilla/quilla.h"
#include "script/bound_routine.h"
#include "script/interpreter.h"
#include "script/report.h"
#include "script/system_variables.h"

namespace qsl {
namespace {

// Zeroed memory of an array output, by the product of two sizes; null after a message.
void* output_memory(std::int64_t n, std::int64_t m, int size) {
  if (n * m > std::numeric_limits<std::int32_t>::max()) {
    report_error("Not enough memory");
    return nullptr;
  }
  if (n * m >= 1) return allocate_zeroed(n * m, size);
  report_error("Non positive parameter");
  return nullptr;
}

// Gives memory to an output variable. What it owned before is freed only now: the routine may have read it.
void store_output(int index, Tag type, void* data, std::int64_t count) {
  ScriptValue& v = variable(index);
  free_value(v);
  v.type = type;
  v.ndim = 1;
  v.count = static_cast<std::int32_t>(count);
  v.dims = nullptr;
  v.value.data = data;
}

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

void run_metafl(const Call& call) {
  interp.driver.device_chosen = true;
  run_bound<METAFL, "S">(call);
}

void run_unit(const Call&) { UNIT(operand_value(0).value.i != 0 ? stdout : nullptr); }

void run_trfmat(const Call&) {
  auto size = [](int k) { return operand_value(k).value.i; };
  const std::int64_t nx = size(4), ny = size(5);
  float* result = static_cast<float*>(output_memory(nx, ny, sizeof(float)));
  if (!result) return;
  TRFMAT(elements<float>(operand_value(0)), size(1), size(2), result, size(4), size(5));
  store_output(operand_variable(3), kFloatArray, result, nx * ny);
}

// The buffer is a STRING of the script. The library keeps no pointer to it, so that the script may do with it what it
// likes.
void run_legini(const Call&) {
  const std::int32_t lines = operand_value(1).value.i, length = operand_value(2).value.i;
  char* buffer = static_cast<char*>(output_memory(lines, length, 1));
  if (!buffer) return;
  const std::int64_t count = static_cast<std::int64_t>(lines) * length;
  LEGINI(buffer, lines, length);
  store_output(operand_variable(0), kString, buffer, count);
}

void run_leglin(const Call& call) {
  char* buffer = legend_buffer(call, 0);
  if (!buffer) return;
  Argument<const char*> text(1);
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
void run_getuni(const Call& call) {
  constexpr int kConsole = 6, kErrorFile = 17;
  const FILE* stream = GETUNI();
  set_int(*call.result, !stream ? 0 : stream == stdout ? kConsole : kErrorFile);
}

} // namespace qsl
