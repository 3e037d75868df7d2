#include "script/tokenizer.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "script/report.h"

namespace qsl {
namespace {

constexpr int kNumberLength = kStatementLength;
constexpr const char* kSingleCharacters = "!#$%&()*+,-/:=[]{|}";

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool is_hexadecimal(char c) { return is_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

const char* here() { return interp.token.text + interp.token.position; }

int finish(int kind) {
  interp.token.kind = kind;
  interp.token.previous = kind;
  return kind;
}

int syntax_fault() {
  if (!interp.token.quiet) report_error("Syntax error");
  return finish(kErrorToken);
}

// Name from the current position; a leading % belongs to it.
int read_name() {
  char* name = interp.token.current.name;
  int length = 0;
  const char* p = here();
  do {
    if (length < kNameLength) name[length++] = upper_case(*p);
    ++p;
    ++interp.token.position;
  } while (is_letter(*p) || is_digit(*p) || *p == '_');
  name[length] = 0;
  return finish(kIdentifier);
}

// The reference converts in 32 bits, where numbers beyond the range become its ends.
std::int32_t convert_integer(const char* text, int base) {
  const long long number = std::strtoll(text, nullptr, base);
  if (number > std::numeric_limits<std::int32_t>::max()) return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(number);
}

int read_number() {
  char text[kNumberLength + 1];
  int length = 0, dots = 0;
  bool exponent = false, hexadecimal = false;
  for (;;) {
    const char c = *here();
    const bool x = c == 'x' || c == 'X', e = c == 'e' || c == 'E';
    if (!is_hexadecimal(c) && c != '.' && !x) break;
    dots += c == '.';
    hexadecimal |= x;
    exponent |= e && !hexadecimal;
    if (length < kNumberLength) text[length++] = c;
    ++interp.token.position;
    if (e && !hexadecimal && (*here() == '+' || *here() == '-')) {
      if (length < kNumberLength) text[length++] = *here();
      ++interp.token.position;
    }
  }
  text[length] = 0;
  ScriptValue& value = interp.token.current;
  if (dots == 0 && !exponent) {
    set_int(value, convert_integer(text, hexadecimal ? 16 : 10));
    return finish(kIntConstant);
  }
  if (!hexadecimal && (exponent || dots == 1)) {
    set_double(value, std::strtod(text, nullptr));
    return finish(kFloatConstant);
  }
  return syntax_fault();
}

int read_string(char quote) {
  TokenState& t = interp.token;
  int length = 0;
  ++t.position;
  for (; *here() && *here() != quote; ++t.position)
    if (length < kStringConstantLength) t.string_text[length++] = *here();
  if (*here() == quote) ++t.position;
  t.string_text[length] = 0;
  t.current.type = kString;
  t.current.ndim = 1;
  t.current.count = length;
  t.current.dims = nullptr;
  t.current.value.data = t.string_text;
  return finish(kStringConstant);
}

// A sign behind an operand is binary.
bool sign_is_binary(char sign) {
  switch (interp.token.previous) {
  case kIntConstant:
  case kFloatConstant:
  case kIdentifier:
  case ')':
  case ']': return true;
  case kStringConstant: return sign == '+';
  default: return false;
  }
}

struct Operator {
  char text[3];
  int kind;
};
constexpr Operator kOperators[] = {{"**", kPower},        {"==", kEqual},     {"!=", kNotEqual},
                                   {">=", kGreaterEqual}, {"<=", kLessEqual}, {"&&", kAnd},
                                   {"||", kOr},           {">", kGreater},    {"<", kLess}};

int read_operator() {
  const char* p = here();
  for (const Operator& op : kOperators) {
    const std::size_t length = std::strlen(op.text);
    if (std::strncmp(p, op.text, length) != 0) continue;
    interp.token.position += static_cast<int>(length);
    return finish(op.kind);
  }
  ++interp.token.position;
  if ((*p == '-' || *p == '+') && !sign_is_binary(*p)) return finish(*p == '-' ? kUnaryMinus : kUnaryPlus);
  return std::strchr(kSingleCharacters, *p) ? finish(*p) : syntax_fault();
}

} // namespace

char upper_case(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

void set_token_source(const char* text) {
  TokenState& t = interp.token;
  t.text = text;
  t.position = 0;
  t.kind = kEnd;
  t.previous = kEnd;
  t.quiet = false;
}

int next_token() {
  while (*here() == ' ' || *here() == '\t') ++interp.token.position;
  const char c = *here();
  if (c == 0) return finish(kEnd);
  if (is_letter(c)) return read_name();
  if (is_digit(c) || c == '.') return read_number();
  if (c == '\'' || c == '"') return read_string(c);
  const int previous = interp.token.previous;
  if (c == '%' && is_letter(here()[1]) && previous != kIntConstant && previous != kIdentifier) return read_name();
  return read_operator();
}

char peek_character() {
  const char* p = here();
  while (*p == ' ' || *p == '\t') ++p;
  return *p;
}

} // namespace qsl
