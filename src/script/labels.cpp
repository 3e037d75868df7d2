// Labels and GOTO.
#include <cstring>

#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/report.h"
#include "script/statement_reader.h"

namespace qsl {
namespace {

constexpr std::int8_t kUsedLabel = 12;

Label* find_label(const char* name) {
  for (Label& l : interp.control.labels)
    if (l.in_use && l.level == interp.variables.level && std::strcmp(l.name, name) == 0) return &l;
  return nullptr;
}

Label* new_label(const char* name) {
  for (Label& l : interp.control.labels) {
    if (l.in_use) continue;
    l.in_use = kUsedLabel;
    l.level = static_cast<std::int8_t>(interp.variables.level);
    set_name(l.name, name);
    return &l;
  }
  report_error("Maximal number of labels is reached");
  return nullptr;
}

// The label that a forward GOTO looks for has been reached. The reports do not undo the jump.
void end_search() {
  ControlState& c = interp.control;
  c.skip.forward_goto = false;
  sum_skip_flags();
  if (c.if_depth > c.forward.if_depth) report_error("Illegal jump into an IF construct");
  if (c.loop_depth > c.forward.loop_depth) report_error("Illegal jump into a Loop construct");
  if (c.switch_depth > c.forward.switch_depth) report_error("Illegal jump into a SWITCH construct");
}

// Position of the label statement that runs; it is saved if it has not been.
int label_position(bool replay) {
  ReaderState& r = interp.reader;
  if (replay) return r.saved_cursor;
  if (r.recording) return r.last_saved ? r.saved_cursor - 1 : -1;
  r.recording = true;
  return save_statement(r.running) ? r.saved_cursor - 1 : -1;
}

void search_label(const char* name) {
  ControlState& c = interp.control;
  set_name(c.forward.name, name);
  c.forward.if_depth = c.if_depth;
  c.forward.loop_depth = c.loop_depth;
  c.forward.switch_depth = c.switch_depth;
  c.skip.forward_goto = true;
  sum_skip_flags();
}

void jump_back(const Label& label) {
  ControlState& c = interp.control;
  if (c.if_depth < label.if_depth) return report_error("Illegal jump into an IF construct");
  if (c.loop_depth < label.loop_depth) return report_error("Illegal jump into a Loop construct");
  if (c.switch_depth < label.switch_depth) return report_error("Illegal jump into a SWITCH construct");
  if (label.position < 0) return report_error("Too many statements in the statement buffer");
  continue_at(label.position);
  c.skip_sum = label.skip_sum;
  c.if_depth = label.if_depth;
  c.loop_depth = label.loop_depth;
  c.switch_depth = label.switch_depth;
}

} // namespace

void erase_labels(int level) {
  for (Label& l : interp.control.labels)
    if (l.level == level) l.in_use = 0;
  interp.control.labels_in_use[level] = false;
}

void run_label(const char* name) {
  ControlState& c = interp.control;
  const bool replay = replaying();
  Label* label = find_label(name);
  if (label && !replay) return report_error_text("Multiple defined label", name);
  if (!label) label = new_label(name);
  if (!label) return;
  c.labels_in_use[interp.variables.level] = true;
  label->position = label_position(replay);
  if (c.skip.forward_goto && std::strcmp(c.forward.name, name) == 0) end_search();
  label->if_depth = static_cast<std::int8_t>(c.if_depth);
  label->loop_depth = static_cast<std::int8_t>(c.loop_depth);
  label->switch_depth = static_cast<std::int8_t>(c.switch_depth);
  label->skip_sum = static_cast<std::int8_t>(c.skip_sum);
}

void run_goto() {
  if (next_token() != kIdentifier) {
    if (token() != kErrorToken) report_error("Expected label");
    return;
  }
  if (const Label* label = find_label(token_name())) {
    jump_back(*label);
  } else {
    search_label(token_name());
  }
  if (next_token() != kEnd && token() != kErrorToken) report_error("Expected end of statement");
}

} // namespace qsl
