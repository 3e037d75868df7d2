// Numbers as text, by integer arithmetic.
#include <cmath>
#include <cstdint>
#include <cstring>

#include "device/writers.h"

namespace quilla {
namespace {

struct DigitPairs {
  char text[200];
  constexpr DigitPairs() : text{} {
    for (int i = 0; i < 100; ++i) {
      text[2 * i] = static_cast<char>('0' + i / 10);
      text[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
  }
};
constexpr DigitPairs kPairs;

inline char* putPair(char* p, std::uint32_t value) {
  std::memcpy(p, kPairs.text + 2 * value, 2);
  return p + 2;
}

// Digits of value, without leading zeros; "0" for 0.
inline char* putDigits(char* p, std::uint32_t value) {
  if (value < 100) {
    if (value < 10) {
      *p = static_cast<char>('0' + value);
      return p + 1;
    }
    return putPair(p, value);
  }
  if (value < 10000) {
    const std::uint32_t high = value / 100;
    if (high < 10) {
      *p++ = static_cast<char>('0' + high);
    } else {
      p = putPair(p, high);
    }
    return putPair(p, value % 100);
  }
  p = putDigits(p, value / 10000);
  const std::uint32_t low = value % 10000;
  return putPair(putPair(p, low / 100), low % 100);
}

char* putLongDigits(char* p, std::uint64_t value) {
  constexpr std::uint32_t kBlock = 100000000;
  if (value <= UINT32_MAX) return putDigits(p, static_cast<std::uint32_t>(value));
  p = putLongDigits(p, value / kBlock);
  const auto low = static_cast<std::uint32_t>(value % kBlock);
  const std::uint32_t upper = low / 10000, lower = low % 10000;
  p = putPair(putPair(p, upper / 100), upper % 100);
  return putPair(putPair(p, lower / 100), lower % 100);
}

// The whole number |value| * 10^Decimals, rounded, with the point before its last Decimals digits.
template <int Decimals> inline char* putFixed(char* p, double value) {
  constexpr std::uint32_t kUnit = Decimals == 1 ? 10 : Decimals == 2 ? 100 : 1000;
  constexpr double kLimit = 1e12;
  double magnitude = std::fabs(value);
  if (!(magnitude < kLimit)) magnitude = std::isnan(value) ? 0.0 : kLimit;
  const auto scaled = static_cast<std::uint64_t>(magnitude * kUnit + 0.5);
  if (value < 0.0 && scaled != 0) *p++ = '-';
  std::uint32_t fraction;
  if (scaled <= UINT32_MAX) {
    const auto small = static_cast<std::uint32_t>(scaled);
    p = putDigits(p, small / kUnit);
    fraction = small % kUnit;
  } else {
    p = putLongDigits(p, scaled / kUnit);
    fraction = static_cast<std::uint32_t>(scaled % kUnit);
  }
  *p++ = '.';
  if constexpr (Decimals == 2) return putPair(p, fraction);
  *p++ = static_cast<char>('0' + fraction / (kUnit / 10));
  return Decimals == 1 ? p : putPair(p, fraction % 100);
}

// A whole number as blocks of nine digits, least significant first. The largest real number has 309 digits, and the
// smallest scaled by 10^100 starts from 53 + 333 bits, so that 40 blocks hold every one.
struct BigNumber {
  static constexpr std::uint32_t kBlock = 1000000000;
  std::uint32_t blocks[48];
  int count;
};

void multiply(BigNumber& n, std::uint32_t factor) {
  std::uint64_t carry = 0;
  for (int i = 0; i < n.count; ++i) {
    carry += static_cast<std::uint64_t>(n.blocks[i]) * factor;
    n.blocks[i] = static_cast<std::uint32_t>(carry % BigNumber::kBlock);
    carry /= BigNumber::kBlock;
  }
  if (carry > 0) n.blocks[n.count++] = static_cast<std::uint32_t>(carry);
}

void divide(BigNumber& n, std::uint32_t divisor) {
  std::uint64_t rest = 0;
  for (int i = n.count - 1; i >= 0; --i) {
    rest = rest * BigNumber::kBlock + n.blocks[i];
    n.blocks[i] = static_cast<std::uint32_t>(rest / divisor);
    rest %= divisor;
  }
  while (n.count > 1 && n.blocks[n.count - 1] == 0) --n.count;
}

void addOne(BigNumber& n) {
  int i = 0;
  while (i < n.count && n.blocks[i] == BigNumber::kBlock - 1) n.blocks[i++] = 0;
  if (i == n.count) n.blocks[n.count++] = 0;
  ++n.blocks[i];
}

int bigDigits(const BigNumber& n, char* out) {
  char* p = putDigits(out, n.blocks[n.count - 1]);
  for (int i = n.count - 2; i >= 0; --i) {
    std::uint32_t rest = n.blocks[i];
    for (int k = 8; k >= 0; --k, rest /= 10) p[k] = static_cast<char>('0' + rest % 10);
    p += 9;
  }
  return static_cast<int>(p - out);
}

// The exact digits of magnitude * 10^decimals, rounded half up, for products that a double does not hold.
int exactDigits(double magnitude, int decimals, char* out) {
  constexpr int kMantissaBits = 53, kShift = 29;
  int exponent;
  const double fraction = std::frexp(magnitude, &exponent);
  auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, kMantissaBits));
  BigNumber n{};
  for (; mantissa > 0; mantissa /= BigNumber::kBlock) {
    n.blocks[n.count++] = static_cast<std::uint32_t>(mantissa % BigNumber::kBlock);
  }
  for (int i = 0; i < decimals; ++i) multiply(n, 10);
  const int shift = exponent - kMantissaBits;
  for (int left = shift; left > 0; left -= kShift) multiply(n, 1U << (left < kShift ? left : kShift));
  if (shift < 0) {
    // One bit is kept back for the half.
    for (int left = -shift - 1; left > 0; left -= kShift) divide(n, 1U << (left < kShift ? left : kShift));
    addOne(n);
    divide(n, 2);
  }
  return bigDigits(n, out);
}

// Digits of magnitude * 10^decimals + 0.5, truncated.
int scaledDigits(double magnitude, int decimals, char* out) {
  constexpr double kExactLimit = 9007199254740992.0; // 2^53: from here on a half is lost
  double factor = 1.0;
  for (int i = 0; i < decimals; ++i) factor *= 10.0;
  const double scaled = magnitude * factor + 0.5;
  if (!(scaled < kExactLimit)) return exactDigits(magnitude, decimals, out);
  return static_cast<int>(putLongDigits(out, static_cast<std::uint64_t>(scaled)) - out);
}

// Moves the text of the given length to the right end of the width and fills with blanks.
int padLeft(char* text, int length, int width) {
  if (width > length) {
    std::memmove(text + width - length, text, static_cast<std::size_t>(length));
    std::memset(text, ' ', static_cast<std::size_t>(width - length));
    length = width;
  }
  text[length] = '\0';
  return length;
}

} // namespace

int qqfcha(double value, int decimals, char* out, int width) {
  if (!std::isfinite(value)) {
    const char* name = std::isnan(value) ? "NaN" : value < 0.0 ? "-Inf" : "Inf";
    const int length = static_cast<int>(std::strlen(name));
    std::memcpy(out, name, static_cast<std::size_t>(length));
    return padLeft(out, length, width);
  }
  const double magnitude = std::fabs(value);
  int places = decimals < 0 ? 0 : decimals > kNumberDigitLimit ? kNumberDigitLimit : decimals;
  char digits[450];
  int count = scaledDigits(magnitude, places, digits);
  if (count > kNumberDigitLimit && places > 0) {
    places = count - kNumberDigitLimit > places ? 0 : places - (count - kNumberDigitLimit);
    count = scaledDigits(magnitude, places, digits);
  }
  if (count > kNumberDigitLimit) {
    std::memset(digits, '9', kNumberDigitLimit);
    count = kNumberDigitLimit;
  }
  char* p = out;
  const bool zero = count == 1 && digits[0] == '0';
  if (value < 0.0 && (!zero || width > 0)) *p++ = '-';
  const int whole = count - places;
  if (whole <= 0) {
    *p++ = '0';
  } else {
    std::memcpy(p, digits, static_cast<std::size_t>(whole));
    p += whole;
  }
  if (decimals >= 0) *p++ = '.';
  for (int i = whole; i < 0; ++i) *p++ = '0';
  const int fraction = whole < 0 ? count : places;
  std::memcpy(p, digits + count - fraction, static_cast<std::size_t>(fraction));
  p += fraction;
  return padLeft(out, static_cast<int>(p - out), width);
}

char* putInteger(char* p, int value) {
  auto magnitude = static_cast<std::uint32_t>(value);
  if (value < 0) {
    *p++ = '-';
    magnitude = 0U - magnitude;
  }
  return putDigits(p, magnitude);
}

int qqicha(int value, char* out, int width, bool zeros) {
  char digits[kFixedTextSize];
  const int length = static_cast<int>(putInteger(digits, value) - digits);
  char* p = out;
  const int sign = value < 0 ? 1 : 0;
  if (zeros && sign) *p++ = '-';
  for (int i = length; i < width; ++i) *p++ = zeros ? '0' : ' ';
  const int start = zeros ? sign : 0;
  std::memcpy(p, digits + start, static_cast<std::size_t>(length - start));
  p += length - start;
  *p = '\0';
  return static_cast<int>(p - out);
}

int qqappi(char* text, int length, int value) {
  if (length > 0) text[length++] = ' ';
  return length + qqicha(value, text + length, 0, false);
}

int qqappf(char* text, int length, double value, int decimals) {
  if (length > 0) text[length++] = ' ';
  return length + qqfcha(value, decimals, text + length, 0);
}

namespace {
bool hasRoom(const TextLine& line, int count) { return line.length + count <= static_cast<int>(sizeof line.text); }
} // namespace

void addText(TextLine& line, std::string_view piece) {
  const int count = static_cast<int>(piece.size());
  if (!hasRoom(line, count)) return;
  std::memcpy(line.text + line.length, piece.data(), piece.size());
  line.length += count;
}

void addInteger(TextLine& line, int value) {
  if (hasRoom(line, kNumberTextSize)) line.length = qqappi(line.text, line.length, value);
}

void addReal(TextLine& line, double value, int decimals) {
  if (hasRoom(line, kNumberTextSize)) line.length = qqappf(line.text, line.length, value, decimals);
}

void joinInteger(TextLine& line, int value) {
  if (hasRoom(line, kNumberTextSize)) line.length += qqicha(value, line.text + line.length, 0, false);
}

void joinReal(TextLine& line, double value, int decimals) {
  if (hasRoom(line, kNumberTextSize)) line.length += qqfcha(value, decimals, line.text + line.length, 0);
}

char* putFixed1(char* p, double value) { return putFixed<1>(p, value); }
char* putFixed2(char* p, double value) { return putFixed<2>(p, value); }
char* putFixed3(char* p, double value) { return putFixed<3>(p, value); }

} // namespace quilla
