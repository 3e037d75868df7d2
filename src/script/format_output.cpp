// PRINTF, FPRINTF and SPRINTF. A format is walked twice: the first pass checks it, the second writes.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "script/builtin_rows.h"
#include "script/file_functions.h"
#include "script/format_field.h"
#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/report.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

constexpr int kNumberText = kWidestField + 400; // the longest number: 309 digits, sign, point, decimals

// Where the text goes: a stream, or memory of which no more than the room is used.
struct Output {
  std::FILE* stream;
  char* memory;
  std::int64_t room, length;
};

void write_text(Output& out, std::string_view text) {
  if (out.stream) {
    std::fwrite(text.data(), 1, text.size(), out.stream);
    return;
  }
  for (char c : text) {
    if (out.length < out.room) out.memory[out.length] = c;
    ++out.length;
  }
}

// One walk over a format.
struct Walk {
  const char* function;
  std::string_view format;
  int next; // operand
  bool writes;
  Output* out;
};

bool fail(const Walk& w, const char* text) {
  report_error_text(text, w.function);
  return false;
}

void write_number(Walk& w, const FormatField& field, char letter, const ScriptValue& v, double real) {
  char format[16], text[kNumberText];
  const bool is_real = letter == 'e' || letter == 'E' || letter == 'f';
  std::snprintf(format, sizeof format, "%%%s*.*%s%c", field.zeros ? "0" : "", is_real ? "l" : "", letter);
  const int width = field.left ? -field.width : field.width;
  const int n = is_real ? std::snprintf(text, sizeof text, format, width, field.precision, real)
                        : std::snprintf(text, sizeof text, format, width, field.precision, v.value.i);
  write_text(*w.out, {text, static_cast<std::size_t>(std::clamp(n, 0, kNumberText - 1))});
}

void write_padded(Walk& w, const FormatField& field, std::string_view text) {
  const std::size_t width = static_cast<std::size_t>(field.width);
  const std::size_t blanks = width > text.size() ? width - text.size() : 0;
  if (field.left) write_text(*w.out, text);
  for (std::size_t i = 0; i < blanks; ++i) write_text(*w.out, " ");
  if (!field.left) write_text(*w.out, text);
}

// The text of a STRING or a CHAR array with an end mark. False: it is neither.
bool text_operand(const ScriptValue& v, std::string_view& text) {
  if (v.type != kString && v.type != kCharArray) return false;
  const std::string_view all(text_of(v), static_cast<std::size_t>(v.count));
  const std::size_t end = all.find('\0');
  text = all.substr(0, end);
  return v.type == kString || end != std::string_view::npos;
}

// Reduces a scalar to INT or DOUBLE.
ScriptValue reduced(const ScriptValue& v) {
  ScriptValue r = v;
  if (v.type == kChar || v.type == kByte || v.type == kShort) set_int(r, static_cast<std::int32_t>(number_of(v)));
  if (v.type == kFloat) set_double(r, static_cast<double>(v.value.f));
  return r;
}

// One conversion by its letter. False: letter and operand do not fit.
bool convert(Walk& w, const FormatField& field, char letter, const ScriptValue& operand_value) {
  const ScriptValue v = reduced(operand_value);
  switch (upper_case(letter)) {
  case 'C':
    if (v.type != kInt) return false;
    if (w.writes) {
      const char c = low_char(v.value.i);
      write_padded(w, field, {&c, 1});
    }
    return true;
  case 'D':
  case 'I':
  case 'O':
    if (v.type != kInt) return false;
    if (w.writes) write_number(w, field, upper_case(letter) == 'O' ? 'o' : 'd', v, 0.0);
    return true;
  case 'X':
    if (v.type != kInt) return false;
    if (w.writes) write_number(w, field, letter, v, 0.0);
    return true;
  case 'E':
  case 'F':
    if (v.type != kInt && v.type != kDouble) return false;
    if (w.writes) write_number(w, field, upper_case(letter) == 'F' ? 'f' : letter, v, number_of(v));
    return true;
  default: {
    std::string_view text;
    if (!text_operand(v, text)) return false;
    if (field.precision >= 0) text = text.substr(0, static_cast<std::size_t>(field.precision));
    if (w.writes) write_padded(w, field, text);
    return true;
  }
  }
}

// A conversion from the character behind '%' on; at moves behind it. False after a message.
bool walk_conversion(Walk& w, std::size_t& at) {
  if (w.next >= operand_count()) return fail(w, "More format specifications than variables in");
  const ScriptValue* v = resolve_operand(w.next++);
  if (!v) return false;
  FormatField field;
  char letter;
  if (!read_field(w.format, at, field, letter) || !std::strchr("CDIOXEFS", upper_case(letter)))
    return fail(w, "Syntax error in format specification in");
  return convert(w, field, letter, *v) || fail(w, "Parameter mismatch in");
}

// False after a message.
bool walk(Walk w) {
  const std::string_view f = w.format;
  std::size_t at = 0;
  while (at < f.size()) {
    if (f[at] == '%') {
      if (!walk_conversion(w, ++at)) return false;
      continue;
    }
    const bool line_feed = f.substr(at).starts_with("\\n");
    const std::size_t end = std::min(f.find_first_of("%\\", at + 1), f.size());
    if (w.writes) write_text(*w.out, line_feed ? std::string_view("\n") : f.substr(at, end - at));
    at = line_feed ? at + 2 : end;
  }
  return w.next == operand_count() || fail(w, "More variables than format specifications in");
}

// Formats the operands behind the format. False after a message.
bool write_formatted(const char* function, int format, Output& out) {
  const ScriptValue* v = resolve_operand(format);
  Walk w{function, {}, format + 1, false, &out};
  if (!v) return false;
  if (!text_operand(*v, w.format)) return fail(w, "Format specifier must be a string in");
  if (!walk(w)) return false;
  w.writes = true;
  return walk(w);
}

bool enough_operands(int first, int wanted, const char* function) {
  if (operand_count() - first >= wanted) return true;
  report_error_text("Missing parameters in", function);
  return false;
}

bool print_to_file(int first) {
  if (!enough_operands(first, 2, "FPRINTF")) return false;
  const ScriptValue* number = resolve_operand(first);
  if (!number) return false;
  if (number->type != kInt) {
    report_error("File number in FPRINTF must be an integer");
    return false;
  }
  const ScriptFile* file = find_file_for(number->value.i, "FPRINTF", {kWriteText, kUpdateText});
  if (!file) return false;
  Output out{file->stream, nullptr, 0, 0};
  return write_formatted("FPRINTF", first + 1, out);
}

bool print_to_array(int first) {
  if (!enough_operands(first, 2, "SPRINTF")) return false;
  const ScriptValue* target = resolve_operand(first);
  if (!target) return false;
  if (target->type != kCharArray || operand(first).type != kAlias) {
    report_error("Parameter 1 in SPRINTF must be a character array");
    return false;
  }
  Output out{nullptr, static_cast<char*>(allocate(target->count)), target->count, 0};
  if (!out.memory) return false;
  bool good = write_formatted("SPRINTF", first + 1, out);
  if (good && out.length >= out.room) {
    report_error("Not enough memory in parameter 1 in SPRINTF");
    good = false;
  }
  if (good) {
    std::memcpy(target->value.data, out.memory, static_cast<std::size_t>(out.length));
    elements<char>(*target)[out.length] = 0;
  }
  std::free(out.memory);
  return good;
}

} // namespace

void fn_printf(int first) {
  Output out{stdout, nullptr, 0, 0};
  const bool good = enough_operands(first, 1, "PRINTF") && write_formatted("PRINTF", first, out);
  replace_by_int(first, good ? 0 : -1);
}

void fn_fprintf(int first) { replace_by_int(first, print_to_file(first) ? 0 : -1); }
void fn_sprintf(int first) { replace_by_int(first, print_to_array(first) ? 0 : -1); }

} // namespace qsl
