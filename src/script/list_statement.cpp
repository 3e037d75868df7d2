#include "script/list_statement.h"

#include <cstdio>
#include <cstring>

#include "script/report.h"
#include "script/tokenizer.h"
#include "script/variables.h"

namespace qsl {
namespace {

void list_text(const char* text, int length) {
  if (length < kListedTextLength) std::printf(", Value: %.*s", length, text);
  std::putchar('\n');
}

void list_char_array(const ScriptValue& v) {
  const void* zero = v.count > 0 ? std::memchr(v.value.data, 0, static_cast<std::size_t>(v.count)) : nullptr;
  list_text(text_of(v), zero ? static_cast<int>(static_cast<const char*>(zero) - text_of(v)) : v.count);
}

void list_extents(const ScriptValue& v) {
  if (v.ndim > 1) {
    std::fputs(", Dim: [", stdout);
    for (int i = 0; i < v.ndim; ++i) std::printf(i + 1 < v.ndim ? "%d," : "%d]", v.dims[i]);
  }
  std::putchar('\n');
}

void list_variable(const char* name, const ScriptValue& v) {
  std::printf(" Name : %-8s, Type : %-8s, Count: %d", name, type_name(v.type), v.count);
  switch (v.type) {
  case kChar: std::printf(", Value: %c\n", v.value.c); break;
  case kByte: std::printf(", Value: %d\n", v.value.b); break;
  case kShort: std::printf(", Value: %d\n", v.value.h); break;
  case kInt: std::printf(", Value: %d\n", v.value.i); break;
  case kFloat: std::printf(", Value: %f\n", static_cast<double>(v.value.f)); break;
  case kDouble: std::printf(", Value: %lf\n", v.value.d); break;
  case kComplex:
    std::printf(", Value: (%f,%f)\n", static_cast<double>(v.value.z.re), static_cast<double>(v.value.z.im));
    break;
  case kString: list_text(text_of(v), static_cast<int>(std::strlen(text_of(v)))); break;
  case kCharArray:
    if (v.ndim > 1) {
      list_extents(v);
    } else {
      list_char_array(v);
    }
    break;
  default: list_extents(v);
  }
}

// The variable or, for an alias, its target under the alias's name.
void list_slot(int slot) {
  const ScriptValue& v = variable(slot);
  const int index = v.type == kAlias ? v.value.index : slot;
  if (index >= 0 && slot_in_use(index)) list_variable(v.name, variable(index));
}

enum ListKind { kAllNames, kSystemNames, kUserNames };

void list_all(ListKind kind) {
  for (int i = 0; i < kVariables; ++i) {
    const ScriptValue& v = variable(i);
    const bool system = is_system_name(v.name);
    if (!slot_in_use(i) || (!system && v.level != interp.variables.level)) continue;
    if (kind == kAllNames || system == (kind == kSystemNames)) list_slot(i);
  }
}

void list_option() {
  if (next_token() != kIdentifier) {
    if (token() != kErrorToken) report_error("Syntax error - Expected identifier");
    return;
  }
  const char letter = token_name()[0];
  if (letter != 'S' && letter != 'U') return report_error_char("Undefined LIST option", letter);
  list_all(letter == 'S' ? kSystemNames : kUserNames);
}

void list_name(const char* name) {
  if (find_variable(name) < 0) return report_error_text("Undefined variable", name);
  list_slot(find_slot(name, interp.variables.level));
}

} // namespace

void run_list() {
  if (next_token() == kEnd) return list_all(kAllNames);
  if (token() == kUnaryMinus) return list_option();
  for (; token() != kEnd; next_token()) {
    if (token() == ',') continue;
    if (token() != kIdentifier) {
      if (token() != kErrorToken) report_error("Syntax error - Expected identifier");
      return;
    }
    list_name(token_name());
  }
}

} // namespace qsl
