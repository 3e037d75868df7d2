#include "script/control_structures.h"

#include <algorithm>
#include <cstring>

#include "script/statement_reader.h"
#include "script/tokenizer.h"

namespace qsl {

bool ends_construct(const char* first, const char* word) {
  return std::strcmp(first, "END") == 0 && token() == kIdentifier && std::strcmp(token_name(), word) == 0;
}

void sum_skip_flags() {
  const SkipFlags& s = interp.control.skip;
  interp.control.skip_sum = s.branch + s.forward_goto + s.loop + s.no_case + s.rest_of_switch + s.rest_of_routine;
}

// The replay loop adds 1 behind a statement that is itself being replayed.
void continue_at(int position) {
  ReaderState& r = interp.reader;
  r.saved_cursor = replaying() ? position - 1 : position;
}

void forget_statements(int from) {
  ReaderState& r = interp.reader;
  const int position = std::clamp(from, 0, r.saved_count);
  const bool replay = replaying();
  free_saved_statements(position);
  if (r.saved_cursor >= position) r.saved_cursor = replay ? position - 1 : position;
}

bool labels_used_up_to(int level) {
  const bool* used = interp.control.labels_in_use;
  return std::any_of(used, used + level + 1, [](bool u) { return u; });
}

void drop_constructs() {
  ControlState& c = interp.control;
  c.skip = {};
  c.if_depth = c.loop_depth = c.switch_depth = 0;
  c.pending_jump = kNoJump;
  for (int level = 0; level <= kRoutineLevels; ++level) erase_labels(level);
  interp.reader.recording = false;
  free_saved_statements(0);
  interp.reader.saved_cursor = 0;
  sum_skip_flags();
}

} // namespace qsl
