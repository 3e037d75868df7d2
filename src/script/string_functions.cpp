// Built-in functions of texts. A text is a STRING or a CHAR array, up to its first zero byte.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

#include "device/writers.h"
#include "script/builtin_rows.h"
#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/report.h"

namespace qsl {
namespace {

constexpr int kNumberDigits = 100;               // most decimals of NUMTOA
constexpr int kNumberText = 400 + kNumberDigits; // longest number: 309 digits, sign, point, decimals
constexpr std::int64_t kTooLong = -1;

// Text of an argument; empty after a message.
std::string_view text_at(int position) {
  const ScriptValue* v = resolve_operand(position);
  if (!v || !v->value.data) return {};
  const std::string_view all(text_of(*v), static_cast<std::size_t>(v->count));
  return all.substr(0, all.find('\0'));
}

int int_at(int position) {
  const ScriptValue* v = resolve_operand(position);
  return v ? v->value.i : 0;
}

// Changes the letters of the argument in place: it is a private copy.
void change_letters(int first, char from, char to) {
  clear_stack(first + 1);
  if (!materialize(first)) return;
  ScriptValue& v = operand(first);
  char* text = elements<char>(v);
  for (int i = 0; i < v.count; ++i)
    if (text[i] >= from && text[i] <= from + ('Z' - 'A')) text[i] = static_cast<char>(text[i] - from + to);
}

} // namespace

void fn_strlen(int first) { replace_by_int(first, static_cast<int>(text_at(first).size())); }

void fn_trmlen(int first) {
  const std::string_view text = text_at(first);
  replace_by_int(first, static_cast<int>(text.find_last_not_of(' ') + 1));
}

void fn_strlwr(int first) { change_letters(first, 'A', 'a'); }
void fn_strupr(int first) { change_letters(first, 'a', 'A'); }

void fn_strrep(int first) {
  const std::string_view text = text_at(first);
  const std::int64_t times = std::max(int_at(first + 1), 0);
  const std::int64_t length = times * static_cast<std::int64_t>(text.size());
  ScriptValue result{};
  char* data = static_cast<char*>(allocate(length > std::numeric_limits<std::int32_t>::max() ? kTooLong : length));
  if (!data) return;
  for (std::int64_t i = 0; i < length; i += static_cast<std::int64_t>(text.size()))
    std::memcpy(data + i, text.data(), text.size());
  data[length] = 0;
  result.type = kString;
  result.ndim = 1;
  result.count = static_cast<std::int32_t>(length);
  result.value.data = data;
  replace_operands(first, result);
}

void fn_strstr(int first) {
  const std::size_t at = text_at(first).find(text_at(first + 1));
  replace_by_int(first, at == std::string_view::npos ? -1 : static_cast<int>(at));
}

void fn_substr(int first) {
  const std::string_view text = text_at(first);
  const int start = int_at(first + 1), length = int_at(first + 2);
  if (start < 0 || start >= static_cast<int>(text.size()))
    return report_error_text("Parameter 2 out of range", "SUBSTR");
  if (length <= 0) return report_error_text("Non positive value of parameter 3", "SUBSTR");
  const std::string_view part = text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  replace_by_string(first, part.data(), static_cast<std::int64_t>(part.size()));
}

void fn_atonum(int first) {
  clear_stack(first + 1);
  if (!materialize(first)) return;
  ScriptValue copy{};
  const std::string_view text = text_at(first);
  if (!set_string(copy, text.data(), static_cast<std::int64_t>(text.size()))) return;
  const char* digits = text_of(copy);
  const bool real = std::strchr(digits, '.') != nullptr;
  const double number = real ? std::strtod(digits, nullptr) : 0.0;
  const long long integer = real ? 0 : std::strtoll(digits, nullptr, 10);
  free_value(copy);
  if (real) return replace_by_double(first, number);
  constexpr long long kLow = std::numeric_limits<std::int32_t>::min(), kHigh = std::numeric_limits<std::int32_t>::max();
  replace_by_int(first, static_cast<std::int32_t>(std::clamp(integer, kLow, kHigh)));
}

void fn_numtoa(int first) {
  const ScriptValue* number = resolve_operand(first);
  if (!number) return;
  char text[kNumberText];
  const int digits = std::clamp(int_at(first + 1), -1, kNumberDigits);
  const int length = quilla::qqfcha(number_of(*number), digits, text, 0);
  replace_by_string(first, text, length);
}

} // namespace qsl
