// SCANF, FSCANF and SSCANF. A format is walked twice: the first pass checks it, the second reads. Text between the
// conversions is not held against the input.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

#include "script/builtin_rows.h"
#include "script/file_functions.h"
#include "script/format_field.h"
#include "script/operand_stack.h"
#include "script/report.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

constexpr int kFault = -1;

struct Walk {
  const char* function;
  const char* at_end; // message at the end of the input, null: none
  std::string_view format;
  std::FILE* stream;
  int next;  // operand
  int count; // conversions done
  bool reads;
};

bool fail(const Walk& w, const char* text) {
  report_error_text(text, w.function);
  return false;
}

// What fscanf has returned for one conversion. False: nothing was read, after a message unless the input has ended.
bool was_read(Walk& w, int result) {
  if (result == 1) {
    ++w.count;
    return true;
  }
  if (result != EOF) return fail(w, "Read error in");
  w.count = kFault;
  if (w.at_end) report_error(w.at_end);
  return false;
}

// Index of the variable behind an operand; a new name becomes a variable. -1 after a message.
int target_variable(int position) {
  ScriptValue& v = operand(position);
  if (!peek_operand(position)) v.value.index = find_variable(v.name);
  if (v.value.index < 0) v.value.index = new_variable(v.name, interp.variables.level);
  return v.value.index;
}

// A conversion of a constant letter with the width of the field.
struct ScanFormat {
  char text[24];
};
ScanFormat scan_format(int width, const char* letters) {
  ScanFormat f;
  if (width > 0) {
    std::snprintf(f.text, sizeof f.text, "%%%d%s", width, letters);
  } else {
    std::snprintf(f.text, sizeof f.text, "%%%s", letters);
  }
  return f;
}

bool read_integer(Walk& w, int position, int width) {
  long number = 0;
  if (!was_read(w, std::fscanf(w.stream, scan_format(width, "ld").text, &number))) return false;
  const int index = target_variable(position);
  if (index < 0) return false;
  constexpr long kLow = std::numeric_limits<std::int32_t>::min(), kHigh = std::numeric_limits<std::int32_t>::max();
  free_value(variable(index));
  set_int(variable(index), static_cast<std::int32_t>(std::clamp(number, kLow, kHigh)));
  return true;
}

bool read_character(Walk& w, int position) {
  const int c = std::getc(w.stream);
  if (!was_read(w, c == EOF ? EOF : 1)) return false;
  const int index = target_variable(position);
  if (index < 0) return false;
  free_value(variable(index));
  set_int(variable(index), static_cast<signed char>(c));
  return true;
}

bool read_real(Walk& w, int position, int width) {
  double number = 0.0;
  if (!was_read(w, std::fscanf(w.stream, scan_format(width, "lf").text, &number))) return false;
  const int index = target_variable(position);
  if (index < 0) return false;
  free_value(variable(index));
  set_double(variable(index), number);
  return true;
}

// A word into the CHAR array, as much as it takes with its end mark.
bool read_word(Walk& w, int position, int width) {
  const ScriptValue* v = peek_operand(position);
  if (!v || v->type != kCharArray) return fail(w, "A character array must be used in");
  if (v->count < 2) return fail(w, "Not enough array elements in");
  const int room = v->count - 1;
  const int limit = width > 0 ? std::min(width, room) : room;
  return was_read(w, std::fscanf(w.stream, scan_format(limit, "s").text, elements<char>(*v)));
}

// A conversion from the character behind '%' on. False after a message or at the end of the input.
bool walk_conversion(Walk& w, std::size_t& at) {
  if (w.next >= operand_count()) return fail(w, "More format specifications than variables in");
  const int position = w.next++;
  if (operand(position).type != kAlias) return fail(w, "Variables must be used in");
  FormatField field;
  char letter;
  if (!read_field(w.format, at, field, letter)) return fail(w, "Syntax error in format specification in");
  switch (upper_case(letter)) {
  case 'C': return !w.reads || read_character(w, position);
  case 'D':
  case 'I': return !w.reads || read_integer(w, position, field.width);
  case 'E':
  case 'F': return !w.reads || read_real(w, position, field.width);
  case 'S': {
    const ScriptValue* v = peek_operand(position);
    if (!v || v->type != kCharArray) return fail(w, "A character array must be used in");
    return !w.reads || read_word(w, position, field.width);
  }
  default: return fail(w, "Syntax error in format specification in");
  }
}

bool walk(Walk& w) {
  for (std::size_t at = 0; at < w.format.size();) {
    if (w.format[at++] != '%') continue;
    if (!walk_conversion(w, at)) return false;
  }
  return w.next == operand_count() || fail(w, "More variables than format specifications in");
}

// Text of a STRING or a terminated CHAR array at an operand. False: it is neither.
bool text_at(int position, std::string_view& text) {
  const ScriptValue* v = peek_operand(position);
  if (!v || (v->type != kString && v->type != kCharArray)) return false;
  const std::string_view all(text_of(*v), static_cast<std::size_t>(v->count));
  const std::size_t end = all.find('\0');
  text = all.substr(0, end);
  return v->type == kString || end != std::string_view::npos;
}

// Reads by the format at an operand; the number of values read, or -1.
int read_formatted(Walk w, int format) {
  if (!text_at(format, w.format)) {
    fail(w, "Format specifier must be a string in");
    return kFault;
  }
  // The format stays while variables change.
  char* copy = static_cast<char*>(allocate(static_cast<std::int64_t>(w.format.size())));
  if (!copy) return kFault;
  std::memcpy(copy, w.format.data(), w.format.size());
  w.format = {copy, w.format.size()};
  w.next = format + 1;
  const long start = w.stream ? std::ftell(w.stream) : -1;
  Walk check = w;
  bool good = walk(check);
  if (good) {
    w.reads = true;
    good = walk(w);
  }
  const bool ended = w.count == kFault;
  if (!good && !ended && start >= 0) std::fseek(w.stream, start, SEEK_SET);
  std::free(copy);
  return good ? w.count : kFault;
}

bool enough_operands(int first, int wanted, const char* function) {
  if (operand_count() - first >= wanted) return true;
  report_error_text("Missing parameters in", function);
  return false;
}

int scan_console(int first) {
  if (interp.driver.interactive_mode) {
    report_error("SCANF cannot be used in interactive mode");
    return kFault;
  }
  if (!enough_operands(first, 1, "SCANF")) return kFault;
  std::fflush(stdout);
  return read_formatted({"SCANF", nullptr, {}, stdin, 0, 0, false}, first);
}

int scan_file(int first) {
  if (!enough_operands(first, 2, "FSCANF")) return kFault;
  const ScriptValue* number = resolve_operand(first);
  if (!number) return kFault;
  if (number->type != kInt) {
    report_error("File number in FSCANF must be an integer");
    return kFault;
  }
  const ScriptFile* file = find_file_for(number->value.i, "FSCANF", {kReadText});
  if (!file) return kFault;
  return read_formatted({"FSCANF", nullptr, {}, file->stream, 0, 0, false}, first + 1);
}

int scan_text(int first) {
  if (!enough_operands(first, 2, "SSCANF")) return kFault;
  std::string_view text;
  if (!text_at(first, text)) {
    report_error("Parameter 1 in SSCANF must be a string");
    return kFault;
  }
  // A stream of no bytes cannot be opened; a blank has as little to read.
  char* copy = static_cast<char*>(allocate(static_cast<std::int64_t>(text.size())));
  if (!copy) return kFault;
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = ' ';
  std::FILE* stream = fmemopen(copy, text.empty() ? 1 : text.size(), "r");
  if (stream && text.empty()) std::getc(stream);
  int result = kFault;
  if (stream) {
    result = read_formatted({"SSCANF", "End of string is reached in SSCANF", {}, stream, 0, 0, false}, first + 1);
    std::fclose(stream);
  } else {
    report_error("Not enough memory");
  }
  std::free(copy);
  return result;
}

} // namespace

void fn_scanf(int first) { replace_by_int(first, scan_console(first)); }
void fn_fscanf(int first) { replace_by_int(first, scan_file(first)); }
void fn_sscanf(int first) { replace_by_int(first, scan_text(first)); }

} // namespace qsl
