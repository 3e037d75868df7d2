#include "script/control_structures.h"

#include <cstring>
#include <span>

#include "script/report.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

bool is_one_of(const char* name, std::span<const char* const> words) {
  for (const char* word : words)
    if (std::strcmp(name, word) == 0) return true;
  return false;
}

// END and the identifier behind it.
bool ends_construct(const char* first, std::span<const char* const> words) {
  return std::strcmp(first, "END") == 0 && token() == kIdentifier && is_one_of(token_name(), words);
}

bool claim(const char* name) {
  if (interp.control.skip_sum == 0) report_unavailable("Statement", name);
  return true;
}

} // namespace

bool run_if_family(const char*, const char* first) {
  constexpr const char* kWords[] = {"IF", "ELSEIF", "ELSE", "ENDIF"};
  constexpr const char* kEnds[] = {"IF"};
  if (ends_construct(first, kEnds)) return claim("END IF");
  return is_one_of(first, kWords) && claim(first);
}

bool run_loop_family(const char*, const char* first) {
  constexpr const char* kWords[] = {"DO", "WHILE"};
  if (ends_construct(first, kWords)) return claim(std::strcmp(token_name(), "DO") == 0 ? "END DO" : "END WHILE");
  return is_one_of(first, kWords) && claim(first);
}

bool run_switch_family(const char*, const char* first) {
  constexpr const char* kWords[] = {"SWITCH", "CASE", "DEFAULT"};
  constexpr const char* kEnds[] = {"SWITCH"};
  if (ends_construct(first, kEnds)) return claim("END SWITCH");
  return is_one_of(first, kWords) && claim(first);
}

// The main script ignores an END of its own.
bool run_routine_end(const char* first) { return std::strcmp(first, "END") == 0 && token() == kEnd; }

void run_label(const char*) { claim("label"); }

void run_function_call(const char*, const char*) { claim("FUNCTION"); }

bool end_of_source() { return false; }

} // namespace qsl
