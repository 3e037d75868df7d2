#include "script/own_routines.h"

#include "quilla/quilla.h"
#include "script/bound_routine.h"
#include "script/interpreter.h"
#include "script/system_variables.h"

namespace qsl {

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
