#include "script/interrupt.h"

#include <unistd.h>

#include "core/stop_request.h"
#include "script/control_structures.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/user_routines.h"
#include "script/user_statements.h"

namespace qsl {

volatile std::sig_atomic_t interrupt_requests;

namespace {

// A second interrupt ends a script whose statement does not come to an end.
extern "C" void keep_interrupt(int) {
  interrupt_requests = interrupt_requests + 1;
  if (interrupt_requests > 1 && !interp.driver.interactive_start) _exit(kInterruptStatus);
}

} // namespace

void watch_interrupts(bool prompt) {
  quilla::stopFlag = &interrupt_requests;
  struct sigaction action {};
  action.sa_handler = keep_interrupt;
  sigemptyset(&action.sa_mask);
  // A pipe at the prompt is read on; a terminal or a script's input gives up what it waits for.
  action.sa_flags = prompt && !isatty(STDIN_FILENO) ? SA_RESTART : 0;
  sigaction(SIGINT, &action, nullptr);
}

void clear_interrupt() { interrupt_requests = 0; }
void note_interrupt() { interrupt_requests = 1; }

void stop_at_interrupt() {
  DriverState& d = interp.driver;
  clear_interrupt();
  if (!d.interactive_start) {
    run_exit();
    d.exit_status = kInterruptStatus;
    return;
  }
  drop_routines();
  drop_constructs();
  while (pop_source()) {
  }
  d.interactive_mode = true;
  interp.reader.include_pending = false;
  interp.reader.continued = false;
  report_error("Interrupted");
}

} // namespace qsl
