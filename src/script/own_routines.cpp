#include "script/own_routines.h"

#include <limits>

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

} // namespace qsl
